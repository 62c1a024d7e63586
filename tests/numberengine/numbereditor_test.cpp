#include "numberengine/numberdisplay.h"
#include "numberengine/numbereditor.h"

#include <tarnwell/constants.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"

namespace Tarnwell {
namespace {

const QLocale &English = TestSupport::enUS;
const QLocale &German = TestSupport::deDE;
using TestSupport::rowName;

// Keys of a script: digits, "," ".", "-" and letters as typed; '\b' Backspace; '~' Delete;
// '^' and 'v' step up and down; '#' a locked box for the rest of the script.
// Texts mark the caret with '|' and a selection with '[' ... ']'.
struct Case {
    const char *name; const QLocale &locale; int type; int places; const char *start, *keys, *expected;
    int position = twNoCurrency; const char *symbol = "$"; const char *increment = "1";
};

std::ostream &operator<<(std::ostream &os, const Case &c) { return os << c.name; }

NumberEditState parseState(const char *marked)
{
    NumberEditState state;
    QString text = QString::fromUtf8(marked);
    const qsizetype open = text.indexOf(u'[');
    if (open >= 0) {
        const qsizetype close = text.indexOf(u']');
        state.selStart = int(open);
        state.selLength = int(close - open - 1);
        text.remove(close, 1).remove(open, 1);
    } else {
        state.selStart = int(text.indexOf(u'|'));
        text.remove(state.selStart, 1);
    }
    state.text = text;
    return state;
}

QString marked(const NumberEditResult &r)
{
    QString text = r.text;
    if (r.selLength > 0)
        return text.insert(r.selStart + r.selLength, u']').insert(r.selStart, u'[');
    return text.insert(r.selStart, u'|');
}

class NumberEditorTest : public testing::TestWithParam<Case> {};

TEST_P(NumberEditorTest, KeysGiveTextAndCaret)
{
    const Case &c = GetParam();
    NumberDisplay display(c.locale);
    display.setDecimalPlaces(qint16(c.places));
    display.setShowCurrencySymbol(c.position);
    display.setCurrencySymbol(QString::fromUtf8(c.symbol));
    const NumberEditor editor(display);

    NumberEditState state = parseState(c.start);
    state.dataType = c.type;
    state.value = editor.valueOfText(state.text, c.type);
    ASSERT_TRUE(state.value.isValid()) << "start text is not a number of the type";
    state.increment = QVariant(QString::fromLatin1(c.increment));
    NumberEditResult r;
    r.text = state.text;
    r.selStart = state.selStart;
    r.selLength = state.selLength;
    for (const char *k = c.keys; *k; ++k) {
        switch (*k) {
        case '#': state.locked = true; continue;
        case '~': r = editor.deleteForward(state); break;
        case '^': r = editor.step(state, true); break;
        case 'v': r = editor.step(state, false); break;
        default: r = editor.keyPress(state, *k == '\b' ? 8 : *k); break;
        }
        state.text = r.text;
        state.selStart = r.selStart;
        state.selLength = r.selLength;
        state.value = r.value;
    }
    EXPECT_EQ(marked(r), QString::fromUtf8(c.expected));
    // Whatever is shown, the value agrees with it (a "-0" entry holds zero).
    const QVariant shown = editor.valueOfText(r.text, c.type);
    ASSERT_TRUE(shown.isValid());
    EXPECT_EQ(Variant::compare(shown, r.value), 0);
}

const Case typing[] = {
    {"digits into zero regroup", English, twCurrency, 2, "|0.00", "1234", "1,234|.00"},
    {"digit right of zero", English, twDouble, 2, "0|.00", "5", "5|.00"},
    {"typing over everything", English, twDouble, 2, "[1,234.56]", "7", "7|.00"},
    {"digit in front regroups", English, twDouble, 2, "|999.00", "5", "5|,999.00"},
    {"digit inside groups", English, twLong, 0, "1,|234", "5", "15|,234"},
    {"decimals overwrite", English, twDouble, 2, "1.|00", "57", "1.57|"},
    {"no typing past the last decimal", English, twDouble, 2, "1.57|", "9", "1.57|"},
    {"no typing past last decimal before symbol", English, twDouble, 2, "1.57|$", "9", "1.57|$", twRight},
    {"typing into selected decimals", English, twDouble, 2, "1.[57]", "3", "1.3|0"},
    {"selection over decimal char takes decimals", English, twDouble, 2, "1[2.3]4", "5", "15|.00"},
    {"letters dropped", English, twDouble, 2, "1|.00", "a x", "1|.00"},
    {"decimal jump", English, twDouble, 2, "|1,234.56", ".", "1,234.|56"},
    {"comma jumps too", English, twDouble, 2, "|1,234.56", ",", "1,234.|56"},
    {"no decimals, no jump", English, twLong, 0, "12|3", ".", "12|3"},
    {"byte top accepted", English, twByte, 0, "25|", "5", "255|"},
    {"byte over refused", English, twByte, 0, "2|5", "9", "2|5"},
    {"integer over refused", English, twInteger, 0, "32,76|7", "8", "32,76|7"},
    {"currency past limit refused", English, twCurrency, 4, "922,337,203,685,477.|0000", "1", "922,337,203,685,477.|0000"},
    {"decimal 28 digits exact", English, twDecimal, 2, "|0.00", "12345678901234567890123456.78",
     "12,345,678,901,234,567,890,123,456.78|"},
    {"locked box ignores keys", English, twDouble, 2, "1|.00", "#5-~\b", "1|.00"},
    // The float nearest 1.00000001E+28 shows as 1E+28, which reads back as a float below it.
    {"single refuses a text that reads back otherwise", English, twSingle, 1,
     "1,000,000,0|00,000,000,000,000,000,000.0", "1", "1,000,000,0|00,000,000,000,000,000,000.0"},
    {"decimal refuses a digit it would round away", English, twDecimal, 1,
     "9,999,999,999,999,999,999,999,999,999.|0", "9", "9,999,999,999,999,999,999,999,999,999.|0"},
    {"decimal top with padding", English, twDecimal, 2, "|0.00", "79228162514264337593543950335",
     "79,228,162,514,264,337,593,543,950,335|.00"},
    {"integer refuses decimals it would round", English, twInteger, 1, "2.|0", "5", "2.|0"},
    {"currency refuses a fifth decimal", English, twCurrency, 5, "1.2345|0", "6", "1.2345|0"},
    {"german digits regroup", German, twDouble, 2, "|0,00", "1234", "1.234|,00"},
    {"german comma jumps", German, twDouble, 2, "|1.234,56", ",", "1.234,|56"},
    {"german point jumps", German, twDouble, 2, "|1.234,56", ".", "1.234,|56"},
    {"left symbol, digits after symbol", English, twCurrency, 2, "$|0.00", "5", "$5|.00", twLeft},
    {"long left symbol, caret inside", English, twCurrency, 2, "E|UR0.00", "5", "EUR5|.00", twLeft, "EUR"},
    {"right symbol grows", English, twCurrency, 2, "99|.00EUR", "9", "999|.00EUR", twRight, "EUR"},
};
INSTANTIATE_TEST_SUITE_P(Typing, NumberEditorTest, testing::ValuesIn(typing), rowName);

const Case deleting[] = {
    {"backspace right of decimal char", English, twDouble, 2, "12.|34", "\b", "12|.34"},
    {"backspace over grouping takes digit", English, twDouble, 2, "1,|234.00", "\b", "|234.00"},
    {"backspace drops a group", English, twDouble, 2, "1,2|34.00", "\b", "1|34.00"},
    {"backspace in decimals pads", English, twDouble, 2, "12.3|4", "\b", "12.|40"},
    {"backspace at front", English, twDouble, 2, "|5.00", "\b", "|5.00"},
    {"backspace everything", English, twDouble, 2, "[5.00]", "\b", "0|.00"},
    {"backspace keeps minus on zero", English, twDouble, 2, "-5|.00", "\b", "-0|.00"},
    {"backspace removes minus", English, twDouble, 2, "-|5.00", "\b", "|5.00"},
    {"delete skips grouping", English, twLong, 0, "1|,234", "~", "1|34"},
    {"delete skips decimal char", English, twDouble, 2, "12|.34", "~", "12.|40"},
    {"delete at end", English, twDouble, 2, "12.34|", "~", "12.34|"},
    {"delete selection with decimal char", English, twDouble, 2, "1[2.3]4", "~", "1|.00"},
    {"german backspace over grouping", German, twDouble, 2, "1.|234,00", "\b", "|234,00"},
    {"german backspace right of decimal", German, twDouble, 2, "12,|34", "\b", "12|,34"},
    {"left symbol backspace at digits start", English, twCurrency, 2, "$|5.00", "\b", "$|5.00", twLeft},
};
INSTANTIATE_TEST_SUITE_P(Deleting, NumberEditorTest, testing::ValuesIn(deleting), rowName);

const Case signs[] = {
    {"zero to negative entry", English, twDouble, 2, "|0.00", "-", "-|0.00"},
    {"and back", English, twDouble, 2, "|0.00", "--", "|0.00"},
    {"digit after negative zero", English, twDouble, 2, "|0.00", "-5", "-5|.00"},
    {"digit before minus of zero", English, twDouble, 2, "|-0.00", "5", "-5|.00"},
    {"nothing typed before a minus", English, twDouble, 2, "|-12.00", "5", "|-12.00"},
    {"negate with caret in decimals", English, twCurrency, 2, "1,234.5|6", "-", "-1,234.5|6"},
    {"positive again", English, twCurrency, 2, "-1,234.5|6", "-", "1,234.5|6"},
    {"left symbol shifts the caret again", English, twCurrency, 2, "$|5.00", "-", "$-5|.00", twLeft},
    {"left symbol, minus goes", English, twCurrency, 2, "$-5|.00", "-", "$5.|00", twLeft},
    {"caret at 0 floors", English, twCurrency, 2, "|-5.00", "-", "|5.00"},
    {"right symbol", English, twCurrency, 2, "5|.00$", "-", "-5|.00$", twRight},
    {"integer minimum cannot negate", English, twInteger, 0, "-32,76|8", "-", "-32,76|8"},
    {"byte zero takes a minus", English, twByte, 0, "|0", "--", "|0"},
    {"byte negative zero refuses digits", English, twByte, 0, "|0", "-5", "-|0"},
    {"byte value cannot negate", English, twByte, 0, "|7", "-", "|7"},
    {"decimal keeps all digits", English, twDecimal, 0, "|7,922,816,251,426,433,759,354,395,033",
     "-", "-|7,922,816,251,426,433,759,354,395,033"},
};
INSTANTIATE_TEST_SUITE_P(Sign, NumberEditorTest, testing::ValuesIn(signs), rowName);

const Case steps[] = {
    {"caret keeps distance from right", English, twDouble, 2, "1|2.00", "^", "1|3.00"},
    {"up regroups", English, twDouble, 2, "999|.00", "^", "1,000|.00"},
    {"down through zero", English, twDouble, 2, "0.5|0", "v", "-0.5|0"},
    {"byte 250 plus 10 refused", English, twByte, 0, "250|", "^", "250|", twNoCurrency, "$", "10"},
    {"byte below zero refused", English, twByte, 0, "|0", "v", "|0"},
    {"currency limit", English, twCurrency, 2, "922,337,203,685,476.00|", "^^", "922,337,203,685,477.00|"},
    {"decimal increment exact", English, twDecimal, 0, "1,234,567,890,123,456,789,012,345,678|", "^",
     "1,234,567,890,123,456,789,012,345,679|"},
    {"fractional increment", English, twCurrency, 4, "0.000|0", "^^^", "0.000|3", twNoCurrency, "$", "0.0001"},
    {"locked does not step", English, twDouble, 2, "1|.00", "#^", "1|.00"},
    {"german step", German, twDouble, 2, "999|,00", "^", "1.000|,00"},
    {"left symbol", English, twCurrency, 2, "$9|.00", "^", "$10|.00", twLeft},
};
INSTANTIATE_TEST_SUITE_P(Step, NumberEditorTest, testing::ValuesIn(steps), rowName);

struct PasteRow { const char *name; const QLocale &locale; const char *start; const char *clip; const char *expected; };
class NumberEditorPaste : public testing::TestWithParam<PasteRow> {};

TEST_P(NumberEditorPaste, CleansOrRefuses)
{
    const PasteRow &row = GetParam();
    NumberDisplay display(row.locale);
    display.setDecimalPlaces(2);
    const NumberEditor editor(display);
    NumberEditState state = parseState(row.start);
    state.dataType = twCurrency;
    state.value = editor.valueOfText(state.text, twCurrency);
    EXPECT_EQ(marked(editor.paste(state, QString::fromUtf8(row.clip))), QString::fromUtf8(row.expected));
}

INSTANTIATE_TEST_SUITE_P(Paste, NumberEditorPaste, testing::Values(
    PasteRow{"grouping and symbol dropped", English, "[0.00]", "$1,234.50", "1,234.50|"},
    PasteRow{"blanks dropped", English, "|0.00", " 12 ", "12|.00"},
    PasteRow{"negative", English, "[5.00]", "-7", "-7|.00"},
    PasteRow{"paste into decimals overwrites", English, "1.|00", "99", "1.99|"},
    PasteRow{"letters refused", English, "|0.00", "12abc", "|0.00"},
    PasteRow{"two decimal chars refused", English, "|0.00", "1.2.3", "|0.00"},
    PasteRow{"too many decimals refused", English, "[0.00]", "1.234", "[0.00]"},
    PasteRow{"minus inside refused", English, "|0.00", "1-2", "|0.00"},
    PasteRow{"empty clipboard does nothing", English, "12|.00", "", "12|.00"},
    PasteRow{"german cleaned", German, "[0,00]", "1.234,5", "1.234,5|0"},
    PasteRow{"non-breaking blank dropped", German, "[0,00]", "1\u00a0234", "1.234|,00"}), rowName);

TEST(NumberEditorTest, ChangeFlags)
{
    NumberDisplay display(English);
    const NumberEditor editor(display);
    NumberEditState state = parseState("12.|34");
    state.dataType = twDouble;
    state.value = QVariant(12.34);

    const NumberEditResult jump = editor.insertText(state, QString()); // over the decimal char
    EXPECT_FALSE(jump.textChanged);
    EXPECT_TRUE(jump.caretChanged);
    EXPECT_FALSE(jump.valueChanged);

    const NumberEditResult typed = editor.insertText(state, QStringLiteral("5"));
    EXPECT_TRUE(typed.textChanged);
    EXPECT_TRUE(typed.valueChanged);
    EXPECT_EQ(typed.value.toDouble(), 12.54);

    const NumberEditResult refused = editor.insertText(state, QStringLiteral("x"));
    EXPECT_FALSE(refused.changed());
    EXPECT_EQ(refused.value, state.value);
}

} // namespace
} // namespace Tarnwell
