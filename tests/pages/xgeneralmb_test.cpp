// The MaskBox "General" page as a designer meets it: filled from the first selected MaskBox,
// edited with real clicks and keys, applied back in its order.
#include <tarnwell/maskbox.h>
#include <tarnwell/xgeneralmb.h>

#include "common/testsupport.h"
#include "pages/pagefixture.h"

#include <QLabel>

namespace Tarnwell {
namespace {

using TestSupport::rowName;

class GeneralMB : public PageFixture<xGeneralMB>
{
protected:
    // A first control unlike a new one in every setting the page shows, and a new one behind it.
    void SetUp() override
    {
        PageFixture::SetUp();
        first = addControl<MaskBox>();
        first->setMask(QStringLiteral("(###) ###-####"));
        first->setCharCase(twUpperCase);
        first->setAlignment(twCenter);
        first->setBorderStyle(twNone);
        first->setEnabled(false);
        first->setLocked(true);
        first->setSelectTextOnFocus(true);
        first->setPromptInclude(false);
        first->setCheckBox(true);
        first->setChecked(true);
        first->setNullIfEmpty(true);
        second = addControl<MaskBox>();
        secondBefore = settingsOf(*second);
    }

    MaskBox *first = nullptr;
    MaskBox *second = nullptr;
    std::string secondBefore;
};

TEST_F(GeneralMB, ShowsTheWidgetsOfItsTable)
{
    EXPECT_EQ(page->Caption(), "General");
    const std::pair<const char *, const char *> captions[] = {
        {"chkEnabled", "&Enabled"},       {"chkLocked", "&Locked"},   {"chkSelectTextOnFocus", "Select &Text on Focus"},
        {"chkPromptInclude", "&Prompt Include"}, {"chkCheckBox", "CheckBox"}, {"chkChecked", "Checked"},
        {"chkNullIfEmpty", "&Null If Empty"}};
    for (const auto &[name, caption] : captions)
        EXPECT_EQ(widget<QCheckBox>(name)->text(), QString::fromUtf8(caption)) << name;
    auto items = [this](const char *name) {
        QStringList all;
        for (int i = 0; i < widget<QComboBox>(name)->count(); ++i)
            all.append(widget<QComboBox>(name)->itemText(i));
        return all.join(u'|');
    };
    EXPECT_EQ(items("cmbCase"), "0 - Any|1 - Upper Case|2 - Lower Case");
    EXPECT_EQ(items("cmbAlignment"), "0 - Left Justify|1 - Right Justify|2 - Center");
    EXPECT_EQ(items("cmbBorderStyle"), "0 - None|1 - FixedSingle|2 - Fixed3D");
    EXPECT_NE(widget("txtMask"), nullptr);
    EXPECT_NE(widget("Frame1"), nullptr);
    EXPECT_NE(widget("Frame2"), nullptr);
    EXPECT_EQ(widget<QLabel>("Label1")->text(),
              "The Mask field accepts:\n# - as numbers - 0 to 9\n@ - as letters - A to Z  - a to z\n"
              "? - as Numbers or Letters - 0 to 9 - A to Z - a to z\n"
              "& - any character - ranges: 32 to 126 - 128 to 255\n"
              "\\ - Treat the next character in the mask string as a literal");
}

TEST_F(GeneralMB, TabGoesThroughTheTableInOrder)
{
    select();
    const char *order[] = {"txtMask",    "cmbCase",         "cmbAlignment", "cmbBorderStyle",
                           "chkEnabled", "chkLocked",       "chkSelectTextOnFocus",
                           "chkPromptInclude", "chkCheckBox", "chkChecked", "chkNullIfEmpty"};
    showAndFocus(widget(order[0]));
    for (const char *name : order) {
        EXPECT_EQ(QApplication::focusWidget(), widget(name)) << "expected " << name;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
}

// Each widget shows the first control's setting; the second control's never shows.
struct Shown {
    const char *name, *widget;
    QVariant expected;
};
void PrintTo(const Shown &row, std::ostream *os) { *os << row.name; }
class GeneralMBFill : public GeneralMB, public ::testing::WithParamInterface<Shown> {};

TEST_P(GeneralMBFill, ShowsTheFirstControl)
{
    select();
    EXPECT_EQ(shownBy(widget(GetParam().widget)), GetParam().expected);
    EXPECT_FALSE(page->Changed());
    EXPECT_EQ(changesWhileFilling, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, GeneralMBFill,
    ::testing::Values(Shown{"mask", "txtMask", QStringLiteral("(###) ###-####")},
                      Shown{"char case", "cmbCase", 1}, Shown{"alignment", "cmbAlignment", 2},
                      Shown{"border style", "cmbBorderStyle", 0}, Shown{"enabled", "chkEnabled", false},
                      Shown{"locked", "chkLocked", true}, Shown{"select on focus", "chkSelectTextOnFocus", true},
                      Shown{"prompt include", "chkPromptInclude", false}, Shown{"check box", "chkCheckBox", true},
                      Shown{"checked", "chkChecked", true}, Shown{"null if empty", "chkNullIfEmpty", true}),
    rowName);

// One user edit: it marks the page changed, writes nothing until applied, and then reaches the
// first control only.
struct Edit {
    const char *name;
    std::function<void(GeneralMB &)> act;
    const char *property;
    QVariant expected;
};
void PrintTo(const Edit &row, std::ostream *os) { *os << row.name; }
class GeneralMBEdit : public GeneralMB, public ::testing::WithParamInterface<Edit> {};

TEST_P(GeneralMBEdit, MarksChangedAndAppliesToTheFirstOnly)
{
    const Edit &e = GetParam();
    auto *third = addControl<MaskBox>();
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
    Rows, GeneralMBEdit,
    ::testing::Values(
        Edit{"typed mask", [](GeneralMB &t) { t.type("txtMask", QStringLiteral("@@-##")); }, "Mask",
             QStringLiteral("@@-##")},
        Edit{"cleared mask", [](GeneralMB &t) { t.type("txtMask", {}); }, "Mask", QString()},
        Edit{"lower case", [](GeneralMB &t) { t.choose("cmbCase", 2); }, "CharCase", int(twLowerCase)},
        Edit{"right justify", [](GeneralMB &t) { t.choose("cmbAlignment", 1); }, "Alignment", int(twRightJustify)},
        Edit{"fixed 3d", [](GeneralMB &t) { t.choose("cmbBorderStyle", 2); }, "BorderStyle", int(twFixed3D)},
        Edit{"enabled", [](GeneralMB &t) { t.click("chkEnabled"); }, "Enabled", true},
        Edit{"unlocked", [](GeneralMB &t) { t.click("chkLocked"); }, "Locked", false},
        Edit{"no select on focus", [](GeneralMB &t) { t.click("chkSelectTextOnFocus"); }, "SelectTextOnFocus", false},
        Edit{"prompt include", [](GeneralMB &t) { t.click("chkPromptInclude"); }, "PromptInclude", true},
        Edit{"no check box", [](GeneralMB &t) { t.click("chkCheckBox"); }, "CheckBox", false},
        Edit{"unchecked", [](GeneralMB &t) { t.click("chkChecked"); }, "Checked", false},
        Edit{"not null", [](GeneralMB &t) { t.click("chkNullIfEmpty"); }, "NullIfEmpty", false}),
    rowName);

TEST_F(GeneralMB, ClearedMaskTakesAnyText)
{
    select();
    type("txtMask", {});
    page->ApplyChanges();
    first->setUserMode(true);
    first->setEnabled(true);
    first->setLocked(false);
    showAndFocus(first);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("free-text"));
    EXPECT_EQ(first->Value(), QStringLiteral("FREE-TEXT")); // upper case, as CharCase still says
}

TEST_F(GeneralMB, CheckBoxWithoutCheckHidesTheTextBoxOnApply)
{
    select({second});
    click("chkCheckBox");
    click("chkChecked");
    ASSERT_FALSE(widget<QCheckBox>("chkChecked")->isChecked());
    page->ApplyChanges();
    EXPECT_TRUE(second->CheckBox());
    EXPECT_FALSE(second->Checked());
    EXPECT_FALSE(second->findChild<QLineEdit *>(QStringLiteral("Text1"))->isVisible());
}

TEST_F(GeneralMB, WritesInItsOrder)
{
    QStringList names;
    page->setPropertyWriter(RecordingWriter{&names});
    select();
    page->ApplyChanges();
    EXPECT_EQ(names.join(u' '), "CheckBox Checked Enabled BorderStyle SelectTextOnFocus Locked Alignment "
                                "Mask CharCase PromptInclude NullIfEmpty");
}

TEST_F(GeneralMB, RefusedWriteKeepsEarlierWritesAndThePageChanged)
{
    QStringList names;
    page->setPropertyWriter(RecordingWriter{&names, "Mask"});
    select();
    click("chkEnabled");
    type("txtMask", QStringLiteral("##"));
    EXPECT_ERROR(page->ApplyChanges(), Error::InvalidPropertyValue);
    EXPECT_TRUE(first->Enabled()) << "written before the refusal";
    EXPECT_EQ(first->Mask(), QStringLiteral("(###) ###-####"));
    EXPECT_EQ(first->CharCase(), twUpperCase);
    EXPECT_TRUE(page->Changed());
}

} // namespace
} // namespace Tarnwell
