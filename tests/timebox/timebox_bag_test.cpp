// Persistence (keys, order, defaults, refused bags, no value after loading), layout and size.
#include "timeboxfixture.h"

#include <tarnwell/propertybag.h>

namespace Tarnwell {
namespace {

using TestSupport::errorOf;
using TestSupport::rowName;

const QStringList WriteOrder = {
    "BackColor", "Enabled", "Font", "Format", "BorderStyle", "Separator", "UpDown", "InterceptArrowKeys",
    "OLEDragMode", "OLEDropMode", "MouseIcon", "MousePointer", "Locked", "SelectTextOnFocus", "Alignment",
    "Minimum", "Maximum", "NullIfEmpty", "ToolTip", "CheckBox", "Checked", "ForeColor", "DisabledColor", "EnterAsTab"};

TEST_F(TimeBoxTest, EveryKeyInItsOrderBothWays)
{
    PropertyBag bag, again;
    box->WriteProperties(bag);
    EXPECT_EQ(bag.writeLog(), WriteOrder);
    EXPECT_TRUE(bag.keys().isEmpty()); // a new box holds every default
    QPixmap icon(4, 4);
    icon.fill(Qt::red);
    const QVariantList changed = {
        QVariant::fromValue(OleColor(0xFF)), false, QFont("DejaVu Sans", 15), 2, twFixedSingle, ".", true, true, 1,
        1, icon, 15, true, true, twCenter, QVariant::fromValue(hms(8, 0)), QVariant::fromValue(hms(17, 0)), true,
        "tip", true, true, QVariant::fromValue(OleColor(0xFF00)), QVariant::fromValue(OleColor(0x80000011u)), true};
    for (int i = 0; i < WriteOrder.size(); ++i)
        ASSERT_TRUE(box->setProperty(WriteOrder[i].toLatin1(), changed[i])) << qPrintable(WriteOrder[i]);
    box->WriteProperties(bag);
    EXPECT_EQ(bag.keys(), WriteOrder);
    auto *loaded = new TimeBox(window.get());
    loaded->ReadProperties(bag);
    QStringList readOrder = WriteOrder;
    readOrder.move(readOrder.indexOf("Separator"), 0); // read first, written after the border
    EXPECT_EQ(bag.readLog(), readOrder);
    loaded->WriteProperties(again);
    EXPECT_EQ(again.toJsonText(), bag.toJsonText());
}

// One key in the bag, read into a box holding 10:30 in format 1.
struct BagRow { const char *name; const char *key; QVariant stored; int error; const char *mask, *value; };
class BagRead : public TimeBoxTest, public testing::WithParamInterface<BagRow> {};
TEST_P(BagRead, LoadsOneKeyAndNoValue)
{
    const BagRow &r = GetParam();
    box->setFormat(1);
    box->setValue(QStringLiteral("10:30"));
    PropertyBag bag, before, after;
    bag.WriteProperty(QString::fromLatin1(r.key), r.stored);
    box->WriteProperties(before);
    EXPECT_EQ(errorOf([&] { box->ReadProperties(bag); }), r.error);
    box->WriteProperties(after);
    EXPECT_EQ(after.keys(), r.error ? before.keys() : bag.keys()); // the rest at its default, or all kept
    EXPECT_EQ(mdtTime->Mask() + u'|' + describe(box->Value()), QString::fromLatin1(r.mask) + u'|' + r.value);
}
INSTANTIATE_TEST_SUITE_P(Bags, BagRead, testing::Values(
    BagRow{"OnlyFormat3", "Format", 3, 0, "##:##", "Empty"},
    BagRow{"DotSeparator", "Separator", ".", 0, "##.##.## \\AM", "Empty"},
    BagRow{"MinimumAsText", "Minimum", "08:00", 0, "##:##:## \\AM", "Empty"},
    BagRow{"SeparatorRefused", "Separator", "-", 380, "##:## \\AM", "10:30:00"},
    BagRow{"MinimumNoDate", "Minimum", "soon", 380, "##:## \\AM", "10:30:00"}), rowName);

struct LayoutRow { const char *name; twBorderStyleConstants border; bool upDown, checkBox; };
class Layout : public TimeBoxTest, public testing::WithParamInterface<LayoutRow> {};
TEST_P(Layout, ButtonAtTheRightTextFillsTheRest)
{
    const LayoutRow &r = GetParam();
    box->setBorderStyle(r.border);
    box->setCheckBox(r.checkBox);
    box->setUpDown(r.upDown);
    box->setToolTip(QStringLiteral("When"));
    box->resize(160, 30);
    showAndFocus(other);
    const QRect inner = box->contentsRect();
    const int button = r.upDown ? 17 : 0;
    EXPECT_EQ(mdtTime->geometry(), inner.adjusted(0, 0, -button, 0));
    EXPECT_EQ(mdtTime->BorderStyle(), twNone);
    EXPECT_EQ(upDown1() && upDown1()->isVisibleTo(box), r.upDown);
    if (r.upDown) {
        EXPECT_EQ(upDown1()->geometry(), inner.adjusted(inner.width() - button, 0, 0, 0));
        EXPECT_EQ(upDown1()->toolTip(), QStringLiteral("When"));
    }
}
INSTANTIATE_TEST_SUITE_P(Borders, Layout, testing::Values(
    LayoutRow{"Sunken", twFixed3D, true, false}, LayoutRow{"FlatWithCheckBox", twFixedSingle, true, true},
    LayoutRow{"NoBorderNoButton", twNone, false, false}), rowName);

// Shown at its own size first: the hint must not depend on the size the box was given.
TEST_F(TimeBoxTest, SizeHintFollowsTheFontAsAMaskBoxDoes)
{
    showAndFocus(other);
    for (const int points : {8, 20}) {
        window->setFont(QFont(QStringLiteral("DejaVu Sans"), points));
        EXPECT_EQ(box->sizeHint(), MaskBox(window.get()).sizeHint()) << points;
    }
}

} // namespace
} // namespace Tarnwell
