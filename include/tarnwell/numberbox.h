#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/valuebox.h>
#include <tarnwell/global.h>
#include <tarnwell/olecolor.h>

#include <QString>
#include <QVariant>

#include <memory>

class QLineEdit;

namespace Tarnwell {

class NumberEditor;
class PropertyBag;
struct NumberEdit;
class UserValue;
struct NumberEditResult;
struct NumberEditState;

/// @brief A text box for one number of a chosen data type (#DataType), shown formatted with
/// grouping, a fixed number of decimals and an optional currency symbol, in a colour that marks
/// negative numbers.
///
/// Every keystroke, paste and drop goes through the number editor; no path leaves anything but a
/// well-formed number in the inner text box `Text1`.
///
/// #Value, #Minimum, #Maximum and #Increment are variants of the data type: Currency and Decimal
/// stay exact end to end. Refused sets throw Tarnwell::Error (13 not a number, 6 outside the
/// type's limits) and leave the control unchanged; a Value outside Minimum..Maximum is ignored
/// silently and a value typed or stepped out of that range is repaired when the focus leaves.
///
/// @code
/// auto *price = new Tarnwell::NumberBox(form);
/// price->setDataType(Tarnwell::twCurrency);
/// price->setMinimum(0);
/// price->setValue(QStringLiteral("12.50"));  // exact: a Tarnwell::Currency
/// @endcode
class TARNWELL_EXPORT NumberBox : public ValueBox
{
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "Value")
    /** @name Value and range */
    ///@{
    /// The numeric type of #Value, #Minimum, #Maximum and #Increment (default Tarnwell::twCurrency). A
    /// set resets the range to the type's limits, Increment to 1, Value to 0 and #DecimalPlaces
    /// to #MaxDecimalPlaces.
    Q_PROPERTY(Tarnwell::twDataTypeConstants DataType READ DataType WRITE setDataType)
    /// The smallest value (default the type's lower limit). Error(13) for no number, Error(6)
    /// outside the type's limits.
    Q_PROPERTY(QVariant Minimum READ Minimum WRITE setMinimum)
    /// The largest value (default the type's upper limit). Error(13) for no number, Error(6)
    /// outside the type's limits.
    Q_PROPERTY(QVariant Maximum READ Maximum WRITE setMaximum)
    /// The step of the arrow keys, the up-down button and the mouse wheel (default 1).
    Q_PROPERTY(QVariant Increment READ Increment WRITE setIncrement)
    ///@}
    /** @name Display */
    ///@{
    /// Decimals shown, 0..#MaxDecimalPlaces (default the user's regional digits).
    Q_PROPERTY(short DecimalPlaces READ DecimalPlaces WRITE setDecimalPlaces)
    ///@}
    /** @name Value and range */
    ///@{
    /// The number, of #DataType; Empty or Null while the check box is shown and cleared.
    // After DataType and the range: a form loader writes properties in this order, and a set of
    // DataType resets the value, a bound can leave it outside the range.
    Q_PROPERTY(QVariant Value READ Value WRITE setValue)
    ///@}
    /** @name Display */
    ///@{
    /// The most decimals the data type takes: 0 for the integer types, else the user's regional
    /// digits (2 when unset). Read-only.
    Q_PROPERTY(short MaxDecimalPlaces READ MaxDecimalPlaces WRITE setMaxDecimalPlaces STORED false)
    /// Digits are grouped by thousands ("1,234,567.00").
    Q_PROPERTY(bool ThousandSeparator READ ThousandSeparator WRITE setThousandSeparator)
    /// The currency symbol shown where #ShowCurrencySymbol puts it.
    Q_PROPERTY(QString CurrencySymbol READ CurrencySymbol WRITE setCurrencySymbol)
    /// Where the currency symbol is shown: none, left or right of the number.
    Q_PROPERTY(Tarnwell::twCurrencyPositionConstants ShowCurrencySymbol READ ShowCurrencySymbol
                   WRITE setShowCurrencySymbol)
    ///@}
    /** @name Negative numbers */
    ///@{
    /// Text colour of a negative number while enabled (default dark red, RGB 192,0,0).
    Q_PROPERTY(Tarnwell::OleColor NegativeColor READ NegativeColor WRITE setNegativeColor)
    /// Text colour of a negative number while disabled (default RGB 255,128,128).
    Q_PROPERTY(Tarnwell::OleColor NegativeDisabledColor READ NegativeDisabledColor
                   WRITE setNegativeDisabledColor)
    /// Negative numbers are shown in #NegativeColor / #NegativeDisabledColor (default true).
    Q_PROPERTY(bool UseNegativeColor READ UseNegativeColor WRITE setUseNegativeColor)
    ///@}
    /** @name Qt model value */
    ///@{
    /// What Qt's item delegates and widget mappers read and write, as QSpinBox's value: see
    /// value() and setModelValue() (USER property, notified by valueChanged()).
    Q_PROPERTY(QVariant value READ value WRITE setModelValue NOTIFY valueChanged USER true
                   DESIGNABLE false STORED false)
    ///@}

public:
    /// Default colour of the negative text while enabled (RGB 192,0,0).
    static constexpr std::uint32_t DefaultNegativeColor = 192;
    /// Default colour of the negative text while disabled (RGB 255,128,128).
    static constexpr std::uint32_t DefaultNegativeDisabledColor = 0x8080FF;

