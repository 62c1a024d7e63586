// DateBox and TimeBox follow one rule for their check box: every refresh that shows a value the
// control holds writes it into the inner box, and that ticks a box left unticked.
#include "common/testsupport.h"

#include <tarnwell/datebox.h>
#include <tarnwell/timebox.h>

#include <QLineEdit>

#include <functional>

using namespace Tarnwell;

namespace {

struct RefreshRow
{
    const char *name;
    std::function<ControlFrame *(QWidget *)> make; // holding a value, its check box unticked
    std::function<void(ControlFrame *)> refresh;
};

void PrintTo(const RefreshRow &row, std::ostream *os) { *os << row.name; }

ControlFrame *heldDate(QWidget *parent)
{
    auto *box = new DateBox(parent);
    box->setValue(QVariant::fromValue(Date::fromYmd(2024, 3, 7)));
    box->setChecked(false);
    box->setCheckBox(true);
    return box;
}

ControlFrame *heldTime(QWidget *parent)
{
    auto *box = new TimeBox(parent);
    box->setValue(QStringLiteral("22:30"));
    box->setChecked(false);
    box->setCheckBox(true);
    return box;
}

const RefreshRow rows[] = {
    {"date box by Format", heldDate, [](ControlFrame *c) { c->setProperty("Format", twMonthDayYear); }},
    {"date box by Separator", heldDate, [](ControlFrame *c) { c->setProperty("Separator", QStringLiteral("-")); }},
    {"date box by entering", heldDate, [](ControlFrame *c) { c->setFocus(Qt::TabFocusReason); }},
    {"time box by Format", heldTime, [](ControlFrame *c) { c->setProperty("Format", twHourMinute); }},
    {"time box by Separator", heldTime, [](ControlFrame *c) { c->setProperty("Separator", QStringLiteral(".")); }},
    {"time box by entering", heldTime, [](ControlFrame *c) { c->setFocus(Qt::TabFocusReason); }},
};

class HeldValueCheck : public WidgetFixture, public ::testing::WithParamInterface<RefreshRow>
{
};

TEST_P(HeldValueCheck, RefreshTicksTheBoxAndShowsTheValue)
{
    showAndFocus(new QLineEdit(window.get())); // the control is not being edited
    ControlFrame *control = GetParam().make(window.get());
    control->show();
    ASSERT_FALSE(control->Checked());
    EXPECT_FALSE(control->property("Value").isValid()); // unticked: no value to the host
    GetParam().refresh(control);
    QApplication::processEvents();
    EXPECT_TRUE(control->Checked());
    EXPECT_TRUE(control->property("Value").isValid());
}

// Null unticks a shown box in both.
TEST_P(HeldValueCheck, NullUnticksTheBox)
{
    ControlFrame *control = GetParam().make(window.get());
    control->setChecked(true);
    ASSERT_TRUE(control->setProperty("Value", QVariant::fromValue(nullptr)));
    EXPECT_FALSE(control->Checked());
}

INSTANTIATE_TEST_SUITE_P(Controls, HeldValueCheck, ::testing::ValuesIn(rows), TestSupport::rowName);

} // namespace
