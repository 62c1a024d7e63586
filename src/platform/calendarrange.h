#pragma once
#include <tarnwell/date.h>

namespace Tarnwell {

// The span of the drop-down calendar: 1 January 1601 to 31 December 9999. Narrower than the date
// type's, it bounds every date a DateBox holds and gives its default Minimum and Maximum.
struct CalendarRange {
    static constexpr Date First{-109205.0};
    static constexpr Date Last{Date::MaxSerial};
};

} // namespace Tarnwell
