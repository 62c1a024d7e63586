#pragma once
#include <QList>
#include <QString>

#include <functional>

namespace Tarnwell {

// Replays keystrokes as real key events, so that Qt's own focus chain and widgets react as they
// would to the keyboard: each press and release is posted in order and delivered to whichever
// widget has the focus when its turn comes (after a Tab press, the release goes to the widget the
// focus moved to). Characters map to keys on a US layout.
class KeySender
{
public:
    // One synthesised key transition: the virtual key, press or release, and the flags a
    // keystroke carries (1 extended key, 2 key up).
    struct Stroke {
        int vk = 0;
        bool down = false;
        int flags = 0;
        friend bool operator==(const Stroke &, const Stroke &) = default;
    };
    enum Flag { Extended = 1, KeyUp = 2 };

    // Types the first character of `ch`: its shift keys, the key, then releases the key and the
    // shift keys (Shift, Ctrl, Alt, in that order). A character no key types is not sent.
    static void sendCharKeys(const QString &ch, bool skipRelease, bool skipPress);
    // Presses and releases one virtual key with no shift keys.
    static void sendVirtualKey(int vk, bool skipRelease, bool skipPress, bool notExtended);

    // Sees every stroke as it is posted (null: none). Tests use it to check the sequence.
    using Observer = std::function<void(const Stroke &)>;
    static void setObserver(Observer observer);

private:
    static void post(int vk, bool down, int flags, int shiftBits, const QString &text);
};

} // namespace Tarnwell
