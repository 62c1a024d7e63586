#include "maskengine/maskengine.h"

#include <tarnwell/error.h>

#include <QVarLengthArray>

#include <algorithm>
#include <limits>

namespace Tarnwell {

namespace {

constexpr QChar Space = QLatin1Char(' ');
// Stands for a literal while the input characters are shifted, so that literals drop out
// whatever the user made of them. A character with this code in an input position drops out too.
constexpr QChar Marker = QChar(30);
constexpr QChar Backslash = QLatin1Char('\\');

bool isAsciiDigit(char16_t u)
{
    return u >= u'0' && u <= u'9';
}

bool isAsciiLetter(char16_t u)
{
    return (u >= u'A' && u <= u'Z') || (u >= u'a' && u <= u'z');
}

qint16 placeholderKind(QChar c)
{
    switch (c.unicode()) {
    case u'#':
        return MaskEngine::Digit;
    case u'@':
        return MaskEngine::Letter;
    case u'?':
        return MaskEngine::DigitOrLetter;
    case u'&':
        return MaskEngine::AnyCharacter;
    default:
        return 0;
    }
}

// Reads the input characters of the shown text in order, as they stand after a removed range is
// taken out and the markers are dropped; blanks once they run out.
class KeptInputReader
{
public:
    KeptInputReader(const MaskEngine &engine, const QString &shown, int removeStart, int removeEnd)
        : m_engine(engine), m_shown(shown), m_removeStart(removeStart), m_removeEnd(removeEnd),
          m_n(engine.length())
    {
    }

