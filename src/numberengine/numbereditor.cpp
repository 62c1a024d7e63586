#include "numberengine/numbereditor.h"

#include "numberengine/numberdisplay.h"
#include "numberengine/numbertype.h"
#include "numberengine/textworkspace.h"

#include <tarnwell/constants.h>

#include <algorithm>
#include <utility>

namespace Tarnwell {

namespace {

NumberEditResult unchanged(const NumberEditState &state)
{
    NumberEditResult r;
    r.text = state.text;
    r.selStart = state.selStart;
    r.selLength = state.selLength;
    r.value = state.value;
    return r;
}

NumberEditResult caretMovedTo(const NumberEditState &state, int caret)
{
    NumberEditResult r = unchanged(state);
    r.caretChanged = caret != state.selStart || state.selLength != 0;
    r.selStart = caret;
    r.selLength = 0;
    return r;
}

// An accepted edit: the new shown text, a collapsed caret and the value, with what changed.
NumberEditResult accepted(const NumberEditState &state, QString text, int caret,
                          const QVariant &value)
{
    NumberEditResult r;
    r.text = std::move(text);
    r.selStart = caret;
    r.value = value;
    r.textChanged = r.text != state.text;
    r.caretChanged = r.selStart != state.selStart || state.selLength != 0;
    const std::optional<int> order = NumberType::compare(value, state.value, state.dataType);
    r.valueChanged = !order || *order != 0 || !state.value.isValid();
    return r;
}

// Only Byte has no negative numbers, so only there a "-0" entry would lead nowhere.
bool typeHasNegatives(int dataType)
{
    return dataType != twByte;
}

// The leftmost position with `count` non-grouping characters right of it: the caret sits right
// after its digit rather than after a grouping character that follows the digit.
int positionFromRight(const QString &text, int count, QChar grouping)
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
    return c.category() == QChar::Number_DecimalDigit ? c.digitValue() : -1;
}

// "-12.500" and "-12.5" are the same number: trailing decimal zeros and a bare point go.
QStringView withoutTrailingZeros(QStringView canonical)
{
    if (!canonical.contains(u'.'))
        return canonical;
    while (canonical.endsWith(u'0'))
        canonical.chop(1);
    if (canonical.endsWith(u'.'))
        canonical.chop(1);
    return canonical;
}

QStringView withoutMinus(QStringView canonical)
{
    return canonical.startsWith(u'-') ? canonical.mid(1) : canonical;
}

} // namespace

NumberEditor::Reading NumberEditor::read(QStringView bare) const
{
    Reading r;
    const QChar decimal = m_display->decimalChar();
    const QChar minus = m_display->minusChar();
    qsizetype i = 0;
    const qsizetype n = bare.size();
    if (i < n && (bare[i] == u'-' || bare[i] == minus)) {
        r.negative = true;
        ++i;
    }
    r.canonical.reserve(n + 2);
    if (r.negative)
        r.canonical += u'-';
    bool leadingZero = true;
    for (; i < n && digitOf(bare[i]) >= 0; ++i) {
        const int digit = digitOf(bare[i]);
        if (leadingZero && digit == 0)
            continue;
        leadingZero = false;
        r.canonical += QChar(u'0' + digit);
    }
    if (leadingZero)
        r.canonical += u'0';
    if (i < n && bare[i] == decimal) {
        r.hasDecimal = true;
        ++i;
        r.canonical += u'.';
        for (; i < n && digitOf(bare[i]) >= 0; ++i, ++r.decimals)
            r.canonical += QChar(u'0' + digitOf(bare[i]));
        if (r.decimals == 0)
            r.canonical.chop(1);
    }
    r.ok = i == n;
    return r;
}

QVariant NumberEditor::convert(const Reading &reading, int dataType) const
{
    const QVariant value = NumberType::convertToType(QVariant(reading.canonical), dataType,
                                                     QLocale::c());
    if (!value.isValid() || !NumberType::isInRange(value, false, dataType))
        return QVariant();
    return value;
}

QString NumberEditor::formatAccepted(const Reading &reading, const QVariant &value,
                                     int dataType) const
{
    QString number = m_display->formatNumber(value, dataType);
    const QChar minus = m_display->minusChar();
    if (reading.negative && typeHasNegatives(dataType) && NumberType::isZero(value)
        && !number.startsWith(minus))
        number.prepend(minus);
    return number;
}

bool NumberEditor::showsExactly(const QString &number, const QVariant &value,
                                const Reading *typed, int dataType) const
{
    // A Double's 15 digits always read back as a double that shows them again.
    if (dataType == twDouble)
        return true;
    const bool exactType = dataType != twSingle;
    if (exactType && !typed)
        return true;
    QString bare = number;
    bare.remove(m_display->thousandsChar());
    const Reading shown = read(bare);
    if (!shown.ok)
        return false;
    if (exactType) {
        // The conversion rounds what the type cannot hold (too many digits for a Decimal,
        // decimals for an integer type); showing the rounded number would change what was typed.
        const QStringView a = withoutTrailingZeros(shown.canonical);
        const QStringView b = withoutTrailingZeros(typed->canonical);
        return a == b || (NumberType::isZero(value) && withoutMinus(a) == withoutMinus(b));
    }
    // A Single shows 7 digits, one more than a float keeps: near a power of ten the shown text
    // can read back as the neighbouring float, which shows differently.
    const QVariant again = convert(shown, dataType);
    return again.isValid() && formatAccepted(shown, again, dataType) == number;
}

