#include <tarnwell/error.h>

namespace Tarnwell {

Error::Error(int number) : std::runtime_error(textOf(number).toStdString()), m_number(number) {}

QString Error::textOf(int number)
{
    switch (number) {
    case Overflow:
        return QStringLiteral("Overflow");
    case TypeMismatch:
        return QStringLiteral("Type mismatch");
    case InvalidPropertyValue:
        return QStringLiteral("Invalid property value");
    case SetNotSupportedAtRuntime:
        return QStringLiteral("Set not supported at runtime");
    case SetNotPermitted:
        return QStringLiteral("Set not permitted");
    default:
        return QStringLiteral("Run-time error %1").arg(number);
    }
}

} // namespace Tarnwell
