// Creating and destroying a form's worth of MaskBoxes and NumberBoxes against their Qt peers.
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>

#include "sidebyside.h"

#include <QDoubleSpinBox>
#include <QLineEdit>

namespace {

void BM_CreateMaskBoxVsLineEdit(benchmark::State &state)
{
    SideBySide::creation(
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
    SideBySide::creation(
        state, [](QWidget *parent) { new Tarnwell::NumberBox(parent); },
        [](QWidget *parent) { new QDoubleSpinBox(parent); });
}
BENCHMARK(BM_CreateNumberBoxVsDoubleSpinBox)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
