#include <tarnwell/date.h>

#include <tarnwell/clock.h>
#include <tarnwell/error.h>

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

namespace Tarnwell {
namespace {

constexpr std::int64_t SecondsPerDay = 86400;
// The host's day 0 (30 December 1899) counted from 1 January 1970.
constexpr std::int64_t EpochOffset = -25569;
constexpr std::int64_t MinDay = -657434;
constexpr std::int64_t MaxDay = 2958465;
// QDate's Julian day number of the host's day 0.
constexpr qint64 EpochJulianDay = 2415019;

constexpr std::int64_t floorDiv(std::int64_t a, std::int64_t b)
{
    return a / b - ((a % b != 0) && ((a < 0) != (b < 0)));
}

constexpr std::int64_t floorMod(std::int64_t a, std::int64_t b)
{
    return a - floorDiv(a, b) * b;
}

// Proleptic Gregorian civil date to days since 1 January 1970 (Hinnant's days_from_civil).
constexpr std::int64_t daysFromCivil(std::int64_t y, unsigned m, unsigned d)
{
    y -= m <= 2;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const auto yoe = unsigned(y - era * 400);
    const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + std::int64_t(doe) - 719468;
}

struct Civil {
    std::int64_t year;
    unsigned month;
    unsigned day;
};

// The inverse (Hinnant's civil_from_days).
constexpr Civil civilFromDays(std::int64_t z)
{
    z += 719468;
    const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
    const auto doe = unsigned(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const std::int64_t y = std::int64_t(yoe) + era * 400;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    const unsigned d = doy - (153 * mp + 2) / 5 + 1;
    const unsigned m = mp < 10 ? mp + 3 : mp - 9;
    return {y + (m <= 2), m, d};
}

static_assert(daysFromCivil(1970, 1, 1) == 0);
static_assert(daysFromCivil(1899, 12, 30) == EpochOffset);
static_assert(daysFromCivil(100, 1, 1) - EpochOffset == MinDay);
static_assert(daysFromCivil(9999, 12, 31) - EpochOffset == MaxDay);
static_assert(civilFromDays(EpochOffset).year == 1899 && civilFromDays(EpochOffset).day == 30);
static_assert(civilFromDays(MaxDay + EpochOffset).month == 12);

// A moment as a whole host day and the whole seconds into it.
struct Moment {
    std::int64_t day;
    std::int64_t seconds;
};

Moment split(double serial)
{
    if (!std::isfinite(serial))
        return {0, 0};
    if (serial <= double(MinDay - 1))
        return {MinDay, 0};
    if (serial >= double(MaxDay + 1))
        return {MaxDay, SecondsPerDay - 1};
    const double whole = std::trunc(serial);
    auto day = std::int64_t(whole);
    // Round to the second so that 0.99999999 reads as the next midnight, not 23:59:59.999.
    std::int64_t seconds = std::llround(std::fabs(serial - whole) * double(SecondsPerDay));
    if (seconds >= SecondsPerDay) {
        ++day;
        seconds -= SecondsPerDay;
    }
    if (day > MaxDay)
        return {MaxDay, SecondsPerDay - 1};
    return {day, seconds};
}

// Before the epoch the whole part counts back while the fraction still counts forward.
double join(std::int64_t day, double dayFraction)
{
    return day >= 0 ? double(day) + dayFraction : double(day) - dayFraction;
}

double joinSeconds(std::int64_t day, std::int64_t seconds)
{
    return join(day, double(seconds) / double(SecondsPerDay));
}

std::int64_t windowYear(std::int64_t year)
{
    if (year >= 0 && year <= 29)
        return year + 2000;
    if (year >= 30 && year <= 99)
        return year + 1900;
    return year;
}

bool leap(std::int64_t y)
{
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

int monthLength(std::int64_t y, int m)
{
    static constexpr int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (m < 1 || m > 12)
        return 0;
    return m == 2 && leap(y) ? 29 : lengths[m - 1];
}

// ---- Text-to-date --------------------------------------------------------------------------

struct Token {
    enum Kind : std::uint8_t { Number, Word, Colon, Separator };
    Kind kind;
    int value;  // Number: its value
    int digits; // Number: its digit count
    qsizetype pos;
    qsizetype len;
};

using Tokens = QVarLengthArray<Token, 16>;

constexpr qsizetype MaxTokens = 24;
constexpr int MaxDigits = 9; // keeps every number inside int

bool isDateSeparator(QChar c)
{
    return c.isSpace() || c == u'/' || c == u'-' || c == u'.' || c == u',';
}

bool tokenize(QStringView text, Tokens &tokens)
{
    const qsizetype n = text.size();
    qsizetype i = 0;
    while (i < n) {
        if (tokens.size() >= MaxTokens)
            return false;
        const QChar c = text[i];
        const qsizetype start = i;
        if (c.isDigit()) {
            int value = 0;
            int digits = 0;
            for (; i < n && text[i].isDigit(); ++i) {
                if (++digits > MaxDigits)
                    return false;
                value = value * 10 + text[i].digitValue();
            }
            tokens.append({Token::Number, value, digits, start, i - start});
        } else if (c.isLetter()) {
            while (i < n && text[i].isLetter())
                ++i;
            tokens.append({Token::Word, 0, 0, start, i - start});
            // An abbreviation's full stop belongs to the word ("Mär.", "Sept.").
            if (i < n && text[i] == u'.')
                ++i;
        } else if (c == u':') {
            ++i;
            tokens.append({Token::Colon, 0, 0, start, 1});
        } else if (isDateSeparator(c)) {
            int marks = 0;
            for (; i < n && isDateSeparator(text[i]); ++i) {
                if (!text[i].isSpace() && ++marks > 1)
                    return false;
            }
            tokens.append({Token::Separator, 0, 0, start, i - start});
        } else {
            return false;
        }
    }
    return true;
}

QStringView wordOf(QStringView text, const Token &t)
{
    return text.mid(t.pos, t.len);
}

bool sameName(QStringView word, QString name)
{
    if (name.endsWith(u'.'))
        name.chop(1);
    return !name.isEmpty() && word.compare(name, Qt::CaseInsensitive) == 0;
}

int monthOfName(QStringView word, const QLocale &locale)
{
    const QLocale locales[] = {locale, QLocale::c()};
    for (const QLocale &l : locales) {
        for (int m = 1; m <= 12; ++m) {
            if (sameName(word, l.monthName(m, QLocale::LongFormat))
                || sameName(word, l.monthName(m, QLocale::ShortFormat))
                || sameName(word, l.standaloneMonthName(m, QLocale::LongFormat))
                || sameName(word, l.standaloneMonthName(m, QLocale::ShortFormat)))
                return m;
        }
    }
    return 0;
}

bool isDayName(QStringView word, const QLocale &locale)
{
    const QLocale locales[] = {locale, QLocale::c()};
    for (const QLocale &l : locales) {
        for (int d = 1; d <= 7; ++d) {
            if (sameName(word, l.dayName(d, QLocale::LongFormat))
                || sameName(word, l.dayName(d, QLocale::ShortFormat)))
                return true;
        }
    }
    return false;
}

// 0 not a marker, 1 AM, 2 PM.
int dayHalfOf(QStringView word, const QLocale &locale)
{
    if (word.compare(u"AM", Qt::CaseInsensitive) == 0 || word.compare(u"A", Qt::CaseInsensitive) == 0
        || sameName(word, locale.amText()))
        return 1;
    if (word.compare(u"PM", Qt::CaseInsensitive) == 0 || word.compare(u"P", Qt::CaseInsensitive) == 0
        || sameName(word, locale.pmText()))
        return 2;
    return 0;
}

// The order of day, month and year in the locale's short date, as 'd', 'M', 'y'.
std::array<char, 3> fieldOrder(const QLocale &locale)
{
    const QString f = locale.dateFormat(QLocale::ShortFormat);
    qsizetype at[3] = {f.indexOf(u'd'), f.indexOf(u'M'), f.indexOf(u'y')};
    std::array<char, 3> order = {'d', 'M', 'y'};
    if (at[0] < 0 || at[1] < 0 || at[2] < 0)
        return order;
    std::array<int, 3> index = {0, 1, 2};
    std::sort(index.begin(), index.end(), [&](int a, int b) { return at[a] < at[b]; });
    for (int k = 0; k < 3; ++k)
        order[std::size_t(k)] = "dMy"[index[std::size_t(k)]];
    return order;
}

struct TimeOfDay {
    bool present = false;
    qsizetype first = 0; // token range [first, last)
    qsizetype last = 0;
    int seconds = 0;
};

bool isSpaceSeparator(QStringView text, const Token &t)
{
    return t.kind == Token::Separator && text.mid(t.pos, t.len).trimmed().isEmpty();
}

// Finds "h:mm[:ss] [AM|PM]" or "h AM|PM" and checks its fields.
bool findTime(QStringView text, const Tokens &tokens, const QLocale &locale, TimeOfDay &time)
{
    const qsizetype n = tokens.size();
    qsizetype colon = -1;
    for (qsizetype k = 0; k < n; ++k) {
        if (tokens[k].kind == Token::Colon) {
            colon = k;
            break;
        }
    }
    int hour = 0, minute = 0, second = 0;
    qsizetype end = 0;
    auto numberAt = [&](qsizetype k) {
        return k >= 0 && k < n && tokens[k].kind == Token::Number && tokens[k].digits <= 2;
    };
    if (colon >= 0) {
        if (!numberAt(colon - 1) || !numberAt(colon + 1))
            return false;
        time.first = colon - 1;
        hour = tokens[colon - 1].value;
        minute = tokens[colon + 1].value;
        end = colon + 2;
        if (end < n && tokens[end].kind == Token::Colon) {
            if (!numberAt(end + 1))
                return false;
            second = tokens[end + 1].value;
            end += 2;
        }
    } else {
        // An hour with a marker and no minutes: "3 PM".
        for (qsizetype k = 0; k < n && colon < 0; ++k) {
            if (tokens[k].kind != Token::Word || dayHalfOf(wordOf(text, tokens[k]), locale) == 0)
                continue;
            qsizetype h = k - 1;
            if (h >= 0 && isSpaceSeparator(text, tokens[h]))
                --h;
            if (!numberAt(h))
                return false;
            time.first = h;
            hour = tokens[h].value;
            end = h + 1;
            colon = k;
        }
        if (colon < 0)
            return true; // no time at all
    }
    qsizetype k = end;
    if (k + 1 < n && isSpaceSeparator(text, tokens[k]) && tokens[k + 1].kind == Token::Word)
        ++k;
    int half = 0;
    if (k < n && tokens[k].kind == Token::Word)
        half = dayHalfOf(wordOf(text, tokens[k]), locale);
    if (half != 0)
        end = k + 1;
    for (qsizetype r = end; r < n; ++r) {
        if (tokens[r].kind == Token::Colon)
            return false;
    }
    if (hour > 23 || minute > 59 || second > 59)
        return false;
    if (half == 1 && hour == 12)
        hour = 0;
    else if (half == 2 && hour < 12)
        hour += 12;
    time.present = true;
    time.last = end;
    time.seconds = hour * 3600 + minute * 60 + second;
    return true;
}

std::optional<Date> parseText(QStringView text, const QLocale &locale)
{
    text = text.trimmed();
    // A closing full stop ends a date in several languages ("7.3.").
    if (text.endsWith(u'.'))
        text.chop(1);
    if (text.isEmpty())
        return std::nullopt;
    Tokens tokens;
    if (!tokenize(text, tokens))
        return std::nullopt;
    if (tokens.front().kind == Token::Separator || tokens.back().kind == Token::Separator)
        return std::nullopt;
    TimeOfDay time;
    if (!findTime(text, tokens, locale, time))
        return std::nullopt;

    // The date's items, in text order; a time may stand before or after the date, not inside it.
    struct Item {
        int value;
        int digits;
    };
    QVarLengthArray<Item, 3> numbers;
    int month = 0;
    bool before = false, after = false;
    for (qsizetype k = 0; k < tokens.size(); ++k) {
        if (time.present && k >= time.first && k < time.last)
            continue;
        const Token &t = tokens[k];
        if (t.kind == Token::Separator)
            continue;
        (time.present && k >= time.last ? after : before) = true;
        if (t.kind == Token::Number) {
            if (numbers.size() == 3)
                return std::nullopt;
            numbers.append({t.value, t.digits});
        } else if (t.kind == Token::Word) {
            const int m = monthOfName(wordOf(text, t), locale);
            if (m != 0 && month == 0) {
                month = m;
            } else if (!(m == 0 && numbers.isEmpty() && month == 0 && isDayName(wordOf(text, t), locale))) {
                return std::nullopt;
            }
        } else {
            return std::nullopt;
        }
    }
    if (before && after)
        return std::nullopt;

    if (numbers.isEmpty() && month == 0) {
        if (!time.present)
            return std::nullopt;
        return Date(double(time.seconds) / double(SecondsPerDay));
    }

    std::int64_t year = -1, day = 1;
    auto currentYear = [] { return std::int64_t(Clock::now().date().year()); };
    if (month != 0) {
        if (numbers.size() == 1) {
            if (numbers[0].digits >= 3) {
                year = numbers[0].value;
            } else {
                day = numbers[0].value;
                year = currentYear();
            }
        } else if (numbers.size() == 2) {
            const bool yearFirst = numbers[0].digits >= 3;
            year = numbers[yearFirst ? 0 : 1].value;
            day = numbers[yearFirst ? 1 : 0].value;
        } else {
            return std::nullopt;
        }
    } else if (numbers.size() == 3) {
        std::array<char, 3> order = fieldOrder(locale);
        if (numbers[0].digits >= 3)
            order = {'y', 'M', 'd'};
        for (std::size_t k = 0; k < 3; ++k) {
            const int v = numbers[qsizetype(k)].value;
            switch (order[k]) {
            case 'd': day = v; break;
            case 'M': month = v; break;
            default: year = v; break;
            }
        }
    } else if (numbers.size() == 2) {
        if (numbers[0].digits >= 3 || numbers[1].digits >= 3) {
            // A month and a year: the first of the month.
            const bool yearFirst = numbers[0].digits >= 3;
            year = numbers[yearFirst ? 0 : 1].value;
            month = numbers[yearFirst ? 1 : 0].value;
        } else {
            const std::array<char, 3> order = fieldOrder(locale);
            const bool dayFirst = order[0] == 'd' || (order[0] == 'y' && order[1] == 'd');
            day = numbers[dayFirst ? 0 : 1].value;
            month = numbers[dayFirst ? 1 : 0].value;
            year = currentYear();
        }
    } else {
        return std::nullopt; // a lone number is not a date
    }

    year = windowYear(year);
    if (month < 1 || month > 12 || day < 1 || day > monthLength(year, month))
        return std::nullopt;
    if (year < 100 || year > 9999)
        return std::nullopt;
    const std::int64_t serial = daysFromCivil(year, unsigned(month), unsigned(day)) - EpochOffset;
    return Date(joinSeconds(serial, time.present ? time.seconds : 0));
}

} // namespace

Date Date::fromYmd(int year, int month, int day)
{
    std::int64_t y = windowYear(year);
    const std::int64_t monthIndex = std::int64_t(month) - 1;
    y += floorDiv(monthIndex, 12);
    const auto m = unsigned(floorMod(monthIndex, 12) + 1);
    const std::int64_t serial = daysFromCivil(y, m, 1) + std::int64_t(day) - 1 - EpochOffset;
    if (serial < MinDay || serial > MaxDay)
        throw Error(Error::Overflow);
    return Date(double(serial));
}

Date Date::fromHms(int hour, int minute, int second)
{
    const std::int64_t total = std::int64_t(hour) * 3600 + std::int64_t(minute) * 60 + second;
    const std::int64_t day = floorDiv(total, SecondsPerDay);
    if (day < MinDay || day > MaxDay)
        throw Error(Error::Overflow);
    return Date(joinSeconds(day, floorMod(total, SecondsPerDay)));
}

Date Date::fromQDate(const QDate &date)
{
    if (!date.isValid())
        throw Error(Error::TypeMismatch);
    const qint64 day = date.toJulianDay() - EpochJulianDay;
    if (day < MinDay || day > MaxDay)
        throw Error(Error::Overflow);
    return Date(double(day));
}

Date Date::fromQTime(const QTime &time)
{
    if (!time.isValid())
        throw Error(Error::TypeMismatch);
    return Date(double(time.msecsSinceStartOfDay()) / (SecondsPerDay * 1000.0));
}

Date Date::fromQDateTime(const QDateTime &dateTime)
{
    if (!dateTime.isValid())
        throw Error(Error::TypeMismatch);
    const auto day = qint64(fromQDate(dateTime.date()).serial());
    const double fraction = double(dateTime.time().msecsSinceStartOfDay()) / (SecondsPerDay * 1000.0);
    return Date(join(day, fraction));
}

QDate Date::toQDate() const
{
    if (!isValidSerial(m_serial))
        return {};
    const Parts p = parts();
    return QDate(p.year, p.month, p.day);
}

QTime Date::toQTime() const
{
    if (!isValidSerial(m_serial))
        return {};
    const Parts p = parts();
    return QTime(p.hour, p.minute, p.second);
}

QDateTime Date::toQDateTime() const
{
    if (!isValidSerial(m_serial))
        return {};
    const Parts p = parts();
    return QDateTime(QDate(p.year, p.month, p.day), QTime(p.hour, p.minute, p.second));
}

Date::Parts Date::parts() const
{
    const Moment m = split(m_serial);
    const Civil c = civilFromDays(m.day + EpochOffset);
    const auto s = int(m.seconds);
    return {int(c.year), int(c.month), int(c.day), s / 3600, s / 60 % 60, s % 60};
}

int Date::year() const { return parts().year; }
int Date::month() const { return parts().month; }
int Date::day() const { return parts().day; }
int Date::hour() const { return parts().hour; }
int Date::minute() const { return parts().minute; }
int Date::second() const { return parts().second; }

int Date::dayOfWeek() const
{
    // 1 January 1970 was a Thursday (5 in the host's count).
    return int(floorMod(split(m_serial).day + EpochOffset + 4, 7)) + 1;
}

Date Date::datePart() const
{
    return Date(double(split(m_serial).day));
}

Date Date::timePart() const
{
    return Date(double(split(m_serial).seconds) / double(SecondsPerDay));
}

bool Date::isValidSerial(double serial)
{
    return std::isfinite(serial) && serial > double(MinDay - 1) && serial < double(MaxDay + 1);
}

bool Date::isLeapYear(int year)
{
    return leap(year);
}

int Date::daysInMonth(int year, int month)
{
    return monthLength(year, month);
}

Date Date::today()
{
    return fromQDate(Clock::now().date());
}

Date Date::now()
{
    return fromQDateTime(Clock::now());
}

bool Date::isDateText(const QString &text, const QLocale &locale)
{
    return parseText(text, locale).has_value();
}

std::optional<Date> Date::parse(const QString &text, const QLocale &locale)
{
    return parseText(text, locale);
}

} // namespace Tarnwell
