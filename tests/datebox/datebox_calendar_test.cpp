// Changing the date without typing: stepping the field under the caret with the arrow keys and
// the spin button, and the drop-down calendar opened by its button and keys.
#include "dateboxfixture.h"

#include <QCalendarWidget>
#include <QTableView>

namespace Tarnwell {
namespace {

// In 2000..15 February 2024; no start date means an empty box.
struct StepRow { const char *name; int format; std::optional<Date> start; int caret; const char *keys, *value; int changes; bool intercept = true; };
class Stepping : public DateBoxTest, public ::testing::WithParamInterface<StepRow> {};

TEST_P(Stepping, MovesTheFieldUnderTheCaret)
{
    const StepRow &row = GetParam();
    box->setFormat(row.format);
    box->setMinimum(ymd(2000, 1, 1));
    box->setMaximum(ymd(2024, 2, 15));
    if (row.start)
        box->setValue(QVariant::fromValue(*row.start));
    box->setInterceptArrowKeys(row.intercept);
    focus();
    text1()->setCursorPosition(row.caret);
    changes->clear();
    play(row.keys);
    // The caret stays on its field; the spin button is back at 0.
    EXPECT_EQ(QStringList({value(), QString::number(changes->count()), QString::number(text1()->cursorPosition()), QString::number(upDown1() ? upDown1()->Value() : 0)}),
              QStringList({row.value, QString::number(row.changes), QString::number(row.caret), "0"}));
}

INSTANTIATE_TEST_SUITE_P(DateBox, Stepping, ::testing::Values(
    StepRow{"DayRollsIntoFebruary", twDayMonthYear, ymd(2024, 1, 31), 0, "^", "2024-02-01", 1},
    StepRow{"MonthRollsTheDayOver", twDayMonthYear, ymd(2023, 1, 31), 3, "^", "2023-03-03", 1},
    StepRow{"YearDown", twMonthDayYear, ymd(2024, 1, 31), 7, "v", "2023-01-31", 1},
    StepRow{"YearFirstMonthOnlyForward", twYearMonthDay, ymd(2023, 1, 31), 6, "v", "2023-03-03", 1},
    StepRow{"YearFirstSeparatorStepsTheDay", twYearMonthDay, ymd(2023, 1, 31), 5, "v", "2023-02-01", 1},
    StepRow{"YearMonthDeadCaretKeepsTheDate", twYearMonth, ymd(2023, 6, 1), 5, "^", "2023-06-01", 1},
    StepRow{"EmptyBoxStartsAtTodayClamped", twDayMonthYear, {}, 0, "v", "2024-02-14", 1},
    StepRow{"BeyondMaximumNothing", twDayMonthYear, ymd(2024, 2, 15), 0, "^", "2024-02-15", 0},
    StepRow{"BeyondMinimumNothing", twDayMonthYear, ymd(2000, 2, 1), 3, "vv", "2000-01-01", 1},
    StepRow{"NotInterceptedNothing", twDayMonthYear, ymd(2024, 1, 31), 0, "^v", "2024-01-31", 0, false},
    StepRow{"SpinButtonMonth", twMonthYear, ymd(2023, 11, 1), 0, "uuud", "2024-01-01", 4},
    StepRow{"SpinButtonYear", twMonthYear, ymd(2023, 11, 1), 4, "d", "2022-11-01", 1}),
    TestSupport::rowName);

// A box holding 7 March 2024, or none, the calendar opened and used; then the keys are the date
// text's again.
struct CalendarRow { const char *name; bool empty; std::function<void(DateBox &)> prepare; const char *keys; int clickDay; const char *value; int changes, dropDowns; };
class Calendar : public DateBoxTest, public ::testing::WithParamInterface<CalendarRow> {};

TEST_P(Calendar, OpensPicksAndGivesTheKeysBack)
{
    const CalendarRow &row = GetParam();
    if (!row.empty)
        box->setValue(QVariant::fromValue(ymd(2024, 3, 7)));
    QSignalSpy dropDowns(box, &DateBox::DropDown);
    focus();
    changes->clear();
    row.prepare(*box);
    QApplication::processEvents();
    play(row.keys);
    if (row.clickDay) {
        auto *grid = fdt()->calendar()->findChild<QTableView *>("qt_calendar_calendarview");
        QModelIndex day;
        for (int cell = 0; cell < 49; ++cell)
            day = grid->model()->index(cell / 7, cell % 7).data() == row.clickDay ? grid->model()->index(cell / 7, cell % 7) : day;
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualRect(day).center());
    }
    fdt()->hidePopup();
    QApplication::processEvents();
    EXPECT_EQ(QStringList({value(), QString::number(changes->count()), QString::number(dropDowns.count())}),
              QStringList({row.value, QString::number(row.changes), QString::number(row.dropDowns)}));
    EXPECT_EQ(QApplication::focusWidget(), box); // the date box holds the focus for its text
    QTest::keyClick(text1(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), other) << "the calendar button is no Tab stop";
}

const auto none = [](DateBox &) {};
INSTANTIATE_TEST_SUITE_P(DateBox, Calendar, ::testing::Values(
    CalendarRow{"AltDownThenMousePick", false, none, "D", 20, "2024-03-20", 1, 1},
    CalendarRow{"F4ThenEnter", false, none, "F]E", 0, "2024-03-08", 1, 1},
    CalendarRow{"ButtonThenEnter", false, none, "B[E", 0, "2024-03-06", 1, 1},
    CalendarRow{"EscapeKeepsTheDate", false, none, "D]X", 0, "2024-03-07", 0, 1},
    CalendarRow{"OpeningAnEmptyBoxTakesToday", true, none, "B", 0, "2024-05-15", 1, 1},
    CalendarRow{"ShowDropDownTodayClamped", true, [](DateBox &b) { b.setMaximum(ymd(2024, 1, 31)); b.ShowDropDown(); }, "E", 0, "2024-01-31", 2, 1},
    CalendarRow{"LockedTakesNothing", false, [](DateBox &b) { b.setLocked(true); }, "D", 20, "2024-03-07", 0, 0},
    CalendarRow{"MonthYearHasNoCalendar", false, [](DateBox &b) { b.setFormat(twMonthYear); }, "DF", 0, "2024-03-07", 0, 0}),
    TestSupport::rowName);

} // namespace
} // namespace Tarnwell
