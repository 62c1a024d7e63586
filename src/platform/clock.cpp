#include <tarnwell/clock.h>

#include <optional>

namespace Tarnwell {
namespace {

// One user-interface thread reads and writes this; no lock needed.
std::optional<QDateTime> &pinned()
{
    static std::optional<QDateTime> moment;
    return moment;
}

} // namespace

QDateTime Clock::now()
{
    const std::optional<QDateTime> &moment = pinned();
    return moment ? *moment : QDateTime::currentDateTime();
}

void Clock::pin(const QDateTime &moment)
{
    // An invalid moment would leave every "today" undefined; it means "back to the system clock".
    if (moment.isValid())
        pinned() = moment;
    else
        pinned().reset();
}

void Clock::unpin()
{
    pinned().reset();
}

} // namespace Tarnwell
