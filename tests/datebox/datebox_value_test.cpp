// The date box's texts and value: masks and display patterns per format and separator, typed
// texts read back, and Value and the other sets taken or refused.
#include "dateboxfixture.h"

namespace Tarnwell {
namespace {

// 7 March 2024 set as Value, seen without and with the focus.
struct FormatRow { const char *name; std::function<void(DateBox &)> set; const char *unfocused, *focused, *pattern; };
class Formats : public DateBoxTest, public ::testing::WithParamInterface<FormatRow> {};

TEST_P(Formats, ShowEditDigitsFocusedAndThePatternOtherwise)
{
    GetParam().set(*box);
    box->setValue(QVariant::fromValue(ymd(2024, 3, 7)));
    const QString unfocused = text1()->text();
    focus();
    EXPECT_EQ(QStringList({unfocused, text1()->text(), box->DisplayFormat(), value()}),
              QStringList({GetParam().unfocused, GetParam().focused, GetParam().pattern, "2024-03-07"}));
}

INSTANTIATE_TEST_SUITE_P(DateBox, Formats, ::testing::Values(
    FormatRow{"DayMonthYear", [](DateBox &) {}, "07/Mar/2024", "07/03/2024", "dd/mmm/yyyy"},
    FormatRow{"SeparatorAfterFormatOnlyInTheMask", [](DateBox &b) { b.setFormat(twMonthDayYear); b.setSeparator("-"); }, "Mar/07/2024", "03-07-2024", "mmm/dd/yyyy"},
    FormatRow{"FormatAfterSeparatorTakesItEverywhere", [](DateBox &b) { b.setSeparator("-"); b.setFormat(twYearMonthDay); }, "2024-Mar-07", "2024-03-07", "yyyy-mmm-dd"},
    FormatRow{"MonthYear", [](DateBox &b) { b.setSeparator("."); b.setFormat(twMonthYear); }, "Mar.2024", "03.2024", "mmm.yyyy"},
    FormatRow{"YearMonth", [](DateBox &b) { b.setSeparator(" "); b.setFormat(twYearMonth); }, "2024 Mar", "2024 03", "yyyy mmm"},
    FormatRow{"HandMadePatternUntilFormat", [](DateBox &b) { b.setDisplayFormat("yyyy.mm.dd"); }, "2024.03.07", "07/03/2024", "yyyy.mm.dd"},
    FormatRow{"UnknownFormatKeepsThePatternShowsNoDigits", [](DateBox &b) { b.setFormat(9); }, "07/Mar/2024", "", "dd/mmm/yyyy"}),
    TestSupport::rowName);

// Keys typed into a focused box in 1990..2023, so that today clamped is 31 December 2023.
struct TypingRow { const char *name; int format; const char *keys, *text, *value, *picker; };
class Typing : public DateBoxTest, public ::testing::WithParamInterface<TypingRow> {};

TEST_P(Typing, ReadsTheDigitsBackOnEveryKey)
{
    const TypingRow &row = GetParam();
    box->setFormat(row.format);
    box->setMinimum(ymd(1990, 1, 1));
    box->setMaximum(ymd(2023, 12, 31));
    focus();
    play(row.keys);
    EXPECT_EQ(QStringList({text1()->text(), value(), show(QVariant::fromValue(fdt()->Value())), QString::number(changes->count())}),
              QStringList({row.text, row.value, row.picker, QString::number(strlen(row.keys))}));
}

INSTANTIATE_TEST_SUITE_P(DateBox, Typing, ::testing::Values(
    TypingRow{"DayFirst", twDayMonthYear, "07032023", "07/03/2023", "2023-03-07", "2023-03-07"},
    TypingRow{"HalfTypedIsNoDate", twDayMonthYear, "0703", "07/03/    ", "Empty", "2023-12-31"},
    TypingRow{"NoThirtyFirstOfFebruary", twDayMonthYear, "31022020", "31/02/2020", "Empty", "2023-12-31"},
    TypingRow{"AfterMaximum", twYearMonthDay, "20240101", "2024/01/01", "Empty", "2023-12-31"},
    TypingRow{"TwoDigitYearWindowed", twDayMonthYear, "07030019", "07/03/0019", "2019-03-07", "2019-03-07"},
    TypingRow{"TwoDigitYearBeforeMinimum", twDayMonthYear, "07030030", "07/03/0030", "Empty", "2023-12-31"},
    TypingRow{"MonthYearIsTheFirst", twMonthYear, "032023", "03/2023", "2023-03-01", "2023-03-01"},
    TypingRow{"YearMonthNeverReads", twYearMonth, "202303", "2023/03", "Empty", "2023-12-31"},
    TypingRow{"BackspaceUndoesTheDate", twDayMonthYear, "07032023<", "07/03/202 ", "Empty", "2023-12-31"}),
    TestSupport::rowName);

// Sets on a box holding 10 January 2024 in 2020..2025, its check box shown and ticked.
struct SetRow { const char *name; std::function<void(DateBox &)> set; int error; const char *value; int changes; bool checked = true; };
class Sets : public DateBoxTest, public ::testing::WithParamInterface<SetRow> {};

TEST_P(Sets, TakeOrRefuseWithNothingChanged)
{
    const SetRow &row = GetParam();
    box->setMinimum(ymd(2020, 1, 1));
    box->setMaximum(ymd(2025, 12, 31));
    box->setCheckBox(true);
    box->setValue(QVariant::fromValue(ymd(2024, 1, 10)));
    box->clearDirty();
    changes->clear();
    EXPECT_EQ(TestSupport::errorOf([&] { row.set(*box); }), row.error);
    EXPECT_EQ(QStringList({value(), QString::number(changes->count()), QString::number(box->isDirty("Value")), box->Separator()}),
              QStringList({row.value, QString::number(row.changes), QString::number(row.changes > 0), "/"}));
    EXPECT_EQ(box->Checked(), row.checked);
    EXPECT_EQ(fdt()->isEnabled(), row.checked) << "the calendar is for a ticked box only";
}

INSTANTIATE_TEST_SUITE_P(DateBox, Sets, ::testing::Values(
    SetRow{"DateText", [](DateBox &b) { b.setValue("2/3/2025"); }, 0, "2025-02-03", 1},
    SetRow{"NullClearsTheCheckBox", [](DateBox &b) { b.setNullIfEmpty(true); b.setValue(Variant::null()); }, 0, "Null", 1, false},
    // Showing no date clears the check box as well.
    SetRow{"EmptyText", [](DateBox &b) { b.setValue(""); }, 0, "Empty", 1, false},
    SetRow{"OutOfRangeLeavesNoDate", [](DateBox &b) { b.setValue(QVariant::fromValue(ymd(2026, 1, 1))); }, 0, "Empty", 1, false},
    SetRow{"CheckBoxClearedHidesTheDate", [](DateBox &b) { b.setChecked(false); }, 0, "Empty", 0, false},
    SetRow{"NoDate", [](DateBox &b) { b.setValue("soon"); }, 13, "2024-01-10", 0},
    SetRow{"ValueAtDesignTime", [](DateBox &b) { b.setUserMode(false); b.setValue(""); }, 387, "2024-01-10", 0},
    SetRow{"HostRefuses", [](DateBox &b) { b.setCanPropertyChangeHook([](const QString &) { return false; }); b.setValue(""); }, 0, "2024-01-10", 0},
    SetRow{"Text", [](DateBox &b) { b.setText("1/1/2024"); }, 382, "2024-01-10", 0},
    SetRow{"SeparatorComma", [](DateBox &b) { b.setSeparator(","); }, 380, "2024-01-10", 0},
    SetRow{"SeparatorTwoSlashes", [](DateBox &b) { b.setSeparator("//"); }, 380, "2024-01-10", 0},
    SetRow{"RangeNotCheckedAgain", [](DateBox &b) { b.setMaximum(ymd(2023, 1, 1)); b.setMinimum(ymd(2030, 1, 1)); }, 0, "2024-01-10", 0}),
    TestSupport::rowName);

} // namespace
} // namespace Tarnwell
