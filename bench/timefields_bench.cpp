// The time fields on their per-keystroke paths: the canonical text and the reading after each
// edit, and one arrow step.
#include "timefields/timefields.h"

#include <benchmark/benchmark.h>

using Tarnwell::Date;
using Tarnwell::TimeFields;

namespace {

const Date Midnight(0.0);
const Date DayEnd(86399.0 / 86400.0);

void BM_TimeFieldsNormalize(benchmark::State &bench)
{
    const TimeFields fields(0);
    const QString text = QStringLiteral("10:30:15 PM");
    for (auto _ : bench)
        benchmark::DoNotOptimize(fields.normalizeTimeText(text));
}
BENCHMARK(BM_TimeFieldsNormalize);

// What the inner change handler runs after a keystroke: 0 a complete entry, 1 the same with the
// "." separator, 2 a half-typed entry.
void BM_TimeFieldsRead(benchmark::State &bench)
{
    const int shape = int(bench.range(0));
    const TimeFields fields(0, QLatin1Char(shape == 1 ? '.' : ':'));
    const QString text = shape == 0 ? QStringLiteral("10:30:15 PM")
                         : shape == 1 ? QStringLiteral("10.30.15 PM")
                                      : QStringLiteral("10:3 :   PM");
    const QString raw = QStringLiteral("103015");
    for (auto _ : bench)
        benchmark::DoNotOptimize(fields.read(text, raw, Midnight, DayEnd));
}
BENCHMARK(BM_TimeFieldsRead)->Arg(0)->Arg(1)->Arg(2);

// The same text read the long way: canonical text, range test and the general date parser.
void BM_TimeFieldsReadThroughParser(benchmark::State &bench)
{
    const TimeFields fields(0);
    const QString text = QStringLiteral("10:30:15 PM");
    for (auto _ : bench) {
        const QString n = fields.normalizeTimeText(text);
        benchmark::DoNotOptimize(TimeFields::isTimeTextInRange(n) ? Date::parse(n) : std::nullopt);
    }
}
BENCHMARK(BM_TimeFieldsReadThroughParser);

void BM_TimeFieldsStep(benchmark::State &bench)
{
    const TimeFields fields(0);
    const Date base(0.4375); // 10:30
    for (auto _ : bench)
        benchmark::DoNotOptimize(fields.step(base, 4, false, Midnight, DayEnd));
}
BENCHMARK(BM_TimeFieldsStep);

} // namespace
