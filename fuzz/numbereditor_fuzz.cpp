// Random edits on a number box: typed keys, Backspace, Delete, the sign key, the decimal jump,
// pastes, steps and caret moves, over every data type, 0..4 decimals, several locales and
// currency symbols. After every edit the shown text is judged by a rule of its own, not by the
// engine's reading and formatting: the currency symbol where it belongs, then an optional "-",
// the whole digits (a single 0, or no leading zero) grouped by threes with the locale's grouping
// string when grouping is on, and the locale's decimal string with exactly DecimalPlaces digits.
// The number must lie within the type's published limits, compared digit by digit, and carry no
// more than the type holds: whole numbers for the integer types, four decimals for Currency, 7
// and 15 significant digits for Single and Double. For the exact types a typed value must be the
// very number shown. A refused edit must leave the state exactly as it was.
#include "fuzzinput.h"
#include "numberengine/numbereditor.h"

#include <tarnwell/constants.h>
#include <tarnwell/variant.h>

#include <QLocale>
#include <QString>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace Tarnwell;

const QLocale &localeFor(uint8_t choice)
{
    static const QLocale locales[] = {
        QLocale(QLocale::English, QLocale::UnitedStates), QLocale(QLocale::German, QLocale::Germany),
        QLocale(QLocale::French, QLocale::France),        QLocale(QLocale::German, QLocale::Switzerland),
        QLocale(QLocale::Swedish, QLocale::Sweden),       QLocale(QLocale::Hindi, QLocale::India),
    };
    return locales[choice % (sizeof locales / sizeof locales[0])];
}

struct Box
{
    QLocale locale;
    int dataType = 0;
    int places = 0;
    bool grouping = true;
    int position = twNoCurrency;
    QString symbol;
};

[[noreturn]] void fail(const char *what, const Box &box, const NumberEditState &before,
                       const NumberEditState &after)
{
    std::fprintf(stderr, "%s\n  type %d places %d\n  before: \"%s\" caret %d sel %d\n"
                 "  after:  \"%s\" caret %d sel %d value %s\n",
                 what, box.dataType, box.places, qPrintable(before.text), before.selStart,
                 before.selLength, qPrintable(after.text), after.selStart, after.selLength,
                 qPrintable(after.value.toString()));
    std::abort();
}

// A shown number taken apart by the grammar; `ok` false when the text does not follow it.
struct Parts
{
    bool ok = false;
    bool negative = false;
    QString whole;    // digits only
    QString decimals; // exactly `places` digits
};

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

Parts partsOf(QStringView text, const Box &box)
{
    Parts p;
    const bool symbolShown = (box.position == twLeft || box.position == twRight) && !box.symbol.isEmpty();
    if (symbolShown && box.position == twLeft) {
        if (!text.startsWith(box.symbol))
            return p;
        text = text.sliced(box.symbol.size());
    } else if (symbolShown) {
        if (!text.endsWith(box.symbol))
            return p;
        text = text.chopped(box.symbol.size());
    }
    if (text.startsWith(u'-')) {
        p.negative = true;
        text = text.sliced(1);
    }
    const QString group = box.locale.groupSeparator();
    const QString point = box.locale.decimalPoint();
    int groupDigits = 0; // digits since the last grouping string
    bool grouped = false;
    while (!text.isEmpty() && (isDigit(text.front()) || (box.grouping && text.startsWith(group)))) {
        if (isDigit(text.front())) {
            p.whole += text.front();
            ++groupDigits;
            text = text.sliced(1);
            continue;
        }
        // A grouping string closes a group: 1 to 3 digits first, exactly 3 after that.
        if (groupDigits == 0 || groupDigits > 3 || (grouped && groupDigits != 3))
            return p;
        grouped = true;
        groupDigits = 0;
        text = text.sliced(group.size());
    }
    if (p.whole.isEmpty() || (grouped && groupDigits != 3) || (!grouped && box.grouping && groupDigits > 3))
        return p;
    if (p.whole.size() > 1 && p.whole.front() == u'0')
        return p;
    if (box.places > 0) {
        if (!text.startsWith(point))
            return p;
        text = text.sliced(point.size());
        for (int i = 0; i < box.places; ++i) {
            if (text.isEmpty() || !isDigit(text.front()))
                return p;
            p.decimals += text.front();
            text = text.sliced(1);
        }
    }
    p.ok = text.isEmpty();
    return p;
}

bool allZeros(QStringView digits)
{
    return std::all_of(digits.begin(), digits.end(), [](QChar c) { return c == u'0'; });
}

// |number| <= limit, the limit a whole number written out in digits.
bool withinLimit(const Parts &p, const QString &limit)
{
    if (p.whole.size() != limit.size())
        return p.whole.size() < limit.size();
    const int order = p.whole.compare(limit);
    return order < 0 || (order == 0 && allZeros(p.decimals));
}

int significantDigits(const Parts &p)
{
    QString digits = p.whole + p.decimals;
    while (digits.startsWith(u'0'))
        digits.remove(0, 1);
    while (digits.endsWith(u'0'))
        digits.chop(1);
    return int(digits.size());
}

// The number as a plain C-locale text without trailing decimal zeros: "-1234.5", "0".
QString plainOf(const Parts &p)
{
    QString decimals = p.decimals;
    while (decimals.endsWith(u'0'))
        decimals.chop(1);
    QString plain = p.whole;
    if (!decimals.isEmpty())
        plain += u'.' + decimals;
    if (p.negative && plain != u"0")
        plain.prepend(u'-');
    return plain;
}

