#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>
#include <tarnwell/error.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>

using Tarnwell::Currency;
using Tarnwell::Decimal;
using Tarnwell::Error;

namespace {

const QLocale enUS(QLocale::English, QLocale::UnitedStates);
const QLocale deDE(QLocale::German, QLocale::Germany);

int errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const Error &e) {
        return e.number();
    }
    return 0;
}

struct ParseRow {
    const char *name;
    const char *text;
    QLocale locale;
    qint64 raw;
    int error;
};

class CurrencyParse : public testing::TestWithParam<ParseRow> {};

TEST_P(CurrencyParse, RoundsToFourPlacesHalfEven)
{
    const ParseRow &row = GetParam();
    Currency value;
    EXPECT_EQ(errorOf([&] { value = Currency::parse(QString::fromUtf8(row.text), row.locale); }),
              row.error);
    if (!row.error) {
        EXPECT_EQ(value.raw(), row.raw);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, CurrencyParse, testing::Values(
    ParseRow{"Highest", "922337203685477.5807", enUS, INT64_MAX, 0},
    ParseRow{"Lowest", "-922337203685477.5808", enUS, INT64_MIN, 0},
    ParseRow{"AboveHighest", "922337203685477.5808", enUS, 0, Error::Overflow},
    ParseRow{"HighestPlusHalfStep", "922337203685477.58075", enUS, 0, Error::Overflow},
    ParseRow{"TieToEvenDown", "1.00005", enUS, 10000, 0},
    ParseRow{"TieToEvenUp", "1.00015", enUS, 10002, 0},
    ParseRow{"SymbolAndGroups", "$1,234.56", enUS, 12345600, 0},
    ParseRow{"German", "1.234,56", deDE, 12345600, 0},
    ParseRow{"HugeExponent", "1e40", enUS, 0, Error::Overflow},
    ParseRow{"NotANumber", "12x", enUS, 0, Error::TypeMismatch}),
    [](const auto &info) { return std::string(info.param.name); });

struct OpRow {
    const char *name;
    std::function<Currency()> op;
    qint64 raw;
    int error;
};

class CurrencyArithmetic : public testing::TestWithParam<OpRow> {};

TEST_P(CurrencyArithmetic, IsExactAndOverflowsWithErrorSix)
{
    const OpRow &row = GetParam();
    Currency value;
    EXPECT_EQ(errorOf([&] { value = row.op(); }), row.error);
    if (!row.error) {
        EXPECT_EQ(value.raw(), row.raw);
    }
}

const Currency step = Currency::fromRaw(1);

INSTANTIATE_TEST_SUITE_P(Table, CurrencyArithmetic, testing::Values(
    OpRow{"AddPastMax", [] { return Currency::max() + step; }, 0, Error::Overflow},
    OpRow{"SubtractPastMin", [] { return Currency::min() - step; }, 0, Error::Overflow},
    OpRow{"NegateMin", [] { return -Currency::min(); }, 0, Error::Overflow},
    OpRow{"Multiply", [] { return Currency::fromRaw(-12345) * 3; }, -37035, 0},
    OpRow{"MultiplyPastMax", [] { return Currency::max() * 2; }, 0, Error::Overflow},
    OpRow{"FromInt64TooLarge", [] { return Currency::fromInt64(922337203685478); }, 0, 6},
    // 0.03125 and 0.09375 are exact binary fractions that fall halfway between two steps.
    OpRow{"FromDoubleTieDown", [] { return Currency::fromDouble(0.03125); }, 312, 0},
    OpRow{"FromDoubleTieUp", [] { return Currency::fromDouble(0.09375); }, 938, 0},
    OpRow{"FromDoubleNegativeTie", [] { return Currency::fromDouble(-0.03125); }, -312, 0},
    OpRow{"FromDoubleRounds", [] { return Currency::fromDouble(2.71828); }, 27183, 0},
    OpRow{"FromDoubleTooLarge", [] { return Currency::fromDouble(1e15); }, 0, Error::Overflow},
    OpRow{"FromDoubleNaN", [] { return Currency::fromDouble(std::nan("")); }, 0, 6},
    OpRow{"FromDecimalMax", [] { return Currency::fromDecimal(Decimal::max()); }, 0, 6},
    OpRow{"FromDecimalRounds",
          [] { return Currency::fromDecimal(Decimal::parse("-0.00015", QLocale::c())); }, -2, 0}),
    [](const auto &info) { return std::string(info.param.name); });

struct TextRow {
    const char *name;
    qint64 raw;
    QLocale locale;
    const char *expected;
};

class CurrencyToString : public testing::TestWithParam<TextRow> {};

TEST_P(CurrencyToString, IsShortestExactText)
{
    const TextRow &row = GetParam();
    EXPECT_EQ(Currency::fromRaw(row.raw).toString(row.locale), QString(row.expected));
}

INSTANTIATE_TEST_SUITE_P(Table, CurrencyToString, testing::Values(
    TextRow{"TrailingZerosDropped", 125000, enUS, "12.5"},
    TextRow{"SmallestStep", 1, enUS, "0.0001"},
    TextRow{"Negative", -10000, enUS, "-1"},
    TextRow{"GermanDecimal", 125000, deDE, "12,5"},
    TextRow{"Lowest", INT64_MIN, enUS, "-922337203685477.5808"}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(Currency, ConvertsToTheNearestDoubleAndToAnExactDecimal)
{
    EXPECT_EQ(Currency::max().toDouble(), 922337203685477.5807);
    EXPECT_EQ(Currency::fromRaw(1).toDouble(), 0.0001);
    EXPECT_EQ(Currency::min().toDecimal().toString(), QStringLiteral("-922337203685477.5808"));
    EXPECT_EQ(Currency::fromDecimal(Currency::min().toDecimal()), Currency::min());
}

} // namespace
