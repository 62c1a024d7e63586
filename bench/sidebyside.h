#pragma once
// Helpers of the side-by-side benchmarks: a Tarnwell control and its closest Qt widget timed in
// the same iterations, the ratio (ours over Qt's) reported as the "ratio" counter that
// scripts/bench.sh prints at the end.
#include <benchmark/benchmark.h>

#include <QString>
#include <QWidget>

#include <chrono>
#include <functional>

namespace SideBySide {

using Clock = std::chrono::steady_clock;
// Makes one widget in `parent`.
using Factory = std::function<void(QWidget *parent)>;

constexpr int CreationBatch = 1000;

// A key pressed and released on `target`, as the keyboard delivers it to the focus widget.
void sendKey(QWidget *target, int key, const QString &text = QString());

// Reports the two accumulated times (and any extra counters already set) with their ratio.
void report(benchmark::State &state, Clock::duration ours, Clock::duration theirs);

// Creating and destroying CreationBatch controls against as many Qt widgets, each batch created in
// one parent and destroyed with it without an event-loop turn in between, the way a form that is
// built and thrown away (or a test) does it: the events the widgets post meanwhile stay queued,
// so their cost counts too. Also reported: the heap each control takes.
void creation(benchmark::State &state, const Factory &ours, const Factory &theirs);

} // namespace SideBySide
