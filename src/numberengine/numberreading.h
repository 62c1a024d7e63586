#pragma once
#include <tarnwell/global.h>

#include "platform/decimaldigits.h"

#include <QString>
#include <QStringView>
#include <QVarLengthArray>
#include <QVariant>

#include <string_view>

namespace Tarnwell {

// A bare number as the number box reads it: an optional minus, digits, and at most one decimal
// character followed by digits, nothing else (grouping characters and the currency symbol are
// taken off before). Digits of any script count. An empty whole part reads as 0.
//
// It also answers what the number is in a data type where that follows from the digits alone,
// without going through text: the very value, of the very storage, that the type's own text
// conversion gives the canonical text.
class NumberReading
{
public:
    // Reads `bare` strictly; false (the reading then holds nothing useful) for anything else.
    bool read(QStringView bare, QChar decimal, QChar minus);

    bool negative = false;
    bool hasDecimal = false;
    int whole = 0;    // whole digits kept, leading zeros dropped
    int decimals = 0; // digits after the decimal character, as typed
    QVarLengthArray<char, 48> digits; // the whole digits, then the decimals: '0'..'9'

    std::string_view wholeDigits() const { return std::string_view(digits.data(), size_t(whole)); }
    // The decimals without trailing zeros: "-12.500" and "-12.5" are the same number.
    std::string_view significantDecimals() const;
    // "-123.45": C-locale text for the type's own conversion.
    QString canonical() const;
    // The number's decimal digits, trailing zeros dropped.
    DecimalDigits decimalDigits() const;
    // The same number, digit for digit (the sign ignored on request, for a zero).
    bool sameNumber(const NumberReading &other, bool ignoreSign) const;

    // The number in the data type, within the type's limits, when that is plain from the digits;
    // Empty when the digits round, overflow or leave the limits, which the type's text conversion
    // then decides. `shownExactly` is set when the value formats back to these very digits
    // (always for the exact types; for a Double up to its 15 digits; never for a Single).
    QVariant quickValue(int dataType, bool *shownExactly) const;

    // A decimal digit of any script, or -1.
    static int digitOf(QChar c);
};

} // namespace Tarnwell
