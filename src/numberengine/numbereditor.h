#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/global.h>

#include "numberengine/numberdisplay.h"
#include "numberengine/numberreading.h"
#include "numberengine/numberrules.h"

#include <QString>
#include <QStringView>
#include <QVariant>

namespace Tarnwell {

// What a number box holds while it is edited: its shown text and selection (positions count
// characters of the shown text, currency symbol included), whether it is read-only, and the
// stored Value, which a step starts from. The text is expected to be what the box last showed,
// but any text is handled: an edit that would not leave a well-formed number is refused. An
// accepted edit rewrites text, caret (the selection collapses) and value in place.
struct NumberEditState
{
    QString text;
    int selStart = 0;
    int selLength = 0;
    bool locked = false;
    QVariant value;
};

// What one edit changed; all false when it was refused, and the state is then as it was.
struct NumberEditResult
{
    bool textChanged = false;  // write the text to the box; its Change is to be raised
    bool caretChanged = false; // the caret or the selection moved
    bool valueChanged = false; // a new value was stored (it may format to the same text)

    bool changed() const { return textChanged || caretChanged || valueChanged; }
};

// One edit, as the box's events describe it. `text` is only borrowed for the call.
struct NumberEdit
{
    enum Kind : quint8 { Insert, Backspace, Delete, ToggleSign, DecimalJump, Paste, Step, Key };

    Kind kind = Insert;
    QStringView text; // Insert: the characters typed; Paste: the clipboard's text
    int caret = -1;   // Insert: -1 edits at the selection, else the caret is put there first
    int code = 0;     // Key: the character code; Step: non-zero steps up

    static NumberEdit insert(QStringView text, int caret = -1) { return {Insert, text, caret, 0}; }
    static NumberEdit backspace() { return {Backspace, {}, -1, 0}; }
    static NumberEdit deleteForward() { return {Delete, {}, -1, 0}; }
    static NumberEdit toggleSign() { return {ToggleSign, {}, -1, 0}; }
    static NumberEdit decimalJump() { return {DecimalJump, {}, -1, 0}; }
    static NumberEdit paste(QStringView clipboard) { return {Paste, clipboard, -1, 0}; }
    static NumberEdit step(bool up) { return {Step, {}, -1, up ? 1 : 0}; }
    static NumberEdit key(int keyAscii) { return {Key, {}, -1, keyAscii}; }
};

// The number box's editing engine: its display and its number rules held by value, one edit
// routine with the keys as thin wrappers, and the conversions between shown text and value. A
// plain value class: no widget, no signals; copy it freely. Every edit is done on the text with
// the currency symbol taken off, checked, formatted and handed back with the caret. The shown
// text is always a number of the data type, within the type's limits (the Minimum..Maximum
// range is only enforced when focus leaves), with at most DecimalPlaces decimals, formatted by
// the display; the single exception is the negative zero "-0.00" a user gets by pressing "-"
// before typing digits, or by deleting every digit of a negative number.
//
// Insert (typing, Backspace as an empty insert, paste once cleaned):
//   1. Nothing while locked. With decimals, typing at the very end of the text is refused.
//   2. Backspace with no selection removes the character left of the caret; a grouping
//      character goes together with the digit before it; left of the decimal character nothing
//      is deleted and the caret just steps over it.
//   3. Typing at the front of a zero whole part ("|0.00", "-|0.00", "|-0.00") goes behind the
//      zero, so the zero disappears. Elsewhere nothing can be typed in front of a minus sign.
//   4. Typing right of the decimal character overwrites as many decimals as it types. A
//      selection that holds the decimal character (typed over or deleted) takes every decimal
//      with it.
//   5. The result, grouping characters removed, must read as an optional "-", digits and at most
//      one decimal character followed by at most DecimalPlaces digits; its value must convert
//      to the data type and lie within the type's limits, and the text it shows must be the
//      number typed (a type that would round it refuses it). Otherwise nothing changes. An
//      empty whole part reads as 0, so deleting every digit shows 0 ("-0" when the minus stays).
//   6. The caret goes back to the same place counted from the right in characters that are not
//      grouping characters, as if the decimals had already been padded to DecimalPlaces; where
//      a grouping character appears beside it, it stays left of it, right after its digit.
//      Typing 1234 into "0.00" thus gives "1,234.00" with the caret after the 4.
//
// The other edits:
//   Delete       a selection goes as with Backspace; otherwise the character right of the
//                caret, first stepping over a grouping or decimal character.
//   ToggleSign   "-": the number negated; the caret moves one right (one left when the minus
//                goes) from where it stood in the shown text, and a left symbol then shifts it
//                again. On a zero it adds or removes the "-" of a negative entry.
//   DecimalJump  "," or ".": the caret right after the decimal character, if any.
//   Paste        grouping characters, blanks and the currency symbol are dropped; anything else
//                but digits, one decimal character and a leading "-" refuses the paste.
//   Step         Value +- Increment within the type's limits (not Minimum..Maximum); the caret
//                keeps its distance in characters from the right end. Refused while locked.
//   Key          the character keys of the box: digits, "," ".", "-", Backspace (8). Ctrl+V
//                (22) is left to the caller, which reads the clipboard and pastes; Ctrl+C (3)
//                is the one key the box passes on; every other key changes nothing.
class NumberEditor
{
public:
    explicit NumberEditor(const NumberDisplay &display = NumberDisplay(),
                          const NumberRules &rules = NumberRules());

