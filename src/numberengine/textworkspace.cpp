#include "numberengine/textworkspace.h"

#include <algorithm>

namespace Tarnwell {

void TextWorkspace::setText(const QString &text)
{
    m_text = text;
    m_selStart = 0;
    m_selLength = 0;
}

void TextWorkspace::setSelStart(int start)
{
    m_selStart = std::clamp(start, 0, int(m_text.size()));
    m_selLength = 0;
}

void TextWorkspace::setSelLength(int length)
{
    m_selLength = std::clamp(length, 0, int(m_text.size()) - m_selStart);
}

void TextWorkspace::setSelText(const QString &text)
{
    m_text.replace(m_selStart, m_selLength, text);
    m_selStart += int(text.size());
    m_selLength = 0;
}

} // namespace Tarnwell