bool fitsTheType(const Parts &p, int dataType)
{
    const bool zero = allZeros(p.whole) && allZeros(p.decimals);
    if (p.negative && zero)
        return true; // the "-0" of a negative entry, for every type
    switch (dataType) {
    case twByte: return !p.negative && allZeros(p.decimals) && withinLimit(p, QStringLiteral("255"));
    case twInteger:
        return allZeros(p.decimals) && withinLimit(p, p.negative ? QStringLiteral("32768") : QStringLiteral("32767"));
    case twLong:
        return allZeros(p.decimals)
            && withinLimit(p, p.negative ? QStringLiteral("2147483648") : QStringLiteral("2147483647"));
    case twCurrency:
        return allZeros(QStringView(p.decimals).sliced(std::min<qsizetype>(4, p.decimals.size())))
            && withinLimit(p, QStringLiteral("922337203685477"));
    case twDecimal: return withinLimit(p, QStringLiteral("79228162514264337593543950335"));
    case twSingle:
        return significantDigits(p) <= 7 && withinLimit(p, QStringLiteral("3402823") + QString(32, u'0'));
    case twDouble:
        return significantDigits(p) <= 15 && withinLimit(p, QStringLiteral("179769313486231") + QString(294, u'0'));
    default: return false;
    }
}

void check(const Box &box, const NumberEditState &before, const NumberEditState &after,
           const NumberEditResult &r, bool valueFromText)
{
    if (!r.changed()) {
        if (after.text != before.text || after.selStart != before.selStart
            || after.selLength != before.selLength || !(after.value == before.value))
            fail("a refused edit changed the state", box, before, after);
        return;
    }
    if (r.textChanged != (after.text != before.text))
        fail("textChanged does not say whether the text changed", box, before, after);
    if (after.selStart < 0 || after.selLength < 0 || after.selStart + after.selLength > after.text.size())
        fail("caret outside the text", box, before, after);
    const Parts parts = partsOf(after.text, box);
    if (!parts.ok)
        fail("shown text is not a formatted number", box, before, after);
    if (!fitsTheType(parts, box.dataType))
        fail("shown number is not one the type holds within its limits", box, before, after);
    const bool exact = box.dataType != twSingle && box.dataType != twDouble;
    if (valueFromText && exact && Variant::toString(after.value, QLocale::c()) != plainOf(parts))
        fail("value differs from the shown number", box, before, after);
}

QString pasteText(FuzzInput &in)
{
    static const char alphabet[] = "0123456789012345678901234567890123456789.,- $\xa0" "Ea";
    QString s;
    const int length = in.next() % 40;
    for (int i = 0; i < length; ++i)
        s += QLatin1Char(alphabet[in.next() % (sizeof alphabet - 1)]);
    return s;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool registered = (Variant::registerTypes(), true);
    (void)registered;
    FuzzInput in(data, size);

    Box box;
    const uint8_t setup = in.next();
    box.locale = localeFor(in.next());
    box.dataType = setup % 7;
    box.places = (setup / 7) % 5;
    box.grouping = in.next() % 4 != 0;
    const uint8_t currency = in.next();
    box.position = currency % 3;
    static const char *const symbols[] = {"$", "EUR", "", "Fr."};
    box.symbol = QString::fromLatin1(symbols[(currency / 3) % 4]);

    NumberDisplay display(box.locale);
    display.setDecimalPlaces(qint16(box.places));
    display.setThousandSeparator(box.grouping);
    display.setShowCurrencySymbol(box.position);
    display.setCurrencySymbol(box.symbol);
    NumberEditor editor(display, NumberRules(box.dataType, box.locale));
    // Taken as stored, unchecked: a Byte box then has an increment it cannot step by.
    static const double increments[] = {1, 0.5, 0.01, 1000000, -3, 0.0001};
    editor.rules().loadIncrement(increments[in.next() % 6]);

    NumberEditState state;
    state.value = QVariant::fromValue<qint16>(0);
    state.text = editor.showValue(state.value);

    while (!in.empty()) {
        const uint8_t op = in.next();
        NumberEditState before = state;
        NumberEditResult r;
        bool valueFromText = true;
        switch (op % 10) {
        case 0: r = editor.keyPress(state, '0' + in.next() % 10); break;
        case 1: r = editor.keyPress(state, 8); break;
        case 2: r = editor.deleteForward(state); break;
        case 3: r = editor.keyPress(state, '-'); break;
        case 4: r = editor.keyPress(state, in.next() % 2 ? '.' : ','); break;
        case 5: r = editor.paste(state, pasteText(in)); break;
        case 6: r = editor.step(state, in.next() % 2); valueFromText = false; break;
        case 7: r = editor.insertText(state, QString(QChar(u'0' + in.next() % 10)), in.next() % 48); break;
        case 8: // the user clicks or drags somewhere, possibly beyond the text
            state.selStart = in.next() % 48;
            state.selLength = in.next() % 8;
            state.selStart = std::min(state.selStart, int(state.text.size()));
            state.selLength = std::min(state.selLength, int(state.text.size()) - state.selStart);
            continue;
        default: { // any edit on a text that is not a number must leave one or change nothing
            NumberEditState odd = state;
            odd.text = pasteText(in);
            odd.selStart = std::min(int(in.next() % 8), int(odd.text.size()));
            before = odd;
            const NumberEditResult o = editor.keyPress(odd, in.next());
            if (o.textChanged || !o.changed())
                check(box, before, odd, o, true);
            continue;
        }
        }
        check(box, before, state, r, valueFromText && r.textChanged);
    }
    return 0;
}
