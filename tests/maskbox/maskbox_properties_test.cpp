// MaskBox as a program drives it: Value through the mask and the check box, Mask at run and
// design time, the refusals and the property bag.
#include <tarnwell/maskbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"

#include <QLineEdit>
#include <QSignalSpy>

#include <functional>

using Tarnwell::MaskBox;
using Tarnwell::PropertyBag;
using Tarnwell::Variant;
using TestSupport::rowName;

namespace {

const QVariant Null = Variant::null();

struct ValueRow {
    const char *name, *mask;
    bool promptInclude, checkBox, nullIfEmpty;
    QVariant value;
    const char *text; // Text afterwards
    QVariant expected;
};
class MaskBoxValue : public ::testing::TestWithParam<ValueRow> {};

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

INSTANTIATE_TEST_SUITE_P(Properties, MaskBoxValue, ::testing::Values(
    ValueRow{"PromptOff", "##/##", false, false, false, "12", "12/  ", QStringLiteral("12")},
    ValueRow{"PromptOn", "##/##", true, false, false, "12", "12/  ", QStringLiteral("12  ")},
    ValueRow{"InnerSpacesRemoved", "##/##", false, false, false, "1 3", "1 /3 ", QStringLiteral("13")},
    ValueRow{"NoMaskSpacesRemoved", "", false, false, false, "a b", "a b", QStringLiteral("ab")},
    ValueRow{"NumberAsText", "###", false, false, false, 42, "42 ", QStringLiteral("42")},
    ValueRow{"BooleanAsHostText", "&&&&&", true, false, false, true, "True ", QStringLiteral("True ")},
    ValueRow{"NullUnticksToNull", "##/##", false, true, true, Null, "", Null},
    ValueRow{"NullUnticksToEmpty", "##/##", false, true, false, Null, "", QVariant()},
    ValueRow{"NullWithoutCheckBox", "##/##", true, false, true, Null, "  /  ", QStringLiteral("    ")}), rowName);

// Every refusal throws its number and leaves every property, kinds included, and the events as
// they were.
struct RefusalRow { std::string name; bool designTime; std::function<void(MaskBox &)> action; int number; };
class MaskBoxRefusal : public ::testing::TestWithParam<RefusalRow> {};

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
    const std::string before = TestSupport::propertiesOf(box);
    EXPECT_ERROR(GetParam().action(box), GetParam().number);
    EXPECT_EQ(TestSupport::propertiesOf(box), before);
    EXPECT_EQ(changes.count(), 0);
    EXPECT_TRUE(box.dirtyProperties().isEmpty());
}

// Reads a bag of these entries.
std::function<void(MaskBox &)> loads(std::vector<std::pair<QString, QVariant>> entries)
{
    return [entries](MaskBox &b) {
        PropertyBag bag;
        for (const auto &[key, value] : entries)
            bag.WriteProperty(key, value);
        b.ReadProperties(bag);
    };
}

std::vector<RefusalRow> refusals()
{
    std::vector<RefusalRow> rows{
        {"TextAtRunTime", false, [](MaskBox &b) { b.setText("x"); }, 382},
        {"TextAtDesignTime", true, [](MaskBox &b) { b.setText("x"); }, 387},
        {"SelTextAtRunTime", false, [](MaskBox &b) { b.setSelText("x"); }, 382},
        {"ValueAtDesignTime", true, [](MaskBox &b) { b.setValue("5678"); }, 387},
        {"ValueWithNoText", false, [](MaskBox &b) { b.setValue(QSize(1, 1)); }, 13},
        {"CharCaseOutOfRange", false, [](MaskBox &b) { b.setCharCase(Tarnwell::twCharCaseConstants(3)); }, 380},
        {"MaskTooLong", false, [](MaskBox &b) { b.setMask(QString(40000, '#')); }, 6},
        {"BagCharCaseOutOfRange", false, loads({{"Mask", "@@"}, {"CharCase", qint16(7)}}), 380},
        {"BagFirstKeyBad", false, loads({{"BackColor", "red"}, {"Mask", "@@"}}), 380},
        {"BagMaskTooLong", false, loads({{"Mask", QString(40000, '#')}}), 6},
        {"BagLastKeyBad", false, loads({{"Mask", "@@"}, {"EnterAsTab", "left"}}), 380},
    };
    for (const auto &[suffix, value] : TestSupport::badEnumValues)
        rows.push_back({std::string("CharCaseByName") + suffix, false,
                        [value](MaskBox &b) { b.setProperty("CharCase", value); }, 380});
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Properties, MaskBoxRefusal, ::testing::ValuesIn(refusals()), rowName);

TEST(MaskBoxValue, RefusedByTheHostChangesNothing)
{
    MaskBox box;
    box.setValue(QStringLiteral("12"));
    box.setCanPropertyChangeHook([](const QString &name) { return name != "Value"; });
    box.setValue(QStringLiteral("34"));
    EXPECT_EQ(box.Text(), QStringLiteral("12"));
}

struct MaskRow { const char *name; bool designTime; const char *oldMask, *value, *newMask, *text; };
class MaskBoxMask : public ::testing::TestWithParam<MaskRow> {};

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

INSTANTIATE_TEST_SUITE_P(Properties, MaskBoxMask, ::testing::Values(
    MaskRow{"DigitsMoveToNewLiterals", false, "##/##", "1234", "#-###", "1-234"},
    MaskRow{"LettersDoNotFitDigits", false, "@@", "ab", "##", ""},
    MaskRow{"ToNoMaskKeepsRaw", false, "##/##", "1234", "", "1234"},
    MaskRow{"DesignTimeShowsMask", true, "", "", "(###) ###-####", "(###) ###-####"}), rowName);

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

} // namespace
