#include "common/testsupport.h"
#include "platform/dateformat.h"

using Tarnwell::Date;
using Tarnwell::DateFormat;

namespace {

struct FormatCase {
    const char *name;
    const char *locale;
    double serial;
    const char *pattern;
    const char *expected;
};

// Thursday 7 March 2024, 14:05:09; and 09:03:04 on 1 January 2024.
const double afternoon = Date::fromYmd(2024, 3, 7).serial() + Date::fromHms(14, 5, 9).serial();
const double morning = Date::fromYmd(2024, 1, 1).serial() + Date::fromHms(9, 3, 4).serial();
const double midnight = Date::fromYmd(2024, 3, 7).serial();
const double noon = Date::fromYmd(2024, 3, 7).serial() + 0.5;
const double beforeEpoch = -1.25; // 29 December 1899, 06:00
const double year100 = -657434;         // Friday 1 January 100, the first day a date holds
const double leap1600 = -109512.75; // Tuesday 29 February 1600, 18:00 (the fraction counts forward)

class DateFormatTable : public testing::TestWithParam<FormatCase> {};

TEST_P(DateFormatTable, Formats)
{
    const FormatCase &c = GetParam();
    const QString text = DateFormat::format(Date(c.serial), QString::fromUtf8(c.pattern),
                                            QLocale(QString::fromLatin1(c.locale)));
    EXPECT_EQ(text.toStdString(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Table, DateFormatTable, testing::Values(
    FormatCase{"DayMonthYear", "en_US", afternoon, "dd/mm/yyyy", "07/03/2024"},
    FormatCase{"Unpadded", "en_US", afternoon, "d/m/yy", "7/3/24"},
    FormatCase{"DisplayDefault", "en_US", afternoon, "dd/mmm/yyyy", "07/Mar/2024"},
    FormatCase{"YearMonthDayDigits", "en_US", afternoon, "yyyymmdd", "20240307"},
    FormatCase{"FullMonth", "en_US", afternoon, "mmmm d, yyyy", "March 7, 2024"},
    FormatCase{"UpperCaseTokens", "en_US", afternoon, "DD/MMM/YYYY", "07/Mar/2024"},
    FormatCase{"GermanMonth", "de_DE", afternoon, "dd/mmm/yyyy", "07/Mär/2024"},
    FormatCase{"GermanFullMonth", "de_DE", afternoon, "d. mmmm yyyy", "7. März 2024"},
    FormatCase{"Weekdays", "en_US", afternoon, "ddd dddd w", "Thu Thursday 5"},
    FormatCase{"GermanWeekday", "de_DE", afternoon, "dddd", "Donnerstag"},
    FormatCase{"QuarterDayOfYearWeek", "en_US", afternoon, "q y ww", "1 67 10"},
    FormatCase{"FirstWeek", "en_US", morning, "ww y", "1 1"},
    FormatCase{"HostTimeDigits", "en_US", afternoon, "HHMMSS", "140509"},
    FormatCase{"HostTimeDigitsAmPm", "en_US", afternoon, "HHMMSS AM/PM", "020509 PM"},
    FormatCase{"HostTimeDigitsMorning", "en_US", morning, "HHMMSS AM/PM", "090304 AM"},
    FormatCase{"MinutesAfterHour", "en_US", afternoon, "h:mm", "14:05"},
    FormatCase{"MinutesBeforeSecond", "en_US", afternoon, "mm:ss", "05:09"},
    FormatCase{"MonthStillMonthAfterDay", "en_US", afternoon, "dd mm", "07 03"},
    FormatCase{"NMinutes", "en_US", afternoon, "hh:nn:ss", "14:05:09"},
    FormatCase{"LowerMarker", "en_US", afternoon, "h:nn am/pm", "2:05 pm"},
    FormatCase{"LetterMarker", "en_US", morning, "h:nn A/P", "9:03 A"},
    FormatCase{"LocaleMarker", "en_GB", afternoon, "h:nn AMPM", "2:05 pm"},
    FormatCase{"MidnightIs12Am", "en_US", midnight, "hh:nn AM/PM", "12:00 AM"},
    FormatCase{"NoonIs12Pm", "en_US", noon, "hh:nn AM/PM", "12:00 PM"},
    FormatCase{"QuotedLiteral", "en_US", afternoon, "\"day\" d", "day 7"},
    FormatCase{"EscapedLiteral", "en_US", afternoon, "\\d\\a\\y d", "day 7"},
    FormatCase{"UnterminatedQuote", "en_US", afternoon, "d \"rest", "7 rest"},
    FormatCase{"TrailingBackslash", "en_US", afternoon, "d\\", "7"},
    FormatCase{"OtherLettersLiteral", "en_US", afternoon, "d Xo", "7 Xo"},
    FormatCase{"BeforeEpoch", "en_US", beforeEpoch, "yyyy-mm-dd hh:nn", "1899-12-29 06:00"},
    FormatCase{"AlmostMidnightRounds", "en_US", 45358.99999999, "dd hh:nn:ss", "08 00:00:00"},
    FormatCase{"ShortDate", "en_US", afternoon, "Short Date", "3/7/2024"},
    FormatCase{"ShortDateGerman", "de_DE", afternoon, "Short Date", "07.03.2024"},
    FormatCase{"ShortDateBritish", "en_GB", afternoon, "short date", "07/03/2024"},
    FormatCase{"ShortDateToken", "en_US", afternoon, "ddddd", "3/7/2024"},
    FormatCase{"MediumDate", "en_US", afternoon, "Medium Date", "07-Mar-24"},
    FormatCase{"LongDate", "en_US", afternoon, "Long Date", "Thursday, March 7, 2024"},
    FormatCase{"LongTime", "en_US", afternoon, "Long Time", "2:05:09 PM"},
    FormatCase{"LongTimeGerman", "de_DE", afternoon, "Long Time", "14:05:09"},
    FormatCase{"MediumTime", "en_US", afternoon, "Medium Time", "02:05 PM"},
    FormatCase{"ShortTime", "en_US", afternoon, "Short Time", "14:05"},
    FormatCase{"GeneralBoth", "en_US", afternoon, "General Date", "3/7/2024 2:05:09 PM"},
    FormatCase{"GeneralDateOnly", "en_US", midnight, "", "3/7/2024"},
    FormatCase{"GeneralTimeOnly", "en_US", 0.75, "c", "6:00:00 PM"},
    FormatCase{"Year100Digits", "en_US", year100, "dd/mm/yyyy", "01/01/0100"},
    FormatCase{"Year100TwoDigitYear", "en_US", year100, "d/m/yy", "1/1/00"},
    FormatCase{"Year100WeekdayAndWeeks", "en_US", year100, "dddd w ww y q", "Friday 6 1 1 1"},
    FormatCase{"Year100ShortDate", "en_US", year100, "Short Date", "1/1/0100"},
    FormatCase{"Year100General", "de_DE", year100, "c", "01.01.0100"},
    FormatCase{"Leap1600Display", "en_US", leap1600, "dd/mmm/yyyy hh:nn", "29/Feb/1600 18:00"},
    FormatCase{"Leap1600DayOfYearWeek", "en_US", leap1600, "y ww", "60 10"},
    FormatCase{"Leap1600LongDate", "en_US", leap1600, "Long Date", "Tuesday, February 29, 1600"}), TestSupport::rowName);

TEST(DateFormatRobustness, NoPatternOrSerialCrashes)
{
    const char *patterns[] = {"\"", "\\", "mmmmmmmm", "yyyyyyy", "dddddddd", "AM/", "a/", "hhhh:mmmm",
                              "nnn sss", "\"\"\"\"", "%%%"};
    const double serials[] = {Date::MinSerial, Date::MaxSerial + 0.9999, -1e308, 1e308,
                              std::numeric_limits<double>::quiet_NaN()};
    for (const char *p : patterns) {
        for (double s : serials)
            EXPECT_NO_THROW(DateFormat::format(Date(s), QString::fromLatin1(p))) << p;
    }
    EXPECT_EQ(DateFormat::format(Date(), u"mmmmmmmm"_qs).toStdString(), "DecemberDecember");
}

} // namespace
