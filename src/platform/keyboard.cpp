#include "platform/keyboard.h"

#include <QKeyEvent>

namespace Tarnwell {

namespace {

// The punctuation keys of a US layout: virtual key, unshifted and shifted character.
struct OemKey {
    int vk;
    char plain;
    char shifted;
};
constexpr OemKey oemKeys[] = {
    {186, ';', ':'}, {187, '=', '+'}, {188, ',', '<'}, {189, '-', '_'}, {190, '.', '>'},
    {191, '/', '?'}, {192, '`', '~'}, {219, '[', '{'}, {220, '\\', '|'}, {221, ']', '}'},
    {222, '\'', '"'},
};
// Shift + digit on a US layout, digits 0..9.
constexpr char shiftedDigits[] = ")!@#$%^&*(";

struct NamedKey {
    int qt;
    int vk;
};
constexpr NamedKey namedKeys[] = {
    {Qt::Key_Backspace, Keyboard::VkBack},   {Qt::Key_Tab, Keyboard::VkTab},
    {Qt::Key_Backtab, Keyboard::VkTab},      {Qt::Key_Clear, Keyboard::VkClear},
    {Qt::Key_Return, Keyboard::VkReturn},    {Qt::Key_Enter, Keyboard::VkReturn},
    {Qt::Key_Shift, Keyboard::VkShift},      {Qt::Key_Control, Keyboard::VkControl},
    {Qt::Key_Alt, Keyboard::VkMenu},         {Qt::Key_AltGr, Keyboard::VkMenu},
    {Qt::Key_Pause, Keyboard::VkPause},      {Qt::Key_CapsLock, Keyboard::VkCapital},
    {Qt::Key_Escape, Keyboard::VkEscape},    {Qt::Key_Space, Keyboard::VkSpace},
    {Qt::Key_PageUp, Keyboard::VkPrior},     {Qt::Key_PageDown, Keyboard::VkNext},
    {Qt::Key_End, Keyboard::VkEnd},          {Qt::Key_Home, Keyboard::VkHome},
    {Qt::Key_Left, Keyboard::VkLeft},        {Qt::Key_Up, Keyboard::VkUp},
    {Qt::Key_Right, Keyboard::VkRight},      {Qt::Key_Down, Keyboard::VkDown},
    {Qt::Key_Select, Keyboard::VkSelect},    {Qt::Key_Printer, Keyboard::VkPrint},
    {Qt::Key_Execute, Keyboard::VkExecute},  {Qt::Key_Print, Keyboard::VkSnapshot},
    {Qt::Key_Insert, Keyboard::VkInsert},    {Qt::Key_Delete, Keyboard::VkDelete},
    {Qt::Key_Help, Keyboard::VkHelp},        {Qt::Key_Meta, Keyboard::VkLWin},
    {Qt::Key_Super_L, Keyboard::VkLWin},     {Qt::Key_Super_R, Keyboard::VkRWin},
    {Qt::Key_Menu, Keyboard::VkApps},        {Qt::Key_Sleep, Keyboard::VkSleep},
    {Qt::Key_NumLock, Keyboard::VkNumLock},  {Qt::Key_ScrollLock, Keyboard::VkScroll},
};

int keypadKey(int qtKey)
{
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9)
        return Keyboard::VkNumpad0 + (qtKey - Qt::Key_0);
    switch (qtKey) {
    case Qt::Key_Asterisk: return Keyboard::VkMultiply;
    case Qt::Key_Plus: return Keyboard::VkAdd;
    case Qt::Key_Minus: return Keyboard::VkSubtract;
    case Qt::Key_Period: return Keyboard::VkDecimal;
    case Qt::Key_Comma: return Keyboard::VkSeparator;
    case Qt::Key_Slash: return Keyboard::VkDivide;
    default: return 0;
    }
}

// The virtual key that types an ASCII character on a US layout, and whether it needs Shift.
int printableKey(char16_t ch, bool *shift)
{
    *shift = false;
    if (ch >= 'a' && ch <= 'z')
        return 'A' + (ch - 'a');
    if (ch >= 'A' && ch <= 'Z') {
        *shift = true;
        return ch;
    }
    if (ch >= '0' && ch <= '9')
        return ch;
    if (ch == ' ')
        return Keyboard::VkSpace;
    for (int d = 0; d < 10; ++d) {
        if (shiftedDigits[d] == ch) {
            *shift = true;
            return '0' + d;
        }
    }
    for (const OemKey &k : oemKeys) {
        if (k.plain == ch)
            return k.vk;
        if (k.shifted == ch) {
            *shift = true;
            return k.vk;
        }
    }
    return 0;
}

} // namespace