    const NumberDisplay &display() const { return m_display; }
    NumberDisplay &display() { return m_display; }
    const NumberRules &rules() const { return m_rules; }
    NumberRules &rules() { return m_rules; }
    int dataType() const { return m_rules.dataType(); }

    // The one edit routine.
    NumberEditResult edit(NumberEditState &state, const NumberEdit &edit) const;

    NumberEditResult insertText(NumberEditState &state, QStringView s, int caret = -1) const
    {
        return edit(state, NumberEdit::insert(s, caret));
    }
    NumberEditResult backspace(NumberEditState &state) const { return edit(state, NumberEdit::backspace()); }
    NumberEditResult deleteForward(NumberEditState &state) const { return edit(state, NumberEdit::deleteForward()); }
    NumberEditResult toggleSign(NumberEditState &state) const { return edit(state, NumberEdit::toggleSign()); }
    NumberEditResult decimalJump(NumberEditState &state) const { return edit(state, NumberEdit::decimalJump()); }
    NumberEditResult paste(NumberEditState &state, QStringView clipboard) const
    {
        return edit(state, NumberEdit::paste(clipboard));
    }
    NumberEditResult step(NumberEditState &state, bool up) const { return edit(state, NumberEdit::step(up)); }
    NumberEditResult keyPress(NumberEditState &state, int keyAscii) const
    {
        return edit(state, NumberEdit::key(keyAscii));
    }

    // The text a value shows (the number in the data type, formatted, with the currency symbol).
    QString showValue(const QVariant &value) const;

    // The number the shown text holds, read strictly (grouping characters and the currency
    // symbol removed; "-0" allowed): Empty when the text is not such a number of the data type
    // within its limits with at most DecimalPlaces decimals.
    QVariant valueOfText(QStringView text) const;

private:
    // The text with the symbol taken off and a selection moved onto it, as the box's scratch
    // text holds it after StripCurrencySymbol.
    struct Bare
    {
        QStringView text;
        int start = 0;
        int length = 0;
        int offset = 0; // characters of a left symbol
    };
    Bare bareOf(QStringView text, int selStart, int selLength) const;

    NumberEditResult insert(NumberEditState &state, QStringView s, int caret) const;
    NumberEditResult replace(NumberEditState &state, QStringView s, int start, int length) const;
    NumberEditResult deleteAtCaret(NumberEditState &state) const;
    NumberEditResult negate(NumberEditState &state) const;
    NumberEditResult jumpToDecimals(NumberEditState &state) const;
    NumberEditResult pasteText(NumberEditState &state, QStringView clipboard) const;
    NumberEditResult stepValue(NumberEditState &state, bool up) const;

    // Reads a number, its grouping characters dropped wherever they stand.
    bool read(QStringView number, NumberReading &r) const;
    // The reading in the data type (Empty when it does not convert or leaves the type's limits).
    // `shownExactly` is set when the formatted value is known to be the number read.
    QVariant convert(const NumberReading &r, bool *shownExactly = nullptr) const;
    // The formatted number, a "-" kept on a zero when `minusOnZero`.
    void appendFormatted(QString &out, const QVariant &value, bool minusOnZero) const;
    void appendDigits(QString &out, const DecimalDigits &digits, bool minusOnZero) const;
    // Whether `number` (as formatted for `value`) may be shown: an exact type must show the very
    // number typed (`typed`, or none to skip that test), and any type must show a text that
    // reads back as a value formatting to that same text.
    bool showsExactly(QStringView number, const QVariant &value, const NumberReading *typed) const;

    NumberDisplay m_display;
    NumberRules m_rules;
};

} // namespace Tarnwell
