#pragma once
#include <tarnwell/global.h>

#include <QColor>
#include <QMetaType>
#include <QPalette>

#include <cstdint>

namespace Tarnwell {

/// @brief The host's 32-bit colour: red in the low byte, blue in the third (192 is dark red).
///
/// A value with the high bit set names a system colour, resolved against a widget's palette when
/// drawn: WindowBackground is QPalette::Base, WindowText QPalette::Text, GrayText the disabled
/// QPalette::Text, ButtonText QPalette::ButtonText, ButtonFace QPalette::Button.
class TARNWELL_EXPORT OleColor
{
public:
    static constexpr std::uint32_t WindowBackground = 0x80000005; ///< system colour: QPalette::Base
    static constexpr std::uint32_t WindowText = 0x80000008; ///< system colour: QPalette::Text
    static constexpr std::uint32_t ButtonFace = 0x8000000F; ///< system colour: QPalette::Button
    static constexpr std::uint32_t GrayText = 0x80000011;   ///< system colour: disabled QPalette::Text
    static constexpr std::uint32_t ButtonText = 0x80000012; ///< system colour: QPalette::ButtonText

    /// Black.
    constexpr OleColor() = default;
    /// The colour of number `value`.
    constexpr OleColor(std::uint32_t value) : m_value(value) {} // NOLINT: a colour is its number
    /// The colour's number.
    constexpr operator std::uint32_t() const { return m_value; } // NOLINT
    /// The colour's number.
    constexpr std::uint32_t value() const { return m_value; }

    /// The colour of red, green and blue 0..255.
    static constexpr OleColor fromRgb(int r, int g, int b)
    {
        return OleColor(std::uint32_t(r & 0xFF) | (std::uint32_t(g & 0xFF) << 8)
                        | (std::uint32_t(b & 0xFF) << 16));
    }
    /// The red, green and blue of `color` (its alpha is dropped).
    static OleColor fromQColor(const QColor &color);
    /// Code generated from a .ui file passes Qt's colours (setBackColor(QColor(255, 0, 0))).
    OleColor(const QColor &color) : OleColor(fromQColor(color)) {} // NOLINT: as fromQColor

    /// Whether the colour names a system colour (the high bit set).
    constexpr bool isSystem() const { return (m_value & 0x80000000u) != 0; }
    /// System colours from `palette` (unknown system indexes give the palette's text colour).
    QColor toQColor(const QPalette &palette) const;

private:
    std::uint32_t m_value = 0;
};

} // namespace Tarnwell

Q_DECLARE_METATYPE(Tarnwell::OleColor)