int Keyboard::virtualKey(const QKeyEvent &event)
{
    return virtualKey(event.key(), event.modifiers());
}

int Keyboard::virtualKey(int qtKey, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::KeypadModifier) {
        if (int vk = keypadKey(qtKey))
            return vk;
    }
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z)
        return qtKey; // Qt's letter keys carry the upper-case code, as virtual keys do
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9)
        return qtKey;
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F24)
        return VkF1 + (qtKey - Qt::Key_F1);
    for (const NamedKey &k : namedKeys) {
        if (k.qt == qtKey)
            return k.vk;
    }
    // Punctuation: Qt reports the character typed, shifted or not; map it back to its key.
    if (qtKey > 0x20 && qtKey < 0x7F) {
        bool shift = false;
        return printableKey(char16_t(qtKey), &shift);
    }
    return 0;
}

int Keyboard::shiftMask(Qt::KeyboardModifiers modifiers)
{
    int mask = 0;
    if (modifiers & Qt::ShiftModifier)
        mask |= ShiftBit;
    if (modifiers & Qt::ControlModifier)
        mask |= CtrlBit;
    if (modifiers & Qt::AltModifier)
        mask |= AltBit;
    return mask;
}

int Keyboard::keyAscii(const QKeyEvent &event)
{
    return keyAscii(event.key(), event.modifiers(), event.text());
}

int Keyboard::keyAscii(int qtKey, Qt::KeyboardModifiers modifiers, const QString &text)
{
    const bool ctrl = modifiers & Qt::ControlModifier;
    const bool alt = modifiers & Qt::AltModifier;
    const bool shift = modifiers & Qt::ShiftModifier;

    // Ctrl+Alt is how some layouts reach their third-level characters (AltGr): trust the text.
    if (ctrl && alt) {
        if (!text.isEmpty() && text.at(0).unicode() >= 0x20 && text.at(0).unicode() != 0x7F)
            return text.at(0).unicode();
        return 0;
    }
    if (alt)
        return 0; // Alt combinations are menu accelerators, never characters

    switch (qtKey) {
    case Qt::Key_Backspace: return ctrl ? 127 : 8;
    case Qt::Key_Tab: return ctrl ? 0 : 9;
    case Qt::Key_Backtab: return ctrl ? 0 : 9;
    case Qt::Key_Return:
    case Qt::Key_Enter: return ctrl ? 10 : 13;
    case Qt::Key_Escape: return 27;
    default: break;
    }

    if (ctrl) {
        if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z)
            return qtKey - Qt::Key_A + 1;
        switch (qtKey) {
        case Qt::Key_BracketLeft: return 27;
        case Qt::Key_Backslash: return 28;
        case Qt::Key_BracketRight: return 29;
        // Ctrl+Shift+6 and Ctrl+Shift+minus, reported by the key or by its shifted character.
        case Qt::Key_6:
        case Qt::Key_AsciiCircum: return shift ? 30 : 0;
        case Qt::Key_Minus:
        case Qt::Key_Underscore: return shift ? 31 : 0;
        default: return 0;
        }
    }

    if (!text.isEmpty()) {
        const char16_t c = text.at(0).unicode();
        if (c >= 0x20 && c != 0x7F)
            return c;
    }
    // No text (synthesised events often carry none): derive it from the key on a US layout.
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z)
        return shift ? qtKey : qtKey - Qt::Key_A + 'a';
    if (qtKey >= 0x20 && qtKey < 0x7F)
        return qtKey;
    if (qtKey >= 0xA0 && qtKey <= 0xFF)
        return qtKey;
    return 0;
}

