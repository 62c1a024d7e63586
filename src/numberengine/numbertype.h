#pragma once
#include <tarnwell/global.h>

#include <QLocale>
#include <QString>
#include <QVariant>

#include <optional>

namespace Tarnwell {

// The seven storage types of a number box (twDataTypeConstants) and everything that depends on
// the type alone: its limits, conversion of any value to it, range tests and exact arithmetic.
// All static, no state. Values use the variant conventions of <tarnwell/variant.h>: Byte and
// Integer are qint16, Long qint32, Single float, Double double, Currency and Decimal their own
// types; Empty is an invalid QVariant.
//
// Nothing here throws: a conversion or operation that fails yields Empty (or false, or nullopt),
// exactly as the control swallows conversion errors. A data type outside 0..6 holds nothing:
// its limits are Empty, every conversion is Empty and no value is ever in range.
class NumberType
{
public:
    // The limits the control enforces, kept at the published figures: Currency stops at the
    // integer part (+-922337203685477), Single and Double at +-3.402823E+38 and
    // +-1.79769313486231E+308 held as double, Byte 0..255 and Integer as qint16, Long as qint32.
    static QVariant typeLowerLimit(int dataType);
    static QVariant typeUpperLimit(int dataType);

    // The value converted to the type with the host's variant rules (banker's rounding to the
    // integer types; texts read in `locale`). Empty converts to 0. Byte is an Integer in 0..255:
    // anything that rounds outside gives Empty, as does any failed conversion.
    static QVariant convertToType(const QVariant &value, int dataType,
                                  const QLocale &locale = QLocale());

    // Whether the value, converted to the type, lies within minimum..maximum (both converted to
    // the type, bounds included) when useMinMax is set, else within the type's limits. False for
    // anything that does not convert.
    static bool isInRange(const QVariant &value, bool useMinMax, int dataType,
                          const QVariant &minimum = QVariant(), const QVariant &maximum = QVariant(),
                          const QLocale &locale = QLocale());

    // Decimal places a type may carry by the user's regional settings: 0 for the integer types,
    // iDigits for Single and Double, iCurrDigits for Currency and Decimal, as the texts the
    // settings reader returns. An empty (unset) setting gives 2, and so does one that is not a
    // number or is negative; the Control Panel's own ceiling of 9 caps it. 0 for an unknown type.
    static qint16 regionalDecimalPlaces(int dataType, const QString &iDigits,
                                        const QString &iCurrDigits);

    // -1, 0 or 1 comparing a and b in the type's arithmetic: exactly for Currency and Decimal,
    // through double for the integer, Single and Double types, each side as it is held. A
    // Single holding the float nearest 3.402823E+38 is therefore above that published limit
    // (held as a double), as the host's own comparison finds. nullopt when either side is not
    // a number of that domain.
    static std::optional<int> compare(const QVariant &a, const QVariant &b, int dataType);

    // a + b, a - b and -a in the type: both operands converted to the type first, Currency and
    // Decimal exact, integer types without overflow. A result the type cannot hold is Empty;
    // the type's published limits are not applied here (test isInRange on the result).
    static QVariant add(const QVariant &a, const QVariant &b, int dataType);
    static QVariant subtract(const QVariant &a, const QVariant &b, int dataType);
    static QVariant negate(const QVariant &a, int dataType);

    // Sign tests on a value of any numeric kind (Empty is zero; a non-number is neither).
    static bool isNegative(const QVariant &value);
    static bool isZero(const QVariant &value);

    // The value to put back when the control loses the focus with `value` outside
    // minimum..maximum: 0, or the minimum when 0 lies below it. nullopt when the value is in
    // range and nothing needs repairing. The caller assigns the answer through its Value setter,
    // which may still refuse it (a maximum below 0).
    static std::optional<QVariant> rangeRepair(const QVariant &value, int dataType,
                                               const QVariant &minimum, const QVariant &maximum);
};

} // namespace Tarnwell
