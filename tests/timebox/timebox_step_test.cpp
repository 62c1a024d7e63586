// Stepping the field under the caret with the arrow keys and UpDown1: carries, the range, the clock.
#include "timeboxfixture.h"

namespace Tarnwell {
namespace {

struct StepRow {
    const char *name; int format; QVariant start; int caret; const char *keys, *shown; int changes;
    Date min = Date(), max = DayEnd; bool intercept = true;
};
class Stepping : public TimeBoxTest, public testing::WithParamInterface<StepRow> {};
TEST_P(Stepping, MovesTheFieldUnderTheCaret)
{
    const StepRow &r = GetParam();
    box->setUpDown(true);
    box->setInterceptArrowKeys(r.intercept);
    box->setFormat(r.format);
    box->setMinimum(r.min);
    box->setMaximum(r.max);
    box->setValue(r.start);
    QSignalSpy changes(box, &TimeBox::Change);
    focusAt(r.caret);
    play(r.keys);
    EXPECT_EQ(shown(), QString::fromLatin1(r.shown));
    EXPECT_EQ(changes.count(), r.changes);
    EXPECT_TRUE(!r.changes || text1->cursorPosition() == r.caret);
}
const QVariant Midnight = QVariant::fromValue(Date());
INSTANTIATE_TEST_SUITE_P(Steps, Stepping, testing::Values(
    StepRow{"MinuteBelowMidnight", 0, Midnight, 4, "v", "11:59:00 PM|23:59:00", 1},
    StepRow{"MinuteBelowMidnightNoSeconds", 3, Midnight, 3, "v", "23:59|23:59:00", 1},
    StepRow{"SecondBelowMidnight", 2, Midnight, 7, "v", "23:59:59|23:59:59", 1},
    StepRow{"SecondBorrowsByButton", 2, QStringLiteral("10:00"), 6, "d", "09:59:59|09:59:59", 1},
    StepRow{"MinuteCarriesByButton", 3, QStringLiteral("10:59"), 4, "u", "11:00|11:00:00", 1},
    StepRow{"CaretAtEndStepsMinutes", 3, QStringLiteral("14:00"), 5, "^", "14:01|14:01:00", 1},
    StepRow{"HourWrapsDown", 3, QStringLiteral("00:30"), 0, "v", "23:30|23:30:00", 1},
    StepRow{"HourStopsAtDayEnd", 3, QStringLiteral("23:30"), 1, "^u", "23:30|23:30:00", 0},
    StepRow{"MarkerTogglesEitherWay", 1, QStringLiteral("09:15"), 6, "^v^", "09:15 PM|21:15:00", 3},
    StepRow{"EmptyStartsFromNow", 2, QVariant(), 3, "^", "09:42:30|09:42:30", 1},
    StepRow{"EmptyStartsFromNowRaisedToMinimum", 2, QVariant(), 0, "^", "13:00:00|13:00:00", 1, hms(12, 0)},
    StepRow{"BeyondMaximumDropped", 2, QStringLiteral("10:00"), 3, "^u", "10:00:00|10:00:00", 0, Date(), hms(10, 0)},
    StepRow{"ArrowsLeftToCaret", 2, QStringLiteral("10:00"), 0, "v^", "10:00:00|10:00:00", 0, Date(), DayEnd, false}),
    TestSupport::rowName);

} // namespace
} // namespace Tarnwell
