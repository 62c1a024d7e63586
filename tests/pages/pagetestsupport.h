#pragma once
// A General page on a shown window with two controls of its kind selected, driven by one-line
// scripts of the user's gestures on the page's widgets (by objectName, with real clicks and keys).
// Settings, gestures and expectations are "|"-separated items, so that a table row reads as what
// the user does and sees:
//   settings of the first control  "Format=twYearMonth|Minimum=2000-01-31" (dates, times ISO)
//   gestures  click:chkUpDown  choose:cmbDateFormat=3 (Home, then Down)  again:cmbDateFormat (F4,
//             Enter: the item shown, chosen again)  type:cmbSeparator=- (over the whole text)
//             keys:dtMinimum=HE0102 (to the box; H Home, E Shift+End, ~ Delete, < Backspace, ^ Up,
//             v Down, > Tab)
//   what a widget shows  "chkUpDown=1|cmbDateFormat=#3|txtDisplayFormat=yyyy-mmm|dtMinimum=Empty"
//             (a name with a dot reads that property of the widget: "tmMinimum.Text=...")
// Every gesture must mark the page changed on its own. Numbers, dates and times in the settings are
// passed as such, the rest as text. Regional settings give two decimals to the types that take any.
#include <tarnwell/clock.h>
#include <tarnwell/date.h>
#include <tarnwell/propertypage.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"
#include "shared/memorysettingsstore.h"
#include "shared/settingsreader.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QStyleOptionButton>
#include <QVBoxLayout>

