// The drop-down date picker: opening, picking and closing by mouse and keys, the range rules, the
// calendar's colours and font, where the calendar opens, and its lifetime.
#include "shared/datepicker.h"
#include "shared/keysender.h"

#include "common/testsupport.h"

#include <QCalendarWidget>
#include <QLineEdit>
#include <QScreen>
#include <QTableView>
#include <QToolButton>

#include <cmath>
#include <functional>
#include <tuple>

using namespace Tarnwell;

namespace {

Date day(int y, int m, int d) { return Date::fromYmd(y, m, d); }

// A line edit with the picker at its right edge, the picker focused and holding 15 March 2024.
class Picker : public WidgetFixture
{
public:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        window->move(100, 100); // room on every side for the calendar
        box = new QLineEdit(window.get());
        box->setGeometry(20, 20, 150, 22);
        picker = new DatePicker(window.get());
        picker->setGeometry(152, 21, 17, 20);
        picker->setAnchor(box);
        picker->setValue(day(2024, 3, 15));
        const auto record = [this](const char *signal) { log << signal + picker->Value().toQDate().toString(Qt::ISODate); };
        QObject::connect(picker, &DatePicker::DropDown, [=] { record("DropDown "); });
        QObject::connect(picker, &DatePicker::Change, [=] { record("Change "); });
        showAndFocus(picker);
    }
    void open() { box->setFocus(); picker->showPopup(); }
    static void key(Qt::Key k, Qt::KeyboardModifiers m = {}) { QTest::keyClick(static_cast<QWidget *>(nullptr), k, m); }
    QTableView *grid() const { return picker->calendar()->findChild<QTableView *>("qt_calendar_calendarview"); }
    QModelIndex cell(int d) const // the last cell showing day d
    {
        QModelIndex found, i;
        for (int n = 0; (i = grid()->model()->index(n / 7, n % 7)).isValid(); ++n)
            found = i.data().toInt() == d ? i : found;
        return found;
    }
    void clickDay(int d) { QTest::mouseClick(grid()->viewport(), Qt::LeftButton, {}, grid()->visualRect(cell(d)).center()); }
    void clickTitle(const char *name) { QTest::mouseClick(picker->calendar()->findChild<QToolButton *>(name), Qt::LeftButton); }
    // Through the window system, which hands a press outside an open popup to the popup.
    void clickInWindow(QPoint at) { QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, at); }

    using WidgetFixture::window, WidgetFixture::showAndFocus;
    QLineEdit *box = nullptr;
    DatePicker *picker = nullptr;
    QStringList log;
};

// From the closed picker: what opens the calendar, what picks a date, and what only closes it.
struct UseRow { const char *name; std::function<void(Picker *)> act; bool open; QStringList log; };
class Use : public Picker, public ::testing::WithParamInterface<UseRow> {};

TEST_P(Use, OpensPicksAndCloses)
{
    GetParam().act(this);
    QApplication::processEvents();
    EXPECT_EQ(picker->isPopupVisible(), GetParam().open);
    EXPECT_EQ(log, GetParam().log);
    if (GetParam().log.size() == 2) {
        EXPECT_EQ(window->focusWidget(), picker) << "a pick gives the focus back to the picker";
    }
    picker->showPopup(); // what was browsed is forgotten: the calendar opens on Value again
    EXPECT_EQ(picker->calendar()->selectedDate(), picker->Value().toQDate());
    EXPECT_TRUE(picker->popup()->isAncestorOf(QApplication::focusWidget()));
    EXPECT_EQ(picker->popup()->geometry().topRight(), box->mapToGlobal(QPoint(box->width() - 1, box->height())))
        << "right-aligned just below the box";
}

