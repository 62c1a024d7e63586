#pragma once
// A fixture that shows a top-level window, activates it and focuses a widget, so that key events
// sent through QTest reach the widget as they would on a real form.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QWidget>

#include <memory>

class WidgetFixture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        window = std::make_unique<QWidget>();
        window->resize(320, 200);
    }
    void TearDown() override { window.reset(); }

    // Shows the window and gives `target` the keyboard focus.
    void showAndFocus(QWidget *target)
    {
        window->show();
        window->activateWindow();
        QApplication::setActiveWindow(window.get());
        (void)QTest::qWaitForWindowExposed(window.get());
        target->setFocus(Qt::OtherFocusReason);
        QApplication::processEvents();
    }

    std::unique_ptr<QWidget> window;
};
