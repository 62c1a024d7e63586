// The masked-text engine on its hot paths: one keystroke, and the conversions run on leaving the
// box and on Value.
#include "maskengine/maskengine.h"

#include <benchmark/benchmark.h>

using Tarnwell::MaskEditState;
using Tarnwell::MaskEngine;

namespace {

const QString PhoneMask = QStringLiteral("(###) ###-####");

// Ten digits typed into a blank phone field, one editMaskedText per digit; the counter reports
// the time per keystroke.
void BM_MaskEngineTypePhoneNumber(benchmark::State &bench)
{
    const MaskEngine engine(PhoneMask);
    static const char16_t digits[] = u"5551234567";
    MaskEditState state;
    for (auto _ : bench) {
        state.text = engine.blankTemplate();
        state.selStart = 0;
        state.selLength = 0;
        for (int i = 0; i < 10; ++i)
            benchmark::DoNotOptimize(engine.editMaskedText(state, QStringView(digits + i, 1)));
        benchmark::DoNotOptimize(state.text.constData());
    }
    bench.counters["per_keystroke"] = benchmark::Counter(
        10, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_MaskEngineTypePhoneNumber);

// A keystroke into a full field, the commonest refusal.
void BM_MaskEngineRefuseFullField(benchmark::State &bench)
{
    const MaskEngine engine(PhoneMask);
    MaskEditState state{engine.formatMaskValue(QStringLiteral("5551234567")), 3, 0, false};
    for (auto _ : bench)
        benchmark::DoNotOptimize(engine.editMaskedText(state, u"9"));
}
BENCHMARK(BM_MaskEngineRefuseFullField);

void BM_MaskEngineFormat(benchmark::State &bench)
{
    const MaskEngine engine(PhoneMask);
    const QString raw = QStringLiteral("5551234567");
    for (auto _ : bench)
        benchmark::DoNotOptimize(engine.formatMaskValue(raw));
}
BENCHMARK(BM_MaskEngineFormat);

void BM_MaskEngineExtract(benchmark::State &bench)
{
    const MaskEngine engine(PhoneMask);
    const QString shown = QStringLiteral("(555) 123-4567");
    for (auto _ : bench)
        benchmark::DoNotOptimize(engine.extractMaskValue(shown, 1));
}
BENCHMARK(BM_MaskEngineExtract);

void BM_MaskEngineParse(benchmark::State &bench)
{
    MaskEngine engine;
    for (auto _ : bench)
        benchmark::DoNotOptimize(engine.parseMask(PhoneMask));
}
BENCHMARK(BM_MaskEngineParse);

} // namespace
