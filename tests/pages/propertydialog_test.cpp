// The property dialog as a developer meets it: which pages it shows, Apply enabled exactly while a
// page has unapplied changes, OK and Cancel, and a refused value reported without closing.
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/propertydialog.h>
#include <tarnwell/timebox.h>
#include <tarnwell/xabout.h>
#include <tarnwell/xgeneraldb.h>
#include <tarnwell/xgeneralmb.h>
#include <tarnwell/xgeneralnb.h>
#include <tarnwell/xgeneraltb.h>

#include "common/testsupport.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <functional>
#include <vector>

namespace {

using Tarnwell::PropertyDialog;
using Tarnwell::PropertyPage;

// A control with one setting that refuses values above 100, as the library's controls refuse
// theirs: with Tarnwell::Error and nothing changed.
class Gauge : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int Level READ Level WRITE setLevel)
public:
    int Level() const { return m_level; }
    void setLevel(int level)
    {
        if (level > 100)
            throw Tarnwell::Error(Tarnwell::Error::InvalidPropertyValue);
        m_level = level;
    }

private:
    int m_level = 7;
};

// A page with one text box bound to Level.
class LevelPage : public PropertyPage
{
    Q_OBJECT
public:
    LevelPage() : PropertyPage(QStringLiteral("Level"), nullptr)
    {
        text = new QLineEdit(this);
        text->setObjectName(QStringLiteral("txtLevel"));
        text->setGeometry(4, 4, 120, 24);
        connect(text, &QLineEdit::textChanged, this, [this] { markChanged(); });
    }
    QLineEdit *text;

protected:
    void fill(QObject *control) override { text->setText(read(control, "Level").toString()); }
    void apply(QObject *control) override { write(control, "Level", text->text().toInt()); }
};

// Closes the next message box from inside its own event loop and keeps its text.
class MessageCloser : public QObject
{
public:
    MessageCloser()
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                texts.append(box->text());
                box->accept();
            }
        });
        m_timer.start(10);
    }
    QStringList texts;

private:
    QTimer m_timer;
};

class DialogFixture : public ::testing::Test
{
protected:
    void open(QList<QObject *> controls)
    {
        dialog = std::make_unique<PropertyDialog>(controls);
        page = new LevelPage;
        dialog->addPage(page);
        dialog->setCurrentPage(QStringLiteral("Level"));
        dialog->show();
        QApplication::setActiveWindow(dialog.get());
        (void)QTest::qWaitForWindowExposed(dialog.get());
        page->text->setFocus(Qt::OtherFocusReason);
    }
    void type(const QString &keys)
    {
        page->text->selectAll();
        QTest::keyClicks(page->text, keys);
    }
    QPushButton *button(QDialogButtonBox::StandardButton which) const
    {
        return dialog->findChild<QDialogButtonBox *>()->button(which);
    }

    Gauge gauge;
    std::unique_ptr<PropertyDialog> dialog;
    LevelPage *page = nullptr;
};

// A developer's steps and what they leave: the control's value, the Apply button, the dialog
// still open or not, and the messages seen.
enum class Step { Type, Apply, Ok, Cancel, EnterKey, EscapeKey };
struct StepRow {
    const char *name;
    std::vector<std::pair<Step, const char *>> steps;
    int level;
    bool applyEnabled;
    bool open;
    int result; // QDialog::Accepted or Rejected, once closed
    int messages;
};

const StepRow stepRows[] = {
    {"untouched", {}, 7, false, true, QDialog::Rejected, 0},
    {"typed only", {{Step::Type, "42"}}, 7, true, true, QDialog::Rejected, 0},
    {"typed back to the same", {{Step::Type, "42"}, {Step::Type, "7"}}, 7, true, true, QDialog::Rejected, 0},
    {"applied", {{Step::Type, "42"}, {Step::Apply, nullptr}}, 42, false, true, QDialog::Rejected, 0},
    {"applied then typed", {{Step::Type, "42"}, {Step::Apply, nullptr}, {Step::Type, "43"}}, 42, true, true,
     QDialog::Rejected, 0},
    {"ok applies and closes", {{Step::Type, "42"}, {Step::Ok, nullptr}}, 42, false, false, QDialog::Accepted, 0},
    {"enter is ok", {{Step::Type, "42"}, {Step::EnterKey, nullptr}}, 42, false, false, QDialog::Accepted, 0},
    {"ok untouched closes", {{Step::Ok, nullptr}}, 7, false, false, QDialog::Accepted, 0},
    {"cancel leaves the control", {{Step::Type, "42"}, {Step::Cancel, nullptr}}, 7, true, false,
     QDialog::Rejected, 0},
    {"escape leaves the control", {{Step::Type, "42"}, {Step::EscapeKey, nullptr}}, 7, true, false,
     QDialog::Rejected, 0},
    {"refused apply stays changed", {{Step::Type, "500"}, {Step::Apply, nullptr}}, 7, true, true,
     QDialog::Rejected, 1},
    {"refused ok stays open", {{Step::Type, "500"}, {Step::Ok, nullptr}}, 7, true, true, QDialog::Rejected, 1},
    {"refused then corrected", {{Step::Type, "500"}, {Step::Apply, nullptr}, {Step::Type, "50"}, {Step::Ok, nullptr}},
     50, false, false, QDialog::Accepted, 1},
};
class DialogSteps : public DialogFixture, public ::testing::WithParamInterface<StepRow> {};

