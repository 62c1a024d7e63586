#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/valuebox.h>
#include <tarnwell/date.h>
#include <tarnwell/global.h>
#include <tarnwell/olecolor.h>

#include <QDate>
#include <QFont>
#include <QString>
#include <QVariant>

#include <memory>
#include <optional>

namespace Tarnwell {

class MaskBox;

class DateFields;
class DatePicker;
class PropertyBag;
class UserValue;

/// @brief One date, typed into an inner MaskBox (`mdtDate`) through a numeric mask in the order
/// #Format names ("##/##/####" day first), with #Separator as the literal between the fields.
///
/// While the control has the focus it shows those edit digits; without the focus the mask goes
/// and the date is shown through the #DisplayFormat pattern ("07/Mar/2024").
///
/// Every accepted keystroke raises Change, whether the text is a date yet or not; #Value is a date
/// only while the text reads as a real calendar date within Minimum..Maximum, else Null
/// (NullIfEmpty) or Empty. The Up and Down keys (with InterceptArrowKeys) and the spin button
/// `UpDown1` (month-and-year boxes) step the field under the caret; every other box carries the
/// drop-down calendar `fdt`, opened by its button, Alt+Down or F4. #Minimum and #Maximum live in
/// the calendar: a bound it refuses is dropped silently.
///
/// Setting Separator takes only one of " /-." (Error 380 otherwise) and shows at once in the edit
/// mask, while the unfocused display keeps its pattern until Format or DisplayFormat is set again.
/// Format takes any number; one outside the constants leaves mask and pattern as they are and no
/// text reads as a date in it.
///
/// @code
/// auto *ordered = new Tarnwell::DateBox(form);
/// ordered->setFormat(Tarnwell::twYearMonthDay);
/// ordered->setDate(QDate(2024, 3, 7));      // Value() holds a Tarnwell::Date
/// @endcode
class TARNWELL_EXPORT DateBox : public ValueBox
{
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "Value")
    // Help strings of the host's property browser, one entry "Help:<property>" each.
    Q_CLASSINFO("Help:Format", "Returns/Sets the format to display/input dates when the object has focus.")
    Q_CLASSINFO("Help:DisplayFormat",
                "Returns/Sets the format to display dates when the object hasn't focus.")
    Q_CLASSINFO("Help:Separator", "Returns/Sets the char to display as separator.")
    Q_CLASSINFO("Help:UpDown", "Returns/Sets whether to display a up-down button.")
    Q_CLASSINFO("Help:CalendarBackColor",
                "Returns/sets the background color used to display the month portion of the dropdown calendar.")
    Q_CLASSINFO("Help:CalendarTitleBackColor",
                "Returns/sets the background color used to display the title portion of the dropdown calendar.")
    /** @name Value and range */
    ///@{
    /// The date, a Tarnwell::Date, or Null / Empty while there is no valid date (see Value()).
    Q_PROPERTY(QVariant Value READ Value WRITE setValue STORED false)
    ///@}
    /** @name Format */
    ///@{
    /// The order of the fields while typing (default Tarnwell::twDayMonthYear).
    Q_PROPERTY(Tarnwell::twDateFormatConstants Format READ Format WRITE setFormat)
    /// The literal between the fields: one of " /-." (default "/").
    Q_PROPERTY(QString Separator READ Separator WRITE setSeparator)
    /// The pattern of the date shown without the focus ("dd", "mmm", "yyyy"...; default
    /// "dd/mmm/yyyy"); a set of #Format rebuilds it.
    Q_PROPERTY(QString DisplayFormat READ DisplayFormat WRITE setDisplayFormat)
    ///@}
    /** @name Value and range */
    ///@{
    /// The earliest date (default 1 January 1601).
    Q_PROPERTY(Tarnwell::Date Minimum READ Minimum WRITE setMinimum)
    /// The latest date (default 31 December 9999).
    Q_PROPERTY(Tarnwell::Date Maximum READ Maximum WRITE setMaximum)
    ///@}
    /** @name Drop-down calendar */
    ///@{
    /// Background of the calendar's month area.
    Q_PROPERTY(Tarnwell::OleColor CalendarBackColor READ CalendarBackColor WRITE setCalendarBackColor)
    /// Text colour of the calendar's days.
    Q_PROPERTY(Tarnwell::OleColor CalendarForeColor READ CalendarForeColor WRITE setCalendarForeColor)
    /// Background of the calendar's title.
    Q_PROPERTY(Tarnwell::OleColor CalendarTitleBackColor READ CalendarTitleBackColor
                   WRITE setCalendarTitleBackColor)
    /// Text colour of the calendar's title.
    Q_PROPERTY(Tarnwell::OleColor CalendarTitleForeColor READ CalendarTitleForeColor
                   WRITE setCalendarTitleForeColor)
    /// Text colour of the days of the previous and next months.
    Q_PROPERTY(Tarnwell::OleColor CalendarTrailingForeColor READ CalendarTrailingForeColor
                   WRITE setCalendarTrailingForeColor)
    /// The font of the calendar button and its calendar.
    Q_PROPERTY(QFont CalendarFont READ CalendarFont WRITE setCalendarFont)
    ///@}
    /** @name Qt model value */
    ///@{
    /// What Qt's item delegates and widget mappers read and write, as QDateEdit's date: see
    /// date() and setDate() (USER property, notified by dateChanged()).
    Q_PROPERTY(QDate date READ date WRITE setDate NOTIFY dateChanged USER true DESIGNABLE false
                   STORED false)
    ///@}

public:
    /// A new control: no date, day-month-year, the defaults of InitProperties().
    explicit DateBox(QWidget *parent = nullptr);
    ~DateBox() override;