    /// A new control: a Tarnwell::twCurrency value of 0, run mode, the defaults of InitProperties().
    explicit NumberBox(QWidget *parent = nullptr);
    ~NumberBox() override;

    /** @name Value and range */
    ///@{
    /// The number converted to DataType; Empty (or Null with NullIfEmpty) while the check box is
    /// shown and cleared.
    QVariant Value() const;
    /// Takes any numeric variant or text; Null clears the check box. Error(13) for no number,
    /// Error(6) outside the type's limits; a number outside Minimum..Maximum is ignored.
    void setValue(const QVariant &value);

    /// Reads #DataType.
    twDataTypeConstants DataType() const;
    /// Resets Minimum, Maximum, Increment, Value and DecimalPlaces for the type. Values outside
    /// the constants are stored as they are and hold nothing (limits and conversions Empty).
    void setDataType(int dataType);

    /// Reads #Minimum.
    QVariant Minimum() const;
    /// Sets #Minimum, converted to the data type.
    void setMinimum(const QVariant &minimum);
    /// Reads #Maximum.
    QVariant Maximum() const;
    /// Sets #Maximum, converted to the data type.
    void setMaximum(const QVariant &maximum);
    /// Reads #Increment.
    QVariant Increment() const;
    /// Sets #Increment, converted to the data type.
    void setIncrement(const QVariant &increment);
    ///@}

    /** @name Display */
    ///@{
    /// Reads #DecimalPlaces.
    qint16 DecimalPlaces() const;
    /// 0..MaxDecimalPlaces; anything else is ignored.
    void setDecimalPlaces(qint16 places);
    /// The user's regional digits for the data type (2 when unset). Read-only: a set throws 387
    /// at design time and 382 at run time.
    qint16 MaxDecimalPlaces() const;
    /// Always refused (see MaxDecimalPlaces()).
    void setMaxDecimalPlaces(qint16 places);

    /// Reads #ThousandSeparator.
    bool ThousandSeparator() const;
    /// Sets #ThousandSeparator.
    void setThousandSeparator(bool on);
    /// Reads #CurrencySymbol.
    QString CurrencySymbol() const;
    /// Sets #CurrencySymbol.
    void setCurrencySymbol(const QString &symbol);
    /// Reads #ShowCurrencySymbol.
    twCurrencyPositionConstants ShowCurrencySymbol() const;
    void setShowCurrencySymbol(twCurrencyPositionConstants position); ///< Error(380) outside 0..2
    ///@}

