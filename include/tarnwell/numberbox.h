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

// A text box for one number of a chosen data type (DataType), shown formatted with grouping,
// a fixed number of decimals and an optional currency symbol, in a colour that marks negative
// numbers. Every keystroke, paste and drop goes through the number editor; no path leaves
// anything but a well-formed number in the inner text box Text1.
//
// Value, Minimum, Maximum and Increment are variants of the data type: Currency and Decimal stay
// exact end to end. Refused sets throw Tarnwell::Error (13 not a number, 6 outside the type's
// limits) and leave the control unchanged; a Value outside Minimum..Maximum is ignored silently
// and a value typed or stepped out of that range is repaired when the focus leaves.
class TARNWELL_EXPORT NumberBox : public ValueBox
{
    Q_OBJECT
    Q_CLASSINFO("DefaultProperty", "Value")
    Q_PROPERTY(Tarnwell::twDataTypeConstants DataType READ DataType WRITE setDataType)
    Q_PROPERTY(QVariant Minimum READ Minimum WRITE setMinimum)
    Q_PROPERTY(QVariant Maximum READ Maximum WRITE setMaximum)
    Q_PROPERTY(QVariant Increment READ Increment WRITE setIncrement)
    Q_PROPERTY(short DecimalPlaces READ DecimalPlaces WRITE setDecimalPlaces)
    // After DataType and the range: a form loader writes properties in this order, and a set of
    // DataType resets the value, a bound can leave it outside the range.
    Q_PROPERTY(QVariant Value READ Value WRITE setValue)
    Q_PROPERTY(short MaxDecimalPlaces READ MaxDecimalPlaces WRITE setMaxDecimalPlaces STORED false)
    Q_PROPERTY(bool ThousandSeparator READ ThousandSeparator WRITE setThousandSeparator)
    Q_PROPERTY(QString CurrencySymbol READ CurrencySymbol WRITE setCurrencySymbol)
    Q_PROPERTY(Tarnwell::twCurrencyPositionConstants ShowCurrencySymbol READ ShowCurrencySymbol
                   WRITE setShowCurrencySymbol)
    Q_PROPERTY(Tarnwell::OleColor NegativeColor READ NegativeColor WRITE setNegativeColor)
    Q_PROPERTY(Tarnwell::OleColor NegativeDisabledColor READ NegativeDisabledColor
                   WRITE setNegativeDisabledColor)
    Q_PROPERTY(bool UseNegativeColor READ UseNegativeColor WRITE setUseNegativeColor)
    // What Qt's item delegates and widget mappers read and write, as QSpinBox's value.
    Q_PROPERTY(QVariant value READ value WRITE setModelValue NOTIFY valueChanged USER true
                   DESIGNABLE false STORED false)

public:
    // Default colours of the negative text (RGB 192,0,0 and 255,128,128).
    static constexpr std::uint32_t DefaultNegativeColor = 192;
    static constexpr std::uint32_t DefaultNegativeDisabledColor = 0x8080FF;

    explicit NumberBox(QWidget *parent = nullptr);
    ~NumberBox() override;

    // The number converted to DataType; Empty (or Null with NullIfEmpty) while the check box is
    // shown and cleared. A set takes any numeric variant or text; Null clears the check box.
    QVariant Value() const;
    void setValue(const QVariant &value);

    // Resets Minimum, Maximum, Increment, Value and DecimalPlaces for the type. Values outside
    // the constants are stored as they are and hold nothing (limits and conversions Empty).
    twDataTypeConstants DataType() const;
    void setDataType(int dataType);

    QVariant Minimum() const;
    void setMinimum(const QVariant &minimum);
    QVariant Maximum() const;
    void setMaximum(const QVariant &maximum);
    QVariant Increment() const;
    void setIncrement(const QVariant &increment);

    // 0..MaxDecimalPlaces; anything else is ignored.
    qint16 DecimalPlaces() const;
    void setDecimalPlaces(qint16 places);
    // The user's regional digits for the data type (2 when unset). Read-only: a set throws 387
    // at design time and 382 at run time.
    qint16 MaxDecimalPlaces() const;
    void setMaxDecimalPlaces(qint16 places);

    bool ThousandSeparator() const;
    void setThousandSeparator(bool on);
    QString CurrencySymbol() const;
    void setCurrencySymbol(const QString &symbol);
    twCurrencyPositionConstants ShowCurrencySymbol() const;
    void setShowCurrencySymbol(twCurrencyPositionConstants position); // Error(380) outside 0..2


    OleColor NegativeColor() const { return m_negativeColor; }
    void setNegativeColor(OleColor color);
    OleColor NegativeDisabledColor() const { return m_negativeDisabledColor; }
    void setNegativeDisabledColor(OleColor color);
    bool UseNegativeColor() const { return m_useNegativeColor; }
    void setUseNegativeColor(bool on);


    // Replaces the selection through the number editor, as a paste would; a text that would not
    // leave a number throws Error(380) and changes nothing.
    void setSelText(const QString &text) override;

    Q_INVOKABLE void InitProperties();
    // A bag value that cannot be read throws Error(380) and leaves the control as it was.
    Q_INVOKABLE void ReadProperties(Tarnwell::PropertyBag &bag);
    Q_INVOKABLE void WriteProperties(Tarnwell::PropertyBag &bag) const;

    // Value as a number an item model holds: of the type last given to setModelValue (an int
    // cell stays int, a double cell double), else int for the integer data types and double
    // for the others; never a Currency or Decimal. Empty while there is no value.
    QVariant value() const;
    // Sets Value, an empty variant setting Null. Never throws: a value that is no number, or
    // lies outside the data type or Minimum..Maximum, leaves the control as it was and raises
    // valueRefused.
    void setModelValue(const QVariant &value);

signals:
    // Once per change of value(): typed, stepped, brought into range or set.
    void valueChanged(const QVariant &value);

protected:
    // Switching UpDown on or off also switches arrow-key stepping with it (both reported).
    StepEnabled stepEnabled() const override;
    bool stepValue(bool up) override;
    void handleKeyDown(short &keyCode, short &shift) override;
    void handleKeyPress(short &keyAscii) override;
    void onTextChanged() override;
    void onForeignText(const QString &text, const QString &previous) override;
    bool filterDrop(QEvent *event) override;
    void onExitFocus() override;
    void relayout() override;
    OleColor textColor() const override;
    void applyTextColor() override;

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
