#pragma once
#include <tarnwell/global.h>

#include <QDateTime>

namespace Tarnwell {

// The one source of "today" and "now" for every control, so tests and demos can fix it.
class TARNWELL_EXPORT Clock
{
public:
    static QDateTime now();
    static void pin(const QDateTime &moment);
    static void unpin();
};

} // namespace Tarnwell
