// Masks per format and separator, typing into mdtTime, the A and P keys, and Value set by a host.
#include "timeboxfixture.h"

#include <QRegularExpression>

#include <functional>

namespace Tarnwell {
namespace {

using TestSupport::errorOf;
using TestSupport::rowName;

struct MaskRow { const char *name; int format; const char *separator; int error; const char *expected; };
class Masks : public TimeBoxTest, public testing::WithParamInterface<MaskRow> {};
TEST_P(Masks, FollowFormatAndSeparator)
{
    box->setFormat(GetParam().format);
    EXPECT_EQ(errorOf([&] { box->setSeparator(QString::fromLatin1(GetParam().separator)); }), GetParam().error);
    EXPECT_EQ(mdtTime->Mask() + u'|' + mdtTime->property("Tag").toString() + u'|' + box->Separator(),
              QString::fromLatin1(GetParam().expected));
}
INSTANTIATE_TEST_SUITE_P(Formats, Masks, testing::Values(
    MaskRow{"F0Colon", 0, ":", 0, "##:##:## \\AM|HH:MM:SS AM/PM|:"}, MaskRow{"F3Dot", 3, ".", 0, "##.##|HH.MM|."},
    MaskRow{"F1Dot", 1, ".", 0, "##.## \\AM|HH.MM AM/PM|."}, MaskRow{"F2Dot", 2, ".", 0, "##.##.##|HH.MM.SS|."},
    MaskRow{"DashRefused", 3, "-", 380, "##:##|HH:MM|:"}, MaskRow{"TwoRefused", 2, "::", 380, "##:##:##|HH:MM:SS|:"},
    MaskRow{"UnknownFormatKeepsMask", 7, ":", 0, "##:##:## \\AM|HH:MM:SS AM/PM|:"}), rowName);

// Typed from the caret at 0 of an empty box, then the focus leaves.
struct TypeRow {
    const char *name; int format; char sep; Date min, max; const char *keys, *typed; int changes; const char *left;
};
class Typing : public TimeBoxTest, public testing::WithParamInterface<TypeRow> {};
TEST_P(Typing, ReadsEveryChange)
{
    const TypeRow &r = GetParam();
    box->setFormat(r.format);
    box->setSeparator(QString(QLatin1Char(r.sep)));
    box->setMinimum(r.min);
    box->setMaximum(r.max);
    QSignalSpy changes(box, &TimeBox::Change);
    focusAt(0);
    play(r.keys);
    EXPECT_EQ(shown(), QString::fromLatin1(r.typed));
    other->setFocus();
    EXPECT_EQ(shown(), QString::fromLatin1(r.left));
    EXPECT_EQ(changes.count(), r.changes);
}
INSTANTIATE_TEST_SUITE_P(Keys, Typing, testing::Values(
    TypeRow{"InRange", 2, ':', Date(), DayEnd, "103015", "10:30:15|10:30:15", 6, "10:30:15|10:30:15"},
    TypeRow{"DotSeparator", 3, '.', Date(), DayEnd, "2215", "22.15|22:15:00", 4, "22.15|22:15:00"},
    TypeRow{"HalfTyped", 0, ':', Date(), DayEnd, "1", "1 :  :   AM|Empty", 1, "  :  :   AM|Empty"},
    TypeRow{"OutOfRangeKeptUntilLeaving", 3, ':', hms(8, 0), hms(17, 0), "0759", "07:59|Empty", 4, "  :  |Empty"},
    TypeRow{"ThirteenHoursShownAsPm", 1, ':', Date(), DayEnd, "1330", "13:30 AM|13:30:00", 4, "01:30 PM|13:30:00"},
    TypeRow{"PMakesPm", 1, ':', Date(), DayEnd, "1030p", "10:30 PM|22:30:00", 5, "10:30 PM|22:30:00"},
    TypeRow{"AAfterTwelvePm", 1, ':', Date(), DayEnd, "1215pa", "12:15 AM|00:15:00", 6, "12:15 AM|00:15:00"},
    TypeRow{"SwitchOutOfRangeRefused", 0, ':', Date(), hms(17, 0), "090000P", "09:00:00 AM|09:00:00", 6,
            "09:00:00 AM|09:00:00"},
    TypeRow{"LettersToMaskIn24Hours", 2, ':', Date(), DayEnd, "10a3p015", "10:30:15|10:30:15", 6, "10:30:15|10:30:15"},
    TypeRow{"LettersToMaskInFormat3", 3, ':', Date(), DayEnd, "1a03P0", "10:30|10:30:00", 4, "10:30|10:30:00"}),
    rowName);

// From a box showing 09:00:00 AM (ticked when it has a check box).
struct LetRow {
    const char *name; QVariant input; int error; const char *shown; int changes;
    bool checkBox = false, nullIfEmpty = false, runTime = true, hostAllows = true; Date max = DayEnd;
};
class ValueSet : public TimeBoxTest, public testing::WithParamInterface<LetRow> {};
TEST_P(ValueSet, TakesDatesInRange)
{
    const LetRow &r = GetParam();
    box->setCheckBox(r.checkBox);
    box->setValue(QVariant::fromValue(hms(9, 0)));
    box->setNullIfEmpty(r.nullIfEmpty);
    box->setMaximum(r.max);
    box->setUserMode(r.runTime);
    box->setCanPropertyChangeHook([&r](const QString &name) { return name == "Value" && r.hostAllows; });
    QSignalSpy changes(box, &TimeBox::Change);
    EXPECT_EQ(errorOf([&] { box->setValue(r.input); }), r.error);
    EXPECT_EQ(shown(), QString::fromLatin1(r.shown));
    EXPECT_EQ(changes.count(), r.changes);
}
INSTANTIATE_TEST_SUITE_P(Values, ValueSet, testing::Values(
    LetRow{"DateShownTwelveHour", QVariant::fromValue(hms(22, 30, 5)), 0, "10:30:05 PM|22:30:05", 1},
    LetRow{"TextConverted", QStringLiteral("14:05"), 0, "02:05:00 PM|14:05:00", 1},
    LetRow{"DatePartKept", QVariant::fromValue(Date(45000.75)), 0, "06:00:00 PM|45000 18:00:00", 1, false, false,
           true, true, Date(50000)},
    LetRow{"OutOfRangeLeavesTextNoValue", QStringLiteral("18:00"), 0, "09:00:00 AM|Null", 1, false, true, true,
           true, hms(17, 0)},
    LetRow{"EmptyStringClears", QStringLiteral(""), 0, "  :  :   AM|Empty", 1},
    LetRow{"NullUnticks", Variant::null(), 0, "|Null", 2, true, true},
    LetRow{"NotADate", QStringLiteral("noon"), 13, "09:00:00 AM|09:00:00", 0},
    LetRow{"DesignTime", QStringLiteral("10:00"), 387, "09:00:00 AM|09:00:00", 0, false, false, false},
    LetRow{"HostRefuses", QStringLiteral("10:00"), 0, "09:00:00 AM|09:00:00", 0, false, false, true, false}),
    rowName);

// The check box gates the value and the button; showing a held time ticks it.
TEST_F(TimeBoxTest, CheckBoxGatesTheValueAndTheButton)
{
    const auto state = [this] {
        return shown() + u'|' + QString::number(upDown1()->isEnabled()) + QString::number(box->Checked());
    };
    box->setUpDown(true);
    box->setValue(QStringLiteral("22:30"));
    box->setCheckBox(true); // unticked: the time is out of sight and no value
    EXPECT_EQ(state(), QStringLiteral("|Empty|00"));
    box->setFormat(2); // showing the time it holds ticks the box, as every refresh does
    EXPECT_EQ(state(), QStringLiteral("22:30:00|22:30:00|11"));
    box->setValue(QVariant());
    EXPECT_EQ(state(), QStringLiteral("|Empty|00"));
    box->setChecked(true);
    focusAt(0);
    other->setFocus(); // leaving an empty box leaves it ticked
    EXPECT_EQ(state(), QStringLiteral("  :  :  |Empty|11"));
}


// A program writing the inner text box of a control nobody is editing: what stays on screen and
// Value agree, whatever the inner box made of the text.
struct ForeignRow
{
    const char *name;
    int format;
    const char *initial;
    std::function<void(QLineEdit *)> write;
};

class ForeignText : public TimeBoxTest, public testing::WithParamInterface<ForeignRow>
{
};

// What a shown time text says, read by hand: "hh:mm[:ss][ AM|PM]", else no time at all.
QString meaningOf(const QString &text)
{
    static const QRegularExpression time(QStringLiteral("^(\\d\\d):(\\d\\d)(?::(\\d\\d))?(?: ([AP])M)?$"));
    const QRegularExpressionMatch m = time.match(text);
    if (!m.hasMatch())
        return QStringLiteral("Empty");
    int hour = m.captured(1).toInt();
    if (!m.captured(4).isEmpty())
        hour = hour % 12 + (m.captured(4) == u"P" ? 12 : 0);
    return QTime(hour, m.captured(2).toInt(), m.captured(3).toInt()).toString(u"HH:mm:ss");
}

TEST_P(ForeignText, ShownTextAndValueAgree)
{
    box->setFormat(GetParam().format);
    box->setValue(QString::fromLatin1(GetParam().initial));
    showAndFocus(other); // the time box is not being edited
    GetParam().write(text1);
    QApplication::processEvents(); // the inner box tidies a text it did not type itself later
    EXPECT_EQ(describe(box->Value()), meaningOf(box->Text())) << "shown: " << box->Text().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Writes, ForeignText, testing::Values(
    ForeignRow{"SetTextAfternoon", twHourMinuteSecondAMPM, "09:15", [](QLineEdit *t) { t->setText(QStringLiteral("10:30:15 PM")); }},
    ForeignRow{"SetTextMorningOverAnAfternoon", twHourMinuteSecondAMPM, "21:15", [](QLineEdit *t) { t->setText(QStringLiteral("10:30:15 AM")); }},
    ForeignRow{"SetTextBareDigits", twHourMinuteAMPM, "09:15", [](QLineEdit *t) { t->setText(QStringLiteral("103015")); }},
    ForeignRow{"SetTextTwentyFourHour", twHourMinute, "09:15", [](QLineEdit *t) { t->setText(QStringLiteral("2315")); }},
    ForeignRow{"InsertAtTheEnd", twHourMinuteSecondAMPM, "09:15", [](QLineEdit *t) { t->end(false); t->insert(QStringLiteral("7")); }},
    ForeignRow{"SetTextNoTime", twHourMinuteSecond, "09:15", [](QLineEdit *t) { t->setText(QStringLiteral("ab")); }},
    ForeignRow{"BareDigitsOverAnAfternoon", twHourMinuteAMPM, "21:15", [](QLineEdit *t) { t->setText(QStringLiteral("103015")); }},
    ForeignRow{"PasteOverAll", twHourMinuteSecondAMPM, "09:15", [](QLineEdit *t) { t->selectAll(); t->insert(QStringLiteral("07:08:09 PM")); }}),
    rowName);

} // namespace
} // namespace Tarnwell
