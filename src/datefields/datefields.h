#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/date.h>
#include <tarnwell/global.h>

#include "platform/calendarrange.h"

#include <QChar>
#include <QLocale>
#include <QString>
#include <QStringView>

#include <optional>

namespace Tarnwell {

// The date logic under a date box: a field order (`Format`, a twDateFormatConstants value or any
// other number) and a separator compiled once, with const queries for everything the box asks
// while the user types and steps. A pure value class: no widget, no signals; copy it freely.
//
// While the box has focus it edits a numeric mask ("##/##/####" for the day-first order, the
// separator as the literal between the fields); the text is read back field by field at fixed
// positions, the year from its first position to the end of the text. Without focus the box shows
// the date through a display pattern ("dd/mmm/yyyy"). An unknown format has no mask, no pattern
// and no digits, and no typed text reads as a date in it.
//
// Typical use by a date box:
//   focus in:        mask = editMask(), value = dateToEditDigits(date);
//   text changed:    reading = parseEditText(text, minimum, maximum);
//   Up/Down/button:  step(start, caret, up, minimum, maximum), start from clampedToday() when the
//                    box holds no valid date.
class DateFields
{
public:
    // A typed text's standing, as Qt's date-time parser reports it.
    enum class State {
        Invalid,      // the fields are numbers but no date in the range comes of them
        Intermediate, // a field is not (yet) a number: unfilled placeholders, a lone blank
        Acceptable,   // a real calendar date within the range
    };

    // Why a text is no date: the first check that failed, in the order fields are numbers, they
    // fit 16 bits, month and day are within 1-12 and 1-31, the year is one the date type holds,
    // the day exists in that month, the date is within the bounds.
    enum class Reason {
        None,            // Acceptable
        NotANumber,      // Intermediate: a field does not read as a number
        FieldOverflow,   // a field reads as a number outside the 16-bit range
        NoSuchDay,       // the month or the day does not survive the date's construction
        Unrepresentable, // the built date is outside the years the calendar holds
        BeforeMinimum,
        AfterMaximum,
        UnknownFormat,   // no field positions at all
    };

    struct Reading {
        State state = State::Intermediate;
        Reason reason = Reason::NotANumber;
        Date date; // the date read when Acceptable, else serial 0

        bool isAcceptable() const { return state == State::Acceptable; }
    };

    enum class Field { None, Day, Month, Year };

    // What a step at a caret position does: the field and how far it moves (+1 or -1).
    struct StepTarget {
        Field field = Field::None;
        int delta = 0;
        friend constexpr bool operator==(const StepTarget &, const StepTarget &) = default;
    };

    // One field converted as a 16-bit integer by the host's rules.
    struct FieldNumber {
        enum Kind { Number, NotANumber, Overflow } kind = NotANumber;
        qint16 value = 0;
        friend constexpr bool operator==(const FieldNumber &, const FieldNumber &) = default;
    };

    // The range of the date picker the box keeps its bounds in, and the defaults of Minimum and
    // Maximum.
    static constexpr Date MinimumDate = CalendarRange::First;
    static constexpr Date MaximumDate = CalendarRange::Last;

    // twDayMonthYear with "/".
    DateFields();
    // Fields are read as numbers with `locale`'s rules (its grouping character matters when it is
    // a blank); the locale's characters are taken now, not on every call.
    explicit DateFields(int format, QChar separator = QLatin1Char('/'),
                        const QLocale &locale = QLocale());

    int format() const { return m_format; }
    QChar separator() const { return m_separator; }
    // One of the five field orders.
    bool isKnownFormat() const { return m_row >= 0; }

    // The numeric edit mask with the separator as its literal ("##-##-####"); nothing for an
    // unknown format, whose box keeps whatever mask it has. A separator that means something in
    // the mask language is escaped; one with code 1 to 4 cannot be a literal there at all.
    std::optional<QString> editMask() const;
    // The length of a full edit text (10 or 7); 0 for an unknown format.
    int editLength() const { return m_editLength; }
    // The unfocused display pattern of the format with the separator for every "/"
    // ("dd-mmm-yyyy"); nothing for an unknown format.
    std::optional<QString> displayPattern() const;

    // The edit digits: two-digit day and month and four-digit year in the field order, without
    // separators ("20240307" for 7 March 2024 year first). Empty for an unknown format.
    QString dateToEditDigits(Date date) const;
    // The same into `out`, reusing its buffer.
    void dateToEditDigits(Date date, QString &out) const;

    // Reads a typed text (literals included) back into a date, checked to be a real calendar date
    // within minimum..maximum. Years below 100 go to the date's construction as they are, so they
    // follow its two-digit window here as in the bounds.
    Reading parseEditText(QStringView text, Date minimum = MinimumDate,
                          Date maximum = MaximumDate) const;

    // The field a step at `caret` (a 0-based selection start) changes and by how much; no field
    // for an unknown format, a negative caret or a dead position.
    StepTarget stepTarget(int caret, bool up) const;
    // One step from `start`: the target field moved, the date rebuilt with roll-over (day 32 is
    // the next month's first, day 0 the previous month's last; no wrap inside a field). Where no
    // field moves the start date itself is rebuilt. Nothing when the date cannot be built or
    // falls outside minimum..maximum. The time of day is dropped.
    std::optional<Date> step(Date start, int caret, bool up, Date minimum = MinimumDate,
                             Date maximum = MaximumDate) const;

    // Where stepping starts in a box that holds no valid date: `today`, or the maximum if today
    // is after it, else the minimum if today is before it.
    static Date clampedToday(Date today, Date minimum, Date maximum);

    // One field as the host converts it to a 16-bit integer (blanks around it, this locale's
    // grouping and decimal characters, banker's rounding).
    FieldNumber readField(QStringView field) const;

private:
    int m_format = twDayMonthYear;
    int m_row = -1;
    int m_editLength = 0;
    QChar m_separator;
    bool m_blankGroups = false;
    QLocale m_locale;
    QString m_editMask;
    QString m_displayPattern;
};

} // namespace Tarnwell
