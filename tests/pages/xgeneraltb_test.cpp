// The TimeBox page as a host and a user drive it: fill from the first of two selected controls,
// clicks and keys on the page, apply. Rows are read as described in pagetestsupport.h.
#include <tarnwell/timebox.h>
#include <tarnwell/xgeneraltb.h>

#include "pages/pagetestsupport.h"

namespace Tarnwell::PageTest {
namespace {

using TBPage = PageTest<xGeneralTB, TimeBox>;
TEST_P(TBPage, FillEditApply) { run(); }

const Row rows[] = {
    {"a new control", "", "",
     "cmbTimeFormat=#0|cmbSeparator=:|cmbBorderStyle=#2|cmbAlignment=#0|tmMinimum=00:00:00|tmMaximum=23:59:59|"
     "chkEnabled=1|chkLocked=0|chkSelectTextOnFocus=0|chkInterceptArrowKeys=0|chkUpDown=0|chkNullIfEmpty=0|"
     "chkCheckBox=0|chkChecked=0|tmMinimum.UpDown=true|tmMinimum.InterceptArrowKeys=true|"
     "tmMinimum.SelectTextOnFocus=true|tmMaximum.UpDown=true|tmMaximum.InterceptArrowKeys=true|"
     "tmMaximum.SelectTextOnFocus=true",
     "", 0,
     "CheckBox Checked Enabled Format BorderStyle Separator UpDown InterceptArrowKeys SelectTextOnFocus Locked "
     "Alignment Maximum Minimum NullIfEmpty"},
    {"every setting shown",
     "Format=twHourMinute|Separator=.|BorderStyle=twNone|Alignment=twRightJustify|Minimum=08:00:00|"
     "Maximum=17:30:00|Enabled=false|Locked=true|SelectTextOnFocus=true|InterceptArrowKeys=true|UpDown=true|"
     "NullIfEmpty=true|CheckBox=true|Checked=true", "",
     "cmbTimeFormat=#3|cmbSeparator=.|cmbBorderStyle=#0|cmbAlignment=#1|tmMinimum=08:00:00|tmMaximum=17:30:00|"
     "tmMinimum.Format=twHourMinute|tmMaximum.Format=twHourMinute|chkEnabled=0|chkLocked=1|"
     "chkSelectTextOnFocus=1|chkInterceptArrowKeys=1|chkUpDown=1|chkNullIfEmpty=1|chkCheckBox=1|chkChecked=1",
     "Minimum=08:00:00|Maximum=17:30:00|Separator=."},

    {"format re-formats both range boxes", "Minimum=08:00:00|Maximum=17:30:00", "choose:cmbTimeFormat=3",
     "tmMinimum.Format=twHourMinute|tmMaximum.Format=twHourMinute|tmMinimum.Text=08:00|tmMaximum.Text=17:30",
     "Format=twHourMinute|Minimum=08:00:00|Maximum=17:30:00"},
    {"format chosen again", "", "again:cmbTimeFormat", "cmbTimeFormat=#0"},
    {"separator picked", "", "choose:cmbSeparator=1", "cmbSeparator=.", "Separator=."},
    {"lists", "", "choose:cmbBorderStyle=1|choose:cmbAlignment=2", "", "BorderStyle=twFixedSingle|Alignment=twCenter"},
    {"check boxes", "",
     "click:chkEnabled|click:chkLocked|click:chkSelectTextOnFocus|click:chkNullIfEmpty|click:chkCheckBox",
     "", "Enabled=false|Locked=true|SelectTextOnFocus=true|NullIfEmpty=true|CheckBox=true"},
    // Here the up-down box and the arrow keys' box are independent.
    {"up-down alone", "", "click:chkUpDown", "chkUpDown=1|chkInterceptArrowKeys=0", "UpDown=true|InterceptArrowKeys=false"},
    {"arrow keys alone", "", "keys:chkInterceptArrowKeys= ", "chkUpDown=0", "InterceptArrowKeys=true|UpDown=false"},

    {"bounds typed", "", "choose:cmbTimeFormat=2|keys:tmMinimum=HE083000|keys:tmMaximum=HE171500",
     "tmMinimum=08:30:00|tmMaximum=17:15:00", "Minimum=08:30:00|Maximum=17:15:00"},
    {"minimum stepped with the arrow key", "", "keys:tmMinimum=H^^", "tmMinimum=02:00:00", "Minimum=02:00:00"},
    // An emptied range box has no time to give: the control keeps that bound.
    {"minimum emptied", "Minimum=08:00:00", "keys:tmMinimum=HE~", "tmMinimum=Empty", "Minimum=08:00:00", 0,
     "CheckBox Checked Enabled Format BorderStyle Separator UpDown InterceptArrowKeys SelectTextOnFocus Locked "
     "Alignment Maximum NullIfEmpty"},
    {"maximum emptied", "Maximum=17:00:00", "keys:tmMaximum=HE<", "tmMaximum=Empty", "Maximum=17:00:00"},

    // The control refuses the separator: what came before it is written, the rest is not.
    {"refused separator", "", "click:chkEnabled|type:cmbSeparator=x|click:chkUpDown", "cmbSeparator=x",
     "Enabled=false|Separator=:|UpDown=false", 380, "CheckBox Checked Enabled Format BorderStyle Separator"},
};
INSTANTIATE_TEST_SUITE_P(Rows, TBPage, ::testing::ValuesIn(rows), TestSupport::rowName);

class TBKeyboard : public PageTest<xGeneralTB, TimeBox>
{
};
TEST_F(TBKeyboard, TabFollowsTheWidgetTable)
{
    const QStringList table = items("cmbTimeFormat|cmbSeparator|cmbBorderStyle|cmbAlignment|tmMinimum|tmMaximum|"
                                    "chkEnabled|chkLocked|chkSelectTextOnFocus|chkInterceptArrowKeys|chkUpDown|"
                                    "chkNullIfEmpty|chkCheckBox|chkChecked");
    EXPECT_EQ(tabOrder(table), table);
}

} // namespace
} // namespace Tarnwell::PageTest
