#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/date.h>
#include <tarnwell/global.h>

#include <QChar>
#include <QString>
#include <QStringView>

#include <optional>

namespace Tarnwell {

// The time box's logic on plain values: the masks of a time format, the canonical text read from
// what the inner masked box shows, the reading of that text into a time, the A/P switch and the
// step under the caret. Compiled once for a format and a separator; every query is const and
// touches no widget, so a box keeps one and rebuilds it when Format or Separator changes.
//
// The shown text has a fixed layout (zero-based positions): hour at 0, minute at 3, second at 6
// (formats with seconds), the AM/PM marker at 9 (format 0) or 6 (format 1); the separator stands
// at 2 and 5. The masks make the marker a literal, so a box shows "AM" or "PM" from its mask.
//
// Formats 0..3 are the twTimeFormatConstants; any other value is accepted and behaves as a format
// with neither seconds nor AM/PM, but it has no mask: the box then keeps whatever mask it had.
//
// The separator is only the box's look. Whatever it is, a text is turned into a time as the colon
// form of its canonical text: the general date parser would read "10.30" as 30 October, so a box
// with the "." separator would otherwise never hold a time.
class TimeFields
{
public:
    enum class DayHalf { AM, PM };
    // What one step moves, by caret.
    enum class Field { Hour, Minute, Second, DayHalf };

    // The time a box's text stands for, in three states: no time (a field not filled, or the
    // text not a time), a time outside Minimum..Maximum, or a time the box may take as its value.
    struct Reading
    {
        enum State { NoTime, OutOfRange, InRange };
        State state = NoTime;
        // The text read as a date; kept for OutOfRange too, midnight for NoTime.
        Date time;
        bool valid() const { return state == InRange; }
    };

    // The outcome of the A or P key.
    struct DayHalfSwitch
    {
        // The text with the new marker read as a date; none when it is no date.
        std::optional<Date> candidate;
        // The candidate is within Minimum..Maximum: store it and switch the box to `mask`.
        bool made = false;
        // The mask of the chosen half (empty in formats without AM/PM).
        QString mask;
    };

    // What a box shows for a stored time: the digits for the inner box's Value, and the mask to
    // put them in (none for an unknown format: keep the current one).
    struct Shown
    {
        QString digits;
        std::optional<QString> mask;
    };

    // Throws Error(380) for a separator other than ':' and '.'.
    explicit TimeFields(int format = twHourMinuteSecondAMPM, QChar separator = QLatin1Char(':'));

    int format() const { return m_format; }
    QChar separator() const { return m_separator; }
    bool isKnownFormat() const { return m_format >= 0 && m_format <= 3; }
    bool hasSeconds() const { return m_format == 0 || m_format == 2; }
    bool hasAmPm() const { return m_format == 0 || m_format == 1; }

    // The Separator property's rule: exactly one character, ':' or '.'.
    static bool isSeparatorText(QStringView text);

    // The mask for the inner box ("##:##:## \AM", its "\PM" variant, "##.##"), none for an
    // unknown format. Formats without AM/PM have one mask whatever `half` says.
    std::optional<QString> mask(DayHalf half = DayHalf::AM) const;
    // The hint kept with the mask ("HH:MM:SS AM/PM"), none for an unknown format.
    std::optional<QString> formatHint() const;

    // The canonical text of whatever the box shows: "HH:MM[:SS][ AM|PM]" with this separator, or
    // "" when the fields are not all numbers. The fields are the trimmed two characters at 0, 3
    // and (with seconds) 6; they must read as a number once joined, and each must read as a
    // number on its own. Hours stay as typed (no 12/24-hour conversion); the marker is the text's
    // own two characters, forced to "AM" for hour 0 or 24, and "AM" in the formats without it.
    QString normalizeTimeText(QStringView text) const;
    // True when the numbers at 0, 3 and 6 (two characters each, read leniently: what does not
    // start as a number reads as 0) are below 24, 60 and 60. The same test in every format, so a
    // text without seconds reads its blank or its marker there as 0.
    static bool isTimeTextInRange(QStringView text);

    // The time in the box's text, as the inner box's change handler takes it: usable when the
    // canonical text is a date text, is in range as above, and the inner box's raw value
    // (`rawValue`, the characters of its input positions) is not blank; then in range when
    // minimum <= time <= maximum. A box's digits are read without allocating.
    Reading read(QStringView text, QStringView rawValue, Date minimum, Date maximum) const;

    // The digits for a stored time: "HHMMSS" (24-hour) in formats 2 and 3 and any unknown one,
    // "hhmmss AM" / "hhmmss PM" (12-hour) in formats 0 and 1, with the mask of that half.
    Shown shownTime(Date time) const;

    // The half an A or P key asks for (either case), none for any other key.
    static std::optional<DayHalf> dayHalfOfKey(int keyAscii);
    // The A or P key on the box's text: the canonical text with its marker replaced, read as a
    // date and checked against the range. Formats without AM/PM make no switch.
    DayHalfSwitch switchDayHalf(QStringView text, DayHalf half, Date minimum, Date maximum) const;

    // The field a step moves with the caret at `caret`: hour before 3, minute before 6, second
    // before 9 in the formats with seconds, and the half of the day anywhere else.
    Field fieldAt(int caret) const;
    // One step of the field under the caret from `base` (its time of day; seconds only in the
    // formats with seconds). Minutes and seconds carry; below midnight wraps to the day's end;
    // above it the time runs into the next day, which the range usually refuses. The half-day
    // position adds or takes 12 hours whatever the direction, in the 24-hour formats too. The
    // result is a time of day (day 0, day 1 past midnight), or none outside minimum..maximum.
    std::optional<Date> step(Date base, int caret, bool up, Date minimum, Date maximum) const;

    // Where a step starts in an empty box: the time of day of `now`, raised to `minimum` and then
    // lowered to `maximum`.
    static Date clampedNow(Date now, Date minimum, Date maximum);
    static bool inRange(Date value, Date minimum, Date maximum)
    {
        return minimum <= value && value <= maximum;
    }

private:
    struct Fields;
    Fields fieldsOf(QStringView text) const;
    QString canonicalText(const Fields &fields, QChar separator) const;
    QString canonicalText(const Fields &fields) const { return canonicalText(fields, m_separator); }
    std::optional<Date> dateOf(const Fields &fields) const;

    int m_format;
    QChar m_separator;
    QString m_amMask;
    QString m_pmMask;
    QString m_hint;
};

} // namespace Tarnwell
