// The number box's edit routines without a widget: one keystroke of typing, and one step.
#include "numberengine/numberdisplay.h"
#include "numberengine/numbereditor.h"

#include <tarnwell/constants.h>

#include <benchmark/benchmark.h>

namespace {

using namespace Tarnwell;

NumberDisplay doubleDisplay()
{
    NumberDisplay display(QLocale(QLocale::English, QLocale::UnitedStates));
    display.setDecimalPlaces(2);
    return display;
}

NumberEditState zeroState(const NumberEditor &editor)
{
    NumberEditState state;
    state.dataType = twDouble;
    state.value = QVariant(0.0);
    state.text = editor.showValue(state.value, twDouble);
    return state;
}

void apply(NumberEditState &state, const NumberEditResult &r)
{
    state.text = r.text;
    state.selStart = r.selStart;
    state.selLength = r.selLength;
    state.value = r.value;
}

// Typing "1234567.89" into an empty Double box with two decimals; time per key.
void BM_NumberEditorTypeKey(benchmark::State &bench)
{
    const NumberDisplay display = doubleDisplay();
    const NumberEditor editor(display);
    const char keys[] = "1234567.89";
    for (auto _ : bench) {
        NumberEditState state = zeroState(editor);
        for (const char *k = keys; *k; ++k)
            apply(state, editor.keyPress(state, *k));
        benchmark::DoNotOptimize(state.text.constData());
    }
    bench.SetItemsProcessed(bench.iterations() * int64_t(sizeof keys - 1));
}
BENCHMARK(BM_NumberEditorTypeKey);

// One step up (Value + Increment, re-shown, caret kept) in a Double box showing about 1,234.56.
void BM_NumberEditorStep(benchmark::State &bench)
{
    const NumberDisplay display = doubleDisplay();
    const NumberEditor editor(display);
    NumberEditState state = zeroState(editor);
    state.value = QVariant(1234.56);
    state.text = editor.showValue(state.value, twDouble);
    state.selStart = 3;
    for (auto _ : bench) {
        const NumberEditResult r = editor.step(state, true);
        benchmark::DoNotOptimize(r.text.constData());
    }
    bench.SetItemsProcessed(bench.iterations());
}
BENCHMARK(BM_NumberEditorStep);

} // namespace
