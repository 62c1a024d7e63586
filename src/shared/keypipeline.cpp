#include "shared/keypipeline.h"

#include <tarnwell/controlframe.h>

#include "platform/keyboard.h"
#include "shared/controlframe_p.h"
#include "shared/keysender.h"
#include "shared/textbox.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>

namespace Tarnwell {

namespace {

constexpr short KeyBackspace = 8;
constexpr short KeyCtrlC = 3;
constexpr short KeyCtrlV = 22;
constexpr short KeyCtrlX = 24;
constexpr short KeyCtrlZ = 26;
constexpr short KeyEnter = 13;
constexpr short KeyEscape = 27;

bool isTab(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
}

// Keys no control types: a line edit leaves them to its parents too.
bool isLeftToParents(short keyAscii)
{
    return keyAscii == KeyEnter || keyAscii == KeyEscape;
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

void TextBox::typeText(const QString &text)
{
    ++m_keyDepth;
    insert(text);
    --m_keyDepth;
}

KeyPipeline::KeyPipeline(ControlFrame &frame, TextBox &text)
    : m_frame(frame), m_d(*ControlFramePrivate::get(&frame)), m_text(text)
{
}

void KeyPipeline::keyPress(QKeyEvent *event)
{
    // Tab reaches here only when Qt found nowhere to move the focus, or with Ctrl or Alt; the
    // host sees no key events for it.
    if (isTab(event)) {
        event->ignore();
        return;
    }

    QPointer<ControlFrame> self(&m_frame);
    const int vk = Keyboard::virtualKey(*event);
    bool keyConsumed = false;
    if (vk != 0) {
        short keyCode = short(vk);
        short shift = short(Keyboard::shiftMask(event->modifiers()));
        emit m_frame.KeyDown(keyCode, shift);
        if (!self)
            return;
        if (keyCode != 0)
            m_d.handleKeyDown(keyCode, shift);
        if (!self)
            return;
        keyConsumed = keyCode == 0;
    }

    const int ascii = Keyboard::keyAscii(*event);
    if (ascii == 0) {
        if (keyConsumed) {
            event->accept();
        } else if (!event->text().isEmpty() && event->text().at(0).isPrint()) {
            // Alt+key and the like are accelerators, not characters; the line edit would type
            // their text past the control's rules, so the key goes on as one nobody took.
            event->ignore();
        } else {
            m_text.handOn(event); // arrows, Home, End and the like move the caret
        }
        return;
    }
    if (ascii == KeyEnter && m_frame.EnterAsTab()) {
        KeySender::sendCharKeys(QStringLiteral("\t"), false, false);
        event->accept();
        return;
    }
    short keyAscii = short(ascii);
    emit m_frame.keyPress(keyAscii);
    if (!self)
        return;
    if (keyAscii == 0) {
        event->accept(); // the host cancelled it
        return;
    }
    const short hostAscii = keyAscii;
    m_d.handleKeyPress(keyAscii);
    if (!self)
        return;
    if (isLeftToParents(hostAscii) && (keyAscii == 0 || keyAscii == hostAscii))
        event->ignore();
    else if (keyAscii == 0)
        event->accept();
    else if (keyAscii == short(ascii))
        m_text.handOn(event); // the key goes on as it came, with whatever else it does
    else {
        deliverCharacter(keyAscii, event->isAutoRepeat());
        event->accept();
    }
}

// A character typed as the key that types it on a US layout (a character no key types is sent
// with its own code): a host or control that changed the character gets this one typed.
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
    m_text.handOn(&typed);
}

void KeyPipeline::keyRelease(QKeyEvent *event)
{
    // Auto-repeat brings releases the keyboard never made; the host sees one KeyUp at the end.
    const int vk = Keyboard::virtualKey(*event);
    if (event->isAutoRepeat() || isTab(event) || vk == 0) {
        m_text.handOn(event);
        return;
    }
    QPointer<ControlFrame> self(&m_frame);
    short keyCode = short(vk);
    short shift = short(Keyboard::shiftMask(event->modifiers()));
    emit m_frame.KeyUp(keyCode, shift);
    if (!self)
        return;
    if (keyCode != 0)
        m_d.handleKeyUp(keyCode, shift);
    if (!self)
        return;
    if (keyCode == 0)
        event->accept();
    else
        m_text.handOn(event);
}

void KeyPipeline::shortcutOverride(QKeyEvent *event)
{
    const short vk = short(Keyboard::virtualKey(*event));
    const short shift = short(Keyboard::shiftMask(event->modifiers()));
    const short ascii = short(Keyboard::keyAscii(*event));
    const bool editKey = ascii == KeyCtrlC || ascii == KeyCtrlV || ascii == KeyCtrlX
                         || ascii == KeyCtrlZ
                         || (vk == Keyboard::VkInsert && (shift == 1 || shift == 2))
                         || (vk == Keyboard::VkDelete && shift == 1);
    if (editKey && m_d.keepsShortcutKey(vk, shift, ascii))
        event->accept(); // delivered as a key press, not as a shortcut
    else
        m_text.handOn(event); // the line edit claims what it types, never Alt+letter
}

// The characters passed on are collected and typed at once: typing them one by one would lay
// the whole text out again for each, which grows with the square of a long commit. The
// composition itself (the pre-edit text) is not shown: only what is committed counts.
void KeyPipeline::inputMethod(QInputMethodEvent *event)
{
    event->accept();
    const QString committed = event->commitString();
    if (committed.isEmpty())
        return;
    QPointer<ControlFrame> self(&m_frame);
    QString typed;
    typed.reserve(committed.size());
    for (const QChar c : committed) {
        if (c.unicode() < 32 || c.unicode() == 127)
            continue; // text, not keys: no Tab, Enter or Backspace comes from a commit
        short keyAscii = short(c.unicode());
        emit m_frame.keyPress(keyAscii);
        if (!self)
            return;
        if (keyAscii != 0)
            m_d.handleKeyPress(keyAscii);
        if (!self)
            return;
        const QChar result = charOf(keyAscii);
        if (result.isPrint()) {
            typed.append(result);
        } else if (keyAscii == KeyBackspace) {
            // A host that turned a character into Backspace has the text so far typed first.
            typeText(typed);
            typed.clear();
            if (!self)
                return;
            deliverCharacter(keyAscii, false);
        }
    }
    typeText(typed);
}

void KeyPipeline::typeText(const QString &text)
{
    if (!text.isEmpty() && !m_text.isReadOnly()) // a Locked box takes no text, as for keys
        m_text.typeText(text);
}

} // namespace Tarnwell
