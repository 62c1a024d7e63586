#include "numberengine/numbertype.h"

#include <tarnwell/constants.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"

namespace Tarnwell {
namespace {

using TestSupport::describe;
using TestSupport::rowName;

QVariant cur(const char *text) { return QVariant::fromValue(Currency::parse(QString::fromLatin1(text), QLocale::c())); }
QVariant dec(const char *text) { return QVariant::fromValue(Decimal::parse(QString::fromLatin1(text), QLocale::c())); }
QVariant str(const char *text) { return QVariant(QString::fromLatin1(text)); }

struct ConvertRow { const char *name; QVariant value; int type; const char *expected; };
class convertToType : public testing::TestWithParam<ConvertRow> {};

TEST_P(convertToType, RoundsHalfToEvenWithinTheType)
{
    EXPECT_EQ(describe(NumberType::convertToType(GetParam().value, GetParam().type)),
          QString::fromLatin1(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Table, convertToType, testing::Values(
    ConvertRow{"byte top", QVariant(255), twByte, "short:255"},
    ConvertRow{"byte over", QVariant(256), twByte, "Empty"},
    ConvertRow{"byte rounds over", QVariant(255.5), twByte, "Empty"},
    ConvertRow{"byte banker's down", QVariant(254.5), twByte, "short:254"},
    ConvertRow{"byte small negative rounds to 0", QVariant(-0.5), twByte, "short:0"},
    ConvertRow{"byte negative", QVariant(-1), twByte, "Empty"},
    ConvertRow{"byte far over", QVariant(100000), twByte, "Empty"},
    ConvertRow{"integer overflow", QVariant(32768), twInteger, "Empty"},
    ConvertRow{"long from text", str(" -2147483648 "), twLong, "int:-2147483648"},
    ConvertRow{"single", QVariant(1.5), twSingle, "float:1.5"},
    ConvertRow{"currency exact text", str("0.0001"), twCurrency, "Currency:0.0001"},
    ConvertRow{"decimal exact text", str("1234567890.123456789012345678"), twDecimal,
              "Decimal:1234567890.123456789012345678"},
    ConvertRow{"unknown type", QVariant(7), 9, "Empty"}), rowName);

struct RangeRow { const char *name; QVariant value; int type; bool useMinMax; QVariant min, max; bool expected; };
class isInRange : public testing::TestWithParam<RangeRow> {};

TEST_P(isInRange, ChecksTheTypeAndTheBounds)
{
    const RangeRow &row = GetParam();
    EXPECT_EQ(NumberType::isInRange(row.value, row.useMinMax, row.type, row.min, row.max), row.expected);
}

INSTANTIATE_TEST_SUITE_P(Table, isInRange, testing::Values(
    RangeRow{"byte 255", QVariant(255), twByte, false, {}, {}, true},
    RangeRow{"byte 256", QVariant(256), twByte, false, {}, {}, false},
    RangeRow{"byte -1", QVariant(-1), twByte, false, {}, {}, false},
    RangeRow{"integer -32768", QVariant(-32768), twInteger, false, {}, {}, true},
    RangeRow{"long just over", QVariant(2147483648.0), twLong, false, {}, {}, false},
    // As a float the published limit rounds up past itself (held as a double).
    RangeRow{"single limit", QVariant(3.402823E+38), twSingle, false, {}, {}, false},
    RangeRow{"single under limit", QVariant(3.40282E+38), twSingle, false, {}, {}, true},
    RangeRow{"single limit within its own maximum", QVariant(3.402823E+38), twSingle, true,
             QVariant(0), QVariant(3.402823E+38), true},
    RangeRow{"single float max beyond limit", QVariant(3.4028234E+38), twSingle, false, {}, {}, false},
    RangeRow{"double limit", QVariant(-1.79769313486231E+308), twDouble, false, {}, {}, true},
    RangeRow{"double max beyond limit", QVariant(1.7976931348623157E+308), twDouble, false, {}, {}, false},
    RangeRow{"currency limit", str("922337203685477"), twCurrency, false, {}, {}, true},
    RangeRow{"currency half over", str("922337203685477.5"), twCurrency, false, {}, {}, false},
    RangeRow{"currency tiny under", cur("-922337203685477.0001"), twCurrency, false, {}, {}, false},
    RangeRow{"decimal max", str("79228162514264337593543950335"), twDecimal, false, {}, {}, true},
    RangeRow{"decimal beyond", str("79228162514264337593543950336"), twDecimal, false, {}, {}, false},
    RangeRow{"within min max", QVariant(5), twLong, true, QVariant(1), QVariant(10), true},
    RangeRow{"at max", QVariant(10), twLong, true, QVariant(1), QVariant(10), true},
    RangeRow{"above max", QVariant(11), twLong, true, QVariant(1), QVariant(10), false},
    RangeRow{"below min", QVariant(0), twLong, true, QVariant(1), QVariant(10), false},
    RangeRow{"currency exact bound", str("1.0001"), twCurrency, true, cur("0"), cur("1.0001"), true},
    RangeRow{"currency just above bound", str("1.0002"), twCurrency, true, cur("0"), cur("1.0001"), false},
    RangeRow{"not a number", str("x"), twDouble, false, {}, {}, false}), rowName);

struct DigitsRow { const char *name; int type; const char *digits; const char *currDigits; int expected; };
class regionalDecimalPlaces : public testing::TestWithParam<DigitsRow> {};

TEST_P(regionalDecimalPlaces, ComeFromTheTypesSetting)
{
    const DigitsRow &row = GetParam();
    EXPECT_EQ(NumberType::regionalDecimalPlaces(row.type, QString::fromLatin1(row.digits),
                                                QString::fromLatin1(row.currDigits)),
              row.expected);
}

INSTANTIATE_TEST_SUITE_P(Table, regionalDecimalPlaces, testing::Values(
    DigitsRow{"WholeTypesNone", twLong, "3", "3", 0}, DigitsRow{"ByteUnset", twByte, "", "", 0},
    DigitsRow{"DoubleUnsetIsTwo", twDouble, "", "4", 2}, DigitsRow{"SingleNumberDigits", twSingle, "3", "", 3},
    DigitsRow{"CurrencyUnsetIsTwo", twCurrency, "1", "", 2}, DigitsRow{"CurrencyDigits", twCurrency, "", "3", 3},
    DigitsRow{"DecimalZero", twDecimal, "", "0", 0}, DigitsRow{"NotANumberIsTwo", twCurrency, "", "x", 2},
    DigitsRow{"NegativeIsTwo", twDouble, "-1", "", 2}, DigitsRow{"AtMostNine", twDouble, "40", "", 9},
    DigitsRow{"UnknownTypeNone", 12, "3", "3", 0}), rowName);

enum Op { Add, Sub, Neg };
struct ArithmeticRow { const char *name; Op op; QVariant a, b; int type; const char *expected; };
class ExactArithmetic : public testing::TestWithParam<ArithmeticRow> {};

TEST_P(ExactArithmetic, StaysInTheTypeOrFails)
{
    const ArithmeticRow &row = GetParam();
    const QVariant r = row.op == Add ? NumberType::add(row.a, row.b, row.type)
                     : row.op == Sub ? NumberType::subtract(row.a, row.b, row.type)
                                     : NumberType::negate(row.a, row.type);
    EXPECT_EQ(describe(r), QString::fromLatin1(row.expected));
}

INSTANTIATE_TEST_SUITE_P(Table, ExactArithmetic, testing::Values(
    ArithmeticRow{"integer overflow", Add, QVariant(32767), QVariant(1), twInteger, "Empty"},
    ArithmeticRow{"integer fits", Sub, QVariant(-32767), QVariant(1), twInteger, "short:-32768"},
    ArithmeticRow{"negate integer min", Neg, QVariant(-32768), {}, twInteger, "Empty"},
    ArithmeticRow{"long overflow", Add, QVariant(2147483647), QVariant(1), twLong, "Empty"},
    ArithmeticRow{"byte below zero", Sub, QVariant(5), QVariant(10), twByte, "Empty"},
    ArithmeticRow{"currency tenths", Add, cur("0.1"), cur("0.2"), twCurrency, "Currency:0.3"},
    ArithmeticRow{"currency raw overflow", Add, QVariant::fromValue(Currency::max()), cur("1"), twCurrency, "Empty"},
    ArithmeticRow{"decimal 28 digits", Add, dec("1234567890123456789012345678"), QVariant(1), twDecimal,
              "Decimal:1234567890123456789012345679"},
    ArithmeticRow{"decimal fraction", Sub, dec("0.0000000000000000000000000001"), dec("1"), twDecimal,
              "Decimal:-0.9999999999999999999999999999"},
    ArithmeticRow{"decimal overflow", Add, QVariant::fromValue(Decimal::max()), QVariant(1), twDecimal, "Empty"},
    ArithmeticRow{"negate decimal", Neg, dec("-7.25"), {}, twDecimal, "Decimal:7.25"},
    ArithmeticRow{"double infinity", Add, QVariant(1.7e308), QVariant(1.7e308), twDouble, "Empty"},
    ArithmeticRow{"single", Add, QVariant(0.5), QVariant(1), twSingle, "float:1.5"}), rowName);

struct RepairRow { const char *name; QVariant value; QVariant min, max; const char *expected; };
class rangeRepair : public testing::TestWithParam<RepairRow> {};

TEST_P(rangeRepair, BringsTheValueIntoRange)
{
    const RepairRow &row = GetParam();
    const std::optional<QVariant> r = NumberType::rangeRepair(row.value, twLong, row.min, row.max);
    EXPECT_EQ(r ? describe(*r) : QStringLiteral("none"), QString::fromLatin1(row.expected));
}

INSTANTIATE_TEST_SUITE_P(Table, rangeRepair, testing::Values(
    RepairRow{"in range", 5, 1, 10, "none"},
    RepairRow{"below, zero under minimum", 0, 1, 10, "int:1"},
    RepairRow{"above, zero allowed", 20, -5, 10, "short:0"},
    RepairRow{"maximum below zero", 0, -10, -5, "short:0"}), rowName);

} // namespace
} // namespace Tarnwell
