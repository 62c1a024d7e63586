#include "timefields/timefields.h"

#include <tarnwell/error.h>
#include <tarnwell/variant.h>

#include <QVariant>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace Tarnwell {

namespace {

constexpr int HourAt = 0;
constexpr int MinuteAt = 3;
constexpr int SecondAt = 6;
constexpr int SecondsPerDay = 86400;

// How a time text is read, whichever separator the box shows.
constexpr QChar TimeSeparator = u':';

constexpr QStringView AmText = u"AM";
constexpr QStringView PmText = u"PM";

bool isAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

enum class FieldKind { Digits, Blank, Other };

// A trimmed field: one or two ASCII digits (read into `value`), nothing, or anything else.
FieldKind readDigits(QStringView field, int &value)
{
    if (field.isEmpty())
        return FieldKind::Blank;
    value = 0;
    for (QChar c : field) {
        if (!isAsciiDigit(c))
            return FieldKind::Other;
        value = value * 10 + (c.unicode() - u'0');
    }
    return FieldKind::Digits;
}

// The host's lenient read: blanks anywhere are skipped, a sign may lead, digits with one decimal
// point follow, and the first other character ends the number. Text that starts with anything
// else reads as 0.
double lenientNumber(QStringView text)
{
    double value = 0;
    double scale = 1;
    bool negative = false;
    bool started = false;
    bool fraction = false;
    for (QChar c : text) {
        if (c == u' ' || c == u'\t' || c == u'\n' || c == u'\r')
            continue;
        if (!started && (c == u'-' || c == u'+')) {
            negative = c == u'-';
            started = true;
        } else if (isAsciiDigit(c)) {
            started = true;
            const int digit = c.unicode() - u'0';
            if (fraction) {
                scale /= 10;
                value += digit * scale;
            } else {
                value = value * 10 + digit;
            }
        } else if (c == u'.' && !fraction) {
            started = true;
            fraction = true;
        } else {
            break;
        }
    }
    return negative ? -value : value;
}

// The "00" pattern: at least two digits, a minus sign in front of a negative value.
void appendTwoDigits(QString &out, int value)
{
    if (value < 0)
        out.append(u'-');
    const unsigned magnitude = value < 0 ? 0u - unsigned(value) : unsigned(value);
    if (magnitude >= 100) {
        out.append(QString::number(magnitude));
        return;
    }
    out.append(QChar(char16_t(u'0' + magnitude / 10)));
    out.append(QChar(char16_t(u'0' + magnitude % 10)));
}

// The same for a number with a fraction, rounded half away from zero.
void appendTwoDigits(QString &out, double value)
{
    const double rounded = std::floor(std::fabs(value) + 0.5);
    if (value < 0)
        out.append(u'-');
    if (rounded < 1e9)
        appendTwoDigits(out, int(rounded));
    else
        out.append(QString::number(rounded, 'f', 0));
}

bool isBlank(QStringView text)
{
    for (QChar c : text) {
        if (!c.isSpace())
            return false;
    }
    return true;
}

} // namespace

// The fields of a box's text, as the canonical text will hold them.
struct TimeFields::Fields
{
    // False when the text has no canonical form (the canonical text is "").
    bool numeric = false;
    // Every field is one or two ASCII digits, so hour, minute and second are exact and the
    // canonical text is two digits each.
    bool digitsOnly = false;
    int hour = 0;
    int minute = 0;
    double second = 0;
    // The canonical marker: the text's own two characters, or "AM" where it is forced.
    QStringView marker = AmText;

    // Shapes read without the general date parser: digits and a plain AM or PM.
    bool plain() const { return digitsOnly && (marker == AmText || marker == PmText); }
};

TimeFields::TimeFields(int format, QChar separator) : m_format(format), m_separator(separator)
{
    if (separator != u':' && separator != u'.')
        throw Error(Error::InvalidPropertyValue);
    const QString s(separator);
    switch (format) {
    case twHourMinuteSecondAMPM:
        m_amMask = u"##"_qs + s + u"##"_qs + s + u"## \\AM"_qs;
        m_pmMask = u"##"_qs + s + u"##"_qs + s + u"## \\PM"_qs;
        m_hint = u"HH"_qs + s + u"MM"_qs + s + u"SS AM/PM"_qs;
        break;
    case twHourMinuteAMPM:
        m_amMask = u"##"_qs + s + u"## \\AM"_qs;
        m_pmMask = u"##"_qs + s + u"## \\PM"_qs;
        m_hint = u"HH"_qs + s + u"MM AM/PM"_qs;
        break;
    case twHourMinuteSecond:
        m_amMask = u"##"_qs + s + u"##"_qs + s + u"##"_qs;
        m_hint = u"HH"_qs + s + u"MM"_qs + s + u"SS"_qs;
        break;
    case twHourMinute:
        m_amMask = u"##"_qs + s + u"##"_qs;
        m_hint = u"HH"_qs + s + u"MM"_qs;
        break;
    default:
        break;
    }
    if (m_pmMask.isEmpty())
        m_pmMask = m_amMask;
}

