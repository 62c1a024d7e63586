// Drives the masked-text engine with a random mask and a random sequence of keystrokes, caret
// moves, selections and pastes, and checks after every step that an accepted edit leaves a
// well-formed text and a refused one leaves the state untouched.
#include "fuzzinput.h"
#include "maskcheck.h"
#include "maskengine/maskengine.h"

#include <tarnwell/error.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

using Tarnwell::MaskEditResult;
using Tarnwell::MaskEditState;
using Tarnwell::MaskEngine;

namespace {

[[noreturn]] void fail(const char *what, const MaskEngine &engine, const MaskEditState &state)
{
    std::fprintf(stderr, "violation: %s\nmask: [%s]\ntext: [%s] selStart %d selLength %d\n", what,
                 qPrintable(engine.mask()), qPrintable(state.text), state.selStart,
                 state.selLength);
    std::abort();
}

// Mostly the mask alphabet, sometimes any byte (control characters, codes 1-4 that read as
// placeholders, the marker code) or a character above 255.
QChar maskChar(FuzzInput &in)
{
    static const char alphabet[] = "#@?&\\\\/:-( ).A";
    const uint8_t b = in.next();
    if (b < 200)
        return QLatin1Char(alphabet[b % (sizeof alphabet - 1)]);
    if (b < 250)
        return QChar(in.next());
    return QChar(0x20AC + (b - 250));
}

// A character as a key or a paste may bring it: printable ASCII mostly, anything else sometimes.
QChar anyChar(FuzzInput &in)
{
    static const char16_t wide[] = {0x20AC, 0x4E2D, 0xFF15, 0x0663, 0xD83D, 0xDE00, 0x00E9, 0x00DF};
    const uint8_t b = in.next();
    if (b < 160)
        return QChar(char16_t(32 + b % 95));
    if (b < 240)
        return QChar(char16_t(in.next()));
    return QChar(wide[b % (sizeof wide / sizeof wide[0])]);
}

void check(const MaskEngine &engine, const MaskEditState &before, const MaskEditState &after,
           const MaskEditResult &result)
{
    if (!result.accepted) {
        if (after.text != before.text || after.selStart != before.selStart
            || after.selLength != before.selLength || result.textChanged)
            fail("a refused edit changed the state", engine, after);
        return;
    }
    if (!wellFormedForMask(engine, after.text))
        fail("an accepted edit left a malformed text", engine, after);
    if (after.selStart < 0 || after.selStart > engine.length() || after.selLength != 0)
        fail("caret outside the text", engine, after);
    if (result.textChanged != (after.text != before.text))
        fail("textChanged disagrees with the text", engine, after);
    if (engine.formatMaskValue(engine.extractMaskValue(after.text, 0)) != after.text)
        fail("normalising a well-formed text changed it", engine, after);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzInput in(data, size);
    const uint8_t header = in.next();

    QString mask;
    for (int i = header % 24; i > 0; --i)
        mask.append(maskChar(in));
    MaskEngine engine;
    MaskEditState state;
    state.text = engine.parseMask(mask);
    if (!wellFormedForMask(engine, state.text))
        fail("the blank template is malformed", engine, state);

    // Sometimes start from whatever a paste could have left in the box.
    if (header & 0x80) {
        state.text.clear();
        for (int i = in.next() % 32; i > 0; --i)
            state.text.append(anyChar(in));
    }

    const int n = engine.length();
    while (!in.empty()) {
        const MaskEditState before = state;
        MaskEditResult result;
        switch (in.next() % 10) {
        case 0: case 1: case 2: case 3: {
            const QChar c = MaskEngine::applyTypedCase(anyChar(in), in.next() % 3);
            result = engine.editMaskedText(state, QStringView(&c, 1));
            break;
        }
        case 4:
            result = engine.backspace(state);
            break;
        case 5:
            result = engine.deleteForward(state);
            break;
        case 6:
            state.selStart = in.next() % (n + 3) - 1;
            state.selLength = 0;
            continue;
        case 7:
            state.selStart = in.next() % (n + 2);
            state.selLength = in.next() % (n + 2);
            continue;
        case 8: {
            QString pasted;
            for (int i = in.next() % 6; i > 0; --i)
                pasted.append(anyChar(in));
            result = engine.editMaskedText(state, pasted, in.next() % 4 == 0 ? in.next() % (n + 2) : -1);
            break;
        }
        default: {
            QString raw;
            for (int i = in.next() % (n + 3); i > 0; --i)
                raw.append(anyChar(in));
            // With no mask the value passes through unchecked; nothing to hold it to.
            const QString shown = engine.isEmpty() ? QString() : engine.formatMaskValue(raw);
            if (!shown.isEmpty() && !wellFormedForMask(engine, shown))
                fail("formatMaskValue built a malformed text", engine, state);
            if (engine.extractMaskValue(state.text, in.next() % 3).size() != engine.inputCount()
                && !engine.isEmpty())
                fail("extractMaskValue lost or gained characters", engine, state);
            if (!shown.isEmpty())
                state.text = shown;
            continue;
        }
        }
        check(engine, before, state, result);
    }
    return 0;
}
