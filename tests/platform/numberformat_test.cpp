#include "common/testsupport.h"
#include "platform/numberformat.h"

#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>
#include <tarnwell/variant.h>

#include <cmath>

using namespace Tarnwell;
using namespace TestSupport;

namespace {

QVariant cur(const char *t) { return QVariant::fromValue(Currency::parse(t, QLocale::c())); }
QVariant dec(const char *t) { return QVariant::fromValue(Decimal::parse(t, QLocale::c())); }

struct FormatRow { const char *name; QVariant value; const char *pattern; QLocale locale; const char *expected; };
class Format : public testing::TestWithParam<FormatRow> {};

TEST_P(Format, RendersThePattern)
{
    const FormatRow &row = GetParam();
    EXPECT_EQ(NumberFormat::format(row.value, QString::fromUtf8(row.pattern), row.locale),
              QString::fromUtf8(row.expected));
}

INSTANTIATE_TEST_SUITE_P(Grouping, Format, testing::Values(
    FormatRow{"English", 1234567.5, "#,##0.000", enUS, "1,234,567.500"},
    FormatRow{"German", 1234567.5, "#,##0.00", deDE, "1.234.567,50"},
    FormatRow{"French", 1234567.5, "#,##0.00", frFR, "1\u202F234\u202F567,50"},
    FormatRow{"NegativeGrouped", QVariant::fromValue(qint16(-32768)), "#,##0", enUS, "-32,768"},
    FormatRow{"ZeroPaddingIsGrouped", 5, "0,000", enUS, "0,005"},
    FormatRow{"ThousandsScaling", 1234567, "#,##0,", enUS, "1,235"},
    FormatRow{"HugeDoubleKeepsAllDigits", 1e20, "#,##0.00", enUS, "100,000,000,000,000,000,000.00"},
    FormatRow{"CurrencyLimit", cur("922337203685477.5807"), "#,##0.00", enUS,
          "922,337,203,685,477.58"},
    FormatRow{"DecimalLimit", QVariant::fromValue(Decimal::max()), "#,##0", enUS,
          "79,228,162,514,264,337,593,543,950,335"}), rowName);

INSTANTIATE_TEST_SUITE_P(Rounding, Format, testing::Values(
    FormatRow{"DoubleFromFifteenDigits", 2.675, "0.00", enUS, "2.68"},
    FormatRow{"DoubleTieAway", 1.005, "0.00", enUS, "1.01"},
    FormatRow{"SingleFromSevenDigits", 2.675f, "0.00", enUS, "2.68"},
    FormatRow{"CurrencyTieAway", cur("0.125"), "0.00", enUS, "0.13"},
    FormatRow{"DecimalTieAway", dec("-0.125"), "0.00", enUS, "-0.13"},
    FormatRow{"DecimalBeyondDoublePrecision", dec("0.1000000000000000000000000005"),
          "0.0000000000000000000000000", enUS, "0.1000000000000000000000000"},
    FormatRow{"CarryIntoNewDigit", 9.995, "0.00", enUS, "10.00"},
    FormatRow{"CarryIntoGroup", 999999.5, "#,##0", enUS, "1,000,000"},
    FormatRow{"NegativeRoundingToZeroKeepsSign", -0.001, "0.00", enUS, "-0.00"}), rowName);

INSTANTIATE_TEST_SUITE_P(Placeholders, Format, testing::Values(
    FormatRow{"OptionalIntegerDigit", 0.5, "#.00", enUS, ".50"},
    FormatRow{"ZeroWithOnlyOptionalDigits", 0, "#", enUS, ""},
    FormatRow{"OptionalDecimalsKeepThePoint", 5, "#.##", enUS, "5."},
    FormatRow{"OptionalDecimalsDropTrailingZeros", 1.5, "#.##", enUS, "1.5"},
    FormatRow{"OptionalDecimalsKeepInnerZero", 1.05, "0.0#", enUS, "1.05"},
    FormatRow{"MinimumWidth", 5, "00000", enUS, "00005"},
    FormatRow{"LiteralBetweenDigits", 1234, "##-##", enUS, "12-34"},
    FormatRow{"ExtraDigitsGoLeft", 123456, "##-##", enUS, "1234-56"},
    FormatRow{"Percent", 0.256, "0.0%", enUS, "25.6%"},
    FormatRow{"Scientific", 1234.5, "0.00E+00", enUS, "1.23E+03"},
    FormatRow{"ScientificNegativeExponent", 0.00012, "0.0E-00", enUS, "1.2E-04"},
    FormatRow{"ScientificZero", 0, "0.00E+00", enUS, "0.00E+00"}), rowName);

INSTANTIATE_TEST_SUITE_P(Literals, Format, testing::Values(
    FormatRow{"MinusBeforeDollar", -5, "$#,##0.00", enUS, "-$5.00"},
    FormatRow{"PlainSuffix", 1234567.5, "#,##0.000EUR", enUS, "1,234,567.500EUR"},
    FormatRow{"QuotedPrefix", 5, "\"USD \"0", enUS, "USD 5"},
    FormatRow{"EscapedCharacters", 5, "0\\#\\0", enUS, "5#0"},
    FormatRow{"QuotedSemicolon", -5, "0\";\"", enUS, "-5;"},
    FormatRow{"NegativeSection", -0.001, "0.00;(0.00)", enUS, "(0.00)"},
    FormatRow{"ZeroSection", 0, "0.00;(0.00);\\Z\\e\\r\\o", enUS, "Zero"},
    FormatRow{"EmptyNegativeSectionFallsBack", -5, "0.00;", enUS, "-5.00"},
    FormatRow{"RoundedZeroIsNotExactZero", 0.001, "0.00;;\"nil\"", enUS, "0.00"}), rowName);

INSTANTIATE_TEST_SUITE_P(Values, Format, testing::Values(
    FormatRow{"EmptyIsZero", QVariant(), "0.00", enUS, "0.00"},
    FormatRow{"NullIsEmptyText", Variant::null(), "0.00", enUS, ""},
    FormatRow{"TrueIsMinusOne", true, "0", enUS, "-1"},
    FormatRow{"NumericText", QStringLiteral("1234.5"), "#,##0.00", enUS, "1,234.50"},
    FormatRow{"GermanNumericText", QStringLiteral("1234,5"), "#,##0.00", deDE, "1.234,50"},
    FormatRow{"OtherTextUnchanged", QStringLiteral("abc"), "0.00", enUS, "abc"},
    FormatRow{"EmptyPatternIsGeneral", 0.1 + 0.2, "", enUS, "0.3"},
    FormatRow{"NotANumber", std::nan(""), "0.00", enUS, "NaN"}), rowName);

TEST(NumberFormat, VeryLargeDoubleGivesEveryDigit)
{
    const QString text = NumberFormat::format(1e300, QStringLiteral("#,##0.00"), enUS);
    ASSERT_EQ(text.size(), 1 + 100 * 4 + 3); // "1" then 100 groups of ",000", then ".00"
    EXPECT_TRUE(text.startsWith(QStringLiteral("1,000,000,")));
    EXPECT_TRUE(text.endsWith(QStringLiteral("000.00")));
}

TEST(NumberFormat, SwitchingPatternsDoesNotReuseTheOldOne)
{
    EXPECT_EQ(NumberFormat::format(1.5, QStringLiteral("0.00"), enUS), QStringLiteral("1.50"));
    EXPECT_EQ(NumberFormat::format(1.5, QStringLiteral("0"), enUS), QStringLiteral("2"));
    EXPECT_EQ(NumberFormat::format(1.5, QStringLiteral("0.00"), deDE), QStringLiteral("1,50"));
}

} // namespace
