#include "common/testsupport.h"

#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>

#include <cmath>
#include <functional>

using Tarnwell::Currency;
using Tarnwell::Decimal;
using Tarnwell::Error;
using namespace TestSupport;

namespace {

qint64 parse(const char *text, const QLocale &locale = enUS)
{
    return Currency::parse(QString::fromUtf8(text), locale).raw();
}

struct RawRow { const char *name; std::function<qint64()> call; qint64 raw; int error; };
class CurrencyRaw : public testing::TestWithParam<RawRow> {};

TEST_P(CurrencyRaw, IsExactRoundsHalfEvenAndOverflowsWithErrorSix)
{
    expectOutcome(GetParam().call, GetParam().error, GetParam().raw);
}

const Currency step = Currency::fromRaw(1);

INSTANTIATE_TEST_SUITE_P(Parse, CurrencyRaw, testing::Values(
    RawRow{"Highest", [] { return parse("922337203685477.5807"); }, INT64_MAX, 0},
    RawRow{"Lowest", [] { return parse("-922337203685477.5808"); }, INT64_MIN, 0},
    RawRow{"AboveHighest", [] { return parse("922337203685477.5808"); }, 0, Error::Overflow},
    RawRow{"HighestPlusHalfStep", [] { return parse("922337203685477.58075"); }, 0, Error::Overflow},
    RawRow{"TieToEvenDown", [] { return parse("1.00005"); }, 10000, 0},
    RawRow{"TieToEvenUp", [] { return parse("1.00015"); }, 10002, 0},
    RawRow{"SymbolAndGroups", [] { return parse("$1,234.56"); }, 12345600, 0},
    RawRow{"German", [] { return parse("1.234,56", deDE); }, 12345600, 0},
    RawRow{"HugeExponent", [] { return parse("1e40"); }, 0, Error::Overflow},
    RawRow{"NotANumber", [] { return parse("12x"); }, 0, Error::TypeMismatch}), rowName);

INSTANTIATE_TEST_SUITE_P(Arithmetic, CurrencyRaw, testing::Values(
    RawRow{"AddPastMax", [] { return (Currency::max() + step).raw(); }, 0, Error::Overflow},
    RawRow{"SubtractPastMin", [] { return (Currency::min() - step).raw(); }, 0, Error::Overflow},
    RawRow{"NegateMin", [] { return (-Currency::min()).raw(); }, 0, Error::Overflow},
    RawRow{"Multiply", [] { return (Currency::fromRaw(-12345) * 3).raw(); }, -37035, 0},
    RawRow{"MultiplyPastMax", [] { return (Currency::max() * 2).raw(); }, 0, Error::Overflow},
    RawRow{"FromInt64TooLarge", [] { return Currency::fromInt64(922337203685478).raw(); }, 0, 6},
    // 0.03125 and 0.09375 are exact binary fractions that fall halfway between two steps.
    RawRow{"FromDoubleTieDown", [] { return Currency::fromDouble(0.03125).raw(); }, 312, 0},
    RawRow{"FromDoubleTieUp", [] { return Currency::fromDouble(0.09375).raw(); }, 938, 0},
    RawRow{"FromDoubleNegativeTie", [] { return Currency::fromDouble(-0.03125).raw(); }, -312, 0},
    RawRow{"FromDoubleTooLarge", [] { return Currency::fromDouble(1e15).raw(); }, 0, Error::Overflow},
    RawRow{"FromDoubleNaN", [] { return Currency::fromDouble(std::nan("")).raw(); }, 0, 6},
    RawRow{"FromDecimalMax", [] { return Currency::fromDecimal(Decimal::max()).raw(); }, 0, 6},
    RawRow{"FromDecimalRounds",
       [] { return Currency::fromDecimal(Decimal::parse("-0.00015", QLocale::c())).raw(); }, -2, 0}), rowName);

struct TextRow { const char *name; qint64 raw; QLocale locale; const char *expected; };
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
    TextRow{"Lowest", INT64_MIN, enUS, "-922337203685477.5808"}), rowName);

TEST(Currency, ConvertsToTheNearestDoubleAndToAnExactDecimal)
{
    EXPECT_EQ(Currency::max().toDouble(), 922337203685477.5807);
    EXPECT_EQ(Currency::fromRaw(1).toDouble(), 0.0001);
    EXPECT_EQ(Currency::fromDecimal(Currency::min().toDecimal()), Currency::min());
}

} // namespace
