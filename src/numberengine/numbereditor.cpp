#include "numberengine/numbereditor.h"

#include "numberengine/numbertype.h"
#include "platform/decimaldigits.h"

#include <tarnwell/constants.h>
#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>
#include <tarnwell/variant.h>

#include <QVarLengthArray>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>
#include <utility>

namespace Tarnwell {

struct NumberEditor::Reading
{
    bool negative = false;
    bool hasDecimal = false;
    int whole = 0;    // whole digits kept, leading zeros dropped
    int decimals = 0; // digits after the decimal character, as typed
    QVarLengthArray<char, 48> digits; // the whole digits, then the decimals: '0'..'9'

    std::string_view wholeDigits() const { return std::string_view(digits.data(), size_t(whole)); }
    // The decimals without trailing zeros: "-12.500" and "-12.5" are the same number.
    std::string_view significantDecimals() const
    {
        int n = decimals;
        while (n > 0 && digits[whole + n - 1] == '0')
            --n;
        return std::string_view(digits.data() + whole, size_t(n));
    }
    bool isZero() const
    {
        return std::all_of(digits.cbegin(), digits.cend(), [](char c) { return c == '0'; });
    }
    // "-123.45": C-locale text for the type's own conversion.
    QString canonical() const
    {
        QString s;
        s.reserve(digits.size() + 3);
        if (negative)
            s += u'-';
        if (whole == 0)
            s += u'0';
        s += QLatin1String(digits.data(), whole);
        if (decimals > 0) {
            s += u'.';
            s += QLatin1String(digits.data() + whole, decimals);
        }
        return s;
    }
};

namespace {

constexpr double SingleLimit = 3.402823E+38;
constexpr double DoubleLimit = 1.79769313486231E+308;
constexpr std::int64_t CurrencyLimit = 922337203685477;
// The most significant digits the platform's text conversion to a float keeps before rounding
// the rest into one sticky digit; up to there its result is from_chars' correctly rounded one.
constexpr int FloatDigits = 40;

// Only Byte has no negative numbers, so only there a "-0" entry would lead nowhere.
bool typeHasNegatives(int dataType)
{
    return dataType != twByte;
}

// The leftmost position with `count` non-grouping characters right of it: the caret sits right
// after its digit rather than after a grouping character that follows the digit.
int positionFromRight(QStringView text, int count, QChar grouping)
{
    int pos = int(text.size());
    while (pos > 0 && count > 0) {
        --pos;
        if (text.at(pos) != grouping)
            --count;
    }
    while (pos > 0 && text.at(pos - 1) == grouping)
        --pos;
    return pos;
}

// Decimal digits of any script count, but not superscripts and the like.
int digitOf(QChar c)
{
    if (c.unicode() < 128)
        return c >= u'0' && c <= u'9' ? c.unicode() - u'0' : -1;
    return c.category() == QChar::Number_DecimalDigit ? c.digitValue() : -1;
}

std::int64_t wholeNumber(std::string_view digits)
{
    std::int64_t n = 0;
    for (const char c : digits)
        n = n * 10 + (c - '0');
    return n;
}

// A float from significant digits and a power of ten, as the platform reads one from text;
// nullopt past the type's range.
template<typename Float>
std::optional<Float> floatOf(const NumberEditor::Reading &r)
{
    qsizetype first = 0;
    while (first < r.digits.size() && r.digits[first] == '0')
        ++first;
    const qsizetype count = r.digits.size() - first;
    if (count == 0)
        return r.negative ? -Float(0) : Float(0);
    char buffer[FloatDigits + 16];
    std::memcpy(buffer, r.digits.data() + first, size_t(count));
    char *end = buffer + count;
    *end++ = 'e';
    end = std::to_chars(end, buffer + sizeof buffer, -r.decimals).ptr;
    Float value = 0;
    if (std::from_chars(buffer, end, value).ec != std::errc())
        return std::nullopt;
    return r.negative ? -value : value;
}

// The digits of a number held exactly as it was read: those of the value itself. (A double
// holds 15 significant digits exactly enough to show them again.)
DecimalDigits digitsOf(const NumberEditor::Reading &r)
{
    DecimalDigits d;
    const auto nonZero = [](char c) { return c != '0'; };
    const auto first = std::find_if(r.digits.cbegin(), r.digits.cend(), nonZero);
    if (first == r.digits.cend())
        return d;
    const auto last = std::find_if(r.digits.crbegin(), r.digits.crend(), nonZero).base();
    d.negative = r.negative;
    d.count = std::min(int(last - first), DecimalDigits::Capacity);
    std::copy(first, first + d.count, d.digits);
    d.point = r.whole - int(first - r.digits.cbegin());
    return d;
}

// Whether two values of the type are the same number, without the general comparison's
// conversions where both are held alike.
bool sameValue(const QVariant &a, const QVariant &b, int dataType)
{
    if (a.metaType() == b.metaType()) {
        switch (Variant::kind(a)) {
        case Variant::Integer: return a.value<qint16>() == b.value<qint16>();
        case Variant::Long: return a.value<qint32>() == b.value<qint32>();
        case Variant::Single: return a.value<float>() == b.value<float>();
        case Variant::Double: return a.value<double>() == b.value<double>();
        case Variant::CurrencyKind: return a.value<Currency>() == b.value<Currency>();
        case Variant::DecimalKind: return a.value<Decimal>() == b.value<Decimal>();
        default: break;
        }
    }
    const std::optional<int> order = NumberType::compare(a, b, dataType);
    return order && *order == 0;
}

bool sameNumber(const NumberEditor::Reading &a, const NumberEditor::Reading &b, bool ignoreSign)
{
    return (ignoreSign || a.negative == b.negative) && a.wholeDigits() == b.wholeDigits()
        && a.significantDecimals() == b.significantDecimals();
}

} // namespace

NumberEditor::NumberEditor(const NumberDisplay &display, const NumberRules &rules)
    : m_display(display), m_rules(rules)
{
}

// ---------------------------------------------------------------------------------------------
// Reading and conversion

bool NumberEditor::read(QStringView bare, Reading &r) const
{
    const QChar decimal = m_display.decimalChar();
    const QChar minus = m_display.minusChar();
    qsizetype i = 0;
    const qsizetype n = bare.size();
    if (i < n && (bare[i] == u'-' || bare[i] == minus)) {
        r.negative = true;
        ++i;
    }
    for (; i < n; ++i) {
        const int digit = digitOf(bare[i]);
        if (digit < 0)
            break;
        if (digit == 0 && r.whole == 0)
            continue;
        r.digits.append(char('0' + digit));
        ++r.whole;
    }
    if (i < n && bare[i] == decimal) {
        r.hasDecimal = true;
        for (++i; i < n; ++i) {
            const int digit = digitOf(bare[i]);
            if (digit < 0)
                break;
            r.digits.append(char('0' + digit));
            ++r.decimals;
        }
    }
    return i == n;
}

// The types' conversions of a text, done straight from the digits where the outcome is plain:
// the same value, of the same storage type, as the conversion of the canonical text gives. When
// the digits could round, overflow or need the general reading, Empty leaves it to convert().
QVariant NumberEditor::quickConvert(const Reading &r, bool *shownExactly) const
{
    const int dataType = m_rules.dataType();
    switch (dataType) {
    case twByte:
    case twInteger:
    case twLong: {
        if (!r.significantDecimals().empty() || r.whole > 18)
            return QVariant();
        const std::int64_t magnitude = wholeNumber(r.wholeDigits());
        const std::int64_t n = r.negative ? -magnitude : magnitude;
        const std::int64_t low = dataType == twByte ? 0
            : dataType == twInteger ? std::numeric_limits<qint16>::min()
                                    : std::numeric_limits<qint32>::min();
        const std::int64_t high = dataType == twByte ? 255
            : dataType == twInteger ? std::numeric_limits<qint16>::max()
                                    : std::numeric_limits<qint32>::max();
        if (n < low || n > high)
            return QVariant();
        *shownExactly = true;
        return dataType == twLong ? QVariant::fromValue<qint32>(qint32(n))
                                  : QVariant::fromValue<qint16>(qint16(n));
    }
    case twCurrency: {
        const std::string_view fraction = r.significantDecimals();
        if (fraction.size() > 4 || r.whole > 15)
            return QVariant();
        const std::int64_t units = wholeNumber(r.wholeDigits());
        if (units > CurrencyLimit)
            return QVariant();
        // Unsigned: the limit's whole part with four decimals may pass the signed range.
        std::uint64_t raw = std::uint64_t(units);
        for (size_t i = 0; i < 4; ++i)
            raw = raw * 10 + unsigned(i < fraction.size() ? fraction[i] - '0' : 0);
        if (raw > std::uint64_t(CurrencyLimit * Currency::Scale))
            return QVariant();
        *shownExactly = true;
        const auto magnitude = std::int64_t(raw);
        return QVariant::fromValue(Currency::fromRaw(r.negative ? -magnitude : magnitude));
    }
    case twDecimal: {
        // 28 digits stay below 2^96, so the digits are the mantissa as they stand.
        if (r.digits.size() > 28)
            return QVariant();
        unsigned __int128 m = 0;
        for (const char c : r.digits)
            m = m * 10 + unsigned(c - '0');
        *shownExactly = true;
        return QVariant::fromValue(Decimal::fromParts(std::uint32_t(m), std::uint32_t(m >> 32),
                                                      std::uint32_t(m >> 64), r.decimals,
                                                      r.negative && m != 0));
    }
    case twDouble:
    case twSingle: {
        if (r.digits.size() > FloatDigits)
            return QVariant();
        if (dataType == twDouble) {
            const std::optional<double> d = floatOf<double>(r);
            if (!d || std::fabs(*d) > DoubleLimit)
                return QVariant();
            *shownExactly = true; // 15 digits always read back as a double that shows them
            return QVariant(*d);
        }
        const std::optional<float> f = floatOf<float>(r);
        if (!f || std::fabs(double(*f)) > SingleLimit)
            return QVariant();
        return QVariant::fromValue<float>(*f);
    }
    default:
        return QVariant();
    }
}

QVariant NumberEditor::convert(const Reading &r, bool *shownExactly) const
{
    bool exactly = false;
    QVariant value = quickConvert(r, &exactly);
    if (!value.isValid()) {
        const int dataType = m_rules.dataType();
        value = NumberType::convertToType(QVariant(r.canonical()), dataType, QLocale::c());
        if (!value.isValid() || !NumberType::isInRange(value, false, dataType))
            value = QVariant();
    }
    if (shownExactly)
        *shownExactly = exactly;
    return value;
}

void NumberEditor::appendFormatted(QString &out, const QVariant &value, bool minusOnZero) const
{
    appendDigits(out, NumberDisplay::digitsOf(value), minusOnZero);
}

void NumberEditor::appendDigits(QString &out, const DecimalDigits &digits, bool minusOnZero) const
{
    m_display.appendNumber(out, digits, minusOnZero && digits.isZero()
                                            && typeHasNegatives(m_rules.dataType()));
}

bool NumberEditor::showsExactly(QStringView number, const QVariant &value,
                                const Reading *typed) const
{
    const int dataType = m_rules.dataType();
    // A Double's 15 digits always read back as a double that shows them again.
    if (dataType == twDouble)
        return true;
    const bool exactType = dataType != twSingle;
    if (exactType && !typed)
        return true;
    QVarLengthArray<QChar, 64> bare;
    for (const QChar c : number) {
        if (c != m_display.thousandsChar())
            bare.append(c);
    }
    Reading shown;
    if (!read(QStringView(bare.data(), bare.size()), shown))
        return false;
    if (exactType) {
        // The conversion rounds what the type cannot hold (too many digits for a Decimal,
        // decimals for an integer type); showing the rounded number would change what was typed.
        return sameNumber(shown, *typed, NumberType::isZero(value));
    }
    // A Single shows 7 digits, one more than a float keeps: near a power of ten the shown text
    // can read back as the neighbouring float, which shows differently.
    const QVariant again = convert(shown);
    if (!again.isValid())
        return false;
    QString formatted;
    appendFormatted(formatted, again, shown.negative);
    return formatted == number;
}

QString NumberEditor::showValue(const QVariant &value) const
{
    return m_display.formatValue(value, m_rules.dataType());
}

QVariant NumberEditor::valueOfText(QStringView text) const
{
    QVarLengthArray<QChar, 64> bare;
    for (const QChar c : m_display.stripped(text)) {
        if (c != m_display.thousandsChar())
            bare.append(c);
    }
    Reading r;
    if (!read(QStringView(bare.data(), bare.size()), r) || r.decimals > m_display.decimalPlaces())
        return QVariant();
    return convert(r);
}

// ---------------------------------------------------------------------------------------------
// Edits

namespace {

// An accepted edit: the new shown text, a collapsed caret and the value, with what changed.
NumberEditResult accept(NumberEditState &state, QString text, int caret, QVariant value,
                        int dataType)
{
    NumberEditResult r;
    r.textChanged = text != state.text;
    r.caretChanged = caret != state.selStart || state.selLength != 0;
    r.valueChanged = !state.value.isValid() || !sameValue(value, state.value, dataType);
    state.text = std::move(text);
    state.selStart = caret;
    state.selLength = 0;
    // An equal value stays as it was held (a 0 stays the Integer a new box starts with).
    if (r.valueChanged)
        state.value = std::move(value);
    return r;
}

NumberEditResult moveCaret(NumberEditState &state, int caret)
{
    NumberEditResult r;
    r.caretChanged = caret != state.selStart || state.selLength != 0;
    state.selStart = caret;
    state.selLength = 0;
    return r;
}

} // namespace

NumberEditResult NumberEditor::edit(NumberEditState &state, const NumberEdit &e) const
{
    switch (e.kind) {
    case NumberEdit::Insert: return insert(state, e.text, e.caret);
    case NumberEdit::Backspace: return insert(state, QStringView(), -1);
    case NumberEdit::Delete: return deleteAtCaret(state);
    case NumberEdit::ToggleSign: return negate(state);
    case NumberEdit::DecimalJump: return jumpToDecimals(state);
    case NumberEdit::Paste: return pasteText(state, e.text);
    case NumberEdit::Step: return stepValue(state, e.code != 0);
    case NumberEdit::Key:
        if (e.code >= '0' && e.code <= '9') {
            const QChar digit(char16_t(e.code));
            return insert(state, QStringView(&digit, 1), -1);
        }
        switch (e.code) {
        case ',':
        case '.': return jumpToDecimals(state);
        case '-': return negate(state);
        case 8: return insert(state, QStringView(), -1);
        default: return {};
        }
    }
    return {};
}

NumberEditor::Bare NumberEditor::bareOf(QStringView text, int selStart, int selLength) const
{
    Bare b;
    b.text = m_display.stripped(text);
    const int n = int(text.size());
    int start = std::clamp(selStart, 0, n);
    int length = std::clamp(selLength, 0, n - start);
    b.offset = m_display.leftSymbolLength(text);
    if (b.offset > 0) {
        if (start <= b.offset) {
            length = std::max(0, length + start - b.offset);
            start = 0;
        } else {
            start -= b.offset;
        }
    }
    b.start = std::min(start, int(b.text.size()));
    b.length = std::clamp(length, 0, int(b.text.size()) - b.start);
    return b;
}

NumberEditResult NumberEditor::insert(NumberEditState &state, QStringView s, int caret) const
{
    if (state.locked)
        return {};
    const int n = int(state.text.size());
    const int at = std::clamp(caret >= 0 ? caret : state.selStart, 0, n);
    const int selLength = std::clamp(state.selLength, 0, n - at);
    if (m_display.decimalPlaces() >= 1 && at == n && selLength == 0 && !s.isEmpty())
        return {};

    const Bare bare = bareOf(state.text, at, selLength);
    int start = bare.start;
    int length = bare.length;

    if (s.isEmpty() && length == 0) {
        if (start == 0)
            return {};
        const QChar left = bare.text.at(start - 1);
        if (left == m_display.decimalChar())
            return moveCaret(state, start - 1 + bare.offset);
        if (left == m_display.thousandsChar() && start >= 2) {
            start -= 2;
            length = 2;
        } else {
            start -= 1;
            length = 1;
        }
    }

    if (!s.isEmpty() && length == 0) {
        const QChar minus = m_display.minusChar();
        const bool signed_ = !bare.text.isEmpty()
            && (bare.text.front() == u'-' || bare.text.front() == minus);
        const int front = signed_ ? 1 : 0;
        qsizetype wholeEnd = bare.text.indexOf(m_display.decimalChar());
        if (wholeEnd < 0)
            wholeEnd = bare.text.size();
        if (start <= front && wholeEnd == front + 1 && bare.text.at(front) == u'0')
            start = front + 1;
    }
    return replace(state, s, start, length);
}

// The shared tail of every text edit: `s` replaces [start, start + length) of the bare number in
// the state's text, and the result is checked, formatted and given its caret.
NumberEditResult NumberEditor::replace(NumberEditState &state, QStringView s, int start,
                                       int length) const
{
    const int places = m_display.decimalPlaces();
    const QChar grouping = m_display.thousandsChar();
    const QStringView text = m_display.stripped(state.text);

    const qsizetype decimalAt = text.indexOf(m_display.decimalChar());
    if (places > 0 && decimalAt >= 0) {
        if (length > 0 && start <= decimalAt && decimalAt < start + length)
            length = int(text.size()) - start;
        else if (!s.isEmpty() && length == 0 && start > decimalAt)
            length = std::min(int(s.size()), int(text.size()) - start);
    }

    // The edited text with the grouping characters left out, and how many of its characters
    // stand right of the caret.
    QVarLengthArray<QChar, 64> edited;
    int rightOfCaret = 0;
    const auto keep = [&](QStringView part, bool rightOf) {
        for (const QChar c : part) {
            if (c == grouping)
                continue;
            edited.append(c);
            rightOfCaret += rightOf ? 1 : 0;
        }
    };
    keep(text.first(start), false);
    keep(s, false);
    keep(text.sliced(start + length), true);

    Reading reading;
    if (!read(QStringView(edited.data(), edited.size()), reading) || reading.decimals > places)
        return {};
    bool exactly = false;
    QVariant value = convert(reading, &exactly);
    if (!value.isValid())
        return {};

    QString shown;
    shown.reserve(edited.size() + edited.size() / 3 + places + 8);
    shown += m_display.leftSymbol();
    const int numberAt = int(shown.size());
    // A number taken as typed is formatted from the digits typed: they are the value's own.
    const DecimalDigits typed = digitsOf(reading);
    if (exactly && (m_rules.dataType() != twDouble || typed.count <= 15))
        appendDigits(shown, typed, reading.negative);
    else
        appendFormatted(shown, value, reading.negative);
    const QStringView number = QStringView(shown).sliced(numberAt);
    if (!exactly && !showsExactly(number, value, &reading))
        return {};
    // Count as if the decimals were already padded to their full width by the formatter.
    const int shownTail = places > 0 ? places + 1 : 0;
    const int typedTail = reading.hasDecimal ? reading.decimals + 1 : 0;
    const int fromRight = std::max(0, rightOfCaret + shownTail - typedTail);
    const int caret = numberAt + positionFromRight(number, fromRight, grouping);
    shown += m_display.rightSymbol();
    return accept(state, std::move(shown), caret, std::move(value), m_rules.dataType());
}

NumberEditResult NumberEditor::deleteAtCaret(NumberEditState &state) const
{
    if (state.locked)
        return {};
    const Bare bare = bareOf(state.text, state.selStart, state.selLength);
    if (bare.length > 0)
        return replace(state, QStringView(), bare.start, bare.length);
    int start = bare.start;
    if (start < bare.text.size()
        && (bare.text.at(start) == m_display.thousandsChar()
            || bare.text.at(start) == m_display.decimalChar()))
        ++start;
    if (start >= bare.text.size())
        return {};
    return replace(state, QStringView(), start, 1);
}

NumberEditResult NumberEditor::negate(NumberEditState &state) const
{
    if (state.locked)
        return {};
    const int dataType = m_rules.dataType();
    const QStringView bare = m_display.stripped(state.text);
    const QChar minus = m_display.minusChar();
    const bool hadMinus = bare.contains(u'-') || bare.contains(minus);

    QString digits = bare.toString();
    digits.remove(m_display.thousandsChar());
    Reading reading;
    if (!read(digits, reading))
        return {};
    const QVariant current = convert(reading);
    const QVariant negated = NumberType::negate(current, dataType);
    if (!current.isValid() || !negated.isValid()
        || !NumberType::isInRange(negated, false, dataType))
        return {};

    QString number = m_display.formatNumber(negated, dataType);
    // The value is what the new text says, as if it had been typed.
    QString shownBare = number;
    shownBare.remove(m_display.thousandsChar());
    Reading shown;
    QVariant value = read(shownBare, shown) ? convert(shown) : QVariant();
    if (!value.isValid())
        value = negated;
    if (!showsExactly(number, value, nullptr))
        return {};
    // A zero gets its minus even where the type has no negatives: the entry stays refused
    // until the sign goes again, but the key does what it does everywhere else.
    if (NumberType::isZero(value) && !hadMinus && !number.startsWith(minus))
        number.prepend(minus);
    if (number == bare)
        return {};

    // The caret moves with the sign from where it stood in the shown text; a left symbol is
    // then added in front of it again, as it is for every formatted text.
    const int newCaret = std::clamp(hadMinus ? state.selStart - 1 : state.selStart + 1, 0,
                                    int(number.size()));
    QString text = m_display.withSymbol(number);
    const int caret = newCaret + m_display.leftSymbolLength(text);
    return accept(state, std::move(text), caret, std::move(value), dataType);
}

NumberEditResult NumberEditor::jumpToDecimals(NumberEditState &state) const
{
    const QStringView bare = m_display.stripped(state.text);
    const qsizetype at = bare.indexOf(m_display.decimalChar());
    if (at < 0)
        return {};
    return moveCaret(state, int(at) + 1 + m_display.leftSymbolLength(state.text));
}

NumberEditResult NumberEditor::pasteText(NumberEditState &state, QStringView clipboard) const
{
    if (state.locked)
        return {};
    QString cleaned = clipboard.toString();
    if (!m_display.currencySymbol().isEmpty())
        cleaned.remove(m_display.currencySymbol());
    cleaned.remove(m_display.thousandsChar());
    cleaned.removeIf([](QChar c) { return c.isSpace(); });
    if (cleaned.isEmpty())
        return {};

    const QChar minus = m_display.minusChar();
    bool seenDecimal = false;
    for (qsizetype i = 0; i < cleaned.size(); ++i) {
        const QChar c = cleaned.at(i);
        if (digitOf(c) >= 0)
            continue;
        if (c == m_display.decimalChar() && !seenDecimal) {
            seenDecimal = true;
            continue;
        }
        if (i == 0 && (c == u'-' || c == minus))
            continue;
        return {};
    }
    return insert(state, cleaned, -1);
}

NumberEditResult NumberEditor::stepValue(NumberEditState &state, bool up) const
{
    if (state.locked)
        return {};
    QVariant next = m_rules.stepped(state.value, up);
    if (!next.isValid())
        return {};

    QString text;
    text += m_display.leftSymbol();
    const int numberAt = int(text.size());
    appendFormatted(text, next, false);
    if (!showsExactly(QStringView(text).sliced(numberAt), next, nullptr))
        return {};
    text += m_display.rightSymbol();

    const int length = int(state.text.size());
    const int fromRight = length - std::clamp(state.selStart, 0, length);
    const int caret = std::max(0, int(text.size()) - fromRight);
    return accept(state, std::move(text), caret, std::move(next), m_rules.dataType());
}

} // namespace Tarnwell
