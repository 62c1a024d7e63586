// Design mode as a developer meets it: clicks and Ctrl+clicks select fields, "Properties..." opens
// the dialog on the selection, what the dialog writes shows on the form and is saved with it.
#include "demoform.h"
#include "demowindow.h"
#include "designsurface.h"
#include "formdocument.h"

#include "common/testsupport.h"

#include <tarnwell/propertydialog.h>
#include <tarnwell/xgeneralmb.h>

#include <QAction>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

#include <vector>

namespace {

using Tarnwell::PropertyDialog;
using Tarnwell::Demo::DemoForm;
using Tarnwell::Demo::DemoWindow;
using Tarnwell::Demo::DesignSurface;

class DesignFixture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        window = std::make_unique<DemoWindow>();
        window->show();
        QApplication::setActiveWindow(window.get());
        (void)QTest::qWaitForWindowExposed(window.get());
        window->setDesignMode(true);
    }
    void TearDown() override
    {
        if (window->propertyDialog())
            delete window->propertyDialog();
        window.reset();
    }

    DesignSurface *surface() const { return window->designSurface(); }
    QWidget *field(const char *name) const { return window->form()->field(QString::fromLatin1(name)); }
    // Where `name` stands on the glass: a field, its caption ("label:" and the field's name), or
    // "empty" for the form's margin.
    QPoint pointOf(const std::string &name) const
    {
        if (name == "empty")
            return QPoint(2, 2);
        if (name.starts_with("label:")) {
            QWidget *buddyOf = field(name.substr(6).c_str());
            for (QLabel *label : window->form()->findChildren<QLabel *>()) {
                if (label->buddy() == buddyOf)
                    return onGlass(label);
            }
            ADD_FAILURE() << "no caption for " << name;
            return {};
        }
        QWidget *target = field(name.c_str());
        EXPECT_NE(target, nullptr) << name;
        return onGlass(target);
    }
    // The glass is the form's child, beside the fields.
    QPoint onGlass(QWidget *widget) const
    {
        return surface()->mapFrom(window->form(), widget->mapTo(window->form(), widget->rect().center()));
    }
    void click(const std::string &name, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::mouseClick(surface(), Qt::LeftButton, modifiers, pointOf(name));
    }
    QStringList selectedNames() const
    {
        QStringList names;
        for (QWidget *selected : surface()->selection())
            names.append(selected->objectName());
        return names;
    }

    std::unique_ptr<DemoWindow> window;
};

struct ClickRow {
    const char *name;
    std::vector<std::pair<const char *, bool>> clicks; // where, with Ctrl
    QStringList selected;
};

const ClickRow clickRows[] = {
    {"nothing", {}, {}},
    {"click selects", {{"mskTelephone", false}}, {"mskTelephone"}},
    {"click another replaces", {{"mskTelephone", false}, {"nmbPrice", false}}, {"nmbPrice"}},
    {"ctrl click adds", {{"mskTelephone", false}, {"nmbPrice", true}}, {"mskTelephone", "nmbPrice"}},
    {"ctrl click on nothing selected adds", {{"dtbOrderDate", true}}, {"dtbOrderDate"}},
    {"ctrl click again removes", {{"mskTelephone", false}, {"nmbPrice", true}, {"mskTelephone", true}}, {"nmbPrice"}},
    {"plain click on a selected one keeps it alone",
     {{"mskTelephone", false}, {"nmbPrice", true}, {"nmbPrice", false}}, {"nmbPrice"}},
    {"click on the margin clears", {{"mskTelephone", false}, {"empty", false}}, {}},
    {"ctrl click on the margin keeps", {{"mskTelephone", false}, {"empty", true}}, {"mskTelephone"}},
    {"caption selects its field", {{"label:tmbShiftStart", false}}, {"tmbShiftStart"}},
};
class DesignClicks : public DesignFixture, public ::testing::WithParamInterface<ClickRow> {};