QString NumberEditor::showValue(const QVariant &value, int dataType) const
{
    return m_display->formatValue(value, dataType);
}

QVariant NumberEditor::valueOfText(const QString &text, int dataType) const
{
    QString bare = m_display->stripped(text);
    bare.remove(m_display->thousandsChar());
    const Reading r = read(bare);
    if (!r.ok || r.decimals > m_display->decimalPlaces())
        return QVariant();
    return convert(r, dataType);
}

NumberEditResult NumberEditor::insertText(const NumberEditState &state, const QString &s,
                                          int caret) const
{
    if (state.locked)
        return unchanged(state);
    TextWorkspace box(state.text);
    box.setSelStart(caret >= 0 ? caret : state.selStart);
    box.setSelLength(state.selLength);
    const int places = m_display->decimalPlaces();
    if (places >= 1 && box.selStart() == box.text().size() && box.selLength() == 0 && !s.isEmpty())
        return unchanged(state);

    const int offset = m_display->leftSymbolLength(state.text);
    m_display->stripCurrencySymbol(box);
    const QString &bare = box.text();
    int start = box.selStart();
    int length = box.selLength();

    if (s.isEmpty() && length == 0) {
        if (start == 0)
            return unchanged(state);
        const QChar left = bare.at(start - 1);
        if (left == m_display->decimalChar())
            return caretMovedTo(state, start - 1 + offset);
        if (left == m_display->thousandsChar() && start >= 2) {
            start -= 2;
            length = 2;
        } else {
            start -= 1;
            length = 1;
        }
    }

    if (!s.isEmpty() && length == 0) {
        const QChar minus = m_display->minusChar();
        const bool signed_ = !bare.isEmpty() && (bare.front() == u'-' || bare.front() == minus);
        const int front = signed_ ? 1 : 0;
        qsizetype wholeEnd = bare.indexOf(m_display->decimalChar());
        if (wholeEnd < 0)
            wholeEnd = bare.size();
        if (start <= front && wholeEnd == front + 1 && bare.at(front) == u'0')
            start = front + 1;
    }
    return edit(state, s, start, length);
}

// The shared tail of every text edit: `s` replaces [start, start + length) of the bare number in
// the state's text, and the result is checked, formatted and given its caret.
NumberEditResult NumberEditor::edit(const NumberEditState &state, const QString &s, int start,
                                    int length) const
{
    const int places = m_display->decimalPlaces();
    const QChar grouping = m_display->thousandsChar();
    QString text = m_display->stripped(state.text);

    const qsizetype decimalAt = text.indexOf(m_display->decimalChar());
    if (places > 0 && decimalAt >= 0) {
        if (length > 0 && start <= decimalAt && decimalAt < start + length)
            length = int(text.size()) - start;
        else if (!s.isEmpty() && length == 0 && start > decimalAt)
            length = std::min(int(s.size()), int(text.size()) - start);
    }
    text.replace(start, length, s);
    const int caret = start + int(s.size());

    int rightOfCaret = 0;
    QString bare;
    bare.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == grouping)
            continue;
        bare += text.at(i);
        if (i >= caret)
            ++rightOfCaret;
    }
    const Reading reading = read(bare);
    if (!reading.ok || reading.decimals > places)
        return unchanged(state);
    const QVariant value = convert(reading, state.dataType);
    if (!value.isValid())
        return unchanged(state);

    const QString number = formatAccepted(reading, value, state.dataType);
    if (!showsExactly(number, value, &reading, state.dataType))
        return unchanged(state);
    // Count as if the decimals were already padded to their full width by the formatter.
    const int shownTail = places > 0 ? places + 1 : 0;
    const int typedTail = reading.hasDecimal ? reading.decimals + 1 : 0;
    const int fromRight = std::max(0, rightOfCaret + shownTail - typedTail);

    QString shown = m_display->withSymbol(number);
    const int shownCaret =
        positionFromRight(number, fromRight, grouping) + m_display->leftSymbolLength(shown);
    return accepted(state, std::move(shown), shownCaret, value);
}

NumberEditResult NumberEditor::deleteForward(const NumberEditState &state) const
{
    if (state.locked)
        return unchanged(state);
    TextWorkspace box(state.text);
    box.setSelStart(state.selStart);
    box.setSelLength(state.selLength);
    m_display->stripCurrencySymbol(box);
    if (box.selLength() > 0)
        return edit(state, QString(), box.selStart(), box.selLength());
    const QString &bare = box.text();
    int start = box.selStart();
    if (start < bare.size()
        && (bare.at(start) == m_display->thousandsChar() || bare.at(start) == m_display->decimalChar()))
        ++start;
    if (start >= bare.size())
        return unchanged(state);
    return edit(state, QString(), start, 1);
}

