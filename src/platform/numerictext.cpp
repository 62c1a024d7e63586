#include "platform/numerictext.h"

namespace Tarnwell {

namespace {

bool isBlank(QChar c)
{
    return c.isSpace();
}

class Cursor
{
public:
    explicit Cursor(QStringView text) : m_text(text) {}
    bool atEnd() const { return m_pos >= m_text.size(); }
    QChar peek() const { return atEnd() ? QChar() : m_text.at(m_pos); }
    void advance(qsizetype n = 1) { m_pos += n; }
    void skipBlanks()
    {
        while (!atEnd() && isBlank(m_text.at(m_pos)))
            ++m_pos;
    }
    bool take(QStringView token)
    {
        if (token.isEmpty() || !m_text.sliced(m_pos).startsWith(token))
            return false;
        m_pos += token.size();
        return true;
    }
    bool takeSign(bool &negative)
    {
        const QChar c = peek();
        if (c == u'-' || c == QChar(0x2212)) {
            negative = true;
            advance();
            return true;
        }
        if (c == u'+') {
            negative = false;
            advance();
            return true;
        }
        return false;
    }

private:
    QStringView m_text;
    qsizetype m_pos = 0;
};

} // namespace

const NumericText::LocaleChars &NumericText::localeChars(const QLocale &locale)
{
    thread_local LocaleChars cache;
    if (!cache.valid || cache.locale != locale) {
        cache.locale = locale;
        cache.decimal = locale.decimalPoint();
        cache.group = locale.groupSeparator();
        cache.currency = locale.currencySymbol(QLocale::CurrencySymbol);
        if (cache.decimal.isEmpty())
            cache.decimal = QStringLiteral(".");
        cache.groupIsBlank = cache.group.size() == 1 && cache.group.at(0).isSpace();
        cache.valid = true;
    }
    return cache;
}

bool NumericText::scan(QStringView text, const QLocale &locale, bool allowExponent)
{
    const LocaleChars &chars = localeChars(locale);
    negative = false;
    count = 0;
    exponent = 0;
    firstDropped = 0;
    stickyDropped = false;

    Cursor in(text);
    in.skipBlanks();
    const bool parenthesised = in.peek() == u'(';
    if (parenthesised) {
        in.advance();
        in.skipBlanks();
    }

    // A sign and a currency symbol in front, in either order.
    bool leadingSign = false;
    bool currencySeen = false;
    for (int i = 0; i < 2; ++i) {
        if (!leadingSign && !parenthesised && in.takeSign(negative)) {
            leadingSign = true;
            in.skipBlanks();
        } else if (!currencySeen && in.take(chars.currency)) {
            currencySeen = true;
            in.skipBlanks();
        }
    }

    auto isGroup = [&](QChar c) {
        if (chars.groupIsBlank)
            return c == u' ' || c == QChar(0x00A0) || c == QChar(0x202F) || c == chars.group.at(0);
        return chars.group.size() == 1 && c == chars.group.at(0);
    };

    bool anyDigit = false;
    bool droppedAny = false;
    auto addDigit = [&](int d, bool fraction) {
        anyDigit = true;
        if (count == 0 && d == 0) {
            if (fraction)
                --exponent;
            return;
        }
        if (count < MaxDigits) {
            digits[count++] = char('0' + d);
            if (fraction)
                --exponent;
            return;
        }
        if (!droppedAny)
            firstDropped = d;
        else if (d != 0)
            stickyDropped = true;
        droppedAny = true;
        if (!fraction)
            ++exponent;
    };

    // Integer part: grouping characters are allowed anywhere after the first digit.
    while (!in.atEnd()) {
        const QChar c = in.peek();
        if (c >= u'0' && c <= u'9') {
            addDigit(c.unicode() - u'0', false);
            in.advance();
        } else if (anyDigit && isGroup(c)) {
            in.advance();
        } else if (anyDigit && chars.group.size() > 1 && in.take(chars.group)) {
            // multi-character grouping strings
        } else {
            break;
        }
    }
    if (in.take(chars.decimal)) {
        while (!in.atEnd()) {
            const QChar c = in.peek();
            if (c < u'0' || c > u'9')
                break;
            addDigit(c.unicode() - u'0', true);
            in.advance();
        }
    }
    if (!anyDigit)
        return false;

    if (allowExponent) {
        const QChar e = in.peek();
        if (e == u'e' || e == u'E' || e == u'd' || e == u'D') {
            in.advance();
            bool expNegative = false;
            in.takeSign(expNegative);
            int value = 0;
            bool expDigit = false;
            while (!in.atEnd() && in.peek() >= u'0' && in.peek() <= u'9') {
                if (value < 100000)
                    value = value * 10 + (in.peek().unicode() - u'0');
                expDigit = true;
                in.advance();
            }
            if (!expDigit)
                return false;
            exponent += expNegative ? -value : value;
        }
    }

    in.skipBlanks();
    if (!currencySeen && in.take(chars.currency))
        in.skipBlanks();
    if (!leadingSign && !parenthesised && in.takeSign(negative))
        in.skipBlanks();
    if (parenthesised) {
        if (in.peek() != u')')
            return false;
        in.advance();
        in.skipBlanks();
        negative = true;
    }
    if (!in.atEnd())
        return false;
    if (count == 0)
        exponent = qMin(exponent, 0);
    return true;
}

} // namespace Tarnwell
