// "Properties..." on a control of a Designer form: the dialog's changes go through the form window,
// so that each one is undoable and saved, and a refusal is shown without closing the dialog.
#include "designerfixture.h"

#include <tarnwell/propertydialog.h>

#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerTaskMenuExtension>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QUndoStack>

using namespace DesignerTest;

namespace {

// Opens the control's "Properties..." and runs `use` on the dialog once it is shown.
void withPropertiesOf(QWidget *control, const std::function<void(Tarnwell::PropertyDialog *)> &use)
{
    auto *menu = qt_extension<QDesignerTaskMenuExtension *>(core()->extensionManager(), control);
    ASSERT_NE(menu, nullptr);
    QList<QAction *> actions = menu->taskActions();
    ASSERT_EQ(actions.size(), 1);
    EXPECT_EQ(actions.first()->text(), QStringLiteral("Properties..."));
    bool shown = false;
    QTimer::singleShot(0, [&] {
        auto *dialog = qobject_cast<Tarnwell::PropertyDialog *>(QApplication::activeModalWidget());
        shown = dialog != nullptr;
        if (dialog) {
            use(dialog);
            dialog->reject(); // no-op once OK has closed it
        }
    });
    actions.first()->trigger();
    EXPECT_TRUE(shown);
}

void clickOk(Tarnwell::PropertyDialog *dialog)
{
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
}

struct TaskRow {
    const char *name;
    const char *widget;
    const char *property; // the setting the page's Locked box changes
};

const TaskRow taskRows[] = {
    {"MaskBox", "maskBox", "Locked"},
    {"NumberBox", "numberBox", "Locked"},
    {"DateBox", "dateBox", "Locked"},
    {"TimeBox", "timeBox", "Locked"},
};

class TaskMenuTest : public ::testing::TestWithParam<TaskRow>
{
};

// Every page applies its whole order through the form window: the control changes, Designer marks
// the setting for saving, and one undo step takes the apply back.
TEST_P(TaskMenuTest, AppliesThroughTheFormWindow)
{
    const TaskRow &row = GetParam();
    Form form(readFile(roundTripUi));
    QWidget *control = form.child(row.widget);
    ASSERT_NE(control, nullptr);
    const bool before = control->property(row.property).toBool();
    const int undoBefore = form.window->commandHistory()->count();
    withPropertiesOf(control, [](Tarnwell::PropertyDialog *dialog) {
        auto *locked = dialog->findChild<QCheckBox *>(QStringLiteral("chkLocked"));
        ASSERT_NE(locked, nullptr);
        QTest::mouseClick(locked, Qt::LeftButton, {}, QPoint(4, locked->height() / 2));
        clickOk(dialog);
    });
    QApplication::processEvents(); // the apply's undo step closes
    EXPECT_EQ(control->property(row.property).toBool(), !before);
    QDesignerPropertySheetExtension *sheet = form.sheet(control);
    EXPECT_TRUE(sheet->isChanged(sheet->indexOf(QLatin1String(row.property))));
    // The whole apply is one step.
    EXPECT_EQ(form.window->commandHistory()->count(), undoBefore + 1);
    form.window->commandHistory()->undo();
    EXPECT_EQ(control->property(row.property).toBool(), before);
}

INSTANTIATE_TEST_SUITE_P(Controls, TaskMenuTest, ::testing::ValuesIn(taskRows),
                         [](const auto &info) { return std::string(info.param.name); });

// The control refuses the typed separator: the message shows, the dialog stays open and changed.
TEST(TaskMenu, RefusalKeepsTheDialogOpen)
{
    Form form(readFile(roundTripUi));
    QWidget *time = form.child("timeBox");
    ASSERT_NE(time, nullptr);
    const QString separator = time->property("Separator").toString();
    QString message;
    bool stillOpen = false;
    withPropertiesOf(time, [&](Tarnwell::PropertyDialog *dialog) {
        auto *combo = dialog->findChild<QComboBox *>(QStringLiteral("cmbSeparator"));
        ASSERT_NE(combo, nullptr);
        combo->setFocus();
        combo->lineEdit()->selectAll();
        QTest::keyClicks(combo->lineEdit(), QStringLiteral("x"));
        QTimer::singleShot(0, [&] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                message = box->text();
                box->close();
            }
        });
        clickOk(dialog);
        stillOpen = dialog->isVisible() && dialog->applyButton()->isEnabled();
    });
    EXPECT_EQ(message, Tarnwell::Error::textOf(380));
    EXPECT_TRUE(stillOpen);
    EXPECT_EQ(time->property("Separator").toString(), separator);
}

} // namespace
