#include "sidebyside.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <malloc.h>
#include <memory>

namespace SideBySide {

namespace {

// Heap in use, in bytes.
size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// One batch: created, then destroyed with its parent. Returns the time taken.
Clock::duration batch(const Factory &make, double *bytesPerWidget)
{
    const auto t0 = Clock::now();
    auto parent = std::make_unique<QWidget>();
    const size_t before = heapInUse();
    for (int i = 0; i < CreationBatch; ++i)
        make(parent.get());
    *bytesPerWidget = double(heapInUse() - before) / CreationBatch;
    parent.reset();
    return Clock::now() - t0;
}

} // namespace

void sendKey(QWidget *target, int key, const QString &text)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QCoreApplication::sendEvent(target, &release);
}

void report(benchmark::State &state, Clock::duration ours, Clock::duration theirs)
{
    const double n = double(state.iterations());
    const double oursMs = std::chrono::duration<double, std::milli>(ours).count() / n;
    const double theirsMs = std::chrono::duration<double, std::milli>(theirs).count() / n;
    state.counters["ours_ms"] = oursMs;
    state.counters["qt_ms"] = theirsMs;
    state.counters["ratio"] = theirsMs > 0 ? oursMs / theirsMs : 0;
}

void creation(benchmark::State &state, const Factory &ours, const Factory &theirs)
{
    Clock::duration oursTime{}, theirsTime{};
    double oursBytes = 0, theirsBytes = 0;
    for (auto _ : state) {
        const Clock::duration a = batch(ours, &oursBytes);
        const Clock::duration b = batch(theirs, &theirsBytes);
        // Whatever the batches left for the event loop goes before the next round.
        QCoreApplication::sendPostedEvents();
        oursTime += a;
        theirsTime += b;
        state.SetIterationTime(std::chrono::duration<double>(a + b).count());
    }
    state.counters["ours_bytes_each"] = oursBytes;
    state.counters["qt_bytes_each"] = theirsBytes;
    report(state, oursTime, theirsTime);
}

} // namespace SideBySide
