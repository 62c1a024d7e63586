#include "shared/datepicker.h"

#include <tarnwell/error.h>

#include <QApplication>
#include <QCalendarWidget>
#include <QFrame>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include <algorithm>

namespace Tarnwell {

// The calendar's window: a framed popup owned by the picker, inheriting its font, palette and
// locale as a child widget would.
class CalendarPopup : public QFrame
{
public:
    explicit CalendarPopup(DatePicker *picker) : QFrame(picker, Qt::Popup), m_picker(picker)
    {
        setAttribute(Qt::WA_WindowPropagation);
        setFrameStyle(QFrame::Box | QFrame::Plain);
    }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        // A press on the picker's own button only closes the calendar: handing the press on to
        // the button afterwards would open it again at once.
        const QRect button(m_picker->mapToGlobal(QPoint(0, 0)), m_picker->size());
        setAttribute(Qt::WA_NoMouseReplay, button.contains(event->globalPosition().toPoint()));
        QFrame::mousePressEvent(event);
    }

private:
    DatePicker *m_picker;
};

namespace {

// The object names Qt gives the calendar's day grid, title bar and year editor.
constexpr auto DayGridName = "qt_calendar_calendarview";
constexpr auto TitleBarName = "qt_calendar_navigationbar";
constexpr auto YearEditName = "qt_calendar_yearedit";

Qt::KeyboardModifiers modifiersOf(const QKeyEvent *event)
{
    return event->modifiers() & ~Qt::KeypadModifier;
}

// F4, Alt+Down and Alt+Up open a closed calendar and close an open one.
bool isToggleKey(const QKeyEvent *event)
{
    const Qt::KeyboardModifiers modifiers = modifiersOf(event);
    if (event->key() == Qt::Key_F4)
        return !(modifiers & Qt::AltModifier); // Alt+F4 belongs to the window
    return (event->key() == Qt::Key_Down || event->key() == Qt::Key_Up)
           && modifiers == Qt::AltModifier;
}

// A whole day inside the picker's span, or Error(380).
Date wholeDay(Date date)
{
    if (!Date::isValidSerial(date.serial()))
        throw Error(Error::InvalidPropertyValue);
    const Date day = date.datePart();
    if (day < CalendarRange::First || day > CalendarRange::Last)
        throw Error(Error::InvalidPropertyValue);
    return day;
}

} // namespace

DatePicker::DatePicker(QWidget *parent) : DatePicker(parent, Date::today()) {}

DatePicker::DatePicker(QWidget *parent, Date value) : QWidget(parent), m_value(wholeDay(value))
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

DatePicker::~DatePicker()
{
    // Gone before the picker's own parts, so that its last hide event finds a whole picker.
    delete m_popup;
}

void DatePicker::setValue(Date value)
{
    const Date day = wholeDay(value);
    if (day < m_min || day > m_max)
        throw Error(Error::InvalidPropertyValue);
    m_value = day;
    if (isPopupVisible())
        showValueInCalendar();
}

void DatePicker::setMinDate(Date date)
{
    const Date day = wholeDay(date);
    if (day > m_max)
        throw Error(Error::InvalidPropertyValue);
    m_min = day;
    m_value = std::max(m_value, m_min);
    if (isPopupVisible())
        showValueInCalendar();
}

void DatePicker::setMaxDate(Date date)
{
    const Date day = wholeDay(date);
    if (day < m_min)
        throw Error(Error::InvalidPropertyValue);
    m_max = day;
    m_value = std::min(m_value, m_max);
    if (isPopupVisible())
        showValueInCalendar();
}

void DatePicker::setCalendarColor(ColorPart part, OleColor color)
{
    if (unsigned(part) >= unsigned(ColorPartCount))
        return;
    m_colors[part] = color;
    applyLook();
}

QWidget *DatePicker::popup() const
{
    return m_popup;
}

bool DatePicker::isPopupVisible() const
{
    return m_popup && m_popup->isVisible();
}

void DatePicker::showPopup()
{
    if (!isVisible() || !isEnabled() || isPopupVisible())
        return;
    if (!m_popup)
        createPopup();
    showValueInCalendar();
    placePopup();
    m_popup->show();
    m_calendar->setFocus(Qt::PopupFocusReason);
    emit DropDown();
}