namespace Tarnwell::PageTest {

struct Row {
    const char *name;
    const char *settings; // of the first control, before the page is filled
    const char *gestures;
    const char *shows = "";   // the page's widgets after the gestures
    const char *writes = "";  // the first control's properties after ApplyChanges
    int error = 0;            // what ApplyChanges throws
    const char *order = "";   // the property names written, in order, when given
    const char *refuse = "";  // the property the host refuses ("Invalid property value")
};
inline void PrintTo(const Row &row, std::ostream *os) { *os << row.name; }

inline QStringList items(const char *text) { return QString::fromUtf8(text).split(u'|', Qt::SkipEmptyParts); }
inline std::pair<QString, QString> split(const QString &item, QChar at)
{
    const qsizetype i = item.indexOf(at);
    return i < 0 ? std::pair(item, QString()) : std::pair(item.left(i), item.mid(i + 1));
}

// "Empty", "Null", a date "2024-03-07", a time "13:05:00", an enumeration's key, or the text.
inline QString describe(const QVariant &v)
{
    if (Variant::isEmpty(v) || Variant::isNull(v))
        return Variant::isNull(v) ? u"Null"_qs : u"Empty"_qs;
    if (Variant::kind(v) != Variant::DateKind)
        return v.toString();
    const Date d = v.value<Date>();
    return d.datePart().serial() ? d.toQDate().toString(Qt::ISODate) : d.toQTime().toString(u"HH:mm:ss");
}

template<typename Page, typename Control>
class PageTest : public WidgetFixture, public ::testing::WithParamInterface<Row>
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        Clock::pin(QDateTime(QDate(2024, 5, 15), QTime(9, 30)));
        for (const char *name : {"iDigits", "iCurrDigits"})
            store.setString(SettingsStore::CurrentUser, "Control Panel\\International", name, "2");
        SettingsReader::setStore(&store);
        page = new Page(window.get());
        (new QVBoxLayout(window.get()))->addWidget(page);
        page->setSelectedControls({&first, &second});
    }
    void TearDown() override
    {
        WidgetFixture::TearDown();
        Clock::unpin();
        SettingsReader::setStore(nullptr);
    }

    QWidget *widget(const QString &name) const
    {
        QWidget *found = page->template findChild<QWidget *>(name);
        EXPECT_TRUE(found) << "no " << name.toStdString();
        return found ? found : window.get();
    }

    QString shown(const QString &name) const
    {
        const auto [object, property] = split(name, u'.');
        QWidget *w = widget(object);
        if (!property.isEmpty())
            return describe(w->property(property.toLatin1()));
        if (auto *box = qobject_cast<QCheckBox *>(w))
            return box->isChecked() ? u"1"_qs : u"0"_qs;
        if (auto *list = qobject_cast<QComboBox *>(w))
            return list->isEditable() ? list->currentText() : u'#' + QString::number(list->currentIndex());
        if (auto *text = qobject_cast<QLineEdit *>(w))
            return text->text();
        return describe(w->property("Value"));
    }

    void gesture(const QString &item)
    {
        const auto [verb, rest] = split(item, u':');
        const auto [name, arg] = split(rest, u'=');
        QWidget *w = widget(name);
        if (verb == u"click") {
            QStyleOptionButton option;
            option.initFrom(w);
            QTest::mouseClick(w, Qt::LeftButton, {}, w->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, w).center());
            return;
        }
        showAndFocus(w);
        if (verb == u"choose") {
            QTest::keyClick(w, Qt::Key_Home);
            for (int i = arg.toInt(); i > 0; --i)
                QTest::keyClick(w, Qt::Key_Down);
        } else if (verb == u"again") {
            QTest::keyClick(w, Qt::Key_F4);
            QTest::keyClick(qobject_cast<QComboBox *>(w)->view(), Qt::Key_Return);
        } else if (verb == u"type") {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(QApplication::focusWidget(), arg);
        } else {
            ASSERT_EQ(verb, u"keys");
            const QList<Qt::Key> named{Qt::Key_Home, Qt::Key_End, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Up, Qt::Key_Down, Qt::Key_Tab};
            for (const QChar c : arg) {
                const qsizetype i = QStringView(u"HE~<^v>").indexOf(c);
                QTest::keyClick(QApplication::focusWidget(), i < 0 ? Qt::Key(c.unicode()) : named[i],
                                c == u'E' ? Qt::ShiftModifier : Qt::NoModifier);
            }
        }
    }

    // Settings, fill, gestures, apply, each stage checked against the row.
    void run()
    {
        const Row &row = GetParam();
        for (const QString &item : items(row.settings)) {
            const auto [name, text] = split(item, u'=');
            QVariant value = text;
            bool whole = false, number = false;
            if (text.toInt(&whole), whole)
                value = text.toInt();
            else if (text.toDouble(&number), number)
                value = text.toDouble();
            else if (const QDate date = QDate::fromString(text, Qt::ISODate); date.isValid())
                value = QVariant::fromValue(Date::fromQDate(date));
            else if (const QTime time = QTime::fromString(text, Qt::ISODate); time.isValid())
                value = QVariant::fromValue(Date::fromQTime(time));
            ASSERT_TRUE(first.setProperty(name.toLatin1(), value)) << item.toStdString();
        }
        page->SelectionChanged();
        showAndFocus(page);
        EXPECT_FALSE(page->Changed()) << "after filling";
        const std::string before = TestSupport::propertiesOf(first), other = TestSupport::propertiesOf(second);
        for (const QString &item : items(row.gestures)) {
            page->setChanged(false);
            gesture(item);
            EXPECT_TRUE(page->Changed()) << "unmarked by " << item.toStdString();
        }
        EXPECT_EQ(page->Changed(), *row.gestures != 0) << "after the gestures";
        EXPECT_EQ(TestSupport::propertiesOf(first), before) << "written before apply";
        for (const QString &item : items(row.shows))
            EXPECT_EQ(shown(split(item, u'=').first), split(item, u'=').second) << item.toStdString();

        QStringList written;
        page->setPropertyWriter([&](QObject *control, const char *name, const QVariant &value) {
            written << QString::fromLatin1(name);
            if (qstrcmp(name, row.refuse) == 0)
                throw Error(Error::InvalidPropertyValue);
            if (!control->setProperty(name, value))
                throw Error(Error::TypeMismatch);
        });
        EXPECT_ERROR(page->ApplyChanges(), row.error);
        EXPECT_EQ(page->Changed(), row.error != 0) << "after applying";
        for (const QString &item : items(row.writes))
            EXPECT_EQ(describe(first.property(split(item, u'=').first.toLatin1())), split(item, u'=').second) << item.toStdString();
        if (*row.order) {
            EXPECT_EQ(written.join(u' '), QString::fromUtf8(row.order));
        }
        EXPECT_EQ(TestSupport::propertiesOf(second), other) << "the second control written";
    }

    // The widgets Tab visits from the first of `names`, as the names in `names` of them or of
    // the widget holding them.
    QStringList tabOrder(const QStringList &names)
    {
        page->SelectionChanged();
        showAndFocus(widget(names.front()));
        QStringList visited;
        for (qsizetype i = 0; i < names.size(); ++i) {
            QWidget *w = QApplication::focusWidget();
            while (w && !names.contains(w->objectName()))
                w = w->parentWidget();
            visited << (w ? w->objectName() : u"?"_qs);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        return visited;
    }

    MemorySettingsStore store;
    Control first, second;
    Page *page = nullptr;
};

} // namespace Tarnwell::PageTest