const QStringList opened{"DropDown 2024-03-15"};
INSTANTIATE_TEST_SUITE_P(Picker, Use, ::testing::Values(
    UseRow{"LeftPress", [](auto *t) { QTest::mouseClick(t->picker, Qt::LeftButton); }, true, opened},
    UseRow{"RightPress", [](auto *t) { QTest::mouseClick(t->picker, Qt::RightButton); }, false, {}},
    UseRow{"F4", [](auto *t) { t->key(Qt::Key_F4); }, true, opened},
    UseRow{"AltDown", [](auto *t) { t->key(Qt::Key_Down, Qt::AltModifier); }, true, opened},
    UseRow{"AltUp", [](auto *t) { t->key(Qt::Key_Up, Qt::AltModifier); }, true, opened},
    UseRow{"Down", [](auto *t) { t->key(Qt::Key_Down); }, true, opened},
    UseRow{"ReplayedDownThenAltUp", [](auto *) { // how the owner opens it after its own Alt+Down
        KeySender::sendVirtualKey(40, false, false, false);
        KeySender::sendVirtualKey(18, false, true, false); }, true, opened},
    UseRow{"EnterAfterRight", [](auto *t) { t->open(); t->key(Qt::Key_Right); t->key(Qt::Key_Return); }, false, opened + QStringList{"Change 2024-03-16"}},
    UseRow{"ClickOnDay", [](auto *t) { t->open(); t->clickDay(20); }, false, opened + QStringList{"Change 2024-03-20"}},
    UseRow{"ClickOnNextMonthsDay", [](auto *t) { t->open(); t->clickTitle("qt_calendar_nextmonth"); t->clickDay(20); }, false, opened + QStringList{"Change 2024-04-20"}},
    UseRow{"EscapeEndsYearTypingFirst", [](auto *t) {
        t->open(); t->clickTitle("qt_calendar_yearbutton"); t->key(Qt::Key_Escape); t->key(Qt::Key_Right); t->key(Qt::Key_Return); },
        false, opened + QStringList{"Change 2024-03-16"}},
    UseRow{"Escape", [](auto *t) { t->open(); t->key(Qt::Key_Right); t->key(Qt::Key_Escape); }, false, opened},
    UseRow{"F4Again", [](auto *t) { t->open(); t->key(Qt::Key_PageDown); t->key(Qt::Key_F4); }, false, opened},
    UseRow{"AltDownWhileTypingYear", [](auto *t) { t->open(); t->clickTitle("qt_calendar_yearbutton"); t->key(Qt::Key_Down, Qt::AltModifier); }, false, opened},
    UseRow{"ClickOutside", [](auto *t) { t->open(); t->clickTitle("qt_calendar_nextmonth"); t->clickInWindow({5, 5}); }, false, opened},
    UseRow{"ClickOnButton", [](auto *t) { t->open(); t->clickInWindow(t->picker->geometry().center()); }, false, opened},
    UseRow{"Disabled", [](auto *t) { t->open(); t->picker->setEnabled(false); t->picker->setEnabled(true); }, false, opened},
    UseRow{"Hidden", [](auto *t) { t->open(); t->window->hide(); t->showAndFocus(t->box); }, false, opened}),
    TestSupport::rowName);

// The range: a refused set changes nothing, narrowing pulls Value in, the calendar keeps to it.
enum Field { ValueField, MinField, MaxField };
struct RangeRow { const char *name; bool narrowed; Field field; double serial; int error; Date value, min, max; };
class Range : public Picker, public ::testing::WithParamInterface<RangeRow> {};

TEST_P(Range, RefusesOrClampsAndTheCalendarKeepsToIt)
{
    const RangeRow &row = GetParam();
    if (row.narrowed) {
        picker->setMinDate(day(2000, 1, 1));
        picker->setMaxDate(day(2030, 12, 31));
    }
    using Setter = void (DatePicker::*)(Date);
    const Setter set = row.field == ValueField ? &DatePicker::setValue
                       : row.field == MinField ? &DatePicker::setMinDate
                                               : &DatePicker::setMaxDate;
    DatePicker *target = picker;
    const Date date(row.serial);
    EXPECT_EQ(TestSupport::errorOf([target, set, date] { (target->*set)(date); }), row.error);
    EXPECT_EQ(std::tuple(picker->Value(), picker->MinDate(), picker->MaxDate()), std::tuple(row.value, row.min, row.max));
    EXPECT_TRUE(log.isEmpty());
    picker->showPopup();
    for (Qt::Key k : {Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_PageUp, Qt::Key_Return})
        key(k);
    EXPECT_EQ(picker->Value().toQDate(), std::max(row.value.toQDate().addMonths(-3), row.min.toQDate()));
}

