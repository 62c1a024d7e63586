#include "shared/keypipeline.h"

#include <tarnwell/controlframe.h>

#include "platform/keyboard.h"
#include "shared/keysender.h"
#include "shared/textbox.h"

#include <QCoreApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>

namespace Tarnwell {

namespace {

constexpr short KeyCtrlC = 3;
constexpr short KeyCtrlV = 22;
constexpr short KeyCtrlX = 24;
constexpr short KeyCtrlZ = 26;

bool isTab(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
}

QChar charOf(short keyAscii)
{
    return QChar(char16_t(static_cast<unsigned short>(keyAscii)));
}

} // namespace

void TextBox::keyPressEvent(QKeyEvent *event)
{
    ++m_keyDepth;
    QLineEdit::keyPressEvent(event);
    --m_keyDepth;
}

bool KeyPipeline::keyPress(QKeyEvent *event)
{
    if (m_replaying)
        return false;
    // Tab moves the focus through Qt's chain; the host sees no key events for it.
    if (isTab(event))
        return false;

    QPointer<ControlFrame> self(&m_frame);
    const int vk = Keyboard::virtualKey(*event);
    bool keyConsumed = false;
    if (vk != 0) {
        short keyCode = short(vk);
        short shift = short(Keyboard::shiftMask(event->modifiers()));
        emit m_frame.KeyDown(keyCode, shift);
        if (!self)
            return true;
        if (keyCode != 0)
            m_frame.handleKeyDown(keyCode, shift);
        keyConsumed = keyCode == 0;
    }

    const int ascii = Keyboard::keyAscii(*event);
    if (ascii == 0) {
        // Alt+key and the like are accelerators, not characters; the line edit would type their
        // text past the control's rules, so the key goes on to the parents as one nobody took.
        if (!keyConsumed && !event->text().isEmpty() && event->text().at(0).isPrint()) {
            event->ignore();
            return true;
        }
        return keyConsumed;
    }
    if (ascii == '\r' && m_frame.EnterAsTab()) {
        KeySender::sendCharKeys(QStringLiteral("\t"), false, false);
        return true;
    }
    short keyAscii = short(ascii);
    emit m_frame.keyPress(keyAscii);
    if (!self)
        return true;
    if (keyAscii != 0)
        m_frame.handleKeyPress(keyAscii);
    if (keyAscii == 0)
        return true;
    if (keyAscii == short(ascii))
        return false; // the key goes on as it came, with whatever else it does
    deliverCharacter(keyAscii, event->isAutoRepeat());
    return true;
}

// A character typed as the key that types it on a US layout (a character no key types is sent
// with its own code): a host or control that changed the character gets this one typed, and
// composed text is typed this way.
void KeyPipeline::deliverCharacter(short keyAscii, bool autoRepeat)
{
    const QChar ch = charOf(keyAscii);
    int key = 0;
    int shiftBits = 0;
    const int scan = Keyboard::vkKeyScan(ch);
    if (scan > 0) {
        key = Keyboard::qtKey(scan & 0xFF);
        shiftBits = (scan >> 8) & 0x7;
    } else {
        key = ch.toUpper().unicode();
    }
    Qt::KeyboardModifiers modifiers;
    if (shiftBits & Keyboard::ShiftBit)
        modifiers |= Qt::ShiftModifier;
    if (shiftBits & Keyboard::CtrlBit)
        modifiers |= Qt::ControlModifier;
    QKeyEvent typed(QEvent::KeyPress, key, modifiers, QString(ch), autoRepeat);
    QScopedValueRollback<bool> replaying(m_replaying, true);
    QCoreApplication::sendEvent(&m_text, &typed);
}

bool KeyPipeline::keyRelease(QKeyEvent *event)
{
    // Auto-repeat brings releases the keyboard never made; the host sees one KeyUp at the end.
    if (event->isAutoRepeat() || m_replaying || isTab(event))
        return false;
    const int vk = Keyboard::virtualKey(*event);
    if (vk == 0)
        return false;
    QPointer<ControlFrame> self(&m_frame);
    short keyCode = short(vk);
    short shift = short(Keyboard::shiftMask(event->modifiers()));
    emit m_frame.KeyUp(keyCode, shift);
    if (!self)
        return true;
    if (keyCode != 0)
        m_frame.handleKeyUp(keyCode, shift);
    return keyCode == 0;
}

bool KeyPipeline::shortcutOverride(QKeyEvent *event)
{
    const short vk = short(Keyboard::virtualKey(*event));
    const short shift = short(Keyboard::shiftMask(event->modifiers()));
    const short ascii = short(Keyboard::keyAscii(*event));
    const bool editKey = ascii == KeyCtrlC || ascii == KeyCtrlV || ascii == KeyCtrlX
                         || ascii == KeyCtrlZ
                         || (vk == Keyboard::VkInsert && (shift == 1 || shift == 2))
                         || (vk == Keyboard::VkDelete && shift == 1);
    if (editKey && m_frame.keepsShortcutKey(vk, shift, ascii)) {
        event->accept(); // delivered as a key press to the text box, not as a shortcut
        return true;
    }
    return false;
}

// Composed characters arrive without key events; each is raised and handled as a typed one.
// The composition itself (the pre-edit text) is not shown: only what is committed counts.
bool KeyPipeline::inputMethod(QInputMethodEvent *event)
{
    const QString committed = event->commitString();
    QPointer<ControlFrame> self(&m_frame);
    for (const QChar c : committed) {
        short keyAscii = short(c.unicode());
        emit m_frame.keyPress(keyAscii);
        if (!self)
            return true;
        if (keyAscii != 0)
            m_frame.handleKeyPress(keyAscii);
        if (!self)
            return true;
        if (keyAscii != 0)
            deliverCharacter(keyAscii, false);
    }
    event->accept();
    return true;
}

} // namespace Tarnwell
