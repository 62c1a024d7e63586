#include "numberengine/numbereditor.h"
#include "numberengine/numbertype.h"

#include <tarnwell/constants.h>
#include <tarnwell/decimal.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"

#include <QRandomGenerator>

#include <cmath>

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

QString marked(const NumberEditState &r)
{
    QString text = r.text;
    if (r.selLength > 0)
        return text.insert(r.selStart + r.selLength, u']').insert(r.selStart, u'[');
    return text.insert(r.selStart, u'|');
}

NumberEditor editorFor(const QLocale &locale, int type, int places, int position = twNoCurrency,
                       const char *symbol = "$")
{
    NumberDisplay display(locale);
    display.setDecimalPlaces(qint16(places));
    display.setShowCurrencySymbol(position);
    display.setCurrencySymbol(QString::fromUtf8(symbol));
    return NumberEditor(display, NumberRules(type));
}

class NumberEditorTest : public testing::TestWithParam<Case> {};

TEST_P(NumberEditorTest, KeysGiveTextAndCaret)
{
    const Case &c = GetParam();
    NumberEditor editor = editorFor(c.locale, c.type, c.places, c.position, c.symbol);
    editor.rules().setIncrement(QString::fromLatin1(c.increment));

    NumberEditState state = parseState(c.start);
    state.value = editor.valueOfText(state.text);
    ASSERT_TRUE(state.value.isValid()) << "start text is not a number of the type";
    for (const char *k = c.keys; *k; ++k) {
        switch (*k) {
        case '#': state.locked = true; break;
        case '~': editor.deleteForward(state); break;
        case '^': editor.step(state, true); break;
        case 'v': editor.step(state, false); break;
        default: editor.keyPress(state, *k == '\b' ? 8 : *k); break;
        }
    }
    EXPECT_EQ(marked(state), QString::fromUtf8(c.expected));
    // Whatever is shown, the value agrees with it (a "-0" entry holds zero).
    const QVariant shown = editor.valueOfText(state.text);
    ASSERT_TRUE(shown.isValid());
    EXPECT_EQ(Variant::compare(shown, state.value), 0);
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
    const NumberEditor editor = editorFor(row.locale, twCurrency, 2);
    NumberEditState state = parseState(row.start);
    state.value = editor.valueOfText(state.text);
    editor.paste(state, QString::fromUtf8(row.clip));
    EXPECT_EQ(marked(state), QString::fromUtf8(row.expected));
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
    const NumberEditor editor = editorFor(English, twDouble, 2);
    const NumberEditState start = [] {
        NumberEditState s = parseState("12.|34");
        s.value = QVariant(12.34);
        return s;
    }();

    NumberEditState state = start;
    const NumberEditResult jump = editor.backspace(state); // over the decimal char
    EXPECT_FALSE(jump.textChanged);
    EXPECT_TRUE(jump.caretChanged);
    EXPECT_FALSE(jump.valueChanged);

    state = start;
    const NumberEditResult typed = editor.insertText(state, u"5");
    EXPECT_TRUE(typed.textChanged);
    EXPECT_TRUE(typed.valueChanged);
    EXPECT_EQ(state.value.toDouble(), 12.54);

    state = start;
    const NumberEditResult refused = editor.insertText(state, u"x");
    EXPECT_FALSE(refused.changed());
    EXPECT_EQ(marked(state), QStringLiteral("12.|34"));
    EXPECT_EQ(state.value, start.value);
}

// Edits described directly, as a program's insert or a drop at a point gives them: the caret
// is put where the edit says first, and a selection's length still applies from there.
struct DescribedRow { const char *name; const char *start; NumberEdit edit; const char *expected; };
class DescribedEdits : public testing::TestWithParam<DescribedRow> {};

