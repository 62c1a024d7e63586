#pragma once
#include <QLocale>
#include <QString>
#include <QStringView>

namespace Tarnwell {

// A number read from text the way the host language reads one: blanks around it, a sign in front
// or behind (or parentheses), the locale's currency symbol before or after the digits, the
// locale's grouping characters anywhere in the integer part, its decimal character, and an
// exponent ("1E5", "2.5e-3", "1D2"). The result is the significant digits and a power of ten, so
// every numeric type can build its own value from it exactly. Scanning never allocates.
class NumericText
{
public:
    static constexpr int MaxDigits = 40;

    // A locale's number characters, kept for the last locale asked about: QLocale builds a new
    // string on every call, and these are wanted on every keystroke.
    struct LocaleChars {
        QLocale locale{QLocale::c()};
        QString decimal;
        QString group;
        QString currency;
        bool groupIsBlank = false;
        bool valid = false;
    };
    static const LocaleChars &localeChars(const QLocale &locale);

    // False for text that is not a number; the fields then hold nothing useful.
    bool scan(QStringView text, const QLocale &locale, bool allowExponent = true);

    bool negative = false;
    char digits[MaxDigits] = {}; // significant digits as '0'..'9', no leading zeros
    int count = 0;               // 0 for the value zero
    int exponent = 0;            // value = digits x 10^exponent
    // Digits beyond MaxDigits: the first one dropped and whether any later one was not zero, so
    // the builders can still round correctly.
    int firstDropped = 0;
    bool stickyDropped = false;

    // The power of ten of the leading digit (0 for 1..9, -1 for 0.1..0.9); meaningless for zero.
    int magnitude() const { return count + exponent - 1; }
};

} // namespace Tarnwell
