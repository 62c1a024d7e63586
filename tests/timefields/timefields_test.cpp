#include "common/testsupport.h"
#include "timefields/timefields.h"

#include <tarnwell/clock.h>

#include <gtest/gtest.h>

#include <optional>
#include <ostream>

namespace Tarnwell {
void PrintTo(const Date &d, std::ostream *os)
{
    const Date::Parts p = d.parts();
    *os << p.year << '-' << p.month << '-' << p.day << ' ' << p.hour << ':' << p.minute << ':' << p.second;
}
} // namespace Tarnwell

using Tarnwell::Date;
using Tarnwell::TimeFields;
using TestSupport::rowName;
using Half = TimeFields::DayHalf;
using Reading = TimeFields::Reading;

namespace {

Date hms(int h, int m, int s = 0)
{
    return Date(double(h * 3600 + m * 60 + s) / 86400.0);
}
const Date Midnight = hms(0, 0);
const Date DayEnd = hms(23, 59, 59);
const Date Wide = Date(Date::MaxSerial);
const std::nullopt_t None = std::nullopt;

// Failures name the row.
template<typename Row>
    requires requires(const Row &row) { row.name; }
void PrintTo(const Row &row, std::ostream *os)
{
    *os << row.name;
}

// Each suite runs with one fixed moment, so that no reading can depend on today's date.
template<typename Row>
class Table : public testing::TestWithParam<Row>
{
protected:
    void SetUp() override { Tarnwell::Clock::pin(QDateTime(QDate(2024, 3, 7), QTime(9, 0))); }
    void TearDown() override { Tarnwell::Clock::unpin(); }
};

struct MaskRow { const char *name; int format; char sep; std::optional<QString> am, pm, hint; };
using Masks = Table<MaskRow>;
TEST_P(Masks, FollowFormatAndSeparator)
{
    const TimeFields fields(GetParam().format, QLatin1Char(GetParam().sep));
    EXPECT_EQ(fields.mask(Half::AM), GetParam().am);
    EXPECT_EQ(fields.mask(Half::PM), GetParam().pm);
    EXPECT_EQ(fields.formatHint(), GetParam().hint);
}
INSTANTIATE_TEST_SUITE_P(Formats, Masks, testing::Values(
    MaskRow{"F0Colon", 0, ':', "##:##:## \\AM", "##:##:## \\PM", "HH:MM:SS AM/PM"},
    MaskRow{"F0Dot", 0, '.', "##.##.## \\AM", "##.##.## \\PM", "HH.MM.SS AM/PM"},
    MaskRow{"F1Colon", 1, ':', "##:## \\AM", "##:## \\PM", "HH:MM AM/PM"},
    MaskRow{"F1Dot", 1, '.', "##.## \\AM", "##.## \\PM", "HH.MM AM/PM"},
    MaskRow{"F2Colon", 2, ':', "##:##:##", "##:##:##", "HH:MM:SS"},
    MaskRow{"F2Dot", 2, '.', "##.##.##", "##.##.##", "HH.MM.SS"},
    MaskRow{"F3Colon", 3, ':', "##:##", "##:##", "HH:MM"},
    MaskRow{"F3Dot", 3, '.', "##.##", "##.##", "HH.MM"},
    MaskRow{"UnknownHasNone", 4, ':', None, None, None},
    MaskRow{"NegativeHasNone", -1, '.', None, None, None}), rowName);

TEST(TimeFieldsSeparator, OnlyColonOrDot)
{
    EXPECT_EQ(TestSupport::errorOf([] { TimeFields(0, QLatin1Char('-')); }), 380);
    for (const char *bad : {"-", "::", "", ":.", " :"})
        EXPECT_FALSE(TimeFields::isSeparatorText(QString::fromLatin1(bad))) << bad;
    EXPECT_TRUE(TimeFields::isSeparatorText(u":") && TimeFields::isSeparatorText(u"."));
}

struct NormalizeRow { const char *name; int format; char sep; QString text, expected; };
using Normalize = Table<NormalizeRow>;
TEST_P(Normalize, GivesCanonicalText)
{
    const NormalizeRow &row = GetParam();
    EXPECT_EQ(TimeFields(row.format, QLatin1Char(row.sep)).normalizeTimeText(row.text), row.expected);
}
INSTANTIATE_TEST_SUITE_P(Texts, Normalize, testing::Values(
    NormalizeRow{"HalfFilled", 0, ':', "1 :  :   AM", ""},
    NormalizeRow{"BlankSecond", 2, ':', "10:30:  ", ""},
    NormalizeRow{"Empty", 0, ':', "", ""},
    NormalizeRow{"HourZeroForcesAm", 1, ':', "00:15 PM", "00:15 AM"},
    NormalizeRow{"Hour24ForcesAm", 0, ':', "24:10:00 PM", "24:10:00 AM"},
    NormalizeRow{"HoursKeptAsTyped", 1, ':', "13:30 PM", "13:30 PM"},
    NormalizeRow{"SingleDigitsPadded", 0, ':', " 1: 2:3  PM", "01:02:03 PM"},
    NormalizeRow{"OwnSeparatorWritten", 0, '.', "10:30:15 PM", "10.30.15 PM"},
    NormalizeRow{"NoSecondsIgnoresThem", 3, ':', "10:30:xx", "10:30"},
    NormalizeRow{"NoMarkerIn24Hours", 2, ':', "23:59:59 PM", "23:59:59"},
    NormalizeRow{"OddMarkerKept", 1, ':', "10:30 pm", "10:30 pm"},
    NormalizeRow{"LeadingSignKept", 2, ':', "-1:30:00", "-01:30:00"},
    NormalizeRow{"FractionalSecondRounded", 2, ':', "10:30:.5", "10:30:01"},
    NormalizeRow{"JoinedNotNumeric", 2, ':', "1.:30:5.", ""},
    NormalizeRow{"LetterField", 3, ':', "1a:30", ""},
    NormalizeRow{"UnknownFormatHoursMinutes", 9, ':', "10:30:15 PM", "10:30"}), rowName);

struct InRangeRow { const char *name; QString text; bool expected; };
using InRange = Table<InRangeRow>;
TEST_P(InRange, ChecksEveryField)
{
    EXPECT_EQ(TimeFields::isTimeTextInRange(GetParam().text), GetParam().expected);
}
INSTANTIATE_TEST_SUITE_P(Texts, InRange, testing::Values(
    InRangeRow{"LastSecond", "23:59:59", true}, InRangeRow{"Hour24", "24:00:00", false},
    InRangeRow{"Minute60", "12:60", false}, InRangeRow{"Second60", "00:00:60", false},
    InRangeRow{"MarkerReadsZero", "12:30 PM", true}, InRangeRow{"TwelveHourAllows13", "13:30 PM", true},
    InRangeRow{"NegativeHour", "-1:00", false}, InRangeRow{"LeadingNumberRead", "1x:7y", true},
    InRangeRow{"BlankReadsZero", "  :  ", true}, InRangeRow{"DecimalBelowLimit", "23.9:00", true}),
    rowName);

struct ReadRow {
    const char *name; int format; char sep; QString text, raw; Date min, max; Reading::State state; Date time;
};
using Read = Table<ReadRow>;
TEST_P(Read, TakesUsableTimesInRange)
{
    const ReadRow &row = GetParam();
    const Reading r = TimeFields(row.format, QLatin1Char(row.sep)).read(row.text, row.raw, row.min, row.max);
    EXPECT_EQ(r.state, row.state);
    EXPECT_EQ(r.time, row.time);
}
INSTANTIATE_TEST_SUITE_P(Texts, Read, testing::Values(
    ReadRow{"Pm", 0, ':', "10:30:15 PM", "103015", Midnight, DayEnd, Reading::InRange, hms(22, 30, 15)},
    ReadRow{"TwelveAmIsMidnight", 1, ':', "12:15 AM", "1215", Midnight, DayEnd, Reading::InRange, hms(0, 15)},
    ReadRow{"ThirteenPm", 1, ':', "13:30 PM", "1330", Midnight, DayEnd, Reading::InRange, hms(13, 30)},
    ReadRow{"BeforeMinimum", 3, ':', "07:59", "0759", hms(8, 0), hms(17, 0), Reading::OutOfRange, hms(7, 59)},
    ReadRow{"AtMaximum", 3, ':', "17:00", "1700", hms(8, 0), hms(17, 0), Reading::InRange, hms(17, 0)},
    ReadRow{"BlankValue", 3, ':', "10:30", "    ", Midnight, DayEnd, Reading::NoTime, Midnight},
    ReadRow{"Hour24", 2, ':', "24:00:00", "240000", Midnight, Wide, Reading::NoTime, Midnight},
    ReadRow{"Incomplete", 0, ':', "1 :  :   AM", "1     ", Midnight, DayEnd, Reading::NoTime, Midnight},
    ReadRow{"LowerCaseMarker", 1, ':', "10:30 pm", "1030", Midnight, DayEnd, Reading::InRange, hms(22, 30)},
    ReadRow{"DotIsATimeNotADate", 3, '.', "10.30", "1030", Midnight, DayEnd, Reading::InRange, hms(10, 30)},
    ReadRow{"DotWithSeconds", 2, '.', "10.30.15", "103015", Midnight, DayEnd, Reading::InRange, hms(10, 30, 15)},
    ReadRow{"DotWithMarker", 1, '.', "10.30 PM", "1030", Midnight, DayEnd, Reading::InRange, hms(22, 30)},
    ReadRow{"DotOddFieldReadAsNumber", 2, '.', "10.30.5.", "10305.", Midnight, DayEnd, Reading::InRange,
            hms(10, 30, 5)},
    ReadRow{"DotOutOfRange", 3, '.', "18.00", "1800", hms(8, 0), hms(17, 0), Reading::OutOfRange, hms(18, 0)}),
    rowName);

struct ShownRow { const char *name; int format; Date time; QString digits; std::optional<QString> mask; };
using Shown = Table<ShownRow>;
TEST_P(Shown, DigitsAndMaskOfStoredTime)
{
    const TimeFields::Shown shown = TimeFields(GetParam().format).shownTime(GetParam().time);
    EXPECT_EQ(shown.digits, GetParam().digits);
    EXPECT_EQ(shown.mask, GetParam().mask);
}
INSTANTIATE_TEST_SUITE_P(Times, Shown, testing::Values(
    ShownRow{"MidnightIsTwelveAm", 0, hms(0, 15), "121500 AM", "##:##:## \\AM"},
    ShownRow{"NoonIsTwelvePm", 1, hms(12, 0), "120000 PM", "##:## \\PM"},
    ShownRow{"LastSecondPm", 0, DayEnd, "115959 PM", "##:##:## \\PM"},
    ShownRow{"TwentyFourHour", 2, hms(13, 5, 9), "130509", "##:##:##"},
    ShownRow{"DatePartIgnored", 3, Date(45000.75), "180000", "##:##"},
    ShownRow{"RoundsToNextMidnight", 1, Date(0.9999999999), "120000 AM", "##:## \\AM"},
    ShownRow{"UnknownKeepsMask", 6, hms(10, 15), "101500", None}), rowName);

struct SwitchRow {
    const char *name; int format; char sep; QString text; Half half; Date max;
    std::optional<Date> candidate; bool made;
};
using Switch = Table<SwitchRow>;
TEST_P(Switch, TriesTheOtherHalf)
{
    const SwitchRow &row = GetParam();
    const TimeFields fields(row.format, QLatin1Char(row.sep));
    const auto result = fields.switchDayHalf(row.text, row.half, Midnight, row.max);
    EXPECT_EQ(result.candidate, row.candidate);
    EXPECT_EQ(result.made, row.made);
    EXPECT_EQ(result.mask, fields.hasAmPm() ? *fields.mask(row.half) : QString());
}
INSTANTIATE_TEST_SUITE_P(Keys, Switch, testing::Values(
    SwitchRow{"AmToPm", 1, ':', "10:30 AM", Half::PM, DayEnd, hms(22, 30), true},
    SwitchRow{"TwelvePmToAm", 1, ':', "12:15 PM", Half::AM, DayEnd, hms(0, 15), true},
    SwitchRow{"ZeroHourToPm", 1, ':', "00:15 AM", Half::PM, DayEnd, hms(12, 15), true},
    SwitchRow{"OutOfRangeRefused", 0, ':', "09:00:00 AM", Half::PM, hms(17, 0), hms(21, 0), false},
    SwitchRow{"IncompleteRefused", 1, ':', "1 :   AM", Half::PM, DayEnd, None, false},
    SwitchRow{"Hour13StaysWithAm", 1, ':', "13:30 PM", Half::AM, DayEnd, hms(13, 30), true},
    SwitchRow{"DotSwitchesTheTime", 0, '.', "10.30.12 AM", Half::PM, DayEnd, hms(22, 30, 12), true},
    SwitchRow{"DotOddHourSwitches", 1, '.', "1..30 PM", Half::AM, DayEnd, hms(1, 30), true},
    SwitchRow{"NoAmPmFormat", 2, ':', "10:30:00", Half::PM, DayEnd, None, false}), rowName);

struct StepRow {
    const char *name; int format; Date base; int caret; bool up; Date min, max; std::optional<Date> expected;
};
using Step = Table<StepRow>;
TEST_P(Step, MovesFieldUnderCaret)
{
    const StepRow &row = GetParam();
    EXPECT_EQ(TimeFields(row.format).step(row.base, row.caret, row.up, row.min, row.max), row.expected);
}
INSTANTIATE_TEST_SUITE_P(Steps, Step, testing::Values(
    StepRow{"MinuteBelowMidnight", 0, Midnight, 4, false, Midnight, DayEnd, hms(23, 59)},
    StepRow{"MinuteBelowMidnightNoSeconds", 3, Midnight, 3, false, Midnight, DayEnd, hms(23, 59)},
    StepRow{"SecondBelowMidnight", 0, Midnight, 7, false, Midnight, DayEnd, DayEnd},
    StepRow{"SecondBorrows", 2, hms(10, 0), 8, false, Midnight, DayEnd, hms(9, 59, 59)},
    StepRow{"MinuteCarries", 3, hms(10, 59), 5, true, Midnight, DayEnd, hms(11, 0)},
    StepRow{"HourWrapsDown", 1, hms(0, 30), 0, false, Midnight, DayEnd, hms(23, 30)},
    StepRow{"HourNoWrapUp", 1, hms(23, 30), 2, true, Midnight, DayEnd, None},
    StepRow{"HourIntoNextDay", 1, hms(23, 30), 2, true, Midnight, Date(2), Date(1 + 0.5 / 24)},
    StepRow{"MarkerUp", 1, hms(9, 15), 6, true, Midnight, DayEnd, hms(21, 15)},
    StepRow{"MarkerDown", 1, hms(9, 15), 7, false, Midnight, DayEnd, hms(21, 15)},
    StepRow{"SecondCaretTogglesWithoutSeconds", 3, hms(14, 0), 7, false, Midnight, DayEnd, hms(2, 0)},
    StepRow{"EndTogglesIn24Hours", 2, hms(14, 0, 5), 9, true, Midnight, DayEnd, hms(2, 0, 5)},
    StepRow{"SecondsDroppedWithoutThem", 3, hms(10, 30, 45), 0, true, Midnight, DayEnd, hms(11, 30)},
    StepRow{"DatePartDropped", 2, Date(45000.25), 1, true, Midnight, DayEnd, hms(7, 0)},
    StepRow{"BelowMinimumRefused", 2, hms(8, 0), 3, false, hms(8, 0), hms(17, 0), None}), rowName);

TEST(TimeFieldsBase, NowClampedIntoRange)
{
    const Date day = Date::fromYmd(2024, 3, 7);
    EXPECT_EQ(TimeFields::clampedNow(Date(day.serial() + 7.0 / 24), hms(8, 0), hms(17, 0)), hms(8, 0));
    EXPECT_EQ(TimeFields::clampedNow(Date(day.serial() + 0.5), hms(8, 0), hms(17, 0)), hms(12, 0));
    EXPECT_EQ(TimeFields::clampedNow(Date(day.serial() + 0.75), hms(8, 0), hms(17, 0)), hms(17, 0));
}

} // namespace
