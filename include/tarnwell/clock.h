#pragma once
#include <tarnwell/global.h>

#include <QDateTime>

namespace Tarnwell {

/// The one source of "today" and "now" for every control, so tests and demos can fix it.
class TARNWELL_EXPORT Clock
{
public:
    /// The local date and time: the pinned moment while one is pinned, else the system clock's.
    static QDateTime now();
    /// Fixes now() at `moment` until unpin().
    static void pin(const QDateTime &moment);
    /// Returns now() to the system clock.
    static void unpin();
};

} // namespace Tarnwell
