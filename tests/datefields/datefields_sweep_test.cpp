// Whole-range sweeps: every day through the edit mask and back, and every short field of digits
// and blanks against the host's number conversion.
#include "common/testsupport.h"
#include "datefields/datefields.h"
#include "maskengine/maskengine.h"

#include <tarnwell/variant.h>

using namespace Tarnwell;
using TestSupport::errorOf;

namespace {

class EveryDay : public testing::TestWithParam<int> {};

TEST_P(EveryDay, RoundTripsThroughTheMask)
{
    const DateFields fields(GetParam(), QLatin1Char('-'));
    const MaskEngine engine(fields.editMask().value());
    QString digits;
    for (auto day = qint64(DateFields::MinimumDate.serial()); day <= qint64(DateFields::MaximumDate.serial()); ++day) {
        const Date date{double(day)};
        fields.dateToEditDigits(date, digits);
        const QString shown = engine.formatMaskValue(digits);
        const DateFields::Reading r = fields.parseEditText(shown);
        if (!r.isAcceptable() || r.date != date)
            FAIL() << "serial " << day << " shown as " << shown.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(FormatsWithADay, EveryDay,
                         testing::Values(twDayMonthYear, twMonthDayYear, twYearMonthDay));

// Every field of up to four characters of " 0123456789", and up to six of " 039", read here and
// by the host's conversion, in a locale grouping with commas and in one grouping with blanks.
TEST(FieldNumbers, AgreeWithTheHostConversion)
{
    for (const QLocale &locale : {TestSupport::enUS, TestSupport::frFR}) {
        const DateFields fields(twDayMonthYear, QLatin1Char('/'), locale);
        for (const auto &[alphabet, maxLength] : {std::pair{u" 0123456789"_qs, 4}, {u" 039"_qs, 6}}) {
            const int base = int(alphabet.size());
            for (int length = 0, count = 1; length <= maxLength; ++length, count *= base) {
                for (int n = 0; n < count; ++n) {
                    QString field;
                    for (int i = 0, rest = n; i < length; ++i, rest /= base)
                        field.append(alphabet.at(rest % base));
                    qint16 host = 0;
                    const int error = errorOf([&] { host = Variant::toInteger(field, locale); });
                    const DateFields::FieldNumber mine = fields.readField(field);
                    const int mineError = mine.kind == DateFields::FieldNumber::Overflow ? Error::Overflow
                        : mine.kind == DateFields::FieldNumber::NotANumber ? Error::TypeMismatch : 0;
                    if (error != mineError || (!error && host != mine.value))
                        FAIL() << "[" << field.toStdString() << "] in " << locale.name().toStdString();
                }
            }
        }
    }
}

} // namespace
