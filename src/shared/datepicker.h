#pragma once
#include <tarnwell/date.h>
#include <tarnwell/olecolor.h>

#include <QPointer>
#include <QWidget>

#include "platform/calendarrange.h"

#include <array>

class QCalendarWidget;
class QDate;

namespace Tarnwell {

class CalendarPopup;

// A drop-down button, drawn by the style, that opens a month calendar below its anchor (the
// widget the picker belongs to; the picker itself when none is set). The calendar is built on the
// first opening only, so a form full of pickers costs no calendars until one is used.
//
// Opening: a left press on the button, or F4, Alt+Down, Alt+Up or a plain Down while the picker
// has the focus (a Down key replayed to the focused picker opens it too), or showPopup(). The
// calendar then shows Value, and DropDown() is raised with the popup already visible.
// While it is open the calendar's own keys move through the days; Enter or a click on a day picks
// the date: Value takes it, the popup closes, the picker gets the focus back and Change() is
// raised, also when the picked date is the one already held. Escape, F4, Alt+Up, Alt+Down or a
// click anywhere else close the calendar and keep Value. Setting Value from code raises nothing.
//
// Value, MinDate and MaxDate hold whole days between 1 January 1601 and 31 December 9999 (a time
// of day is dropped). A Value outside MinDate..MaxDate, a bound outside that span or a MinDate
// after MaxDate throws Error(380) and changes nothing; a range narrowed past Value pulls Value to
// the nearer bound.
//
// The calendar colours are host colours: system colours resolve against the picker's palette
// each time they are applied. The calendar uses the picker's font.
class DatePicker : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(Tarnwell::Date Value READ Value WRITE setValue)
    Q_PROPERTY(Tarnwell::Date MinDate READ MinDate WRITE setMinDate)
    Q_PROPERTY(Tarnwell::Date MaxDate READ MaxDate WRITE setMaxDate)
    Q_PROPERTY(Tarnwell::OleColor CalendarBackColor READ CalendarBackColor WRITE setCalendarBackColor)
    Q_PROPERTY(Tarnwell::OleColor CalendarForeColor READ CalendarForeColor WRITE setCalendarForeColor)
    Q_PROPERTY(Tarnwell::OleColor CalendarTitleBackColor READ CalendarTitleBackColor
                   WRITE setCalendarTitleBackColor)
    Q_PROPERTY(Tarnwell::OleColor CalendarTitleForeColor READ CalendarTitleForeColor
                   WRITE setCalendarTitleForeColor)
    Q_PROPERTY(Tarnwell::OleColor CalendarTrailingForeColor READ CalendarTrailingForeColor
                   WRITE setCalendarTrailingForeColor)
public:
    // The parts of the calendar that take a colour of their own.
    enum ColorPart { MonthBack, MonthFore, TitleBack, TitleFore, TrailingFore, ColorPartCount };

    // Value starts at today.
    explicit DatePicker(QWidget *parent = nullptr);
    // Value starts at `value` (within 1601..9999): an owner that sets its own value at once spares
    // the reading of the clock.
    DatePicker(QWidget *parent, Date value);
    ~DatePicker() override;

    Date Value() const { return m_value; }
    void setValue(Date value);
    Date MinDate() const { return m_min; }
    void setMinDate(Date date);
    Date MaxDate() const { return m_max; }
    void setMaxDate(Date date);

    OleColor calendarColor(ColorPart part) const { return m_colors[part]; }
    void setCalendarColor(ColorPart part, OleColor color);
    OleColor CalendarBackColor() const { return m_colors[MonthBack]; }
    void setCalendarBackColor(OleColor c) { setCalendarColor(MonthBack, c); }
    OleColor CalendarForeColor() const { return m_colors[MonthFore]; }
    void setCalendarForeColor(OleColor c) { setCalendarColor(MonthFore, c); }
    OleColor CalendarTitleBackColor() const { return m_colors[TitleBack]; }
    void setCalendarTitleBackColor(OleColor c) { setCalendarColor(TitleBack, c); }
    OleColor CalendarTitleForeColor() const { return m_colors[TitleFore]; }
    void setCalendarTitleForeColor(OleColor c) { setCalendarColor(TitleFore, c); }
    OleColor CalendarTrailingForeColor() const { return m_colors[TrailingFore]; }
    void setCalendarTrailingForeColor(OleColor c) { setCalendarColor(TrailingFore, c); }

    // The widget the popup lines up with: right edges together, just below it (above it when
    // the screen has no room below). Not owned; null means the picker itself.
    void setAnchor(QWidget *anchor) { m_anchor = anchor; }
    QWidget *anchor() const { return m_anchor; }

    // Opening does nothing while the picker is hidden or disabled, or already open.
    void showPopup();
    void hidePopup();
    bool isPopupVisible() const;
    // Null until the first opening.
    QWidget *popup() const;
    QCalendarWidget *calendar() const { return m_calendar; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void DropDown();
    void Change();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void createPopup();
    void applyLook();
    void showValueInCalendar();
    void placePopup();
    void pick(const QDate &date);
    bool isCloseKey(const QKeyEvent *event) const;

    Date m_value;
    Date m_min{CalendarRange::First};
    Date m_max{CalendarRange::Last};
    std::array<OleColor, ColorPartCount> m_colors{OleColor::WindowBackground, OleColor::ButtonText,
                                                  OleColor::ButtonFace, OleColor::ButtonText,
                                                  OleColor::GrayText};
    QPointer<QWidget> m_anchor;
    CalendarPopup *m_popup = nullptr;      // a child: it goes when the picker goes
    QCalendarWidget *m_calendar = nullptr; // inside m_popup
};

} // namespace Tarnwell
