// A telephone number typed into MaskBox and into Qt's own line edit with the equivalent input
// mask, key by key through the event system, so that the whole keystroke path is timed: the
// control's key pipeline and engine against QLineEdit's built-in mask handling.
#include <tarnwell/maskbox.h>

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWidget>

#include <array>
#include <chrono>
#include <memory>

namespace {

constexpr int KeyCount = 10;
const char TypedDigits[KeyCount + 1] = "5551234567";

// One window holding both contestants; the key events are built once.
struct Harness
{
    Harness()
    {
        window.resize(300, 120);
        box = new Tarnwell::MaskBox(&window);
        box->setMask(QStringLiteral("(###) ###-####"));
        box->setSelectTextOnFocus(false);
        edit = new QLineEdit(&window);
        edit->move(0, 60);
        edit->setInputMask(QStringLiteral("(999) 999-9999"));
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
        boxTarget = box->findChild<QLineEdit *>(QStringLiteral("Text1"));
        for (int i = 0; i < KeyCount; ++i) {
            texts[size_t(i)] = QString(QChar::fromLatin1(TypedDigits[i]));
            keys[size_t(i)] = Qt::Key_0 + (TypedDigits[i] - '0');
        }
    }

    void resetBox()
    {
        box->setValue(QString());
        box->setSelStart(0);
        boxTarget->setFocus();
    }
    void resetEdit()
    {
        edit->setText(QString());
        edit->setCursorPosition(0);
        edit->setFocus();
    }
    // Press and release of every digit, sent to the focused line edit.
    void type(QLineEdit *target) const
    {
        for (int i = 0; i < KeyCount; ++i) {
            QKeyEvent press(QEvent::KeyPress, keys[size_t(i)], Qt::NoModifier, texts[size_t(i)]);
            QApplication::sendEvent(target, &press);
            QKeyEvent release(QEvent::KeyRelease, keys[size_t(i)], Qt::NoModifier,
                              texts[size_t(i)]);
            QApplication::sendEvent(target, &release);
        }
    }

    QWidget window;
    Tarnwell::MaskBox *box = nullptr;
    QLineEdit *edit = nullptr;
    QLineEdit *boxTarget = nullptr;
    std::array<QString, KeyCount> texts;
    std::array<int, KeyCount> keys{};
};

// Built on first use and destroyed with the application's post routines, before the
// QApplication it needs goes away.
Harness *harnessInstance = nullptr;

Harness &harness()
{
    if (!harnessInstance) {
        harnessInstance = new Harness;
        qAddPostRoutine([] {
            delete harnessInstance;
            harnessInstance = nullptr;
        });
    }
    return *harnessInstance;
}

void perKeystroke(benchmark::State &state)
{
    state.counters["per_keystroke"] = benchmark::Counter(
        KeyCount, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_MaskBoxTypePhone(benchmark::State &state)
{
    Harness &h = harness();
    for (auto _ : state) {
        state.PauseTiming();
        h.resetBox();
        state.ResumeTiming();
        h.type(h.boxTarget);
    }
    if (h.box->Text() != QStringLiteral("(555) 123-4567"))
        state.SkipWithError("MaskBox did not take the number");
    perKeystroke(state);
}
BENCHMARK(BM_MaskBoxTypePhone);

void BM_QLineEditTypePhone(benchmark::State &state)
{
    Harness &h = harness();
    for (auto _ : state) {
        state.PauseTiming();
        h.resetEdit();
        state.ResumeTiming();
        h.type(h.edit);
    }
    if (h.edit->text() != QStringLiteral("(555) 123-4567"))
        state.SkipWithError("QLineEdit did not take the number");
    perKeystroke(state);
}
BENCHMARK(BM_QLineEditTypePhone);

// Both in turn within each iteration, so that they share the machine's state; the counter
// "ratio" is MaskBox time / QLineEdit time (below 1: MaskBox is faster).
void BM_MaskBoxVsQLineEdit(benchmark::State &state)
{
    using Clock = std::chrono::steady_clock;
    Harness &h = harness();
    Clock::duration boxTime{}, editTime{};
    for (auto _ : state) {
        h.resetBox();
        const auto t0 = Clock::now();
        h.type(h.boxTarget);
        const auto t1 = Clock::now();
        h.resetEdit();
        const auto t2 = Clock::now();
        h.type(h.edit);
        const auto t3 = Clock::now();
        boxTime += t1 - t0;
        editTime += t3 - t2;
    }
    const double box = std::chrono::duration<double, std::nano>(boxTime).count();
    const double edit = std::chrono::duration<double, std::nano>(editTime).count();
    const double iterations = double(state.iterations());
    if (iterations > 0 && edit > 0) {
        state.counters["maskbox_ns"] = box / iterations;
        state.counters["qlineedit_ns"] = edit / iterations;
        state.counters["ratio"] = box / edit;
    }
}
BENCHMARK(BM_MaskBoxVsQLineEdit);

} // namespace