void DatePicker::hidePopup()
{
    if (m_popup)
        m_popup->hide();
}

void DatePicker::createPopup()
{
    m_popup = new CalendarPopup(this);
    m_popup->setObjectName(QStringLiteral("calendarPopup"));
    auto *layout = new QVBoxLayout(m_popup);
    const int frame = m_popup->frameWidth();
    layout->setContentsMargins(frame, frame, frame, frame);
    layout->setSpacing(0);

    m_calendar = new QCalendarWidget(m_popup);
    m_calendar->setObjectName(QStringLiteral("calendar"));
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    // Weekends in the month's own text colour: the picker knows one colour for every day.
    for (Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday})
        m_calendar->setWeekdayTextFormat(day, QTextCharFormat());
    layout->addWidget(m_calendar);

    // The closing keys are taken before the calendar's own navigation sees them; the month
    // menu, a window of its own, keeps its keys.
    m_popup->installEventFilter(this);
    m_calendar->installEventFilter(this);
    for (QWidget *child : m_calendar->findChildren<QWidget *>()) {
        if (child->window() == m_popup)
            child->installEventFilter(this);
    }
    // A click reports `clicked`, and on single-click styles `activated` too: the first one picks.
    connect(m_calendar, &QCalendarWidget::clicked, this, &DatePicker::pick);
    connect(m_calendar, &QCalendarWidget::activated, this, &DatePicker::pick);
    applyLook();
}

// The calendar paints its days from the day grid's palette (Base behind a day, Text for a day of
// the shown month, the Disabled group's Text for the days of the months around it, AlternateBase
// behind the day names) and its title bar from the bar's Highlight, with the month and year
// buttons in the bar's HighlightedText. Setting those roles on the grid and the bar only leaves
// the selected day in the palette's own highlight.
void DatePicker::applyLook()
{
    if (!m_calendar)
        return;
    QPalette source = palette();
    source.setCurrentColorGroup(QPalette::Active);
    const auto colour = [&](ColorPart part) { return m_colors[part].toQColor(source); };

    if (auto *days = m_calendar->findChild<QWidget *>(QLatin1String(DayGridName))) {
        QPalette pal = days->palette();
        for (auto group : {QPalette::Active, QPalette::Inactive}) {
            pal.setColor(group, QPalette::Base, colour(MonthBack));
            pal.setColor(group, QPalette::AlternateBase, colour(MonthBack));
            pal.setColor(group, QPalette::Text, colour(MonthFore));
        }
        pal.setColor(QPalette::Disabled, QPalette::Text, colour(TrailingFore));
        days->setPalette(pal);
    }
    if (auto *title = m_calendar->findChild<QWidget *>(QLatin1String(TitleBarName))) {
        QPalette pal = title->palette();
        for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            pal.setColor(group, QPalette::Highlight, colour(TitleBack));
            pal.setColor(group, QPalette::HighlightedText, colour(TitleFore));
        }
        title->setPalette(pal);
    }
}

void DatePicker::showValueInCalendar()
{
    const QDate value = m_value.toQDate();
    m_calendar->setDateRange(m_min.toQDate(), m_max.toQDate());
    // Also brings back the month of the value when the user browsed away from it last time.
    m_calendar->setSelectedDate(value);
}

void DatePicker::placePopup()
{
    QWidget *owner = m_anchor ? m_anchor.data() : this;
    const QSize size = m_popup->sizeHint();
    const QRect around(owner->mapToGlobal(QPoint(0, 0)), owner->size());
    QScreen *screen = QGuiApplication::screenAt(around.center());
    if (!screen)
        screen = owner->screen();
    const QRect room = screen ? screen->availableGeometry() : QRect(around.topLeft(), size);

    // Right edges together, below the owner; above it when only that side has room.
    QPoint at(around.right() + 1 - size.width(), around.bottom() + 1);
    const bool fitsBelow = at.y() + size.height() <= room.bottom() + 1;
    const bool fitsAbove = around.top() - size.height() >= room.top();
    if (!fitsBelow && fitsAbove)
        at.setY(around.top() - size.height());
    // On the screen, the left and top edges winning when the popup is larger than the screen.
    at.setX(std::max(room.left(), std::min(at.x(), room.right() + 1 - size.width())));
    at.setY(std::max(room.top(), std::min(at.y(), room.bottom() + 1 - size.height())));
    m_popup->setGeometry(QRect(at, size));
}

