#pragma once
class QInputMethodEvent;
class QKeyEvent;

namespace Tarnwell {

class ControlFrame;
class TextBox;

// The keyboard path of a line control: each key reaching the text box is raised to the host
// first (KeyDown, keyPress, KeyUp, arguments by reference), then handed to the control's own
// hooks, and what is left reaches the text box, as the host and the control left it. Enter
// becomes Tab when EnterAsTab is on. Composed text from an input method is typed character by
// character through keyPress and the control's hook, as if each character had been keyed.
class KeyPipeline
{
public:
    KeyPipeline(ControlFrame &frame, TextBox &text) : m_frame(frame), m_text(text) {}

    // Each returns true when the event is consumed.
    bool keyPress(QKeyEvent *event);
    bool keyRelease(QKeyEvent *event);
    bool shortcutOverride(QKeyEvent *event);
    bool inputMethod(QInputMethodEvent *event);

private:
    void deliverCharacter(short keyAscii, bool autoRepeat);

    ControlFrame &m_frame;
    TextBox &m_text;
    bool m_replaying = false;
};

} // namespace Tarnwell
