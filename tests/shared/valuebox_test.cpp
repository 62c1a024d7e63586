// The stepping every value control shares: the arrows' state at the bounds, the mouse wheel and
// the step slots, for NumberBox, DateBox and TimeBox alike.
#include "common/testsupport.h"

#include <tarnwell/date.h>
#include <tarnwell/datebox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "shared/updownbutton.h"

#include <QSignalSpy>
#include <QWheelEvent>

#include <functional>

using namespace Tarnwell;

namespace {

struct StepRow
{
    const char *name;
    std::function<ValueBox *(QWidget *)> make; // a control with its up-down button shown
    int caret;                                  // where the caret stands before a step
};

void PrintTo(const StepRow &row, std::ostream *os) { *os << row.name; }

ValueBox *numberBox(QWidget *parent, int type, int value, int minimum, int maximum)
{
    auto *box = new NumberBox(parent);
    box->setDataType(type);
    box->setUpDown(true);
    box->setMinimum(minimum);
    box->setMaximum(maximum);
    box->setValue(value);
    return box;
}

ValueBox *monthBox(QWidget *parent, Date value, Date maximum)
{
    auto *box = new DateBox(parent);
    box->setFormat(twMonthYear);
    box->setMaximum(maximum);
    box->setValue(QVariant::fromValue(value));
    return box;
}

ValueBox *timeBox(QWidget *parent, double value, double maximum)
{
    auto *box = new TimeBox(parent);
    box->setFormat(twHourMinute);
    box->setUpDown(true);
    box->setMaximum(Date(maximum));
    box->setValue(QVariant::fromValue(Date(value)));
    return box;
}

const StepRow stepRows[] = {
    {"integer in the middle", [](QWidget *p) { return numberBox(p, twInteger, 5, 0, 10); }, 0},
    {"byte at its top", [](QWidget *p) { return numberBox(p, twByte, 255, 0, 255); }, 0},
    {"byte at its bottom", [](QWidget *p) { return numberBox(p, twByte, 0, 0, 255); }, 0},
    {"integer at its type's top", [](QWidget *p) { return numberBox(p, twInteger, 32767, 0, 32767); }, 0},
    {"month at the maximum month",
     [](QWidget *p) { return monthBox(p, Date::fromYmd(2024, 12, 1), Date::fromYmd(2024, 12, 31)); }, 0},
    {"year at the maximum year",
     [](QWidget *p) { return monthBox(p, Date::fromYmd(2024, 6, 1), Date::fromYmd(2024, 12, 31)); }, 4},
    {"month in the middle",
     [](QWidget *p) { return monthBox(p, Date::fromYmd(2024, 6, 1), Date::fromYmd(9999, 12, 31)); }, 0},
    {"hour below the maximum hour", [](QWidget *p) { return timeBox(p, 22.0 / 24, 23.0 / 24); }, 0},
    {"minute at the maximum", [](QWidget *p) { return timeBox(p, 23.0 / 24, 23.0 / 24); }, 3},
    {"time in the middle", [](QWidget *p) { return timeBox(p, 12.0 / 24, 0.99); }, 3},
};

class ValueBoxStepTest : public WidgetFixture, public ::testing::WithParamInterface<StepRow>
{
protected:
    ValueBox *makeShown()
    {
        ValueBox *box = GetParam().make(window.get());
        box->resize(160, 24);
        showAndFocus(box);
        box->setSelStart(GetParam().caret);
        return box;
    }

    static UpDownButton *button(ValueBox *box)
    {
        return box->findChild<UpDownButton *>(QStringLiteral("UpDown1"));
    }

    // Brings the arrows up to date as the pointer coming over the button does.
    static void hover(UpDownButton *button)
    {
        QEvent enter(QEvent::Enter);
        QApplication::sendEvent(button, &enter);
    }

