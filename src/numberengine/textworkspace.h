#pragma once
#include <tarnwell/global.h>

#include <QString>

namespace Tarnwell {

// A single-line text with a selection, behaving like the host's text box as far as text and
// selection go: the scratch box every number edit is first carried out on. No widget behind it.
//
// Rules, as the host text box applies them:
//   - setText() replaces the text and puts the caret at 0 with nothing selected;
//   - setSelStart() clamps into 0..length and collapses the selection;
//   - setSelLength() clamps so that the selection ends inside the text;
//   - setSelText() replaces the selection and leaves the caret right after the new text.
// Where the host would raise "Invalid property value" for a negative position, the workspace
// clamps to 0 instead: its callers compute positions and must never be thrown at mid-edit.
class TextWorkspace
{
public:
    TextWorkspace() = default;
    explicit TextWorkspace(const QString &text) : m_text(text) {}

    const QString &text() const { return m_text; }
    void setText(const QString &text);

    int selStart() const { return m_selStart; }
    void setSelStart(int start);

    int selLength() const { return m_selLength; }
    void setSelLength(int length);

    QString selText() const { return m_text.mid(m_selStart, m_selLength); }
    void setSelText(const QString &text);

private:
    QString m_text;
    int m_selStart = 0;
    int m_selLength = 0;
};

} // namespace Tarnwell
