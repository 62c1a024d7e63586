// The MaskBox page as a host and a user drive it: fill from the first of two selected controls,
// clicks and keys on the page, apply. Rows are read as described in pagetestsupport.h.
#include <tarnwell/maskbox.h>
#include <tarnwell/xgeneralmb.h>

#include "pages/pagetestsupport.h"

namespace Tarnwell::PageTest {
namespace {

using MBPage = PageTest<xGeneralMB, MaskBox>;
TEST_P(MBPage, FillEditApply) { run(); }

// A control unlike a new one in every setting the page shows.
const char *const unlikeNew = "Mask=(###) ###-####|CharCase=twUpperCase|Alignment=twCenter|BorderStyle=twNone|"
                              "Enabled=false|Locked=true|SelectTextOnFocus=true|PromptInclude=false|CheckBox=true|"
                              "Checked=true|NullIfEmpty=true";

const Row rows[] = {
    {"a new control", "", "", "txtMask=|cmbCase=#0|cmbBorderStyle=#2|chkPromptInclude=1", "", 0,
     "CheckBox Checked Enabled BorderStyle SelectTextOnFocus Locked Alignment Mask CharCase PromptInclude NullIfEmpty"},
    {"every setting shown", unlikeNew, "",
     "txtMask=(###) ###-####|cmbCase=#1|cmbAlignment=#2|cmbBorderStyle=#0|chkEnabled=0|chkLocked=1|"
     "chkSelectTextOnFocus=1|chkPromptInclude=0|chkCheckBox=1|chkChecked=1|chkNullIfEmpty=1",
     "Mask=(###) ###-####|CharCase=twUpperCase"},
    {"mask typed", unlikeNew, "type:txtMask=@@-##", "txtMask=@@-##", "Mask=@@-##|CharCase=twUpperCase"},
    {"mask cleared", unlikeNew, "keys:txtMask=HE<", "txtMask=", "Mask="},
    {"lists", unlikeNew, "choose:cmbCase=2|choose:cmbAlignment=1|choose:cmbBorderStyle=2", "",
     "CharCase=twLowerCase|Alignment=twRightJustify|BorderStyle=twFixed3D"},
    {"check boxes", unlikeNew,
     "click:chkEnabled|click:chkLocked|click:chkSelectTextOnFocus|click:chkPromptInclude|click:chkChecked|"
     "click:chkCheckBox|click:chkNullIfEmpty",
     "", "Enabled=true|Locked=false|SelectTextOnFocus=false|PromptInclude=true|CheckBox=false|Checked=false|NullIfEmpty=false"},
    // The host refuses the mask: what came before it is written, the rest is not.
    {"refused mask", unlikeNew, "click:chkEnabled|type:txtMask=##|choose:cmbCase=0", "",
     "Enabled=true|Mask=(###) ###-####|CharCase=twUpperCase", 380,
     "CheckBox Checked Enabled BorderStyle SelectTextOnFocus Locked Alignment Mask", "Mask"},
};
INSTANTIATE_TEST_SUITE_P(Rows, MBPage, ::testing::ValuesIn(rows), TestSupport::rowName);

class MBKeyboard : public MBPage
{
};
TEST_F(MBKeyboard, TabFollowsTheWidgetTable)
{
    const QStringList table = items("txtMask|cmbCase|cmbAlignment|cmbBorderStyle|chkEnabled|chkLocked|"
                                    "chkSelectTextOnFocus|chkPromptInclude|chkCheckBox|chkChecked|chkNullIfEmpty");
    EXPECT_EQ(tabOrder(table), table);
}

} // namespace
} // namespace Tarnwell::PageTest
