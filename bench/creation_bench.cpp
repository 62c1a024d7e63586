// Creating and destroying a form's worth of controls: 1,000 of a Tarnwell control against 1,000
// of its closest Qt widget, in the same iterations. Each batch is created in one parent and
// destroyed with it, without an event loop turn in between, the way a form that is built and
// thrown away (or a test) does it; the events the widgets post meanwhile stay queued, so their
// cost counts too. Also reported: the heap each control takes.
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDoubleSpinBox>
#include <QLineEdit>

#include <chrono>
#include <functional>
#include <malloc.h>
#include <memory>

namespace {

using Clock = std::chrono::steady_clock;
constexpr int BatchSize = 1000;
using Factory = std::function<void(QWidget *parent)>;

// Heap in use, in bytes.
size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// One batch: created, then destroyed with its parent. Returns the time taken.
Clock::duration batch(const Factory &make, double *bytesPerControl = nullptr)
{
    const auto t0 = Clock::now();
    auto parent = std::make_unique<QWidget>();
    const size_t before = heapInUse();
    for (int i = 0; i < BatchSize; ++i)
        make(parent.get());
    if (bytesPerControl)
        *bytesPerControl = double(heapInUse() - before) / BatchSize;
    parent.reset();
    return Clock::now() - t0;
}

void sideBySide(benchmark::State &state, const Factory &ours, const Factory &theirs)
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
    const double n = double(state.iterations());
    const double oursMs = std::chrono::duration<double, std::milli>(oursTime).count() / n;
    const double theirsMs = std::chrono::duration<double, std::milli>(theirsTime).count() / n;
    state.counters["ours_ms"] = oursMs;
    state.counters["qt_ms"] = theirsMs;
    state.counters["ours_bytes_each"] = oursBytes;
    state.counters["qt_bytes_each"] = theirsBytes;
    state.counters["ratio"] = theirsMs > 0 ? oursMs / theirsMs : 0;
}

void BM_CreateMaskBoxVsLineEdit(benchmark::State &state)
{
    sideBySide(
        state,
        [](QWidget *parent) {
            auto *box = new Tarnwell::MaskBox(parent);
            box->setMask(QStringLiteral("(###) ###-####"));
        },
        [](QWidget *parent) {
            auto *edit = new QLineEdit(parent);
            edit->setInputMask(QStringLiteral("(999) 999-9999"));
        });
}
BENCHMARK(BM_CreateMaskBoxVsLineEdit)->UseManualTime()->Unit(benchmark::kMillisecond);

void BM_CreateNumberBoxVsDoubleSpinBox(benchmark::State &state)
{
    sideBySide(
        state, [](QWidget *parent) { new Tarnwell::NumberBox(parent); },
        [](QWidget *parent) { new QDoubleSpinBox(parent); });
}
BENCHMARK(BM_CreateNumberBoxVsDoubleSpinBox)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
