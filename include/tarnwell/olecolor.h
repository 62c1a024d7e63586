#pragma once
#include <tarnwell/global.h>

#include <QColor>
#include <QMetaType>
#include <QPalette>

#include <cstdint>

namespace Tarnwell {

// The host's 32-bit colour: red in the low byte, blue in the third (192 is dark red). A value with
// the high bit set names a system colour, resolved against a widget's palette when drawn.
class TARNWELL_EXPORT OleColor
{
public:
    static constexpr std::uint32_t WindowBackground = 0x80000005;
    static constexpr std::uint32_t WindowText = 0x80000008;
    static constexpr std::uint32_t ButtonFace = 0x8000000F;
    static constexpr std::uint32_t GrayText = 0x80000011;
    static constexpr std::uint32_t ButtonText = 0x80000012;

    constexpr OleColor() = default;
    constexpr OleColor(std::uint32_t value) : m_value(value) {} // NOLINT: a colour is its number
    constexpr operator std::uint32_t() const { return m_value; } // NOLINT
    constexpr std::uint32_t value() const { return m_value; }

    static constexpr OleColor fromRgb(int r, int g, int b)
    {
        return OleColor(std::uint32_t(r & 0xFF) | (std::uint32_t(g & 0xFF) << 8)
                        | (std::uint32_t(b & 0xFF) << 16));
    }
    static OleColor fromQColor(const QColor &color);
    // Code generated from a .ui file passes Qt's colours (setBackColor(QColor(255, 0, 0))).
    OleColor(const QColor &color) : OleColor(fromQColor(color)) {} // NOLINT: as fromQColor

    constexpr bool isSystem() const { return (m_value & 0x80000000u) != 0; }
    // System colours from `palette` (unknown system indexes give the palette's text colour).
    QColor toQColor(const QPalette &palette) const;

private:
    std::uint32_t m_value = 0;
};

} // namespace Tarnwell

Q_DECLARE_METATYPE(Tarnwell::OleColor)
