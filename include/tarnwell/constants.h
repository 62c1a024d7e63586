#pragma once
#include <tarnwell/global.h>

#include <QObject>

// The public enumerations. Unscoped, because Qt Designer edits only unscoped enum properties;
// every constant carries the tw prefix so none of them collides with a host's names.
namespace Tarnwell {
Q_NAMESPACE_EXPORT(TARNWELL_EXPORT)

enum twBorderStyleConstants : int { twNone = 0, twFixedSingle = 1, twFixed3D = 2 };
Q_ENUM_NS(twBorderStyleConstants)

enum twCharCaseConstants : int { twAnyCase = 0, twUpperCase = 1, twLowerCase = 2 };
Q_ENUM_NS(twCharCaseConstants)

enum twDataTypeConstants : int {
    twByte = 0,
    twInteger = 1,
    twLong = 2,
    twSingle = 3,
    twDouble = 4,
    twCurrency = 5,
    twDecimal = 6,
};
Q_ENUM_NS(twDataTypeConstants)

enum twCurrencyPositionConstants : int { twNoCurrency = 0, twLeft = 1, twRight = 2 };
Q_ENUM_NS(twCurrencyPositionConstants)

enum twDateFormatConstants : int {
    twDayMonthYear = 0,
    twMonthDayYear = 1,
    twMonthYear = 2,
    twYearMonth = 3,
    twYearMonthDay = 4,
};
Q_ENUM_NS(twDateFormatConstants)

enum twTimeFormatConstants : int {
    twHourMinuteSecondAMPM = 0,
    twHourMinuteAMPM = 1,
    twHourMinuteSecond = 2,
    twHourMinute = 3,
};
Q_ENUM_NS(twTimeFormatConstants)

// The host's text-box alignment constants (Alignment property).
enum twAlignmentConstants : int { twLeftJustify = 0, twRightJustify = 1, twCenter = 2 };
Q_ENUM_NS(twAlignmentConstants)

} // namespace Tarnwell
