#pragma once
// What the MaskBox and NumberBox page suites share: a page on a shown window beside the controls
// it edits, pinned regional digits, and the user's gestures on the page's widgets (a click on a
// check box, list items chosen with keys, text typed into the focused widget).
#include "common/testsupport.h"
#include "shared/memorysettingsstore.h"
#include "shared/settingsreader.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/propertypage.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>

#include <memory>
#include <vector>

template<typename Page>
class PageFixture : public WidgetFixture
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        // Two decimals for the number types that take any, whatever the machine says.
        for (const char *name : {"iDigits", "iCurrDigits"})
            store.setString(Tarnwell::SettingsStore::CurrentUser, "Control Panel\\International", name, "2");
        Tarnwell::SettingsReader::setStore(&store);
        window->resize(900, 700);
        page = new Page(window.get());
        page->resize(page->sizeHint());
        spy = std::make_unique<QSignalSpy>(page, &Tarnwell::PropertyPage::changedChanged);
    }
    void TearDown() override
    {
        spy.reset();
        WidgetFixture::TearDown();
        Tarnwell::SettingsReader::setStore(nullptr);
    }

    // Controls on the form as a designer holds them: at design time, shown beside the page.
    template<typename Control>
    Control *addControl()
    {
        auto *control = new Control(window.get());
        control->setUserMode(false);
        control->move(0, page->height() + 10 + 30 * int(controls.size()));
        controls.push_back(control);
        return control;
    }

    // The host shows the page for `selection` (the controls made so far by default).
    void select(QList<QObject *> selection = {})
    {
        if (selection.isEmpty())
            selection = QList<QObject *>(controls.begin(), controls.end());
        page->setSelectedControls(selection);
        window->show();
        (void)QTest::qWaitForWindowExposed(window.get());
        spy->clear();
        page->SelectionChanged();
        changesWhileFilling = int(spy->count());
        spy->clear();
    }

public:
    // The user's gestures, public so that a table's rows can name them.
    template<typename W = QWidget>
    W *widget(const char *name) const
    {
        W *found = page->template findChild<W *>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << "no " << name;
        return found;
    }

    // The keyboard focus on the named widget, as a click or Tab would put it.
    void showAndFocusField(const char *name) { showAndFocus(widget(name)); }

    // A mouse click on the box's indicator, as the user ticks it.
    void click(const char *name)
    {
        auto *box = widget<QCheckBox>(name);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(box->height() / 2, box->height() / 2));
    }

    // Home, then Down until the item: the keys on a closed drop-down list.
    void choose(const char *name, int index)
    {
        auto *list = widget<QComboBox>(name);
        showAndFocus(list);
        QTest::keyClick(list, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            QTest::keyClick(list, Qt::Key_Down);
    }

    // Focuses the widget, selects all it shows and types `keys` over it; an empty `keys` clears it.
    void type(const char *name, const QString &keys)
    {
        showAndFocus(widget(name));
        QWidget *target = QApplication::focusWidget();
        QTest::keyClick(target, Qt::Key_Home);
        QTest::keyClick(target, Qt::Key_End, Qt::ShiftModifier);
        if (keys.isEmpty())
            QTest::keyClick(target, Qt::Key_Backspace);
        else
            QTest::keyClicks(target, keys);
    }

protected:
    Tarnwell::MemorySettingsStore store;
    Page *page = nullptr;
    std::vector<Tarnwell::ControlFrame *> controls;
    std::unique_ptr<QSignalSpy> spy; // changedChanged, cleared once the page is filled
    int changesWhileFilling = 0;
};

// What a widget of the page shows, as the property it edits would hold it.
inline QVariant shownBy(QWidget *widget)
{
    if (auto *box = qobject_cast<QCheckBox *>(widget))
        return box->isChecked();
    if (auto *list = qobject_cast<QComboBox *>(widget))
        return list->currentIndex();
    if (auto *text = qobject_cast<QLineEdit *>(widget))
        return text->text();
    return widget->property("Value");
}

// The control's own settings, one "name=kind(value)" line each (QWidget's state left out: being
// shown or activated is no write of the page's).
inline std::string settingsOf(const QObject &control)
{
    std::string lines;
    const QMetaObject *meta = control.metaObject();
    for (int i = Tarnwell::ControlFrame::staticMetaObject.propertyOffset(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        lines += std::string(property.name()) + '=' + ::testing::PrintToString(property.read(&control)) + '\n';
    }
    return lines;
}

// The setting `name` of `control` in the kind of `expected` (an enumeration as its number).
inline QVariant settingAs(const QObject *control, const char *name, const QVariant &expected)
{
    QVariant actual = control->property(name);
    actual.convert(expected.metaType());
    return actual;
}

// A write the host's writer records before passing it on.
struct RecordingWriter {
    QStringList *names;
    const char *refuse = nullptr; // the property a host refuses, with "Invalid property value"
    void operator()(QObject *control, const char *name, const QVariant &value) const
    {
        if (refuse && qstrcmp(name, refuse) == 0)
            throw Tarnwell::Error(Tarnwell::Error::InvalidPropertyValue);
        names->append(QLatin1String(name));
        control->setProperty(name, value);
    }
};
