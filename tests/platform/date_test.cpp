#include "common/testsupport.h"

#include <tarnwell/clock.h>
#include <tarnwell/date.h>

#include <cmath>
#include <limits>

namespace Tarnwell {
// Failure messages show the fields.
void PrintTo(const Date::Parts &p, std::ostream *os)
{
    *os << p.year << '-' << p.month << '-' << p.day << ' ' << p.hour << ':' << p.minute << ':' << p.second;
}
} // namespace Tarnwell

using Tarnwell::Date;
using TestSupport::rowName;

namespace {

std::string text(const Date::Parts &p) { return testing::PrintToString(p); }

// Every day of the type's range, 1 January 100 to 31 December 9999, against QDate's own calendar
// (proleptic Gregorian, as the host's), stepped one day at a time, and the weekdays cycling on.
TEST(DateCalendar, EveryDayRoundTripsAndAgreesWithQDate)
{
    ASSERT_EQ(Date(Date::MinSerial).parts(), (Date::Parts{100, 1, 1, 0, 0, 0}));
    ASSERT_EQ(Date(Date::MaxSerial).parts(), (Date::Parts{9999, 12, 31, 0, 0, 0}));
    QDate expected = QDate(1899, 12, 30).addDays(qint64(Date::MinSerial));
    int weekday = expected.dayOfWeek() % 7 + 1; // Sunday is 1 for the host, 7 for QDate
    for (auto day = qint64(Date::MinSerial); day <= qint64(Date::MaxSerial);
         ++day, expected = expected.addDays(1), weekday = weekday % 7 + 1) {
        const Date date{double(day)};
        const Date::Parts p = date.parts();
        int y = 0, m = 0, d = 0;
        expected.getDate(&y, &m, &d);
        if (p.year != y || p.month != m || p.day != d) {
            FAIL() << "serial " << day << " gave " << text(p);
        }
        if (Date::fromYmd(p.year, p.month, p.day).serial() != double(day)) {
            FAIL() << "fromYmd of " << text(p) << " did not give back " << day;
        }
        if (date.dayOfWeek() != weekday) {
            FAIL() << "weekday of " << text(p);
        }
    }
}

// The exhaustive test above covers every valid day; these roll over or overflow.
struct YmdCase { const char *name; int y, m, d; double serial; int error = 0; };
class DateFromYmd : public testing::TestWithParam<YmdCase> {};

TEST_P(DateFromYmd, RollsOverOrOverflows)
{
    const YmdCase &c = GetParam();
    TestSupport::expectOutcome([&] { return Date::fromYmd(c.y, c.m, c.d).serial(); }, c.error, c.serial);
}

double ymd(int y, int m, int d) { return Date::fromYmd(y, m, d).serial(); }

INSTANTIATE_TEST_SUITE_P(Table, DateFromYmd, testing::Values(
    YmdCase{"Feb31IsMarch2", 2024, 2, 31, ymd(2024, 3, 2)},
    YmdCase{"Feb29NonLeapIsMarch1", 2023, 2, 29, ymd(2023, 3, 1)},
    YmdCase{"Month13", 2023, 13, 1, ymd(2024, 1, 1)}, YmdCase{"Month0IsDecember", 2024, 0, 15, ymd(2023, 12, 15)},
    YmdCase{"Day0IsLastOfPrevious", 2024, 3, 0, ymd(2024, 2, 29)},
    YmdCase{"NegativeDay", 2024, 3, -1, ymd(2024, 2, 28)}, YmdCase{"NegativeMonth", 2024, -1, 1, ymd(2023, 11, 1)},
    YmdCase{"Day366", 2023, 1, 366, ymd(2024, 1, 1)}, YmdCase{"Year0Is2000", 0, 1, 1, ymd(2000, 1, 1)},
    YmdCase{"Year30Is1930", 30, 6, 1, ymd(1930, 6, 1)}, YmdCase{"Year99Is1999", 99, 12, 31, ymd(1999, 12, 31)},
    YmdCase{"Year99Month13", 99, 13, 1, ymd(2000, 1, 1)},
    YmdCase{"Year100IsItself", 100, 1, 1, -657434}, YmdCase{"LastDayOf1600", 1600, 12, 31, -109206},
    YmdCase{"Leap1600", 1600, 2, 29, -109512}, YmdCase{"NoLeap1700", 1700, 2, 29, -72987},
    YmdCase{"MonthBackIntoYear100", 101, -11, 1, -657434}, YmdCase{"DayBackIntoYear100", 101, 1, -364, -657434},
    YmdCase{"Year99Month0IsDecember1998", 99, 0, 1, 36130},
    YmdCase{"DayZeroOfFirst", 100, 1, 0, 0, 6}, YmdCase{"MonthZeroOfFirst", 100, 0, 31, 0, 6},
    YmdCase{"YearAfterLast", 10000, 1, 1, 0, 6}, YmdCase{"DayAfterLast", 9999, 12, 32, 0, 6},
    YmdCase{"NegativeYear", -5, 1, 1, 0, 6}, YmdCase{"NegativeYearRollsForward", -1, 13, 1, 0, 6},
    YmdCase{"HugeDay", 2024, 1, 2147483647, 0, 6}, YmdCase{"HugeYearAndMonth", 2147483647, 2147483647, 1, 0, 6}),
    rowName);

struct SerialCase { const char *name; double serial; Date::Parts parts; };
class DateParts : public testing::TestWithParam<SerialCase> {};

TEST_P(DateParts, SplitsTheSerial)
{
    EXPECT_EQ(Date(GetParam().serial).parts(), GetParam().parts);
}

INSTANTIATE_TEST_SUITE_P(Table, DateParts, testing::Values(
    SerialCase{"Zero", 0, {1899, 12, 30, 0, 0, 0}},
    SerialCase{"BeforeEpochFractionCountsForward", -1.25, {1899, 12, 29, 6, 0, 0}},
    SerialCase{"NegativeHalfIsDayZeroNoon", -0.5, {1899, 12, 30, 12, 0, 0}},
    SerialCase{"AlmostMidnightRoundsUp", 0.99999999, {1899, 12, 31, 0, 0, 0}},
    SerialCase{"AlmostMidnightBeforeEpoch", -1.99999999, {1899, 12, 30, 0, 0, 0}},
    SerialCase{"HalfSecondRoundsUp", 1.0 + 43200.5 / 86400, {1899, 12, 31, 12, 0, 1}},
    SerialCase{"Evening", 45358.75, {2024, 3, 7, 18, 0, 0}},
    SerialCase{"LastSecond", 2958465 + 86399.0 / 86400, {9999, 12, 31, 23, 59, 59}},
    SerialCase{"PastTheEndClamps", 2958465.9999999999, {9999, 12, 31, 23, 59, 59}},
    SerialCase{"FarBelowClamps", -1e300, {100, 1, 1, 0, 0, 0}},
    SerialCase{"FirstDayEvening", -657434.75, {100, 1, 1, 18, 0, 0}},
    SerialCase{"DayBeforeFirstClamps", -657435.5, {100, 1, 1, 0, 0, 0}},
    SerialCase{"Before1601", -109206.5, {1600, 12, 31, 12, 0, 0}},
    SerialCase{"NaNReadsAsZero", std::numeric_limits<double>::quiet_NaN(), {1899, 12, 30, 0, 0, 0}}), rowName);

struct HmsCase { const char *name; int h, n, s; Date::Parts parts; };
class DateFromHms : public testing::TestWithParam<HmsCase> {};

TEST_P(DateFromHms, Carries)
{
    const HmsCase &c = GetParam();
    EXPECT_EQ(Date::fromHms(c.h, c.n, c.s).parts(), c.parts);
}

INSTANTIATE_TEST_SUITE_P(Table, DateFromHms, testing::Values(
    HmsCase{"Plain", 14, 30, 5, {1899, 12, 30, 14, 30, 5}},
    HmsCase{"HourCarriesIntoDay", 25, 0, 0, {1899, 12, 31, 1, 0, 0}},
    HmsCase{"SecondsCarry", 0, 0, 61, {1899, 12, 30, 0, 1, 1}},
    HmsCase{"NegativeSecondBorrowsFromDay", 0, 0, -1, {1899, 12, 29, 23, 59, 59}},
    HmsCase{"NegativeMinuteBorrows", 1, -30, 0, {1899, 12, 30, 0, 30, 0}}), rowName);

TEST(DateFromHmsValue, SerialOfCarriedHourAndOverflow)
{
    EXPECT_DOUBLE_EQ(Date::fromHms(25, 0, 0).serial(), 1.0 + 1.0 / 24);
    EXPECT_DOUBLE_EQ(Date::fromHms(0, 0, -1).serial(), -1.0 - 86399.0 / 86400);
    EXPECT_EQ(Date::fromHms(23, 59, 59).serial(), 86399.0 / 86400);
    EXPECT_ERROR(Date::fromHms(2147483647, 2147483647, 0), 6);
}

struct QtCase { const char *name; QDateTime dateTime; };
class DateQt : public testing::TestWithParam<QtCase> {};

TEST_P(DateQt, RoundTripsThroughQDateTime)
{
    const QDateTime &dt = GetParam().dateTime;
    const Date d = Date::fromQDateTime(dt);
    EXPECT_EQ(d.toQDateTime(), dt);
    EXPECT_EQ(d.datePart().toQDate(), dt.date());
    EXPECT_EQ(d.timePart().toQTime(), dt.time());
}

INSTANTIATE_TEST_SUITE_P(Table, DateQt, testing::Values(
    QtCase{"BeforeEpoch", QDateTime(QDate(1899, 12, 29), QTime(6, 0))},
    QtCase{"LastSecondOfADay", QDateTime(QDate(2024, 3, 7), QTime(23, 59, 59))},
    QtCase{"FirstDay", QDateTime(QDate(100, 1, 1), QTime(0, 0, 1))},
    QtCase{"LastDayOf1600", QDateTime(QDate(1600, 12, 31), QTime(12, 0))},
    QtCase{"Before1800", QDateTime(QDate(1750, 7, 4), QTime(12, 34, 56))}), rowName);

TEST(DateQtEdges, SerialOfATimeBeforeTheEpochAndRefusals)
{
    EXPECT_DOUBLE_EQ(Date::fromQDateTime(QDateTime(QDate(1899, 12, 29), QTime(6, 0))).serial(), -1.25);
    EXPECT_ERROR(Date::fromQDate(QDate()), 13);
    EXPECT_ERROR(Date::fromQDate(QDate(99, 12, 31)), 6);
    EXPECT_ERROR(Date::fromQDate(QDate(10000, 1, 1)), 6);
    EXPECT_ERROR(Date::fromQDateTime(QDateTime(QDate(99, 12, 31), QTime(23, 59))), 6);
    EXPECT_EQ(Date::fromQDate(QDate(100, 1, 1)).serial(), Date::MinSerial);
    EXPECT_FALSE(Date(Date::MinSerial - 1).toQDate().isValid());
    EXPECT_FALSE(Date(std::numeric_limits<double>::infinity()).toQDate().isValid());
}

// A QTime is a time of day on day 0, to the millisecond.
TEST(DateQtEdges, TimeIsTheFractionOfDayZero)
{
    EXPECT_EQ(Date::fromQTime(QTime(18, 0)).serial(), 0.75);
    EXPECT_EQ(Date::fromQTime(QTime(0, 0)).serial(), 0.0);
    EXPECT_DOUBLE_EQ(Date::fromQTime(QTime(0, 0, 0, 864)).serial(), 0.00001);
    EXPECT_EQ(Date::fromQTime(QTime(23, 59, 59)).toQTime(), QTime(23, 59, 59));
    EXPECT_ERROR(Date::fromQTime(QTime()), 13);
}

TEST(DateClock, PinnedClockGivesTodayAndNow)
{
    Tarnwell::Clock::pin(QDateTime(QDate(2024, 3, 7), QTime(18, 0)));
    EXPECT_EQ(Date::today().serial(), 45358);
    EXPECT_EQ(Date::now().serial(), 45358.75);
    Tarnwell::Clock::unpin();
    EXPECT_NEAR(double(Tarnwell::Clock::now().secsTo(QDateTime::currentDateTime())), 0, 5);
}

// ---- Text to date -----------------------------------------------------------------------------

struct ParseCase { const char *name, *locale, *text; bool valid; Date::Parts parts; };

class DateParse : public testing::TestWithParam<ParseCase>
{
protected:
    void SetUp() override { Tarnwell::Clock::pin(QDateTime(QDate(2024, 6, 15), QTime(9, 0))); }
    void TearDown() override { Tarnwell::Clock::unpin(); }
};

TEST_P(DateParse, ReadsTextLikeTheHost)
{
    const ParseCase &c = GetParam();
    const QLocale locale(QString::fromLatin1(c.locale));
    const std::optional<Date> d = Date::parse(QString::fromUtf8(c.text), locale);
    ASSERT_EQ(d.has_value(), c.valid) << c.text;
    EXPECT_EQ(Date::isDateText(QString::fromUtf8(c.text), locale), c.valid);
    if (c.valid) {
        EXPECT_EQ(d->parts(), c.parts);
    }
}

constexpr Date::Parts Mar7{2024, 3, 7, 0, 0, 0};

INSTANTIATE_TEST_SUITE_P(Table, DateParse, testing::Values(
    ParseCase{"UsSlashes", "en_US", "3/7/2024", true, Mar7},
    ParseCase{"UsDots", "en_US", "3.7.2024", true, Mar7},
    ParseCase{"UsBlanksAround", "en_US", "  3/7/2024  ", true, Mar7},
    ParseCase{"UsTwoDigitYear30", "en_US", "3/7/30", true, {1930, 3, 7, 0, 0, 0}},
    ParseCase{"UsMonthAbove12", "en_US", "13/7/2024", false, {}},
    ParseCase{"UsFeb29NonLeap", "en_US", "2/29/2023", false, {}},
    ParseCase{"UsFeb29Leap", "en_US", "2/29/2024", true, {2024, 2, 29, 0, 0, 0}},
    ParseCase{"UsDayZero", "en_US", "3/0/2024", false, {}},
    ParseCase{"YearFirst", "en_US", "2024-03-07", true, Mar7},
    ParseCase{"UsMonthDayCurrentYear", "en_US", "3/7", true, Mar7},
    ParseCase{"UsMonthYear", "en_US", "3/2024", true, {2024, 3, 1, 0, 0, 0}},
    ParseCase{"LastDay", "en_US", "12/31/9999", true, {9999, 12, 31, 0, 0, 0}},
    ParseCase{"AfterRange", "en_US", "1/1/10000", false, {}},
    ParseCase{"Year1600", "en_US", "12/31/1600", true, {1600, 12, 31, 0, 0, 0}},
    ParseCase{"FirstDay", "en_US", "1/1/100", true, {100, 1, 1, 0, 0, 0}},
    ParseCase{"FirstDayFourDigits", "en_US", "1/1/0100", true, {100, 1, 1, 0, 0, 0}},
    ParseCase{"ThreeDigitYearFirst", "en_US", "999-12-31", true, {999, 12, 31, 0, 0, 0}},
    ParseCase{"Year99WrittenLongIsStill1999", "en_US", "1/1/0099", true, {1999, 1, 1, 0, 0, 0}},
    ParseCase{"Year29IsThisCentury", "en_US", "1/1/29", true, {2029, 1, 1, 0, 0, 0}},
    ParseCase{"Year00IsThisCentury", "en_US", "2/29/00", true, {2000, 2, 29, 0, 0, 0}},
    ParseCase{"MonthNameYear1066", "en_US", "14 Oct 1066", true, {1066, 10, 14, 0, 0, 0}},
    ParseCase{"NoLeapDay1500", "en_US", "2/29/1500", false, {}},
    ParseCase{"UsMonthName", "en_US", "March 7, 2024", true, Mar7},
    ParseCase{"UsMonthAbbrev", "en_US", "7-Mar-2024", true, Mar7},
    ParseCase{"UsMonthNameLowerCase", "en_US", "7 mar 2024", true, Mar7},
    ParseCase{"UsMonthYearName", "en_US", "Mar 2024", true, {2024, 3, 1, 0, 0, 0}},
    ParseCase{"UsWeekdayIgnored", "en_US", "Thursday, March 7, 2024", true, Mar7},
    ParseCase{"UsMonthNameDayOnly", "en_US", "Mar 7", true, Mar7},
    ParseCase{"UsMonthNameFeb30", "en_US", "30 Feb 2024", false, {}},
    ParseCase{"UsDateAndTime", "en_US", "3/7/2024 14:30", true, {2024, 3, 7, 14, 30, 0}},
    ParseCase{"UsDateAndTimePm", "en_US", "3/7/2024 2:30:15 PM", true, {2024, 3, 7, 14, 30, 15}},
    ParseCase{"UsTimeBeforeDate", "en_US", "2:30 PM 3/7/2024", true, {2024, 3, 7, 14, 30, 0}},
    ParseCase{"TimeAlone", "en_US", "14:30:15", true, {1899, 12, 30, 14, 30, 15}},
    ParseCase{"TimeAloneAm12", "en_US", "12:15 AM", true, {1899, 12, 30, 0, 15, 0}},
    ParseCase{"TimeAlonePm12", "en_US", "12:15 PM", true, {1899, 12, 30, 12, 15, 0}},
    ParseCase{"TimeNoSpaceMarker", "en_US", "10:30pm", true, {1899, 12, 30, 22, 30, 0}},
    ParseCase{"TimeLetterMarker", "en_US", "10:30 p", true, {1899, 12, 30, 22, 30, 0}},
    ParseCase{"HourWithMarker", "en_US", "3 PM", true, {1899, 12, 30, 15, 0, 0}},
    ParseCase{"Hour13WithPmStays", "en_US", "13:30 PM", true, {1899, 12, 30, 13, 30, 0}},
    ParseCase{"Hour24", "en_US", "24:00:00", false, {}},
    ParseCase{"Minute60", "en_US", "12:60", false, {}},
    ParseCase{"Second60", "en_US", "12:00:60", false, {}},
    ParseCase{"HalfFilledMask", "en_US", "1_:__:__ AM", false, {}},
    ParseCase{"TimeInsideDate", "en_US", "3/7 10:30 2024", false, {}},
    ParseCase{"Empty", "en_US", "", false, {}},
    ParseCase{"LoneNumber", "en_US", "42", false, {}},
    ParseCase{"Garbage", "en_US", "hello", false, {}},
    ParseCase{"TrailingJunk", "en_US", "3/7/2024x", false, {}},
    ParseCase{"DoubleSeparator", "en_US", "3//7/2024", false, {}},
    ParseCase{"LeadingSeparator", "en_US", "/3/7/2024", false, {}},
    ParseCase{"FourNumbers", "en_US", "1/2/3/4", false, {}},
    ParseCase{"HugeNumber", "en_US", "3/7/99999999999999", false, {}},
    ParseCase{"TwoMonthNames", "en_US", "Mar Apr 2024", false, {}},
    ParseCase{"GermanDots", "de_DE", "7.3.2024", true, Mar7},
    ParseCase{"GermanTrailingDot", "de_DE", "7.3.", true, Mar7},
    ParseCase{"GermanMonthName", "de_DE", "7. März 2024", true, Mar7},
    ParseCase{"GermanAbbrevWithDot", "de_DE", "7. Sept. 2024", true, {2024, 9, 7, 0, 0, 0}},
    ParseCase{"GermanEnglishNameStillRead", "de_DE", "7 March 2024", true, Mar7},
    ParseCase{"GermanDayAbove12", "de_DE", "13.7.2024", true, {2024, 7, 13, 0, 0, 0}},
    ParseCase{"GermanMonthAbove12", "de_DE", "7.13.2024", false, {}},
    ParseCase{"GermanWithTime", "de_DE", "7.3.2024 18:05", true, {2024, 3, 7, 18, 5, 0}},
    ParseCase{"BritishOrder", "en_GB", "07/03/2024", true, Mar7},
    ParseCase{"BritishApril31", "en_GB", "31/04/2024", false, {}},
    ParseCase{"BritishSeptAbbrev", "en_GB", "7 Sept 2024", true, {2024, 9, 7, 0, 0, 0}}), rowName);

} // namespace
