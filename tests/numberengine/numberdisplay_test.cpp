#include "numberengine/numberdisplay.h"
#include "numberengine/numbertype.h"
#include "numberengine/textworkspace.h"
#include "platform/numberformat.h"

#include <tarnwell/currency.h>
#include <tarnwell/decimal.h>

#include "common/testsupport.h"

#include <QRandomGenerator>

#include <cmath>

namespace Tarnwell {
namespace {

using TestSupport::deDE;
using TestSupport::enUS;
using TestSupport::rowName;

// Text "12345" throughout.
struct WorkspaceRow {
    const char *name; int start, length; const char *replace; int expStart, expLength; const char *selected;
};
class TextWorkspaceTable : public testing::TestWithParam<WorkspaceRow> {};

TEST_P(TextWorkspaceTable, ClampsLikeTheHostTextBox)
{
    const WorkspaceRow &row = GetParam();
    TextWorkspace box(QStringLiteral("12345"));
    box.setSelStart(row.start);
    box.setSelLength(row.length);
    if (row.replace)
        box.setSelText(QString::fromLatin1(row.replace));
    EXPECT_EQ(box.selStart(), row.expStart);
    EXPECT_EQ(box.selLength(), row.expLength);
    EXPECT_EQ(box.selText(), QString::fromLatin1(row.selected));
}

INSTANTIATE_TEST_SUITE_P(Selection, TextWorkspaceTable, testing::Values(
    WorkspaceRow{"inside", 1, 2, nullptr, 1, 2, "23"},
    WorkspaceRow{"start past end", 9, 2, nullptr, 5, 0, ""},
    WorkspaceRow{"length past end", 3, 9, nullptr, 3, 2, "45"},
    WorkspaceRow{"negative start", -4, 1, nullptr, 0, 1, "1"},
    WorkspaceRow{"negative length", 2, -1, nullptr, 2, 0, ""},
    WorkspaceRow{"replace selection", 1, 3, "ab", 3, 0, ""},
    WorkspaceRow{"insert at end", 5, 0, "x", 6, 0, ""}), rowName);

TEST(TextWorkspace, NewTextPutsTheCaretAtTheFront)
{
    TextWorkspace box(QStringLiteral("12345"));
    box.setSelStart(1);
    box.setSelLength(3);
    box.setText(QStringLiteral("9"));
    EXPECT_EQ(box.selStart() * 10 + box.selLength(), 0);
}

struct SymbolRow {
    const char *name; int position; const char *symbol; const char *text; int start, length;
    const char *bare; int bareStart, bareLength; int addedStart, addedLength;
};
class CurrencySymbol : public testing::TestWithParam<SymbolRow> {};

TEST_P(CurrencySymbol, StripAndAddKeepTheCaret)
{
    const SymbolRow &row = GetParam();
    NumberDisplay display(enUS);
    display.setShowCurrencySymbol(row.position);
    display.setCurrencySymbol(QString::fromLatin1(row.symbol));
    TextWorkspace box(QString::fromLatin1(row.text));
    box.setSelStart(row.start);
    box.setSelLength(row.length);
    display.stripCurrencySymbol(box);
    EXPECT_EQ(box.text(), QString::fromLatin1(row.bare));
    EXPECT_EQ(box.selStart(), row.bareStart);
    EXPECT_EQ(box.selLength(), row.bareLength);
    display.addCurrencySymbol(box);
    EXPECT_EQ(box.selStart(), row.addedStart);
    EXPECT_EQ(box.selLength(), row.addedLength);
}

INSTANTIATE_TEST_SUITE_P(Caret, CurrencySymbol, testing::Values(
    SymbolRow{"left, caret in digits", twLeft, "EUR", "EUR12.50", 5, 2, "12.50", 2, 2, 5, 0},
    SymbolRow{"left, caret inside symbol", twLeft, "EUR", "EUR12.50", 1, 4, "12.50", 0, 2, 3, 0},
    SymbolRow{"left, selection within symbol", twLeft, "EUR", "EUR12.50", 0, 2, "12.50", 0, 0, 3, 0},
    SymbolRow{"left, caret right after symbol", twLeft, "$", "$7.00", 1, 0, "7.00", 0, 0, 1, 0},
    SymbolRow{"right, caret kept", twRight, "EUR", "12.50EUR", 2, 1, "12.50", 2, 1, 2, 0},
    SymbolRow{"right, caret in symbol clamps", twRight, "EUR", "12.50EUR", 7, 0, "12.50", 5, 0, 5, 0},
    SymbolRow{"empty symbol untouched", twLeft, "", "12.50", 3, 1, "12.50", 3, 1, 3, 1},
    SymbolRow{"no currency untouched", twNoCurrency, "$", "12.50", 3, 1, "12.50", 3, 1, 3, 1},
    SymbolRow{"symbol missing: digits kept", twLeft, "$", "12.50", 3, 0, "12.50", 3, 0, 4, 0}), rowName);

struct FormatRow {
    const char *name; const QLocale &locale; int type; int places; bool grouping;
    int position; const char *symbol; QVariant value; const char *expected;
};
class FormatValue : public testing::TestWithParam<FormatRow> {};

TEST_P(FormatValue, ShowsTheNumberAsTheBoxDoes)
{
    const FormatRow &row = GetParam();
    NumberDisplay display(row.locale);
    display.setDecimalPlaces(qint16(row.places));
    display.setThousandSeparator(row.grouping);
    display.setShowCurrencySymbol(row.position);
    display.setCurrencySymbol(QString::fromLatin1(row.symbol));
    EXPECT_EQ(display.formatValue(row.value, row.type), QString::fromLatin1(row.expected));
}

INSTANTIATE_TEST_SUITE_P(Values, FormatValue, testing::Values(
    FormatRow{"grouped three places", enUS, twDouble, 3, true, twNoCurrency, "$", 1234567.5, "1,234,567.500"},
    FormatRow{"symbol right", enUS, twDouble, 3, true, twRight, "EUR", 1234567.5, "1,234,567.500EUR"},
    FormatRow{"symbol left, negative", enUS, twCurrency, 2, true, twLeft, "$", -5, "$-5.00"},
    FormatRow{"german", deDE, twDouble, 2, true, twNoCurrency, "$", 1234.5, "1.234,50"},
    FormatRow{"no grouping", enUS, twLong, 0, false, twNoCurrency, "$", -1234567, "-1234567"},
    FormatRow{"empty shows zero", enUS, twCurrency, 2, true, twNoCurrency, "$", QVariant(), "0.00"},
    FormatRow{"byte value", enUS, twByte, 0, true, twNoCurrency, "$", 255, "255"},
    FormatRow{"decimal exact", enUS, twDecimal, 3, true, twNoCurrency, "$",
          QVariant::fromValue(Decimal::parse(QStringLiteral("1234567890123456789012345.678"), QLocale::c())),
          "1,234,567,890,123,456,789,012,345.678"}), rowName);

// The display writes what the platform's general formatter writes for the display's pattern,
// over the locales a box meets, 0..5 places and grouping on and off.
void expectSameAsTheFormatter(const QVariant &value, int type)
{
    static const QLocale locales[] = {enUS, deDE, TestSupport::frFR,
                                      QLocale(QLocale::German, QLocale::Switzerland),
                                      QLocale(QLocale::Swedish, QLocale::Sweden),
                                      QLocale(QLocale::Hindi, QLocale::India)};
    for (const QLocale &locale : locales) {
        NumberDisplay display(locale);
        for (int places = 0; places <= 5; ++places) {
            for (const bool grouping : {true, false}) {
                display.setDecimalPlaces(qint16(places));
                display.setThousandSeparator(grouping);
                const QString expected = NumberFormat::format(
                    NumberType::convertToType(value, type, locale), display.buildFormatString(), locale);
                ASSERT_EQ(display.formatNumber(value, type), expected)
                    << locale.name().toStdString() << " " << places << " places, grouping " << grouping;
            }
        }
    }
}

QVariant cur(const char *text) { return QVariant::fromValue(Currency::parse(QString::fromLatin1(text), QLocale::c())); }
QVariant dec(const char *text) { return QVariant::fromValue(Decimal::parse(QString::fromLatin1(text), QLocale::c())); }

struct AgreementRow { const char *name; int type; QVariant value; };
class FormatterAgreement : public testing::TestWithParam<AgreementRow> {};

TEST_P(FormatterAgreement, WritesWhatThePlatformFormatterWrites)
{
    expectSameAsTheFormatter(GetParam().value, GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(Values, FormatterAgreement, testing::Values(
    AgreementRow{"empty", twDouble, QVariant()},
    AgreementRow{"negative zero double", twDouble, -0.0},
    AgreementRow{"negative rounding to zero", twDouble, -0.001},
    AgreementRow{"half away from zero", twDouble, 2.675},
    AgreementRow{"rounding carries into a new group", twDouble, 999999.995},
    AgreementRow{"double with fifteen digits", twDouble, 123456789.123456},
    AgreementRow{"double top limit", twDouble, 1.79769313486231E+308},
    AgreementRow{"double tiny", twDouble, 1e-300},
    AgreementRow{"single near its limit", twSingle, QVariant::fromValue<float>(3.4e38f)},
    AgreementRow{"single seven digits", twSingle, QVariant::fromValue<float>(-1234.567f)},
    AgreementRow{"currency half", twCurrency, cur("0.125")},
    AgreementRow{"currency bottom limit", twCurrency, cur("-922337203685477")},
    AgreementRow{"decimal top", twDecimal, dec("79228162514264337593543950335")},
    AgreementRow{"decimal smallest step", twDecimal, dec("-0.0000000000000000000000000001")},
    AgreementRow{"decimal trailing zeros", twDecimal, dec("1000.500")},
    AgreementRow{"long bottom", twLong, QVariant::fromValue<qint32>(-2147483647 - 1)},
    AgreementRow{"integer converted from a double", twInteger, 2.5},
    AgreementRow{"byte top", twByte, 255},
    AgreementRow{"unknown type shows zero", 9, 5}), rowName);

// Values spread over every magnitude each type holds, from a fixed seed.
TEST(FormatterAgreement, OverRandomValuesOfEveryType)
{
    QRandomGenerator random(20240611);
    for (int i = 0; i < 60; ++i) {
        const double magnitude = std::pow(10.0, random.bounded(-12, 40));
        const double d = (random.generateDouble() - 0.5) * magnitude;
        const auto raw = qint64(random.generate64() >> random.bounded(1, 63)) * (i % 2 ? -1 : 1);
        expectSameAsTheFormatter(d, twDouble);
        expectSameAsTheFormatter(QVariant::fromValue<float>(float(d)), twSingle);
        expectSameAsTheFormatter(QVariant::fromValue(Currency::fromRaw(raw)), twCurrency);
        expectSameAsTheFormatter(QVariant::fromValue(Decimal::fromParts(
                                     random.generate(), random.generate(), random.generate() >> (i % 32),
                                     random.bounded(0, 29), i % 3 == 0)),
                                 twDecimal);
        expectSameAsTheFormatter(QVariant::fromValue<qint32>(qint32(random.generate())), twLong);
    }
}

using D = NumberDisplay;
struct RoleRow { const char *name; bool enabled; bool useNegative; QVariant value; D::ColorRole expected; };
class ColorRole : public testing::TestWithParam<RoleRow> {};

TEST_P(ColorRole, FollowsSignAndEnabled)
{
    EXPECT_EQ(D::colorRole(GetParam().enabled, GetParam().useNegative, GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Roles, ColorRole, testing::Values(
    RoleRow{"NegativeEnabled", true, true, -1, D::NegativeColorRole},
    RoleRow{"PositiveEnabled", true, true, 1, D::ForeColorRole},
    RoleRow{"NegativeDisabled", false, true, -0.5, D::NegativeDisabledColorRole},
    RoleRow{"ZeroDisabled", false, true, 0, D::DisabledColorRole},
    RoleRow{"NegativeColourOff", true, false, -1, D::ForeColorRole},
    RoleRow{"NegativeZeroDecimal", true, true, QVariant::fromValue(Decimal::parse(QStringLiteral("-0.00"), QLocale::c())),
        D::ForeColorRole},
    RoleRow{"Empty", true, true, QVariant(), D::ForeColorRole}), rowName);

} // namespace
} // namespace Tarnwell