TEST_P(DialogSteps, ControlApplyAndDialogFollowTheSteps)
{
    open({&gauge});
    MessageCloser closer;
    for (const auto &[step, keys] : GetParam().steps) {
        switch (step) {
        case Step::Type:
            type(QString::fromLatin1(keys));
            break;
        case Step::Apply:
            QTest::mouseClick(dialog->applyButton(), Qt::LeftButton);
            break;
        case Step::Ok:
            QTest::mouseClick(button(QDialogButtonBox::Ok), Qt::LeftButton);
            break;
        case Step::Cancel:
            QTest::mouseClick(button(QDialogButtonBox::Cancel), Qt::LeftButton);
            break;
        case Step::EnterKey:
            QTest::keyClick(page->text, Qt::Key_Return);
            break;
        case Step::EscapeKey:
            QTest::keyClick(page->text, Qt::Key_Escape);
            break;
        }
    }
    EXPECT_EQ(gauge.Level(), GetParam().level);
    EXPECT_EQ(dialog->applyButton()->isEnabled(), GetParam().applyEnabled);
    EXPECT_EQ(page->Changed(), GetParam().applyEnabled);
    EXPECT_EQ(dialog->isVisible(), GetParam().open);
    if (!GetParam().open) {
        EXPECT_EQ(dialog->result(), GetParam().result);
    }
    ASSERT_EQ(closer.texts.size(), GetParam().messages);
    for (const QString &text : closer.texts)
        EXPECT_EQ(text, Tarnwell::Error::textOf(Tarnwell::Error::InvalidPropertyValue));
}

INSTANTIATE_TEST_SUITE_P(Dialog, DialogSteps, ::testing::ValuesIn(stepRows), TestSupport::rowName);

// Which General page each control gets, beside the About page.
struct PagesRow {
    const char *name;
    std::function<QObject *()> make;
    const char *generalClass; // null: no General page
};

const PagesRow pagesRows[] = {
    {"mask box", [] { return new Tarnwell::MaskBox; }, "Tarnwell::xGeneralMB"},
    {"number box", [] { return new Tarnwell::NumberBox; }, "Tarnwell::xGeneralNB"},
    {"date box", [] { return new Tarnwell::DateBox; }, "Tarnwell::xGeneralDB"},
    {"time box", [] { return new Tarnwell::TimeBox; }, "Tarnwell::xGeneralTB"},
    {"a plain line edit", [] { return new QLineEdit; }, nullptr},
    {"not a widget", [] { return new QObject; }, nullptr},
};
class DialogPages : public ::testing::TestWithParam<PagesRow> {};

TEST_P(DialogPages, GeneralPageOfTheFirstControlsClassThenAbout)
{
    std::unique_ptr<QObject> control(GetParam().make());
    control->setObjectName(QStringLiteral("ctlFirst"));
    Tarnwell::MaskBox other;
    PropertyDialog dialog({control.get(), &other});
    auto *tabs = dialog.findChild<QTabWidget *>();
    ASSERT_NE(tabs, nullptr);
    QStringList titles;
    for (int i = 0; i < tabs->count(); ++i)
        titles.append(tabs->tabText(i));
    const QList<PropertyPage *> pages = dialog.pages();
    if (GetParam().generalClass) {
        EXPECT_EQ(titles, (QStringList{QStringLiteral("General"), QStringLiteral("About")}));
        ASSERT_EQ(pages.size(), 2);
        EXPECT_STREQ(pages[0]->metaObject()->className(), GetParam().generalClass);
    } else {
        EXPECT_EQ(titles, QStringList{QStringLiteral("About")});
        ASSERT_EQ(pages.size(), 1);
    }
    EXPECT_NE(qobject_cast<Tarnwell::xAbout *>(pages.last()), nullptr);
    for (PropertyPage *page : pages)
        EXPECT_EQ(page->SelectedControls(), (QList<QObject *>{control.get(), &other}));
    EXPECT_TRUE(dialog.windowTitle().contains(QLatin1String("ctlFirst"))) << dialog.windowTitle().toStdString();
    EXPECT_FALSE(dialog.applyButton()->isEnabled());
}

INSTANTIATE_TEST_SUITE_P(Dialog, DialogPages, ::testing::ValuesIn(pagesRows), TestSupport::rowName);

TEST_F(DialogFixture, HostWriterTakesTheWritesAndTheControlIsLeftToIt)
{
    open({&gauge});
    QStringList written;
    dialog->setPropertyWriter([&](QObject *control, const char *name, const QVariant &value) {
        written.append(QStringLiteral("%1.%2=%3").arg(control == &gauge ? "gauge" : "other",
                                                      QLatin1String(name), value.toString()));
    });
    type(QStringLiteral("42"));
    QTest::mouseClick(dialog->applyButton(), Qt::LeftButton);
    EXPECT_EQ(written, QStringList{QStringLiteral("gauge.Level=42")});
    EXPECT_EQ(gauge.Level(), 7);
    // A page added later writes through it too.
    auto *later = new LevelPage;
    dialog->addPage(later);
    later->text->setText(QStringLiteral("9"));
    QTest::mouseClick(dialog->applyButton(), Qt::LeftButton);
    EXPECT_EQ(written.last(), QStringLiteral("gauge.Level=9"));
}

TEST_F(DialogFixture, RefusedValueBringsItsPageToTheFront)
{
    open({&gauge});
    type(QStringLiteral("500"));
    dialog->setCurrentPage(QStringLiteral("About"));
    MessageCloser closer;
    QTest::mouseClick(dialog->applyButton(), Qt::LeftButton);
    EXPECT_EQ(closer.texts.size(), 1);
    EXPECT_EQ(dialog->findChild<QTabWidget *>()->currentWidget(), page);
}

TEST_F(DialogFixture, ControlDeletedWhileOpenLeavesNothingToWrite)
{
    auto *doomed = new Gauge;
    open({doomed});
    type(QStringLiteral("42"));
    delete doomed;
    EXPECT_TRUE(dialog->SelectedControls().isEmpty());
    QTest::mouseClick(button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
}

} // namespace

#include "propertydialog_test.moc"
