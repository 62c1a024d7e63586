#include "common/testsupport.h"

#include <tarnwell/decimal.h>

#include <cmath>
#include <functional>

using Tarnwell::Decimal;
using Tarnwell::Error;
using namespace TestSupport;

namespace {

const char *const Max = "79228162514264337593543950335";
const char *const Min = "-79228162514264337593543950335";
const char *const Tiny = "0.0000000000000000000000000001";

Decimal dec(const char *text)
{
    return Decimal::parse(QString::fromUtf8(text), QLocale::c());
}

struct ParseRow {
    const char *name;
    const char *text;
    QLocale locale;
    const char *expected; // C-locale text; unused when `error` is expected
    int error;
};
class DecimalParse : public testing::TestWithParam<ParseRow> {};

TEST_P(DecimalParse, ReadsExactlyOrRefusesWithTheHostsError)
{
    const ParseRow &row = GetParam();
    expectOutcome([&] { return Decimal::parse(QString::fromUtf8(row.text), row.locale).toString(); },
                  row.error, QString::fromUtf8(row.expected));
}

INSTANTIATE_TEST_SUITE_P(Table, DecimalParse, testing::Values(
    ParseRow{"Max", Max, enUS, Max, 0},
    ParseRow{"Min", Min, enUS, Min, 0},
    ParseRow{"OneAboveMax", "79228162514264337593543950336", enUS, nullptr, Error::Overflow},
    ParseRow{"OneBelowMin", "-79228162514264337593543950336", enUS, nullptr, Error::Overflow},
    ParseRow{"MaxPlusHalfRoundsUpAndOverflows", "79228162514264337593543950335.5", enUS, nullptr, 6},
    ParseRow{"MaxPlusLessThanHalfRoundsDown", "79228162514264337593543950335.4", enUS, Max, 0},
    ParseRow{"ExponentTooLarge", "1e29", enUS, nullptr, Error::Overflow},
    ParseRow{"SmallestStep", Tiny, enUS, Tiny, 0},
    ParseRow{"HalfOfSmallestStepIsEven", "0.00000000000000000000000000005", enUS, "0", 0},
    ParseRow{"OneAndAHalfStepsRoundToTwo", "0.00000000000000000000000000015", enUS,
         "0.0000000000000000000000000002", 0},
    ParseRow{"ThirtyDigitsKeepTwentyNine", "1.23456789012345678901234567891", enUS,
         "1.2345678901234567890123456789", 0},
    ParseRow{"NinesCarryIntoTheScale", "9.99999999999999999999999999995", enUS, "10", 0},
    ParseRow{"FarBelowTheSmallestStep", "1e-400", enUS, "0", 0},
    ParseRow{"ManyDigitsRoundOnce", "0.1000000000000000000000000000500000000000000000001", enUS,
         "0.1000000000000000000000000001", 0},
    ParseRow{"GroupsAndBlanks", " 1,234,567.25 ", enUS, "1234567.25", 0},
    ParseRow{"GermanSeparators", "-1.234,5", deDE, "-1234.5", 0},
    ParseRow{"FrenchNarrowSpace", "1\u202F234,5", frFR, "1234.5", 0},
    ParseRow{"CurrencySymbolAndSign", "-$1,234.50", enUS, "-1234.5", 0},
    ParseRow{"Parentheses", "(5)", enUS, "-5", 0},
    ParseRow{"TrailingSign", "5-", enUS, "-5", 0},
    ParseRow{"Exponent", "1.5E3", enUS, "1500", 0},
    ParseRow{"NegativeZero", "-0.00", enUS, "0", 0},
    ParseRow{"Empty", "", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"SignOnly", "-", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"PointOnly", ".", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"TwoPoints", "1.2.3", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"GroupInDecimals", "1.234,5", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"DoubleSign", "--1", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"BareExponent", "1e", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"TrailingJunk", "12abc", enUS, nullptr, Error::TypeMismatch}), rowName);

// Every operation's result as C-locale text, so one table checks them all.
QString text(const Decimal &value) { return value.toString(); }
QString text(qint64 value) { return QString::number(value); }

constexpr auto HalfEven = Decimal::Rounding::HalfEven;
constexpr auto HalfAway = Decimal::Rounding::HalfAwayFromZero;

// "<", "=" or ">", checking that == agrees with the ordering.
QString order(const char *a, const char *b)
{
    const auto o = dec(a) <=> dec(b);
    EXPECT_EQ(dec(a) == dec(b), o == 0) << a << " vs " << b;
    return o < 0 ? u"<"_qs : (o > 0 ? u">"_qs : u"="_qs);
}

struct OpRow { const char *name; std::function<QString()> call; const char *expected; int error; };
class DecimalOp : public testing::TestWithParam<OpRow> {};

TEST_P(DecimalOp, IsExactOrRoundsHalfEvenWhenTheMantissaIsFull)
{
    expectOutcome(GetParam().call, GetParam().error, QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Arithmetic, DecimalOp, testing::Values(
    OpRow{"PointOnePlusPointTwo", [] { return text(dec("0.1") + dec("0.2")); }, "0.3", 0},
    OpRow{"ScalesAlign", [] { return text(dec("1.25") + dec("10")); }, "11.25", 0},
    OpRow{"SignsDiffer", [] { return text(dec("-5") + dec("3")); }, "-2", 0},
    OpRow{"CancelToZero", [] { return text(dec("-1.5") + dec("1.5")); }, "0", 0},
    OpRow{"SubtractSmallestStep", [] { return text(dec("1") - dec(Tiny)); }, "0.9999999999999999999999999999", 0},
    OpRow{"MaxPlusPointFourRoundsDown", [] { return text(dec(Max) + dec("0.4")); }, Max, 0},
    OpRow{"MaxPlusHalfOverflows", [] { return text(dec(Max) + dec("0.5")); }, nullptr, Error::Overflow},
    OpRow{"FullMantissaLosesOneDecimal", [] { return text(dec("7922816251426433759354395033.5") + dec("0.04")); },
      "7922816251426433759354395033.5", 0},
    OpRow{"CarryPastFullMantissaLosesAnother",
      [] { return text(dec("7922816251426433759354395033.5") + dec("0.05")); }, "7922816251426433759354395034", 0},
    OpRow{"TimesInteger", [] { return text(dec("1.5") * 3); }, "4.5", 0},
    OpRow{"TimesMinusOne", [] { return text(dec(Max) * -1); }, Min, 0},
    OpRow{"TimesTwoOverflows", [] { return text(dec(Max) * 2); }, nullptr, Error::Overflow},
    OpRow{"TimesTenDropsAZero", [] { return text(dec("7922816251426433759354395033.5") * 10); }, Max, 0},
    OpRow{"SmallTimesLargeFactor", [] { return text(dec(Tiny) * INT64_MAX); }, "0.0000000009223372036854775807", 0}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Rounding, DecimalOp, testing::Values(
    OpRow{"TwoAndAHalfEven", [] { return text(dec("2.5").rounded(0, HalfEven)); }, "2", 0},
    OpRow{"ThreeAndAHalfEven", [] { return text(dec("3.5").rounded(0, HalfEven)); }, "4", 0},
    OpRow{"MinusTwoAndAHalfEven", [] { return text(dec("-2.5").rounded(0, HalfEven)); }, "-2", 0},
    OpRow{"TwoAndAHalfAway", [] { return text(dec("2.5").rounded(0, HalfAway)); }, "3", 0},
    OpRow{"TieAtSecondPlaceEven", [] { return text(dec("0.125").rounded(2, HalfEven)); }, "0.12", 0},
    OpRow{"TieAtSecondPlaceAway", [] { return text(dec("0.125").rounded(2, HalfAway)); }, "0.13", 0},
    OpRow{"AboveTieIsNotATie", [] { return text(dec("1.0051").rounded(2, HalfEven)); }, "1.01", 0},
    OpRow{"CarryThroughNines", [] { return text(dec("9.995").rounded(2, HalfAway)); }, "10", 0},
    OpRow{"MaxKeepsItsValue", [] { return text(dec(Max).rounded(0, HalfAway)); }, Max, 0}), rowName);

INSTANTIATE_TEST_SUITE_P(Compare, DecimalOp, testing::Values(
    OpRow{"TrailingZerosEqual", [] { return order("1.50", "1.5"); }, "=", 0},
    OpRow{"NegativeZeroEqualsZero", [] { return order("-0", "0"); }, "=", 0},
    OpRow{"NegativeBelowPositive", [] { return order("-1", "0.5"); }, "<", 0},
    OpRow{"MaxAboveMin", [] { return order(Max, Min); }, ">", 0},
    OpRow{"TinyAboveZero", [] { return order(Tiny, "0"); }, ">", 0},
    OpRow{"DifferentScalesOfBigNumbers", [] { return order("7922816251426433759354395033.5", Max); }, "<", 0}),
    rowName);

// Doubles enter through their fifteen-digit form.
INSTANTIATE_TEST_SUITE_P(FromDouble, DecimalOp, testing::Values(
    OpRow{"PointOne", [] { return text(Decimal::fromDouble(0.1)); }, "0.1", 0},
    OpRow{"SumOfTenths", [] { return text(Decimal::fromDouble(0.1 + 0.2)); }, "0.3", 0},
    OpRow{"FifteenDigits", [] { return text(Decimal::fromDouble(123456789.123456789)); }, "123456789.123457", 0},
    OpRow{"LargeWhole", [] { return text(Decimal::fromDouble(1e28)); }, "10000000000000000000000000000", 0},
    OpRow{"TooLarge", [] { return text(Decimal::fromDouble(1e29)); }, nullptr, Error::Overflow},
    OpRow{"BelowSmallestStep", [] { return text(Decimal::fromDouble(1e-30)); }, "0", 0},
    OpRow{"Infinity", [] { return text(Decimal::fromDouble(HUGE_VAL)); }, nullptr, Error::Overflow},
    OpRow{"NotANumber", [] { return text(Decimal::fromDouble(std::nan(""))); }, nullptr, Error::Overflow}), rowName);

INSTANTIATE_TEST_SUITE_P(ToInt64, DecimalOp, testing::Values(
    OpRow{"HalfDown", [] { return text(dec("2.5").toInt64()); }, "2", 0},
    OpRow{"HalfUp", [] { return text(dec("3.5").toInt64()); }, "4", 0},
    OpRow{"Lowest", [] { return text(dec("-9223372036854775808").toInt64()); }, "-9223372036854775808", 0},
    OpRow{"HighestBelowTie", [] { return text(dec("9223372036854775807.4").toInt64()); }, "9223372036854775807", 0},
    OpRow{"TieRoundsOutOfRange", [] { return text(dec("9223372036854775807.5").toInt64()); }, nullptr, 6},
    OpRow{"BelowLowest", [] { return text(dec("-9223372036854775809").toInt64()); }, nullptr, 6}), rowName);

TEST(Decimal, ConvertsToTheNearestDoubleAndWritesTheLocaleDecimalCharacter)
{
    EXPECT_EQ(dec("-1234.5678").toDouble(), -1234.5678);
    EXPECT_EQ(dec(Max).toDouble(), 79228162514264337593543950335.0);
    EXPECT_EQ(dec(Tiny).toDouble(), 1e-28);

    const Decimal value = dec("-1234.500");
    EXPECT_EQ(value.toString(deDE), QStringLiteral("-1234,5"));
    EXPECT_EQ(value.mantissaDigits(), QStringLiteral("1234500"));
    EXPECT_EQ(value.scale(), 3);
    EXPECT_EQ(value.normalized().scale(), 1);
}

} // namespace
