#include "numberengine/numberdisplay.h"
#include "numberengine/textworkspace.h"

#include <tarnwell/decimal.h>

#include <gtest/gtest.h>

// Failure output shows texts as text.
[[maybe_unused]] static void PrintTo(const QString &s, std::ostream *os) { *os << '"' << s.toStdString() << '"'; }

namespace Tarnwell {
namespace {

const QLocale English(QLocale::English, QLocale::UnitedStates);
const QLocale German(QLocale::German, QLocale::Germany);

TEST(TextWorkspaceTest, ClampsLikeTheHostTextBox)
{
    struct Row { const char *name; int start, length; const char *selText; int expStart, expLength; };
    // Text "12345" throughout.
    const Row rows[] = {
        {"inside", 1, 2, "", 1, 2},
        {"start past end", 9, 2, "", 5, 0},
        {"length past end", 3, 9, "", 3, 2},
        {"negative start", -4, 1, "", 0, 1},
        {"negative length", 2, -1, "", 2, 0},
        {"replace selection", 1, 3, "ab", 3, 0},
        {"insert at end", 5, 0, "x", 6, 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        TextWorkspace box(QStringLiteral("12345"));
        box.setSelStart(row.start);
        box.setSelLength(row.length);
        if (*row.selText)
            box.setSelText(QString::fromLatin1(row.selText));
        EXPECT_EQ(box.SelStart(), row.expStart);
        EXPECT_EQ(box.SelLength(), row.expLength);
    }
    TextWorkspace box(QStringLiteral("12345"));
    box.setSelStart(1);
    box.setSelLength(3);
    EXPECT_EQ(box.SelText(), QStringLiteral("234"));
    box.setText(QStringLiteral("9"));
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(box.SelLength(), 0);
}

TEST(NumberDisplayTest, SeparatorsComeFromTheLocale)
{
    EXPECT_EQ(NumberDisplay(English).thousandsChar(), u',');
    EXPECT_EQ(NumberDisplay(English).decimalChar(), u'.');
    EXPECT_EQ(NumberDisplay(German).thousandsChar(), u'.');
    EXPECT_EQ(NumberDisplay(German).decimalChar(), u',');
}

TEST(NumberDisplayTest, BuildFormatString)
{
    struct Row { int places; bool grouping; const char *expected; };
    const Row rows[] = {
        {2, true, "#,##0.00"}, {0, false, "##0"}, {0, true, "#,##0"}, {4, false, "##0.0000"},
    };
    for (const Row &row : rows) {
        NumberDisplay display(English);
        display.setDecimalPlaces(qint16(row.places));
        display.setThousandSeparator(row.grouping);
        EXPECT_EQ(display.BuildFormatString(), QString::fromLatin1(row.expected));
    }
}

TEST(NumberDisplayTest, StripAndAddCurrencySymbolKeepTheCaret)
{
    struct Row {
        const char *name; int position; const char *symbol; const char *text; int start, length;
        const char *bare; int bareStart, bareLength; int addedStart, addedLength;
    };
    const Row rows[] = {
        {"left, caret in digits", twLeft, "EUR", "EUR12.50", 5, 2, "12.50", 2, 2, 5, 0},
        {"left, caret inside symbol", twLeft, "EUR", "EUR12.50", 1, 4, "12.50", 0, 2, 3, 0},
        {"left, selection within symbol", twLeft, "EUR", "EUR12.50", 0, 2, "12.50", 0, 0, 3, 0},
        {"left, caret right after symbol", twLeft, "$", "$7.00", 1, 0, "7.00", 0, 0, 1, 0},
        {"right, caret kept", twRight, "EUR", "12.50EUR", 2, 1, "12.50", 2, 1, 2, 0},
        {"right, caret in symbol clamps", twRight, "EUR", "12.50EUR", 7, 0, "12.50", 5, 0, 5, 0},
        {"empty symbol untouched", twLeft, "", "12.50", 3, 1, "12.50", 3, 1, 3, 1},
        {"no currency untouched", twNoCurrency, "$", "12.50", 3, 1, "12.50", 3, 1, 3, 1},
        {"symbol missing: digits kept", twLeft, "$", "12.50", 3, 0, "12.50", 3, 0, 4, 0},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        NumberDisplay display(English);
        display.setShowCurrencySymbol(row.position);
        display.setCurrencySymbol(QString::fromLatin1(row.symbol));
        TextWorkspace box(QString::fromLatin1(row.text));
        box.setSelStart(row.start);
        box.setSelLength(row.length);
        display.StripCurrencySymbol(box);
        EXPECT_EQ(box.Text(), QString::fromLatin1(row.bare));
        EXPECT_EQ(box.SelStart(), row.bareStart);
        EXPECT_EQ(box.SelLength(), row.bareLength);
        display.AddCurrencySymbol(box);
        EXPECT_EQ(box.SelStart(), row.addedStart);
        EXPECT_EQ(box.SelLength(), row.addedLength);
    }
}

TEST(NumberDisplayTest, FormatValue)
{
    struct Row {
        const char *name; const QLocale &locale; int type; int places; bool grouping;
        int position; const char *symbol; QVariant value; const char *expected;
    };
    const QVariant big = QVariant::fromValue(Decimal::parse(QStringLiteral("1234567890123456789012345.678"), QLocale::c()));
    const Row rows[] = {
        {"grouped three places", English, twDouble, 3, true, twNoCurrency, "$", QVariant(1234567.5), "1,234,567.500"},
        {"symbol right", English, twDouble, 3, true, twRight, "EUR", QVariant(1234567.5), "1,234,567.500EUR"},
        {"symbol left, negative", English, twCurrency, 2, true, twLeft, "$", QVariant(-5), "$-5.00"},
        {"german", German, twDouble, 2, true, twNoCurrency, "$", QVariant(1234.5), "1.234,50"},
        {"no grouping", English, twLong, 0, false, twNoCurrency, "$", QVariant(-1234567), "-1234567"},
        {"empty shows zero", English, twCurrency, 2, true, twNoCurrency, "$", QVariant(), "0.00"},
        {"byte value", English, twByte, 0, true, twNoCurrency, "$", QVariant(255), "255"},
        {"decimal exact", English, twDecimal, 3, true, twNoCurrency, "$", big,
         "1,234,567,890,123,456,789,012,345.678"},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        NumberDisplay display(row.locale);
        display.setDecimalPlaces(qint16(row.places));
        display.setThousandSeparator(row.grouping);
        display.setShowCurrencySymbol(row.position);
        display.setCurrencySymbol(QString::fromLatin1(row.symbol));
        EXPECT_EQ(display.formatValue(row.value, row.type), QString::fromLatin1(row.expected));
    }
}

TEST(NumberDisplayTest, ColorRole)
{
    using D = NumberDisplay;
    struct Row { bool enabled; bool useNegative; QVariant value; D::ColorRole expected; };
    const Row rows[] = {
        {true, true, QVariant(-1), D::NegativeColorRole},
        {true, true, QVariant(1), D::ForeColorRole},
        {false, true, QVariant(-0.5), D::NegativeDisabledColorRole},
        {false, true, QVariant(0), D::DisabledColorRole},
        {true, false, QVariant(-1), D::ForeColorRole},
        {true, true, QVariant::fromValue(Decimal::parse(QStringLiteral("-0.00"), QLocale::c())), D::ForeColorRole},
        {true, true, QVariant(), D::ForeColorRole},
    };
    for (const Row &row : rows)
        EXPECT_EQ(D::colorRole(row.enabled, row.useNegative, row.value), row.expected);
}

} // namespace
} // namespace Tarnwell
