#include "shared/keysender.h"

#include "platform/keyboard.h"

#include <QApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>

namespace Tarnwell {

namespace {

KeySender::Observer &observer()
{
    static KeySender::Observer o;
    return o;
}

Qt::KeyboardModifiers modifiersOf(int shiftBits)
{
    Qt::KeyboardModifiers m;
    if (shiftBits & Keyboard::ShiftBit)
        m |= Qt::ShiftModifier;
    if (shiftBits & Keyboard::CtrlBit)
        m |= Qt::ControlModifier;
    if (shiftBits & Keyboard::AltBit)
        m |= Qt::AltModifier;
    return m;
}

constexpr struct {
    int bit;
    int vk;
} shiftKeys[] = {
    {Keyboard::ShiftBit, Keyboard::VkShift},
    {Keyboard::CtrlBit, Keyboard::VkControl},
    {Keyboard::AltBit, Keyboard::VkMenu},
};

} // namespace

void KeySender::setObserver(Observer o)
{
    observer() = std::move(o);
}

void KeySender::post(int vk, bool down, int flags, int shiftBits, const QString &text)
{
    if (observer())
        observer()(Stroke{vk, down, flags});
    auto *app = QCoreApplication::instance();
    if (!app)
        return;
    const int key = Keyboard::qtKey(vk);
    const QEvent::Type type = down ? QEvent::KeyPress : QEvent::KeyRelease;
    const Qt::KeyboardModifiers modifiers = modifiersOf(shiftBits);
    // The receiver is chosen on delivery, not now: a Tab press moves the focus, and the keys
    // that follow belong to the widget that has it then.
    QMetaObject::invokeMethod(
        app,
        [=] {
            QObject *target = QApplication::focusWidget();
            if (!target)
                target = QGuiApplication::focusObject();
            if (!target)
                return;
            QKeyEvent event(type, key, modifiers, text);
            QCoreApplication::sendEvent(target, &event);
        },
        Qt::QueuedConnection);
}

void KeySender::sendCharKeys(const QString &ch, bool skipRelease, bool skipPress)
{
    if (ch.isEmpty())
        return;
    const int code = Keyboard::vkKeyScan(ch.at(0));
    if (code <= 0)
        return;
    const int vk = code & 0xFF;
    const int shiftBits = (code >> 8) & 0x7;
    // Like the original, the character test is made on the whole code, shift bits included, so a
    // shifted key counts as one that types nothing and goes as an extended key.
    const bool hasChar = Keyboard::charForVirtualKey(code) != 0;
    const QString text(ch.at(0));

    // A shift key's own event carries the state from before it, as the keyboard reports it
    // (QKeyEvent::modifiers() then adds or drops the key's own bit).
    if (!skipPress) {
        int held = 0;
        for (const auto &s : shiftKeys) {
            if (shiftBits & s.bit) {
                post(s.vk, true, 0, held, QString());
                held |= s.bit;
            }
        }
        post(vk, true, hasChar ? 0 : Extended, shiftBits, text);
    }
    if (!skipRelease) {
        post(vk, false, hasChar ? KeyUp : KeyUp | Extended, shiftBits, text);
        int held = shiftBits;
        for (const auto &s : shiftKeys) {
            if (shiftBits & s.bit) {
                post(s.vk, false, KeyUp, held, QString());
                held &= ~s.bit;
            }
        }
    }
}

void KeySender::sendVirtualKey(int vk, bool skipRelease, bool skipPress, bool notExtended)
{
    if (vk <= 0 || vk > 0xFF)
        return;
    const bool hasChar = Keyboard::charForVirtualKey(vk) != 0;
    const int extended = (!notExtended && !hasChar) ? Extended : 0;
    const QString text = Keyboard::textFor(vk, 0);
    if (!skipPress)
        post(vk, true, extended, 0, text);
    if (!skipRelease)
        post(vk, false, extended | KeyUp, 0, text);
}

} // namespace Tarnwell
