#pragma once
#include <tarnwell/global.h>

#include <QList>
#include <QString>
#include <QStringView>

namespace Tarnwell {

// What a masked text box holds while it is edited: the shown text, the selection and whether the
// box is read-only. The engine reads it and, when an edit goes through, rewrites text and caret.
struct MaskEditState
{
    QString text;
    int selStart = 0;
    int selLength = 0;
    bool locked = false;
};

// The outcome of one edit.
struct MaskEditResult
{
    // The edit went through: text and caret were rewritten (the selection is collapsed). False
    // when it was refused or the box is locked; the state is then exactly as it was.
    bool accepted = false;
    // The new text differs from the old one (an accepted Delete over trailing blanks may leave
    // the text as it was and only move the caret). Raise a change notification on this.
    bool textChanged = false;
    // The position the edit used, as it was last settled: the caret for -1, moved past literals
    // when typing onto one, and the new caret after an accepted insert.
    int pos = -1;
};

// The masked-text engine: a mask compiled once into one kind code per position, queries on it,
// and the conversions and the single edit routine that a masked text box is built on. A pure
// value class: no widget, no signals; copy it freely.
//
// The mask language:
//   #  a digit "0"-"9" or a space         @  an ASCII letter "A"-"Z", "a"-"z" or a space
//   ?  a digit, an ASCII letter or space   &  any character at all
//   \  the next mask character is a literal, whatever it is ("\#" a hash sign, "\\" a backslash);
//      a lone backslash at the very end of the mask is ignored
//   anything else is a literal: shown, never typed over.
// The space is the prompt: an unfilled input position shows a space and every placeholder takes
// it. Accented and other non-ASCII letters fit "&" only. The key handler lets only codes 32-126
// and 128-255 be typed, but "&" itself checks nothing: control characters and characters above
// 255, which arrive only by pasting, an input method or a host's key filter, stay where they
// fit "&" and spoil any other position. Each UTF-16 code unit is one character.
//
// Kind codes (maskKinds): 1 "#", 2 "@", 3 "?", 4 "&"; a literal's code is its UTF-16 code unit
// read as a signed 16-bit number (so a literal above U+7FFF has a negative code). A literal with
// code 1 to 4 is indistinguishable from a placeholder in this form; such a character (a control
// character, never a sensible literal) therefore compiles to that placeholder and its template
// position shows a space. A NUL literal (code 0) stays a literal.
//
// Positions are zero-based character indexes into the shown text: position i is character i.
//
// Typical use by a widget:
//   engine.parseMask(mask) -> the blank template to show;
//   printable key K:        engine.editMaskedText(state, QString(applyTypedCase(K, charCase)));
//   Backspace:              engine.backspace(state);
//   Delete:                 engine.deleteForward(state);
//   leaving the box:        formatMaskValue(extractMaskValue(text, charCase)).
class MaskEngine
{
public:
    enum Kind : qint16 { Digit = 1, Letter = 2, DigitOrLetter = 3, AnyCharacter = 4 };

    // An engine with the empty mask (no mask at all).
    MaskEngine();
    // Compiles `mask` as parseMask does.
    explicit MaskEngine(const QString &mask);

    // Compiles `mask` and returns its blank template (spaces in the input positions, literals in
    // theirs). Throws Error(6) when the mask has more positions than a 16-bit count can hold;
    // the engine is then unchanged.
    QString parseMask(const QString &mask);

    // The mask as given to parseMask.
    const QString &mask() const { return m_mask; }
    // True for the empty mask: conversions then pass texts through unchanged.
    bool isEmpty() const { return m_mask.isEmpty(); }
    // n: the number of positions (the shown text's length).
    int length() const { return int(m_template.size()); }
    // m: the number of input positions.
    int inputCount() const { return m_inputCount; }
    // The compiled mask: element 0 holds n, elements 1..n the kind code of each position.
    const QList<qint16> &maskKinds() const { return m_kinds; }
    // The blank template, as parseMask returned it.
    const QString &blankTemplate() const { return m_template; }

    // Kind code of `position`; 0 outside the mask.
    qint16 kindAt(int position) const;
    // True for a literal position; false for an input position and outside the mask.
    bool isLiteral(int position) const;
    // True for an input position inside the mask.
    bool isInput(int position) const;
    // Whether a position of kind `kind` takes `c`. Literal kinds take nothing.
    static bool accepts(int kind, QChar c);
    // Whether input position `position` takes `c`; false for literals and outside the mask.
    bool acceptsAt(int position, QChar c) const
    {
        return isInput(position) && accepts(kindAt(position), c);
    }

    // Where Backspace deletes with no selection: the nearest input position left of `selStart`
    // (moving left over literals), or -1 when there is none.
    int backspacePosition(int selStart) const;

    // A key code a masked box takes as a character (32-126 and 128-255).
    static bool isKeyAdmitted(int keyAscii)
    {
        return (keyAscii >= 32 && keyAscii <= 126) || (keyAscii >= 128 && keyAscii <= 255);
    }
    // The case rule for a typed character: 1 upper case, 2 lower case, anything else unchanged.
    static QChar applyTypedCase(QChar c, int charCase);

    // Raw value -> shown text: raw's characters fill the input positions in order (cut to the
    // mask, padded with spaces). Returns the empty string when a character does not fit its
    // position, and `raw` unchanged for the empty mask.
    QString formatMaskValue(const QString &raw) const;
    // Shown text -> raw value: the characters of the input positions (the text cut or padded to
    // the mask), literal positions skipped unchecked, case changed by `charCase`: 0 unchanged,
    // 1 upper case, any other value lower case. Returns `shown` unchanged for the empty mask.
    QString extractMaskValue(const QString &shown, int charCase) const;

    // The one edit routine behind typing, Backspace and Delete, in insert style: inserting pushes
    // the input characters after `pos` right (what falls off the end is lost), deleting pulls
    // them left, literals stay put. `insertText` empty deletes: the selection, or with none the
    // next input character together with the literals in front of it. `pos` -1 means the
    // selection start. The whole edit is refused, leaving `state` untouched, when the box is
    // locked, when typing into a full field with nothing selected, when no input position is at
    // or after `pos`, when `pos` is negative, or when any character - typed or shifted - would
    // land in a position that does not take it. An accepted edit rewrites the whole text to the
    // mask's length with every literal in place, and puts the caret after the inserted text
    // (past following literals, unless only literals follow), or at `pos` after a delete.
    MaskEditResult editMaskedText(MaskEditState &state, QStringView insertText, int pos = -1) const;

    // The Backspace key: deletes the selection if there is one, else the input character at
    // backspacePosition() (the caret ends there); does nothing at the start of the text.
    MaskEditResult backspace(MaskEditState &state) const;
    // The Delete key: deletes the selection, or the next input character with the literals in
    // front of it.
    MaskEditResult deleteForward(MaskEditState &state) const;

private:
    QString m_mask;
    QString m_template;
    QList<qint16> m_kinds;
    int m_inputCount = 0;
};

} // namespace Tarnwell
