#pragma once
#include <tarnwell/global.h>

#include <QString>

#include <stdexcept>

namespace Tarnwell {

/// @brief A refused property set or conversion.
///
/// The number is the host's run-time error number; the control that threw is left exactly as it
/// was before the call. The "Value types" page says when each number is raised.
///
/// @code
/// try {
///     price->setValue(QStringLiteral("abc"));
/// } catch (const Tarnwell::Error &e) {
///     qWarning() << e.number() << e.message(); // 13 "Type mismatch"
/// }
/// @endcode
class TARNWELL_EXPORT Error : public std::runtime_error
{
public:
    /// The error numbers the library raises, with their standard texts.
    enum Number : int {
        Overflow = 6,                   ///< "Overflow": a number outside its type's limits
        TypeMismatch = 13,              ///< "Type mismatch": no number, date or text where one is needed
        InvalidPropertyValue = 380,     ///< "Invalid property value"
        SetNotSupportedAtRuntime = 382, ///< "Set not supported at runtime": read-only at run time
        SetNotPermitted = 387,          ///< "Set not permitted": not settable at design time
    };

    /// An error of `number` (one of #Number); what() is its message.
    explicit Error(int number);

    /// The error number (6, 13, 380, 382 or 387).
    int number() const noexcept { return m_number; }
    /// The standard text of the number, as textOf() gives it.
    QString message() const { return textOf(m_number); }

    /// The host's standard text for a run-time error number ("Overflow", "Type mismatch", ...).
    static QString textOf(int number);

private:
    int m_number;
};

} // namespace Tarnwell
