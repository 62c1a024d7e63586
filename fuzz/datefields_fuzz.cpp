// Types digits and blanks, Backspace and Delete into a date mask the way a masked box does, moves
// the caret, and steps the date, over every field order and a few separators, with random bounds.
// After every action the text must still fit the mask, a date read from it must be the one its
// digits show and lie within the bounds, and a stepped date must lie within the bounds and read
// back as itself once written into the mask. The digits are read here, independently.
#include "fuzzinput.h"
#include "maskcheck.h"
#include "datefields/datefields.h"
#include "maskengine/maskengine.h"

#include <QDate>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using Tarnwell::Date;
using Tarnwell::DateFields;
using Tarnwell::MaskEditState;
using Tarnwell::MaskEngine;

namespace {

struct Context {
    const DateFields &fields;
    const MaskEditState &state;
    Date minimum;
    Date maximum;
};

[[noreturn]] void fail(const char *what, const Context &c)
{
    std::fprintf(stderr, "violation: %s\nformat %d separator [%s] bounds %.0f..%.0f\n"
                         "text: [%s] caret %d selection %d\n",
                 what, c.fields.format(), qPrintable(QString(c.fields.separator())),
                 c.minimum.serial(), c.maximum.serial(), qPrintable(c.state.text),
                 c.state.selStart, c.state.selLength);
    std::abort();
}

// Where each order puts its fields: start and length, length 0 reading to the end; a day with
// no start is not typed.
struct Layout {
    int dayStart, dayLength, monthStart, yearStart, yearLength, fixedDay;
};
constexpr std::array<Layout, 5> Layouts = {{
    {0, 2, 3, 6, 0, 0},   // day month year
    {3, 2, 0, 6, 0, 0},   // month day year
    {-1, 0, 0, 3, 0, 1},  // month year, the first
    {-1, 0, 5, 0, 4, 0},  // year month, day 0
    {8, 2, 5, 0, 4, 0},   // year month day
}};

// A field of digits with blanks around it, or -1.
int numberIn(const QString &text, int start, int length)
{
    if (start >= text.size())
        return -1;
    const int end = length == 0 ? int(text.size()) : std::min(int(text.size()), start + length);
    while (start < end && text.at(start) == u' ')
        ++start;
    int last = end;
    while (last > start && text.at(last - 1) == u' ')
        --last;
    if (start == last)
        return -1;
    int value = 0;
    for (int i = start; i < last; ++i) {
        const char16_t u = text.at(i).unicode();
        if (u < u'0' || u > u'9')
            return -1;
        value = std::min(value * 10 + (u - u'0'), 100000);
    }
    return value;
}

// The reading must agree with the digits shown: a real date within the bounds exactly when the
// fields make one, still incomplete exactly when a field is no number.
void checkReading(const Context &c, const DateFields::Reading &reading)
{
    using State = DateFields::State;
    if (!c.fields.isKnownFormat()) {
        if (reading.state != State::Invalid)
            fail("an unknown format read a text", c);
        return;
    }
    const Layout &l = Layouts[c.fields.format()];
    const QString &t = c.state.text;
    const int year = numberIn(t, l.yearStart, l.yearLength);
    const int month = numberIn(t, l.monthStart, 2);
    const int day = l.dayStart < 0 ? l.fixedDay : numberIn(t, l.dayStart, l.dayLength);
    if (year < 0 || month < 0 || day < 0) {
        if (reading.state != State::Intermediate)
            fail("a text with an unfilled field is not Intermediate", c);
        return;
    }
    if (reading.state == State::Intermediate)
        fail("a text of numbers is Intermediate", c);
    const int fullYear = year < 30 ? 2000 + year : year < 100 ? 1900 + year : year;
    const QDate shown(fullYear, month, day);
    const bool real = shown.isValid() && fullYear >= 1601 && fullYear <= 9999;
    const bool inRange = real && Date::fromQDate(shown) >= c.minimum
                         && Date::fromQDate(shown) <= c.maximum;
    if (inRange != reading.isAcceptable())
        fail(inRange ? "a date within the bounds was refused" : "an impossible date was accepted",
             c);
    if (!inRange)
        return;
    const Date::Parts p = reading.date.parts();
    if (p.year != fullYear || p.month != month || p.day != day)
        fail("the date read is not the one shown", c);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const char16_t separators[] = u"/-. #\\x";
    FuzzInput in(data, size);
    const uint8_t header = in.next();
    const int format = header % 7 - 1;
    const QChar separator(separators[(header >> 3) % 7]);
    Date minimum = DateFields::MinimumDate;
    Date maximum = DateFields::MaximumDate;
    if (header & 0x80) {
        // A day count spread over the whole range; the bounds may cross.
        minimum = Date(DateFields::MinimumDate.serial() + in.next16() * 47.0);
        maximum = Date(DateFields::MinimumDate.serial() + in.next16() * 47.0);
    }
    const Date today(DateFields::MinimumDate.serial() + in.next16() * 47.0);

    const DateFields fields(format, separator, QLocale::c());
    const MaskEngine engine(fields.editMask().value_or(QStringLiteral("##/##/####")));
    MaskEditState state{engine.blankTemplate(), 0, 0, false};
    const Context c{fields, state, minimum, maximum};
    const int n = engine.length();

    while (!in.empty()) {
        const uint8_t action = in.next();
        switch (action % 9) {
        case 0: case 1: case 2: case 3: {
            const uint8_t k = in.next() % 11;
            const QChar key = k == 10 ? QLatin1Char(' ') : QChar(char16_t(u'0' + k));
            engine.editMaskedText(state, QStringView(&key, 1));
            break;
        }
        case 4:
            engine.backspace(state);
            break;
        case 5:
            engine.deleteForward(state);
            break;
        case 6:
            state.selStart = in.next() % (n + 1);
            state.selLength = (action & 0x80) ? in.next() % (n + 1 - state.selStart) : 0;
            break;
        case 7: {
            // A value set from outside, as focus-in writes it.
            const QString shown = engine.formatMaskValue(
                fields.dateToEditDigits(Date(DateFields::MinimumDate.serial() + in.next16() * 47.0)));
            if (fields.isKnownFormat() && shown.isEmpty())
                fail("edit digits do not fit the mask", c);
            if (!shown.isEmpty())
                state.text = shown;
            break;
        }
        default: {
            const DateFields::Reading now = fields.parseEditText(state.text, minimum, maximum);
            const Date clamped = DateFields::clampedToday(today, minimum, maximum);
            if (minimum <= maximum && (clamped < minimum || clamped > maximum))
                fail("today clamped outside the bounds", c);
            const Date start = now.isAcceptable() ? now.date : clamped;
            const int caret = in.next() % (n + 2);
            const std::optional<Date> stepped = fields.step(start, caret, (action & 0x80) != 0,
                                                            minimum, maximum);
            if (!stepped)
                break;
            if (*stepped < minimum || *stepped > maximum)
                fail("a step left the bounds", c);
            if (!fields.isKnownFormat())
                break;
            const QString shown = engine.formatMaskValue(fields.dateToEditDigits(*stepped));
            const DateFields::Reading back = fields.parseEditText(shown, minimum, maximum);
            // A month-year text shows no day and reads as the first of the month; a year-month
            // text never reads as a date.
            std::optional<Date> expected = stepped;
            if (format == Tarnwell::twMonthYear) {
                const Date::Parts p = stepped->parts();
                expected = Date::fromYmd(p.year, p.month, 1);
                if (*expected < minimum)
                    expected.reset();
            } else if (format == Tarnwell::twYearMonth) {
                expected.reset();
            }
            if (back.isAcceptable() != expected.has_value() || (expected && back.date != *expected))
                fail("a stepped date does not read back as itself", c);
            state.text = shown;
            break;
        }
        }
        if (!wellFormedForMask(engine, state.text))
            fail("the text no longer fits the mask", c);
        checkReading(c, fields.parseEditText(state.text, minimum, maximum));
    }
    return 0;
}
