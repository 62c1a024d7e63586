#pragma once
// A time box on a window, the clock pinned at 09:41:30, up-down buttons 17 pixels wide. What the
// box shows is read as "text|value", the value as "hh:mm:ss" (the day first when there is one),
// "Empty" or "Null".
#include <tarnwell/clock.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/timebox.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"
#include "shared/memorysettingsstore.h"
#include "shared/settingsreader.h"
#include "shared/updownbutton.h"

#include <QLineEdit>
#include <QSignalSpy>

namespace Tarnwell {

namespace {
// Failures name the table row.
template<typename Row>
    requires requires(const Row &row) { row.name; }
void PrintTo(const Row &row, std::ostream *os)
{
    *os << row.name;
}
} // namespace

constexpr Date hms(int h, int m, int s = 0) { return Date(double(h * 3600 + m * 60 + s) / 86400); }
constexpr Date DayEnd(TimeBox::DayEndSerial);

inline QString describe(const QVariant &v)
{
    if (Variant::isEmpty(v) || Variant::isNull(v))
        return Variant::isNull(v) ? QStringLiteral("Null") : QStringLiteral("Empty");
    const double day = v.value<Date>().datePart().serial();
    return (day ? QString::number(day) + u' ' : QString()) + v.value<Date>().toQTime().toString(u"HH:mm:ss");
}

class TimeBoxTest : public WidgetFixture
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        Clock::pin(QDateTime(QDate(2024, 3, 7), QTime(9, 41, 30)));
        store.setString(SettingsStore::CurrentUser, "Control Panel\\Desktop\\WindowMetrics", "ScrollWidth",
                        "-255");
        SettingsReader::setStore(&store);
        box = new TimeBox(window.get());
        (other = new QLineEdit(window.get()))->move(0, 100);
        mdtTime = box->findChild<MaskBox *>(QStringLiteral("mdtTime"));
        text1 = mdtTime->findChild<QLineEdit *>(QStringLiteral("Text1"));
    }
    void TearDown() override
    {
        WidgetFixture::TearDown();
        SettingsReader::setStore(nullptr);
        Clock::unpin();
    }

    // Keys to the focus widget as typed; ^ v the arrow keys, u d clicks on UpDown1's halves.
    void play(const char *keys)
    {
        for (; *keys; ++keys) {
            if (*keys == 'u' || *keys == 'd')
                QTest::mouseClick(upDown1(), Qt::LeftButton, {}, QPoint(4, *keys == 'u' ? 2 : 12));
            else if (*keys == '^' || *keys == 'v')
                QTest::keyClick(QApplication::focusWidget(), *keys == '^' ? Qt::Key_Up : Qt::Key_Down);
            else
                QTest::keyClick(QApplication::focusWidget(), *keys);
        }
    }
    void focusAt(int caret)
    {
        showAndFocus(text1);
        text1->setCursorPosition(caret);
    }
    QString shown() const { return box->Text() + u'|' + describe(box->Value()); }
    UpDownButton *upDown1() const { return box->findChild<UpDownButton *>(QStringLiteral("UpDown1")); }

    MemorySettingsStore store;
    TimeBox *box = nullptr;
    QLineEdit *other = nullptr;
    MaskBox *mdtTime = nullptr;
    QLineEdit *text1 = nullptr;
};

} // namespace Tarnwell
