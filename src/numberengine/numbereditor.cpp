#include "numberengine/numbereditor.h"

#include "numberengine/numbertype.h"
#include "platform/decimaldigits.h"

#include <tarnwell/constants.h>
#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>
#include <tarnwell/variant.h>

#include <QVarLengthArray>

#include <algorithm>
#include <utility>

namespace Tarnwell {

namespace {

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

} // namespace

NumberEditor::NumberEditor(const NumberDisplay &display, const NumberRules &rules)
    : m_display(display), m_rules(rules)
{
}

// ---------------------------------------------------------------------------------------------
// Reading and conversion

bool NumberEditor::read(QStringView number, NumberReading &r) const
{
    QVarLengthArray<QChar, 64> bare;
    for (const QChar c : number) {
        if (c != m_display.thousandsChar())
            bare.append(c);
    }
    return r.read(QStringView(bare.data(), bare.size()), m_display.decimalChar(),
                  m_display.minusChar());
}

QVariant NumberEditor::convert(const NumberReading &r, bool *shownExactly) const
{
    bool exactly = false;
    QVariant value = r.quickValue(m_rules.dataType(), &exactly);
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
                                const NumberReading *typed) const
{
    const int dataType = m_rules.dataType();
    // A Double's 15 digits always read back as a double that shows them again.
    if (dataType == twDouble)
        return true;
    const bool exactType = dataType != twSingle;
    if (exactType && !typed)
        return true;
    NumberReading shown;
    if (!read(number, shown))
        return false;
    if (exactType) {
        // The conversion rounds what the type cannot hold (too many digits for a Decimal,
        // decimals for an integer type); showing the rounded number would change what was typed.
        return shown.sameNumber(*typed, NumberType::isZero(value));
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
    NumberReading r;
    if (!read(m_display.stripped(text), r) || r.decimals > m_display.decimalPlaces())
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

    NumberReading reading;
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
    if (exactly)
        appendDigits(shown, reading.decimalDigits(), reading.negative);
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

    NumberReading reading;
    if (!read(bare, reading))
        return {};
    const QVariant current = convert(reading);
    const QVariant negated = NumberType::negate(current, dataType);
    if (!current.isValid() || !negated.isValid()
        || !NumberType::isInRange(negated, false, dataType))
        return {};

    QString number = m_display.formatNumber(negated, dataType);
    // The value is what the new text says, as if it had been typed.
    NumberReading shown;
    QVariant value = read(number, shown) ? convert(shown) : QVariant();
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
        if (NumberReading::digitOf(c) >= 0)
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
