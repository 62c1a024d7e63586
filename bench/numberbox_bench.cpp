// NumberBox against the closest Qt widget, QDoubleSpinBox (two decimals, group separators shown),
// with the same event delivery: QKeyEvents sent to each one's focused inner line edit. Each
// benchmark times both sides in the same iterations and reports their ratio (NumberBox time over
// spin box time), so machine noise hits both alike.
#include <tarnwell/numberbox.h>

#include "sidebyside.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QTest>

#include <chrono>
#include <memory>

namespace {

using SideBySide::sendKey;

using Clock = std::chrono::steady_clock;

struct Widgets
{
    Widgets()
    {
        window.resize(300, 100);
        box = new Tarnwell::NumberBox(&window);
        box->setDataType(Tarnwell::twDouble);
        box->setDecimalPlaces(2);
        box->setInterceptArrowKeys(true);
        spin = new QDoubleSpinBox(&window);
        spin->move(0, 40);
        spin->setDecimals(2);
        spin->setGroupSeparatorShown(true);
        spin->setRange(-1e12, 1e12);
        boxEdit = box->findChild<QLineEdit *>(QStringLiteral("Text1"));
        spinEdit = spin->findChild<QLineEdit *>();
        window.show();
        window.activateWindow();
        QApplication::setActiveWindow(&window);
        (void)QTest::qWaitForWindowExposed(&window);
    }

    QWidget window;
    Tarnwell::NumberBox *box;
    QDoubleSpinBox *spin;
    QLineEdit *boxEdit;
    QLineEdit *spinEdit;
};

void typeInto(QLineEdit *edit, const QString &keys)
{
    edit->setFocus();
    edit->selectAll();
    for (const QChar c : keys)
        sendKey(edit, c.unicode(), QString(c));
}

void stepUp(QLineEdit *edit, int times)
{
    edit->setFocus();
    for (int i = 0; i < times; ++i)
        sendKey(edit, Qt::Key_Up, QString());
}

void report(benchmark::State &state, Clock::duration ours, Clock::duration theirs)
{
    const double oursUs = std::chrono::duration<double, std::micro>(ours).count();
    const double theirsUs = std::chrono::duration<double, std::micro>(theirs).count();
    const double n = double(state.iterations());
    state.counters["numberbox_us"] = oursUs / n;
    state.counters["spinbox_us"] = theirsUs / n;
    state.counters["ratio"] = theirsUs > 0 ? oursUs / theirsUs : 0;
}

// "1234567.89" typed over a selected 0.00.
void BM_NumberBoxVsSpinBoxTyping(benchmark::State &state)
{
    Widgets w;
    const QString keys = QStringLiteral("1234567.89");
    Clock::duration ours{}, theirs{};
    for (auto _ : state) {
        w.box->setValue(0);
        w.spin->setValue(0);
        const auto t0 = Clock::now();
        typeInto(w.boxEdit, keys);
        const auto t1 = Clock::now();
        typeInto(w.spinEdit, keys);
        const auto t2 = Clock::now();
        ours += t1 - t0;
        theirs += t2 - t1;
        state.SetIterationTime(std::chrono::duration<double>(t2 - t0).count());
    }
    if (w.boxEdit->text() != QStringLiteral("1,234,567.89"))
        state.SkipWithError("NumberBox did not show 1,234,567.89");
    report(state, ours, theirs);
}
BENCHMARK(BM_NumberBoxVsSpinBoxTyping)->UseManualTime()->Unit(benchmark::kMicrosecond);

// 1000 presses of the Up arrow from 0.
void BM_NumberBoxVsSpinBoxStepping(benchmark::State &state)
{
    Widgets w;
    Clock::duration ours{}, theirs{};
    for (auto _ : state) {
        w.box->setValue(0);
        w.spin->setValue(0);
        const auto t0 = Clock::now();
        stepUp(w.boxEdit, 1000);
        const auto t1 = Clock::now();
        stepUp(w.spinEdit, 1000);
        const auto t2 = Clock::now();
        ours += t1 - t0;
        theirs += t2 - t1;
        state.SetIterationTime(std::chrono::duration<double>(t2 - t0).count());
    }
    if (w.boxEdit->text() != QStringLiteral("1,000.00") || w.spin->value() != 1000)
        state.SkipWithError("a thousand steps did not reach 1,000.00");
    report(state, ours, theirs);
}
BENCHMARK(BM_NumberBoxVsSpinBoxStepping)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
