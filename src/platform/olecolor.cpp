#include <tarnwell/olecolor.h>

namespace Tarnwell {
namespace {

struct SystemColour {
    QPalette::ColorGroup group; // Current: the palette's present group
    QPalette::ColorRole role;
};

// The host's system colour indexes 0x00..0x18, in index order.
constexpr SystemColour systemColours[] = {
    {QPalette::Current, QPalette::Midlight},         // scroll bar
    {QPalette::Current, QPalette::Dark},             // desktop
    {QPalette::Active, QPalette::Highlight},         // active caption
    {QPalette::Inactive, QPalette::Highlight},       // inactive caption
    {QPalette::Current, QPalette::Window},           // menu
    {QPalette::Current, QPalette::Base},             // window background
    {QPalette::Current, QPalette::Shadow},           // window frame
    {QPalette::Current, QPalette::WindowText},       // menu text
    {QPalette::Current, QPalette::Text},             // window text
    {QPalette::Active, QPalette::HighlightedText},   // caption text
    {QPalette::Current, QPalette::Window},           // active border
    {QPalette::Current, QPalette::Window},           // inactive border
    {QPalette::Current, QPalette::Dark},             // application workspace
    {QPalette::Current, QPalette::Highlight},        // highlight
    {QPalette::Current, QPalette::HighlightedText},  // highlighted text
    {QPalette::Current, QPalette::Button},           // button face
    {QPalette::Current, QPalette::Dark},             // button shadow
    {QPalette::Disabled, QPalette::Text},            // grey text
    {QPalette::Current, QPalette::ButtonText},       // button text
    {QPalette::Inactive, QPalette::HighlightedText}, // inactive caption text
    {QPalette::Current, QPalette::Light},            // button highlight
    {QPalette::Current, QPalette::Shadow},           // 3-D dark shadow
    {QPalette::Current, QPalette::Midlight},         // 3-D light
    {QPalette::Current, QPalette::ToolTipText},      // tool-tip text
    {QPalette::Current, QPalette::ToolTipBase},      // tool-tip background
};

} // namespace

OleColor OleColor::fromQColor(const QColor &color)
{
    // An invalid colour has no channels to keep: it reads as black, like an unset host colour.
    if (!color.isValid())
        return OleColor(0);
    const QColor rgb = color.toRgb();
    return fromRgb(rgb.red(), rgb.green(), rgb.blue());
}

QColor OleColor::toQColor(const QPalette &palette) const
{
    if (!isSystem())
        return QColor(int(m_value & 0xFF), int((m_value >> 8) & 0xFF), int((m_value >> 16) & 0xFF));
    const std::uint32_t index = m_value & 0x7FFFFFFFu;
    if (index >= std::size(systemColours))
        return palette.color(QPalette::Text);
    const SystemColour &sc = systemColours[index];
    return sc.group == QPalette::Current ? palette.color(sc.role) : palette.color(sc.group, sc.role);
}

} // namespace Tarnwell