const Date v(day(2024, 3, 15)), lo(day(2000, 1, 1)), hi(day(2030, 12, 31)), first(CalendarRange::First.serial()), last(CalendarRange::Last.serial());
INSTANTIATE_TEST_SUITE_P(Picker, Range, ::testing::Values(
    RangeRow{"ValueBefore1601", false, ValueField, CalendarRange::First.serial() - 1, 380, v, first, last},
    RangeRow{"ValueNotANumber", false, ValueField, std::nan(""), 380, v, first, last},
    RangeRow{"ValueOn1January1601", false, ValueField, CalendarRange::First.serial(), 0, first, first, last},
    RangeRow{"ValueOn31December9999", false, ValueField, CalendarRange::Last.serial() + 0.5, 0, last, first, last},
    RangeRow{"MinBefore1601", false, MinField, CalendarRange::First.serial() - 1, 380, v, first, last},
    RangeRow{"ValueBeforeMin", true, ValueField, day(1999, 12, 31).serial(), 380, v, lo, hi},
    RangeRow{"ValueDropsTime", true, ValueField, day(2000, 1, 2).serial() + 0.75, 0, day(2000, 1, 2), lo, hi},
    RangeRow{"MinAfterMax", true, MinField, day(2031, 1, 1).serial(), 380, v, lo, hi},
    RangeRow{"MaxBeforeMin", true, MaxField, day(1999, 12, 31).serial(), 380, v, lo, hi},
    RangeRow{"MinPastValueClamps", true, MinField, day(2024, 6, 1).serial(), 0, day(2024, 6, 1), day(2024, 6, 1), hi},
    RangeRow{"MaxPastValueClamps", true, MaxField, day(2024, 2, 1).serial(), 0, day(2024, 2, 1), lo, day(2024, 2, 1)}),
    TestSupport::rowName);

// The five colours and the font reach what the calendar paints, set before or after it exists.
struct LookRow { const char *name; bool whileOpen; std::array<OleColor, 5> colours; };
class Look : public Picker, public ::testing::WithParamInterface<LookRow> {};

TEST_P(Look, ColoursAndFontReachTheCalendar)
{
    for (bool open : {false, true}) {
        if (open == GetParam().whileOpen) {
            for (int part = 0; part < DatePicker::ColorPartCount; ++part)
                picker->setCalendarColor(DatePicker::ColorPart(part), GetParam().colours[part]);
            picker->setFont(QFont("DejaVu Sans", 15));
        }
        picker->showPopup();
    }
    const auto want = [&](int part) { return GetParam().colours[part].toQColor(picker->palette()); };
    const auto pixel = [](QWidget *w, QPoint at) { return w->grab().toImage().pixelColor(at); };
    auto *title = picker->calendar()->findChild<QWidget *>("qt_calendar_navigationbar");
    EXPECT_EQ(pixel(grid()->viewport(), grid()->visualRect(cell(20)).topLeft() + QPoint(1, 1)), want(0));
    EXPECT_EQ(cell(16).data(Qt::ForegroundRole).value<QColor>(), want(1)) << "a Saturday";
    EXPECT_EQ(pixel(title, QPoint(title->width() / 2, 1)), want(2));
    EXPECT_EQ(title->findChild<QToolButton *>("qt_calendar_monthbutton")->palette().color(QPalette::ButtonText), want(3));
    EXPECT_EQ(cell(1).data(Qt::ForegroundRole).value<QColor>(), want(4)) << "1 April";
    EXPECT_EQ(cell(20).data(Qt::FontRole).value<QFont>().pointSize(), 15);
}

INSTANTIATE_TEST_SUITE_P(Picker, Look, ::testing::Values(
    LookRow{"SystemDefaults", false, {0x80000005, 0x80000012, 0x8000000F, 0x80000012, 0x80000011}},
    LookRow{"BeforeFirstOpening", false, {0xA0FFFF, 0xC80000, 0x008000, 0x00C8FF, 0xFF00FF}},
    LookRow{"WhileOpen", true, {0x404040, 0xFFFFFF, 0x000080, 0x80FF80, 0x008080}}),
    TestSupport::rowName);

// With no room below the box, the calendar opens above it.
TEST_F(Picker, PopupFlipsAboveNearTheScreenBottom)
{
    window->move(100, window->screen()->availableGeometry().bottom() - 80);
    picker->showPopup();
    EXPECT_EQ(picker->popup()->geometry().bottomRight(), box->mapToGlobal(QPoint(box->width() - 1, -1)));
}

// The calendar is made on first opening only, and goes with the picker.
TEST_F(Picker, CalendarMadeLazilyAndDestroyedWithThePicker)
{
    EXPECT_TRUE(picker->findChildren<QWidget *>().isEmpty());
    picker->showPopup();
    QPointer<QWidget> popup = picker->popup();
    delete picker;
    EXPECT_TRUE(popup.isNull());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

} // namespace
