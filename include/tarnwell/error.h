#pragma once
#include <tarnwell/global.h>

#include <QString>

#include <stdexcept>

namespace Tarnwell {

// A refused property set or conversion. The number is the host's run-time error number; the
// control that threw is left exactly as it was before the call.
class TARNWELL_EXPORT Error : public std::runtime_error
{
public:
    enum Number : int {
        Overflow = 6,
        TypeMismatch = 13,
        InvalidPropertyValue = 380,
        SetNotSupportedAtRuntime = 382,
        SetNotPermitted = 387,
    };

    explicit Error(int number);

    int number() const noexcept { return m_number; }
    QString message() const { return textOf(m_number); }

    // The host's standard text for a run-time error number ("Overflow", "Type mismatch", ...).
    static QString textOf(int number);

private:
    int m_number;
};

} // namespace Tarnwell
