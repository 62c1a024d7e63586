#pragma once
#include <tarnwell/propertypage.h>

#include <memory>

class QCheckBox;
class QComboBox;

namespace Tarnwell {

class NumberBox;
namespace Pages {
class PageBindings;
}

/// @brief The "General" page of a NumberBox.
///
/// Five NumberBoxes of its own, live editors on the page, take the numbers: nmbDecimalPlaces (a small whole number from 0 with up-down buttons), nmbIncrement,
/// nmbMinimum, nmbMaximum and nmbValue, which doubles as a preview of the display settings.
///
/// Filling reads DataType first and gives it to the four number fields, so that they take values of
/// the control's type; then Alignment, Enabled, InterceptArrowKeys, Increment (its field first gets
/// the control's DecimalPlaces), UpDown, DecimalPlaces, Locked, Maximum, Minimum,
/// ThousandSeparator, Value, BorderStyle, UseNegativeColor, SelectTextOnFocus, CurrencySymbol,
/// ShowCurrencySymbol, CheckBox, Checked, NullIfEmpty; last nmbDecimalPlaces.Maximum becomes the
/// control's MaxDecimalPlaces (the most DecimalPlaces the control takes; it ignores more) and
/// nmbValue gets nmbMinimum..nmbMaximum as its range.
///
/// Applying writes CheckBox, Checked, DataType (which resets the control's bounds, Increment,
/// Value and DecimalPlaces), Alignment, Enabled, UpDown, InterceptArrowKeys (after UpDown, which
/// sets it too), Increment, DecimalPlaces, Locked, Maximum, Minimum (after Maximum), ThousandSeparator,
/// Value (after both bounds), BorderStyle, UseNegativeColor, SelectTextOnFocus, ShowCurrencySymbol,
/// CurrencySymbol, NullIfEmpty. The page checks no values itself: a value the control refuses
/// throws out of ApplyChanges() with the control's error, after the writes before it.
///
/// The handlers that keep the page's own fields in step also run while the page fills, so that
/// the fields show the control's values in its format; only marking the page changed waits for
/// the user:
/// - nmbDecimalPlaces sets DecimalPlaces of nmbMinimum, nmbMaximum, nmbValue and nmbIncrement;
/// - nmbIncrement sets nmbValue.Increment;
/// - Alignment, BorderStyle, ThousandSeparator, UseNegativeColor, CurrencySymbol,
///   ShowCurrencySymbol, UpDown and InterceptArrowKeys are shown on nmbValue;
/// - choosing a data type does to the four number fields what DataType does to the control (each
///   goes back to the type's limits, a zero value and the type's decimals; nmbMinimum, nmbMaximum
///   and nmbIncrement then hold the type's limits and step), and nmbDecimalPlaces
///   takes that type's MaxDecimalPlaces as its maximum and its value, so what the page then holds
///   is what the control will take after its own reset;
/// - when nmbMinimum or nmbMaximum loses the focus, nmbValue takes the new range (not on every
///   keystroke, which would clip the preview to a half-typed bound).
/// Ticking or unticking chkUpDown by a click (mouse or Space) gives chkInterceptArrowKeys the same
/// state, as UpDown does on the control; filling does not, so a filled page shows the control's own
/// InterceptArrowKeys.
///
/// The widgets are laid out by Qt layouts (Frame1 holds the warning about the preview, Frame2 the
/// switches), so the page follows the font and the scale; the tab order is that of the page's
/// widget table and every labelled field has its label's access key.
class TARNWELL_EXPORT xGeneralNB : public PropertyPage
{
    Q_OBJECT
public:
    /// The page, captioned "General", for a NumberBox.
    explicit xGeneralNB(QWidget *parent = nullptr);
    ~xGeneralNB() override;

protected:
    /// @cond INTERNAL
    void fill(QObject *control) override;
    void apply(QObject *control) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// @endcond

private:
    void buildFields();
    void buildSwitches();
    void connectPreview();
    void layOut();
    // The four number fields follow `dataType` as the control follows DataType.
    void takeDataType(int dataType);
    void takeDecimalPlaces();
    void takeRange();
    void showPreview();

    std::unique_ptr<Pages::PageBindings> m_fields;
    QComboBox *m_dataType = nullptr;
    QComboBox *m_alignment = nullptr;
    QComboBox *m_borderStyle = nullptr;
    QComboBox *m_showCurrencySymbol = nullptr;
    QWidget *m_currencySymbol = nullptr;
    NumberBox *m_decimalPlaces = nullptr;
    NumberBox *m_increment = nullptr;
    NumberBox *m_minimum = nullptr;
    NumberBox *m_maximum = nullptr;
    NumberBox *m_value = nullptr;
    QList<QCheckBox *> m_checks; // in the widget table's order
    QCheckBox *m_upDown = nullptr;
    QCheckBox *m_interceptArrowKeys = nullptr;
};

} // namespace Tarnwell
