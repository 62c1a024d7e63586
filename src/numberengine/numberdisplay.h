#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/global.h>

#include <QChar>
#include <QLocale>
#include <QString>
#include <QStringView>
#include <QVariant>

namespace Tarnwell {

class DecimalDigits;
class TextWorkspace;

// How one number box shows its number: grouping, decimal places and the currency symbol, with
// the separators of its locale taken once at construction. A plain value class; the number
// editor holds one and the widget sets its fields from its properties.
//
// The separators come from the formatter itself: 1000 formatted with "#,##0.00" gives the
// grouping character as its 2nd and the decimal character as its 6th character. A locale whose
// formatter does not group 1000 (or that writes digits other than ASCII ones) would put a digit
// there; the locale's own separators are used instead, so a digit is never taken for one. The
// minus sign is taken the same way, from -1 formatted with "0".
//
// Formatting writes exactly what the platform's formatter writes for buildFormatString(), but
// from the number's decimal digits and the strings the formatter would use, worked out once per
// locale: the box formats on every keystroke, and the general formatter reads its pattern and
// the locale's characters each time.
class NumberDisplay
{
public:
    explicit NumberDisplay(const QLocale &locale = QLocale());

    const QLocale &locale() const { return m_locale; }
    QChar thousandsChar() const { return m_thousands; }
    QChar decimalChar() const { return m_decimal; }
    // The sign the formatter writes in front of a negative number (normally "-").
    QChar minusChar() const { return m_minus; }

    qint16 decimalPlaces() const { return m_decimalPlaces; }
    void setDecimalPlaces(qint16 places) { m_decimalPlaces = places < 0 ? qint16(0) : places; }
    bool thousandSeparator() const { return m_thousandSeparator; }
    void setThousandSeparator(bool on) { m_thousandSeparator = on; }
    const QString &currencySymbol() const { return m_currencySymbol; }
    void setCurrencySymbol(const QString &symbol);
    // A twCurrencyPositionConstants value; anything else shows no symbol.
    int showCurrencySymbol() const { return m_showCurrencySymbol; }
    void setShowCurrencySymbol(int position);

    // "#,##0" or "##0", then "." and DecimalPlaces zeros when there are decimals.
    QString buildFormatString() const;

    // Take the symbol off the box's text, keeping the caret on the same digit (a caret inside a
    // left symbol goes to 0 and the selection keeps only its part right of the symbol). A text
    // that does not carry the symbol where it belongs is left alone, so digits are never lost.
    void stripCurrencySymbol(TextWorkspace &box) const;
    // Glue the symbol on; the caret stays on the same digit and the selection collapses.
    void addCurrencySymbol(TextWorkspace &box) const;

    // Characters of the symbol in front of the digits of `text` (0 unless shown on the left and
    // actually present); the offset between box positions and positions in the bare number.
    int leftSymbolLength(QStringView text) const;
    // The text without its symbol, when it carries one (a view into `text`).
    QStringView stripped(QStringView text) const;

    // The number alone, as the value converted to dataType formats with buildFormatString().
    QString formatNumber(const QVariant &value, int dataType) const;
    // What the box shows for a value: the formatted number with the currency symbol.
    QString formatValue(const QVariant &value, int dataType) const;
    // The symbol glued to an already formatted number.
    QString withSymbol(const QString &number) const;
    // Appends the number `digits` holds, formatted with buildFormatString(); `minusOnZero` keeps
    // a "-" in front of a number that shows as zero (the "-0.00" of a negative entry).
    void appendNumber(QString &out, const DecimalDigits &digits, bool minusOnZero = false) const;
    // The symbol as it goes before or after the digits (empty when none is shown).
    QStringView leftSymbol() const;
    QStringView rightSymbol() const;

    // The decimal digits of a value already held in its data type (Empty is zero).
    static DecimalDigits digitsOf(const QVariant &typedValue);

    // Which of the four text colours applies: the negative ones when useNegativeColor is on and
    // the stored value is below zero (a negative zero is not).
    enum ColorRole { ForeColorRole, NegativeColorRole, DisabledColorRole, NegativeDisabledColorRole };
    static ColorRole colorRole(bool enabled, bool useNegativeColor, const QVariant &value);

private:
    bool symbolShown() const { return m_symbolSide != twNoCurrency; }
    void settleSymbolSide();

    QLocale m_locale;
    QChar m_thousands;
    QChar m_decimal;
    QChar m_minus;
    // The strings the platform's formatter writes for grouping and the decimal point.
    QString m_groupText;
    QString m_decimalText;
    qint16 m_decimalPlaces = 2;
    bool m_thousandSeparator = true;
    QString m_currencySymbol = QStringLiteral("$");
    int m_showCurrencySymbol = twNoCurrency;
    int m_symbolSide = twNoCurrency; // where a symbol actually shows: none when it is empty
};

} // namespace Tarnwell