TEST_P(DescribedEdits, ActAtTheirOwnCaret)
{
    const NumberEditor editor = editorFor(English, twDouble, 2);
    NumberEditState state = parseState(GetParam().start);
    state.value = editor.valueOfText(state.text);
    editor.edit(state, GetParam().edit);
    EXPECT_EQ(marked(state), QString::fromLatin1(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Kinds, DescribedEdits, testing::Values(
    DescribedRow{"insert at a caret of its own", "1.00|", NumberEdit::insert(u"5", 1), "15|.00"},
    DescribedRow{"insert keeps the selection length", "[1].00", NumberEdit::insert(u"9", 0), "9|.00"},
    DescribedRow{"insert past the end clamps", "1|.00", NumberEdit::insert(u"5", 40), "1|.00"},
    DescribedRow{"step down", "3|.00", NumberEdit::step(false), "2|.00"},
    DescribedRow{"typed key", "|3.00", NumberEdit::key('-'), "-|3.00"},
    DescribedRow{"unknown key does nothing", "3|.00", NumberEdit::key('x'), "3|.00"}), rowName);

// A value with its storage type, the scale of a Decimal and the sign of a zero double.
QString describe(const QVariant &v)
{
    QString text = TestSupport::describe(v);
    if (v.metaType() == QMetaType::fromType<Decimal>())
        text += u'@' + QString::number(v.value<Decimal>().scale());
    if (v.metaType() == QMetaType::fromType<double>() && v.toDouble() == 0 && std::signbit(v.toDouble()))
        text.prepend(u'-');
    return text;
}

// What the type's own conversion makes of the plain text, kept only within the type's limits.
QVariant platformValue(const QString &plain, int type)
{
    const QVariant v = NumberType::convertToType(QVariant(plain), type, QLocale::c());
    return NumberType::isInRange(v, false, type) ? v : QVariant();
}

struct ReadRow { const char *name; int type; int places; const char *text; const char *expected; };
class ValueOfText : public testing::TestWithParam<ReadRow> {};

// Shown texts read back as the type's own conversion of the same number reads them.
TEST_P(ValueOfText, IsTheTypesConversionOfTheNumber)
{
    const ReadRow &row = GetParam();
    const NumberEditor editor = editorFor(English, row.type, row.places);
    const QString text = QString::fromLatin1(row.text);
    const QVariant value = editor.valueOfText(text);
    EXPECT_EQ(describe(value), QString::fromLatin1(row.expected));
    if (value.isValid()) {
        EXPECT_EQ(describe(value), describe(platformValue(QString(text).remove(u','), row.type)));
    }
}

INSTANTIATE_TEST_SUITE_P(Types, ValueOfText, testing::Values(
    ReadRow{"byte negative zero", twByte, 0, "-0", "short:0"},
    ReadRow{"byte over", twByte, 0, "256", "Empty"},
    ReadRow{"integer bottom", twInteger, 0, "-32,768", "short:-32768"},
    ReadRow{"integer over", twInteger, 0, "32,768", "Empty"},
    ReadRow{"integer rounds half to even", twInteger, 1, "2.5", "short:2"},
    ReadRow{"integer rounds half up to even", twInteger, 1, "3.5", "short:4"},
    ReadRow{"long over", twLong, 0, "2,147,483,648", "Empty"},
    ReadRow{"currency top", twCurrency, 4, "922,337,203,685,477.0000", "Currency:922337203685477"},
    ReadRow{"currency just past top", twCurrency, 4, "922,337,203,685,477.9999", "Empty"},
    ReadRow{"currency bottom", twCurrency, 2, "-922,337,203,685,477.00", "Currency:-922337203685477"},
    ReadRow{"currency fifth decimal zero", twCurrency, 5, "1.23450", "Currency:1.2345"},
    ReadRow{"decimal keeps its scale", twDecimal, 3, "1.500", "Decimal:1.5@3"},
    ReadRow{"decimal negative zero", twDecimal, 2, "-0.00", "Decimal:0@2"},
    ReadRow{"decimal top", twDecimal, 0, "79,228,162,514,264,337,593,543,950,335",
            "Decimal:79228162514264337593543950335@0"},
    ReadRow{"decimal past top", twDecimal, 0, "79,228,162,514,264,337,593,543,950,336", "Empty"},
    ReadRow{"double negative zero", twDouble, 2, "-0.00", "-double:0"},
    ReadRow{"double many digits", twDouble, 4, "1,234,567,890,123,456,789.1234", "double:1.23456789012346E+18"},
    ReadRow{"single above its published limit", twSingle, 0,
            "340,282,300,000,000,000,000,000,000,000,000,000,000", "Empty"},
    ReadRow{"single below it", twSingle, 0, "340,282,000,000,000,000,000,000,000,000,000,000,000",
            "float:3.40282E+38"},
    ReadRow{"too many decimals", twDouble, 2, "1.234", "Empty"},
    ReadRow{"not a number", twDouble, 2, "1.2.3", "Empty"}), rowName);

// Random digit strings of every length a box holds read as the type's own conversion reads them,
// or are refused where that conversion fails or leaves the type's limits.
TEST(ValueOfText, AgreesWithTheTypesConversionOnRandomNumbers)
{
    QRandomGenerator random(4242);
    for (int type = twByte; type <= twDecimal; ++type) {
        const NumberEditor editor = editorFor(English, type, 6);
        for (int i = 0; i < 400; ++i) {
            QString plain = random.bounded(3) == 0 ? QStringLiteral("-") : QString();
            const int whole = random.bounded(0, 32);
            for (int d = 0; d < whole; ++d)
                plain += QChar(u'0' + random.bounded(d == 0 && whole > 1 ? 1 : 0, 10));
            if (whole == 0)
                plain += u'0';
            const int decimals = random.bounded(0, 7);
            if (decimals > 0)
                plain += u'.';
            for (int d = 0; d < decimals; ++d)
                plain += QChar(u'0' + random.bounded(10));
            const QVariant expected = platformValue(plain, type);
            ASSERT_EQ(describe(editor.valueOfText(plain)), describe(expected))
                << "type " << type << ": " << plain.toStdString();
            // Pasted over everything, it shows as its value formats (a zero may keep its "-").
            NumberEditState state = parseState("[0.000000]");
            state.value = 0;
            editor.paste(state, plain);
            if (state.text != u"0.000000" && !NumberType::isZero(state.value)) {
                ASSERT_EQ(state.text, editor.showValue(state.value)) << plain.toStdString();
            }
        }
    }
}

} // namespace
} // namespace Tarnwell
