// Drives a time box the way its inner masked box is driven: digits, blanks, A and P, Backspace,
// Delete, caret moves and selections through the masked-text engine with the time mask (the mask
// replaced on an A/P switch), arrow steps, Value sets and focus loss through the time fields. After
// every action the text must be well formed for the current mask, and what the box reads from it
// must be what this file's own reading of the text says; a step must stay in range and read back
// from the box as the same time of day.
#include "fuzzinput.h"
#include "maskcheck.h"
#include "maskengine/maskengine.h"
#include "timefields/timefields.h"

#include <tarnwell/clock.h>

#include <QDate>
#include <QLocale>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using Tarnwell::Date;
using Tarnwell::MaskEditState;
using Tarnwell::MaskEngine;
using Tarnwell::TimeFields;

namespace {

constexpr int Day = 86400;
constexpr int ThisYear = 2024; // the pinned clock's year: no reading may depend on it

// A moment of the day, to the second (17 bits cover a day).
int secondOfDay(FuzzInput &in)
{
    const int high = in.next() & 1;
    return (high << 16 | in.next16()) % Day;
}

struct Box
{
    TimeFields fields;
    MaskEngine engine;
    MaskEditState state;
    Date minimum, maximum;
    Date stored;
    bool valid = false;
};

[[noreturn]] void fail(const char *what, const Box &box)
{
    std::fprintf(stderr, "violation: %s\nformat %d separator '%c' mask [%s]\ntext [%s] caret %d+%d\n"
                 "range %.10f .. %.10f stored %.10f valid %d\n", what, box.fields.format(),
                 char(box.fields.separator().unicode()), qPrintable(box.engine.mask()),
                 qPrintable(box.state.text), box.state.selStart, box.state.selLength,
                 box.minimum.serial(), box.maximum.serial(), box.stored.serial(), int(box.valid));
    std::abort();
}

// The fields as the box shows them: two characters each at 0, 3 and 6, digits with blanks
// around; `complete` when every shown field holds a number.
struct Shown
{
    bool complete = true;
    int hour = 0, minute = 0, second = 0;
    bool pm = false;
};

int fieldAt(const QString &text, int at, bool &complete)
{
    const QString field = text.mid(at, 2).trimmed();
    bool ok = !field.isEmpty();
    for (QChar c : field)
        ok = ok && c >= u'0' && c <= u'9';
    complete = complete && ok;
    return ok ? field.toInt() : 0;
}

Shown shownFields(const TimeFields &fields, const QString &text)
{
    Shown s;
    s.hour = fieldAt(text, 0, s.complete);
    s.minute = fieldAt(text, 3, s.complete);
    if (fields.hasSeconds())
        s.second = fieldAt(text, 6, s.complete);
    s.pm = fields.hasAmPm() && text.mid(fields.hasSeconds() ? 9 : 6, 2) == u"PM";
    return s;
}

// 12-hour reading: a PM hour below 12 is 12 more, 12 AM is 0.
int clockHour(int hour, bool pm)
{
    if (!pm)
        return hour == 12 ? 0 : hour;
    return hour < 12 ? hour + 12 : hour;
}

// The box's time as these rules say, in whole seconds from day 0: a time of day, whichever
// separator the box shows (hour 0 is always AM, whatever the marker). -1 for no time.
double expectedSerial(const TimeFields &fields, const QString &text)
{
    const Shown s = shownFields(fields, text);
    if (!s.complete || s.hour > 23 || s.minute > 59 || s.second > 59)
        return -1;
    const int hour = fields.hasAmPm() ? clockHour(s.hour, s.pm && s.hour != 0) : s.hour;
    return double(hour * 3600 + s.minute * 60 + s.second) / Day;
}

// One step by plain arithmetic on seconds from midnight: the field under the caret moves by one,
// below midnight wraps to the end of the day, past the end runs into the next day, and the half
// of the day flips wherever no field is.
int expectedStep(const TimeFields &fields, Date base, int caret, bool up)
{
    const Date::Parts p = base.parts();
    const int second = fields.hasSeconds() ? p.second : 0;
    const int start = p.hour * 3600 + p.minute * 60 + second;
    const int delta = up ? 1 : -1;
    int t;
    if (caret < 3)
        t = p.hour + delta < 0 ? start + 23 * 3600 : start + delta * 3600;
    else if (caret < 6)
        t = start + delta * 60;
    else if (caret < 9 && fields.hasSeconds())
        t = start + delta;
    else
        t = p.hour < 12 ? start + 12 * 3600 : start - 12 * 3600;
    return t < 0 ? t + Day : t;
}

void replaceMask(Box &box, const QString &mask)
{
    // A masked box keeps its raw value across a new mask.
    const QString raw = box.engine.extractMaskValue(box.state.text, 0);
    box.engine.parseMask(mask);
    box.state.text = box.engine.formatMaskValue(raw);
}

// The inner box's change handler.
void reread(Box &box)
{
    const auto r = box.fields.read(box.state.text, box.engine.extractMaskValue(box.state.text, 0),
                                   box.minimum, box.maximum);
    box.valid = r.valid();
    box.stored = box.valid ? r.time : Date();
}

void showStored(Box &box)
{
    if (!box.valid) {
        box.state.text = box.engine.formatMaskValue(QString());
        return;
    }
    const TimeFields::Shown shown = box.fields.shownTime(box.stored);
    if (shown.mask)
        box.engine.parseMask(*shown.mask);
    box.state.text = box.engine.formatMaskValue(shown.digits);
    const Shown s = shownFields(box.fields, box.state.text);
    const Date::Parts p = box.stored.parts();
    const int hour = box.fields.hasAmPm() ? clockHour(s.hour, s.pm) : s.hour;
    if (!s.complete || hour != p.hour || s.minute != p.minute
        || (box.fields.hasSeconds() && s.second != p.second))
        fail("a stored time is shown as another time of day", box);
}

void checkBox(const Box &box)
{
    if (!wellFormedForMask(box.engine, box.state.text))
        fail("the text is malformed for the mask", box);
    const QString &mask = box.engine.mask();
    if (mask != box.fields.mask(TimeFields::DayHalf::AM) && mask != box.fields.mask(TimeFields::DayHalf::PM))
        fail("the mask is not one of the format's", box);
    const auto r = box.fields.read(box.state.text, box.engine.extractMaskValue(box.state.text, 0),
                                   box.minimum, box.maximum);
    const double expected = expectedSerial(box.fields, box.state.text);
    if ((r.state != TimeFields::Reading::NoTime) != (expected >= 0))
        fail("the reading disagrees with the text about having a time", box);
    if (expected >= 0 && std::llround(r.time.serial() * Day) != std::llround(expected * Day))
        fail("the reading is another time than the text", box);
    if (r.valid() != (expected >= 0 && box.minimum <= r.time && r.time <= box.maximum))
        fail("the reading's range check is wrong", box);
    if (box.valid && (box.stored < box.minimum || box.stored > box.maximum))
        fail("a stored time is out of range", box);
}

Date rangeEnd(FuzzInput &in)
{
    switch (in.next() % 5) {
    case 0: return Date(double(secondOfDay(in)) / Day);
    case 1: return Date(double(Day - 1) / Day);
    case 2: return Date(1.0 + double(secondOfDay(in)) / Day); // the next day
    case 3: return Date(45000.0 + double(secondOfDay(in)) / Day); // a date in 2023
    default: return Date(0.0);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    Tarnwell::Clock::pin(QDateTime(QDate(ThisYear, 2, 10), QTime(9, 30)));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzInput in(data, size);
    const uint8_t header = in.next();
    Box box{TimeFields(header % 4, QLatin1Char(header & 4 ? '.' : ':')), {}, {}, {}, {}, {}, false};
    switch (header >> 3 & 3) {
    case 0: box.minimum = Date(0.0); box.maximum = Date(double(Day - 1) / Day); break;
    case 1: box.minimum = Date(Date::MinSerial); box.maximum = Date(Date::MaxSerial); break;
    default: box.minimum = rangeEnd(in); box.maximum = rangeEnd(in); break;
    }
    box.state.text = box.engine.parseMask(*box.fields.mask());
    checkBox(box);

    const int n = box.engine.length();
    while (!in.empty()) {
        MaskEditState &state = box.state;
        bool edited = false;
        const uint8_t action = in.next();
        switch (action % 13) {
        case 0: case 1: case 2: case 3: case 4: {
            const QChar c = action >= 240 ? QLatin1Char(' ') : QChar(u'0' + in.next() % 10);
            edited = box.engine.editMaskedText(state, QStringView(&c, 1)).textChanged;
            break;
        }
        case 5: {
            const int key = "AaPp"[in.next() % 4];
            const auto half = TimeFields::dayHalfOfKey(key);
            if (!box.fields.hasAmPm()) {
                const QChar c = QLatin1Char(char(key));
                if (box.engine.editMaskedText(state, QStringView(&c, 1)).accepted)
                    fail("a letter went into a 24-hour time", box);
                break;
            }
            const auto sw = box.fields.switchDayHalf(state.text, *half, box.minimum, box.maximum);
            if (sw.made != (sw.candidate && box.minimum <= *sw.candidate && *sw.candidate <= box.maximum))
                fail("an A/P switch disagrees with its own candidate", box);
            if (sw.made) {
                const int selStart = state.selStart, selLength = state.selLength;
                replaceMask(box, sw.mask);
                state.selStart = selStart;
                state.selLength = selLength;
                box.stored = *sw.candidate;
                box.valid = true;
                edited = true;
            }
            break;
        }
        case 6:
            edited = box.engine.backspace(state).textChanged;
            break;
        case 7:
            edited = box.engine.deleteForward(state).textChanged;
            break;
        case 8:
            state.selStart = in.next() % (n + 1);
            state.selLength = 0;
            break;
        case 9:
            state.selStart = in.next() % (n + 1);
            state.selLength = in.next() % (n + 1 - state.selStart);
            break;
        case 10: case 11: {
            const bool up = in.next() & 1;
            const Date now(44000.0 + double(secondOfDay(in)) / Day);
            const Date base = box.valid ? box.stored : TimeFields::clampedNow(now, box.minimum, box.maximum);
            const auto next = box.fields.step(base, state.selStart, up, box.minimum, box.maximum);
            const int expected = expectedStep(box.fields, base, state.selStart, up);
            // Past midnight as the platform writes it: the next day plus the time of day.
            const Date expectedTime(expected >= Day ? 1.0 + double(expected - Day) / Day : double(expected) / Day);
            if (next.has_value() != (box.minimum <= expectedTime && expectedTime <= box.maximum))
                fail("a step was taken or refused against its range", box);
            if (!next)
                break;
            if (std::llround(next->serial() * Day) != expected)
                fail("a step moved to another time", box);
            box.stored = *next;
            box.valid = true;
            const int caret = state.selStart;
            showStored(box);
            state.selStart = caret;
            state.selLength = 0;
            break;
        }
        default: {
            // Value set, or leaving the box.
            if (action & 0x80) {
                const Date value(double(secondOfDay(in)) / Day + (in.next() & 1 ? 45000.0 : 0.0));
                box.valid = box.minimum <= value && value <= box.maximum;
                if (box.valid)
                    box.stored = value;
            }
            if (box.valid || (action & 0x80) == 0)
                showStored(box);
            break;
        }
        }
        if (edited)
            reread(box);
        checkBox(box);
    }
    return 0;
}
