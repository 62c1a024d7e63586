#include "common/testsupport.h"
#include <tarnwell/olecolor.h>

using Tarnwell::OleColor;

namespace {

// A palette whose every role and group has its own colour, so a wrong lookup cannot pass.
QPalette distinctPalette()
{
    QPalette palette;
    int n = 1;
    for (int g = 0; g < int(QPalette::NColorGroups); ++g) {
        for (int r = 0; r < int(QPalette::NColorRoles); ++r)
            palette.setColor(QPalette::ColorGroup(g), QPalette::ColorRole(r), QColor::fromRgb(QRgb(0xFF000000u | unsigned(n++ * 2477))));
    }
    palette.setCurrentColorGroup(QPalette::Active);
    return palette;
}

struct SystemCase { const char *name; std::uint32_t value; QPalette::ColorGroup group; QPalette::ColorRole role; };
class OleColorSystem : public testing::TestWithParam<SystemCase> {};

TEST_P(OleColorSystem, ResolvesAgainstThePalette)
{
    const SystemCase &c = GetParam();
    const QPalette palette = distinctPalette();
    EXPECT_EQ(OleColor(c.value).toQColor(palette), palette.color(c.group, c.role));
}

INSTANTIATE_TEST_SUITE_P(Table, OleColorSystem, testing::Values(
    SystemCase{"WindowBackground", 0x80000005, QPalette::Active, QPalette::Base},
    SystemCase{"WindowText", 0x80000008, QPalette::Active, QPalette::Text},
    SystemCase{"GrayTextIsDisabledText", 0x80000011, QPalette::Disabled, QPalette::Text},
    SystemCase{"UnknownIndexIsText", 0x80000019, QPalette::Active, QPalette::Text},
    SystemCase{"FarUnknownIsText", 0xFFFFFFFF, QPalette::Active, QPalette::Text}), TestSupport::rowName);

TEST(OleColorSystemGroup, FollowsTheCurrentGroup)
{
    QPalette palette = distinctPalette();
    palette.setCurrentColorGroup(QPalette::Inactive);
    EXPECT_EQ(OleColor(OleColor::WindowText).toQColor(palette), palette.color(QPalette::Inactive, QPalette::Text));
    EXPECT_EQ(OleColor(OleColor::GrayText).toQColor(palette), palette.color(QPalette::Disabled, QPalette::Text));
}

struct RgbCase { const char *name; std::uint32_t value; QColor colour; };
class OleColorRgb : public testing::TestWithParam<RgbCase> {};

TEST_P(OleColorRgb, RedInTheLowByteBothWays)
{
    const RgbCase &c = GetParam();
    EXPECT_EQ(OleColor(c.value).toQColor(distinctPalette()), c.colour);
    EXPECT_EQ(OleColor::fromQColor(c.colour).value(), c.value);
    EXPECT_FALSE(OleColor(c.value).isSystem());
}

INSTANTIATE_TEST_SUITE_P(Table, OleColorRgb, testing::Values(
    RgbCase{"DarkRed", 192, QColor(192, 0, 0)}, RgbCase{"Pink", 0x8080FF, QColor(255, 128, 128)},
    RgbCase{"Blue", 0xFF0000, QColor(0, 0, 255)}, RgbCase{"Green", 0x00FF00, QColor(0, 255, 0)},
    RgbCase{"Black", 0, Qt::black}, RgbCase{"White", 0xFFFFFF, Qt::white}), TestSupport::rowName);

TEST(OleColorFromQColor, TakesAnySpecAndInvalidIsBlack)
{
    EXPECT_EQ(OleColor::fromQColor(QColor::fromHsv(0, 255, 255)).value(), 0x0000FFu);
    EXPECT_EQ(OleColor::fromQColor(QColor()).value(), 0u);
}

} // namespace
