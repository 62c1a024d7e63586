// The common-property table agrees with itself: each row is found under its own key, a new
// control holds every default, and a row's cheap default test says what comparing its values says.
#include "common/testsupport.h"

#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "shared/commonproperties.h"

#include <QMetaProperty>

#include <functional>

using namespace Tarnwell;

namespace {

struct ControlRow
{
    const char *name;
    std::function<ControlFrame *(QWidget *)> make;
};

void PrintTo(const ControlRow &row, std::ostream *os) { *os << row.name; }

const ControlRow controls[] = {
    {"MaskBox", [](QWidget *p) -> ControlFrame * { return new MaskBox(p); }},
    {"NumberBox", [](QWidget *p) -> ControlFrame * { return new NumberBox(p); }},
    {"DateBox", [](QWidget *p) -> ControlFrame * { return new DateBox(p); }},
    {"TimeBox", [](QWidget *p) -> ControlFrame * { return new TimeBox(p); }},
};

class CommonTable : public WidgetFixture, public ::testing::WithParamInterface<ControlRow>
{
};

TEST_P(CommonTable, NewControlHoldsEveryDefault)
{
    std::unique_ptr<ControlFrame> control(GetParam().make(window.get()));
    for (const CommonProperty &row : CommonProperties::rows()) {
        EXPECT_EQ(&CommonProperties::row(row.key), &row) << row.name.toStdString();
        EXPECT_TRUE(row.holdsDefault(*control)) << row.name.toStdString();
        EXPECT_EQ(row.read(*control), row.defaultValue(*control)) << row.name.toStdString();
    }
}

// Every row's value survives its own check, and assigning it changes nothing: what a bag writes
// reads back as the same control.
TEST_P(CommonTable, ReadValuesCheckAndAssignAsTheyAre)
{
    std::unique_ptr<ControlFrame> control(GetParam().make(window.get()));
    control->setForeColor(OleColor(0x0000FF));
    control->setBorderStyle(twFixedSingle);
    control->setToolTip(QStringLiteral("tip"));
    control->setCheckBox(true);
    control->setOLEDropMode(ControlFrame::OLEDropManual);
    control->clearDirty();
    const std::string before = TestSupport::propertiesOf(*control);
    for (const CommonProperty &row : CommonProperties::rows())
        row.assign(*control, row.check(row.read(*control)));
    EXPECT_EQ(TestSupport::propertiesOf(*control), before);
    EXPECT_TRUE(control->dirtyProperties().isEmpty());
}

// A common property set by name is reported under that name, once, and reads back.
TEST_P(CommonTable, SettersReportTheirOwnName)
{
    std::unique_ptr<ControlFrame> control(GetParam().make(window.get()));
    const std::pair<const char *, QVariant> sets[] = {
        {"BackColor", QVariant::fromValue(OleColor(0x00FFFF))},
        {"BorderStyle", QVariant::fromValue(twNone)},
        {"Locked", true},
        {"NullIfEmpty", true},
        {"EnterAsTab", true},
        {"MousePointer", 2},
        {"OLEDragMode", 1},
        {"Checked", false},
    };
    for (const auto &[name, value] : sets) {
        control->clearDirty();
        ASSERT_TRUE(control->setProperty(name, value)) << name;
        EXPECT_EQ(control->dirtyProperties(), QStringList{QString::fromLatin1(name)}) << name;
        EXPECT_EQ(control->property(name), value) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, CommonTable, ::testing::ValuesIn(controls), TestSupport::rowName);

} // namespace