TEST_P(DesignClicks, SelectionFollowsTheClicks)
{
    for (const auto &[where, ctrl] : GetParam().clicks)
        click(where, ctrl ? Qt::ControlModifier : Qt::NoModifier);
    EXPECT_EQ(selectedNames(), GetParam().selected);
    EXPECT_EQ(window->propertiesAction()->isEnabled(), !GetParam().selected.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Design, DesignClicks, ::testing::ValuesIn(clickRows), TestSupport::rowName);

TEST_F(DesignFixture, RunModeDropsTheSelectionAndClicksReachTheField)
{
    click("mskTelephone");
    window->setDesignMode(false);
    EXPECT_TRUE(surface()->selection().isEmpty());
    EXPECT_FALSE(surface()->isVisible());
    EXPECT_FALSE(window->propertiesAction()->isEnabled());
    QWidget *customer = field("txtCustomer");
    QTest::mouseClick(customer, Qt::LeftButton);
    EXPECT_TRUE(customer->hasFocus());
}

TEST_F(DesignFixture, PropertiesActionOpensTheDialogOnTheSelection)
{
    click("mskTelephone");
    click("nmbPrice", Qt::ControlModifier);
    window->propertiesAction()->trigger();
    PropertyDialog *dialog = window->propertyDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(dialog->SelectedControls(), (QList<QObject *>{field("mskTelephone"), field("nmbPrice")}));
    ASSERT_FALSE(dialog->pages().isEmpty());
    EXPECT_NE(qobject_cast<Tarnwell::xGeneralMB *>(dialog->pages().first()), nullptr);
    EXPECT_TRUE(dialog->windowTitle().contains(QLatin1String("mskTelephone")));
}

TEST_F(DesignFixture, ContextMenuSelectsTheFieldAndOffersProperties)
{
    click("mskTelephone");
    QStringList offered;
    QTimer::singleShot(50, window.get(), [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        for (QAction *action : menu->actions()) {
            offered.append(action->text());
            if (action == window->propertiesAction())
                action->trigger();
        }
        menu->close();
    });
    // A right click as the window system delivers it: the press, then the context-menu request.
    const QPoint at = pointOf("dtbOrderDate");
    QTest::mousePress(surface(), Qt::RightButton, Qt::NoModifier, at);
    QContextMenuEvent request(QContextMenuEvent::Mouse, at, surface()->mapToGlobal(at));
    QApplication::sendEvent(surface(), &request);
    QTest::mouseRelease(surface(), Qt::RightButton, Qt::NoModifier, at);
    EXPECT_EQ(selectedNames(), QStringList{QStringLiteral("dtbOrderDate")});
    EXPECT_EQ(offered, QStringList{QStringLiteral("&Properties...")});
    ASSERT_NE(window->propertyDialog(), nullptr);
    EXPECT_EQ(window->propertyDialog()->SelectedControls(), QList<QObject *>{field("dtbOrderDate")});
}

// A page that sets a MaskBox's mask, standing in for the General page's mask field.
class MaskPage : public Tarnwell::PropertyPage
{
public:
    MaskPage() : PropertyPage(QStringLiteral("Mask"), nullptr) {}
    QString mask;

protected:
    void fill(QObject *) override {}
    void apply(QObject *control) override { write(control, "Mask", mask); }
};

TEST_F(DesignFixture, WhatTheDialogWritesShowsAtOnceAndIsSaved)
{
    click("mskPostalCode");
    window->propertiesAction()->trigger();
    PropertyDialog *dialog = window->propertyDialog();
    ASSERT_NE(dialog, nullptr);
    auto *page = new MaskPage;
    page->mask = QStringLiteral("##-##");
    dialog->addPage(page);
    page->setChanged(true);
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(field("mskPostalCode")->property("Mask").toString(), QStringLiteral("##-##"));

    const QByteArray saved = Tarnwell::Demo::FormDocument::save(*window->form());
    DemoForm reloaded;
    QString error;
    ASSERT_TRUE(Tarnwell::Demo::FormDocument::load(reloaded, saved, &error)) << error.toStdString();
    EXPECT_EQ(reloaded.field(QStringLiteral("mskPostalCode"))->property("Mask").toString(), QStringLiteral("##-##"));
}

TEST_F(DesignFixture, ScreenshotShowsTheDialogOnTheAskedPage)
{
    QString error;
    ASSERT_TRUE(window->showProperties(QStringLiteral("nmbPrice"), QStringLiteral("About"), &error))
        << error.toStdString();
    PropertyDialog *dialog = window->propertyDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(selectedNames(), QStringList{QStringLiteral("nmbPrice")});
    EXPECT_EQ(dialog->findChild<QTabWidget *>()->currentWidget(), dialog->page(QStringLiteral("About")));
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("shot.png"));
    ASSERT_TRUE(window->renderTo(path, &error)) << error.toStdString();
    const QImage shot(path);
    const QImage alone = dialog->grab().toImage().convertToFormat(shot.format());
    // Somewhere in the picture stands the dialog, pixel for pixel.
    bool found = false;
    for (int y = 0; y + alone.height() <= shot.height() && !found; ++y) {
        for (int x = 0; x + alone.width() <= shot.width() && !found; ++x)
            found = shot.pixel(x, y) == alone.pixel(0, 0) && shot.copy(x, y, alone.width(), alone.height()) == alone;
    }
    EXPECT_TRUE(found);
    EXPECT_FALSE(window->showProperties(QStringLiteral("nmbNothing"), QString(), &error));
}

} // namespace
