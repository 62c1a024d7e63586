#include "platform/numberformat.h"

#include <tarnwell/currency.h>
#include <tarnwell/date.h>
#include <tarnwell/decimal.h>
#include <tarnwell/error.h>
#include <tarnwell/variant.h>

#include "platform/decimaldigits.h"
#include "platform/numerictext.h"

#include <QList>

namespace Tarnwell {

namespace {

struct Token {
    enum Kind : quint8 { Literal, Digit, Point, Exponent };
    Kind kind = Literal;
    QChar placeholder; // '0' or '#' for a digit; 'E' or 'e' for an exponent
    QString text;      // literal text
};

// One ";"-separated section of a pattern, compiled once.
struct Section {
    QList<Token> tokens;
    int intCount = 0;   // integer digit placeholders
    int fracCount = 0;  // fraction digit placeholders
    int lastFracZero = -1; // index of the last "0" among the fraction placeholders
    int expCount = 0;   // "0" placeholders of the exponent: its minimum width
    int thousands = 0;  // commas left of the decimal point: divide by 1000 each
    bool grouping = false;
    bool percent = false;
    bool scientific = false;
    bool expPlus = false;

    bool isEmpty() const { return tokens.isEmpty(); }
};

struct Pattern {
    QList<Section> sections;
};

void appendLiteral(Section &s, QChar c)
{
    if (!s.tokens.isEmpty() && s.tokens.last().kind == Token::Literal)
        s.tokens.last().text += c;
    else
        s.tokens.append(Token{Token::Literal, QChar(), QString(c)});
}

void appendLiteral(Section &s, QStringView text)
{
    if (text.isEmpty())
        return;
    if (!s.tokens.isEmpty() && s.tokens.last().kind == Token::Literal)
        s.tokens.last().text += text;
    else
        s.tokens.append(Token{Token::Literal, QChar(), text.toString()});
}

Pattern compile(const QString &text)
{
    Pattern pattern;
    pattern.sections.append(Section());
    enum Region { Integer, Fraction, ExponentDigits } region = Integer;
    int pendingCommas = 0;
    auto settleCommas = [&](Section &s) {
        s.thousands += pendingCommas;
        pendingCommas = 0;
    };

    for (qsizetype i = 0; i < text.size(); ++i) {
        Section &s = pattern.sections.last();
        const QChar c = text.at(i);
        if (c == u';') {
            if (region == Integer)
                settleCommas(s);
            if (pattern.sections.size() == 3)
                break; // a fourth section (for Null) has no use here
            pattern.sections.append(Section());
            region = Integer;
            continue;
        }
        if (c == u'"') {
            const qsizetype close = text.indexOf(u'"', i + 1);
            const qsizetype end = close < 0 ? text.size() : close;
            appendLiteral(s, QStringView(text).sliced(i + 1, end - i - 1));
            i = end;
            continue;
        }
        if (c == u'\\') {
            if (i + 1 < text.size())
                appendLiteral(s, text.at(++i));
            continue;
        }
        if (c == u'0' || c == u'#') {
            s.tokens.append(Token{Token::Digit, c, QString()});
            if (region == Integer) {
                if (pendingCommas > 0 && s.intCount > 0)
                    s.grouping = true;
                pendingCommas = 0;
                ++s.intCount;
            } else if (region == Fraction) {
                if (c == u'0')
                    s.lastFracZero = s.fracCount;
                ++s.fracCount;
            } else if (c == u'0') {
                ++s.expCount;
            }
            continue;
        }
        if (c == u'.' && region == Integer) {
            settleCommas(s);
            s.tokens.append(Token{Token::Point, QChar(), QString()});
            region = Fraction;
            continue;
        }
        if (c == u',') {
            if (region == Integer && s.intCount > 0)
                ++pendingCommas;
            else if (region == Integer)
                appendLiteral(s, c);
            continue; // commas among the decimals mean nothing
        }
        if ((c == u'E' || c == u'e') && region != ExponentDigits && i + 1 < text.size()
            && (text.at(i + 1) == u'+' || text.at(i + 1) == u'-')
            && s.intCount + s.fracCount > 0) {
            if (region == Integer)
                settleCommas(s);
            s.scientific = true;
            s.expPlus = text.at(i + 1) == u'+';
            s.tokens.append(Token{Token::Exponent, c, QString()});
            region = ExponentDigits;
            ++i;
            continue;
        }
        if (c == u'%')
            s.percent = true;
        appendLiteral(s, c);
    }
    if (region == Integer)
        settleCommas(pattern.sections.last());
    return pattern;
}

const Pattern &compiled(const QString &text)
{
    // NumberBox formats with the same pattern keystroke after keystroke.
    thread_local QString lastText;
    thread_local Pattern lastPattern;
    thread_local bool valid = false;
    if (!valid || lastText != text) {
        lastPattern = compile(text);
        lastText = text;
        valid = true;
    }
    return lastPattern;
}

void appendDigits(QString &out, int value, int minWidth)
{
    char buffer[12];
    int n = 0;
    do {
        buffer[n++] = char('0' + value % 10);
        value /= 10;
    } while (value > 0);
    for (int i = n; i < minWidth; ++i)
        out += u'0';
    while (n > 0)
        out += QLatin1Char(buffer[--n]);
}

QString formatSection(const Section &s, DecimalDigits d, bool showMinus,
                      const NumericText::LocaleChars &chars)
{
    if (d.isZero())
        d.point = 0;
    d.point += (s.percent ? 2 : 0) - 3 * s.thousands;
    int exponent = 0;
    if (s.scientific) {
        if (!d.isZero()) {
            d.roundToSignificant(s.intCount + s.fracCount);
            if (!d.isZero()) {
                exponent = d.point - s.intCount;
                d.point = s.intCount;
            }
        }
    } else {
        d.roundToFraction(s.fracCount);
    }

    const int intDigits = d.isZero() ? 0 : (d.point > 0 ? d.point : 0);
    int lastShown = s.lastFracZero;
    for (int j = s.fracCount - 1; j > lastShown; --j) {
        if (!d.isZero() && d.digitAt(d.point + j) != '0') {
            lastShown = j;
            break;
        }
    }

    QString out;
    out.reserve(intDigits + intDigits / 3 + s.fracCount + 16);
    if (showMinus)
        out += u'-';
    auto emitInteger = [&](int r) { // the digit standing for 10^r
        out += QLatin1Char(r < intDigits ? d.digitAt(intDigits - 1 - r) : '0');
        if (s.grouping && r > 0 && r % 3 == 0)
            out += chars.group;
    };
    int intIndex = 0, fracIndex = 0;
    bool inExponent = false;
    for (const Token &t : s.tokens) {
        switch (t.kind) {
        case Token::Literal:
            out += t.text;
            break;
        case Token::Point:
            out += chars.decimal;
            break;
        case Token::Exponent:
            inExponent = true;
            out += t.placeholder;
            if (exponent < 0)
                out += u'-';
            else if (s.expPlus)
                out += u'+';
            appendDigits(out, exponent < 0 ? -exponent : exponent, s.expCount);
            break;
        case Token::Digit:
            if (inExponent)
                break; // written with the exponent marker
            if (intIndex < s.intCount) {
                const int r = s.intCount - 1 - intIndex;
                if (intIndex == 0) {
                    for (int extra = intDigits - 1; extra > r; --extra)
                        emitInteger(extra);
                }
                if (r < intDigits || t.placeholder == u'0')
                    emitInteger(r);
                ++intIndex;
            } else {
                if (fracIndex <= lastShown)
                    out += QLatin1Char(d.isZero() ? '0' : d.digitAt(d.point + fracIndex));
                ++fracIndex;
            }
            break;
        }
    }
    return out;
}

struct FormatInput {
    DecimalDigits digits;
    int general = 0; // significant digits of the general form, 0 for exact types
    bool passThrough = false;
    QString text;
};

FormatInput inputOf(const QVariant &value, const QLocale &locale)
{
    FormatInput in;
    switch (Variant::kind(value)) {
    case Variant::Empty: return in;
    case Variant::Null: in.passThrough = true; return in;
    case Variant::Single:
        in.digits = DecimalDigits::fromFloat(value.toFloat());
        in.general = 7;
        return in;
    case Variant::Double:
        in.digits = DecimalDigits::fromDouble(value.toDouble(), 15);
        in.general = 15;
        return in;
    case Variant::CurrencyKind:
        in.digits = DecimalDigits::fromCurrency(value.value<Currency>());
        return in;
    case Variant::DecimalKind:
        in.digits = DecimalDigits::fromDecimal(value.value<Decimal>());
        return in;
    case Variant::DateKind:
        in.digits = DecimalDigits::fromDouble(value.value<Date>().serial(), 15);
        in.general = 15;
        return in;
    case Variant::String: {
        NumericText number;
        in.text = value.toString();
        if (number.scan(in.text, locale)) {
            try {
                in.digits = DecimalDigits::fromDouble(Variant::toDouble(value, locale), 15);
                in.general = 15;
                return in;
            } catch (const Error &) {
            }
        }
        in.passThrough = true;
        return in;
    }
    default:
        break;
    }
    try {
        // Integers and Booleans are whole numbers; anything else numeric goes through Decimal.
        const Decimal exact = Variant::toDecimal(value, locale);
        in.digits = DecimalDigits::fromDecimal(exact);
    } catch (const Error &) {
        in.passThrough = true;
        in.text = value.toString();
    }
    return in;
}

} // namespace

QString NumberFormat::format(const QVariant &value, const QString &pattern, const QLocale &locale)
{
    const FormatInput in = inputOf(value, locale);
    if (in.passThrough)
        return in.text;
    const NumericText::LocaleChars &chars = NumericText::localeChars(locale);
    const Pattern &p = compiled(pattern);

    const bool negative = in.digits.negative && (in.digits.count > 0 || !in.digits.finite);
    if (!in.digits.finite)
        return in.digits.toPlainString(chars.decimal);
    const Section *section = &p.sections.at(0);
    bool showMinus = negative;
    if (in.digits.isZero() && p.sections.size() >= 3 && !p.sections.at(2).isEmpty()) {
        section = &p.sections.at(2);
        showMinus = false;
    } else if (negative && p.sections.size() >= 2 && !p.sections.at(1).isEmpty()) {
        section = &p.sections.at(1);
        showMinus = false;
    }
    if (section->isEmpty()) {
        if (in.general > 0)
            return in.digits.toGeneralString(chars.decimal, in.general);
        return in.digits.toPlainString(chars.decimal);
    }
    return formatSection(*section, in.digits, showMinus, chars);
}

} // namespace Tarnwell
