#include <tarnwell/decimal.h>
#include <tarnwell/error.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

using Tarnwell::Decimal;
using Tarnwell::Error;

namespace {

const QLocale enUS(QLocale::English, QLocale::UnitedStates);
const QLocale deDE(QLocale::German, QLocale::Germany);
const QLocale frFR(QLocale::French, QLocale::France);

const char *const Max = "79228162514264337593543950335";
const char *const Tiny = "0.0000000000000000000000000001";

Decimal dec(const char *text)
{
    return Decimal::parse(QString::fromUtf8(text), QLocale::c());
}

// The error number a call throws, 0 when it does not throw.
int errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const Error &e) {
        return e.number();
    }
    return 0;
}

template<typename Row>
std::string rowName(const testing::TestParamInfo<Row> &info)
{
    return info.param.name;
}

struct ParseRow {
    const char *name;
    const char *text;
    QLocale locale;
    const char *expected; // C-locale text; nullptr when `error` is expected
    int error;
};

class DecimalParse : public testing::TestWithParam<ParseRow> {};

TEST_P(DecimalParse, ReadsExactlyOrRefusesWithTheHostsError)
{
    const ParseRow &row = GetParam();
    Decimal value;
    EXPECT_EQ(errorOf([&] { value = Decimal::parse(QString::fromUtf8(row.text), row.locale); }),
              row.error);
    if (row.expected) {
        EXPECT_EQ(value.toString(), QString::fromUtf8(row.expected));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, DecimalParse, testing::Values(
    ParseRow{"Max", Max, enUS, Max, 0},
    ParseRow{"Min", "-79228162514264337593543950335", enUS, "-79228162514264337593543950335", 0},
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
    ParseRow{"Letters", "abc", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"SignOnly", "-", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"PointOnly", ".", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"TwoPoints", "1.2.3", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"GroupInDecimals", "1.234,5", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"DoubleSign", "--1", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"BareExponent", "1e", enUS, nullptr, Error::TypeMismatch},
    ParseRow{"TrailingJunk", "12abc", enUS, nullptr, Error::TypeMismatch}), rowName<ParseRow>);

struct ArithmeticRow {
    const char *name;
    const char *a;
    char op; // '+', '-' or '*' (b is then an integer factor)
    const char *b;
    const char *expected;
    int error;
};

class DecimalArithmetic : public testing::TestWithParam<ArithmeticRow> {};

TEST_P(DecimalArithmetic, IsExactOrRoundsHalfEvenWhenTheMantissaIsFull)
{
    const ArithmeticRow &row = GetParam();
    Decimal result;
    const int error = errorOf([&] {
        if (row.op == '+')
            result = dec(row.a) + dec(row.b);
        else if (row.op == '-')
            result = dec(row.a) - dec(row.b);
        else
            result = dec(row.a) * std::stoll(row.b);
    });
    EXPECT_EQ(error, row.error);
    if (row.expected) {
        EXPECT_EQ(result.toString(), QString::fromUtf8(row.expected));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, DecimalArithmetic, testing::Values(
    ArithmeticRow{"PointOnePlusPointTwo", "0.1", '+', "0.2", "0.3", 0},
    ArithmeticRow{"ScalesAlign", "1.25", '+', "10", "11.25", 0},
    ArithmeticRow{"SignsDiffer", "-5", '+', "3", "-2", 0},
    ArithmeticRow{"CancelToZero", "-1.5", '+', "1.5", "0", 0},
    ArithmeticRow{"SubtractSmallestStep", "1", '-', Tiny, "0.9999999999999999999999999999", 0},
    ArithmeticRow{"MaxPlusPointFourRoundsDown", Max, '+', "0.4", Max, 0},
    ArithmeticRow{"MaxPlusHalfOverflows", Max, '+', "0.5", nullptr, Error::Overflow},
    ArithmeticRow{"MaxPlusOneOverflows", Max, '+', "1", nullptr, Error::Overflow},
    ArithmeticRow{"FullMantissaLosesOneDecimal", "7922816251426433759354395033.5", '+', "0.04",
                  "7922816251426433759354395033.5", 0},
    ArithmeticRow{"CarryPastFullMantissaLosesAnother", "7922816251426433759354395033.5", '+',
                  "0.05", "7922816251426433759354395034", 0},
    ArithmeticRow{"TimesInteger", "1.5", '*', "3", "4.5", 0},
    ArithmeticRow{"TimesMinusOne", Max, '*', "-1", "-79228162514264337593543950335", 0},
    ArithmeticRow{"TimesTwoOverflows", Max, '*', "2", nullptr, Error::Overflow},
    ArithmeticRow{"TimesTenDropsAZero", "7922816251426433759354395033.5", '*', "10", Max, 0},
    ArithmeticRow{"SmallTimesLargeFactor", Tiny, '*', "9223372036854775807",
                  "0.0000000009223372036854775807", 0}), rowName<ArithmeticRow>);

struct RoundRow {
    const char *name;
    const char *value;
    int scale;
    Decimal::Rounding mode;
    const char *expected;
};

class DecimalRounding : public testing::TestWithParam<RoundRow> {};

TEST_P(DecimalRounding, RoundsAtTheRequestedScale)
{
    const RoundRow &row = GetParam();
    EXPECT_EQ(dec(row.value).rounded(row.scale, row.mode).toString(), QString(row.expected));
}

constexpr auto HalfEven = Decimal::Rounding::HalfEven;
constexpr auto HalfAway = Decimal::Rounding::HalfAwayFromZero;

INSTANTIATE_TEST_SUITE_P(Table, DecimalRounding, testing::Values(
    RoundRow{"TwoAndAHalfEven", "2.5", 0, HalfEven, "2"},
    RoundRow{"ThreeAndAHalfEven", "3.5", 0, HalfEven, "4"},
    RoundRow{"MinusTwoAndAHalfEven", "-2.5", 0, HalfEven, "-2"},
    RoundRow{"TwoAndAHalfAway", "2.5", 0, HalfAway, "3"},
    RoundRow{"TieAtSecondPlaceEven", "0.125", 2, HalfEven, "0.12"},
    RoundRow{"TieAtSecondPlaceAway", "0.125", 2, HalfAway, "0.13"},
    RoundRow{"AboveTieIsNotATie", "1.0051", 2, HalfEven, "1.01"},
    RoundRow{"CarryThroughNines", "9.995", 2, HalfAway, "10"},
    RoundRow{"MaxKeepsItsValue", Max, 0, HalfAway, Max}), rowName<RoundRow>);

struct CompareRow {
    const char *name;
    const char *a;
    const char *b;
    int expected; // sign of a <=> b
};

class DecimalCompare : public testing::TestWithParam<CompareRow> {};

TEST_P(DecimalCompare, ComparesByValue)
{
    const CompareRow &row = GetParam();
    const auto order = dec(row.a) <=> dec(row.b);
    EXPECT_EQ(order < 0 ? -1 : (order > 0 ? 1 : 0), row.expected);
    EXPECT_EQ(dec(row.a) == dec(row.b), row.expected == 0);
}

INSTANTIATE_TEST_SUITE_P(Table, DecimalCompare, testing::Values(
    CompareRow{"TrailingZerosEqual", "1.50", "1.5", 0},
    CompareRow{"NegativeZeroEqualsZero", "-0", "0", 0},
    CompareRow{"NegativeBelowPositive", "-1", "0.5", -1},
    CompareRow{"MaxAboveMin", Max, "-79228162514264337593543950335", 1},
    CompareRow{"TinyAboveZero", Tiny, "0", 1},
    CompareRow{"DifferentScalesOfBigNumbers", "7922816251426433759354395033.5", Max, -1}),
    rowName<CompareRow>);

struct DoubleRow {
    const char *name;
    double value;
    const char *expected;
    int error;
};

class DecimalFromDouble : public testing::TestWithParam<DoubleRow> {};

TEST_P(DecimalFromDouble, TakesTheFifteenDigitForm)
{
    const DoubleRow &row = GetParam();
    Decimal value;
    EXPECT_EQ(errorOf([&] { value = Decimal::fromDouble(row.value); }), row.error);
    if (row.expected) {
        EXPECT_EQ(value.toString(), QString(row.expected));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, DecimalFromDouble, testing::Values(
    DoubleRow{"PointOne", 0.1, "0.1", 0},
    DoubleRow{"SumOfTenths", 0.1 + 0.2, "0.3", 0},
    DoubleRow{"FifteenDigits", 123456789.123456789, "123456789.123457", 0},
    DoubleRow{"LargeWhole", 1e28, "10000000000000000000000000000", 0},
    DoubleRow{"TooLarge", 1e29, nullptr, Error::Overflow},
    DoubleRow{"BelowSmallestStep", 1e-30, "0", 0},
    DoubleRow{"Infinity", HUGE_VAL, nullptr, Error::Overflow},
    DoubleRow{"NotANumber", std::nan(""), nullptr, Error::Overflow}), rowName<DoubleRow>);

struct Int64Row {
    const char *name;
    const char *value;
    qint64 expected;
    int error;
};

class DecimalToInt64 : public testing::TestWithParam<Int64Row> {};

TEST_P(DecimalToInt64, RoundsHalfEvenWithinRange)
{
    const Int64Row &row = GetParam();
    qint64 value = 0;
    EXPECT_EQ(errorOf([&] { value = dec(row.value).toInt64(); }), row.error);
    if (!row.error) {
        EXPECT_EQ(value, row.expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, DecimalToInt64, testing::Values(
    Int64Row{"HalfDown", "2.5", 2, 0},
    Int64Row{"HalfUp", "3.5", 4, 0},
    Int64Row{"Lowest", "-9223372036854775808", INT64_MIN, 0},
    Int64Row{"HighestBelowTie", "9223372036854775807.4", INT64_MAX, 0},
    Int64Row{"TieRoundsOutOfRange", "9223372036854775807.5", 0, Error::Overflow},
    Int64Row{"BelowLowest", "-9223372036854775809", 0, Error::Overflow}), rowName<Int64Row>);

TEST(Decimal, ConvertsToTheNearestDouble)
{
    EXPECT_EQ(dec("0.1").toDouble(), 0.1);
    EXPECT_EQ(dec("-1234.5678").toDouble(), -1234.5678);
    EXPECT_EQ(dec(Max).toDouble(), 79228162514264337593543950335.0);
    EXPECT_EQ(dec(Tiny).toDouble(), 1e-28);
}

TEST(Decimal, WritesTheLocaleDecimalCharacterAndMantissaDigits)
{
    const Decimal value = dec("-1234.500");
    EXPECT_EQ(value.toString(deDE), QStringLiteral("-1234,5"));
    EXPECT_EQ(value.mantissaDigits(), QStringLiteral("1234500"));
    EXPECT_EQ(value.scale(), 3);
    EXPECT_EQ(value.normalized().scale(), 1);
}

} // namespace
