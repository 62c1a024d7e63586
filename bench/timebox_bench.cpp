// TimeBox against QTimeEdit, side by side: the same keys sent to each one's focused line edit in
// the same iterations, the ratio being TimeBox time over QTimeEdit time.
#include <tarnwell/maskbox.h>
#include <tarnwell/timebox.h>

#include "sidebyside.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimeEdit>

#include <functional>

namespace {

using SideBySide::Clock;
using Tarnwell::Date;

// A shown window with a TimeBox in 24-hour format with seconds and a QTimeEdit showing the same.
// Keys go where a user's would: to the widget with the focus, mdtTime's text box and the time edit.
struct Pair
{
    Pair()
    {
        window.resize(300, 100);
        box = new Tarnwell::TimeBox(&window);
        box->setFormat(Tarnwell::twHourMinuteSecond);
        box->setInterceptArrowKeys(true);
        edit = new QTimeEdit(&window);
        edit->setDisplayFormat(QStringLiteral("HH:mm:ss"));
        edit->setWrapping(true); // so that each of a thousand minute steps moves it, as it moves ours
        edit->move(0, 50);
        boxText = box->findChild<Tarnwell::MaskBox *>(QStringLiteral("mdtTime"))->findChild<QLineEdit *>();
        window.show();
        QApplication::setActiveWindow(&window);
        (void)QTest::qWaitForWindowExposed(&window);
    }

    QWidget window;
    Tarnwell::TimeBox *box;
    QTimeEdit *edit;
    QLineEdit *boxText;
};

// One key, pressed and released, straight to the widget that has the focus.
void click(QWidget *target, Qt::Key key, const QString &text = QString())
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(target, &event);
    }
}

// Each iteration focuses the TimeBox, puts it back (`reset`) and sends it `keys`, then does the
// same with the QTimeEdit; only the keys are timed.
void race(benchmark::State &state, Pair &p, const std::function<void(bool box)> &reset,
          const std::function<void(QWidget *)> &keys)
{
    Clock::duration ours{}, theirs{};
    for (auto _ : state) {
        Clock::duration took[2];
        for (const bool box : {true, false}) {
            QWidget *target = box ? static_cast<QWidget *>(p.boxText) : p.edit;
            target->setFocus();
            reset(box);
            const auto start = Clock::now();
            keys(target);
            took[box ? 0 : 1] = Clock::now() - start;
        }
        ours += took[0];
        theirs += took[1];
        state.SetIterationTime(std::chrono::duration<double>(took[0] + took[1]).count());
    }
    SideBySide::report(state, ours, theirs);
}

// "103015" typed into each, from an empty TimeBox and from the hour of a QTimeEdit at 00:00:00.
void BM_TimeBoxVsTimeEditTyping(benchmark::State &state)
{
    Pair p;
    const QString digits = QStringLiteral("103015");
    const auto reset = [&p](bool box) {
        if (box) {
            p.box->setValue(QVariant());
            p.boxText->setCursorPosition(0);
        } else {
            p.edit->setTime(QTime(0, 0));
            p.edit->setSelectedSection(QDateTimeEdit::HourSection);
        }
    };
    race(state, p, reset, [&digits](QWidget *target) {
        for (const QChar c : digits)
            click(target, Qt::Key(c.unicode()), QString(c));
    });
    if (p.box->Value().value<Date>().toQTime() != QTime(10, 30, 15) || p.edit->time() != QTime(10, 30, 15))
        state.SkipWithError("the two did not take the same time");
}
BENCHMARK(BM_TimeBoxVsTimeEditTyping)->UseManualTime()->Unit(benchmark::kMicrosecond);

// A thousand presses of the Up arrow with the caret on the minutes, from 00:00:00.
void BM_TimeBoxVsTimeEditStepping(benchmark::State &state)
{
    Pair p;
    const auto reset = [&p](bool box) {
        if (box) {
            p.box->setValue(QVariant::fromValue(Date()));
            p.boxText->setCursorPosition(3);
        } else {
            p.edit->setTime(QTime(0, 0));
            p.edit->setCurrentSection(QDateTimeEdit::MinuteSection);
        }
    };
    race(state, p, reset, [](QWidget *target) {
        for (int i = 0; i < 1000; ++i)
            click(target, Qt::Key_Up);
    });
    if (p.boxText->text() != QStringLiteral("16:40:00"))
        state.SkipWithError("a thousand minutes from midnight did not reach 16:40:00");
}
BENCHMARK(BM_TimeBoxVsTimeEditStepping)->UseManualTime()->Unit(benchmark::kMillisecond);

void BM_CreateTimeBoxVsTimeEdit(benchmark::State &state)
{
    SideBySide::creation(
        state, [](QWidget *parent) { new Tarnwell::TimeBox(parent); },
        [](QWidget *parent) { new QTimeEdit(parent); });
}
BENCHMARK(BM_CreateTimeBoxVsTimeEdit)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
