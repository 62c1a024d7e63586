#include "maskengine/maskengine.h"

#include "common/testsupport.h"

#include <vector>

using Tarnwell::MaskEditState;
using Tarnwell::MaskEngine;

namespace {

const QString Phone = QStringLiteral("(###) ###-####");
const QString Time = QStringLiteral("##:##:## \\AM");
const QString ControlLiteral = QStringLiteral("#") + QChar(2) + QStringLiteral("#");

using TestSupport::rowName;

struct ParseRow
{
    const char *name;
    QString mask;
    std::vector<qint16> kinds; // without the leading count
    int inputs;
    QString blank;
};
class ParseMaskTest : public testing::TestWithParam<ParseRow> {};

TEST_P(ParseMaskTest, CompilesKindsAndTemplate)
{
    const ParseRow &row = GetParam();
    MaskEngine engine;
    EXPECT_EQ(engine.parseMask(row.mask), row.blank);
    const int n = int(row.kinds.size());
    ASSERT_EQ(engine.length(), n);
    ASSERT_EQ(engine.maskKinds().size(), n + 1);
    EXPECT_EQ(engine.maskKinds().at(0), n);
    for (int i = 0; i < n; ++i) {
        EXPECT_EQ(engine.maskKinds().at(i + 1), row.kinds[i]) << "position " << i;
        const bool input = row.kinds[i] >= 1 && row.kinds[i] <= 4;
        EXPECT_EQ(engine.isLiteral(i), !input) << "position " << i;
    }
    EXPECT_EQ(engine.inputCount(), row.inputs);
    // The blank template must survive the leaving-the-box normalisation.
    EXPECT_EQ(engine.formatMaskValue(engine.extractMaskValue(row.blank, 0)), row.blank);
}

INSTANTIATE_TEST_SUITE_P(Masks, ParseMaskTest, testing::Values(
    ParseRow{"Phone", Phone, {40, 1, 1, 1, 41, 32, 1, 1, 1, 45, 1, 1, 1, 1}, 10, "(   )    -    "},
    ParseRow{"AllPlaceholders", "#@?&", {1, 2, 3, 4}, 4, "    "},
    ParseRow{"EscapedHash", "\\##", {35, 1}, 1, "# "},
    ParseRow{"EscapedBackslash", "\\\\#", {92, 1}, 1, "\\ "},
    ParseRow{"BackslashThenEscapedHash", "\\\\\\#", {92, 35}, 0, "\\#"},
    ParseRow{"EscapedPlaceholders", "\\#\\@\\?\\&", {35, 64, 63, 38}, 0, "#@?&"},
    ParseRow{"LoneTrailingBackslash", "##\\", {1, 1}, 2, "  "},
    ParseRow{"OnlyBackslash", "\\", {}, 0, ""},
    ParseRow{"Empty", "", {}, 0, ""},
    ParseRow{"TimeWithEscapedA", Time, {1, 1, 58, 1, 1, 58, 1, 1, 32, 65, 77}, 6, "  :  :   AM"},
    ParseRow{"ControlLiteralActsAsPlaceholder", ControlLiteral, {1, 2, 1}, 3, "   "},
    ParseRow{"EscapedControlLiteral", QStringLiteral("\\") + QChar(4), {4}, 1, " "},
    ParseRow{"LiteralAbove7FFF", QString(QChar(0xFF03)), {qint16(0xFF03)}, 0, QString(QChar(0xFF03))}), rowName);

struct AcceptRow { const char *name; int kind; QChar c; bool accepted; };
class AcceptsTest : public testing::TestWithParam<AcceptRow> {};

TEST_P(AcceptsTest, Classifies)
{
    EXPECT_EQ(MaskEngine::accepts(GetParam().kind, GetParam().c), GetParam().accepted);
}

INSTANTIATE_TEST_SUITE_P(Classes, AcceptsTest, testing::Values(
    AcceptRow{"DigitSpace", 1, u' ', true}, AcceptRow{"DigitLetter", 1, u'a', false},
    AcceptRow{"DigitArabicIndic", 1, QChar(0x0663), false}, AcceptRow{"LetterAccented", 2, QChar(233), false},
    AcceptRow{"LetterDigit", 2, u'1', false}, AcceptRow{"LetterSpace", 2, u' ', true},
    AcceptRow{"EitherPunct", 3, u'-', false}, AcceptRow{"EitherAccented", 3, QChar(233), false},
    AcceptRow{"AnyAccented", 4, QChar(233), true}, AcceptRow{"AnyHan", 4, QChar(0x4E2D), true},
    AcceptRow{"AnyTab", 4, u'\t', true}, AcceptRow{"AnyNul", 4, QChar(0), true},
    AcceptRow{"EitherTab", 3, u'\t', false}, AcceptRow{"LiteralKindTakesNothing", 35, u'#', false}), rowName);

struct ConvertRow
{
    const char *name;
    QString mask;
    QString in;
    int charCase; // extraction only
    QString out;
};
class FormatTest : public testing::TestWithParam<ConvertRow> {};
class ExtractTest : public testing::TestWithParam<ConvertRow> {};

TEST_P(FormatTest, BuildsShownText)
{
    EXPECT_EQ(MaskEngine(GetParam().mask).formatMaskValue(GetParam().in), GetParam().out);
}

TEST_P(ExtractTest, TakesRawValue)
{
    const ConvertRow &row = GetParam();
    EXPECT_EQ(MaskEngine(row.mask).extractMaskValue(row.in, row.charCase), row.out);
}

INSTANTIATE_TEST_SUITE_P(Values, FormatTest, testing::Values(
    ConvertRow{"CutToMask", "##/##", "12345", 0, "12/34"},
    ConvertRow{"LetterInDigit", "##/##", "1A34", 0, ""},
    ConvertRow{"PaddedWithBlanks", "##/##", "12", 0, "12/  "},
    ConvertRow{"EmptyRaw", "##/##", "", 0, "  /  "},
    ConvertRow{"UnusedTailUnchecked", "##/##", "1234X", 0, "12/34"},
    ConvertRow{"Phone", Phone, "5551234567", 0, "(555) 123-4567"},
    ConvertRow{"InnerBlanksKept", "###", "1 3", 0, "1 3"},
    ConvertRow{"EscapedLiteral", "\\##", "5", 0, "#5"},
    ConvertRow{"AnyAbove255", "&&", QString(QChar(233)) + QChar(0x20AC), 0, QString(QChar(233)) + QChar(0x20AC)},
    ConvertRow{"AnyTakesControl", "&&", "a\t", 0, "a\t"},
    ConvertRow{"ControlSpoilsDigit", "&#", "a\t", 0, ""},
    ConvertRow{"AccentedInLetter", "@@", QString(QChar(233)), 0, ""},
    ConvertRow{"ControlLiteralMask", ControlLiteral, "1a3", 0, "1a3"},
    ConvertRow{"NoMaskPassesThrough", "", "a\tb", 0, "a\tb"},
    ConvertRow{"LoneBackslashMaskIsNotEmpty", "\\", "abc", 0, ""}), rowName);

INSTANTIATE_TEST_SUITE_P(Values, ExtractTest, testing::Values(
    ConvertRow{"UpperCase", "@@/@@", "ab/cd", 1, "ABCD"},
    ConvertRow{"LowerCase", "@@/@@", "AB/CD", 2, "abcd"},
    ConvertRow{"OtherCaseValueLowers", "@@/@@", "AB/CD", 5, "abcd"},
    ConvertRow{"AnyCase", "@@/@@", "Ab/cD", 0, "AbcD"},
    ConvertRow{"ShortTextPadded", "##/##", "12", 0, "12  "},
    ConvertRow{"LongTextCut", "##/##", "12/345", 0, "1234"},
    ConvertRow{"WrongLiteralSkipped", "##/##", "12x34", 0, "1234"},
    ConvertRow{"NoClassCheck", "##/##", "ab/cd", 0, "abcd"},
    ConvertRow{"SharpSStaysOneCharacter", "&&", QString(QChar(0xDF)) + "a", 1, QString(QChar(0xDF)) + "A"},
    ConvertRow{"NoMaskIgnoresCase", "", "ab", 1, "ab"},
    ConvertRow{"LoneBackslashMask", "\\", "xyz", 1, ""}), rowName);

enum class Op { Type, Delete, Backspace };

struct EditRow
{
    const char *name;
    QString mask;
    QString text;
    int selStart;
    int selLength;
    Op op;
    QString insert;
    QString expected; // ignored when refused
    int caret;        // ignored when refused
    bool accepted;
    bool locked = false;
};
class EditTest : public testing::TestWithParam<EditRow> {};

TEST_P(EditTest, EditsOrRefusesWhole)
{
    const EditRow &row = GetParam();
    const MaskEngine engine(row.mask);
    MaskEditState state{row.text, row.selStart, row.selLength, row.locked};
    const auto result = row.op == Op::Type      ? engine.editMaskedText(state, row.insert)
                        : row.op == Op::Delete ? engine.deleteForward(state)
                                               : engine.backspace(state);
    EXPECT_EQ(result.accepted, row.accepted);
    if (!row.accepted) {
        EXPECT_EQ(state.text, row.text);
        EXPECT_EQ(state.selStart, row.selStart);
        EXPECT_EQ(state.selLength, row.selLength);
        EXPECT_FALSE(result.textChanged);
        return;
    }
    EXPECT_EQ(state.text, row.expected);
    EXPECT_EQ(state.selStart, row.caret);
    EXPECT_EQ(state.selLength, 0);
    EXPECT_EQ(result.textChanged, row.text != row.expected);
    if (row.op == Op::Type) {
        EXPECT_EQ(result.pos, row.caret);
    }
}

const QString Euro = QString(QChar(0x20AC));

INSTANTIATE_TEST_SUITE_P(Edits, EditTest, testing::Values(
    EditRow{"FieldFull", "##/##", "12/34", 3, 0, Op::Type, "5", {}, 0, false},
    EditRow{"TypeBeforeLiteralSkipsIt", "##/##", "1 /  ", 1, 0, Op::Type, "2", "12/  ", 3, true},
    EditRow{"TypeOntoLiteral", "##/##", "12/  ", 2, 0, Op::Type, "3", "12/3 ", 4, true},
    EditRow{"InsertShiftsAcrossLiteral", "##/##", "12/3 ", 0, 0, Op::Type, "9", "91/23", 1, true},
    EditRow{"TypeOverSelectionAcrossLiteral", "##/##", "12/34", 1, 3, Op::Type, "7", "17/4 ", 3, true},
    EditRow{"SelectAllThenType", Phone, "(555) 123-4567", 0, 14, Op::Type, "8", "(8  )    -    ", 2, true},
    EditRow{"SelectionMakesRoom", "##/##", "12/34", 0, 1, Op::Type, "9", "92/34", 1, true},
    EditRow{"SelectedLiteralMakesNoRoom", "##/##", "12/34", 2, 1, Op::Type, "9", {}, 0, false},
    EditRow{"FullWhenLastTakenDespiteGap", "##/##", "1 /34", 0, 0, Op::Type, "9", {}, 0, false},
    EditRow{"CaretAtEnd", "##/##", "12/3 ", 5, 0, Op::Type, "4", {}, 0, false},
    EditRow{"CaretStopsBeforeTrailingLiterals", Time, "12:34:5  AM", 7, 0, Op::Type, "6", "12:34:56 AM", 8, true},
    EditRow{"TypeOnTrailingLiterals", Time, "12:34:5  AM", 8, 0, Op::Type, "6", {}, 0, false},
    EditRow{"ShiftedCharacterFailsClass", "#@@", "1A ", 0, 0, Op::Type, "2", {}, 0, false},
    EditRow{"TypedCharacterFailsClass", "##", "  ", 0, 0, Op::Type, "x", {}, 0, false},
    EditRow{"AccentedIntoLetter", "@@", "  ", 0, 0, Op::Type, QString(QChar(233)), {}, 0, false},
    EditRow{"Above255IntoAny", "&&", "  ", 0, 0, Op::Type, Euro, Euro + " ", 1, true},
    EditRow{"Above255IntoEither", "??", "  ", 0, 0, Op::Type, Euro, {}, 0, false},
    EditRow{"ControlIntoAny", "&&", "  ", 0, 0, Op::Type, "\t", "\t ", 1, true},
    EditRow{"ControlShiftedIntoDigit", "&#", "\t ", 0, 0, Op::Type, "a", {}, 0, false},
    EditRow{"EscapedLiteralCaretAtEnd", "\\##", "# ", 0, 0, Op::Type, "7", "#7", 2, true},
    EditRow{"MultiCharacterInsertPushesOff", "###", "12 ", 0, 0, Op::Type, "345", "345", 3, true},
    EditRow{"ShortTextPadded", "##/##", "1", 1, 0, Op::Type, "2", "12/  ", 3, true},
    EditRow{"ControlLiteralMaskTakesLetter", ControlLiteral, "   ", 1, 0, Op::Type, "x", " x ", 2, true},
    EditRow{"Locked", "##/##", "12/  ", 0, 0, Op::Type, "9", {}, 0, false, true},
    EditRow{"NoMask", "", "abc", 1, 0, Op::Type, "x", {}, 0, false},
    EditRow{"NegativeCaret", "##/##", "12/  ", -3, 0, Op::Type, "9", {}, 0, false},
    EditRow{"DeleteShiftFailsClass", "#@", "1A", 0, 0, Op::Delete, {}, {}, 0, false},
    EditRow{"DeleteTakesLiteralsInFront", "##/##", "12/34", 2, 0, Op::Delete, {}, "12/4 ", 2, true},
    EditRow{"DeleteSelectionAcrossLiteral", "##/##", "12/34", 1, 3, Op::Delete, {}, "14/  ", 1, true},
    EditRow{"DeleteHugeSelection", "##/##", "12/34", 1, 1000000, Op::Delete, {}, "1 /  ", 1, true},
    EditRow{"DeleteAtEnd", "##/##", "12/34", 5, 0, Op::Delete, {}, {}, 0, false},
    EditRow{"DeleteBlankTail", "##/##", "12/  ", 4, 0, Op::Delete, {}, "12/  ", 4, true},
    EditRow{"DeleteTrimsLongText", "##/##", "12/34xyz", 0, 0, Op::Delete, {}, "23/4 ", 0, true},
    EditRow{"DeleteRestoresLiteral", "##/##", "12x34", 4, 0, Op::Delete, {}, "12/3 ", 4, true},
    EditRow{"MarkerCodeInTextDropsOut", "###", QStringLiteral("1") + QChar(30) + "2", 0, 0, Op::Delete, {}, "2  ", 0, true},
    EditRow{"BackspaceAfterLiteral", "##/##", "12/34", 3, 0, Op::Backspace, {}, "13/4 ", 1, true},
    EditRow{"BackspaceAtStart", "##/##", "12/34", 0, 0, Op::Backspace, {}, {}, 0, false},
    EditRow{"BackspaceOnlyLiteralsLeft", "(###)", "(123)", 1, 0, Op::Backspace, {}, {}, 0, false},
    EditRow{"BackspaceSelection", "##/##", "12/34", 0, 5, Op::Backspace, {}, "  /  ", 0, true},
    EditRow{"BackspaceAtEndPastTrailingLiteral", "(###)", "(123)", 5, 0, Op::Backspace, {}, "(12 )", 3, true}),
    rowName);

} // namespace