    /** @name Negative numbers */
    ///@{
    /// Reads #NegativeColor.
    OleColor NegativeColor() const { return m_negativeColor; }
    /// Sets #NegativeColor.
    void setNegativeColor(OleColor color);
    /// Reads #NegativeDisabledColor.
    OleColor NegativeDisabledColor() const { return m_negativeDisabledColor; }
    /// Sets #NegativeDisabledColor.
    void setNegativeDisabledColor(OleColor color);
    /// Reads #UseNegativeColor.
    bool UseNegativeColor() const { return m_useNegativeColor; }
    /// Sets #UseNegativeColor.
    void setUseNegativeColor(bool on);
    ///@}

    /// Replaces the selection through the number editor, as a paste would; a text that would not
    /// leave a number throws Error(380) and changes nothing.
    void setSelText(const QString &text) override;

    /** @name Persistence */
    ///@{
    /// Gives the control the defaults of a new one.
    Q_INVOKABLE void InitProperties();
    /// Reads the settings from the bag. A bag value that cannot be read throws Error(380) and
    /// leaves the control as it was.
    Q_INVOKABLE void ReadProperties(Tarnwell::PropertyBag &bag);
    /// Writes the settings into the bag, key by key (nothing for a default).
    Q_INVOKABLE void WriteProperties(Tarnwell::PropertyBag &bag) const;
    ///@}

    /** @name Qt model value */
    ///@{
    /// Value as a number an item model holds: of the type last given to setModelValue (an int
    /// cell stays int, a double cell double), else int for the integer data types and double
    /// for the others; never a Currency or Decimal. Empty while there is no value.
    QVariant value() const;
    /// Sets Value, an empty variant setting Null. Never throws: a value that is no number, or
    /// lies outside the data type or Minimum..Maximum, leaves the control as it was and raises
    /// valueRefused.
    void setModelValue(const QVariant &value);
    ///@}

signals:
    /// Once per change of value(): typed, stepped, brought into range or set.
    void valueChanged(const QVariant &value);

protected:
    /// @cond INTERNAL
    // Switching UpDown on or off also switches arrow-key stepping with it (both reported).
    StepEnabled stepEnabled() const override;
    bool stepValue(bool up) override;
    void handleKeyDown(short &keyCode, short &shift) override;
    void handleKeyPress(short &keyAscii) override;
    void onTextChanged(const QString &text) override;
    void onForeignText(const QString &text, const QString &previous) override;
    bool filterDrop(QEvent *event) override;
    void onExitFocus() override;
    void relayout() override;
    OleColor textColor() const override;
    void applyTextColor() override;

    /// @endcond

private:
    NumberEditState editState() const;
    // Writes an accepted edit: the value first (the colour rule reads it), then text and caret.
    void apply(const NumberEditState &state, const NumberEditResult &result);
    // One edit of the engine on what the box shows now, applied.
    void runEdit(const NumberEdit &edit);
    void writeNumber(const QString &text, int selStart, int selLength);
    void showValue();
    void paste(const QString &text);
    void refreshTextColor();
    // Text1 took a text no edit of ours wrote (drag move, undo, a program's insert...): keep it
    // if it is a number, else put the last shown text back.
    void normaliseForeignText(const QString &text);
    QLineEdit *text3();

    // The number engine: display, type and range rules, and the edits.
    std::unique_ptr<NumberEditor> m_editor;
    QLineEdit *m_text3 = nullptr;

    QVariant m_value;
    OleColor m_negativeColor = DefaultNegativeColor;
    OleColor m_negativeDisabledColor = DefaultNegativeDisabledColor;
    bool m_useNegativeColor = true;

    QString m_shownText; // what our own edits last wrote into Text1
    int m_appliedColorRole = -1;
    bool m_normalising = false;
    QMetaType m_modelType; // the number type setModelValue last took
    std::unique_ptr<UserValue> m_userValue; // last: see UserValue
};

} // namespace Tarnwell
