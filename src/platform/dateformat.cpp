#include "platform/dateformat.h"

#include <QVarLengthArray>

namespace Tarnwell {
namespace {

struct Token {
    enum Kind : std::uint8_t {
        Literal,    // pattern[pos, pos + len)
        Day,        // width 1, 2
        WeekdayName, // width 3 abbreviated, 4 full
        ShortDate,
        LongDate,
        Weekday,
        WeekOfYear,
        Month,      // width 1, 2; may turn into Minute
        MonthName,  // width 3 abbreviated, 4 full
        Quarter,
        DayOfYear,
        Year,       // width 2, 4
        Hour,       // width 1, 2
        Minute,     // width 1, 2
        Second,     // width 1, 2
        DayHalf,    // written "AM/PM" or "A/P" at pattern[pos, pos + len)
        LocaleDayHalf,
        GeneralDate,
        LongTime,
    };
    Kind kind;
    std::uint8_t width; // for a literal: 1 when plain characters that may be extended
    qsizetype pos;
    qsizetype len;
};

using Tokens = QVarLengthArray<Token, 32>;

qsizetype runLength(QStringView p, qsizetype i, char16_t lower, qsizetype cap)
{
    qsizetype n = 0;
    while (i + n < p.size() && n < cap && p[i + n].toLower() == QChar(lower))
        ++n;
    return n;
}

bool startsWithCi(QStringView p, qsizetype i, QStringView what)
{
    return p.mid(i, what.size()).compare(what, Qt::CaseInsensitive) == 0;
}

void tokenize(QStringView p, Tokens &tokens)
{
    auto add = [&](Token::Kind kind, qsizetype width, qsizetype pos, qsizetype len) {
        tokens.append({kind, std::uint8_t(width), pos, len});
    };
    qsizetype i = 0;
    const qsizetype size = p.size();
    while (i < size) {
        const QChar c = p[i];
        const char16_t lower = c.toLower().unicode();
        if (c == u'"') {
            const qsizetype close = p.indexOf(u'"', i + 1);
            const qsizetype end = close < 0 ? size : close;
            add(Token::Literal, 0, i + 1, end - i - 1);
            i = close < 0 ? size : close + 1;
            continue;
        }
        if (c == u'\\') {
            if (i + 1 < size)
                add(Token::Literal, 0, i + 1, 1);
            i += 2;
            continue;
        }
        switch (lower) {
        case u'd': {
            const qsizetype n = runLength(p, i, u'd', 6);
            if (n <= 2)
                add(Token::Day, n, i, n);
            else if (n <= 4)
                add(Token::WeekdayName, n, i, n);
            else
                add(n == 5 ? Token::ShortDate : Token::LongDate, n, i, n);
            i += n;
            continue;
        }
        case u'w': {
            const qsizetype n = runLength(p, i, u'w', 2);
            add(n == 1 ? Token::Weekday : Token::WeekOfYear, n, i, n);
            i += n;
            continue;
        }
        case u'm': {
            const qsizetype n = runLength(p, i, u'm', 4);
            add(n <= 2 ? Token::Month : Token::MonthName, n, i, n);
            i += n;
            continue;
        }
        case u'q':
            add(Token::Quarter, 1, i, 1);
            ++i;
            continue;
        case u'y': {
            const qsizetype n = runLength(p, i, u'y', 4);
            if (n == 1)
                add(Token::DayOfYear, 1, i, 1);
            else
                add(Token::Year, n == 2 ? 2 : 4, i, n);
            i += n;
            continue;
        }
        case u'h':
        case u'n':
        case u's': {
            const qsizetype n = runLength(p, i, lower, 2);
            add(lower == u'h' ? Token::Hour : lower == u'n' ? Token::Minute : Token::Second, n, i, n);
            i += n;
            continue;
        }
        case u'a':
            if (startsWithCi(p, i, u"am/pm")) {
                add(Token::DayHalf, 0, i, 5);
                i += 5;
                continue;
            }
            if (startsWithCi(p, i, u"a/p")) {
                add(Token::DayHalf, 0, i, 3);
                i += 3;
                continue;
            }
            if (startsWithCi(p, i, u"ampm")) {
                add(Token::LocaleDayHalf, 0, i, 4);
                i += 4;
                continue;
            }
            break;
        case u'c':
            add(Token::GeneralDate, 0, i, 1);
            ++i;
            continue;
        case u't':
            if (startsWithCi(p, i, u"ttttt")) {
                add(Token::LongTime, 0, i, 5);
                i += 5;
                continue;
            }
            break;
        default:
            break;
        }
        // Runs of plain characters become one literal.
        if (!tokens.isEmpty() && tokens.back().kind == Token::Literal && tokens.back().width == 1
            && tokens.back().pos + tokens.back().len == i)
            ++tokens.back().len;
        else
            add(Token::Literal, 1, i, 1);
        ++i;
    }
}

// The host's rule: "m" and "mm" are minutes right after an hour or right before a second.
void resolveMinutes(Tokens &tokens)
{
    const qsizetype n = tokens.size();
    for (qsizetype k = 0; k < n; ++k) {
        if (tokens[k].kind != Token::Month)
            continue;
        qsizetype before = k - 1;
        while (before >= 0 && tokens[before].kind == Token::Literal)
            --before;
        qsizetype after = k + 1;
        while (after < n && tokens[after].kind == Token::Literal)
            ++after;
        if ((before >= 0 && tokens[before].kind == Token::Hour)
            || (after < n && tokens[after].kind == Token::Second))
            tokens[k].kind = Token::Minute;
    }
}

// Digits straight into the output: no temporary string per field.
void appendNumber(QString &out, int value, int width)
{
    if (value < 0) {
        out += u'-';
        value = -value;
    }
    char16_t digits[12];
    int n = 0;
    do {
        digits[n++] = char16_t(u'0' + value % 10);
        value /= 10;
    } while (value != 0 && n < 12);
    for (int pad = n; pad < width; ++pad)
        out += u'0';
    while (n > 0)
        out += QChar(digits[--n]);
}

int dayOfYear(const Date::Parts &p)
{
    int days = p.day;
    for (int m = 1; m < p.month; ++m)
        days += Date::daysInMonth(p.year, m);
    return days;
}

// Sunday-based weeks, the first week being the one that holds 1 January.
int weekOfYear(const Date::Parts &p)
{
    const int jan1Weekday = Date::fromYmd(p.year, 1, 1).dayOfWeek(); // 1 = Sunday
    return (dayOfYear(p) + jan1Weekday - 2) / 7 + 1;
}

QDate qDateOf(const Date::Parts &p)
{
    return QDate(p.year, p.month, p.day);
}

QString qtShortDatePattern(const QLocale &locale)
{
    QString f = locale.dateFormat(QLocale::ShortFormat);
    if (!f.contains(u"yyyy"))
        f.replace(u"yy"_qs, u"yyyy"_qs);
    return f;
}

QString qtLongTimePattern(const QLocale &locale)
{
    QString f = locale.timeFormat(QLocale::ShortFormat);
    if (!f.contains(u's')) {
        const qsizetype at = f.indexOf(u"mm");
        if (at >= 0)
            f.insert(at + 2, u":ss"_qs);
    }
    return f;
}

bool isNamed(const QString &pattern, QStringView name)
{
    return pattern.compare(name, Qt::CaseInsensitive) == 0;
}

} // namespace

QString DateFormat::shortDate(const Date &date, const QLocale &locale)
{
    return locale.toString(qDateOf(date.parts()), qtShortDatePattern(locale));
}

QString DateFormat::longDate(const Date &date, const QLocale &locale)
{
    return locale.toString(qDateOf(date.parts()), QLocale::LongFormat);
}

QString DateFormat::longTime(const Date &date, const QLocale &locale)
{
    const Date::Parts p = date.parts();
    return locale.toString(QTime(p.hour, p.minute, p.second), qtLongTimePattern(locale));
}

QString DateFormat::generalDate(const Date &date, const QLocale &locale)
{
    const Date::Parts p = date.parts();
    const bool dayZero = p.year == 1899 && p.month == 12 && p.day == 30;
    const bool midnight = p.hour == 0 && p.minute == 0 && p.second == 0;
    if (dayZero)
        return longTime(date, locale);
    if (midnight)
        return shortDate(date, locale);
    return shortDate(date, locale) + u' ' + longTime(date, locale);
}

QString DateFormat::format(const Date &date, const QString &pattern, const QLocale &locale)
{
    if (pattern.isEmpty() || isNamed(pattern, u"General Date"))
        return generalDate(date, locale);
    if (isNamed(pattern, u"Short Date"))
        return shortDate(date, locale);
    if (isNamed(pattern, u"Long Date"))
        return longDate(date, locale);
    if (isNamed(pattern, u"Medium Date"))
        return format(date, u"dd-mmm-yy"_qs, locale);
    if (isNamed(pattern, u"Long Time"))
        return longTime(date, locale);
    if (isNamed(pattern, u"Medium Time"))
        return format(date, u"hh:nn AM/PM"_qs, locale);
    if (isNamed(pattern, u"Short Time"))
        return format(date, u"hh:nn"_qs, locale);

    Tokens tokens;
    tokenize(pattern, tokens);
    resolveMinutes(tokens);
    bool twelveHour = false;
    for (const Token &t : tokens)
        twelveHour = twelveHour || t.kind == Token::DayHalf || t.kind == Token::LocaleDayHalf;

    const Date::Parts p = date.parts();
    const bool pm = p.hour >= 12;
    QString out;
    out.reserve(pattern.size() + 16);
    for (const Token &t : tokens) {
        switch (t.kind) {
        case Token::Literal:
            out += QStringView(pattern).mid(t.pos, t.len);
            break;
        case Token::Day:
            appendNumber(out, p.day, t.width);
            break;
        case Token::WeekdayName: {
            // QLocale counts Monday 1 ... Sunday 7.
            const int qtDay = date.dayOfWeek() == 1 ? 7 : date.dayOfWeek() - 1;
            out += locale.dayName(qtDay, t.width == 3 ? QLocale::ShortFormat : QLocale::LongFormat);
            break;
        }
        case Token::ShortDate:
            out += shortDate(date, locale);
            break;
        case Token::LongDate:
            out += longDate(date, locale);
            break;
        case Token::Weekday:
            appendNumber(out, date.dayOfWeek(), 1);
            break;
        case Token::WeekOfYear:
            appendNumber(out, weekOfYear(p), 1);
            break;
        case Token::Month:
            appendNumber(out, p.month, t.width);
            break;
        case Token::MonthName:
            out += t.width == 3 ? locale.standaloneMonthName(p.month, QLocale::ShortFormat)
                                : locale.monthName(p.month, QLocale::LongFormat);
            break;
        case Token::Quarter:
            appendNumber(out, (p.month - 1) / 3 + 1, 1);
            break;
        case Token::DayOfYear:
            appendNumber(out, dayOfYear(p), 1);
            break;
        case Token::Year:
            if (t.width == 2)
                appendNumber(out, p.year % 100, 2);
            else
                appendNumber(out, p.year, 4);
            break;
        case Token::Hour:
            appendNumber(out, twelveHour ? (p.hour % 12 == 0 ? 12 : p.hour % 12) : p.hour, t.width);
            break;
        case Token::Minute:
            appendNumber(out, p.minute, t.width);
            break;
        case Token::Second:
            appendNumber(out, p.second, t.width);
            break;
        case Token::DayHalf: {
            // Written as "AM/PM" or "a/p": the half before or after the slash, in its own case.
            const QStringView written = QStringView(pattern).mid(t.pos, t.len);
            const qsizetype slash = written.indexOf(u'/');
            out += pm ? written.mid(slash + 1) : written.left(slash);
            break;
        }
        case Token::LocaleDayHalf:
            out += pm ? locale.pmText() : locale.amText();
            break;
        case Token::GeneralDate:
            out += generalDate(date, locale);
            break;
        case Token::LongTime:
            out += longTime(date, locale);
            break;
        }
    }
    return out;
}

} // namespace Tarnwell