bool TimeFields::isSeparatorText(QStringView text)
{
    return text.size() == 1 && (text.front() == u':' || text.front() == u'.');
}

std::optional<QString> TimeFields::mask(DayHalf half) const
{
    if (!isKnownFormat())
        return std::nullopt;
    return half == DayHalf::PM ? m_pmMask : m_amMask;
}

std::optional<QString> TimeFields::formatHint() const
{
    if (!isKnownFormat())
        return std::nullopt;
    return m_hint;
}

TimeFields::Fields TimeFields::fieldsOf(QStringView text) const
{
    Fields f;
    const QStringView hour = text.mid(HourAt, 2).trimmed();
    const QStringView minute = text.mid(MinuteAt, 2).trimmed();
    const QStringView second = hasSeconds() ? text.mid(SecondAt, 2).trimmed() : QStringView();
    int h = 0, m = 0, s = 0;
    const FieldKind kinds[] = {readDigits(hour, h), readDigits(minute, m),
                               hasSeconds() ? readDigits(second, s) : FieldKind::Digits};
    const auto count = [&kinds](FieldKind k) { return std::count(std::begin(kinds), std::end(kinds), k); };
    if (count(FieldKind::Digits) == 3) {
        f.digitsOnly = true;
        f.hour = h;
        f.minute = m;
        f.second = s;
    } else if (count(FieldKind::Other) == 0) {
        // Digits and blank fields, as a box shows while it is being filled: a blank field never
        // reads as a number on its own, so the text is incomplete.
        return f;
    } else {
        // Anything else (the box never shows it): the joined fields must read as a number, and
        // each field on its own as well.
        QString joined;
        joined.reserve(6);
        joined.append(hour).append(minute).append(second);
        if (!Variant::isNumeric(joined))
            return f;
        try {
            f.hour = Variant::toInteger(hour.toString());
            f.minute = Variant::toInteger(minute.toString());
            f.second = hasSeconds() ? Variant::toDouble(second.toString()) : 0.0;
        } catch (const Error &) {
            return f;
        }
    }
    f.numeric = true;
    if (hasAmPm())
        f.marker = text.mid(hasSeconds() ? 9 : 6, 2);
    if (f.hour == 0 || f.hour == 24)
        f.marker = AmText;
    return f;
}

QString TimeFields::canonicalText(const Fields &f, QChar separator) const
{
    if (!f.numeric)
        return QString();
    QString out;
    out.reserve(12);
    appendTwoDigits(out, f.hour);
    out.append(separator);
    appendTwoDigits(out, f.minute);
    if (hasSeconds()) {
        out.append(separator);
        appendTwoDigits(out, f.second);
    }
    if (hasAmPm()) {
        out.append(u' ');
        out.append(f.marker);
    }
    return out;
}

std::optional<Date> TimeFields::dateOf(const Fields &f) const
{
    // The general parser reads "HH:MM[:SS][ AM|PM]" of digits as a time of day on day 0: fields
    // past 23, 59, 59 are no time, and the marker moves 12 to 0 (AM) and 1..11 to 13..23 (PM).
    // Texts are read in their colon form whatever the box shows (see the class comment).
    if (f.plain()) {
        const int second = int(f.second);
        if (f.hour > 23 || f.minute > 59 || second > 59)
            return std::nullopt;
        int hour = f.hour;
        if (hasAmPm()) {
            if (f.marker == AmText && hour == 12)
                hour = 0;
            else if (f.marker == PmText && hour < 12)
                hour += 12;
        }
        return Date(double(hour * 3600 + f.minute * 60 + second) / double(SecondsPerDay));
    }
    return Date::parse(canonicalText(f, TimeSeparator));
}

QString TimeFields::normalizeTimeText(QStringView text) const
{
    return canonicalText(fieldsOf(text));
}

bool TimeFields::isTimeTextInRange(QStringView text)
{
    const double hour = lenientNumber(text.mid(HourAt, 2));
    const double minute = lenientNumber(text.mid(MinuteAt, 2));
    const double second = lenientNumber(text.mid(SecondAt, 2));
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60;
}

