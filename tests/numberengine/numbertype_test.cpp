#include "numberengine/numbertype.h"

#include <tarnwell/constants.h>
#include <tarnwell/variant.h>

#include <gtest/gtest.h>

// Failure output shows texts as text.
[[maybe_unused]] static void PrintTo(const QString &s, std::ostream *os) { *os << '"' << s.toStdString() << '"'; }

#include <QMetaType>

namespace Tarnwell {
namespace {

// A value and its storage type as one readable text: "Short:255", "Currency:0.3", "Empty".
QString describe(const QVariant &v)
{
    if (!v.isValid())
        return QStringLiteral("Empty");
    QString type = QString::fromLatin1(v.metaType().name());
    type.remove(QStringLiteral("Tarnwell::"));
    return type + u':' + Variant::toString(v, QLocale::c());
}

QVariant cur(const char *text) { return QVariant::fromValue(Currency::parse(QString::fromLatin1(text), QLocale::c())); }
QVariant dec(const char *text) { return QVariant::fromValue(Decimal::parse(QString::fromLatin1(text), QLocale::c())); }
QVariant str(const char *text) { return QVariant(QString::fromLatin1(text)); }

TEST(NumberTypeTest, LimitsOfEveryType)
{
    struct Row { int type; const char *lower; const char *upper; };
    const Row rows[] = {
        {twByte, "short:0", "short:255"},
        {twInteger, "short:-32768", "short:32767"},
        {twLong, "int:-2147483648", "int:2147483647"},
        {twSingle, "double:-3.402823E+38", "double:3.402823E+38"},
        {twDouble, "double:-1.79769313486231E+308", "double:1.79769313486231E+308"},
        {twCurrency, "Currency:-922337203685477", "Currency:922337203685477"},
        {twDecimal, "Decimal:-79228162514264337593543950335", "Decimal:79228162514264337593543950335"},
        {7, "Empty", "Empty"},
        {-1, "Empty", "Empty"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.type);
        EXPECT_EQ(describe(NumberType::TypeLowerLimit(row.type)), QString::fromLatin1(row.lower));
        EXPECT_EQ(describe(NumberType::TypeUpperLimit(row.type)), QString::fromLatin1(row.upper));
    }
}

TEST(NumberTypeTest, ConvertToType)
{
    struct Row { const char *name; QVariant value; int type; const char *expected; };
    const Row rows[] = {
        {"byte top", QVariant(255), twByte, "short:255"},
        {"byte over", QVariant(256), twByte, "Empty"},
        {"byte rounds over", QVariant(255.5), twByte, "Empty"},
        {"byte banker's down", QVariant(254.5), twByte, "short:254"},
        {"byte small negative rounds to 0", QVariant(-0.5), twByte, "short:0"},
        {"byte negative", QVariant(-1), twByte, "Empty"},
        {"byte far over", QVariant(100000), twByte, "Empty"},
        {"integer banker's even", QVariant(2.5), twInteger, "short:2"},
        {"integer banker's odd", QVariant(3.5), twInteger, "short:4"},
        {"integer overflow", QVariant(32768), twInteger, "Empty"},
        {"long from text", str(" -2147483648 "), twLong, "int:-2147483648"},
        {"long from grouped text", str("1,234"), twLong, "int:1234"},
        {"long not numeric", str("abc"), twLong, "Empty"},
        {"empty is zero", QVariant(), twLong, "int:0"},
        {"null fails", Variant::null(), twDouble, "Empty"},
        {"single", QVariant(1.5), twSingle, "float:1.5"},
        {"single overflow", QVariant(1e39), twSingle, "Empty"},
        {"currency exact text", str("0.0001"), twCurrency, "Currency:0.0001"},
        {"decimal exact text", str("1234567890.123456789012345678"), twDecimal,
         "Decimal:1234567890.123456789012345678"},
        {"unknown type", QVariant(7), 9, "Empty"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(describe(NumberType::ConvertToType(row.value, row.type)),
                  QString::fromLatin1(row.expected));
    }
}

TEST(NumberTypeTest, IsInRange)
{
    struct Row { const char *name; QVariant value; int type; bool useMinMax; QVariant min, max; bool expected; };
    const Row rows[] = {
        {"byte 255", QVariant(255), twByte, false, {}, {}, true},
        {"byte 256", QVariant(256), twByte, false, {}, {}, false},
        {"byte -1", QVariant(-1), twByte, false, {}, {}, false},
        {"integer -32768", QVariant(-32768), twInteger, false, {}, {}, true},
        {"long just over", QVariant(2147483648.0), twLong, false, {}, {}, false},
        // As a float the published limit rounds up past itself (held as a double).
        {"single limit", QVariant(3.402823E+38), twSingle, false, {}, {}, false},
        {"single under limit", QVariant(3.40282E+38), twSingle, false, {}, {}, true},
        {"single limit within its own maximum", QVariant(3.402823E+38), twSingle, true,
         QVariant(0), QVariant(3.402823E+38), true},
        {"single float max beyond limit", QVariant(3.4028234E+38), twSingle, false, {}, {}, false},
        {"double limit", QVariant(-1.79769313486231E+308), twDouble, false, {}, {}, true},
        {"double max beyond limit", QVariant(1.7976931348623157E+308), twDouble, false, {}, {}, false},
        {"currency limit", str("922337203685477"), twCurrency, false, {}, {}, true},
        {"currency half over", str("922337203685477.5"), twCurrency, false, {}, {}, false},
        {"currency tiny under", cur("-922337203685477.0001"), twCurrency, false, {}, {}, false},
        {"decimal max", str("79228162514264337593543950335"), twDecimal, false, {}, {}, true},
        {"decimal beyond", str("79228162514264337593543950336"), twDecimal, false, {}, {}, false},
        {"within min max", QVariant(5), twLong, true, QVariant(1), QVariant(10), true},
        {"at max", QVariant(10), twLong, true, QVariant(1), QVariant(10), true},
        {"above max", QVariant(11), twLong, true, QVariant(1), QVariant(10), false},
        {"below min", QVariant(0), twLong, true, QVariant(1), QVariant(10), false},
        {"currency exact bound", str("1.0001"), twCurrency, true, cur("0"), cur("1.0001"), true},
        {"currency just above bound", str("1.0002"), twCurrency, true, cur("0"), cur("1.0001"), false},
        {"not a number", str("x"), twDouble, false, {}, {}, false},
        {"unknown type", QVariant(0), 7, false, {}, {}, false},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(NumberType::IsInRange(row.value, row.useMinMax, row.type, row.min, row.max),
                  row.expected);
    }
}

TEST(NumberTypeTest, RegionalDecimalPlaces)
{
    struct Row { int type; const char *digits; const char *currDigits; int expected; };
    const Row rows[] = {
        {twLong, "3", "3", 0},      {twByte, "", "", 0},       {twDouble, "", "4", 2},
        {twSingle, "3", "", 3},     {twCurrency, "1", "", 2},  {twCurrency, "", "3", 3},
        {twDecimal, "", "0", 0},    {twCurrency, "", "x", 2},  {twDouble, "-1", "", 2},
        {twDouble, "40", "", 9},    {12, "3", "3", 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(testing::Message() << row.type << " " << row.digits << "/" << row.currDigits);
        EXPECT_EQ(NumberType::RegionalDecimalPlaces(row.type, QString::fromLatin1(row.digits),
                                                    QString::fromLatin1(row.currDigits)),
                  row.expected);
    }
}

TEST(NumberTypeTest, ExactArithmetic)
{
    enum Op { Add, Sub, Neg };
    struct Row { const char *name; Op op; QVariant a, b; int type; const char *expected; };
    const Row rows[] = {
        {"integer overflow", Add, QVariant(32767), QVariant(1), twInteger, "Empty"},
        {"integer fits", Sub, QVariant(-32767), QVariant(1), twInteger, "short:-32768"},
        {"negate integer min", Neg, QVariant(-32768), {}, twInteger, "Empty"},
        {"long overflow", Add, QVariant(2147483647), QVariant(1), twLong, "Empty"},
        {"byte below zero", Sub, QVariant(5), QVariant(10), twByte, "Empty"},
        {"currency tenths", Add, cur("0.1"), cur("0.2"), twCurrency, "Currency:0.3"},
        {"currency raw overflow", Add, QVariant::fromValue(Currency::max()), cur("1"), twCurrency, "Empty"},
        {"decimal 28 digits", Add, dec("1234567890123456789012345678"), QVariant(1), twDecimal,
         "Decimal:1234567890123456789012345679"},
        {"decimal fraction", Sub, dec("0.0000000000000000000000000001"), dec("1"), twDecimal,
         "Decimal:-0.9999999999999999999999999999"},
        {"decimal overflow", Add, QVariant::fromValue(Decimal::max()), QVariant(1), twDecimal, "Empty"},
        {"negate decimal", Neg, dec("-7.25"), {}, twDecimal, "Decimal:7.25"},
        {"double infinity", Add, QVariant(1.7e308), QVariant(1.7e308), twDouble, "Empty"},
        {"single", Add, QVariant(0.5), QVariant(1), twSingle, "float:1.5"},
        {"from text", Add, str("2"), str("3"), twLong, "int:5"},
        {"not numeric", Add, str("a"), QVariant(1), twLong, "Empty"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const QVariant r = row.op == Add ? NumberType::add(row.a, row.b, row.type)
                         : row.op == Sub ? NumberType::subtract(row.a, row.b, row.type)
                                         : NumberType::negate(row.a, row.type);
        EXPECT_EQ(describe(r), QString::fromLatin1(row.expected));
    }
}

TEST(NumberTypeTest, RangeRepair)
{
    struct Row { const char *name; QVariant value; QVariant min, max; const char *expected; };
    const Row rows[] = {
        {"in range", QVariant(5), QVariant(1), QVariant(10), "none"},
        {"below, zero under minimum", QVariant(0), QVariant(1), QVariant(10), "int:1"},
        {"above, zero allowed", QVariant(20), QVariant(-5), QVariant(10), "short:0"},
        {"maximum below zero", QVariant(0), QVariant(-10), QVariant(-5), "short:0"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<QVariant> r = NumberType::RangeRepair(row.value, twLong, row.min, row.max);
        EXPECT_EQ(r ? describe(*r) : QStringLiteral("none"), QString::fromLatin1(row.expected));
    }
}

} // namespace
} // namespace Tarnwell
