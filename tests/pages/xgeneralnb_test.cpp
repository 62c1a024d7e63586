// The NumberBox page as a host and a user drive it: fill from the first of two selected controls,
// its own number fields kept in step with the type, decimals and display settings, clicks and
// keys on the page, apply. Rows are read as described in pagetestsupport.h.
#include <tarnwell/numberbox.h>
#include <tarnwell/xgeneralnb.h>

#include "pages/pagetestsupport.h"

namespace Tarnwell::PageTest {
namespace {

using NBPage = PageTest<xGeneralNB, NumberBox>;
TEST_P(NBPage, FillEditApply) { run(); }

// A control unlike a new one in every setting the page shows. DataType comes first, as it resets
// the numbers, and InterceptArrowKeys after UpDown, which sets it too.
const char *const unlikeNew = "DataType=twDouble|DecimalPlaces=1|Increment=0.5|Maximum=1000|Minimum=-100|Value=-42.5|"
                              "Alignment=twCenter|BorderStyle=twNone|ThousandSeparator=false|UseNegativeColor=false|"
                              "CurrencySymbol=kr|ShowCurrencySymbol=twRight|UpDown=true|InterceptArrowKeys=false|"
                              "Enabled=false|Locked=true|SelectTextOnFocus=true|CheckBox=true|NullIfEmpty=true";
// A Long 0..10 holding 5.
const char *const smallRange = "DataType=twLong|Maximum=10|Minimum=0|Value=5";

const Row rows[] = {
    {"a new control", "", "",
     "nmbDecimalPlaces.DataType=twInteger|nmbDecimalPlaces.Minimum=0|nmbDecimalPlaces.UpDown=true",
     "", 0,
     "CheckBox Checked DataType Alignment Enabled UpDown InterceptArrowKeys Increment DecimalPlaces Locked Maximum "
     "Minimum ThousandSeparator Value BorderStyle UseNegativeColor SelectTextOnFocus ShowCurrencySymbol "
     "CurrencySymbol NullIfEmpty"},
    {"every setting shown", unlikeNew, "",
     "cmbDataType=#4|cmbAlignment=#2|cmbBorderStyle=#0|cmbShowCurrencySymbol=#2|txtCurrencySymbol=kr|"
     "nmbDecimalPlaces=1|nmbIncrement=0.5|nmbMinimum=-100|nmbMaximum=1000|nmbValue=-42.5|chkUpDown=1|"
     "chkInterceptArrowKeys=0|chkThousandSeparator=0|chkUseNegativeColor=0|chkEnabled=0|chkLocked=1|"
     "chkSelectTextOnFocus=1|chkCheckBox=1|chkChecked=1|chkNullIfEmpty=1|"
     // The number fields in the control's type and decimals, the Value field as its preview.
     "nmbIncrement.DataType=twDouble|nmbMinimum.DataType=twDouble|nmbMaximum.DataType=twDouble|"
     "nmbIncrement.DecimalPlaces=1|nmbMinimum.DecimalPlaces=1|nmbDecimalPlaces.Maximum=2|"
     "nmbMaximum.Text=1,000.0|nmbIncrement.Text=0.5|nmbValue.Text=-42.5kr|"
     "nmbValue.DataType=twDouble|nmbValue.Minimum=-100|nmbValue.Maximum=1000|nmbValue.Increment=0.5|"
     "nmbValue.DecimalPlaces=1|nmbValue.Alignment=twCenter|nmbValue.BorderStyle=twNone|"
     "nmbValue.ThousandSeparator=false|nmbValue.UseNegativeColor=false|nmbValue.CurrencySymbol=kr|"
     "nmbValue.ShowCurrencySymbol=twRight|nmbValue.UpDown=true|nmbValue.Enabled=true",
     "Value=-42.5|Maximum=1000|Minimum=-100|Increment=0.5|DecimalPlaces=1"},

    {"lists", unlikeNew, "choose:cmbAlignment=1|choose:cmbBorderStyle=2|choose:cmbShowCurrencySymbol=1", "",
     "Alignment=twRightJustify|BorderStyle=twFixed3D|ShowCurrencySymbol=twLeft"},
    {"check boxes", unlikeNew,
     "click:chkThousandSeparator|click:chkUseNegativeColor|click:chkInterceptArrowKeys|click:chkEnabled|"
     "click:chkLocked|click:chkSelectTextOnFocus|click:chkChecked|click:chkCheckBox|click:chkNullIfEmpty",
     "", "ThousandSeparator=true|UseNegativeColor=true|InterceptArrowKeys=true|Enabled=true|Locked=false|"
         "SelectTextOnFocus=false|Checked=false|CheckBox=false|NullIfEmpty=false|UpDown=true"},
    {"numbers typed", unlikeNew,
     "type:txtCurrencySymbol=EUR|keys:nmbIncrement=HE2.5|keys:nmbMinimum=HE5-|keys:nmbMaximum=HE50|keys:nmbValue=HE7.5",
     "", "CurrencySymbol=EUR|Increment=2.5|Minimum=-5|Maximum=50|Value=7.5"},
    {"fewer decimals", unlikeNew, "keys:nmbDecimalPlaces=HE0", "nmbMinimum.Text=-100|nmbIncrement.Text=1",
     "DecimalPlaces=0"},
    {"decimals stepped", unlikeNew, "keys:nmbDecimalPlaces=^",
     "nmbMinimum.Text=-100.00|nmbMaximum.Text=1,000.00|nmbValue.Text=-42.50kr|nmbIncrement.Text=0.50",
     "DecimalPlaces=2"},
    // A chosen type resets the number fields as the control would, and takes their decimals.
    {"long chosen", unlikeNew, "choose:cmbDataType=2|keys:nmbValue=HE12.5",
     "nmbValue.DataType=twLong|nmbIncrement.DataType=twLong|nmbMinimum.DataType=twLong|nmbMaximum.DataType=twLong|"
     "nmbValue.DecimalPlaces=0|nmbIncrement.DecimalPlaces=0|nmbMinimum.DecimalPlaces=0|nmbMaximum.DecimalPlaces=0|"
     "nmbMinimum=-2147483648|nmbMaximum=2147483647|nmbIncrement=1|nmbDecimalPlaces.Maximum=0|nmbValue=125",
     "DataType=twLong|Value=125|Maximum=2147483647"},
    {"currency chosen", unlikeNew, "choose:cmbDataType=5", "nmbDecimalPlaces.Maximum=2|nmbDecimalPlaces=2",
     "DataType=twCurrency|DecimalPlaces=2"},
    // The preview takes a bound once its field is left, not while it is typed.
    {"bound left", unlikeNew, "keys:nmbMaximum=HE50->", "nmbValue.Maximum=-50|nmbValue=-50"},
    {"bound being typed", unlikeNew, "keys:nmbMaximum=HE30", "nmbValue.Maximum=1000|nmbValue=-42.5"},

    // Ticking UpDown ticks the arrow keys along; the user may then set them apart.
    {"up-down clicked", "", "click:chkUpDown", "chkInterceptArrowKeys=1|nmbValue.UpDown=true",
     "UpDown=true|InterceptArrowKeys=true"},
    {"up-down by space", "", "keys:chkUpDown= ", "chkInterceptArrowKeys=1", "UpDown=true|InterceptArrowKeys=true"},
    {"arrow keys unticked after", "", "click:chkUpDown|click:chkInterceptArrowKeys", "chkInterceptArrowKeys=0",
     "UpDown=true|InterceptArrowKeys=false"},
    {"up-down unticked", unlikeNew, "click:chkUpDown", "chkUpDown=0|nmbValue.UpDown=false", "UpDown=false"},

    // DataType first frees the range, Maximum goes before Minimum, Value after both bounds.
    {"range below the old one", smallRange, "keys:nmbMinimum=HE50-|keys:nmbMaximum=HE20-|keys:nmbValue=HE30-", "",
     "Minimum=-50|Maximum=-20|Value=-30"},
    {"range above the old one", smallRange, "keys:nmbMinimum=HE500|keys:nmbMaximum=HE1000|keys:nmbValue=HE750", "",
     "Minimum=500|Maximum=1000|Value=750"},
    {"crossed bounds keep the maximum", smallRange, "keys:nmbMinimum=HE100|keys:nmbMaximum=HE50|keys:nmbValue=HE7",
     "", "Minimum=-2147483648|Maximum=50|Value=7"},

    // The host refuses the maximum: what came before it is written, the rest is not.
    {"refused maximum", "", "click:chkEnabled|keys:nmbMaximum=HE50|click:chkThousandSeparator", "",
     "Enabled=false|ThousandSeparator=true", 380,
     "CheckBox Checked DataType Alignment Enabled UpDown InterceptArrowKeys Increment DecimalPlaces Locked Maximum",
     "Maximum"},
};
INSTANTIATE_TEST_SUITE_P(Rows, NBPage, ::testing::ValuesIn(rows), TestSupport::rowName);

class NBKeyboard : public NBPage
{
};
TEST_F(NBKeyboard, TabFollowsTheWidgetTable)
{
    const QStringList table = items("cmbDataType|cmbAlignment|cmbBorderStyle|cmbShowCurrencySymbol|txtCurrencySymbol|"
                                    "nmbDecimalPlaces|nmbIncrement|nmbMinimum|nmbMaximum|nmbValue|chkNullIfEmpty|"
                                    "chkChecked|chkCheckBox|chkUpDown|chkSelectTextOnFocus|chkUseNegativeColor|"
                                    "chkEnabled|chkThousandSeparator|chkLocked|chkInterceptArrowKeys");
    EXPECT_EQ(tabOrder(table), table);
}

} // namespace
} // namespace Tarnwell::PageTest
