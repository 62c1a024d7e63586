#pragma once
#include <tarnwell/global.h>

#include <QObject>

/// @brief Tarnwell's controls, property pages, value types and enumerations.
///
/// The public enumerations are unscoped, because Qt Designer edits only unscoped enum
/// properties; every constant carries the tw prefix so none of them collides with a host's names.
namespace Tarnwell {
Q_NAMESPACE_EXPORT(TARNWELL_EXPORT)

/// The frame border of a control (ControlFrame::BorderStyle).
enum twBorderStyleConstants : int {
    twNone = 0,        ///< no border
    twFixedSingle = 1, ///< a flat one-pixel box
    twFixed3D = 2      ///< the style's sunken line-edit panel, focus ring included (default)
};
Q_ENUM_NS(twBorderStyleConstants)

/// The case a MaskBox gives typed characters and its value (MaskBox::CharCase).
enum twCharCaseConstants : int {
    twAnyCase = 0,   ///< as typed (default)
    twUpperCase = 1, ///< upper case
    twLowerCase = 2  ///< lower case
};
Q_ENUM_NS(twCharCaseConstants)

/// The numeric type of a NumberBox (NumberBox::DataType); the QVariant type each holds is
/// listed on the "Value types" page.
enum twDataTypeConstants : int {
    twByte = 0,     ///< 0..255, held as qint16
    twInteger = 1,  ///< 16-bit integer, qint16
    twLong = 2,     ///< 32-bit integer, qint32
    twSingle = 3,   ///< single precision, float
    twDouble = 4,   ///< double precision, double
    twCurrency = 5, ///< exact fixed point with four decimals, Tarnwell::Currency (default)
    twDecimal = 6,  ///< exact 96-bit decimal, Tarnwell::Decimal
};
Q_ENUM_NS(twDataTypeConstants)

/// Where a NumberBox shows its currency symbol (NumberBox::ShowCurrencySymbol).
enum twCurrencyPositionConstants : int {
    twNoCurrency = 0, ///< no symbol
    twLeft = 1,       ///< before the number
    twRight = 2       ///< after the number
};
Q_ENUM_NS(twCurrencyPositionConstants)

/// The order of a DateBox's fields (DateBox::Format).
enum twDateFormatConstants : int {
    twDayMonthYear = 0, ///< "##/##/####", shown "dd/mmm/yyyy" (default)
    twMonthDayYear = 1, ///< "##/##/####" month first, shown "mmm/dd/yyyy"
    twMonthYear = 2,    ///< "##/####", shown "mmm/yyyy"; the up-down button, no calendar
    twYearMonth = 3,    ///< "####/##", shown "yyyy/mmm"; the up-down button, no calendar
    twYearMonthDay = 4, ///< "####/##/##", shown "yyyy/mmm/dd"
};
Q_ENUM_NS(twDateFormatConstants)

/// The fields of a TimeBox (TimeBox::Format).
enum twTimeFormatConstants : int {
    twHourMinuteSecondAMPM = 0, ///< 12-hour with seconds, "01:30:00 PM" (default)
    twHourMinuteAMPM = 1,       ///< 12-hour, "01:30 PM"
    twHourMinuteSecond = 2,     ///< 24-hour with seconds, "13:30:00"
    twHourMinute = 3,           ///< 24-hour, "13:30"
};
Q_ENUM_NS(twTimeFormatConstants)

/// The host's text-box alignment constants (Alignment property).
enum twAlignmentConstants : int {
    twLeftJustify = 0,  ///< left
    twRightJustify = 1, ///< right
    twCenter = 2        ///< centred
};
Q_ENUM_NS(twAlignmentConstants)

} // namespace Tarnwell
