// A form with all four controls and settings away from their defaults, as Designer saved it, read
// back three ways: by the code uic generated from it at build time, by QUiLoader, and by QUiLoader
// from what Designer's own form editor saves after loading it. Each must give the saved settings.
#include "designerfixture.h"

#include "ui_roundtrip.h"

#include <tarnwell/date.h>
#include <tarnwell/olecolor.h>

#include <QDate>
#include <QFont>
#include <QTime>

namespace {

using namespace DesignerTest;
using Tarnwell::Date;
using Tarnwell::OleColor;

struct SavedRow {
    const char *name;
    const char *widget;
    const char *property;
    QVariant expected; // in the type the control's property has
};

QFont savedFont()
{
    QFont font(QStringLiteral("DejaVu Sans"), 11);
    font.setBold(true);
    return font;
}

const SavedRow savedRows[] = {
    {"MaskBoxMask", "maskBox", "Mask", QStringLiteral("(###) ###-####")},
    {"MaskBoxCharCase", "maskBox", "CharCase", QVariant::fromValue(Tarnwell::twUpperCase)},
    {"MaskBoxPromptInclude", "maskBox", "PromptInclude", false},
    {"MaskBoxBorderStyle", "maskBox", "BorderStyle", QVariant::fromValue(Tarnwell::twFixedSingle)},
    {"MaskBoxAlignment", "maskBox", "Alignment", QVariant::fromValue(Tarnwell::twCenter)},
    {"MaskBoxBackColor", "maskBox", "BackColor", QVariant::fromValue(OleColor::fromRgb(255, 255, 192))},
    {"MaskBoxFont", "maskBox", "Font", savedFont()},
    {"MaskBoxEnterAsTab", "maskBox", "EnterAsTab", true},
    {"MaskBoxToolTip", "maskBox", "ToolTip", QStringLiteral("Telephone")},
    {"NumberBoxDataType", "numberBox", "DataType", QVariant::fromValue(Tarnwell::twDouble)},
    {"NumberBoxMinimum", "numberBox", "Minimum", -50.5},
    {"NumberBoxMaximum", "numberBox", "Maximum", 1000.0},
    {"NumberBoxIncrement", "numberBox", "Increment", 2.5},
    {"NumberBoxDecimalPlaces", "numberBox", "DecimalPlaces", QVariant::fromValue(short(1))},
    // Written after DataType and the range, which would each have reset or refused it.
    {"NumberBoxValue", "numberBox", "Value", 12.25},
    {"NumberBoxThousandSeparator", "numberBox", "ThousandSeparator", false},
    {"NumberBoxCurrencySymbol", "numberBox", "CurrencySymbol", QStringLiteral("\u20ac")},
    {"NumberBoxShowCurrencySymbol", "numberBox", "ShowCurrencySymbol", QVariant::fromValue(Tarnwell::twRight)},
    {"NumberBoxNegativeColor", "numberBox", "NegativeColor", QVariant::fromValue(OleColor::fromRgb(0, 128, 0))},
    {"NumberBoxUpDown", "numberBox", "UpDown", true},
    {"DateBoxFormat", "dateBox", "Format", QVariant::fromValue(Tarnwell::twYearMonthDay)},
    {"DateBoxSeparator", "dateBox", "Separator", QStringLiteral("-")},
    {"DateBoxDisplayFormat", "dateBox", "DisplayFormat", QStringLiteral("yyyy-mm-dd")},
    {"DateBoxMinimum", "dateBox", "Minimum", QVariant::fromValue(Date::fromYmd(2000, 1, 1))},
    {"DateBoxMaximum", "dateBox", "Maximum", QVariant::fromValue(Date::fromYmd(2030, 12, 31))},
    {"DateBoxCalendarTitleBackColor", "dateBox", "CalendarTitleBackColor", QVariant::fromValue(OleColor::fromRgb(0, 0, 128))},
    {"DateBoxNullIfEmpty", "dateBox", "NullIfEmpty", true},
    {"DateBoxCheckBox", "dateBox", "CheckBox", true},
    {"TimeBoxFormat", "timeBox", "Format", QVariant::fromValue(Tarnwell::twHourMinute)},
    {"TimeBoxSeparator", "timeBox", "Separator", QStringLiteral(".")},
    {"TimeBoxMinimum", "timeBox", "Minimum", QVariant::fromValue(Date::fromHms(8, 0, 0))},
    {"TimeBoxMaximum", "timeBox", "Maximum", QVariant::fromValue(Date::fromHms(18, 30, 0))},
    {"TimeBoxForeColor", "timeBox", "ForeColor", QVariant::fromValue(OleColor::fromRgb(128, 0, 0))},
    {"TimeBoxLocked", "timeBox", "Locked", true},
};

// The three readers of the saved form.
enum class Reader { Uic, UiLoader, DesignerResaved };

std::unique_ptr<QWidget> readForm(Reader reader)
{
    switch (reader) {
    case Reader::Uic: {
        auto form = std::make_unique<QWidget>();
        Ui::RoundTrip ui;
        ui.setupUi(form.get());
        return form;
    }
    case Reader::UiLoader: return loadWithUiLoader(readFile(roundTripUi));
    case Reader::DesignerResaved: {
        const Form designed(readFile(roundTripUi));
        return loadWithUiLoader(designed.window->contents());
    }
    }
    return nullptr;
}

class SavedFormTest : public ::testing::TestWithParam<std::tuple<Reader, SavedRow>>
{
};

TEST_P(SavedFormTest, ReadsBackTheSavedSetting)
{
    const auto &[reader, row] = GetParam();
    const std::unique_ptr<QWidget> form = readForm(reader);
    ASSERT_NE(form, nullptr);
    QWidget *control = form->findChild<QWidget *>(QLatin1String(row.widget));
    ASSERT_NE(control, nullptr);
    EXPECT_EQ(control->property(row.property), row.expected);
}

std::string readerName(Reader reader)
{
    switch (reader) {
    case Reader::Uic: return "Uic";
    case Reader::UiLoader: return "UiLoader";
    case Reader::DesignerResaved: return "DesignerResaved";
    }
    return {};
}

INSTANTIATE_TEST_SUITE_P(
    RoundTrip, SavedFormTest,
    ::testing::Combine(::testing::Values(Reader::Uic, Reader::UiLoader, Reader::DesignerResaved),
                       ::testing::ValuesIn(savedRows)),
    [](const auto &info) {
        return readerName(std::get<0>(info.param)) + "_" + std::get<1>(info.param).name;
    });

// The form as a program runs it: loaded controls are in run mode, whichever reader built them.
TEST(SavedForm, LoadedControlsRun)
{
    for (Reader reader : {Reader::Uic, Reader::UiLoader}) {
        const std::unique_ptr<QWidget> form = readForm(reader);
        ASSERT_NE(form, nullptr);
        const auto controls = form->findChildren<Tarnwell::ControlFrame *>(Qt::FindDirectChildrenOnly);
        EXPECT_EQ(controls.size(), 4) << readerName(reader);
        for (const Tarnwell::ControlFrame *control : controls)
            EXPECT_TRUE(control->UserMode()) << control->objectName().toStdString();
    }
}

} // namespace
