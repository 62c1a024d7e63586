#pragma once
#include <tarnwell/constants.h>

// Layout arithmetic in the host's twips: 15 twips to one logical pixel. Documented sizes and
// layout constants are in twips; widgets are placed in pixels.
namespace Tarnwell::Twips {

constexpr int PerPixel = 15;
// A new control: 1650 x 315 twips (110 x 21 pixels).
constexpr int DefaultWidth = 1650;
constexpr int DefaultHeight = 315;

// Nearest integer, halves to the even neighbour; 0 for a value that is not finite, clamped to
// the int range.
int roundHalfEven(double value);
// Twips to the nearest pixel, halves to even.
int toPixels(double twips);
constexpr double fromPixels(double pixels) { return pixels * PerPixel; }

// The text box's inset from the frame's inner area, and its left edge when the check box stands
// left of it.
constexpr int TextInset = 15;
constexpr int TextLeftWithCheckBox = 255;

// What the frame's border takes from the inner width: 15, 45 and 80.
int borderAllowanceX(twBorderStyleConstants style);

// The check box's top edge: the nearest whole pixel to half the free height, in twips.
int checkBoxTop(int textHeight, int checkHeight);

} // namespace Tarnwell::Twips
