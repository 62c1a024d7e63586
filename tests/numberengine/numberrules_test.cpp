#include "numberengine/numberrules.h"

#include <tarnwell/constants.h>
#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"

#include <functional>

namespace Tarnwell {
namespace {

using TestSupport::describe;
using TestSupport::rowName;

QString describe(const std::optional<QVariant> &v)
{
    return v ? describe(*v) : QStringLiteral("none");
}

QVariant str(const char *text) { return QVariant(QString::fromLatin1(text)); }

// A property set on the rules of an Integer box bounded 0..100: the error it throws, and then
// Minimum|Maximum|Increment as they stand.
struct SetRow { const char *name; std::function<bool(NumberRules &)> set; int error; bool stored; const char *after; };
class NumberRulesSets : public testing::TestWithParam<SetRow> {};

TEST_P(NumberRulesSets, CheckConvertAndKeepTheBoundsInOrder)
{
    const SetRow &row = GetParam();
    NumberRules rules(twInteger);
    ASSERT_TRUE(rules.setMaximum(100));
    ASSERT_TRUE(rules.setMinimum(0));
    bool stored = false;
    EXPECT_ERROR(stored = row.set(rules), row.error);
    EXPECT_EQ(stored, row.stored);
    const QString after = QStringList{describe(rules.minimum()), describe(rules.maximum()),
                                      describe(rules.increment())}.join(u'|');
    EXPECT_EQ(after, QString::fromLatin1(row.after));
}

const auto minimum = [](QVariant v) { return [v](NumberRules &r) { return r.setMinimum(v); }; };
const auto maximum = [](QVariant v) { return [v](NumberRules &r) { return r.setMaximum(v); }; };
const auto increment = [](QVariant v) {
    return [v](NumberRules &r) {
        r.setIncrement(v);
        return true;
    };
};

INSTANTIATE_TEST_SUITE_P(Table, NumberRulesSets, testing::Values(
    SetRow{"minimum taken converted", minimum(str("7.5")), 0, true, "short:8|short:100|short:1"},
    SetRow{"minimum equal to maximum", minimum(100), 0, true, "short:100|short:100|short:1"},
    SetRow{"minimum above maximum ignored", minimum(101), 0, false, "short:0|short:100|short:1"},
    SetRow{"minimum not a number", minimum(str("ten")), 13, false, "short:0|short:100|short:1"},
    SetRow{"minimum null", minimum(Variant::null()), 13, false, "short:0|short:100|short:1"},
    SetRow{"minimum past the type", minimum(-32769), 6, false, "short:0|short:100|short:1"},
    SetRow{"maximum below minimum ignored", maximum(-1), 0, false, "short:0|short:100|short:1"},
    SetRow{"maximum at the type's top", maximum(32767), 0, true, "short:0|short:32767|short:1"},
    SetRow{"maximum past the type", maximum(32768), 6, false, "short:0|short:100|short:1"},
    SetRow{"maximum empty text not a number", maximum(str("")), 13, false, "short:0|short:100|short:1"},
    SetRow{"increment rounds half to even", increment(2.5), 0, true, "short:0|short:100|short:2"},
    SetRow{"increment negative", increment(-3), 0, true, "short:0|short:100|short:-3"},
    SetRow{"increment not a number", increment(str("x")), 13, false, "short:0|short:100|short:1"},
    SetRow{"increment past the type", increment(40000), 6, false, "short:0|short:100|short:1"}), rowName);

struct TypeRow { const char *name; int type; const char *limits; };
class NumberRulesType : public testing::TestWithParam<TypeRow> {};

// A new type resets the bounds to its limits and the increment to 1, whatever was set before.
TEST_P(NumberRulesType, ResetsBoundsAndIncrement)
{
    NumberRules rules(twLong);
    rules.setMinimum(5);
    rules.setIncrement(9);
    rules.setDataType(GetParam().type);
    const QString limits = QStringList{describe(rules.minimum()), describe(rules.maximum()),
                                       describe(rules.increment())}.join(u'|');
    EXPECT_EQ(limits, QString::fromLatin1(GetParam().limits));
    EXPECT_EQ(describe(rules.lowerLimit()), describe(rules.minimum()));
    EXPECT_EQ(describe(rules.upperLimit()), describe(rules.maximum()));
}

INSTANTIATE_TEST_SUITE_P(Table, NumberRulesType, testing::Values(
    TypeRow{"byte", twByte, "short:0|short:255|short:1"},
    TypeRow{"single", twSingle, "double:-3.402823E+38|double:3.402823E+38|short:1"},
    TypeRow{"currency", twCurrency, "Currency:-922337203685477|Currency:922337203685477|short:1"},
    TypeRow{"decimal", twDecimal,
            "Decimal:-79228162514264337593543950335|Decimal:79228162514264337593543950335|short:1"},
    TypeRow{"unknown holds nothing", 9, "Empty|Empty|short:1"}), rowName);

// The questions asked of a value, on a Currency box bounded 1.5..10 with Increment 0.25.
struct ValueRow {
    const char *name; QVariant value;
    bool withinLimits, withinRange; const char *raised, *lowered, *repair, *up, *down;
};
class NumberRulesValues : public testing::TestWithParam<ValueRow> {};

TEST_P(NumberRulesValues, AnswerForTheTypeAndTheRange)
{
    const ValueRow &row = GetParam();
    NumberRules rules(twCurrency);
    rules.setMaximum(10);
    rules.setMinimum(1.5);
    rules.setIncrement(0.25);
    EXPECT_EQ(rules.isWithinLimits(row.value), row.withinLimits);
    EXPECT_EQ(rules.isWithinRange(row.value), row.withinRange);
    EXPECT_EQ(describe(rules.raisedToMinimum(row.value)), QString::fromLatin1(row.raised));
    EXPECT_EQ(describe(rules.loweredToMaximum(row.value)), QString::fromLatin1(row.lowered));
    EXPECT_EQ(describe(rules.repairOnLeaving(row.value)), QString::fromLatin1(row.repair));
    EXPECT_EQ(describe(rules.stepped(row.value, true)), QString::fromLatin1(row.up));
    EXPECT_EQ(describe(rules.stepped(row.value, false)), QString::fromLatin1(row.down));
}

INSTANTIATE_TEST_SUITE_P(Table, NumberRulesValues, testing::Values(
    ValueRow{"inside", 5, true, true, "none", "none", "none", "Currency:5.25", "Currency:4.75"},
    ValueRow{"on the minimum", 1.5, true, true, "none", "none", "none", "Currency:1.75", "Currency:1.25"},
    ValueRow{"below: repaired to the minimum", 0, true, false, "Currency:1.5", "none", "Currency:1.5",
             "Currency:0.25", "Currency:-0.25"},
    ValueRow{"above: repaired to the minimum, not zero", 11, true, false, "none", "Currency:10",
             "Currency:1.5", "Currency:11.25", "Currency:10.75"},
    ValueRow{"text read in the locale", str("2.5"), true, true, "none", "none", "none", "Currency:2.75",
             "Currency:2.25"},
    ValueRow{"at the type's top the step up stops", str("922337203685477"), true, false, "none",
             "Currency:10", "Currency:1.5", "Empty", "Currency:922337203685476.75"},
    ValueRow{"past the type", str("922337203685477.5"), false, false, "none", "Currency:10",
             "Currency:1.5", "Empty", "Empty"}), rowName);

struct StepRow { const char *name; int type; QVariant value, increment; bool up; const char *expected; };
class NumberRulesStep : public testing::TestWithParam<StepRow> {};

// Stepping stays within the type's limits, never the bounds, and counts in the type.
TEST_P(NumberRulesStep, StaysInTheType)
{
    const StepRow &row = GetParam();
    NumberRules rules(row.type);
    rules.setIncrement(row.increment);
    rules.setMaximum(rules.convert(10));
    EXPECT_EQ(describe(rules.stepped(row.value, row.up)), QString::fromLatin1(row.expected));
}

INSTANTIATE_TEST_SUITE_P(Table, NumberRulesStep, testing::Values(
    StepRow{"byte past 255", twByte, 250, 10, true, "Empty"},
    StepRow{"byte below 0", twByte, 5, 10, false, "Empty"},
    StepRow{"byte past maximum allowed", twByte, 10, 10, true, "short:20"},
    StepRow{"integer top", twInteger, 32767, 1, true, "Empty"},
    StepRow{"long negative increment", twLong, 0, -3, true, "int:-3"},
    StepRow{"single past its published limit", twSingle, 3.4028E+38, 1E+34, true, "Empty"},
    StepRow{"double", twDouble, 0.1, 0.2, true, "double:0.3"},
    StepRow{"decimal exact", twDecimal, QVariant::fromValue(Decimal::parse(QStringLiteral("0.1"), QLocale::c())),
            str("0.2"), true, "Decimal:0.3"}), rowName);

} // namespace
} // namespace Tarnwell
