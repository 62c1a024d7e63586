#pragma once
#include <tarnwell/global.h>

#include <QDateTime>
#include <QLocale>
#include <QMetaType>
#include <QString>

#include <optional>

namespace Tarnwell {

/// @brief The host's date: days since 30 December 1899 in the integer part, the time of day in
/// the fraction.
///
/// The Value of a DateBox and of a TimeBox, and their Minimum and Maximum, are Dates. Before the epoch the integer part counts back and the fraction still counts forward
/// (-1.25 is 29 December 1899, 06:00). Valid from 1 January 100 (-657434) to 31 December 9999
/// (2958465); years 0 to 99 are not reachable, since a two-digit year always means 1930 to 2029.
class TARNWELL_EXPORT Date
{
public:
    static constexpr double MinSerial = -657434.0; ///< 1 January 100
    static constexpr double MaxSerial = 2958465.0; ///< 31 December 9999

    /// Serial 0: 30 December 1899, midnight.
    constexpr Date() = default;
    /// The date of a serial.
    constexpr explicit Date(double serial) : m_serial(serial) {}
    /// Code generated from a .ui file passes Qt's dates and times (setMinimum(QDate(2024, 1, 1))),
    /// taken as fromQDate and fromQTime take them.
    Date(const QDate &date) : Date(fromQDate(date)) {}     // NOLINT
    /// A time of day on day 0, as fromQTime().
    Date(const QTime &time) : Date(fromQTime(time)) {}     // NOLINT
    /// The serial: days since 30 December 1899, the time of day in the fraction.
    constexpr double serial() const { return m_serial; }

    /// Date-serial construction with roll-over: month 13 is January of the next year, day 0 the last
    /// day of the previous month, 2024-02-31 is 2 March 2024. Years 0-29 mean 2000-2029 and 30-99
    /// mean 1930-1999. Error(6) when the result falls outside the valid range.
    static Date fromYmd(int year, int month, int day);
    /// Time-serial construction with carries (61 seconds is 1 minute 1 second; negative values borrow).
    static Date fromHms(int hour, int minute, int second);
    /// The date and time of `dateTime`, to the millisecond.
    static Date fromQDateTime(const QDateTime &dateTime);
    /// The day of `date`, at midnight.
    static Date fromQDate(const QDate &date);
    /// A time of day on day 0 (30 December 1899), to the millisecond.
    static Date fromQTime(const QTime &time);

    /// The date and time as a local QDateTime.
    QDateTime toQDateTime() const;
    /// The day as a QDate.
    QDate toQDate() const;
    /// The time of day as a QTime.
    QTime toQTime() const;

    int year() const;   ///< the year, 100..9999
    int month() const;  ///< the month, 1..12
    int day() const;    ///< the day of the month, 1..31
    int hour() const;   ///< the hour, 0..23
    int minute() const; ///< the minute, 0..59
    int second() const; ///< the second, 0..59
    int dayOfWeek() const; ///< 1 = Sunday ... 7 = Saturday, as the host counts

    /// All six fields at once, rounded to the nearest second (so 0.99999999 is the next midnight,
    /// not 23:59:59.999). A serial outside the valid range gives the fields of the nearest valid
    /// moment; a non-finite one those of serial 0.
    struct Parts {
        int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;
        friend constexpr bool operator==(const Parts &, const Parts &) = default;
    };
    /** @var Parts::year
     * The year (serial 0: 1899). */
    /** @var Parts::month
     * The month, 1..12. */
    /** @var Parts::day
     * The day of the month, 1..31. */
    /** @var Parts::hour
     * The hour, 0..23. */
    /** @var Parts::minute
     * The minute, 0..59. */
    /** @var Parts::second
     * The second, 0..59. */
    /// All six fields at once (see Parts).
    Parts parts() const;

    /// Whether `year` has a 29 February (proleptic Gregorian).
    static bool isLeapYear(int year);
    static int daysInMonth(int year, int month); ///< 0 for a month outside 1..12

    /// Today (time 00:00), from Tarnwell::Clock.
    static Date today();
    /// This moment, from Tarnwell::Clock.
    static Date now();

    Date datePart() const; ///< the time of day removed
    Date timePart() const; ///< the fraction only (day 0)

    /// Whether `serial` lies between #MinSerial and #MaxSerial.
    static bool isValidSerial(double serial);
    /// Text-to-date test of the host: numeric dates in the locale's order, month names, times.
    static bool isDateText(const QString &text, const QLocale &locale = QLocale());
    /// The date a text reads as (see isDateText()), or nothing.
    static std::optional<Date> parse(const QString &text, const QLocale &locale = QLocale());

    friend constexpr bool operator==(Date a, Date b) { return a.m_serial == b.m_serial; }
    friend constexpr auto operator<=>(Date a, Date b) { return a.m_serial <=> b.m_serial; }

private:
    double m_serial = 0.0;
};

} // namespace Tarnwell

Q_DECLARE_METATYPE(Tarnwell::Date)
