// The number box's edit routines without a widget: one keystroke of typing, and one step.
#include "numberengine/numbereditor.h"

#include <tarnwell/constants.h>

#include <benchmark/benchmark.h>

namespace {

using namespace Tarnwell;

NumberEditor doubleEditor()
{
    NumberDisplay display(QLocale(QLocale::English, QLocale::UnitedStates));
    display.setDecimalPlaces(2);
    return NumberEditor(display, NumberRules(twDouble));
}

NumberEditState stateFor(const NumberEditor &editor, const QVariant &value)
{
    NumberEditState state;
    state.value = value;
    state.text = editor.showValue(value);
    return state;
}

// Typing "1234567.89" into an empty Double box with two decimals; time per key.
void BM_NumberEditorTypeKey(benchmark::State &bench)
{
    const NumberEditor editor = doubleEditor();
    const NumberEditState zero = stateFor(editor, QVariant(0.0));
    const char keys[] = "1234567.89";
    for (auto _ : bench) {
        NumberEditState state = zero;
        for (const char *k = keys; *k; ++k)
            editor.keyPress(state, *k);
        benchmark::DoNotOptimize(state.text.constData());
    }
    bench.SetItemsProcessed(bench.iterations() * int64_t(sizeof keys - 1));
}
BENCHMARK(BM_NumberEditorTypeKey);

// One step up (Value + Increment, re-shown, caret kept) in a Double box showing about 1,234.56.
void BM_NumberEditorStep(benchmark::State &bench)
{
    const NumberEditor editor = doubleEditor();
    NumberEditState start = stateFor(editor, QVariant(1234.56));
    start.selStart = 3;
    for (auto _ : bench) {
        NumberEditState state = start;
        editor.step(state, true);
        benchmark::DoNotOptimize(state.text.constData());
    }
    bench.SetItemsProcessed(bench.iterations());
}
BENCHMARK(BM_NumberEditorStep);

} // namespace
