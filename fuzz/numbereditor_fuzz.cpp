// Random edits on a number box: typed keys, Backspace, Delete, the sign key, the decimal jump,
// pastes, steps and caret moves, over every data type, 0..4 decimals, several locales and
// currency symbols. After every edit the shown text must be a well-formed number of the type
// (within its limits, at most DecimalPlaces decimals) that formats to itself, and the caret and
// selection must lie inside the text.
#include "fuzzinput.h"
#include "numberengine/numberdisplay.h"
#include "numberengine/numbereditor.h"
#include "numberengine/numbertype.h"

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

[[noreturn]] void fail(const char *what, const NumberEditState &before, const NumberEditResult &r)
{
    std::fprintf(stderr, "%s\n  before: \"%s\" caret %d sel %d type %d\n  after:  \"%s\" caret %d sel %d\n",
                 what, qPrintable(before.text), before.selStart, before.selLength, before.dataType,
                 qPrintable(r.text), r.selStart, r.selLength);
    std::abort();
}

void check(const NumberEditor &editor, const NumberEditState &before, const NumberEditResult &r,
           bool valueFromText)
{
    const NumberDisplay &display = editor.display();
    if (r.selStart < 0 || r.selLength < 0 || r.selStart + r.selLength > r.text.size())
        fail("caret outside the text", before, r);
    const QVariant shown = editor.valueOfText(r.text, before.dataType);
    if (!shown.isValid())
        fail("shown text is not a number of the type within its limits", before, r);
    if (!NumberType::isInRange(shown, false, before.dataType))
        fail("shown number outside the type's limits", before, r);
    const QString again = display.formatValue(shown, before.dataType);
    const bool negativeZero = NumberType::isZero(shown)
        && r.text == display.withSymbol(display.minusChar() + display.formatNumber(shown, before.dataType));
    if (again != r.text && !negativeZero)
        fail("shown text is not formatted", before, r);
    // Single and Double store the typed number, which may have more digits than they show.
    const bool exact = before.dataType != twSingle && before.dataType != twDouble;
    if (valueFromText && exact && NumberType::compare(shown, r.value, before.dataType) != 0)
        fail("value differs from the shown text", before, r);
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

    const uint8_t setup = in.next();
    NumberDisplay display(localeFor(in.next()));
    const int dataType = setup % 7;
    display.setDecimalPlaces(qint16((setup / 7) % 5));
    display.setThousandSeparator(in.next() % 4 != 0);
    const uint8_t currency = in.next();
    display.setShowCurrencySymbol(currency % 3);
    static const char *const symbols[] = {"$", "EUR", "", "Fr."};
    display.setCurrencySymbol(QString::fromLatin1(symbols[(currency / 3) % 4]));
    const NumberEditor editor(display);

    static const char *const increments[] = {"1", "0.5", "0.01", "1000000", "-3", "0.0001"};
    NumberEditState state;
    state.dataType = dataType;
    state.value = QVariant::fromValue<qint16>(0);
    state.increment = QVariant(QString::fromLatin1(increments[in.next() % 6]));
    state.text = editor.showValue(state.value, dataType);

    while (!in.empty()) {
        const uint8_t op = in.next();
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
            const NumberEditResult o = editor.keyPress(odd, in.next());
            if (o.textChanged)
                check(editor, odd, o, true);
            continue;
        }
        }
        check(editor, state, r, valueFromText && r.textChanged);
        state.text = r.text;
        state.selStart = r.selStart;
        state.selLength = r.selLength;
        state.value = r.value;
    }
    return 0;
}
