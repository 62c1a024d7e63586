// The date box's property bag, its layout and size, and a random walk over keys, steps and ranges.
#include "dateboxfixture.h"

#include <tarnwell/propertybag.h>

#include <functional>
#include <random>

namespace Tarnwell {
namespace {

TEST_F(DateBoxTest, BagKeysInBothOrdersNoDefaultsStoredNoValueLoaded)
{
    PropertyBag defaults;
    box->WriteProperties(defaults);
    EXPECT_EQ(defaults.writeLog().join(' '), "BackColor Enabled Font Format BorderStyle DisplayFormat Separator UpDown InterceptArrowKeys "
        "OLEDragMode OLEDropMode CalendarBackColor CalendarForeColor CalendarTitleBackColor CalendarTitleForeColor CalendarTrailingForeColor "
        "MouseIcon MousePointer Alignment Locked SelectTextOnFocus Maximum Minimum CalendarFont NullIfEmpty ToolTip CheckBox Checked "
        "DisabledColor ForeColor EnterAsTab");
    EXPECT_EQ(defaults.keys(), QStringList());

    box->setSeparator("-");
    box->setFormat(twYearMonthDay);
    box->setMinimum(ymd(2030, 1, 1));
    box->setMaximum(ymd(2040, 1, 1));
    box->setCalendarTitleBackColor(OleColor::fromRgb(0, 0, 128));
    box->setCalendarFont(QFont("DejaVu Sans", 15));
    box->setNullIfEmpty(true);
    PropertyBag saved;
    box->WriteProperties(saved);

    DateBox copy(window.get());
    copy.setMinimum(ymd(2045, 1, 1)); // above the stored maximum: the stored range comes in all the same
    copy.setValue(QVariant::fromValue(ymd(2046, 1, 1)));
    PropertyBag loaded = PropertyBag::fromJsonText(saved.toJsonText());
    copy.ReadProperties(loaded);
    EXPECT_EQ(loaded.readLog().join(' '), "Separator BackColor Enabled Font Format DisplayFormat BorderStyle UpDown Maximum Minimum "
        "InterceptArrowKeys OLEDragMode OLEDropMode CalendarBackColor CalendarForeColor CalendarTitleBackColor CalendarTitleForeColor "
        "CalendarTrailingForeColor MouseIcon MousePointer Alignment Locked SelectTextOnFocus CalendarFont NullIfEmpty ToolTip CheckBox "
        "Checked DisabledColor ForeColor EnterAsTab");
    EXPECT_EQ(show(copy.Value()), "Null");
    EXPECT_EQ(show(QVariant::fromValue(copy.findChild<DatePicker *>("fdt")->Value())), "2030-01-01") << "today, in range";
    PropertyBag again;
    copy.WriteProperties(again);
    EXPECT_EQ(again.toJsonText(), saved.toJsonText());
}

// A bag holding one key on a box without buttons: read as given, or refused with nothing changed.
struct BagRow { const char *name; const char *key; QVariant stored; int error; const char *state; };
class Bags : public DateBoxTest, public ::testing::WithParamInterface<BagRow> {};

TEST_P(Bags, ReadOneKey)
{
    box->setUpDown(false);
    PropertyBag bag;
    bag.WriteProperty(GetParam().key, GetParam().stored);
    EXPECT_EQ(TestSupport::errorOf([&] { box->ReadProperties(bag); }), GetParam().error);
    focus();
    EXPECT_EQ(QStringList({QString::number(box->Format()), box->DisplayFormat(), text1()->text(), show(QVariant::fromValue(box->Minimum())),
                           QString::number(box->UpDown())}).join(u'|'), GetParam().state);
}

INSTANTIATE_TEST_SUITE_P(DateBox, Bags, ::testing::Values(
    BagRow{"FormatStoredWithoutItsPattern", "Format", qint32(twYearMonthDay), 0, "4|dd/mmm/yyyy|    /  /  |1601-01-01|1"},
    BagRow{"SeparatorInTheMaskOnly", "Separator", QString("."), 0, "0|dd/mmm/yyyy|  .  .    |1601-01-01|1"},
    BagRow{"MinimumAsText", "Minimum", QString("2/3/2001"), 0, "0|dd/mmm/yyyy|  /  /    |2001-02-03|1"},
    BagRow{"MinimumBeyondTheCalendarDropped", "Minimum", QVariant::fromValue(Date(-200000)), 0, "0|dd/mmm/yyyy|  /  /    |1601-01-01|1"},
    BagRow{"SeparatorComma", "Separator", QString(","), 380, "0|dd/mmm/yyyy|  /  /    |1601-01-01|0"},
    BagRow{"CalendarColourNoColour", "CalendarForeColor", QString("red"), 380, "0|dd/mmm/yyyy|  /  /    |1601-01-01|0"}),
    TestSupport::rowName);

// 110 x 21 pixels in Fusion's one-pixel 3-D border; buttons 17 pixels wide.
struct LayoutRow { const char *name; int format; bool upDown; twBorderStyleConstants border; QRect text, calendar, spin; };
class Layout : public DateBoxTest, public ::testing::WithParamInterface<LayoutRow> {};

TEST_P(Layout, OneButtonAtMostAndTheTextFillsTheRest)
{
    const LayoutRow &row = GetParam();
    box->setFormat(row.format);
    box->setUpDown(row.upDown);
    box->setBorderStyle(row.border);
    const auto shown = [this](QWidget *w) { return w && w->isVisibleTo(box) ? w->geometry() : QRect(); };
    EXPECT_EQ(QList<QRect>({box->findChild<MaskBox *>("mdtDate")->geometry(), shown(fdt()), shown(upDown1())}), QList<QRect>({row.text, row.calendar, row.spin}));
    EXPECT_EQ(box->findChild<MaskBox *>("mdtDate")->BorderStyle(), twNone);
    EXPECT_EQ(box->InterceptArrowKeys(), row.upDown) << "the arrow keys follow the button";
}

INSTANTIATE_TEST_SUITE_P(DateBox, Layout, ::testing::Values(
    LayoutRow{"CalendarButton", twDayMonthYear, true, twFixed3D, {1, 1, 91, 19}, {92, 1, 17, 19}, {}},
    LayoutRow{"SpinButtonForMonthYear", twMonthYear, true, twFixed3D, {1, 1, 91, 19}, {}, {92, 1, 17, 19}},
    LayoutRow{"UnknownFormatCalendar", 12, true, twFixedSingle, {1, 1, 91, 19}, {92, 1, 17, 19}, {}},
    LayoutRow{"NoButtonFullWidth", twMonthYear, false, twFixed3D, {1, 1, 108, 19}, {}, {}},
    LayoutRow{"NoBorderSpin", twMonthYear, true, twNone, {0, 0, 93, 21}, {}, {93, 0, 17, 21}}),
    TestSupport::rowName);

// A MaskBox's width and its button's, at least a MaskBox's height (a spin box's, beside it).
TEST_F(DateBoxTest, SizeFollowsTheFontAsAMaskBoxDoes)
{
    for (int points = 6, height = 0; points < 40; points *= 2, height = box->sizeHint().height()) {
        MaskBox mask(window.get());
        window->setFont(QFont("DejaVu Sans", points));
        EXPECT_EQ(box->sizeHint().width(), mask.sizeHint().width() + 17) << points;
        EXPECT_GE(box->sizeHint().height(), mask.sizeHint().height()) << points;
        EXPECT_GT(box->sizeHint().height(), height) << points;
    }
}

// Whatever is typed, stepped and bounded, Value is Empty or the date whose day, month and year are
// the digits shown (two-digit years windowed), inside the range in force when it was last derived.
TEST_F(DateBoxTest, RandomKeysStepsAndRangesKeepValueAndDigitsTogether)
{
    std::mt19937 random(20240515);
    box->setInterceptArrowKeys(true);
    focus();
    Date low = box->Minimum(), high = box->Maximum();
    for (int i = 0; i < 600; ++i) {
        const char key[] = {"0123456789012345<<^^vv[[]]mMc"[random() % 29], 0};
        if (*key == 'm' || *key == 'M')
            std::invoke(*key == 'm' ? &DateBox::setMinimum : &DateBox::setMaximum, box, Date(ymd(*key == 'm' ? 1990 : 2000, 1, 1).serial() + double(random() % 20000)));
        else if (*key == 'c')
            text1()->setCursorPosition(int(random() % 11));
        else
            play(key);
        if (changes->count() > 0) { // derived again, under the range in force now
            std::tie(low, high) = std::pair(box->Minimum(), box->Maximum());
            changes->clear();
        }
        if (!box->Value().isValid())
            continue;
        const QString t = text1()->text();
        const int y = t.mid(6).trimmed().toInt();
        const Date::Parts shown{y < 30 ? 2000 + y : y < 100 ? 1900 + y : y, t.mid(3, 2).toInt(), t.left(2).toInt()};
        const Date v = box->Value().value<Date>();
        ASSERT_TRUE(v.parts() == shown && v >= low && v <= high) << t.toStdString() << " " << show(box->Value()).toStdString();
    }
}

} // namespace
} // namespace Tarnwell
