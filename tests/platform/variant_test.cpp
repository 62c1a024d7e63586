#include <tarnwell/error.h>
#include <tarnwell/olecolor.h>
#include <tarnwell/variant.h>

#include <gtest/gtest.h>

#include <QSize>

#include <cfloat>
#include <functional>
#include <string>

using namespace Tarnwell;

namespace {

const QLocale enUS(QLocale::English, QLocale::UnitedStates);
const QLocale deDE(QLocale::German, QLocale::Germany);
const QLocale frFR(QLocale::French, QLocale::France);

int errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const Error &e) {
        return e.number();
    }
    return 0;
}

QVariant text(const char *utf8) { return QString::fromUtf8(utf8); }
QVariant cur(const char *t) { return QVariant::fromValue(Currency::parse(t, QLocale::c())); }
QVariant dec(const char *t) { return QVariant::fromValue(Decimal::parse(t, QLocale::c())); }

template<typename Row>
std::string rowName(const testing::TestParamInfo<Row> &info)
{
    return info.param.name;
}

struct WholeRow {
    const char *name;
    QVariant value;
    qint64 expected;
    int error;
    bool toLong = false;
};

class ToWhole : public testing::TestWithParam<WholeRow> {};

TEST_P(ToWhole, RoundsHalfEvenAndChecksTheRange)
{
    const WholeRow &row = GetParam();
    qint64 value = 0;
    EXPECT_EQ(errorOf([&] {
        value = row.toLong ? Variant::toLong(row.value, enUS) : Variant::toInteger(row.value, enUS);
    }), row.error);
    if (!row.error) {
        EXPECT_EQ(value, row.expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, ToWhole, testing::Values(
    WholeRow{"TwoAndAHalf", 2.5, 2, 0},
    WholeRow{"ThreeAndAHalf", 3.5, 4, 0},
    WholeRow{"MinusTwoAndAHalf", -2.5, -2, 0},
    WholeRow{"TieAboveTheTopOverflows", 32767.5, 0, Error::Overflow},
    WholeRow{"TieAtTheBottom", -32768.5, -32768, 0},
    WholeRow{"TextTie", text("2.5"), 2, 0},
    WholeRow{"TextWithGroupsAndBlanks", text(" 1,234 "), 1234, 0},
    WholeRow{"TextTooLarge", text("32768"), 0, Error::Overflow},
    WholeRow{"TextNotANumber", text("abc"), 0, Error::TypeMismatch},
    WholeRow{"EmptyIsZero", QVariant(), 0, 0},
    WholeRow{"NullIsAMismatch", Variant::null(), 0, Error::TypeMismatch},
    WholeRow{"TrueIsMinusOne", true, -1, 0},
    WholeRow{"CurrencyTie", cur("2.5"), 2, 0},
    WholeRow{"DecimalTie", dec("3.5"), 4, 0},
    WholeRow{"LongTooLarge", QVariant::fromValue(qint32(40000)), 0, Error::Overflow},
    WholeRow{"NotANumberDouble", std::nan(""), 0, Error::Overflow},
    WholeRow{"OtherType", QVariant(QSize(1, 2)), 0, Error::TypeMismatch},
    WholeRow{"LongTop", text("2147483647"), 2147483647, 0, true},
    WholeRow{"LongBottom", text("-2147483648"), -2147483648LL, 0, true},
    WholeRow{"LongTieAboveTheTop", 2147483647.5, 0, Error::Overflow, true},
    WholeRow{"LongExponent", text("1.5E3"), 1500, 0, true},
    WholeRow{"LongHugeExponent", text("1E300"), 0, Error::Overflow, true}), rowName<WholeRow>);

struct RealRow {
    const char *name;
    QVariant value;
    QLocale locale;
    double expected;
    int error;
    bool single = false;
};

class ToReal : public testing::TestWithParam<RealRow> {};

TEST_P(ToReal, ReadsNumbersAndLocaleTextsRoundingOnce)
{
    const RealRow &row = GetParam();
    double value = 0;
    EXPECT_EQ(errorOf([&] {
        value = row.single ? Variant::toSingle(row.value, row.locale)
                           : Variant::toDouble(row.value, row.locale);
    }), row.error);
    if (!row.error) {
        EXPECT_EQ(value, row.single ? double(float(row.expected)) : row.expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, ToReal, testing::Values(
    RealRow{"PointOneIsTheNearestDouble", text("0.1"), enUS, 0.1, 0},
    RealRow{"Exponent", text("1E5"), enUS, 1e5, 0},
    RealRow{"German", text("1.234,5"), deDE, 1234.5, 0},
    RealRow{"LeadingDollar", text("$5"), enUS, 5, 0},
    RealRow{"Overflow", text("1e400"), enUS, 0, Error::Overflow},
    RealRow{"Underflow", text("1e-400"), enUS, 0, 0},
    RealRow{"Letters", text("x"), enUS, 0, Error::TypeMismatch},
    RealRow{"Null", Variant::null(), enUS, 0, Error::TypeMismatch},
    RealRow{"Currency", cur("922337203685477.5807"), enUS, 922337203685477.5807, 0},
    RealRow{"Decimal", dec("0.3"), enUS, 0.3, 0},
    RealRow{"True", true, enUS, -1, 0},
    RealRow{"SinglePointOne", text("0.1"), enUS, double(0.1f), 0, true},
    RealRow{"SingleLargest", text("3.4028235E+38"), enUS, double(FLT_MAX), 0, true},
    RealRow{"SingleTextTooLarge", text("3.5E+38"), enUS, 0, Error::Overflow, true},
    RealRow{"SingleDoubleTooLarge", 1e39, enUS, 0, Error::Overflow, true}), rowName<RealRow>);

struct ExactRow {
    const char *name;
    QVariant value;
    const char *expected; // exact C-locale text
    int error;
    bool decimal = false;
};

class ToExact : public testing::TestWithParam<ExactRow> {};

TEST_P(ToExact, ConvertsExactly)
{
    const ExactRow &row = GetParam();
    QString value;
    EXPECT_EQ(errorOf([&] {
        value = row.decimal ? Variant::toDecimal(row.value, enUS).toString()
                            : Variant::toCurrency(row.value, enUS).toString();
    }), row.error);
    if (!row.error) {
        EXPECT_EQ(value, QString(row.expected));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, ToExact, testing::Values(
    ExactRow{"TextLimit", text("922337203685477"), "922337203685477", 0},
    ExactRow{"TextWithSymbol", text("$1,234.5678"), "1234.5678", 0},
    ExactRow{"TextTooLarge", text("1e15"), nullptr, Error::Overflow},
    ExactRow{"Double", 1.5, "1.5", 0},
    ExactRow{"Decimal", dec("0.12345"), "0.1234", 0},
    ExactRow{"NotANumber", text("1.2.3"), nullptr, Error::TypeMismatch},
    ExactRow{"DecimalSingleSevenDigits", 0.1f, "0.1", 0, true},
    ExactRow{"DecimalDoubleFifteenDigits", 0.1 + 0.2, "0.3", 0, true},
    ExactRow{"DecimalCurrency", cur("-12.3456"), "-12.3456", 0, true},
    ExactRow{"DecimalLargeUnsigned", QVariant(qulonglong(18446744073709551615ULL)),
             "18446744073709551615", 0, true},
    ExactRow{"DecimalTextLimit", text("-79228162514264337593543950335"),
             "-79228162514264337593543950335", 0, true},
    ExactRow{"DecimalTextPastLimit", text("79228162514264337593543950336"), nullptr, 6, true},
    ExactRow{"DecimalNull", Variant::null(), nullptr, Error::TypeMismatch, true}), rowName<ExactRow>);

struct StringRow {
    const char *name;
    QVariant value;
    QLocale locale;
    const char *expected;
    int error;
};

class ToString : public testing::TestWithParam<StringRow> {};

TEST_P(ToString, ShowsTheHostsDigits)
{
    const StringRow &row = GetParam();
    QString value;
    EXPECT_EQ(errorOf([&] { value = Variant::toString(row.value, row.locale); }), row.error);
    if (!row.error) {
        EXPECT_EQ(value, QString::fromUtf8(row.expected));
    }
}

INSTANTIATE_TEST_SUITE_P(Table, ToString, testing::Values(
    StringRow{"SumOfTenths", 0.1 + 0.2, enUS, "0.3", 0},
    StringRow{"Third", 1.0 / 3, enUS, "0.333333333333333", 0},
    StringRow{"FifteenDigitsPlain", 123456789012345.0, enUS, "123456789012345", 0},
    StringRow{"SixteenDigitsScientific", 1e15, enUS, "1E+15", 0},
    StringRow{"SmallPlain", 0.0001, enUS, "0.0001", 0},
    StringRow{"SmallScientific", 0.00001, enUS, "1E-05", 0},
    StringRow{"SingleSevenDigits", 0.1f, enUS, "0.1", 0},
    StringRow{"SingleScientific", 12345678.0f, enUS, "1.234568E+07", 0},
    StringRow{"CurrencyExact", cur("922337203685477.5807"), enUS, "922337203685477.5807", 0},
    StringRow{"CurrencyGerman", cur("12.5"), deDE, "12,5", 0},
    StringRow{"DecimalExact", dec("0.1000000000000000000000000001"), enUS,
              "0.1000000000000000000000000001", 0},
    StringRow{"True", true, enUS, "True", 0},
    StringRow{"Empty", QVariant(), enUS, "", 0},
    StringRow{"Null", Variant::null(), enUS, "", Error::TypeMismatch}), rowName<StringRow>);

struct NumericRow {
    const char *name;
    QVariant value;
    QLocale locale;
    bool expected;
};

class IsNumeric : public testing::TestWithParam<NumericRow> {};

TEST_P(IsNumeric, AcceptsWhatTheConversionsRead)
{
    const NumericRow &row = GetParam();
    EXPECT_EQ(Variant::isNumeric(row.value, row.locale), row.expected);
    // Whatever counts as numeric must convert to Double without a type mismatch.
    if (row.expected) {
        EXPECT_NE(errorOf([&] { Variant::toDouble(row.value, row.locale); }), 13);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, IsNumeric, testing::Values(
    NumericRow{"Digits", text("12"), enUS, true},
    NumericRow{"EnglishGroups", text("1,234.5"), enUS, true},
    NumericRow{"GermanGroups", text("1.234,5"), deDE, true},
    NumericRow{"GermanTextInEnglish", text("1.234,5"), enUS, false},
    NumericRow{"FrenchSpace", text("1 234,5"), frFR, true},
    NumericRow{"EnglishSpace", text("1 234"), enUS, false},
    NumericRow{"Exponent", text("1e5"), enUS, true},
    NumericRow{"Dollar", text("$5"), enUS, true},
    NumericRow{"SignOnly", text("-"), enUS, false},
    NumericRow{"TrailingLetters", text("12abc"), enUS, false},
    NumericRow{"Empty", QVariant(), enUS, true},
    NumericRow{"Null", Variant::null(), enUS, false},
    NumericRow{"Boolean", true, enUS, true},
    NumericRow{"Date", QVariant::fromValue(Date(45000.0)), enUS, false}), rowName<NumericRow>);

struct CompareRow {
    const char *name;
    QVariant a;
    QVariant b;
    int expected;
    int error;
};

class Compare : public testing::TestWithParam<CompareRow> {};

TEST_P(Compare, OrdersAcrossKinds)
{
    const CompareRow &row = GetParam();
    int value = 99;
    EXPECT_EQ(errorOf([&] { value = Variant::compare(row.a, row.b, enUS); }), row.error);
    if (!row.error) {
        EXPECT_EQ(value, row.expected);
    }
}

INSTANTIATE_TEST_SUITE_P(Table, Compare, testing::Values(
    CompareRow{"DecimalEqualsDouble", dec("1.5"), 1.5, 0, 0},
    CompareRow{"CurrencyBelowInteger", cur("1"), QVariant::fromValue(qint16(2)), -1, 0},
    CompareRow{"TextAboveNumber", text("10"), 9, 1, 0},
    CompareRow{"DecimalLimitBelowHugeDouble", QVariant::fromValue(Decimal::max()), 1e300, -1, 0},
    CompareRow{"CurrencyLimitHalfStepAbove", cur("922337203685477"), dec("922337203685477.5"),
               -1, 0},
    CompareRow{"EmptyEqualsZero", QVariant(), 0.0, 0, 0},
    CompareRow{"NullIsAMismatch", Variant::null(), 1, 0, Error::TypeMismatch},
    CompareRow{"TextIsAMismatch", text("x"), 1, 0, Error::TypeMismatch}), rowName<CompareRow>);

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

TEST(Variant, DatesShowTheLocalesShortDateWithFourDigitYears)
{
    EXPECT_EQ(Variant::toString(QVariant::fromValue(Date(45000.0)), enUS), QStringLiteral("3/15/2023"));
    EXPECT_EQ(Variant::toDate(45000.5, enUS).serial(), 45000.5);
    EXPECT_EQ(errorOf([] { Variant::toDate(1e10, enUS); }), Error::Overflow);
    EXPECT_EQ(errorOf([] { Variant::toDate(text("no date"), enUS); }), Error::TypeMismatch);
}

} // namespace
