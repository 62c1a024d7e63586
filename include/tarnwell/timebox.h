#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/valuebox.h>
#include <tarnwell/date.h>
#include <tarnwell/global.h>

#include <QString>
#include <QTime>
#include <QVariant>

#include <memory>

namespace Tarnwell {

class MaskBox;

class PropertyBag;
class TimeFields;
class UserValue;

/// @brief A time of day typed into an inner masked box, `mdtTime`, in one of four formats (12- or
/// 24-hour, with or without seconds) with ":" or "." between the fields.
///
/// The mask takes digits only; the AM/PM marker is part of the mask and the A and P keys switch
/// it. Every change of the text is read at once: a complete time within Minimum..Maximum becomes
/// the value, anything else leaves the control without one (an out-of-range time stays visible
/// until the focus leaves, then the box is cleared). The up-down button `UpDown1` and, with
/// InterceptArrowKeys, the Up and Down keys step the field under the caret; a step that would
/// leave the range is dropped.
///
/// #Value holds a date: its date part is kept as given, and #Minimum and #Maximum compare with
/// the whole date. Minimum and Maximum are stored as they are set, unchecked against each other
/// and against the value. #Format takes any number: one outside the constants keeps the mask it
/// had.
///
/// @code
/// auto *start = new Tarnwell::TimeBox(form);
/// start->setFormat(Tarnwell::twHourMinute);  // 24-hour, "##:##"
/// start->setTime(QTime(8, 30));
/// @endcode
class TARNWELL_EXPORT TimeBox : public ValueBox
{
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "Value")
    // Help strings of the host's property browser, one entry "Help:<property>" each.
    Q_CLASSINFO("Help:Value", "Returns/Sets the value.")
    Q_CLASSINFO("Help:Text", "Returns the text contained in the control.")
    Q_CLASSINFO("Help:NullIfEmpty",
                "Set/returns whetrer the value properties returns Null or Empty if the data is invalid.")
    Q_CLASSINFO("Help:UpDown", "Returns/Sets whether to display a up-down button.")
    Q_CLASSINFO("Help:Separator", "Returns/Sets the char to display as separator.")
    /** @name Format */
    ///@{
    /// 12- or 24-hour, with or without seconds (default Tarnwell::twHourMinuteSecondAMPM).
    Q_PROPERTY(Tarnwell::twTimeFormatConstants Format READ Format WRITE setFormat)
    /// The literal between the fields: ":" (default) or ".".
    Q_PROPERTY(QString Separator READ Separator WRITE setSeparator)
    ///@}
    /** @name Value and range */
    ///@{
    /// The time, a Tarnwell::Date, or Null / Empty while there is none (see Value()).
    Q_PROPERTY(QVariant Value READ Value WRITE setValue STORED false)
    /// The earliest time (default 00:00:00).
    Q_PROPERTY(Tarnwell::Date Minimum READ Minimum WRITE setMinimum)
    /// The latest time (default 23:59:59, #DayEndSerial).
    Q_PROPERTY(Tarnwell::Date Maximum READ Maximum WRITE setMaximum)
    ///@}
    /** @name Qt model value */
    ///@{
    /// What Qt's item delegates and widget mappers read and write, as QTimeEdit's time: see
    /// time() and setTime() (USER property, notified by timeChanged()).
    Q_PROPERTY(QTime time READ time WRITE setTime NOTIFY timeChanged USER true DESIGNABLE false
                   STORED false)
    ///@}

public:
    /// 23:59:59, the default Maximum.
    static constexpr double DayEndSerial = 86399.0 / 86400.0;

    /// A new control: no time, 12-hour with seconds, the defaults of InitProperties().
    explicit TimeBox(QWidget *parent = nullptr);
    ~TimeBox() override;

    /** @name Format */
    ///@{
    /// Reads #Format.
    twTimeFormatConstants Format() const { return static_cast<twTimeFormatConstants>(m_format); }
    /// Sets #Format: the mask follows.
    void setFormat(int format);
    /// Reads #Separator: ":" or ".".
    QString Separator() const { return QString(m_separator); }
    /// Sets #Separator: ":" or "."; anything else throws Error(380) and changes nothing.
    void setSeparator(const QString &separator);
    ///@}

    /** @name Value and range */
    ///@{
    /// The time (a Date) while the box holds a complete time within the range and the check box,
    /// if shown, is ticked; otherwise Null (NullIfEmpty) or Empty.
    QVariant Value() const;
    /// Anything that converts to a date (Error(13) or Error(6) otherwise, nothing changed); a
    /// value outside Minimum..Maximum leaves the control without a value and shows nothing new.
    /// Null, Empty and "" clear the box and untick a shown check box; a time in range ticks it.
    /// Error(387) at design time; nothing happens when the host's can-property-change query
    /// refuses. Change is raised after every accepted set.
    void setValue(const QVariant &value);

    /// Reads #Minimum.
    Date Minimum() const { return m_minimum; }
    /// Sets #Minimum, as it is.
    void setMinimum(Date minimum);
    /// Reads #Maximum.
    Date Maximum() const { return m_maximum; }
    /// Sets #Maximum, as it is.
    void setMaximum(Date maximum);
    ///@}

    /** @name Persistence
     * Reading refuses a bag value it cannot take with Error(380), changing nothing; a loaded box
     * has no value. */
    ///@{
    /// Writes the settings into the bag, key by key (nothing for a default).
    Q_INVOKABLE void WriteProperties(Tarnwell::PropertyBag &bag) const;
    /// Reads the settings from the bag.
    Q_INVOKABLE void ReadProperties(Tarnwell::PropertyBag &bag);
    /// Gives the control the defaults of a new one.
    Q_INVOKABLE void InitProperties();
    ///@}

    /** @name Qt model value */
    ///@{
    /// Value's time of day; an invalid QTime while there is none.
    QTime time() const;
    /// Sets Value to the time of day (whole seconds), an invalid QTime setting Null. Never
    /// throws: a time outside Minimum..Maximum, and every value Value refuses, leave the control
    /// as it was and raise valueRefused.
    void setTime(const QTime &time);
    ///@}

signals:
    /// Once per change of time(): typed, stepped, switched between AM and PM, or set.
    void timeChanged(const QTime &time);

protected:
    /// @cond INTERNAL
    // Every change of the inner box's text is read at once; entering and leaving show the value.
    void onTextChanged(const QString &text) override;
    void onEnterFocus() override;
    void onExitFocus() override;
    // A and P switch the half of the day; the arrow keys step.
    void handleKeyPress(short &keyAscii) override;
    void handleKeyDown(short &keyCode, short &shift) override;
    StepEnabled stepEnabled() const override;
    bool stepValue(bool up) override;

    /// @endcond

private:
    // The inner masked box mdtTime.
    MaskBox *innerBox() const;
    void rebuildFields();
    void buildTimeMask();
    void showTimeValue();
    void clearShownTime();
    bool textHidden() const;
    void switchDayHalf(short keyAscii);
    // Where a step starts: the time, or now within the range when there is none.
    Date stepBase() const;

    std::unique_ptr<TimeFields> m_fields;

    int m_format = twHourMinuteSecondAMPM;
    QChar m_separator = QLatin1Char(':');
    QString m_currentMask;
    Date m_time;
    bool m_isValid = false;
    Date m_minimum;
    Date m_maximum = Date(DayEndSerial);
    std::unique_ptr<UserValue> m_userValue; // last: see UserValue
};

} // namespace Tarnwell
