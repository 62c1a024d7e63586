#include "numberengine/numberdisplay.h"
#include "numberengine/textworkspace.h"

#include <tarnwell/decimal.h>

#include "common/testsupport.h"

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