    QChar next()
    {
        while (m_i < m_n) {
            const int i = m_i++;
            if (m_engine.isLiteral(i) || (i >= m_removeStart && i < m_removeEnd))
                continue;
            const QChar c = i < m_shown.size() ? m_shown.at(i) : Space;
            if (c != Marker)
                return c;
        }
        return Space;
    }

private:
    const MaskEngine &m_engine;
    const QString &m_shown;
    int m_removeStart;
    int m_removeEnd;
    int m_n;
    int m_i = 0;
};

} // namespace

MaskEngine::MaskEngine() : m_kinds{0} {}

MaskEngine::MaskEngine(const QString &mask) : MaskEngine()
{
    parseMask(mask);
}

QString MaskEngine::parseMask(const QString &mask)
{
    // Count first: an escaping backslash is no position, nor is a lone one at the very end.
    qsizetype n = 0;
    for (qsizetype i = 0; i < mask.size(); ++i) {
        if (mask.at(i) == Backslash) {
            if (i + 1 >= mask.size())
                break;
            ++i;
        }
        ++n;
    }
    if (n > std::numeric_limits<qint16>::max())
        throw Error(Error::Overflow);

    QList<qint16> kinds;
    kinds.reserve(n + 1);
    kinds.append(qint16(n));
    QString blank;
    blank.reserve(n);
    int inputs = 0;
    for (qsizetype i = 0; kinds.size() <= n; ++i) {
        QChar c = mask.at(i);
        qint16 kind = 0;
        if (c == Backslash)
            c = mask.at(++i);
        else
            kind = placeholderKind(c);
        if (kind == 0)
            kind = qint16(c.unicode());
        // Codes 1-4 are the placeholders' codes, so such a literal can only act as one; give it
        // the prompt, like every input position, so that the template formats cleanly.
        if (kind >= Digit && kind <= AnyCharacter) {
            ++inputs;
            c = Space;
        }
        kinds.append(kind);
        blank.append(c);
    }

    m_mask = mask;
    m_kinds.swap(kinds);
    m_template.swap(blank);
    m_inputCount = inputs;
    return m_template;
}

qint16 MaskEngine::kindAt(int position) const
{
    return position >= 0 && position < length() ? m_kinds.at(position + 1) : qint16(0);
}

bool MaskEngine::isLiteral(int position) const
{
    if (position < 0 || position >= length())
        return false;
    const qint16 kind = m_kinds.at(position + 1);
    return kind < Digit || kind > AnyCharacter;
}

bool MaskEngine::isInput(int position) const
{
    if (position < 0 || position >= length())
        return false;
    const qint16 kind = m_kinds.at(position + 1);
    return kind >= Digit && kind <= AnyCharacter;
}

bool MaskEngine::accepts(int kind, QChar c)
{
    const char16_t u = c.unicode();
    switch (kind) {
    case Digit:
        return u == u' ' || isAsciiDigit(u);
    case Letter:
        return u == u' ' || isAsciiLetter(u);
    case DigitOrLetter:
        return u == u' ' || isAsciiDigit(u) || isAsciiLetter(u);
    case AnyCharacter:
        return true;
    default:
        return false;
    }
}

int MaskEngine::backspacePosition(int selStart) const
{
    if (selStart < 1)
        return -1;
    int p = selStart - 1;
    while (p >= 0 && isLiteral(p))
        --p;
    return p;
}

QChar MaskEngine::applyTypedCase(QChar c, int charCase)
{
    if (charCase == 1)
        return c.toUpper();
    if (charCase == 2)
        return c.toLower();
    return c;
}

QString MaskEngine::formatMaskValue(const QString &raw) const
{
    if (isEmpty())
        return raw;
    const int n = length();
    // Check before building, so that a value that does not fit costs no allocation.
    int k = 0;
    for (int i = 0; i < n; ++i) {
        if (!isInput(i))
            continue;
        const QChar c = k < raw.size() ? raw.at(k) : Space;
        ++k;
        if (!accepts(kindAt(i), c))
            return QString();
    }
    QString shown = m_template;
    k = 0;
    for (int i = 0; i < n; ++i) {
        if (isInput(i)) {
            if (k < raw.size())
                shown[i] = raw.at(k);
            ++k;
        }
    }
    return shown;
}

QString MaskEngine::extractMaskValue(const QString &shown, int charCase) const
{
    if (isEmpty())
        return shown;
    const int n = length();
    QString raw(m_inputCount, Qt::Uninitialized);
    QChar *out = raw.data();
    for (int i = 0; i < n; ++i) {
        if (!isInput(i))
            continue;
        // Character by character, so that the value keeps one character per input position
        // even where a full case mapping would expand (German sharp s).
        const QChar c = i < shown.size() ? shown.at(i) : Space;
        *out++ = charCase == 0 ? c : charCase == 1 ? c.toUpper() : c.toLower();
    }
    return raw;
}

MaskEditResult MaskEngine::editMaskedText(MaskEditState &state, QStringView insertText, int pos) const
{
    MaskEditResult result;
    result.pos = pos;
    if (state.locked)
        return result;

    const int n = length();
    const QString &old = state.text;
    if (pos == -1)
        pos = state.selStart;
    result.pos = pos;
    if (pos < 0)
        return result;

    // The range to remove, clipped to the mask. With nothing selected a delete takes the next
    // input character and the literals in front of it.
    int len = std::max(state.selLength, 0);
    if (insertText.isEmpty() && len == 0) {
        int q = pos;
        while (q < n && isLiteral(q))
            ++q;
        len = q - pos + 1;
    }
    const int removeStart = std::min(pos, n);
    const int removeEnd = len >= n - removeStart ? n : removeStart + len;

    // Field full: every input position holds a character up to the last one and nothing is
    // removed to make room.
    if (!insertText.isEmpty()) {
        int inputs = 0;
        int kept = 0;
        int keptToLastNonBlank = 0;
        for (int i = 0; i < n; ++i) {
            if (isLiteral(i))
                continue;
            const QChar c = i < old.size() ? old.at(i) : Space;
            if (c == Marker)
                continue;
            ++inputs;
            if (i >= removeStart && i < removeEnd)
                continue;
            ++kept;
            if (c != Space)
                keptToLastNonBlank = kept;
        }
        if (keptToLastNonBlank == inputs)
            return result;

        // Typing onto a literal goes to the next input position.
        while (pos < n && isLiteral(pos))
            ++pos;
        result.pos = pos;
    }
    if (pos >= n)
        return result;

    int inputsBeforePos = 0;
    for (int i = 0; i < pos; ++i)
        inputsBeforePos += isInput(i) ? 1 : 0;

    // Lay out the result: the kept input characters before pos, then the inserted ones, then the
    // rest of the kept ones, each checked against the position it lands in.
    QVarLengthArray<QChar, 128> shown(n);
    KeptInputReader kept(*this, old, removeStart, removeEnd);
    qsizetype insertIndex = 0;
    int inputIndex = 0;
    bool changed = old.size() != n;
    for (int i = 0; i < n; ++i) {
        QChar c;
        if (isLiteral(i)) {
            c = m_template.at(i);
        } else {
            while (insertIndex < insertText.size() && insertText.at(insertIndex) == Marker)
                ++insertIndex;
            if (inputIndex >= inputsBeforePos && insertIndex < insertText.size())
                c = insertText.at(insertIndex++);
            else
                c = kept.next();
            ++inputIndex;
            if (!accepts(kindAt(i), c))
                return result;
        }
        shown[i] = c;
        if (!changed && old.at(i) != c)
            changed = true;
    }

    if (changed) {
        // Reuses the text's own buffer when nobody else holds it.
        state.text.resize(n);
        std::copy(shown.cbegin(), shown.cend(), state.text.data());
    }

    int caret = pos;
    if (!insertText.isEmpty()) {
        const qsizetype afterInsert = pos + insertText.size();
        qsizetype c = afterInsert;
        while (c < n && isLiteral(int(c)))
            ++c;
        caret = int(std::min<qsizetype>(c < n ? c : afterInsert, n));
        result.pos = caret;
    }
    state.selStart = caret;
    state.selLength = 0;
    result.accepted = true;
    result.textChanged = changed;
    return result;
}

MaskEditResult MaskEngine::backspace(MaskEditState &state) const
{
    if (state.selLength > 0)
        return editMaskedText(state, QStringView(), -1);
    const int p = backspacePosition(state.selStart);
    if (p < 0) {
        MaskEditResult nothing;
        nothing.pos = p;
        return nothing;
    }
    return editMaskedText(state, QStringView(), p);
}

MaskEditResult MaskEngine::deleteForward(MaskEditState &state) const
{
    return editMaskedText(state, QStringView(), -1);
}

} // namespace Tarnwell
