// The up-down button: Change on every press and every set, and repeat while held.
#include "shared/updownbutton.h"

#include "common/testsupport.h"

using Tarnwell::UpDownButton;

namespace {

class UpDown : public ::testing::Test
{
public:
    void SetUp() override
    {
        button.resize(17, 22);
        button.show();
        (void)QTest::qWaitForWindowExposed(&button);
        QObject::connect(&button, &UpDownButton::Change, [this] { values.push_back(button.Value()); });
    }
    QPoint upPoint() const { return button.partRect(UpDownButton::UpPart).center(); }
    QPoint downPoint() const { return button.partRect(UpDownButton::DownPart).center(); }

    UpDownButton button;
    std::vector<int> values; // Value seen by each Change
};

struct ChangeRow { const char *name; std::function<void(UpDown &)> action; std::vector<int> seen; };
class UpDownChanges : public UpDown, public ::testing::WithParamInterface<ChangeRow> {};

TEST_P(UpDownChanges, OnEveryPressAndEverySet)
{
    GetParam().action(*this);
    EXPECT_EQ(values, GetParam().seen);
}

void click(UpDown &t, Qt::MouseButton button, QPoint at) { QTest::mouseClick(&t.button, button, {}, at); }

INSTANTIATE_TEST_SUITE_P(Table, UpDownChanges, ::testing::Values(
    ChangeRow{"UpPress", [](UpDown &t) { click(t, Qt::LeftButton, t.upPoint()); }, {1}},
    ChangeRow{"DownPress", [](UpDown &t) { click(t, Qt::LeftButton, t.downPoint()); }, {0}},
    ChangeRow{"SetToTheSameValue", [](UpDown &t) { t.button.setValue(0); t.button.setValue(0); }, {0, 0}},
    ChangeRow{"RightButtonIgnored", [](UpDown &t) { click(t, Qt::RightButton, t.upPoint()); }, {}},
    ChangeRow{"ValueThroughTheProperty", [](UpDown &t) { t.button.setProperty("Value", 5); }, {5}}),
    TestSupport::rowName);

TEST_F(UpDown, RepeatsWhileHeldAndStopsOnRelease)
{
    QTest::mousePress(&button, Qt::LeftButton, {}, upPoint());
    QTest::qWait(UpDownButton::RepeatDelay - 150);
    EXPECT_EQ(values.size(), 1u) << "no repeat before the initial delay";
    QTest::qWait(150 + 4 * UpDownButton::RepeatInterval);
    const size_t held = values.size();
    EXPECT_GE(held, 3u);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, upPoint());
    QTest::qWait(3 * UpDownButton::RepeatInterval);
    EXPECT_EQ(values.size(), held) << "repeat stops on release";
    for (int v : values)
        EXPECT_EQ(v, 1);
}

TEST_F(UpDown, RepeatPausesOffTheButtonAndStopsWhenHidden)
{
    QTest::mousePress(&button, Qt::LeftButton, {}, downPoint());
    QTest::mouseMove(&button, QPoint(-20, -20));
    QTest::qWait(UpDownButton::RepeatDelay + 3 * UpDownButton::RepeatInterval);
    EXPECT_EQ(values.size(), 1u) << "no repeat with the pointer off the pressed part";
    button.hide();
    EXPECT_EQ(button.pressedPart(), UpDownButton::NoPart);
}

} // namespace
