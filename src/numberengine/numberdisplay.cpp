#include "numberengine/numberdisplay.h"

#include "numberengine/numbertype.h"
#include "numberengine/textworkspace.h"
#include "platform/numberformat.h"

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

bool NumberDisplay::symbolShown() const
{
    return (m_showCurrencySymbol == twLeft || m_showCurrencySymbol == twRight)
        && !m_currencySymbol.isEmpty();
}

int NumberDisplay::leftSymbolLength(const QString &text) const
{
    if (symbolShown() && m_showCurrencySymbol == twLeft && text.startsWith(m_currencySymbol))
        return int(m_currencySymbol.size());
    return 0;
}

QString NumberDisplay::stripped(const QString &text) const
{
    if (!symbolShown())
        return text;
    if (m_showCurrencySymbol == twLeft && text.startsWith(m_currencySymbol))
        return text.mid(m_currencySymbol.size());
    if (m_showCurrencySymbol == twRight && text.endsWith(m_currencySymbol))
        return text.left(text.size() - m_currencySymbol.size());
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
    if (m_showCurrencySymbol == twLeft) {
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
    if (m_showCurrencySymbol == twLeft) {
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
    return m_showCurrencySymbol == twLeft ? m_currencySymbol + number : number + m_currencySymbol;
}

QString NumberDisplay::formatNumber(const QVariant &value, int dataType) const
{
    return NumberFormat::format(NumberType::convertToType(value, dataType, m_locale),
                                buildFormatString(), m_locale);
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
