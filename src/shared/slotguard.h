#pragma once
#include <utility>

namespace Tarnwell {

// Qt calls slots from its event loop, which no exception may reach: a slot made here drops what
// its call threw (a host's handler, a value refused half-way), as a key that failed is dropped.
template<typename F>
auto guardedSlot(F f)
{
    return [f = std::move(f)](auto &&...args) {
        try {
            f(std::forward<decltype(args)>(args)...);
        } catch (...) {
        }
    };
}

} // namespace Tarnwell
