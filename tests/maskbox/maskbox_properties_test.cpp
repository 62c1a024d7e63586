// MaskBox as a program drives it: Value through the mask and the check box, Mask at run and
// design time, the refusals, the property bag and the inner layout.
#include <tarnwell/error.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSignalSpy>

#include <functional>

using Tarnwell::Error;
using Tarnwell::MaskBox;
using Tarnwell::PropertyBag;
using Tarnwell::Variant;

namespace {

const QVariant Null = Variant::null();

struct ValueRow {
    const char *name, *mask;
    bool promptInclude, checkBox, nullIfEmpty;
    QVariant value;
    const char *text; // Text afterwards
    QVariant expected;
};
void PrintTo(const ValueRow &row, std::ostream *os) { *os << row.name; }

class MaskBoxValue : public ::testing::TestWithParam<ValueRow>
{
};

TEST_P(MaskBoxValue, SetThenRead)
{
    const ValueRow &row = GetParam();
    MaskBox box;
    box.setMask(QString::fromLatin1(row.mask));
    box.setPromptInclude(row.promptInclude);
    box.setCheckBox(row.checkBox);
    box.setNullIfEmpty(row.nullIfEmpty);
    box.setValue(row.value);
    EXPECT_EQ(box.Text(), QString::fromLatin1(row.text));
    EXPECT_EQ(box.Checked(), !Variant::isNull(row.value) || !row.checkBox);
    const QVariant value = box.Value();
    EXPECT_EQ(value.metaType(), row.expected.metaType());
    EXPECT_EQ(value, row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Properties, MaskBoxValue,
    ::testing::Values(
        ValueRow{"PromptOff", "##/##", false, false, false, "12", "12/  ", QStringLiteral("12")},
        ValueRow{"PromptOn", "##/##", true, false, false, "12", "12/  ", QStringLiteral("12  ")},
        ValueRow{"InnerSpacesRemoved", "##/##", false, false, false, "1 3", "1 /3 ", QStringLiteral("13")},
        ValueRow{"NoMaskSpacesRemoved", "", false, false, false, "a b", "a b", QStringLiteral("ab")},
        ValueRow{"NumberAsText", "###", false, false, false, 42, "42 ", QStringLiteral("42")},
        ValueRow{"BooleanAsHostText", "&&&&&", true, false, false, true, "True ", QStringLiteral("True ")},
        ValueRow{"NullUnticksToNull", "##/##", false, true, true, Null, "", Null},
        ValueRow{"NullUnticksToEmpty", "##/##", false, true, false, Null, "", QVariant()},
        ValueRow{"NullWithoutCheckBox", "##/##", true, false, true, Null, "  /  ", QStringLiteral("    ")}),
    [](const auto &info) { return std::string(info.param.name); });

// Every refusal throws its number and leaves text, selection, mask, case and events as they were.
struct RefusalRow {
    const char *name;
    bool designTime;
    std::function<void(MaskBox &)> action;
    int number;
};
void PrintTo(const RefusalRow &row, std::ostream *os) { *os << row.name; }

class MaskBoxRefusal : public ::testing::TestWithParam<RefusalRow>
{
};

TEST_P(MaskBoxRefusal, ThrowsAndChangesNothing)
{
    MaskBox box;
    box.setMask(QStringLiteral("##/##"));
    box.setValue(QStringLiteral("1234"));
    box.setSelStart(1);
    box.setSelLength(2);
    box.setUserMode(!GetParam().designTime);
    box.clearDirty();
    QSignalSpy changes(&box, &MaskBox::Change);
    try {
        GetParam().action(box);
        ADD_FAILURE() << "no error";
    } catch (const Error &e) {
        EXPECT_EQ(e.number(), GetParam().number);
    }
    EXPECT_EQ(box.Text(), QStringLiteral("12/34"));
    EXPECT_EQ(box.Mask(), QStringLiteral("##/##"));
    EXPECT_EQ(box.CharCase(), Tarnwell::twAnyCase);
    EXPECT_EQ(box.SelStart() * 10 + box.SelLength(), 12);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(box.dirtyProperties().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Properties, MaskBoxRefusal,
    ::testing::Values(
        RefusalRow{"TextAtRunTime", false, [](MaskBox &b) { b.setText("x"); }, 382},
        RefusalRow{"TextAtDesignTime", true, [](MaskBox &b) { b.setText("x"); }, 387},
        RefusalRow{"SelTextAtRunTime", false, [](MaskBox &b) { b.setSelText("x"); }, 382},
        RefusalRow{"ValueAtDesignTime", true, [](MaskBox &b) { b.setValue("5678"); }, 387},
        RefusalRow{"ValueWithNoText", false, [](MaskBox &b) { b.setValue(QSize(1, 1)); }, 13},
        RefusalRow{"CharCaseOutOfRange", false,
                   [](MaskBox &b) { b.setCharCase(Tarnwell::twCharCaseConstants(3)); }, 380},
        RefusalRow{"MaskTooLong", false, [](MaskBox &b) { b.setMask(QString(40000, '#')); }, 6},
        RefusalRow{"BadBag", false,
                   [](MaskBox &b) {
                       PropertyBag bag;
                       bag.WriteProperty(QStringLiteral("Mask"), QStringLiteral("@@"), QString());
                       bag.WriteProperty(QStringLiteral("CharCase"), qint16(7), qint16(0));
                       b.ReadProperties(bag);
                   },
                   380}),
    [](const auto &info) { return std::string(info.param.name); });

TEST(MaskBoxValue, RefusedByTheHostChangesNothing)
{
    MaskBox box;
    box.setValue(QStringLiteral("12"));
    box.setCanPropertyChangeHook([](const QString &name) { return name != "Value"; });
    box.setValue(QStringLiteral("34"));
    EXPECT_EQ(box.Text(), QStringLiteral("12"));
}

struct MaskRow {
    const char *name;
    bool designTime;
    const char *oldMask, *value, *newMask, *text;
};
void PrintTo(const MaskRow &row, std::ostream *os) { *os << row.name; }

class MaskBoxMask : public ::testing::TestWithParam<MaskRow>
{
};

TEST_P(MaskBoxMask, ReformatsOrShowsTheMaskWithChange)
{
    const MaskRow &row = GetParam();
    MaskBox box;
    box.setMask(QString::fromLatin1(row.oldMask));
    box.setValue(QString::fromLatin1(row.value));
    box.setUserMode(!row.designTime);
    QSignalSpy changes(&box, &MaskBox::Change);
    box.setMask(QString::fromLatin1(row.newMask));
    EXPECT_EQ(box.Text(), QString::fromLatin1(row.text));
    EXPECT_EQ(changes.count(), 1);
}

INSTANTIATE_TEST_SUITE_P(
    Properties, MaskBoxMask,
    ::testing::Values(MaskRow{"DigitsMoveToNewLiterals", false, "##/##", "1234", "#-###", "1-234"},
                      MaskRow{"LettersDoNotFitDigits", false, "@@", "ab", "##", ""},
                      MaskRow{"ToNoMaskKeepsRaw", false, "##/##", "1234", "", "1234"},
                      MaskRow{"DesignTimeShowsMask", true, "", "", "(###) ###-####", "(###) ###-####"}),
    [](const auto &info) { return std::string(info.param.name); });

QStringList keys(const char *list)
{
    return QString::fromLatin1(list).split(QLatin1Char(' '));
}

TEST(MaskBoxBag, KeysInOrderAndJsonRoundTrip)
{
    MaskBox box;
    box.setMask(QStringLiteral("@@-##"));
    box.setValue(QStringLiteral("ab12"));
    box.setCharCase(Tarnwell::twLowerCase);
    box.setPromptInclude(false);
    box.setCheckBox(true);
    box.setChecked(false);
    PropertyBag bag;
    box.WriteProperties(bag);
    EXPECT_EQ(bag.writeLog(),
              keys("BackColor Enabled Font Locked MouseIcon BorderStyle ForeColor DisabledColor "
                   "Alignment OLEDragMode OLEDropMode MouseIcon MousePointer SelectTextOnFocus "
                   "Mask Text CharCase PromptInclude ToolTip CheckBox Checked NullIfEmpty "
                   "EnterAsTab"));
    EXPECT_EQ(bag.keys(), keys("Mask Text CharCase PromptInclude CheckBox Checked"));

    PropertyBag loaded = PropertyBag::fromJsonText(bag.toJsonText());
    MaskBox copy;
    copy.ReadProperties(loaded);
    EXPECT_EQ(loaded.readLog(),
              keys("BackColor Enabled Font Locked MouseIcon BorderStyle ForeColor DisabledColor "
                   "Alignment OLEDragMode OLEDropMode MouseIcon MousePointer SelectTextOnFocus "
                   "Mask CharCase PromptInclude ToolTip Checked CheckBox NullIfEmpty EnterAsTab"));
    for (const char *name : {"Mask", "CharCase", "PromptInclude", "CheckBox", "Checked"})
        EXPECT_EQ(copy.property(name), box.property(name)) << name;
    const auto *text1 = copy.findChild<QLineEdit *>(QStringLiteral("Text1"));
    EXPECT_EQ(text1->text(), QStringLiteral("  -  ")) << "a loaded box starts blank";
    copy.setUserMode(false);
    copy.ReadProperties(loaded);
    EXPECT_EQ(text1->text(), QStringLiteral("@@-##")) << "at design time it shows its mask";
}

// Text1 in a frame of the default 1650 x 315 twips (110 x 21 pixels), by border and check box.
TEST(MaskBoxLayout, PlacesTheTextBox)
{
    struct Row {
        Tarnwell::twBorderStyleConstants border;
        bool checkBox;
        QRect text1;
    };
    for (const Row &row : {Row{Tarnwell::twFixed3D, false, QRect(3, 3, 100, 12)},
                           Row{Tarnwell::twFixed3D, true, QRect(19, 3, 84, 12)},
                           Row{Tarnwell::twFixedSingle, false, QRect(2, 2, 104, 16)},
                           Row{Tarnwell::twNone, true, QRect(17, 1, 92, 20)}}) {
        MaskBox box;
        box.resize(110, 21);
        box.setBorderStyle(row.border);
        box.setCheckBox(row.checkBox);
        EXPECT_EQ(box.findChild<QLineEdit *>(QStringLiteral("Text1"))->geometry(), row.text1)
            << row.border << row.checkBox;
    }
}

} // namespace
