// The up-down button: Change on every press and every set, and repeat while held.
#include "shared/updownbutton.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

using Tarnwell::UpDownButton;

namespace {

class UpDown : public ::testing::Test
{
protected:
    void SetUp() override
    {
        button.resize(17, 22);
        button.show();
        (void)QTest::qWaitForWindowExposed(&button);
        connect();
    }
    void connect()
    {
        QObject::connect(&button, &UpDownButton::Change, [this] { values.push_back(button.Value()); });
    }
    QPoint upPoint() const { return button.partRect(UpDownButton::UpPart).center(); }
    QPoint downPoint() const { return button.partRect(UpDownButton::DownPart).center(); }

    UpDownButton button;
    std::vector<int> values; // Value seen by each Change
};

TEST_F(UpDown, ChangeOnEveryPressAndEverySet)
{
    struct {
        const char *step;
        std::function<void()> action;
        std::vector<int> seen;
    } rows[] = {
        {"up press", [&] { QTest::mouseClick(&button, Qt::LeftButton, {}, upPoint()); }, {1}},
        {"reset to 0", [&] { button.setValue(0); }, {1, 0}},
        {"set to same value", [&] { button.setValue(0); }, {1, 0, 0}},
        {"down press", [&] { QTest::mouseClick(&button, Qt::LeftButton, {}, downPoint()); }, {1, 0, 0, 0}},
        {"right button ignored", [&] { QTest::mouseClick(&button, Qt::RightButton, {}, upPoint()); }, {1, 0, 0, 0}},
        {"disabled ignores press", [&] {
             button.setEnabled(false);
             QTest::mouseClick(&button, Qt::LeftButton, {}, upPoint());
             button.setEnabled(true);
         }, {1, 0, 0, 0}},
        {"Value through the property", [&] { button.setProperty("Value", 5); }, {1, 0, 0, 0, 5}},
    };
    for (const auto &row : rows) {
        row.action();
        EXPECT_EQ(values, row.seen) << row.step;
    }
}

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