    /** @name Value and range */
    ///@{
    /// The date (a Tarnwell::Date), or Null (NullIfEmpty) / Empty while there is no valid date or
    /// the check box is shown and cleared.
    QVariant Value() const;
    /// Error(387) at design time; nothing when the host's can-property-change query refuses;
    /// Error(13) for a value that is no date (nothing changes then). Null clears a shown check
    /// box; Null and "" leave no date; a date outside Minimum..Maximum leaves no valid date
    /// either. Raises Change.
    void setValue(const QVariant &value);
    ///@}

    /** @name Format */
    ///@{
    /// Reads #Format.
    twDateFormatConstants Format() const { return static_cast<twDateFormatConstants>(m_format); }
    /// Sets #Format: the edit mask and the #DisplayFormat pattern follow.
    void setFormat(int format);
    /// Reads #Separator.
    QString Separator() const { return m_separator; }
    /// Sets #Separator; Error(380) for anything but one of " /-.".
    void setSeparator(const QString &separator);
    /// Reads #DisplayFormat.
    QString DisplayFormat() const { return m_displayFormat; }
    /// Sets #DisplayFormat.
    void setDisplayFormat(const QString &pattern);
    ///@}

    /** @name Value and range */
    ///@{
    /// Reads #Minimum. The bounds are held by the calendar; a bound it refuses (outside
    /// 1601..9999, or across the other bound) is dropped without an error. The present value is
    /// not checked again.
    Date Minimum() const;
    /// Sets #Minimum (see Minimum()).
    void setMinimum(Date minimum);
    /// Reads #Maximum (see Minimum()).
    Date Maximum() const;
    /// Sets #Maximum (see Minimum()).
    void setMaximum(Date maximum);
    ///@}

    /** @name Drop-down calendar */
    ///@{
    /// Reads #CalendarBackColor.
    OleColor CalendarBackColor() const;
    /// Sets #CalendarBackColor.
    void setCalendarBackColor(OleColor color);
    /// Reads #CalendarForeColor.
    OleColor CalendarForeColor() const;
    /// Sets #CalendarForeColor.
    void setCalendarForeColor(OleColor color);
    /// Reads #CalendarTitleBackColor.
    OleColor CalendarTitleBackColor() const;
    /// Sets #CalendarTitleBackColor.
    void setCalendarTitleBackColor(OleColor color);
    /// Reads #CalendarTitleForeColor.
    OleColor CalendarTitleForeColor() const;
    /// Sets #CalendarTitleForeColor.
    void setCalendarTitleForeColor(OleColor color);
    /// Reads #CalendarTrailingForeColor.
    OleColor CalendarTrailingForeColor() const;
    /// Sets #CalendarTrailingForeColor.
    void setCalendarTrailingForeColor(OleColor color);
    /// The font of the calendar button and its calendar; the ambient font until one is set.
    QFont CalendarFont() const;
    /// Sets #CalendarFont.
    void setCalendarFont(const QFont &font);

    /// Opens the calendar, as Alt+Down does, when the calendar button is shown.
    Q_INVOKABLE void ShowDropDown();
    ///@}

    /** @name Persistence */
    ///@{
    /// Gives the control the defaults of a new one.
    Q_INVOKABLE void InitProperties();
    /// Reads the settings from the bag. A bag value that cannot be read (or a Separator the
    /// property would refuse) throws Error(380) and leaves the control as it was.
    Q_INVOKABLE void ReadProperties(Tarnwell::PropertyBag &bag);
    /// Writes the settings into the bag, key by key (nothing for a default).
    Q_INVOKABLE void WriteProperties(Tarnwell::PropertyBag &bag) const;
    ///@}

    /** @name Qt model value */
    ///@{
    /// Value as a calendar date; an invalid QDate while there is none.
    QDate date() const;
    /// Sets Value, an invalid QDate setting Null. Never throws: a date outside Minimum..Maximum,
    /// and every value Value refuses, leave the control as it was and raise valueRefused.
    void setDate(const QDate &date);
    ///@}

signals:
    /// The calendar opened.
    void DropDown();
    /// Once per change of date(): typed, stepped, picked or set.
    void dateChanged(const QDate &date);

protected:
    /// @cond INTERNAL
    // Switching UpDown on or off switches arrow-key stepping with it, unreported.
    StepEnabled stepEnabled() const override;
    bool stepValue(bool up) override;
    bool showsUpDownButton() const override;
    void handleKeyDown(short &keyCode, short &shift) override;
    void onTextChanged(const QString &text) override;
    void onEnterFocus() override;
    void onExitFocus() override;
    void updateValueControls() override;
    void relayout() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// @endcond

private:
    // One of the separators a date may use: blank, slash, hyphen, full stop.
    static bool isSeparator(const QString &separator);
    // Shows the value in the mode the focus calls for: edit digits in the numeric mask, the
    // display pattern without a mask, or nothing; the calendar follows the value (or today).
    void refreshDisplay();
    void pickerDropDown();
    void pickerChange();
    void setPickerValue(Date date);
    // Sets one of the calendar's colours (a DatePicker::ColorPart) and reports `name` changed.
    void setCalendarColor(int part, OleColor color, const QString &name);
    Date clampedToday() const;
    void rebuildFields();
    MaskBox &box() const;

    std::unique_ptr<DateFields> m_fields;
    DatePicker *m_picker = nullptr;

    int m_format = twDayMonthYear;
    QString m_separator;
    QString m_displayFormat;
    Date m_value;
    bool m_valid = false;
    std::optional<QFont> m_calendarFont; // none: the ambient font
    std::unique_ptr<UserValue> m_userValue; // last: see UserValue
};

} // namespace Tarnwell
