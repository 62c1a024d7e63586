#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/global.h>

#include <QString>
#include <QStringView>
#include <QVariant>

namespace Tarnwell {

class NumberDisplay;

// What a number box holds when an edit starts: its shown text and selection (positions count
// characters of the shown text, currency symbol included), whether it is read-only, and the
// number properties. The text is expected to be what the box last showed, but any text is
// handled: an edit that would not leave a well-formed number is refused.
struct NumberEditState
{
    QString text;
    int selStart = 0;
    int selLength = 0;
    bool locked = false;
    QVariant value;
    int dataType = twCurrency;
    QVariant minimum;
    QVariant maximum;
    QVariant increment = QVariant::fromValue<qint16>(1);
};

// The outcome of one edit. When nothing was accepted it repeats the state it was given.
struct NumberEditResult
{
    QString text;
    int selStart = 0;
    int selLength = 0;
    QVariant value;
    bool textChanged = false;  // write text to the box; its Change is to be raised
    bool caretChanged = false; // only the caret or selection moved
    bool valueChanged = false; // a new value was stored (it may format to the same text)

    bool changed() const { return textChanged || caretChanged || valueChanged; }
};

// The number box's edit routines, on a plain state: no widget, no signals. Every edit is done on
// a scratch text with the currency symbol taken off, checked, formatted and handed back with the
// caret. The shown text is always a number of the data type, within the type's limits (the
// Minimum..Maximum range is only enforced when focus leaves), with at most DecimalPlaces
// decimals, formatted by the display; the single exception is the negative zero "-0.00" a user
// gets by pressing "-" before typing digits, or by deleting every digit of a negative number.
//
// Rules of insertText(s, caret) - typing (s one digit), Backspace (s empty), paste (s cleaned):
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
//      to the data type and lie within the type's limits. Otherwise nothing changes. An empty
//      whole part reads as 0, so deleting every digit shows 0 ("-0" when the minus stays).
//   6. The caret goes back to the same place counted from the right in characters that are not
//      grouping characters, as if the decimals had already been padded to DecimalPlaces; where
//      a grouping character appears beside it, it stays left of it, right after its digit.
//      Typing 1234 into "0.00" thus gives "1,234.00" with the caret after the 4.
//
// Other routines:
//   deleteForward    Delete: a selection goes as with Backspace; otherwise the character right
//                    of the caret, first stepping over a grouping or decimal character.
//   toggleSign       "-": the number negated; the caret moves one right (one left when the
//                    minus goes) from where it stood in the shown text, and a left symbol then
//                    shifts it again. On a zero it adds or removes the "-" of a negative entry.
//   decimalJump      "," or ".": the caret right after the decimal character, if any.
//   paste            grouping characters, blanks and the currency symbol are dropped; anything
//                    else but digits, one decimal character and a leading "-" refuses the paste.
//   step             Value +- Increment within the type's limits (not Minimum..Maximum); the caret
//                    keeps its distance in characters from the right end. Refused while locked.
//   keyPress         the character keys of the box: digits, "," ".", "-", Backspace (8).
class NumberEditor
{
public:
    explicit NumberEditor(const NumberDisplay &display) : m_display(&display) {}

    const NumberDisplay &display() const { return *m_display; }

    // caret -1 edits at the state's selection; another value puts the caret there (the state's
    // selection length still applies) before editing.
    NumberEditResult insertText(const NumberEditState &state, const QString &s,
                                int caret = -1) const;
    NumberEditResult deleteForward(const NumberEditState &state) const;
    NumberEditResult toggleSign(const NumberEditState &state) const;
    NumberEditResult decimalJump(const NumberEditState &state) const;
    NumberEditResult paste(const NumberEditState &state, const QString &clipboard) const;
    NumberEditResult step(const NumberEditState &state, bool up) const;

    // A typed character (key code as the host's KeyPress gives it). Ctrl+V (22) is left to the
    // caller, which reads the clipboard and calls paste(); Ctrl+C (3) is the one key the box
    // passes on; every other key not listed above is swallowed and changes nothing.
    NumberEditResult keyPress(const NumberEditState &state, int keyAscii) const;

    // The text a value shows (the number formatted, with the currency symbol).
    QString showValue(const QVariant &value, int dataType) const;

    // The bare number the shown text holds, read strictly (grouping characters and the currency
    // symbol removed; "-0" allowed): Empty when the text is not such a number of the data type
    // within its limits with at most DecimalPlaces decimals.
    QVariant valueOfText(const QString &text, int dataType) const;

private:
    // The bare number, grouping characters already removed, read strictly.
    struct Reading
    {
        bool ok = false;
        bool negative = false;
        bool hasDecimal = false;
        int decimals = 0;
        QString canonical; // "-123.45": C-locale text for the conversion
    };
    Reading read(QStringView bare) const;
    QVariant convert(const Reading &reading, int dataType) const;
    // Shown number for an accepted reading with its value: formatted, "-" kept on a zero.
    QString formatAccepted(const Reading &reading, const QVariant &value, int dataType) const;
    // Whether `number` (as formatAccepted gives it for `value`) may be shown: an exact type
    // must show the very number typed (`typed`, or none to skip that test), and any type must
    // show a text that reads back as a value formatting to that same text.
    bool showsExactly(const QString &number, const QVariant &value, const Reading *typed,
                      int dataType) const;
    NumberEditResult edit(const NumberEditState &state, const QString &s, int start,
                          int length) const;

    const NumberDisplay *m_display;
};

} // namespace Tarnwell
