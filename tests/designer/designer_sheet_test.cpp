// The property editor's view of the controls: which properties Designer shows and in which editor,
// and what a write through the form window (as the property editor makes it) does to a control.
#include "designerfixture.h"

#include <tarnwell/datebox.h>
#include <tarnwell/numberbox.h>

#include <QtDesigner/QDesignerFormWindowCursorInterface>

#include <QApplication>
#include <QColor>
#include <QMessageBox>
#include <QPalette>
#include <QTimer>
#include <QUndoStack>

namespace {

using namespace DesignerTest;

// A property and the editor Designer gives it: a type name, "enum", or "" for none (not shown).
struct ShownRow {
    const char *name;
    const char *widget;
    const char *property;
    const char *editor;
};

const ShownRow shownRows[] = {
    {"BackColorAsColour", "maskBox", "BackColor", "QColor"},
    {"ForeColorAsColour", "timeBox", "ForeColor", "QColor"},
    {"NegativeColorAsColour", "numberBox", "NegativeColor", "QColor"},
    {"CalendarColourAsColour", "dateBox", "CalendarTrailingForeColor", "QColor"},
    {"BorderStyleAsEnum", "maskBox", "BorderStyle", "enum"},
    {"CharCaseAsEnum", "maskBox", "CharCase", "enum"},
    {"DataTypeAsEnum", "numberBox", "DataType", "enum"},
    {"ShowCurrencySymbolAsEnum", "numberBox", "ShowCurrencySymbol", "enum"},
    {"DateFormatAsEnum", "dateBox", "Format", "enum"},
    {"TimeFormatAsEnum", "timeBox", "Format", "enum"},
    {"AlignmentAsEnum", "timeBox", "Alignment", "enum"},
    {"LockedAsCheckBox", "maskBox", "Locked", "bool"},
    {"UpDownAsCheckBox", "dateBox", "UpDown", "bool"},
    {"FontAsFont", "maskBox", "Font", "QFont"},
    {"CalendarFontAsFont", "dateBox", "CalendarFont", "QFont"},
    {"DateMinimumAsDate", "dateBox", "Minimum", "QDate"},
    {"DateMaximumAsDate", "dateBox", "Maximum", "QDate"},
    {"TimeMinimumAsTime", "timeBox", "Minimum", "QTime"},
    {"TimeMaximumAsTime", "timeBox", "Maximum", "QTime"},
    {"NumberValueAsDouble", "numberBox", "Value", "double"},
    {"NumberMinimumAsDouble", "numberBox", "Minimum", "double"},
    {"NumberIncrementAsDouble", "numberBox", "Increment", "double"},
    {"DecimalPlacesAsInt", "numberBox", "DecimalPlaces", "int"},
    // Run-time only, or never stored: a .ui file must not hold them.
    {"SelStartHidden", "maskBox", "SelStart", ""},
    {"SelLengthHidden", "numberBox", "SelLength", ""},
    {"SelTextHidden", "dateBox", "SelText", ""},
    {"MaskTextHidden", "maskBox", "Text", ""},
    {"ValueBoxTextHidden", "numberBox", "Text", ""},
    {"MaskValueHidden", "maskBox", "Value", ""},
    {"DateValueHidden", "dateBox", "Value", ""},
    {"TimeValueHidden", "timeBox", "Value", ""},
    {"MaxDecimalPlacesHidden", "numberBox", "MaxDecimalPlaces", ""},
    {"ModelTextHidden", "maskBox", "text", ""},
    {"ModelValueHidden", "numberBox", "value", ""},
    {"ModelDateHidden", "dateBox", "date", ""},
    {"ModelTimeHidden", "timeBox", "time", ""},
};

class ShownPropertyTest : public ::testing::TestWithParam<ShownRow>
{
};

TEST_P(ShownPropertyTest, HasTheEditorDesignerKnows)
{
    const ShownRow &row = GetParam();
    Form form(readFile(roundTripUi));
    QWidget *control = form.child(row.widget);
    ASSERT_NE(control, nullptr);
    QDesignerPropertySheetExtension *sheet = form.sheet(control);
    ASSERT_NE(sheet, nullptr);
    const int index = sheet->indexOf(QLatin1String(row.property));
    ASSERT_GE(index, 0);
    const std::string editor = row.editor;
    if (editor.empty()) {
        EXPECT_FALSE(sheet->isVisible(index));
        return;
    }
    EXPECT_TRUE(sheet->isVisible(index));
    const std::string type = sheet->property(index).metaType().name();
    if (editor == "enum")
        EXPECT_NE(type.find("EnumValue"), std::string::npos) << type;
    else
        EXPECT_EQ(type, editor);
}

INSTANTIATE_TEST_SUITE_P(Controls, ShownPropertyTest, ::testing::ValuesIn(shownRows),
                         [](const auto &info) { return std::string(info.param.name); });

// A system colour is shown as the control draws it.
TEST(PropertySheet, ShowsSystemColoursFromThePalette)
{
    Form form(readFile(roundTripUi));
    auto *number = form.child<Tarnwell::NumberBox>("numberBox");
    ASSERT_NE(number, nullptr);
    QDesignerPropertySheetExtension *sheet = form.sheet(number);
    EXPECT_EQ(sheet->property(sheet->indexOf(QStringLiteral("ForeColor"))).value<QColor>(),
              number->palette().color(QPalette::Text));
}

// A write as the property editor makes it: through the form window's cursor, recorded for undo.
TEST(PropertySheet, WritesAColourAsTheControlsColour)
{
    Form form(readFile(roundTripUi));
    auto *date = form.child<Tarnwell::DateBox>("dateBox");
    ASSERT_NE(date, nullptr);
    form.window->cursor()->setWidgetProperty(date, QStringLiteral("CalendarBackColor"), QColor(10, 20, 30));
    EXPECT_EQ(date->CalendarBackColor(), Tarnwell::OleColor::fromRgb(10, 20, 30));
    EXPECT_TRUE(date->isDirty(QStringLiteral("CalendarBackColor")));
    form.window->commandHistory()->undo();
    EXPECT_EQ(date->CalendarBackColor(), Tarnwell::OleColor(Tarnwell::OleColor::WindowBackground));
}

struct RefusedRow {
    const char *name;
    const char *widget;
    const char *property;
    QVariant value;
    int error;
};

const RefusedRow refusedRows[] = {
    {"DateSeparatorLetter", "dateBox", "Separator", QStringLiteral("x"), 380},
    {"TimeSeparatorSlash", "timeBox", "Separator", QStringLiteral("/"), 380},
    {"OversizedMask", "maskBox", "Mask", QString(32768, QLatin1Char('#')), 6},
    {"DateBeforeItsType", "dateBox", "Minimum", QDate(1, 1, 1), 6},
};

class RefusedWriteTest : public ::testing::TestWithParam<RefusedRow>
{
};

// A refusal reaches the designer as the control's message, never Designer as an exception; the
// control keeps its setting and the property is not marked for saving.
TEST_P(RefusedWriteTest, LeavesTheControlAndShowsTheError)
{
    const RefusedRow &row = GetParam();
    Form form(readFile(roundTripUi));
    QWidget *control = form.child(row.widget);
    ASSERT_NE(control, nullptr);
    QDesignerPropertySheetExtension *sheet = form.sheet(control);
    const int index = sheet->indexOf(QLatin1String(row.property));
    const bool wasChanged = sheet->isChanged(index);
    const std::string before = TestSupport::propertiesOf(*control);
    EXPECT_NO_THROW(form.window->cursor()->setWidgetProperty(control, QLatin1String(row.property), row.value));
    // The message box opens once the write has returned; read it and close it from inside.
    QString shown;
    QTimer::singleShot(0, [&] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            shown = box->text();
            box->close();
        }
    });
    QApplication::processEvents();
    QApplication::processEvents();
    EXPECT_EQ(shown, QStringLiteral("%1: %2").arg(QLatin1String(row.property), Tarnwell::Error::textOf(row.error)));
    EXPECT_EQ(TestSupport::propertiesOf(*control), before);
    EXPECT_EQ(sheet->isChanged(index), wasChanged);
}

INSTANTIATE_TEST_SUITE_P(Controls, RefusedWriteTest, ::testing::ValuesIn(refusedRows),
                         [](const auto &info) { return std::string(info.param.name); });

} // namespace
