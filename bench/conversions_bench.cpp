// Per-call cost of the numeric conversions and of number formatting: NumberBox runs these on
// every keystroke, so each should stay well under a microsecond.
#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>
#include <tarnwell/variant.h>

#include "platform/numberformat.h"

#include <benchmark/benchmark.h>

#include <QLocale>
#include <QString>
#include <QVariant>

using namespace Tarnwell;

namespace {

void BM_ToIntegerFromText(benchmark::State &state)
{
    const QVariant text(QStringLiteral(" 12,345 "));
    const QLocale locale;
    for (auto _ : state)
        benchmark::DoNotOptimize(Variant::toInteger(text, locale));
}
BENCHMARK(BM_ToIntegerFromText);

void BM_ToIntegerFromDouble(benchmark::State &state)
{
    const QVariant value(12344.5);
    const QLocale locale;
    for (auto _ : state)
        benchmark::DoNotOptimize(Variant::toInteger(value, locale));
}
BENCHMARK(BM_ToIntegerFromDouble);

void BM_IsNumericText(benchmark::State &state)
{
    const QVariant text(QStringLiteral("-1,234,567.89"));
    const QLocale locale;
    for (auto _ : state)
        benchmark::DoNotOptimize(Variant::isNumeric(text, locale));
}
BENCHMARK(BM_IsNumericText);

void BM_ToCurrencyFromText(benchmark::State &state)
{
    const QVariant text(QStringLiteral("$1,234,567.8912"));
    const QLocale locale;
    for (auto _ : state)
        benchmark::DoNotOptimize(Variant::toCurrency(text, locale));
}
BENCHMARK(BM_ToCurrencyFromText);

void BM_DecimalParse(benchmark::State &state)
{
    const QString text = QStringLiteral("-7922816251426433.7593543950335");
    const QLocale locale = QLocale::c();
    for (auto _ : state)
        benchmark::DoNotOptimize(Decimal::parse(text, locale));
}
BENCHMARK(BM_DecimalParse);

void BM_DecimalAddDifferentScales(benchmark::State &state)
{
    const Decimal a = Decimal::parse(QStringLiteral("12345678901234567.123"), QLocale::c());
    const Decimal b = Decimal::parse(QStringLiteral("0.0000000001"), QLocale::c());
    for (auto _ : state)
        benchmark::DoNotOptimize(a + b);
}
BENCHMARK(BM_DecimalAddDifferentScales);

void BM_DecimalToString(benchmark::State &state)
{
    const Decimal a = Decimal::parse(QStringLiteral("-7922816251426433.7593543950335"), QLocale::c());
    for (auto _ : state)
        benchmark::DoNotOptimize(a.toString());
}
BENCHMARK(BM_DecimalToString);

void formatBench(benchmark::State &state, const QVariant &value)
{
    const QString pattern = QStringLiteral("#,##0.00");
    const QLocale locale;
    for (auto _ : state)
        benchmark::DoNotOptimize(NumberFormat::format(value, pattern, locale));
}

void BM_FormatDouble(benchmark::State &state)
{
    formatBench(state, QVariant(-1234567.891));
}
BENCHMARK(BM_FormatDouble);

void BM_FormatCurrency(benchmark::State &state)
{
    formatBench(state, QVariant::fromValue(Currency::parse(QStringLiteral("-1234567.8912"))));
}
BENCHMARK(BM_FormatCurrency);

void BM_FormatDecimal(benchmark::State &state)
{
    formatBench(state, QVariant::fromValue(Decimal::parse(QStringLiteral("-1234567.891234567"))));
}
BENCHMARK(BM_FormatDecimal);

} // namespace