void DatePicker::pick(const QDate &date)
{
    if (!isPopupVisible() || !date.isValid())
        return;
    try {
        setValue(Date::fromQDate(date));
    } catch (const Error &) {
        return; // the calendar keeps to the range; a refusal must not reach the event loop
    }
    hidePopup();
    setFocus(Qt::PopupFocusReason);
    emit Change();
}

bool DatePicker::isCloseKey(const QKeyEvent *event) const
{
    if (isToggleKey(event))
        return true;
    if (event->key() != Qt::Key_Escape || modifiersOf(event) != Qt::NoModifier)
        return false;
    // While the year is being typed, Escape gives the calendar its old year back instead.
    const auto *year = m_calendar->findChild<QWidget *>(QLatin1String(YearEditName));
    return !(year && year->isVisible());
}

QSize DatePicker::sizeHint() const
{
    ensurePolished();
    const int width = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    // As tall as a line edit in the same font: its text line and one pixel above and below,
    // wrapped in the style's frame.
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.rect = QRect();
    frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, this);
    frame.midLineWidth = 0;
    frame.state |= QStyle::State_Sunken;
    const QSize text(width, std::max(fontMetrics().height(), 14) + 2);
    return QSize(width, style()->sizeFromContents(QStyle::CT_LineEdit, &frame, text, this).height());
}

QSize DatePicker::minimumSizeHint() const
{
    return QSize(8, 8);
}

void DatePicker::paintEvent(QPaintEvent *)
{
    // A push button without a label (the style adds its focus mark), with a down arrow on it;
    // it stays pressed while the calendar is open.
    QPainter painter(this);
    QStyleOptionButton button;
    button.initFrom(this);
    button.state |= isPopupVisible() ? QStyle::State_Sunken : QStyle::State_Raised;
    style()->drawControl(QStyle::CE_PushButton, &button, &painter, this);

    QStyleOption arrow;
    arrow.initFrom(this);
    const int margin = std::max(1, std::min(width(), height()) / 5);
    arrow.rect = rect().adjusted(margin, margin, -margin, -margin);
    if (isPopupVisible())
        arrow.rect.translate(style()->pixelMetric(QStyle::PM_ButtonShiftHorizontal, &button, this),
                             style()->pixelMetric(QStyle::PM_ButtonShiftVertical, &button, this));
    style()->drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, this);
}

void DatePicker::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    showPopup();
}

void DatePicker::keyPressEvent(QKeyEvent *event)
{
    // A plain Down opens too: the picker has no field of its own for it to step.
    const bool plainDown = event->key() == Qt::Key_Down && modifiersOf(event) == Qt::NoModifier;
    if (isToggleKey(event) || plainDown) {
        showPopup();
        return;
    }
    QWidget::keyPressEvent(event);
}

void DatePicker::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        hidePopup();
    else if (event->type() == QEvent::PaletteChange)
        applyLook(); // system colours follow the new palette
    QWidget::changeEvent(event);
}

void DatePicker::showEvent(QShowEvent *event)
{
    // Named once it can be seen: Qt builds a widget's accessible interface for every name it is
    // given, which a form full of pickers that are never shown should not pay for.
    if (accessibleName().isEmpty())
        setAccessibleName(QStringLiteral("Open calendar"));
    QWidget::showEvent(event);
}

void DatePicker::hideEvent(QHideEvent *event)
{
    hidePopup();
    QWidget::hideEvent(event);
}

bool DatePicker::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_popup && (event->type() == QEvent::Show || event->type() == QEvent::Hide))
        update(); // the button looks pressed while the calendar is open
    else if (event->type() == QEvent::Hide && watched->objectName() == QLatin1String(YearEditName)
             && isPopupVisible())
        m_calendar->setFocus(Qt::OtherFocusReason); // Qt leaves the keys with the hidden year editor
    else if (event->type() == QEvent::KeyPress && isPopupVisible()
             && isCloseKey(static_cast<QKeyEvent *>(event))) {
        hidePopup();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace Tarnwell
