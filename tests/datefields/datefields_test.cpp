#include "common/testsupport.h"
#include "datefields/datefields.h"
#include "maskengine/maskengine.h"

#include <ostream>

using namespace Tarnwell;
using TestSupport::rowName;
using State = DateFields::State;
using Reason = DateFields::Reason;

namespace {

// Dates in the tables are written yyyymmdd.
Date ymd(int v)
{
    return Date::fromYmd(v / 10000, v / 100 % 100, v % 100);
}

constexpr int First = 16010101;
constexpr int Last = 99991231;

// ---------------------------------------------------------------------------------------------
struct MaskRow {
    const char *name;
    int format;
    char16_t separator;
    const char16_t *mask; // nullptr: none
    const char16_t *pattern;
};

class Masks : public testing::TestWithParam<MaskRow> {};

TEST_P(Masks, CarryTheSeparatorAsALiteral)
{
    const MaskRow &row = GetParam();
    const DateFields fields(row.format, QChar(row.separator));
    EXPECT_EQ(fields.editMask().value_or(u"none"_qs), QString::fromUtf16(row.mask ? row.mask : u"none"));
    EXPECT_EQ(fields.displayPattern().value_or(u"none"_qs),
              QString::fromUtf16(row.pattern ? row.pattern : u"none"));
    EXPECT_EQ(MaskEngine(fields.editMask().value_or(QString())).length(), fields.editLength());
}

INSTANTIATE_TEST_SUITE_P(Formats, Masks, testing::Values(
    MaskRow{"DayMonthYearSlash", twDayMonthYear, u'/', u"##/##/####", u"dd/mmm/yyyy"},
    MaskRow{"MonthDayYearHyphen", twMonthDayYear, u'-', u"##-##-####", u"mmm-dd-yyyy"},
    MaskRow{"MonthYearBlank", twMonthYear, u' ', u"## ####", u"mmm yyyy"},
    MaskRow{"YearMonthHyphen", twYearMonth, u'-', u"####-##", u"yyyy-mmm"},
    MaskRow{"YearMonthDayDot", twYearMonthDay, u'.', u"####.##.##", u"yyyy.mmm.dd"},
    MaskRow{"HashSeparatorEscaped", twDayMonthYear, u'#', u"##\\###\\#####", u"dd#mmm#yyyy"},
    MaskRow{"BackslashSeparatorEscaped", twYearMonth, u'\\', u"####\\\\##", u"yyyy\\mmm"},
    MaskRow{"UnknownFive", 5, u'/', nullptr, nullptr}),
    rowName);

// ---------------------------------------------------------------------------------------------
struct DigitsRow {
    const char *name;
    int format;
    double serial;
    const char *digits;
};

class EditDigits : public testing::TestWithParam<DigitsRow> {};

TEST_P(EditDigits, FollowTheFieldOrder)
{
    const DigitsRow &row = GetParam();
    EXPECT_EQ(DateFields(row.format).dateToEditDigits(Date(row.serial)), QLatin1String(row.digits));
}

constexpr double March7th2024 = 45358;

INSTANTIATE_TEST_SUITE_P(Formats, EditDigits, testing::Values(
    DigitsRow{"DayMonthYear", twDayMonthYear, March7th2024, "07032024"},
    DigitsRow{"MonthDayYear", twMonthDayYear, March7th2024, "03072024"},
    DigitsRow{"MonthYear", twMonthYear, March7th2024, "032024"},
    DigitsRow{"YearMonth", twYearMonth, March7th2024, "202403"},
    DigitsRow{"YearMonthDay", twYearMonthDay, March7th2024, "20240307"},
    DigitsRow{"AlmostMidnightIsTomorrow", twDayMonthYear, March7th2024 + 0.999999999, "08032024"},
    DigitsRow{"UnknownFormat", 7, March7th2024, ""}),
    rowName);

// ---------------------------------------------------------------------------------------------
struct ParseRow {
    const char *name;
    int format;
    const char16_t *text;
    Reason reason; // None: Acceptable, NotANumber: Intermediate, else Invalid
    int date = 0;  // when Acceptable
    int minimum = First;
    int maximum = Last;
};

class Parse : public testing::TestWithParam<ParseRow> {};

TEST_P(Parse, ReadsTheFieldsAtTheirPositions)
{
    const ParseRow &row = GetParam();
    const DateFields::Reading r = DateFields(row.format, QLatin1Char('/'))
        .parseEditText(QStringView(row.text), ymd(row.minimum), ymd(row.maximum));
    EXPECT_EQ(r.reason, row.reason);
    EXPECT_EQ(r.state, row.reason == Reason::None ? State::Acceptable
                       : row.reason == Reason::NotANumber ? State::Intermediate : State::Invalid);
    EXPECT_EQ(r.date, row.date ? ymd(row.date) : Date()) << r.date.serial();
}

INSTANTIATE_TEST_SUITE_P(Texts, Parse, testing::Values(
    ParseRow{"DayFirst", twDayMonthYear, u"07/03/2024", Reason::None, 20240307},
    ParseRow{"February31st", twDayMonthYear, u"31/02/2024", Reason::NoSuchDay},
    ParseRow{"LeapDay", twDayMonthYear, u"29/02/2024", Reason::None, 20240229},
    ParseRow{"NoLeapDay", twMonthDayYear, u"02/29/1900", Reason::NoSuchDay},
    ParseRow{"Month13", twYearMonthDay, u"2024/13/01", Reason::NoSuchDay},
    ParseRow{"Blank", twDayMonthYear, u"  /  /    ", Reason::NotANumber},
    ParseRow{"BlankInsideYear", twDayMonthYear, u"07/03/2 24", Reason::NotANumber},
    ParseRow{"BlanksAroundDay", twMonthDayYear, u"03/ 7/2024", Reason::None, 20240307},
    ParseRow{"TwoDigitYearWithBlanks", twDayMonthYear, u"07/03/24  ", Reason::None, 20240307},
    ParseRow{"Year29IsThisCentury", twDayMonthYear, u"07/03/0029", Reason::None, 20290307},
    ParseRow{"Year30IsLastCentury", twDayMonthYear, u"07/03/30", Reason::None, 19300307},
    ParseRow{"WindowedYearBelowMinimum", twDayMonthYear, u"31/12/99", Reason::BeforeMinimum, 0, 20000101},
    ParseRow{"ThreeDigitYear", twDayMonthYear, u"07/03/202 ", Reason::Unrepresentable},
    ParseRow{"Year1600", twYearMonthDay, u"1600/12/31", Reason::Unrepresentable},
    ParseRow{"YearBeyond16Bits", twDayMonthYear, u"07/03/40000", Reason::FieldOverflow},
    ParseRow{"PastedYearRoundsToEven", twDayMonthYear, u"07/03/2024.5", Reason::None, 20240307},
    ParseRow{"OnBothBounds", twDayMonthYear, u"07/03/2024", Reason::None, 20240307, 20240307, 20240307},
    ParseRow{"BeforeMinimum", twDayMonthYear, u"06/03/2024", Reason::BeforeMinimum, 0, 20240307},
    ParseRow{"AfterMaximum", twDayMonthYear, u"08/03/2024", Reason::AfterMaximum, 0, First, 20240307},
    ParseRow{"MonthYearReadsTheFirst", twMonthYear, u"03/2024", Reason::None, 20240301},
    ParseRow{"MonthYearYearToTheEnd", twMonthYear, u"03/02024", Reason::None, 20240301},
    ParseRow{"MonthYearFirstBeforeMinimum", twMonthYear, u"03/2024", Reason::BeforeMinimum, 0, 20240302},
    ParseRow{"YearMonthNeverADate", twYearMonth, u"2024/03", Reason::NoSuchDay},
    ParseRow{"YearMonthUnfilled", twYearMonth, u"2024/  ", Reason::NotANumber},
    ParseRow{"UnknownFormat", 5, u"07/03/2024", Reason::UnknownFormat}),
    rowName);

// ---------------------------------------------------------------------------------------------
// The field under each caret 0..11 of a full text stepping up and down: D/M/Y forward, d/m/y
// back, '.' none.
struct TargetRow {
    const char *name;
    int format;
    const char *up, *down;
};

class StepTargets : public testing::TestWithParam<TargetRow> {};

TEST_P(StepTargets, PickTheFieldUnderTheCaret)
{
    using F = DateFields::Field;
    const DateFields fields(GetParam().format);
    auto target = [](char c) {
        const F f = (c | 0x20) == 'd' ? F::Day : (c | 0x20) == 'm' ? F::Month
                  : (c | 0x20) == 'y' ? F::Year : F::None;
        return DateFields::StepTarget{f, f == F::None ? 0 : c & 0x20 ? -1 : 1};
    };
    for (int caret = 0; caret < 12; ++caret) {
        EXPECT_EQ(fields.stepTarget(caret, true), target(GetParam().up[caret])) << caret;
        EXPECT_EQ(fields.stepTarget(caret, false), target(GetParam().down[caret])) << caret;
    }
    EXPECT_EQ(fields.stepTarget(-1, true), DateFields::StepTarget{});
    EXPECT_EQ(fields.stepTarget(1000, false), fields.stepTarget(11, false));
}

INSTANTIATE_TEST_SUITE_P(Formats, StepTargets, testing::Values(
    TargetRow{"DayMonthYear", twDayMonthYear, "DDDMMMYYYYYY", "dddmmmyyyyyy"},
    TargetRow{"MonthDayYear", twMonthDayYear, "MMMDDDYYYYYY", "mmmdddyyyyyy"},
    TargetRow{"MonthYear", twMonthYear, "MMMYYYYYYYYY", "mmmyyyyyyyyy"},
    TargetRow{"YearMonth", twYearMonth, "YYYYY.MMMMMM", "yyyyy.MMMMMM"},
    TargetRow{"YearMonthDay", twYearMonthDay, "YYYYYDMMDDDD", "yyyyyDMMDDDD"},
    TargetRow{"Unknown", 9, "............", "............"}),
    rowName);

// ---------------------------------------------------------------------------------------------
struct StepRow {
    const char *name;
    int format;
    double start; // a serial, from ymd()
    int caret;
    bool up;
    int result; // 0: no step
    int minimum = First;
    int maximum = Last;
};

class Step : public testing::TestWithParam<StepRow> {};

TEST_P(Step, RollsOverAndKeepsToTheRange)
{
    const StepRow &row = GetParam();
    const std::optional<Date> stepped = DateFields(row.format).step(
        Date(row.start), row.caret, row.up, ymd(row.minimum), ymd(row.maximum));
    EXPECT_EQ(stepped.value_or(Date(-1)), row.result ? ymd(row.result) : Date(-1));
}

double at(int v, double timeOfDay = 0)
{
    return ymd(v).serial() + timeOfDay;
}

INSTANTIATE_TEST_SUITE_P(Edges, Step, testing::Values(
    StepRow{"DayPastMonthEnd", twDayMonthYear, at(20240131), 0, true, 20240201},
    StepRow{"MonthIntoShortMonth", twDayMonthYear, at(20240131), 3, true, 20240302},
    StepRow{"DayBeforeMonthStart", twDayMonthYear, at(20240301), 2, false, 20240229},
    StepRow{"MonthBackOverYear", twMonthDayYear, at(20240115), 1, false, 20231215},
    StepRow{"LeapDayPlusYear", twDayMonthYear, at(20240229), 9, true, 20250301},
    StepRow{"YearFirstMonthDownGoesUp", twYearMonthDay, at(20240307), 6, false, 20240407},
    StepRow{"YearFirstSeparatorStepsDay", twYearMonthDay, at(20240307), 5, false, 20240308},
    StepRow{"DeadCaretKeepsTheDate", twYearMonth, at(20240307), 5, true, 20240307},
    StepRow{"TimeOfDayDropped", twMonthYear, at(20240307, 0.25), 0, true, 20240407},
    StepRow{"UnknownFormatKeepsTheDate", 5, at(20240307), 0, true, 20240307},
    StepRow{"OntoTheMaximum", twDayMonthYear, at(20240306), 0, true, 20240307, First, 20240307},
    StepRow{"BeyondTheMaximum", twDayMonthYear, at(20240307), 0, true, 0, First, 20240307},
    StepRow{"BeforeTheMinimum", twDayMonthYear, at(20240307), 6, false, 0, 20240101},
    StepRow{"BeforeTheFirstYear", twDayMonthYear, at(First), 0, false, 0},
    StepRow{"AfterTheLastYear", twYearMonthDay, at(Last), 9, false, 0}),
    rowName);

} // namespace