TimeFields::Reading TimeFields::read(QStringView text, QStringView rawValue, Date minimum,
                                     Date maximum) const
{
    Reading reading;
    const Fields f = fieldsOf(text);
    if (!f.numeric || isBlank(rawValue))
        return reading;
    std::optional<Date> time;
    if (f.plain()) {
        // Two digits per field: the range test on the canonical text reads these same numbers,
        // and a blank or a marker where the seconds would be reads as 0.
        if (f.hour >= 24 || f.minute >= 60 || f.second >= 60)
            return reading;
        time = dateOf(f);
    } else {
        const QString canonical = canonicalText(f, TimeSeparator);
        if (!isTimeTextInRange(canonical))
            return reading;
        time = Date::parse(canonical);
    }
    if (!time)
        return reading;
    reading.time = *time;
    reading.state = inRange(*time, minimum, maximum) ? Reading::InRange : Reading::OutOfRange;
    return reading;
}

TimeFields::Shown TimeFields::shownTime(Date time) const
{
    const Date::Parts p = time.parts();
    Shown shown;
    shown.digits.reserve(9);
    if (hasAmPm()) {
        const bool pm = p.hour >= 12;
        appendTwoDigits(shown.digits, p.hour % 12 == 0 ? 12 : p.hour % 12);
        appendTwoDigits(shown.digits, p.minute);
        appendTwoDigits(shown.digits, p.second);
        shown.digits.append(pm ? u" PM" : u" AM");
        shown.mask = pm ? m_pmMask : m_amMask;
        return shown;
    }
    appendTwoDigits(shown.digits, p.hour);
    appendTwoDigits(shown.digits, p.minute);
    appendTwoDigits(shown.digits, p.second);
    shown.mask = mask();
    return shown;
}

std::optional<TimeFields::DayHalf> TimeFields::dayHalfOfKey(int keyAscii)
{
    if (keyAscii == 'A' || keyAscii == 'a')
        return DayHalf::AM;
    if (keyAscii == 'P' || keyAscii == 'p')
        return DayHalf::PM;
    return std::nullopt;
}

TimeFields::DayHalfSwitch TimeFields::switchDayHalf(QStringView text, DayHalf half, Date minimum,
                                                    Date maximum) const
{
    DayHalfSwitch result;
    if (!hasAmPm())
        return result;
    result.mask = half == DayHalf::PM ? m_pmMask : m_amMask;
    const QStringView marker = half == DayHalf::PM ? PmText : AmText;
    Fields f = fieldsOf(text);
    if (!f.numeric)
        return result; // a marker alone is no time
    if (f.digitsOnly) {
        // The canonical text cut before its marker is exactly the fields and separators.
        f.marker = marker;
        result.candidate = dateOf(f);
    } else {
        QString candidate = canonicalText(f, TimeSeparator).left(hasSeconds() ? 9 : 6);
        candidate.append(marker);
        result.candidate = Date::parse(candidate);
    }
    result.made = result.candidate && inRange(*result.candidate, minimum, maximum);
    return result;
}

TimeFields::Field TimeFields::fieldAt(int caret) const
{
    if (caret < 3)
        return Field::Hour;
    if (caret < 6)
        return Field::Minute;
    if (caret < 9 && hasSeconds())
        return Field::Second;
    return Field::DayHalf;
}

std::optional<Date> TimeFields::step(Date base, int caret, bool up, Date minimum, Date maximum) const
{
    const Date::Parts p = base.parts();
    int hour = p.hour;
    int minute = p.minute;
    int second = hasSeconds() ? p.second : 0;
    const int delta = up ? 1 : -1;
    switch (fieldAt(caret)) {
    case Field::Hour:
        hour += delta;
        if (hour == -1)
            hour = 23;
        break;
    case Field::Minute:
        minute += delta;
        // Hour 24 with minute -1 is 23:59 of the same day.
        if (hour == 0 && minute == -1)
            hour = 24;
        break;
    case Field::Second:
        second += delta;
        if (hour == 0 && minute == 0 && second == -1)
            hour = 24;
        break;
    case Field::DayHalf:
        hour += hour < 12 ? 12 : -12;
        break;
    }
    const Date next = Date::fromHms(hour, minute, second);
    if (!inRange(next, minimum, maximum))
        return std::nullopt;
    return next;
}

Date TimeFields::clampedNow(Date now, Date minimum, Date maximum)
{
    Date time = now.timePart();
    if (time < minimum)
        time = minimum;
    if (time > maximum)
        time = maximum;
    return time;
}

} // namespace Tarnwell