NumberEditResult NumberEditor::toggleSign(const NumberEditState &state) const
{
    if (state.locked)
        return unchanged(state);
    TextWorkspace box(state.text);
    box.setSelStart(state.selStart);
    box.setSelLength(state.selLength);
    m_display->stripCurrencySymbol(box);
    const QChar minus = m_display->minusChar();
    QString bare = box.text();
    const bool hadMinus = bare.contains(u'-') || bare.contains(minus);

    bare.remove(m_display->thousandsChar());
    const Reading reading = read(bare);
    if (!reading.ok)
        return unchanged(state);
    const QVariant current = convert(reading, state.dataType);
    const QVariant negated = NumberType::negate(current, state.dataType);
    if (!current.isValid() || !negated.isValid()
        || !NumberType::isInRange(negated, false, state.dataType))
        return unchanged(state);

    QString number = m_display->formatNumber(negated, state.dataType);
    // The value is what the new text says, as if it had been typed.
    QString shownBare = number;
    shownBare.remove(m_display->thousandsChar());
    QVariant value = convert(read(shownBare), state.dataType);
    if (!value.isValid())
        value = negated;
    if (!showsExactly(number, value, nullptr, state.dataType))
        return unchanged(state);
    // A zero gets its minus even where the type has no negatives: the entry stays refused
    // until the sign goes again, but the key does what it does everywhere else.
    if (NumberType::isZero(value) && !hadMinus && !number.startsWith(minus))
        number.prepend(minus);
    if (number == m_display->stripped(state.text))
        return unchanged(state);

    // The caret moves with the sign from where it stood in the shown text; a left symbol is
    // then added in front of it again, as it is for every formatted text.
    const int newCaret = std::clamp(hadMinus ? state.selStart - 1 : state.selStart + 1, 0,
                                    int(number.size()));
    QString text = m_display->withSymbol(number);
    const int caret = newCaret + m_display->leftSymbolLength(text);
    return accepted(state, std::move(text), caret, value);
}

NumberEditResult NumberEditor::decimalJump(const NumberEditState &state) const
{
    const QString bare = m_display->stripped(state.text);
    const qsizetype at = bare.indexOf(m_display->decimalChar());
    if (at < 0)
        return unchanged(state);
    return caretMovedTo(state, int(at) + 1 + m_display->leftSymbolLength(state.text));
}

NumberEditResult NumberEditor::paste(const NumberEditState &state, const QString &clipboard) const
{
    if (state.locked)
        return unchanged(state);
    QString cleaned = clipboard;
    if (!m_display->currencySymbol().isEmpty())
        cleaned.remove(m_display->currencySymbol());
    cleaned.remove(m_display->thousandsChar());
    cleaned.removeIf([](QChar c) { return c.isSpace(); });
    if (cleaned.isEmpty())
        return unchanged(state);

    const QChar minus = m_display->minusChar();
    bool seenDecimal = false;
    for (qsizetype i = 0; i < cleaned.size(); ++i) {
        const QChar c = cleaned.at(i);
        if (digitOf(c) >= 0)
            continue;
        if (c == m_display->decimalChar() && !seenDecimal) {
            seenDecimal = true;
            continue;
        }
        if (i == 0 && (c == u'-' || c == minus))
            continue;
        return unchanged(state);
    }
    return insertText(state, cleaned);
}

NumberEditResult NumberEditor::step(const NumberEditState &state, bool up) const
{
    if (state.locked)
        return unchanged(state);
    const QVariant next = up ? NumberType::add(state.value, state.increment, state.dataType)
                             : NumberType::subtract(state.value, state.increment, state.dataType);
    if (!next.isValid() || !NumberType::isInRange(next, false, state.dataType))
        return unchanged(state);

    const QString number = m_display->formatNumber(next, state.dataType);
    if (!showsExactly(number, next, nullptr, state.dataType))
        return unchanged(state);

    const int length = int(state.text.size());
    const int fromRight = length - std::clamp(state.selStart, 0, length);
    QString text = m_display->withSymbol(number);
    const int caret = std::max(0, int(text.size()) - fromRight);
    return accepted(state, std::move(text), caret, next);
}

NumberEditResult NumberEditor::keyPress(const NumberEditState &state, int keyAscii) const
{
    if (keyAscii >= '0' && keyAscii <= '9')
        return insertText(state, QString(QChar(keyAscii)));
    switch (keyAscii) {
    case ',':
    case '.':
        return decimalJump(state);
    case '-':
        return toggleSign(state);
    case 8:
        return insertText(state, QString());
    default:
        return unchanged(state);
    }
}

} // namespace Tarnwell
