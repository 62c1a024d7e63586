#include "numberengine/numberdisplay.h"

#include "numberengine/numbertype.h"
#include "numberengine/textworkspace.h"
#include "platform/decimaldigits.h"
#include "platform/numberformat.h"
#include "platform/numerictext.h"

#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>
#include <tarnwell/variant.h>

#include <algorithm>

namespace Tarnwell {

namespace {

bool isAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

QChar firstCharOf(const QString &s, QChar fallback)
{
    return s.isEmpty() ? fallback : s.front();
}

struct Separators
{
    QChar thousands;
    QChar decimal;
    QChar minus;
    QString groupText;
    QString decimalText;
};

Separators separatorsOf(const QLocale &locale)
{
    Separators s;
    const QString sample = NumberFormat::format(QVariant(1000), QStringLiteral("#,##0.00"), locale);
    s.thousands = sample.size() > 1 ? sample.at(1) : QChar();
    s.decimal = sample.size() > 5 ? sample.at(5) : QChar();
    if (s.thousands.isNull() || isAsciiDigit(s.thousands) || s.decimal.isNull()
        || isAsciiDigit(s.decimal) || s.thousands == s.decimal) {
        s.thousands = firstCharOf(locale.groupSeparator(), u',');
        s.decimal = firstCharOf(locale.decimalPoint(), u'.');
    }
    const QString minus = NumberFormat::format(QVariant(-1), QStringLiteral("0"), locale);
    s.minus = minus.size() == 2 && minus.at(1) == u'1' ? minus.at(0) : QChar(u'-');
    const NumericText::LocaleChars &chars = NumericText::localeChars(locale);
    s.groupText = chars.group;
    s.decimalText = chars.decimal;
    return s;
}

// Every box of a process shares its locale: the separators are worked out once per locale and
// again only when another locale comes along.
const Separators &cachedSeparatorsOf(const QLocale &locale)
{
    static QLocale cachedLocale;
    static Separators cached = separatorsOf(cachedLocale);
    if (!(locale == cachedLocale)) {
        cachedLocale = locale;
        cached = separatorsOf(locale);
    }
    return cached;
}

} // namespace

NumberDisplay::NumberDisplay(const QLocale &locale)
    : m_locale(locale)
{
    const Separators &s = cachedSeparatorsOf(locale);
    m_thousands = s.thousands;
    m_decimal = s.decimal;
    m_minus = s.minus;
    m_groupText = s.groupText;
    m_decimalText = s.decimalText;
}

void NumberDisplay::setCurrencySymbol(const QString &symbol)
{
    m_currencySymbol = symbol;
    settleSymbolSide();
}

void NumberDisplay::setShowCurrencySymbol(int position)
{
    m_showCurrencySymbol = position;
    settleSymbolSide();
}

void NumberDisplay::settleSymbolSide()
{
    const bool shown = (m_showCurrencySymbol == twLeft || m_showCurrencySymbol == twRight)
        && !m_currencySymbol.isEmpty();
    m_symbolSide = shown ? m_showCurrencySymbol : twNoCurrency;
}

QString NumberDisplay::buildFormatString() const
{
    QString pattern = m_thousandSeparator ? QStringLiteral("#,##0") : QStringLiteral("##0");
    if (m_decimalPlaces != 0) {
        pattern += u'.';
        pattern += QString(m_decimalPlaces, u'0');
    }
    return pattern;
}

QStringView NumberDisplay::leftSymbol() const
{
    return m_symbolSide == twLeft ? QStringView(m_currencySymbol) : QStringView();
}

QStringView NumberDisplay::rightSymbol() const
{
    return m_symbolSide == twRight ? QStringView(m_currencySymbol) : QStringView();
}

int NumberDisplay::leftSymbolLength(QStringView text) const
{
    if (m_symbolSide == twLeft && text.startsWith(m_currencySymbol))
        return int(m_currencySymbol.size());
    return 0;
}

QStringView NumberDisplay::stripped(QStringView text) const
{
    if (m_symbolSide == twLeft && text.startsWith(m_currencySymbol))
        return text.sliced(m_currencySymbol.size());
    if (m_symbolSide == twRight && text.endsWith(m_currencySymbol))
        return text.chopped(m_currencySymbol.size());
    return text;
}

void NumberDisplay::stripCurrencySymbol(TextWorkspace &box) const
{
    if (!symbolShown())
        return;
    const QString &text = box.text();
    const int symbolLength = int(m_currencySymbol.size());
    int start = box.selStart();
    int length = box.selLength();
    QString bare;
    if (m_symbolSide == twLeft) {
        if (!text.startsWith(m_currencySymbol))
            return;
        bare = text.mid(symbolLength);
        if (start <= symbolLength) {
            length = std::max(0, length + start - symbolLength);
            start = 0;
        } else {
            start -= symbolLength;
        }
    } else {
        if (!text.endsWith(m_currencySymbol))
            return;
        bare = text.left(text.size() - symbolLength);
    }
    box.setText(bare);
    box.setSelStart(start);
    box.setSelLength(length);
}

void NumberDisplay::addCurrencySymbol(TextWorkspace &box) const
{
    if (!symbolShown())
        return;
    const int start = box.selStart();
    if (m_symbolSide == twLeft) {
        box.setText(m_currencySymbol + box.text());
        box.setSelStart(start + int(m_currencySymbol.size()));
    } else {
        box.setText(box.text() + m_currencySymbol);
        box.setSelStart(start);
    }
}

QString NumberDisplay::withSymbol(const QString &number) const
{
    if (!symbolShown())
        return number;
    return m_symbolSide == twLeft ? m_currencySymbol + number : number + m_currencySymbol;
}

DecimalDigits NumberDisplay::digitsOf(const QVariant &typedValue)
{
    switch (Variant::kind(typedValue)) {
    case Variant::Integer:
    case Variant::Long:
    case Variant::Byte:
        return DecimalDigits::fromInt64(typedValue.toLongLong());
    case Variant::Single:
        return DecimalDigits::fromFloat(typedValue.toFloat());
    case Variant::Double:
        return DecimalDigits::fromDouble(typedValue.toDouble(), 15);
    case Variant::CurrencyKind:
        return DecimalDigits::fromCurrency(typedValue.value<Currency>());
    case Variant::DecimalKind:
        return DecimalDigits::fromDecimal(typedValue.value<Decimal>());
    default:
        return DecimalDigits(); // Empty; no data type holds anything else
    }
}

// The platform formatter's rendering of "#,##0.00" and its relatives, cut down to what those
// patterns use: the sign (taken before rounding, so -0.001 shows "-0.00"), the whole digits or
// a single 0, grouping by threes, then exactly DecimalPlaces digits rounded half away from zero.
void NumberDisplay::appendNumber(QString &out, const DecimalDigits &digits, bool minusOnZero) const
{
    if (!digits.finite) {
        out += digits.toPlainString(m_decimalText);
        return;
    }
    DecimalDigits d = digits;
    const bool minus = (d.negative && d.count > 0) || minusOnZero;
    if (d.isZero())
        d.point = 0;
    d.roundToFraction(m_decimalPlaces);
    const int whole = d.isZero() ? 0 : std::max(d.point, 0);
    const int shownWhole = std::max(whole, 1);
    const int groups = m_thousandSeparator ? (shownWhole - 1) / 3 : 0;
    const int places = m_decimalPlaces;
    const qsizetype length = (minus ? 1 : 0) + shownWhole + groups * m_groupText.size()
        + (places > 0 ? m_decimalText.size() + places : 0);

    const qsizetype at = out.size();
    out.resize(at + length);
    QChar *p = out.data() + at;
    if (minus)
        *p++ = u'-';
    for (int r = shownWhole - 1; r >= 0; --r) {
        *p++ = QLatin1Char(r < whole ? d.digitAt(whole - 1 - r) : '0');
        if (groups > 0 && r > 0 && r % 3 == 0)
            p = std::copy(m_groupText.cbegin(), m_groupText.cend(), p);
    }
    if (places > 0) {
        p = std::copy(m_decimalText.cbegin(), m_decimalText.cend(), p);
        for (int j = 0; j < places; ++j)
            *p++ = QLatin1Char(d.isZero() ? '0' : d.digitAt(d.point + j));
    }
}

QString NumberDisplay::formatNumber(const QVariant &value, int dataType) const
{
    QString out;
    appendNumber(out, digitsOf(NumberType::convertToType(value, dataType, m_locale)));
    return out;
}

QString NumberDisplay::formatValue(const QVariant &value, int dataType) const
{
    return withSymbol(formatNumber(value, dataType));
}

NumberDisplay::ColorRole NumberDisplay::colorRole(bool enabled, bool useNegativeColor,
                                                  const QVariant &value)
{
    const bool negative = useNegativeColor && NumberType::isNegative(value);
    if (enabled)
        return negative ? NegativeColorRole : ForeColorRole;
    return negative ? NegativeDisabledColorRole : DisabledColorRole;
}

} // namespace Tarnwell
