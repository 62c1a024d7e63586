// Key translation both ways: what a Qt key event means to the host, and which keys a US
// keyboard needs to type a character.
#include "platform/keyboard.h"

#include "common/testsupport.h"

#include <QKeyEvent>

using Tarnwell::Keyboard;

namespace {

struct KeyRow {
    const char *name;
    int qtKey;
    Qt::KeyboardModifiers modifiers;
    const char16_t *text;
    int vk;
    int shift;
    int ascii;
};
class KeyEventTranslation : public ::testing::TestWithParam<KeyRow> {};

TEST_P(KeyEventTranslation, GivesCodeShiftAndCharacter)
{
    const KeyRow &row = GetParam();
    const QKeyEvent event(QEvent::KeyPress, row.qtKey, row.modifiers,
                          QString::fromUtf16(row.text));
    EXPECT_EQ(Keyboard::virtualKey(event), row.vk);
    EXPECT_EQ(Keyboard::shiftMask(event.modifiers()), row.shift);
    EXPECT_EQ(Keyboard::keyAscii(event), row.ascii);
}

const Qt::KeyboardModifiers none = Qt::NoModifier;
const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
const Qt::KeyboardModifiers alt = Qt::AltModifier;
const Qt::KeyboardModifiers pad = Qt::KeypadModifier;

INSTANTIATE_TEST_SUITE_P(Keys, KeyEventTranslation, ::testing::Values(
    KeyRow{"LowerA", Qt::Key_A, none, u"a", 65, 0, 'a'},
    KeyRow{"UpperA", Qt::Key_A, shift, u"A", 65, 1, 'A'},
    KeyRow{"UpperAWithoutText", Qt::Key_A, shift, u"", 65, 1, 'A'},
    KeyRow{"LowerZWithoutText", Qt::Key_Z, none, u"", 90, 0, 'z'},
    KeyRow{"ExclamationIsShift1", Qt::Key_Exclam, shift, u"!", 49, 1, '!'},
    KeyRow{"Enter", Qt::Key_Return, none, u"\r", 13, 0, 13},
    KeyRow{"KeypadEnter", Qt::Key_Enter, pad, u"\r", 13, 0, 13},
    KeyRow{"CtrlC", Qt::Key_C, ctrl, u"\x03", 67, 2, 3},
    KeyRow{"CtrlVWithoutText", Qt::Key_V, ctrl, u"", 86, 2, 22},
    KeyRow{"CtrlShiftZ", Qt::Key_Z, ctrl | shift, u"\x1a", 90, 3, 26},
    KeyRow{"CtrlShift6", Qt::Key_AsciiCircum, ctrl | shift, u"\x1e", 54, 3, 30},
    KeyRow{"CtrlShiftMinusWithoutText", Qt::Key_Minus, ctrl | shift, u"", 189, 3, 31},
    KeyRow{"CtrlDigitTypesNothing", Qt::Key_5, ctrl, u"", 53, 2, 0},
    KeyRow{"AltLetterTypesNothing", Qt::Key_F, alt, u"f", 70, 4, 0},
    KeyRow{"AltGrThirdLevel", Qt::Key_At, ctrl | alt, u"@", 50, 6, '@'},
    KeyRow{"Delete", Qt::Key_Delete, none, u"", 46, 0, 0},
    KeyRow{"F4", Qt::Key_F4, alt, u"", 115, 4, 0},
    KeyRow{"Numpad5", Qt::Key_5, pad, u"5", 101, 0, '5'},
    KeyRow{"LatinOneEacute", Qt::Key_Eacute, none, u"\u00e9", 0, 0, 0xE9},
    KeyRow{"AboveLatinOneKeptAsUtf16", Qt::Key_unknown, none, u"\u20ac", 0, 0, 0x20AC}), TestSupport::rowName);

struct ScanRow {
    const char *name;
    char16_t ch;
    int code; // -1: no key types it
};
class CharacterToKeys : public ::testing::TestWithParam<ScanRow> {};

TEST_P(CharacterToKeys, FollowsUsLayout)
{
    EXPECT_EQ(Keyboard::vkKeyScan(QChar(GetParam().ch)), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(Characters, CharacterToKeys, ::testing::Values(
    ScanRow{"Enter", u'\r', 0x0D}, ScanRow{"LineFeedIsCtrlEnter", u'\n', 0x20D}, ScanRow{"CtrlBackslash", u'\x1c', 0x2DC},
    ScanRow{"CtrlShiftMinus", u'\x1f', 0x3BD}, ScanRow{"EacuteHasNoKey", u'\u00e9', -1}, ScanRow{"NulHasNoKey", u'\0', -1}),
    TestSupport::rowName);

// Every key a US layout types maps back to a Qt key and to the same text, so synthesised
// keystrokes type what they were asked to.
TEST(KeyboardRoundTrip, PrintableAsciiSurvivesKeyAndText)
{
    for (char16_t c = 0x20; c < 0x7F; ++c) {
        const int code = Keyboard::vkKeyScan(QChar(c));
        ASSERT_GT(code, 0) << "char " << int(c);
        EXPECT_NE(Keyboard::qtKey(code & 0xFF), 0) << "char " << int(c);
        EXPECT_EQ(Keyboard::textFor(code & 0xFF, code >> 8), QString(QChar(c))) << "char " << int(c);
    }
}

} // namespace
