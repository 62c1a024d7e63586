// The DateBox page as a host and a user drive it: fill from the first of two selected controls,
// clicks and keys on the page, apply. Rows are read as described in pagetestsupport.h.
#include <tarnwell/datebox.h>
#include <tarnwell/xgeneraldb.h>

#include "pages/pagetestsupport.h"

namespace Tarnwell::PageTest {
namespace {

using DBPage = PageTest<xGeneralDB, DateBox>;
TEST_P(DBPage, FillEditApply) { run(); }

const char *const everyWrite = "CheckBox Checked Enabled Format BorderStyle DisplayFormat Separator UpDown "
                               "InterceptArrowKeys SelectTextOnFocus Locked Alignment NullIfEmpty Minimum Maximum";

const Row rows[] = {
    {"a new control", "", "",
     "cmbDateFormat=#0|txtDisplayFormat=dd/mmm/yyyy|cmbSeparator=/|cmbBorderStyle=#2|cmbAlignment=#0|"
     "dtMinimum=1601-01-01|dtMaximum=9999-12-31|chkEnabled=1|chkUpDown=1|chkInterceptArrowKeys=0|"
     "chkSelectTextOnFocus=1|chkLocked=0|chkNullIfEmpty=0|chkCheckBox=0|chkChecked=0",
     "", 0, everyWrite},
    {"every setting shown",
     "Format=twYearMonthDay|Separator=-|DisplayFormat=yyyy mmmm dd|BorderStyle=twFixedSingle|Alignment=twCenter|"
     "Minimum=2000-01-31|Maximum=2030-06-30|Enabled=false|UpDown=false|InterceptArrowKeys=true|"
     "SelectTextOnFocus=false|Locked=true|NullIfEmpty=true|CheckBox=true|Checked=true", "",
     "cmbDateFormat=#4|txtDisplayFormat=yyyy mmmm dd|cmbSeparator=-|cmbBorderStyle=#1|cmbAlignment=#2|"
     "dtMinimum=2000-01-31|dtMaximum=2030-06-30|chkEnabled=0|chkUpDown=0|chkInterceptArrowKeys=1|"
     "chkSelectTextOnFocus=0|chkLocked=1|chkNullIfEmpty=1|chkCheckBox=1|chkChecked=1",
     "Minimum=2000-01-31|Maximum=2030-06-30|DisplayFormat=yyyy mmmm dd"},
    // Filling the format rebuilds the pattern and the range order; the control's pattern wins.
    {"own pattern over the rebuilt one", "Format=twMonthDayYear|DisplayFormat=mmmm d, yyyy", "",
     "cmbDateFormat=#1|txtDisplayFormat=mmmm d, yyyy|dtMinimum.Format=twMonthDayYear|dtMaximum.Format=twMonthDayYear"},
    {"blank separator", "Separator= ", "", "cmbSeparator= "},

    {"year month with hyphen", "", "type:cmbSeparator=-|choose:cmbDateFormat=3",
     "txtDisplayFormat=yyyy-mmm|dtMinimum.Format=twDayMonthYear", "Format=twYearMonth|Separator=-|DisplayFormat=yyyy-mmm"},
    {"separator alone keeps the pattern", "", "choose:cmbSeparator=2", "cmbSeparator=-|txtDisplayFormat=dd/mmm/yyyy",
     "Separator=-|DisplayFormat=dd/mmm/yyyy"},
    {"format chosen again takes the separator", "", "choose:cmbSeparator=1|again:cmbDateFormat",
     "txtDisplayFormat=dd.mmm.yyyy", "DisplayFormat=dd.mmm.yyyy"},
    {"separator chosen again", "", "again:cmbSeparator", "txtDisplayFormat=dd/mmm/yyyy"},
    {"month first range", "", "choose:cmbDateFormat=1|keys:dtMinimum=HE01022003",
     "dtMinimum.Format=twMonthDayYear|dtMaximum.Format=twMonthDayYear|dtMinimum=2003-01-02",
     "Format=twMonthDayYear|Minimum=2003-01-02"},
    // Format is written before DisplayFormat: the page's pattern replaces the format's.
    {"typed pattern", "", "choose:cmbDateFormat=4|type:txtDisplayFormat=yyyy mmmm d", "",
     "Format=twYearMonthDay|DisplayFormat=yyyy mmmm d"},
    {"lists", "", "choose:cmbBorderStyle=0|choose:cmbAlignment=1", "", "BorderStyle=twNone|Alignment=twRightJustify"},
    // A held date keeps Checked through the Format write that re-shows the value.
    {"check boxes", "Value=2024-01-01",
     "click:chkEnabled|click:chkSelectTextOnFocus|click:chkLocked|click:chkNullIfEmpty|click:chkCheckBox|click:chkChecked",
     "", "Enabled=false|SelectTextOnFocus=false|Locked=true|NullIfEmpty=true|CheckBox=true|Checked=true"},

    {"up-down unticks the arrow keys", "InterceptArrowKeys=true", "click:chkUpDown",
     "chkUpDown=0|chkInterceptArrowKeys=0", "UpDown=false|InterceptArrowKeys=false"},
    {"arrow keys ticked again are kept", "InterceptArrowKeys=true", "click:chkUpDown|click:chkInterceptArrowKeys",
     "chkUpDown=0|chkInterceptArrowKeys=1", "UpDown=false|InterceptArrowKeys=true"},
    {"up-down ticked by the keyboard", "UpDown=false", "keys:chkUpDown= ", "chkInterceptArrowKeys=1",
     "UpDown=true|InterceptArrowKeys=true"},

    {"bounds typed", "", "keys:dtMinimum=HE01022003|keys:dtMaximum=HE31122030", "dtMinimum=2003-02-01",
     "Minimum=2003-02-01|Maximum=2030-12-31"},
    // An emptied range box has no date to give: the control keeps that bound.
    {"minimum emptied", "Minimum=2000-01-01", "keys:dtMinimum=HE~", "dtMinimum=Empty", "Minimum=2000-01-01", 0,
     "CheckBox Checked Enabled Format BorderStyle DisplayFormat Separator UpDown InterceptArrowKeys "
     "SelectTextOnFocus Locked Alignment NullIfEmpty Maximum"},
    {"maximum emptied", "Maximum=2040-01-01", "keys:dtMaximum=HE<|keys:dtMinimum=HE01011990", "dtMaximum=Empty",
     "Maximum=2040-01-01|Minimum=1990-01-01"},
    {"minimum half typed", "Minimum=2000-01-01", "keys:dtMinimum=HE~12", "dtMinimum=Empty", "Minimum=2000-01-01"},

    // The control refuses the separator: what came before it is written, the rest is not.
    {"refused separator", "", "click:chkEnabled|type:cmbSeparator=x|click:chkLocked", "",
     "Enabled=false|Separator=/|Locked=false", 380, "CheckBox Checked Enabled Format BorderStyle DisplayFormat Separator"},
};
INSTANTIATE_TEST_SUITE_P(Rows, DBPage, ::testing::ValuesIn(rows), TestSupport::rowName);

class DBKeyboard : public PageTest<xGeneralDB, DateBox>
{
};
TEST_F(DBKeyboard, TabFollowsTheWidgetTable)
{
    const QStringList table = items("cmbDateFormat|txtDisplayFormat|cmbSeparator|cmbBorderStyle|cmbAlignment|dtMinimum|"
                                    "dtMaximum|chkEnabled|chkUpDown|chkInterceptArrowKeys|chkSelectTextOnFocus|"
                                    "chkLocked|chkNullIfEmpty|chkCheckBox|chkChecked");
    EXPECT_EQ(tabOrder(table), table);
}

} // namespace
} // namespace Tarnwell::PageTest
