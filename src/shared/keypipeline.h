#pragma once
class QInputMethodEvent;
class QKeyEvent;
class QString;

namespace Tarnwell {

class ControlFrame;
class ControlFramePrivate;
class TextBox;

// The keyboard path of a line control. The control holds the focus and hands its key events
// here: each key is raised to the host first (KeyDown, keyPress, KeyUp, arguments by reference),
// then handed to the control's own hooks, and what is left reaches the text box, as the host and
// the control left it. Enter becomes Tab when EnterAsTab is on. Each call leaves the event
// accepted or ignored as a line edit would: a key nobody took (Enter, Escape, an accelerator)
// goes on to the control's parents.
//
// Composed text from an input method is text, not keys: its control characters are dropped (a
// Tab in it moves no focus), each other character passes keyPress and the control's hook as a
// typed one would, and those passed on are typed into the text box together, once.
class KeyPipeline
{
public:
    KeyPipeline(ControlFrame &frame, TextBox &text);

    void keyPress(QKeyEvent *event);
    void keyRelease(QKeyEvent *event);
    void shortcutOverride(QKeyEvent *event);
    void inputMethod(QInputMethodEvent *event);

private:
    void deliverCharacter(short keyAscii, bool autoRepeat);
    void typeText(const QString &text);

    ControlFrame &m_frame;
    ControlFramePrivate &m_d; // the control's hooks
    TextBox &m_text;
};

} // namespace Tarnwell
