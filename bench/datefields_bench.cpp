// The date fields on a date box's per-keystroke paths: reading the typed text back after every
// change, and one step of the up-down button or an arrow key.
#include "datefields/datefields.h"

#include <benchmark/benchmark.h>

using Tarnwell::Date;
using Tarnwell::DateFields;

namespace {

// A full, valid text, read back into a date and checked against a range.
void BM_DateFieldsParseFullText(benchmark::State &bench)
{
    const DateFields fields(Tarnwell::twDayMonthYear, QLatin1Char('/'));
    const QString text = QStringLiteral("07/03/2024");
    const Date minimum = Date::fromYmd(1990, 1, 1);
    const Date maximum = Date::fromYmd(2030, 12, 31);
    for (auto _ : bench)
        benchmark::DoNotOptimize(fields.parseEditText(text, minimum, maximum));
}
BENCHMARK(BM_DateFieldsParseFullText);

// The text while the year is still being typed, the commonest reading that is no date.
void BM_DateFieldsParseHalfTyped(benchmark::State &bench)
{
    const DateFields fields(Tarnwell::twDayMonthYear, QLatin1Char('/'));
    const QString text = QStringLiteral("07/03/    ");
    for (auto _ : bench)
        benchmark::DoNotOptimize(fields.parseEditText(text));
}
BENCHMARK(BM_DateFieldsParseHalfTyped);

// One step of the month under the caret, with roll-over, alternately up and down.
void BM_DateFieldsStepMonth(benchmark::State &bench)
{
    const DateFields fields(Tarnwell::twDayMonthYear, QLatin1Char('/'));
    const Date start = Date::fromYmd(2024, 1, 31);
    bool up = true;
    for (auto _ : bench) {
        benchmark::DoNotOptimize(fields.step(start, 3, up));
        up = !up;
    }
}
BENCHMARK(BM_DateFieldsStepMonth);

} // namespace
