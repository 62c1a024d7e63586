// The NumberBox "General" page as a designer meets it: filled from the first selected NumberBox,
// its own number fields kept in step, edited with real clicks and keys, applied back in its order.
#include <tarnwell/numberbox.h>
#include <tarnwell/variant.h>
#include <tarnwell/xgeneralnb.h>

#include "common/testsupport.h"
#include "pages/pagefixture.h"

#include <QLabel>

namespace Tarnwell {
namespace {

using TestSupport::rowName;

class GeneralNB : public PageFixture<xGeneralNB>
{
protected:
    // A first control unlike a new one in every setting the page shows, and a new one behind it.
    void SetUp() override
    {
        PageFixture::SetUp();
        first = addControl<NumberBox>();
        first->setDataType(twDouble); // first: it resets the numbers
        first->setDecimalPlaces(1);
        first->setIncrement(0.5);
        first->setMaximum(1000);
        first->setMinimum(-100);
        first->setValue(42.5);
        first->setAlignment(twCenter);
        first->setBorderStyle(twNone);
        first->setThousandSeparator(false);
        first->setUseNegativeColor(false);
        first->setCurrencySymbol(QStringLiteral("kr"));
        first->setShowCurrencySymbol(twRight);
        first->setUpDown(true);
        first->setInterceptArrowKeys(false); // after UpDown, which sets it too
        first->setEnabled(false);
        first->setLocked(true);
        first->setSelectTextOnFocus(true);
        first->setCheckBox(true);
        first->setNullIfEmpty(true);
        second = addControl<NumberBox>();
        secondBefore = settingsOf(*second);
    }

    NumberBox *field(const char *name) const { return widget<NumberBox>(name); }
    // What a field shows while it does not have the focus.
    QString shown(const char *name) const { return field(name)->Text(); }

