// Per-call cost of the date primitives that DateBox and TimeBox run on every keystroke and refresh.
#include "platform/dateformat.h"

#include <tarnwell/date.h>

#include <benchmark/benchmark.h>

using Tarnwell::Date;

namespace {

void BM_DateFromYmd(benchmark::State &state)
{
    int day = 1;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Date::fromYmd(2024, 3, day));
        day = day % 28 + 1;
    }
}
BENCHMARK(BM_DateFromYmd);

void BM_DateParts(benchmark::State &state)
{
    double serial = 45358.75;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Date(serial).parts());
        serial += 1.5;
    }
}
BENCHMARK(BM_DateParts);

void BM_DateFormatDayMonthYear(benchmark::State &state)
{
    const QString pattern = QStringLiteral("dd/mm/yyyy");
    const QLocale locale;
    const Date date(45358.75);
    for (auto _ : state)
        benchmark::DoNotOptimize(Tarnwell::DateFormat::format(date, pattern, locale));
}
BENCHMARK(BM_DateFormatDayMonthYear);

void BM_DateFormatDisplay(benchmark::State &state)
{
    const QString pattern = QStringLiteral("dd/mmm/yyyy");
    const QLocale locale;
    const Date date(45358.75);
    for (auto _ : state)
        benchmark::DoNotOptimize(Tarnwell::DateFormat::format(date, pattern, locale));
}
BENCHMARK(BM_DateFormatDisplay);

void BM_DateParseNumeric(benchmark::State &state)
{
    const QString text = QStringLiteral("3/7/2024 2:30 PM");
    const QLocale locale;
    for (auto _ : state)
        benchmark::DoNotOptimize(Date::parse(text, locale));
}
BENCHMARK(BM_DateParseNumeric);

void BM_DateParseMonthName(benchmark::State &state)
{
    const QString text = QStringLiteral("7 Dec 2024");
    const QLocale locale;
    for (auto _ : state)
        benchmark::DoNotOptimize(Date::parse(text, locale));
}
BENCHMARK(BM_DateParseMonthName);

} // namespace
