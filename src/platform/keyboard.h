#pragma once
#include <QString>
#include <Qt>

#include <optional>

class QKeyEvent;

namespace Tarnwell {

// Translation between Qt's key events and the host's keyboard vocabulary: virtual-key codes,
// the shift mask (1 Shift, 2 Ctrl, 4 Alt) and the character code a key types (KeyAscii). The
// reverse mappings follow a US keyboard layout, which is what keystroke synthesis assumes.
class Keyboard
{
public:
    enum ShiftBits { ShiftBit = 1, CtrlBit = 2, AltBit = 4 };

    // Virtual-key codes with names the code below uses.
    enum Vk {
        VkBack = 8, VkTab = 9, VkClear = 12, VkReturn = 13, VkShift = 16, VkControl = 17,
        VkMenu = 18, VkPause = 19, VkCapital = 20, VkEscape = 27, VkSpace = 32, VkPrior = 33,
        VkNext = 34, VkEnd = 35, VkHome = 36, VkLeft = 37, VkUp = 38, VkRight = 39, VkDown = 40,
        VkSelect = 41, VkPrint = 42, VkExecute = 43, VkSnapshot = 44, VkInsert = 45,
        VkDelete = 46, VkHelp = 47, VkLWin = 91, VkRWin = 92, VkApps = 93, VkSleep = 95,
        VkNumpad0 = 96, VkMultiply = 106, VkAdd = 107, VkSeparator = 108, VkSubtract = 109,
        VkDecimal = 110, VkDivide = 111, VkF1 = 112, VkF24 = 135, VkNumLock = 144,
        VkScroll = 145,
    };

    // The virtual-key code of the key (0 for a key the host has no code for). Digits and
    // operators typed on the keypad give the numpad codes.
    static int virtualKey(const QKeyEvent &event);
    static int virtualKey(int qtKey, Qt::KeyboardModifiers modifiers);
    static int shiftMask(Qt::KeyboardModifiers modifiers);

    // The character code the key types, 0 for none: Backspace 8, Tab 9, Enter 13, Esc 27,
    // Ctrl+letter 1..26, Ctrl+[ \ ] 27..29, Ctrl+Shift+6 30, Ctrl+Shift+minus 31, printable
    // characters by their code (above 255 their UTF-16 unit).
    // Alt combinations type nothing.
    static int keyAscii(const QKeyEvent &event);
    static int keyAscii(int qtKey, Qt::KeyboardModifiers modifiers, const QString &text);

    // The Qt key of a virtual-key code (0 when there is none).
    static int qtKey(int virtualKey);

    // What a US layout needs to type `ch`: the virtual key and the shift bits (1 Shift, 2 Ctrl,
    // 4 Alt), as one 16-bit code (shift bits in the high byte); -1 for a character no key types.
    static int vkKeyScan(QChar ch);
    // The unshifted character of a virtual key (letters in upper case), 0 for none; a code with
    // shift bits above the low byte names no key and gives 0.
    static int charForVirtualKey(int code);
    // The text a key types on a US layout with the given shift bits (empty for none).
    static QString textFor(int virtualKey, int shiftBits);
};

} // namespace Tarnwell