    NumberBox *first = nullptr;
    NumberBox *second = nullptr;
    std::string secondBefore;
};

TEST_F(GeneralNB, ShowsTheWidgetsOfItsTable)
{
    EXPECT_EQ(page->Caption(), "General");
    const std::pair<const char *, const char *> labels[] = {
        {"cmbDataType", "&Data Type:"},       {"cmbAlignment", "Alig&nment:"},
        {"cmbBorderStyle", "&Border Style:"}, {"cmbShowCurrencySymbol", "Show Currency Symbol:"},
        {"txtCurrencySymbol", "Cu&rrency Symbol:"}, {"nmbDecimalPlaces", "Decimal &Places:"},
        {"nmbIncrement", "In&crement:"},      {"nmbMinimum", "&Minimum:"},
        {"nmbMaximum", "Ma&ximum:"},          {"nmbValue", "&Value:"}};
    for (const auto &[name, caption] : labels) {
        QStringList captions;
        for (QLabel *label : page->findChildren<QLabel *>())
            if (label->buddy() == widget(name))
                captions.append(label->text());
        EXPECT_EQ(captions, QStringList{QString::fromUtf8(caption)}) << name;
    }
    const std::pair<const char *, const char *> checks[] = {
        {"chkNullIfEmpty", "&Null If Empty"}, {"chkChecked", "Checked"}, {"chkCheckBox", "CheckBox"},
        {"chkUpDown", "&UpDown Button"}, {"chkSelectTextOnFocus", "Select &Text on Focus"},
        {"chkUseNegativeColor", "U&se Negative Color"}, {"chkEnabled", "&Enabled"},
        {"chkThousandSeparator", "T&housands Separator"}, {"chkLocked", "&Locked"},
        {"chkInterceptArrowKeys", "&Intercept Arrow Keys"}};
    for (const auto &[name, caption] : checks)
        EXPECT_EQ(widget<QCheckBox>(name)->text(), QString::fromUtf8(caption)) << name;
    auto items = [this](const char *name) {
        QStringList all;
        for (int i = 0; i < widget<QComboBox>(name)->count(); ++i)
            all.append(widget<QComboBox>(name)->itemText(i));
        return all.join(u'|');
    };
    EXPECT_EQ(items("cmbDataType"), "0 - Byte|1 - Integer|2 - Long|3 - Single|4 - Double|5 - Currency|6 - Decimal");
    EXPECT_EQ(items("cmbShowCurrencySymbol"), "0 - No Currency|1 - Left|2 - Right");
    EXPECT_EQ(items("cmbAlignment"), "0 - Left Justify|1 - Right Justify|2 - Center");
    EXPECT_EQ(items("cmbBorderStyle"), "0 - None|1 - FixedSingle|2 - Fixed3D");
    const QList<QLabel *> warnings = widget("Frame1")->findChildren<QLabel *>();
    ASSERT_EQ(warnings.size(), 1);
    EXPECT_EQ(warnings.first()->text(),
              "Warning  - The Value field in this screen show some of the changed properties.");
    EXPECT_NE(widget("Frame2"), nullptr);
}

TEST_F(GeneralNB, DecimalPlacesFieldIsASmallWholeNumberWithButtons)
{
    NumberBox *places = field("nmbDecimalPlaces");
    EXPECT_EQ(places->DataType(), twInteger);
    EXPECT_EQ(places->Minimum(), QVariant::fromValue<qint16>(0));
    EXPECT_TRUE(places->UpDown());
    EXPECT_TRUE(places->UserMode()) << "a live editor on the page";
}

TEST_F(GeneralNB, TabGoesThroughTheTableInOrder)
{
    select();
    const char *order[] = {"cmbDataType", "cmbAlignment", "cmbBorderStyle", "cmbShowCurrencySymbol",
                           "txtCurrencySymbol", "nmbDecimalPlaces", "nmbIncrement", "nmbMinimum",
                           "nmbMaximum", "nmbValue", "chkNullIfEmpty", "chkChecked", "chkCheckBox",
                           "chkUpDown", "chkSelectTextOnFocus", "chkUseNegativeColor", "chkEnabled",
                           "chkThousandSeparator", "chkLocked", "chkInterceptArrowKeys"};
    showAndFocus(widget(order[0]));
    for (const char *name : order) {
        QWidget *focus = QApplication::focusWidget();
        EXPECT_TRUE(focus == widget(name) || widget(name)->isAncestorOf(focus)) << "expected " << name;
        QTest::keyClick(focus, Qt::Key_Tab);
    }
}

// A setting of the page's own widgets after filling from the first control.
struct Shown {
    const char *name, *widget, *property; // property of the page's widget; none: what it edits
    QVariant expected;
};
void PrintTo(const Shown &row, std::ostream *os) { *os << row.name; }
class GeneralNBFill : public GeneralNB, public ::testing::WithParamInterface<Shown> {};

TEST_P(GeneralNBFill, ShowsTheFirstControl)
{
    const Shown &s = GetParam();
    select();
    const QVariant actual = s.property ? settingAs(widget(s.widget), s.property, s.expected)
                                       : [&] { QVariant v = shownBy(widget(s.widget)); v.convert(s.expected.metaType()); return v; }();
    EXPECT_EQ(actual, s.expected);
    EXPECT_FALSE(page->Changed());
    EXPECT_EQ(changesWhileFilling, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Widgets, GeneralNBFill,
    ::testing::Values(Shown{"data type", "cmbDataType", nullptr, 4}, Shown{"alignment", "cmbAlignment", nullptr, 2},
                      Shown{"border style", "cmbBorderStyle", nullptr, 0},
                      Shown{"currency position", "cmbShowCurrencySymbol", nullptr, 2},
                      Shown{"currency symbol", "txtCurrencySymbol", nullptr, QStringLiteral("kr")},
                      Shown{"decimal places", "nmbDecimalPlaces", nullptr, 1}, Shown{"increment", "nmbIncrement", nullptr, 0.5},
                      Shown{"minimum", "nmbMinimum", nullptr, -100.0}, Shown{"maximum", "nmbMaximum", nullptr, 1000.0},
                      Shown{"value", "nmbValue", nullptr, 42.5}, Shown{"up down", "chkUpDown", nullptr, true},
                      Shown{"arrow keys stay off", "chkInterceptArrowKeys", nullptr, false},
                      Shown{"thousands", "chkThousandSeparator", nullptr, false},
                      Shown{"negative colour", "chkUseNegativeColor", nullptr, false},
                      Shown{"enabled", "chkEnabled", nullptr, false}, Shown{"locked", "chkLocked", nullptr, true},
                      Shown{"select on focus", "chkSelectTextOnFocus", nullptr, true},
                      Shown{"check box", "chkCheckBox", nullptr, true}, Shown{"checked", "chkChecked", nullptr, true},
                      Shown{"null if empty", "chkNullIfEmpty", nullptr, true}),
    rowName);

INSTANTIATE_TEST_SUITE_P(
    Fields, GeneralNBFill,
    ::testing::Values(Shown{"value type", "nmbValue", "DataType", int(twDouble)},
                      Shown{"increment type", "nmbIncrement", "DataType", int(twDouble)},
                      Shown{"minimum type", "nmbMinimum", "DataType", int(twDouble)},
                      Shown{"maximum type", "nmbMaximum", "DataType", int(twDouble)},
                      Shown{"increment decimals", "nmbIncrement", "DecimalPlaces", 1},
                      Shown{"minimum decimals", "nmbMinimum", "DecimalPlaces", 1},
                      Shown{"places bound", "nmbDecimalPlaces", "Maximum", 2},
                      Shown{"preview minimum", "nmbValue", "Minimum", -100.0},
                      Shown{"preview maximum", "nmbValue", "Maximum", 1000.0},
                      Shown{"preview increment", "nmbValue", "Increment", 0.5},
                      Shown{"preview decimals", "nmbValue", "DecimalPlaces", 1},
                      Shown{"preview alignment", "nmbValue", "Alignment", int(twCenter)},
                      Shown{"preview border", "nmbValue", "BorderStyle", int(twNone)},
                      Shown{"preview thousands", "nmbValue", "ThousandSeparator", false},
                      Shown{"preview negative colour", "nmbValue", "UseNegativeColor", false},
                      Shown{"preview symbol", "nmbValue", "CurrencySymbol", QStringLiteral("kr")},
                      Shown{"preview symbol side", "nmbValue", "ShowCurrencySymbol", int(twRight)},
                      Shown{"preview up down", "nmbValue", "UpDown", true},
                      Shown{"preview stays enabled", "nmbValue", "Enabled", true}),
    rowName);

TEST_F(GeneralNB, FillShowsTheNumbersInTheControlsFormat)
{
    first->setValue(-42.5);
    select();
    EXPECT_EQ(shown("nmbValue"), QStringLiteral("-42.5kr"));
    EXPECT_EQ(shown("nmbMaximum"), QStringLiteral("1,000.0"));
    EXPECT_EQ(shown("nmbIncrement"), QStringLiteral("0.5"));
}

TEST_F(GeneralNB, ControlWithClearedCheckBoxFillsAndAppliesItsState)
{
    second->setCheckBox(true);
    second->setChecked(false);
    select({second});
    EXPECT_FALSE(widget<QCheckBox>("chkChecked")->isChecked());
    page->ApplyChanges();
    EXPECT_FALSE(second->Checked());
    EXPECT_FALSE(second->findChild<QLineEdit *>(QStringLiteral("Text1"))->isVisible());
}

// One user edit: it marks the page changed, writes nothing until applied, and then reaches the
// first control only.
struct Edit {
    const char *name;
    std::function<void(GeneralNB &)> act;
    const char *property;
    QVariant expected;
};
void PrintTo(const Edit &row, std::ostream *os) { *os << row.name; }
class GeneralNBEdit : public GeneralNB, public ::testing::WithParamInterface<Edit> {};

TEST_P(GeneralNBEdit, MarksChangedAndAppliesToTheFirstOnly)
{
    const Edit &e = GetParam();
    auto *third = addControl<NumberBox>();
    const std::string thirdBefore = settingsOf(*third);
    select();
    const QVariant before = first->property(e.property);

    e.act(*this);
    QApplication::processEvents();
    EXPECT_TRUE(page->Changed());
    EXPECT_EQ(spy->count(), 1);
    EXPECT_EQ(first->property(e.property), before) << "written before apply";

    page->ApplyChanges();
    EXPECT_EQ(settingAs(first, e.property, e.expected), e.expected);
    EXPECT_FALSE(page->Changed());
    EXPECT_EQ(settingsOf(*second), secondBefore);
    EXPECT_EQ(settingsOf(*third), thirdBefore);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GeneralNBEdit,
    ::testing::Values(
        Edit{"data type", [](GeneralNB &t) { t.choose("cmbDataType", 2); }, "DataType", int(twLong)},
        Edit{"alignment", [](GeneralNB &t) { t.choose("cmbAlignment", 1); }, "Alignment", int(twRightJustify)},
        Edit{"border", [](GeneralNB &t) { t.choose("cmbBorderStyle", 2); }, "BorderStyle", int(twFixed3D)},
        Edit{"symbol side", [](GeneralNB &t) { t.choose("cmbShowCurrencySymbol", 1); }, "ShowCurrencySymbol", int(twLeft)},
        Edit{"symbol", [](GeneralNB &t) { t.type("txtCurrencySymbol", QStringLiteral("EUR")); }, "CurrencySymbol",
             QStringLiteral("EUR")},
        Edit{"fewer decimals", [](GeneralNB &t) { t.type("nmbDecimalPlaces", QStringLiteral("0")); }, "DecimalPlaces", 0},
        Edit{"decimals stepped", [](GeneralNB &t) {
                 t.showAndFocusField("nmbDecimalPlaces");
                 QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
             }, "DecimalPlaces", 2},
        Edit{"increment", [](GeneralNB &t) { t.type("nmbIncrement", QStringLiteral("2.5")); }, "Increment", 2.5},
        Edit{"minimum", [](GeneralNB &t) { t.type("nmbMinimum", QStringLiteral("5-")); }, "Minimum", -5.0},
        Edit{"maximum", [](GeneralNB &t) { t.type("nmbMaximum", QStringLiteral("50")); }, "Maximum", 50.0},
        Edit{"value", [](GeneralNB &t) { t.type("nmbValue", QStringLiteral("7.5")); }, "Value", 7.5},
        Edit{"thousands", [](GeneralNB &t) { t.click("chkThousandSeparator"); }, "ThousandSeparator", true},
        Edit{"negative colour", [](GeneralNB &t) { t.click("chkUseNegativeColor"); }, "UseNegativeColor", true},
        Edit{"no up down", [](GeneralNB &t) { t.click("chkUpDown"); }, "UpDown", false},
        Edit{"arrow keys", [](GeneralNB &t) { t.click("chkInterceptArrowKeys"); }, "InterceptArrowKeys", true},
        Edit{"enabled", [](GeneralNB &t) { t.click("chkEnabled"); }, "Enabled", true},
        Edit{"unlocked", [](GeneralNB &t) { t.click("chkLocked"); }, "Locked", false},
        Edit{"no select", [](GeneralNB &t) { t.click("chkSelectTextOnFocus"); }, "SelectTextOnFocus", false},
        Edit{"no check box", [](GeneralNB &t) { t.click("chkCheckBox"); }, "CheckBox", false},
        Edit{"unchecked", [](GeneralNB &t) { t.click("chkChecked"); }, "Checked", false},
        Edit{"not null", [](GeneralNB &t) { t.click("chkNullIfEmpty"); }, "NullIfEmpty", false}),
    rowName);

// Ticking or unticking UpDown by hand takes arrow-key stepping with it; the user may then set
// that apart, and the apply keeps the user's choice.
struct Coupling {
    const char *name;
    bool space; // the keyboard's Space instead of the mouse
    bool untickArrowKeysAfter;
};
void PrintTo(const Coupling &row, std::ostream *os) { *os << row.name; }
class GeneralNBCoupling : public GeneralNB, public ::testing::WithParamInterface<Coupling> {};

TEST_P(GeneralNBCoupling, UpDownClickTakesArrowKeysAlong)
{
    const Coupling &c = GetParam();
    select({second});
    if (c.space) {
        showAndFocus(widget("chkUpDown"));
        QTest::keyClick(widget("chkUpDown"), Qt::Key_Space);
    } else {
        click("chkUpDown");
    }
    EXPECT_TRUE(widget<QCheckBox>("chkInterceptArrowKeys")->isChecked());
    EXPECT_TRUE(field("nmbValue")->UpDown()) << "the preview shows the buttons";
    if (c.untickArrowKeysAfter)
        click("chkInterceptArrowKeys");
    page->ApplyChanges();
    EXPECT_TRUE(second->UpDown());
    EXPECT_EQ(second->InterceptArrowKeys(), !c.untickArrowKeysAfter);

    // What that means on the form.
    second->setUserMode(true);
    showAndFocus(second);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    EXPECT_EQ(Variant::toDouble(second->Value()), c.untickArrowKeysAfter ? 0.0 : 1.0);
}

INSTANTIATE_TEST_SUITE_P(Rows, GeneralNBCoupling,
                         ::testing::Values(Coupling{"mouse", false, false}, Coupling{"space", true, false},
                                           Coupling{"arrow keys unticked after", false, true}),
                         rowName);

// Decimal places chosen on the page show at once in every number field.
struct Decimals {
    const char *name, *field, *expected;
};
void PrintTo(const Decimals &row, std::ostream *os) { *os << row.name; }
class GeneralNBDecimals : public GeneralNB, public ::testing::WithParamInterface<Decimals> {};

TEST_P(GeneralNBDecimals, StepShowsInTheField)
{
    select();
    showAndFocusField("nmbDecimalPlaces");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    EXPECT_EQ(shown(GetParam().field), QString::fromUtf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(Rows, GeneralNBDecimals,
                         ::testing::Values(Decimals{"minimum", "nmbMinimum", "-100.00"},
                                           Decimals{"maximum", "nmbMaximum", "1,000.00"},
                                           Decimals{"value", "nmbValue", "42.50kr"},
                                           Decimals{"increment", "nmbIncrement", "0.50"}),
                         rowName);

// The apply order seen in its effect on a control whose range is 0..10 (value 5): DataType first
// (it frees the range, so a new range below the old one is taken), Maximum before Minimum, and
// Value after both bounds.
struct Order {
    const char *name, *minimum, *maximum, *value; // typed into the page
    double expectedMinimum, expectedMaximum, expectedValue;
};
void PrintTo(const Order &row, std::ostream *os) { *os << row.name; }
class GeneralNBOrder : public GeneralNB, public ::testing::WithParamInterface<Order> {};

TEST_P(GeneralNBOrder, ShowsInTheControl)
{
    const Order &o = GetParam();
    second->setDataType(twLong);
    second->setMaximum(10);
    second->setMinimum(0);
    second->setValue(5);
    select({second});
    type("nmbMinimum", QString::fromLatin1(o.minimum));
    type("nmbMaximum", QString::fromLatin1(o.maximum));
    type("nmbValue", QString::fromLatin1(o.value));
    page->ApplyChanges();
    EXPECT_EQ(Variant::toDouble(second->Minimum()), o.expectedMinimum);
    EXPECT_EQ(Variant::toDouble(second->Maximum()), o.expectedMaximum);
    EXPECT_EQ(Variant::toDouble(second->Value()), o.expectedValue);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GeneralNBOrder,
    ::testing::Values(Order{"range below the old one", "50-", "20-", "30-", -50, -20, -30},
                      Order{"range above the old one", "500", "1000", "750", 500, 1000, 750},
                      Order{"crossed bounds keep the maximum", "100", "50", "7", -2147483648.0, 50, 7}),
    rowName);

TEST_F(GeneralNB, ChosenDataTypeResetsTheFieldsAsTheControlWould)
{
    select();
    choose("cmbDataType", int(twLong));
    for (const char *name : {"nmbValue", "nmbIncrement", "nmbMinimum", "nmbMaximum"}) {
        EXPECT_EQ(field(name)->DataType(), twLong) << name;
        EXPECT_EQ(field(name)->DecimalPlaces(), 0) << name;
    }
    EXPECT_EQ(Variant::toDouble(field("nmbMinimum")->Value()), -2147483648.0);
    EXPECT_EQ(Variant::toDouble(field("nmbMaximum")->Value()), 2147483647.0);
    EXPECT_EQ(Variant::toDouble(field("nmbIncrement")->Value()), 1.0);
    EXPECT_EQ(Variant::toDouble(field("nmbDecimalPlaces")->Maximum()), 0.0);
    type("nmbValue", QStringLiteral("12.5"));
    EXPECT_EQ(Variant::toDouble(field("nmbValue")->Value()), 125.0) << "a Long takes no decimals";

    choose("cmbDataType", int(twCurrency));
    EXPECT_EQ(Variant::toDouble(field("nmbDecimalPlaces")->Maximum()), 2.0);
    EXPECT_EQ(Variant::toDouble(field("nmbDecimalPlaces")->Value()), 2.0);
    page->ApplyChanges();
    EXPECT_EQ(first->DataType(), twCurrency);
    EXPECT_EQ(first->DecimalPlaces(), 2);
    EXPECT_EQ(first->Maximum(), NumberBox().Maximum()) << "the type's own range";
}

TEST_F(GeneralNB, PreviewTakesABoundWhenItsFieldIsLeft)
{
    select();
    type("nmbMaximum", QStringLiteral("30"));
    EXPECT_EQ(Variant::toDouble(field("nmbValue")->Maximum()), 1000.0) << "not while typing";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(Variant::toDouble(field("nmbValue")->Maximum()), 30.0);
    EXPECT_EQ(Variant::toDouble(field("nmbValue")->Value()), 30.0);
}

TEST_F(GeneralNB, WritesInItsOrder)
{
    QStringList names;
    page->setPropertyWriter(RecordingWriter{&names});
    select();
    page->ApplyChanges();
    EXPECT_EQ(names.join(u' '), "CheckBox Checked DataType Alignment Enabled UpDown InterceptArrowKeys "
                                "Increment DecimalPlaces Locked Maximum Minimum ThousandSeparator Value "
                                "BorderStyle UseNegativeColor SelectTextOnFocus ShowCurrencySymbol "
                                "CurrencySymbol NullIfEmpty");
}

TEST_F(GeneralNB, RefusedWriteKeepsEarlierWritesAndThePageChanged)
{
    QStringList names;
    page->setPropertyWriter(RecordingWriter{&names, "Maximum"});
    select({second});
    click("chkEnabled");
    type("nmbMaximum", QStringLiteral("50"));
    click("chkThousandSeparator");
    EXPECT_ERROR(page->ApplyChanges(), Error::InvalidPropertyValue);
    EXPECT_FALSE(second->Enabled()) << "written before the refusal";
    EXPECT_TRUE(second->ThousandSeparator()) << "after it: not written";
    EXPECT_TRUE(page->Changed());
}

} // namespace
} // namespace Tarnwell
