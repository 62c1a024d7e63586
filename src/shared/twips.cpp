#include "shared/twips.h"

#include <QtGlobal>

#include <climits>
#include <cmath>

namespace Tarnwell::Twips {

int roundHalfEven(double value)
{
    if (!std::isfinite(value))
        return 0;
    const double clamped = qBound(double(INT_MIN), value, double(INT_MAX));
    const double lower = std::floor(clamped);
    const double diff = clamped - lower;
    double result = lower;
    if (diff > 0.5 || (diff == 0.5 && std::fmod(lower, 2.0) != 0.0))
        result = lower + 1.0;
    return int(qBound(double(INT_MIN), result, double(INT_MAX)));
}

int toPixels(double twips)
{
    return roundHalfEven(twips / PerPixel);
}

int borderAllowanceX(twBorderStyleConstants style)
{
    switch (style) {
    case twNone: return 15;
    case twFixedSingle: return 45;
    default: return 80;
    }
}

int checkBoxTop(int textHeight, int checkHeight)
{
    const double pixels = (double(textHeight) - checkHeight + 1) / PerPixel;
    return roundHalfEven(pixels / 2) * PerPixel;
}

} // namespace Tarnwell::Twips
