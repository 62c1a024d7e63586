#include "datefields/datefields.h"

#include "platform/numerictext.h"

#include <tarnwell/error.h>
#include <tarnwell/variant.h>

#include <array>
#include <limits>
#include <string_view>

namespace Tarnwell {

namespace {

using Field = DateFields::Field;

// Where a field stands in the typed text: 0-based start and length, a negative length reading to
// the end of the text. A field that is not typed has no span and a fixed value.
struct Span {
    qint8 start = -1;
    qint8 length = 0;
    constexpr bool typed() const { return start >= 0; }
};

constexpr qint8 ToTheEnd = -1;

// The carets from `from` up to the next rule's `from` change `field`. A forward-only field moves
// up whatever the direction.
struct CaretRule {
    qint8 from;
    Field field;
    bool forwardOnly;
};

struct FormatRow {
    std::u16string_view mask;    // "/" stands for the separator
    std::u16string_view pattern; // "/" stands for the separator
    Span day;
    Span month;
    Span year;
    qint8 fixedDay;                // the day when it is not typed
    std::array<Field, 3> digits;   // order of the edit digits, Field::None when absent
    std::array<CaretRule, 4> steps;
    qint8 stepCount;
};

// One row per twDateFormatConstants value, in value order.
constexpr std::array<FormatRow, 5> Formats = {{
    // twDayMonthYear
    {u"##/##/####", u"dd/mmm/yyyy", {0, 2}, {3, 2}, {6, ToTheEnd}, 0,
     {Field::Day, Field::Month, Field::Year},
     {{{0, Field::Day, false}, {3, Field::Month, false}, {6, Field::Year, false}}}, 3},
    // twMonthDayYear
    {u"##/##/####", u"mmm/dd/yyyy", {3, 2}, {0, 2}, {6, ToTheEnd}, 0,
     {Field::Month, Field::Day, Field::Year},
     {{{0, Field::Month, false}, {3, Field::Day, false}, {6, Field::Year, false}}}, 3},
    // twMonthYear: the first of the month.
    {u"##/####", u"mmm/yyyy", {}, {0, 2}, {3, ToTheEnd}, 1,
     {Field::Month, Field::Year, Field::None},
     {{{0, Field::Month, false}, {3, Field::Year, false}}}, 2},
    // twYearMonth: day 0 is the previous month's last day, so no typed text ever reads as a date
    // here; deliberate, and kept. Caret 5, the separator, steps nothing.
    {u"####/##", u"yyyy/mmm", {}, {5, 2}, {0, 4}, 0,
     {Field::Year, Field::Month, Field::None},
     {{{0, Field::Year, false}, {5, Field::None, false}, {6, Field::Month, true}}}, 3},
    // twYearMonthDay: month and day only ever move forward, the first separator steps the day.
    {u"####/##/##", u"yyyy/mmm/dd", {8, 2}, {5, 2}, {0, 4}, 0,
     {Field::Year, Field::Month, Field::Day},
     {{{0, Field::Year, false}, {5, Field::Day, true}, {6, Field::Month, true},
       {8, Field::Day, true}}}, 4},
}};

constexpr bool stepsAscend(const FormatRow &row)
{
    for (int i = 1; i < row.stepCount; ++i) {
        if (row.steps[i - 1].from >= row.steps[i].from)
            return false;
    }
    return row.stepCount > 0 && row.steps[0].from == 0;
}

static_assert([] {
    for (const FormatRow &row : Formats) {
        if (!stepsAscend(row))
            return false;
    }
    return true;
}(), "every step table starts at caret 0 and ascends");

// The years of the calendar's range: no DateBox holds a date outside them.
constexpr int FirstYear = 1601;
constexpr int LastYear = 9999;

constexpr QChar Slash = QLatin1Char('/');

bool meansSomethingInMasks(QChar c)
{
    return c == u'#' || c == u'@' || c == u'?' || c == u'&' || c == u'\\';
}

QStringView slice(QStringView text, Span span)
{
    if (span.start >= text.size())
        return {};
    const QStringView rest = text.sliced(span.start);
    return span.length < 0 || span.length >= rest.size() ? rest : rest.first(span.length);
}

// The date from year, month and day with the platform's roll-over and two-digit window, or
// nothing when it falls outside the years the date type holds.
std::optional<Date> buildDate(int year, int month, int day)
{
    try {
        return Date::fromYmd(year, month, day);
    } catch (const Error &) {
        return std::nullopt;
    }
}

void putDigits(QChar *&out, int value, int width)
{
    for (int i = width - 1; i >= 0; --i) {
        out[i] = QChar(char16_t(u'0' + value % 10));
        value /= 10;
    }
    out += width;
}

} // namespace

DateFields::DateFields() : DateFields(twDayMonthYear) {}

DateFields::DateFields(int format, QChar separator, const QLocale &locale)
    : m_format(format), m_separator(separator), m_locale(locale)
{
    m_blankGroups = NumericText::localeChars(locale).groupIsBlank;
    if (format < 0 || format >= int(Formats.size()))
        return;
    m_row = format;
    const FormatRow &row = Formats[m_row];
    m_editLength = int(row.mask.size());
    m_editMask.reserve(m_editLength + 2);
    for (const char16_t c : row.mask) {
        if (c != Slash) {
            m_editMask.append(QChar(c));
            continue;
        }
        if (meansSomethingInMasks(separator))
            m_editMask.append(QLatin1Char('\\'));
        m_editMask.append(separator);
    }
    m_displayPattern = QString::fromUtf16(row.pattern.data(), row.pattern.size());
    m_displayPattern.replace(Slash, separator);
}

std::optional<QString> DateFields::editMask() const
{
    if (!isKnownFormat())
        return std::nullopt;
    return m_editMask;
}

std::optional<QString> DateFields::displayPattern() const
{
    if (!isKnownFormat())
        return std::nullopt;
    return m_displayPattern;
}

QString DateFields::dateToEditDigits(Date date) const
{
    QString digits;
    dateToEditDigits(date, digits);
    return digits;
}

void DateFields::dateToEditDigits(Date date, QString &out) const
{
    if (!isKnownFormat()) {
        out.resize(0);
        return;
    }
    const FormatRow &row = Formats[m_row];
    const Date::Parts p = date.parts();
    int length = 0;
    for (const Field f : row.digits)
        length += f == Field::Year ? 4 : f == Field::None ? 0 : 2;
    out.resize(length);
    QChar *o = out.data();
    for (const Field f : row.digits) {
        switch (f) {
        case Field::Day: putDigits(o, p.day, 2); break;
        case Field::Month: putDigits(o, p.month, 2); break;
        case Field::Year: putDigits(o, p.year, 4); break;
        case Field::None: break;
        }
    }
}

DateFields::FieldNumber DateFields::readField(QStringView field) const
{
    // The mask lets only digits and blanks in, so those are read here, allocation-free; the host
    // rule they follow: blanks around the number are fine, a blank between digits is a grouping
    // character in a locale that groups with blanks and spoils the number elsewhere.
    constexpr int Max = std::numeric_limits<qint16>::max();
    int value = 0;
    bool anyDigit = false;
    bool blankAfterDigit = false;
    bool blankInside = false;
    bool plain = true;
    for (const char16_t u : std::u16string_view(field.utf16(), size_t(field.size()))) {
        if (u >= u'0' && u <= u'9') {
            blankInside = blankInside || blankAfterDigit;
            anyDigit = true;
            if (value <= Max)
                value = value * 10 + (u - u'0');
        } else if (u == u' ') {
            blankAfterDigit = anyDigit;
        } else {
            plain = false;
            break;
        }
    }
    if (plain) {
        if (!anyDigit || (blankInside && !m_blankGroups))
            return {FieldNumber::NotANumber, 0};
        if (value > Max)
            return {FieldNumber::Overflow, 0};
        return {FieldNumber::Number, qint16(value)};
    }
    // Anything else (a pasted sign, decimal point, exponent) takes the host's full rule.
    try {
        return {FieldNumber::Number, Variant::toInteger(field.toString(), m_locale)};
    } catch (const Error &e) {
        return {e.number() == Error::Overflow ? FieldNumber::Overflow : FieldNumber::NotANumber, 0};
    }
}

DateFields::Reading DateFields::parseEditText(QStringView text, Date minimum, Date maximum) const
{
    if (!isKnownFormat())
        return {State::Invalid, Reason::UnknownFormat, Date()};
    const FormatRow &row = Formats[m_row];

    const FieldNumber year = readField(slice(text, row.year).trimmed());
    const FieldNumber month = readField(slice(text, row.month));
    const FieldNumber day = row.day.typed() ? readField(slice(text, row.day))
                                            : FieldNumber{FieldNumber::Number, row.fixedDay};
    for (const FieldNumber &f : {year, month, day}) {
        if (f.kind == FieldNumber::NotANumber)
            return {State::Intermediate, Reason::NotANumber, Date()};
    }
    for (const FieldNumber &f : {year, month, day}) {
        if (f.kind == FieldNumber::Overflow)
            return {State::Invalid, Reason::FieldOverflow, Date()};
    }

    // The built date's month and day must be the ones read: a day or month the construction
    // would roll over names no real date. Settled here first, so that typing (a year still
    // three digits long, a month 13) never costs the construction's overflow error.
    if (month.value < 1 || month.value > 12 || day.value < 1 || day.value > 31)
        return {State::Invalid, Reason::NoSuchDay, Date()};
    // Years 0-99 are windowed into the calendar's range; the rest must lie in it already.
    if (year.value < 0 || (year.value >= 100 && (year.value < FirstYear || year.value > LastYear)))
        return {State::Invalid, Reason::Unrepresentable, Date()};
    const std::optional<Date> date = buildDate(year.value, month.value, day.value);
    if (!date)
        return {State::Invalid, Reason::Unrepresentable, Date()};
    const Date::Parts built = date->parts();
    if (built.month != month.value || built.day != day.value)
        return {State::Invalid, Reason::NoSuchDay, Date()};

    if (*date < minimum)
        return {State::Invalid, Reason::BeforeMinimum, Date()};
    if (*date > maximum)
        return {State::Invalid, Reason::AfterMaximum, Date()};
    return {State::Acceptable, Reason::None, *date};
}

DateFields::StepTarget DateFields::stepTarget(int caret, bool up) const
{
    if (!isKnownFormat() || caret < 0)
        return {};
    const FormatRow &row = Formats[m_row];
    const CaretRule *rule = &row.steps[0];
    for (int i = 1; i < row.stepCount && row.steps[i].from <= caret; ++i)
        rule = &row.steps[i];
    if (rule->field == Field::None)
        return {};
    return {rule->field, rule->forwardOnly || up ? 1 : -1};
}

std::optional<Date> DateFields::step(Date start, int caret, bool up, Date minimum,
                                     Date maximum) const
{
    // The start's fields are those of a real date, so none of them can overflow 16 bits by one.
    const Date::Parts p = start.parts();
    int year = p.year;
    int month = p.month;
    int day = p.day;
    const StepTarget target = stepTarget(caret, up);
    switch (target.field) {
    case Field::Day: day += target.delta; break;
    case Field::Month: month += target.delta; break;
    case Field::Year: year += target.delta; break;
    case Field::None: break;
    }
    const std::optional<Date> stepped = buildDate(year, month, day);
    if (!stepped || *stepped < minimum || *stepped > maximum)
        return std::nullopt;
    return stepped;
}

Date DateFields::clampedToday(Date today, Date minimum, Date maximum)
{
    if (today > maximum)
        return maximum;
    if (today < minimum)
        return minimum;
    return today;
}

} // namespace Tarnwell
