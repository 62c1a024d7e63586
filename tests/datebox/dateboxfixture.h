#pragma once
// A date box on a shown form next to a line edit, today pinned to 15 May 2024, buttons 17 pixels
// wide; keys go to whichever widget has the focus, as a user's would.
#include <tarnwell/clock.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"
#include "shared/datepicker.h"
#include "shared/memorysettingsstore.h"
#include "shared/settingsreader.h"
#include "shared/updownbutton.h"

#include <QLineEdit>
#include <QSignalSpy>

namespace Tarnwell {
namespace {

// Table rows print as their names.
template<typename Row> requires requires(const Row &r) { r.name; }
std::ostream &operator<<(std::ostream &os, const Row &row) { return os << row.name; }

inline Date ymd(int y, int m, int d) { return Date::fromYmd(y, m, d); }
// A value as an ISO date, "Null" or "Empty".
inline QString show(const QVariant &v) { return Variant::isNull(v) ? "Null" : !v.isValid() ? "Empty" : v.value<Date>().toQDate().toString(Qt::ISODate); }

class DateBoxTest : public WidgetFixture
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        Clock::pin(QDateTime(QDate(2024, 5, 15), QTime(9, 30)));
        store.setString(SettingsStore::CurrentUser, "Control Panel\\Desktop\\WindowMetrics", "ScrollWidth", "-255");
        SettingsReader::setStore(&store);
        box = new DateBox(window.get());
        (other = new QLineEdit(window.get()))->move(0, 100);
        changes = std::make_unique<QSignalSpy>(box, &DateBox::Change);
    }
    void TearDown() override
    {
        WidgetFixture::TearDown();
        SettingsReader::setStore(nullptr);
        Clock::unpin();
    }

    QLineEdit *text1() const { return box->findChild<MaskBox *>("mdtDate")->findChild<QLineEdit *>("Text1"); }
    DatePicker *fdt() const { return box->findChild<DatePicker *>("fdt"); }
    UpDownButton *upDown1() const { return box->findChild<UpDownButton *>("UpDown1"); }
    void focus() { showAndFocus(text1()); }
    QString value() const { return show(box->Value()); }

    // Keys to the focus widget: characters as typed; ^ v arrows, < Backspace, [ ] Left and Right,
    // D Alt+Down, F F4, E Enter, X Escape; u d clicks on UpDown1's halves, B on the calendar button.
    void play(const char *keys)
    {
        static const QHash<char, std::pair<Qt::Key, Qt::KeyboardModifiers>> named{{'^', {Qt::Key_Up, {}}}, {'v', {Qt::Key_Down, {}}},
            {'<', {Qt::Key_Backspace, {}}}, {'[', {Qt::Key_Left, {}}}, {']', {Qt::Key_Right, {}}}, {'D', {Qt::Key_Down, Qt::AltModifier}},
            {'F', {Qt::Key_F4, {}}}, {'E', {Qt::Key_Return, {}}}, {'X', {Qt::Key_Escape, {}}}};
        for (const char *k = keys; *k; ++k) {
            if (*k == 'u' || *k == 'd')
                QTest::mouseClick(upDown1(), Qt::LeftButton, {}, upDown1()->partRect(*k == 'u' ? UpDownButton::UpPart : UpDownButton::DownPart).center());
            else if (*k == 'B')
                QTest::mouseClick(fdt(), Qt::LeftButton);
            else
                QTest::keyClick(QApplication::focusWidget(), named.value(*k, {Qt::Key(*k), {}}).first, named.value(*k).second);
            QApplication::processEvents(); // replayed keys, the focus coming back
        }
    }

    MemorySettingsStore store;
    DateBox *box = nullptr;
    QLineEdit *other = nullptr;
    std::unique_ptr<QSignalSpy> changes;
};

} // namespace
} // namespace Tarnwell