    static void wheel(ValueBox *box, int angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        // To the control itself: the inner widgets leave the wheel to their parent, but Qt
        // propagates only the wheel events that come from the window system.
        const QPointF at(10, box->height() / 2);
        QWheelEvent event(at, box->mapToGlobal(at), QPoint(), QPoint(0, angle), Qt::NoButton,
                          modifiers, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box, &event);
    }
};

// An arrow is greyed out exactly when a press on it would leave the value where it is.
TEST_P(ValueBoxStepTest, ArrowIsEnabledExactlyWhenItsStepMovesTheValue)
{
    for (const bool up : {true, false}) {
        ValueBox *box = makeShown();
        UpDownButton *arrows = button(box);
        ASSERT_NE(arrows, nullptr);
        hover(arrows);
        const bool enabled = arrows->isPartEnabled(up ? UpDownButton::UpPart : UpDownButton::DownPart);
        const QVariant before = box->property("Value");
        QSignalSpy changes(box, &ControlFrame::Change);
        const QRect part = arrows->partRect(up ? UpDownButton::UpPart : UpDownButton::DownPart);
        QTest::mouseClick(arrows, Qt::LeftButton, Qt::NoModifier, part.center());
        EXPECT_EQ(box->property("Value") != before, enabled) << (up ? "up" : "down");
        EXPECT_EQ(changes.count(), enabled ? 1 : 0) << (up ? "up" : "down");
        delete box;
    }
}

// The wheel steps as the arrows do, one step a notch, ten with Ctrl, and never past a bound.
TEST_P(ValueBoxStepTest, WheelStepsLikeTheArrows)
{
    ValueBox *wheeled = makeShown();
    wheel(wheeled, 120);
    const QVariant afterWheel = wheeled->property("Value");
    delete wheeled;

    ValueBox *slotted = makeShown();
    slotted->stepUp();
    EXPECT_EQ(afterWheel, slotted->property("Value"));
    delete slotted;

    ValueBox *paged = makeShown();
    QSignalSpy changes(paged, &ControlFrame::Change);
    wheel(paged, -120, Qt::ControlModifier);
    const int steps = int(changes.count());
    // Read before another control takes the focus (NumberBox repairs its range on leaving).
    const QVariant afterPage = paged->property("Value");
    delete paged;
    EXPECT_LE(steps, 10);
    ValueBox *stepped = makeShown();
    for (int i = 0; i < steps; ++i)
        stepped->stepDown();
    EXPECT_EQ(afterPage, stepped->property("Value"));
    delete stepped;
}

INSTANTIATE_TEST_SUITE_P(Controls, ValueBoxStepTest, ::testing::ValuesIn(stepRows), TestSupport::rowName);

class ValueBoxWheelTest : public WidgetFixture
{
};

// Without the up-down button the wheel is not the control's: it goes on to what holds it.
TEST_F(ValueBoxWheelTest, WheelWithoutTheButtonIsLeftToTheParent)
{
    struct Case
    {
        const char *name;
        std::function<ValueBox *(QWidget *)> make;
    };
    const Case cases[] = {
        {"number box without UpDown", [](QWidget *p) { return numberBox(p, twInteger, 5, 0, 10); }},
        {"date box with its calendar button", [](QWidget *p) { return new DateBox(p); }},
        {"time box without UpDown", [](QWidget *p) { return new TimeBox(p); }},
    };
    for (const Case &c : cases) {
        ValueBox *box = c.make(window.get());
        if (qobject_cast<NumberBox *>(box))
            box->setUpDown(false);
        showAndFocus(box);
        QSignalSpy changes(box, &ControlFrame::Change);
        QWheelEvent event(QPointF(5, 5), box->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, 120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box, &event);
        EXPECT_FALSE(event.isAccepted()) << c.name;
        EXPECT_EQ(changes.count(), 0) << c.name;
        delete box;
    }
}

// A Locked control does not step, by wheel or otherwise.
TEST_F(ValueBoxWheelTest, LockedControlDoesNotStep)
{
    ValueBox *box = numberBox(window.get(), twInteger, 5, 0, 10);
    box->setLocked(true);
    showAndFocus(box);
    QWheelEvent event(QPointF(5, 5), box->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &event);
    EXPECT_EQ(box->property("Value").toInt(), 5);
}

} // namespace
