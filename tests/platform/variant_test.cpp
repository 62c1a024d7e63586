#include "common/testsupport.h"

#include <tarnwell/olecolor.h>
#include <tarnwell/variant.h>

#include <QSize>

#include <cfloat>

using namespace Tarnwell;
using namespace TestSupport;

namespace {

QVariant text(const char *utf8) { return QString::fromUtf8(utf8); }
QVariant cur(const char *t) { return QVariant::fromValue(Currency::parse(t, QLocale::c())); }
QVariant dec(const char *t) { return QVariant::fromValue(Decimal::parse(t, QLocale::c())); }
// Every digit of a double, so a result one bit off does not pass.
QString real(double value) { return QString::number(value, 'g', 17); }

enum class To { Integer, Long, Single, Double, Currency, Decimal, Date, String, IsNumeric, IsDate };

QString convert(To to, const QVariant &v, const QLocale &locale)
{
    switch (to) {
    case To::Integer: return QString::number(Variant::toInteger(v, locale));
    case To::Long: return QString::number(Variant::toLong(v, locale));
    case To::Single: return real(Variant::toSingle(v, locale));
    case To::Double: return real(Variant::toDouble(v, locale));
    case To::Currency: return Variant::toCurrency(v, locale).toString();
    case To::Decimal: return Variant::toDecimal(v, locale).toString();
    case To::Date: return real(Variant::toDate(v, locale).serial());
    case To::String: return Variant::toString(v, locale);
    case To::IsNumeric:
        // Whatever counts as numeric must convert to Double without a type mismatch.
        if (!Variant::isNumeric(v, locale))
            return u"false"_qs;
        EXPECT_NE(errorOf([&] { Variant::toDouble(v, locale); }), Error::TypeMismatch);
        return u"true"_qs;
    case To::IsDate: return Variant::isDate(v, locale) ? u"true"_qs : u"false"_qs;
    }
    return {};
}

struct ConvertRow {
    const char *name;
    To to;
    QVariant value;
    QLocale locale;
    QString expected; // unused when `error` is expected
    int error;
};
class Convert : public testing::TestWithParam<ConvertRow> {};

TEST_P(Convert, RoundsOnceAndRefusesWithTheHostsError)
{
    const ConvertRow &row = GetParam();
    expectOutcome([&] { return convert(row.to, row.value, row.locale); }, row.error, row.expected);
}

const QVariant null = Variant::null();

// Whole numbers round half to even and check their range.
INSTANTIATE_TEST_SUITE_P(Whole, Convert, testing::Values(
    ConvertRow{"TwoAndAHalf", To::Integer, 2.5, enUS, "2", 0},
    ConvertRow{"ThreeAndAHalf", To::Integer, 3.5, enUS, "4", 0},
    ConvertRow{"MinusTwoAndAHalf", To::Integer, -2.5, enUS, "-2", 0},
    ConvertRow{"TieAboveTheTopOverflows", To::Integer, 32767.5, enUS, "", Error::Overflow},
    ConvertRow{"TieAtTheBottom", To::Integer, -32768.5, enUS, "-32768", 0},
    ConvertRow{"TextTie", To::Integer, text("2.5"), enUS, "2", 0},
    ConvertRow{"TextWithGroupsAndBlanks", To::Integer, text(" 1,234 "), enUS, "1234", 0},
    ConvertRow{"TextTooLarge", To::Integer, text("32768"), enUS, "", Error::Overflow},
    ConvertRow{"TextNotANumber", To::Integer, text("abc"), enUS, "", Error::TypeMismatch},
    ConvertRow{"EmptyIsZero", To::Integer, QVariant(), enUS, "0", 0},
    ConvertRow{"NullIsAMismatch", To::Integer, null, enUS, "", Error::TypeMismatch},
    ConvertRow{"TrueIsMinusOne", To::Integer, true, enUS, "-1", 0},
    ConvertRow{"CurrencyTie", To::Integer, cur("2.5"), enUS, "2", 0},
    ConvertRow{"DecimalTie", To::Integer, dec("3.5"), enUS, "4", 0},
    ConvertRow{"LongTooLarge", To::Integer, QVariant::fromValue(qint32(40000)), enUS, "", Error::Overflow},
    ConvertRow{"NotANumberDouble", To::Integer, std::nan(""), enUS, "", Error::Overflow},
    ConvertRow{"OtherType", To::Integer, QVariant(QSize(1, 2)), enUS, "", Error::TypeMismatch},
    ConvertRow{"LongTop", To::Long, text("2147483647"), enUS, "2147483647", 0},
    ConvertRow{"LongBottom", To::Long, text("-2147483648"), enUS, "-2147483648", 0},
    ConvertRow{"LongTieAboveTheTop", To::Long, 2147483647.5, enUS, "", Error::Overflow},
    ConvertRow{"LongExponent", To::Long, text("1.5E3"), enUS, "1500", 0},
    ConvertRow{"LongHugeExponent", To::Long, text("1E300"), enUS, "", Error::Overflow}), rowName);

INSTANTIATE_TEST_SUITE_P(Real, Convert, testing::Values(
    ConvertRow{"PointOneIsTheNearestDouble", To::Double, text("0.1"), enUS, real(0.1), 0},
    ConvertRow{"Exponent", To::Double, text("1E5"), enUS, real(1e5), 0},
    ConvertRow{"German", To::Double, text("1.234,5"), deDE, real(1234.5), 0},
    ConvertRow{"LeadingDollar", To::Double, text("$5"), enUS, real(5), 0},
    ConvertRow{"Overflow", To::Double, text("1e400"), enUS, "", Error::Overflow},
    ConvertRow{"Underflow", To::Double, text("1e-400"), enUS, real(0), 0},
    ConvertRow{"Letters", To::Double, text("x"), enUS, "", Error::TypeMismatch},
    ConvertRow{"Null", To::Double, null, enUS, "", Error::TypeMismatch},
    ConvertRow{"True", To::Double, true, enUS, real(-1), 0},
    ConvertRow{"Currency", To::Double, cur("922337203685477.5807"), enUS, real(922337203685477.5807), 0},
    ConvertRow{"Decimal", To::Double, dec("0.3"), enUS, real(0.3), 0},
    ConvertRow{"SinglePointOne", To::Single, text("0.1"), enUS, real(0.1f), 0},
    ConvertRow{"SingleLargest", To::Single, text("3.4028235E+38"), enUS, real(FLT_MAX), 0},
    ConvertRow{"SingleTextTooLarge", To::Single, text("3.5E+38"), enUS, "", Error::Overflow},
    ConvertRow{"SingleDoubleTooLarge", To::Single, 1e39, enUS, "", Error::Overflow}), rowName);

INSTANTIATE_TEST_SUITE_P(Exact, Convert, testing::Values(
    ConvertRow{"TextLimit", To::Currency, text("922337203685477"), enUS, "922337203685477", 0},
    ConvertRow{"TextWithSymbol", To::Currency, text("$1,234.5678"), enUS, "1234.5678", 0},
    ConvertRow{"TextTooLarge", To::Currency, text("1e15"), enUS, "", Error::Overflow},
    ConvertRow{"Double", To::Currency, 1.5, enUS, "1.5", 0},
    ConvertRow{"Decimal", To::Currency, dec("0.12345"), enUS, "0.1234", 0},
    ConvertRow{"NotANumber", To::Currency, text("1.2.3"), enUS, "", Error::TypeMismatch},
    ConvertRow{"DecimalSingleSevenDigits", To::Decimal, 0.1f, enUS, "0.1", 0},
    ConvertRow{"DecimalDoubleFifteenDigits", To::Decimal, 0.1 + 0.2, enUS, "0.3", 0},
    ConvertRow{"DecimalCurrency", To::Decimal, cur("-12.3456"), enUS, "-12.3456", 0},
    ConvertRow{"DecimalLargeUnsigned", To::Decimal, QVariant(qulonglong(18446744073709551615ULL)), enUS,
           "18446744073709551615", 0},
    ConvertRow{"DecimalTextLimit", To::Decimal, text("-79228162514264337593543950335"), enUS,
           "-79228162514264337593543950335", 0},
    ConvertRow{"DecimalTextPastLimit", To::Decimal, text("79228162514264337593543950336"), enUS, "", 6},
    ConvertRow{"DecimalNull", To::Decimal, null, enUS, "", Error::TypeMismatch},
    ConvertRow{"DateSerial", To::Date, 45000.5, enUS, real(45000.5), 0},
    ConvertRow{"DateOutOfRange", To::Date, 1e10, enUS, "", Error::Overflow},
    ConvertRow{"DateText", To::Date, text("no date"), enUS, "", Error::TypeMismatch}), rowName);

// Text shows the host's digits: fifteen for doubles, seven for singles, exact for the rest.
INSTANTIATE_TEST_SUITE_P(String, Convert, testing::Values(
    ConvertRow{"SumOfTenths", To::String, 0.1 + 0.2, enUS, "0.3", 0},
    ConvertRow{"Third", To::String, 1.0 / 3, enUS, "0.333333333333333", 0},
    ConvertRow{"FifteenDigitsPlain", To::String, 123456789012345.0, enUS, "123456789012345", 0},
    ConvertRow{"SixteenDigitsScientific", To::String, 1e15, enUS, "1E+15", 0},
    ConvertRow{"SmallPlain", To::String, 0.0001, enUS, "0.0001", 0},
    ConvertRow{"SmallScientific", To::String, 0.00001, enUS, "1E-05", 0},
    ConvertRow{"SingleSevenDigits", To::String, 0.1f, enUS, "0.1", 0},
    ConvertRow{"SingleScientific", To::String, 12345678.0f, enUS, "1.234568E+07", 0},
    ConvertRow{"CurrencyExact", To::String, cur("922337203685477.5807"), enUS, "922337203685477.5807", 0},
    ConvertRow{"CurrencyGerman", To::String, cur("12.5"), deDE, "12,5", 0},
    ConvertRow{"DecimalExact", To::String, dec("0.1000000000000000000000000001"), enUS,
           "0.1000000000000000000000000001", 0},
    ConvertRow{"DateFourDigitYear", To::String, QVariant::fromValue(Date(45000.0)), enUS, "3/15/2023", 0},
    ConvertRow{"True", To::String, true, enUS, "True", 0},
    ConvertRow{"Empty", To::String, QVariant(), enUS, "", 0},
    ConvertRow{"Null", To::String, null, enUS, "", Error::TypeMismatch}), rowName);

INSTANTIATE_TEST_SUITE_P(IsNumeric, Convert, testing::Values(
    ConvertRow{"Digits", To::IsNumeric, text("12"), enUS, "true", 0},
    ConvertRow{"GermanGroups", To::IsNumeric, text("1.234,5"), deDE, "true", 0},
    ConvertRow{"GermanTextInEnglish", To::IsNumeric, text("1.234,5"), enUS, "false", 0},
    ConvertRow{"FrenchSpace", To::IsNumeric, text("1 234,5"), frFR, "true", 0},
    ConvertRow{"EnglishSpace", To::IsNumeric, text("1 234"), enUS, "false", 0},
    ConvertRow{"Exponent", To::IsNumeric, text("1e5"), enUS, "true", 0},
    ConvertRow{"Dollar", To::IsNumeric, text("$5"), enUS, "true", 0},
    ConvertRow{"SignOnly", To::IsNumeric, text("-"), enUS, "false", 0},
    ConvertRow{"TrailingLetters", To::IsNumeric, text("12abc"), enUS, "false", 0},
    ConvertRow{"Empty", To::IsNumeric, QVariant(), enUS, "true", 0},
    ConvertRow{"Null", To::IsNumeric, null, enUS, "false", 0},
    ConvertRow{"Boolean", To::IsNumeric, true, enUS, "true", 0},
    ConvertRow{"Date", To::IsNumeric, QVariant::fromValue(Date(45000.0)), enUS, "false", 0}), rowName);

// Qt's own date types are dates (a QTime on day 0) over the whole range, 1 January 100 to
// 31 December 9999; a null one holds no date.
INSTANTIATE_TEST_SUITE_P(QtDates, Convert, testing::Values(
    ConvertRow{"QDate", To::Date, QDate(2024, 3, 7), enUS, "45358", 0},
    ConvertRow{"QDateFirstDay", To::Date, QDate(100, 1, 1), enUS, "-657434", 0},
    ConvertRow{"QDateBefore1601", To::Date, QDate(1600, 12, 31), enUS, "-109206", 0},
    ConvertRow{"QDateYear99", To::Date, QDate(99, 12, 31), enUS, "", Error::Overflow},
    ConvertRow{"QDateYear10000", To::Date, QDate(10000, 1, 1), enUS, "", Error::Overflow},
    ConvertRow{"QDateNull", To::Date, QDate(), enUS, "", Error::TypeMismatch},
    ConvertRow{"QDateTime", To::Date, QDateTime(QDate(2024, 3, 7), QTime(18, 0)), enUS, "45358.75", 0},
    ConvertRow{"QDateTimeBeforeEpoch", To::Date, QDateTime(QDate(1899, 12, 29), QTime(6, 0)), enUS, "-1.25", 0},
    ConvertRow{"QDateTimeNull", To::Date, QDateTime(), enUS, "", Error::TypeMismatch},
    ConvertRow{"QTimeOnDayZero", To::Date, QTime(18, 0), enUS, "0.75", 0},
    ConvertRow{"QTimeNull", To::Date, QTime(), enUS, "", Error::TypeMismatch},
    ConvertRow{"SerialFirstDay", To::Date, -657434.0, enUS, "-657434", 0},
    ConvertRow{"SerialBeforeFirstDay", To::Date, -657435.0, enUS, "", Error::Overflow},
    ConvertRow{"TextBefore1601", To::Date, text("12/31/1600"), enUS, "-109206", 0},
    ConvertRow{"TextYear100", To::Date, text("1/1/100"), enUS, "-657434", 0},
    ConvertRow{"TextTwoDigitYear", To::Date, text("1/1/30"), enUS, "10959", 0},
    ConvertRow{"StringOfYear100", To::String, QVariant::fromValue(Date(-657434.0)), enUS, "1/1/0100", 0},
    ConvertRow{"StringOf1600Evening", To::String, QVariant::fromValue(Date(-109206.75)), deDE, "31.12.1600 18:00:00", 0},
    ConvertRow{"IsDateQDate", To::IsDate, QDate(1600, 1, 1), enUS, "true", 0},
    ConvertRow{"IsDateQTime", To::IsDate, QTime(1, 2), enUS, "true", 0},
    ConvertRow{"IsDateNullQDate", To::IsDate, QDate(), enUS, "false", 0},
    ConvertRow{"IsDateYear99", To::IsDate, QDate(99, 1, 1), enUS, "false", 0},
    ConvertRow{"IsDateText1066", To::IsDate, text("10/14/1066"), enUS, "true", 0},
    ConvertRow{"IsDateSize", To::IsDate, QSize(1, 2), enUS, "false", 0}), rowName);

struct CompareRow { const char *name; QVariant a; QVariant b; int expected; int error; };
class Compare : public testing::TestWithParam<CompareRow> {};

TEST_P(Compare, OrdersAcrossKinds)
{
    const CompareRow &row = GetParam();
    expectOutcome([&] { return Variant::compare(row.a, row.b, enUS); }, row.error, row.expected);
}

INSTANTIATE_TEST_SUITE_P(Table, Compare, testing::Values(
    CompareRow{"DecimalEqualsDouble", dec("1.5"), 1.5, 0, 0},
    CompareRow{"CurrencyBelowInteger", cur("1"), QVariant::fromValue(qint16(2)), -1, 0},
    CompareRow{"TextAboveNumber", text("10"), 9, 1, 0},
    CompareRow{"DecimalLimitBelowHugeDouble", QVariant::fromValue(Decimal::max()), 1e300, -1, 0},
    CompareRow{"CurrencyLimitHalfStepAbove", cur("922337203685477"), dec("922337203685477.5"), -1, 0},
    CompareRow{"EmptyEqualsZero", QVariant(), 0.0, 0, 0},
    CompareRow{"NullIsAMismatch", null, 1, 0, Error::TypeMismatch},
    CompareRow{"TextIsAMismatch", text("x"), 1, 0, Error::TypeMismatch}), rowName);

TEST(Variant, RegisteredConvertersRoundTripAndFailWithoutThrowing)
{
    Variant::registerTypes();
    Variant::registerTypes(); // a second call changes nothing

    EXPECT_EQ(cur("-12.5").toString(), QStringLiteral("-12.5"));
    EXPECT_EQ(QVariant(QStringLiteral("12.3456")).value<Currency>().raw(), 123456);
    EXPECT_EQ(dec("0.1000000000000000000000000001").toString(),
              QStringLiteral("0.1000000000000000000000000001"));
    EXPECT_DOUBLE_EQ(dec("2.25").toDouble(), 2.25);
    EXPECT_EQ(QVariant(2.5).value<Decimal>().toString(), QStringLiteral("2.5"));

    QVariant bad(QStringLiteral("not a number"));
    EXPECT_FALSE(bad.convert(QMetaType::fromType<Currency>()));
    QVariant tooLarge(1e300);
    EXPECT_FALSE(tooLarge.convert(QMetaType::fromType<Decimal>()));

    EXPECT_EQ(QVariant::fromValue(OleColor(0x80000005u)).value<uint>(), 0x80000005u);
    EXPECT_EQ(QVariant(uint(192)).value<OleColor>().value(), 192u);
    EXPECT_EQ(QVariant::fromValue(Date(45000.5)).toDouble(), 45000.5);
    EXPECT_EQ(QVariant(45000.25).value<Date>().serial(), 45000.25);
}

} // namespace
