// Whole-range checks: every minute of the day stepped in every field against plain arithmetic on
// seconds of the day, and every box text read exactly as the general date parser reads it.
#include "timefields/timefields.h"

#include <tarnwell/clock.h>

#include <gtest/gtest.h>

#include <cmath>

using Tarnwell::Date;
using Tarnwell::TimeFields;

namespace {

constexpr int Day = 86400;

TEST(TimeFieldsSweep, EveryMinuteStepsLikeSecondArithmetic)
{
    for (const auto &[min, max] : {std::pair{0, Day - 1}, std::pair{6 * 3600, 18 * 3600}}) {
        for (int format = 0; format < 4; ++format) {
            const TimeFields fields(format);
            const bool seconds = format == 0 || format == 2;
            // Caret at hour, minute, second (none without seconds), and the marker or the end.
            const int carets[] = {0, 3, seconds ? 6 : -1, format % 2 ? 6 : 9};
            for (int minute = 0; minute < 24 * 60; ++minute) {
                // Seconds vary with the minute, so 00:00:00 and 23:59:59 are both visited.
                const int base = minute * 60 + minute % 60;
                const int start = seconds ? base : base - base % 60;
                const int hour = start / 3600;
                for (int field = 0; field < 4; ++field) {
                    for (const int delta : {1, -1}) {
                        if (carets[field] < 0)
                            continue;
                        const int moves[] = {hour + delta < 0 ? 23 * 3600 : delta * 3600, delta * 60, delta,
                                             hour < 12 ? 12 * 3600 : -12 * 3600};
                        const int moved = start + moves[field];
                        const int expected = moved < 0 ? moved + Day : moved;
                        const int caret = carets[field] + minute % 3;
                        const auto got = fields.step(Date(double(base) / Day), caret, delta > 0,
                                                     Date(double(min) / Day), Date(double(max) / Day));
                        const bool inside = expected >= min && expected <= max;
                        ASSERT_EQ(got.has_value(), inside) << format << ' ' << base << ' ' << caret << ' ' << delta;
                        ASSERT_EQ(inside ? std::llround(got->serial() * Day) : expected, expected)
                            << format << ' ' << base << ' ' << caret << ' ' << delta;
                    }
                }
            }
        }
    }
}

// Box texts of every hour and minute 0..99, sampled seconds and both markers, in every format
// and with both separators: the reading and the A/P candidate must be what the general date
// parser makes of the canonical text written with colons (the separator is only the look).
TEST(TimeFieldsSweep, ReadingAndSwitchAgreeWithDateParser)
{
    Tarnwell::Clock::pin(QDateTime(QDate(2024, 2, 10), QTime(9, 0)));
    const Date min(Date::MinSerial), max(Date::MaxSerial);
    constexpr int Seconds[] = {0, 9, 59, 60};
    for (const char sep : {':', '.'}) {
        for (int format = 0; format < 4; ++format) {
            const TimeFields fields(format, QLatin1Char(sep));
            for (int h = 0; h < 100; ++h) {
                for (int m = 0; m < 100; ++m) {
                    for (int v = 0; v < 10; ++v) {
                        const int s = v % 5 == 4 ? (h * 7 + m) % 100 : Seconds[v % 5];
                        const bool pm = v >= 5;
                        if ((!fields.hasSeconds() && v % 5 != 0) || (!fields.hasAmPm() && pm))
                            continue;
                        // Single-digit hours sometimes with a blank, as typed.
                        QString text = QString::asprintf(h < 10 && m % 2 ? "%2d%c%02d" : "%02d%c%02d", h, sep, m);
                        if (fields.hasSeconds())
                            text += QString::asprintf("%c%02d", sep, s);
                        if (fields.hasAmPm())
                            text += QLatin1String(pm ? " PM" : " AM");
                        const QString n = fields.normalizeTimeText(text);
                        ASSERT_EQ(n.isEmpty() || n.at(2) == QLatin1Char(sep), true) << qPrintable(text);
                        const QString colon = QString(n).replace(QLatin1Char(sep), u':');
                        const auto parsed = Date::parse(colon);
                        const TimeFields::Reading r = fields.read(text, u"1", min, max);
                        ASSERT_EQ(r.valid(), parsed && TimeFields::isTimeTextInRange(n)) << qPrintable(text);
                        ASSERT_EQ(r.valid() ? r.time : Date(), r.valid() ? *parsed : Date()) << qPrintable(text);
                        if (fields.hasAmPm()) {
                            const auto half = h % 2 ? TimeFields::DayHalf::AM : TimeFields::DayHalf::PM;
                            const QString candidate = colon.left(fields.hasSeconds() ? 9 : 6) + (h % 2 ? "AM" : "PM");
                            ASSERT_EQ(fields.switchDayHalf(text, half, min, max).candidate, Date::parse(candidate))
                                << qPrintable(text);
                        }
                    }
                }
            }
        }
    }
    Tarnwell::Clock::unpin();
}

} // namespace