int Keyboard::qtKey(int virtualKey)
{
    if ((virtualKey >= 'A' && virtualKey <= 'Z') || (virtualKey >= '0' && virtualKey <= '9'))
        return virtualKey;
    if (virtualKey >= VkF1 && virtualKey <= VkF24)
        return Qt::Key_F1 + (virtualKey - VkF1);
    if (virtualKey >= VkNumpad0 && virtualKey <= VkNumpad0 + 9)
        return Qt::Key_0 + (virtualKey - VkNumpad0);
    switch (virtualKey) {
    case VkTab: return Qt::Key_Tab;
    case VkReturn: return Qt::Key_Return;
    case VkMenu: return Qt::Key_Alt;
    case VkLWin: return Qt::Key_Meta;
    case VkPrint: return Qt::Key_Printer;
    case VkSnapshot: return Qt::Key_Print;
    case VkMultiply: return Qt::Key_Asterisk;
    case VkAdd: return Qt::Key_Plus;
    case VkSeparator: return Qt::Key_Comma;
    case VkSubtract: return Qt::Key_Minus;
    case VkDecimal: return Qt::Key_Period;
    case VkDivide: return Qt::Key_Slash;
    default: break;
    }
    for (const NamedKey &k : namedKeys) {
        if (k.vk == virtualKey)
            return k.qt;
    }
    for (const OemKey &k : oemKeys) {
        if (k.vk == virtualKey)
            return k.plain;
    }
    return 0;
}

int Keyboard::vkKeyScan(QChar ch)
{
    const char16_t c = ch.unicode();
    switch (c) {
    case 8: return VkBack;
    case 9: return VkTab;
    case 10: return (CtrlBit << 8) | VkReturn;
    case 13: return VkReturn;
    case 27: return VkEscape;
    case 127: return (CtrlBit << 8) | VkBack;
    default: break;
    }
    if (c >= 1 && c <= 26)
        return (CtrlBit << 8) | ('A' + c - 1);
    if (c == 28)
        return (CtrlBit << 8) | 220;
    if (c == 29)
        return (CtrlBit << 8) | 221;
    if (c == 30)
        return ((CtrlBit | ShiftBit) << 8) | '6';
    if (c == 31)
        return ((CtrlBit | ShiftBit) << 8) | 189;
    bool shift = false;
    const int vk = c < 0x80 ? printableKey(c, &shift) : 0;
    if (vk == 0)
        return -1;
    return (shift ? (ShiftBit << 8) : 0) | vk;
}

int Keyboard::charForVirtualKey(int code)
{
    if (code < 0 || code > 0xFF)
        return 0;
    if ((code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9'))
        return code;
    if (code >= VkNumpad0 && code <= VkNumpad0 + 9)
        return '0' + (code - VkNumpad0);
    switch (code) {
    case VkBack: return 8;
    case VkTab: return 9;
    case VkReturn: return 13;
    case VkEscape: return 27;
    case VkSpace: return ' ';
    case VkMultiply: return '*';
    case VkAdd: return '+';
    case VkSubtract: return '-';
    case VkDecimal: return '.';
    case VkDivide: return '/';
    default: break;
    }
    for (const OemKey &k : oemKeys) {
        if (k.vk == code)
            return k.plain;
    }
    return 0;
}

QString Keyboard::textFor(int virtualKey, int shiftBits)
{
    if (shiftBits & AltBit)
        return QString();
    if (shiftBits & CtrlBit) {
        if (virtualKey >= 'A' && virtualKey <= 'Z')
            return QString(QChar(virtualKey - 'A' + 1));
        if (virtualKey == VkReturn)
            return QString(QChar(10));
        if (virtualKey == VkBack)
            return QString(QChar(127));
        return QString();
    }
    const bool shift = shiftBits & ShiftBit;
    if (virtualKey >= 'A' && virtualKey <= 'Z')
        return QString(QChar(shift ? virtualKey : virtualKey - 'A' + 'a'));
    if (virtualKey >= '0' && virtualKey <= '9')
        return QString(QChar(shift ? shiftedDigits[virtualKey - '0'] : virtualKey));
    for (const OemKey &k : oemKeys) {
        if (k.vk == virtualKey)
            return QString(QChar(shift ? k.shifted : k.plain));
    }
    if (const int c = charForVirtualKey(virtualKey))
        return QString(QChar(c));
    return QString();
}

} // namespace Tarnwell
