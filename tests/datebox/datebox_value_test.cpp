// The date box's texts and value: masks and display patterns per format and separator, typed
// texts read back, and Value and the other sets taken or refused.
#include "dateboxfixture.h"

namespace Tarnwell {
namespace {

// 7 March 2024 set as Value, seen without and with the focus.
struct FormatRow { const char *name; std::function<void(DateBox &)> set; const char *unfocused, *focused, *pattern; };
class Formats : public DateBoxTest, public ::testing::WithParamInterface<FormatRow> {};

TEST_P(Formats, ShowEditDigitsFocusedAndThePatternOtherwise)
{
    GetParam().set(*box);
    box->setValue(QVariant::fromValue(ymd(2024, 3, 7)));
    const QString unfocused = text1()->text();
    focus();
    EXPECT_EQ(QStringList({unfocused, text1()->text(), box->DisplayFormat(), value()}),
              QStringList({GetParam().unfocused, GetParam().focused, GetParam().pattern, "2024-03-07"}));
}

INSTANTIATE_TEST_SUITE_P(DateBox, Formats, ::testing::Values(
    FormatRow{"DayMonthYear", [](DateBox &) {}, "07/Mar/2024", "07/03/2024", "dd/mmm/yyyy"},
    FormatRow{"SeparatorAfterFormatOnlyInTheMask", [](DateBox &b) { b.setFormat(twMonthDayYear); b.setSeparator("-"); }, "Mar/07/2024", "03-07-2024", "mmm/dd/yyyy"},
    FormatRow{"FormatAfterSeparatorTakesItEverywhere", [](DateBox &b) { b.setSeparator("-"); b.setFormat(twYearMonthDay); }, "2024-Mar-07", "2024-03-07", "yyyy-mmm-dd"},
    FormatRow{"MonthYear", [](DateBox &b) { b.setSeparator("."); b.setFormat(twMonthYear); }, "Mar.2024", "03.2024", "mmm.yyyy"},
    FormatRow{"YearMonth", [](DateBox &b) { b.setSeparator(" "); b.setFormat(twYearMonth); }, "2024 Mar", "2024 03", "yyyy mmm"},
    FormatRow{"HandMadePatternUntilFormat", [](DateBox &b) { b.setDisplayFormat("yyyy.mm.dd"); }, "2024.03.07", "07/03/2024", "yyyy.mm.dd"},
    FormatRow{"UnknownFormatKeepsThePatternShowsNoDigits", [](DateBox &b) { b.setFormat(9); }, "07/Mar/2024", "", "dd/mmm/yyyy"}),
    TestSupport::rowName);

// Keys typed into a focused box in 1990..2023, so that today clamped is 31 December 2023.
struct TypingRow { const char *name; int format; const char *keys, *text, *value, *picker; };
class Typing : public DateBoxTest, public ::testing::WithParamInterface<TypingRow> {};

TEST_P(Typing, ReadsTheDigitsBackOnEveryKey)
{
    const TypingRow &row = GetParam();
    box->setFormat(row.format);
    box->setMinimum(ymd(1990, 1, 1));
    box->setMaximum(ymd(2023, 12, 31));
    focus();
    play(row.keys);
    EXPECT_EQ(QStringList({text1()->text(), value(), show(QVariant::fromValue(fdt()->Value())), QString::number(changes->count())}),
              QStringList({row.text, row.value, row.picker, QString::number(strlen(row.keys))}));
}

INSTANTIATE_TEST_SUITE_P(DateBox, Typing, ::testing::Values(
    TypingRow{"DayFirst", twDayMonthYear, "07032023", "07/03/2023", "2023-03-07", "2023-03-07"},
    TypingRow{"HalfTypedIsNoDate", twDayMonthYear, "0703", "07/03/    ", "Empty", "2023-12-31"},
    TypingRow{"NoThirtyFirstOfFebruary", twDayMonthYear, "31022020", "31/02/2020", "Empty", "2023-12-31"},
    TypingRow{"AfterMaximum", twYearMonthDay, "20240101", "2024/01/01", "Empty", "2023-12-31"},
    TypingRow{"TwoDigitYearWindowed", twDayMonthYear, "07030019", "07/03/0019", "2019-03-07", "2019-03-07"},
    TypingRow{"TwoDigitYearBeforeMinimum", twDayMonthYear, "07030030", "07/03/0030", "Empty", "2023-12-31"},
    TypingRow{"MonthYearIsTheFirst", twMonthYear, "032023", "03/2023", "2023-03-01", "2023-03-01"},
    TypingRow{"YearMonthNeverReads", twYearMonth, "202303", "2023/03", "Empty", "2023-12-31"},
    TypingRow{"BackspaceUndoesTheDate", twDayMonthYear, "07032023<", "07/03/202 ", "Empty", "2023-12-31"}),
    TestSupport::rowName);

// Sets on a box holding 10 January 2024 in 2020..2025, its check box shown and ticked.
struct SetRow { const char *name; std::function<void(DateBox &)> set; int error; const char *value; int changes; bool checked = true; };
class Sets : public DateBoxTest, public ::testing::WithParamInterface<SetRow> {};

TEST_P(Sets, TakeOrRefuseWithNothingChanged)
{
    const SetRow &row = GetParam();
    box->setMinimum(ymd(2020, 1, 1));
    box->setMaximum(ymd(2025, 12, 31));
    box->setCheckBox(true);
    box->setValue(QVariant::fromValue(ymd(2024, 1, 10)));
    box->clearDirty();
    changes->clear();
    EXPECT_EQ(TestSupport::errorOf([&] { row.set(*box); }), row.error);
    EXPECT_EQ(QStringList({value(), QString::number(changes->count()), QString::number(box->isDirty("Value")), box->Separator()}),
              QStringList({row.value, QString::number(row.changes), QString::number(row.changes > 0), "/"}));
    EXPECT_EQ(box->Checked(), row.checked);
    EXPECT_EQ(fdt()->isEnabled(), row.checked) << "the calendar is for a ticked box only";
}

INSTANTIATE_TEST_SUITE_P(DateBox, Sets, ::testing::Values(
    SetRow{"DateText", [](DateBox &b) { b.setValue("2/3/2025"); }, 0, "2025-02-03", 1},
    SetRow{"NullClearsTheCheckBox", [](DateBox &b) { b.setNullIfEmpty(true); b.setValue(Variant::null()); }, 0, "Null", 1, false},
    // Showing no date clears the check box as well.
    SetRow{"EmptyText", [](DateBox &b) { b.setValue(""); }, 0, "Empty", 1, false},
    SetRow{"OutOfRangeLeavesNoDate", [](DateBox &b) { b.setValue(QVariant::fromValue(ymd(2026, 1, 1))); }, 0, "Empty", 1, false},
    SetRow{"CheckBoxClearedHidesTheDate", [](DateBox &b) { b.setChecked(false); }, 0, "Empty", 0, false},
    SetRow{"NoDate", [](DateBox &b) { b.setValue("soon"); }, 13, "2024-01-10", 0},
    SetRow{"ValueAtDesignTime", [](DateBox &b) { b.setUserMode(false); b.setValue(""); }, 387, "2024-01-10", 0},
    SetRow{"HostRefuses", [](DateBox &b) { b.setCanPropertyChangeHook([](const QString &) { return false; }); b.setValue(""); }, 0, "2024-01-10", 0},
    SetRow{"Text", [](DateBox &b) { b.setText("1/1/2024"); }, 382, "2024-01-10", 0},
    SetRow{"SeparatorComma", [](DateBox &b) { b.setSeparator(","); }, 380, "2024-01-10", 0},
    SetRow{"SeparatorTwoSlashes", [](DateBox &b) { b.setSeparator("//"); }, 380, "2024-01-10", 0},
    SetRow{"RangeNotCheckedAgain", [](DateBox &b) { b.setMaximum(ymd(2023, 1, 1)); b.setMinimum(ymd(2030, 1, 1)); }, 0, "2024-01-10", 0}),
    TestSupport::rowName);

// Values on a box with its default range, the calendar's 1601..9999, inside the date type's wider
// one: a date of the type that the calendar does not hold is out of range, not an error.
struct WideRow { const char *name; QVariant value; int error; const char *shown; };
class WideValues : public DateBoxTest, public ::testing::WithParamInterface<WideRow> {};

TEST_P(WideValues, ConvertThenCheckTheRange)
{
    const WideRow &row = GetParam();
    box->setValue(QVariant::fromValue(ymd(2024, 1, 10)));
    changes->clear();
    EXPECT_EQ(TestSupport::errorOf([&] { box->setValue(row.value); }), row.error);
    EXPECT_EQ(QStringList({value(), QString::number(changes->count())}),
              QStringList({row.shown, row.error ? "0" : "1"}));
}

INSTANTIATE_TEST_SUITE_P(DateBox, WideValues, ::testing::Values(
    WideRow{"QDate", QDate(2024, 3, 7), 0, "2024-03-07"},
    WideRow{"QDateTime", QDateTime(QDate(2024, 3, 7), QTime(18, 30)), 0, "2024-03-07"},
    WideRow{"FirstDayOfTheCalendar", QDate(1601, 1, 1), 0, "1601-01-01"},
    WideRow{"QDateBeforeTheCalendar", QDate(1600, 12, 31), 0, "Empty"},
    WideRow{"DateBeforeTheCalendar", QVariant::fromValue(Date(-109206.0)), 0, "Empty"},
    WideRow{"SerialBeforeTheCalendar", -109206.0, 0, "Empty"},
    WideRow{"TextBeforeTheCalendar", QString("12/31/1600"), 0, "Empty"},
    WideRow{"FirstDayOfTheType", QDate(100, 1, 1), 0, "Empty"},
    WideRow{"BeforeTheType", QDate(99, 12, 31), 6, "2024-01-10"},
    WideRow{"NullQDate", QDate(), 13, "2024-01-10"}),
    TestSupport::rowName);

// Minimum and Maximum written by name, as a host, a mapper or Qt Designer writes them: Qt's date
// types reach the setter; a bound the calendar refuses is dropped silently and still reported.
struct BoundRow { const char *name, *property; QVariant written; bool reached; const char *range; };
class BoundsByName : public DateBoxTest, public ::testing::WithParamInterface<BoundRow> {};

TEST_P(BoundsByName, ReachTheSetterAndAreReported)
{
    const BoundRow &row = GetParam();
    QSignalSpy reported(box, &DateBox::PropertyChanged);
    EXPECT_EQ(box->setProperty(row.property, row.written), row.reached);
    EXPECT_EQ(show(QVariant::fromValue(box->Minimum())) + ".." + show(QVariant::fromValue(box->Maximum())), row.range);
    EXPECT_EQ(box->isDirty(row.property), row.reached);
    EXPECT_EQ(reported.count(), row.reached ? 1 : 0);
    if (row.reached) {
        EXPECT_EQ(reported.at(0).at(0).toString(), row.property);
    }
}

INSTANTIATE_TEST_SUITE_P(DateBox, BoundsByName, ::testing::Values(
    BoundRow{"MinimumQDate", "Minimum", QDate(2000, 1, 1), true, "2000-01-01..9999-12-31"},
    BoundRow{"MaximumQDateTime", "Maximum", QDateTime(QDate(2030, 6, 30), QTime(12, 0)), true, "1601-01-01..2030-06-30"},
    BoundRow{"MaximumQTimeIsDayZero", "Maximum", QTime(12, 0), true, "1601-01-01..1899-12-30"},
    BoundRow{"MinimumQDateBeforeTheCalendarDropped", "Minimum", QDate(1600, 6, 1), true, "1601-01-01..9999-12-31"},
    BoundRow{"MinimumDateBeforeTheCalendarDropped", "Minimum", QVariant::fromValue(Date(-109419.0)), true, "1601-01-01..9999-12-31"},
    BoundRow{"MaximumBeforeTheCalendarDropped", "Maximum", QDate(1000, 1, 1), true, "1601-01-01..9999-12-31"},
    BoundRow{"MinimumBeforeTheTypeNeverConverts", "Minimum", QDate(99, 1, 1), false, "1601-01-01..9999-12-31"},
    BoundRow{"MinimumNullQDateNeverConverts", "Minimum", QDate(), false, "1601-01-01..9999-12-31"}),
    TestSupport::rowName);

} // namespace
} // namespace Tarnwell
