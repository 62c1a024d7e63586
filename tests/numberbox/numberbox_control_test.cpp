// The number box as a host and a user meet it, under the offscreen platform: real key events,
// clipboard, mouse, drops and focus; refusals and their errors; type resets, the check box,
// colours, persistence, layout and the inner widgets.
#include <tarnwell/numberbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"
#include "shared/contextmenuhook.h"
#include "shared/memorysettingsstore.h"
#include "shared/settingsreader.h"
#include "shared/updownbutton.h"

#include <QCheckBox>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QToolTip>

#include <functional>

namespace Tarnwell {
namespace {

using TestSupport::propertiesOf;
using TestSupport::rowName;

const char International[] = "Control Panel\\International";

// Two regional digits for every type; up-down buttons 17 pixels wide.
class NumberBoxTest : public WidgetFixture
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        store.setString(SettingsStore::CurrentUser, International, "iDigits", "2");
        store.setString(SettingsStore::CurrentUser, International, "iCurrDigits", "2");
        store.setString(SettingsStore::CurrentUser, "Control Panel\\Desktop\\WindowMetrics",
                        "ScrollWidth", "-255");
        SettingsReader::setStore(&store);
        box = new NumberBox(window.get());
        other = new QLineEdit(window.get());
        other->move(0, 100);
        text1 = box->findChild<QLineEdit *>(QStringLiteral("Text1"));
    }
    void TearDown() override
    {
        WidgetFixture::TearDown();
        SettingsReader::setStore(nullptr);
    }

    // Focuses the box, then puts the caret where '|' stands in `marked` (which must be the text).
    void focusAt(QString marked)
    {
        showAndFocus(text1);
        const qsizetype caret = marked.indexOf(u'|');
        ASSERT_EQ(text1->text(), marked.remove(u'|'));
        if (caret >= 0)
            text1->setCursorPosition(int(caret));
    }
    QString shown() const { return QString(text1->text()).insert(text1->cursorPosition(), u'|'); }
    QString value() const { return Variant::toString(box->Value()); }

    // Characters as typed; ^ v arrow keys; u d clicks on UpDown1's halves; < Backspace, > Delete,
    // H Home, V Ctrl+V, I Shift+Insert, Z Ctrl+Z, X Ctrl+X.
    void play(const char *keys)
    {
        static const QHash<char, std::pair<Qt::Key, Qt::KeyboardModifier>> named{
            {'^', {Qt::Key_Up, Qt::NoModifier}},       {'v', {Qt::Key_Down, Qt::NoModifier}},
            {'<', {Qt::Key_Backspace, Qt::NoModifier}}, {'>', {Qt::Key_Delete, Qt::NoModifier}},
            {'H', {Qt::Key_Home, Qt::NoModifier}},      {'V', {Qt::Key_V, Qt::ControlModifier}},
            {'I', {Qt::Key_Insert, Qt::ShiftModifier}}, {'Z', {Qt::Key_Z, Qt::ControlModifier}},
            {'X', {Qt::Key_X, Qt::ControlModifier}}};
        for (const char *k = keys; *k; ++k) {
            if (*k == 'u' || *k == 'd')
                QTest::mouseClick(upDown1(), Qt::LeftButton, {},
                                  QPoint(upDown1()->width() / 2, *k == 'u' ? 2 : upDown1()->height() - 2));
            else if (named.contains(*k))
                QTest::keyClick(text1, named[*k].first, named[*k].second);
            else
                QTest::keyClick(text1, *k);
        }
    }

    MemorySettingsStore store;
    NumberBox *box = nullptr;
    QLineEdit *other = nullptr;
    QLineEdit *text1 = nullptr;
    // Created when first needed.
    QCheckBox *check1() const { return box->findChild<QCheckBox *>(QStringLiteral("Check1")); }
    UpDownButton *upDown1() const { return box->findChild<UpDownButton *>(QStringLiteral("UpDown1")); }
};

template<typename Row>
class NumberBoxTable : public NumberBoxTest, public ::testing::WithParamInterface<Row> {};

// `value` is set before focusing; `start` is the text after it, the caret at '|' (none: all
// selected).
struct KeyCase {
    const char *name; twDataTypeConstants type; const char *value, *start, *keys, *expected, *expectedValue;
    twCurrencyPositionConstants symbol = twNoCurrency; const char *clipboard = "", *increment = "1";
};
using NumberBoxKeys = NumberBoxTable<KeyCase>;

TEST_P(NumberBoxKeys, EditsOnlyThroughTheEngine)
{
    const KeyCase &c = GetParam();
    box->setDataType(c.type);
    box->setUpDown(true);
    box->setShowCurrencySymbol(c.symbol);
    box->setValue(QString::fromLatin1(c.value));
    box->setIncrement(QString::fromLatin1(c.increment));
    QGuiApplication::clipboard()->setText(QString::fromLatin1(c.clipboard));
    focusAt(QString::fromLatin1(c.start));
    play(c.keys);
    EXPECT_EQ(shown(), QString::fromLatin1(c.expected));
    EXPECT_EQ(value(), QString::fromLatin1(c.expectedValue));
    EXPECT_EQ(upDown1()->Value(), 0);
}

INSTANTIATE_TEST_SUITE_P(Typing, NumberBoxKeys, ::testing::Values(
    KeyCase{"TypesOverSelectAll", twDouble, "0", "0.00", "1234567.89", "1,234,567.89|", "1234567.89"},
    KeyCase{"TypesAfterCurrencySymbol", twCurrency, "0", "$0.00", "19.95", "$19.95|", "19.95", twLeft},
    KeyCase{"BackspaceTakesDigitBeforeGrouping", twDouble, "1234", "1,|234.00", "<", "|234.00", "234"},
    KeyCase{"DeleteSkipsGrouping", twDouble, "1234", "1|,234.00", ">", "1|34.00", "134"},
    KeyCase{"UndoAndCutKeysDoNothing", twDouble, "12", "12|.00", "3ZX", "123|.00", "123"},
    KeyCase{"CtrlVPastesGroupedWithSymbol", twCurrency, "0", "$0.00", "V", "$1,234.5|0", "1234.5", twLeft,
        "$1,234.5"},
    KeyCase{"ShiftInsertPastes", twDouble, "0", "0.00", "I", "-12|.00", "-12", twNoCurrency, "-12"},
    KeyCase{"ArrowsStepKeepingCaret", twDouble, "999", "999.0|0", "^", "1,000.0|0", "1000"},
    KeyCase{"ButtonsStep", twDouble, "1", "1.00", "uud", "|1.25", "1.25", twNoCurrency, "", "0.25"},
    KeyCase{"DecimalStepsExactly", twDecimal, "0.1", "0.10", "^^^", "|0.70", "0.7", twNoCurrency, "", "0.2"}), rowName);

TEST_F(NumberBoxTest, UpDownClickFocusesTextWithoutSelection)
{
    box->setUpDown(true);
    showAndFocus(other);
    play("u");
    EXPECT_TRUE(text1->hasFocus());
    EXPECT_FALSE(text1->hasSelectedText());
    EXPECT_EQ(text1->text(), QStringLiteral("1.00"));
}

struct RepairCase { const char *name; int minimum, maximum; const char *keys, *shown, *value; };
using NumberBoxRepair = NumberBoxTable<RepairCase>;

TEST_P(NumberBoxRepair, RepairsWhenFocusLeaves)
{
    const RepairCase &c = GetParam();
    box->setDataType(twInteger);
    box->setInterceptArrowKeys(true);
    box->setMaximum(c.maximum);
    box->setMinimum(c.minimum);
    showAndFocus(text1);
    play(c.keys);
    other->setFocus();
    EXPECT_EQ(text1->text() + u'|' + value(), QString::fromLatin1(c.shown) + u'|' + QString::fromLatin1(c.value));
}

INSTANTIATE_TEST_SUITE_P(Leaving, NumberBoxRepair, ::testing::Values(
    RepairCase{"SteppedBelowMinimumGoesToMinimum", 1, 10, "v", "1", "1"},
    RepairCase{"TypedAboveMaximumGoesToZero", -10, 10, "H55", "0", "0"},
    RepairCase{"InRangeIsKept", -10, 10, "7", "7", "7"},
    // A maximum below zero refuses the repair: 0 is stored, the old text stays.
    RepairCase{"MaximumBelowZeroLeavesText", -10, -5, "^^", "-3", "0"}), rowName);

void commit(QLineEdit *text1, const char *text)
{
    QInputMethodEvent compose;
    compose.setCommitString(QString::fromLatin1(text));
    QApplication::sendEvent(text1, &compose);
}

void undoAnInsertOverAll(QLineEdit *t)
{
    t->selectAll();
    t->insert(QStringLiteral("123"));
    t->undo();
}

struct ForeignCase {
    const char *name; twDataTypeConstants type; std::function<void(QLineEdit *)> act; const char *shown, *value;
};
using ForeignText = NumberBoxTable<ForeignCase>;

// From 12, the caret at the end; then the focus leaves. Whatever the path, the box shows the text
// its Value formats to, as a new box of the type given the same Value does.
TEST_P(ForeignText, LeavesOnlyANumberThatAgreesWithValue)
{
    const ForeignCase &c = GetParam();
    box->setDataType(c.type);
    box->setValue(12);
    showAndFocus(text1);
    text1->end(false);
    c.act(text1);
    other->setFocus();
    EXPECT_EQ(text1->text() + u'|' + value(), QString::fromLatin1(c.shown) + u'|' + QString::fromLatin1(c.value));
    NumberBox formatted;
    formatted.setDataType(c.type);
    formatted.setValue(box->Value());
    EXPECT_EQ(text1->text(), formatted.Text());
}

INSTANTIATE_TEST_SUITE_P(Paths, ForeignText, ::testing::Values(
    ForeignCase{"ProgramTextNotANumberIsPutBack", twDouble, [](QLineEdit *t) { t->setText("12abc"); }, "12.00", "12"},
    ForeignCase{"ProgramNumberIsTakenAndFormatted", twDouble, [](QLineEdit *t) { t->setText("3,4"); }, "34.00", "34"},
    ForeignCase{"InputMethodLettersDropped", twDouble, [](QLineEdit *t) { commit(t, "x"); }, "12.00", "12"},
    ForeignCase{"InputMethodDigitsTyped", twDouble, [](QLineEdit *t) { t->home(false); commit(t, "x5"); }, "512.00", "512"},
    ForeignCase{"UndoneInsertByte", twByte, undoAnInsertOverAll, "12", "12"},
    ForeignCase{"UndoneInsertSingle", twSingle, undoAnInsertOverAll, "123.00", "123"},
    ForeignCase{"UndoneInsertDecimal", twDecimal, undoAnInsertOverAll, "123.00", "123"}), rowName);

// Its menu would offer undo, cut and paste past the number editor.
TEST_F(NumberBoxTest, TextBoxHasNoContextMenu) { EXPECT_TRUE(ContextMenuHook::isHooked(text1)); }

struct DropCase { const char *name, *dropped; bool accepted; const char *shown; };
using AutomaticDrop = NumberBoxTable<DropCase>;

TEST_P(AutomaticDrop, TakesNumbersOnlyAndNeverMoves)
{
    box->setOLEDropMode(ControlFrame::OLEDropAutomatic);
    box->setValue(1);
    showAndFocus(text1);
    QMimeData data;
    data.setText(QString::fromLatin1(GetParam().dropped));
    const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(QPoint(1, 1), actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(text1, &enter);
    EXPECT_EQ(enter.isAccepted(), GetParam().accepted);
    QDropEvent drop(QPointF(1, 1), actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(text1, &drop);
    EXPECT_EQ(text1->text(), QString::fromLatin1(GetParam().shown));
    EXPECT_NE(drop.dropAction(), Qt::MoveAction);
}

INSTANTIATE_TEST_SUITE_P(Drops, AutomaticDrop, ::testing::Values(
    DropCase{"LettersRefused", "abc", false, "1.00"}, DropCase{"NumberCopiedIn", "2,000", true, "20,001.00"}), rowName);

// `expected`: text|Value|Minimum|Maximum after the set.
struct SetCase { std::string name; std::function<void(NumberBox &)> set; int error; const char *expected; };
using NumberBoxSets = NumberBoxTable<SetCase>;

// An Integer 5 in 0..100, all selected, the check box shown and cleared. A refused set changes
// nothing at all; then, ticked, the box shows what the set left.
TEST_P(NumberBoxSets, RefuseWithErrorOrQuietly)
{
    const SetCase &c = GetParam();
    box->setDataType(twInteger);
    box->setMinimum(0);
    box->setMaximum(100);
    box->setValue(5);
    box->setSelLength(1);
    box->setCheckBox(true);
    box->setChecked(false);
    box->clearDirty();
    QSignalSpy changes(box, &NumberBox::Change);
    const std::string before = propertiesOf(*box);
    EXPECT_ERROR(c.set(*box), c.error);
    if (c.error) {
        EXPECT_EQ(propertiesOf(*box), before);
        EXPECT_EQ(changes.count(), 0);
        EXPECT_TRUE(box->dirtyProperties().isEmpty());
    }
    box->setChecked(true);
    const QString state = QStringList{text1->text(), value(), Variant::toString(box->Minimum()),
                                      Variant::toString(box->Maximum())}.join(u'|');
    EXPECT_EQ(state, QString::fromLatin1(c.expected));
}

std::vector<SetCase> setCases()
{
    std::vector<SetCase> cases{
        {"ValueText", [](NumberBox &b) { b.setValue(QStringLiteral("abc")); }, 13, "5|5|0|100"},
        {"ValueAboveType", [](NumberBox &b) { b.setValue(40000); }, 6, "5|5|0|100"},
        {"MinimumNull", [](NumberBox &b) { b.setMinimum(Variant::null()); }, 13, "5|5|0|100"},
        {"MaximumAboveType", [](NumberBox &b) { b.setMaximum(32768); }, 6, "5|5|0|100"},
        {"TextAtRunTime", [](NumberBox &b) { b.setText(QStringLiteral("1")); }, 382, "5|5|0|100"},
        {"TextAtDesignTime", [](NumberBox &b) { b.setUserMode(false); b.setText(QStringLiteral("1")); }, 387,
         "5|5|0|100"},
        {"SelTextLetters", [](NumberBox &b) { b.setSelText(QStringLiteral("x")); }, 380, "5|5|0|100"},
        {"SelTextDecimalsOfAnInteger", [](NumberBox &b) { b.setSelText(QStringLiteral("1.5")); }, 380, "5|5|0|100"},
        {"SelTextNumberReplacesTheSelection", [](NumberBox &b) { b.setSelText(QStringLiteral("7")); }, 0, "7|7|0|100"},
        {"ValueOutsideRange", [](NumberBox &b) { b.setValue(101); }, 0, "5|5|0|100"},
        {"MinimumPullsValueUp", [](NumberBox &b) { b.setMinimum(10); }, 0, "10|10|10|100"},
        {"MaximumPullsValueDown", [](NumberBox &b) { b.setMaximum(3); }, 0, "3|3|0|3"},
        {"EmptyTextIsZero", [](NumberBox &b) { b.setValue(QString()); }, 0, "0|0|0|100"},
        {"HostRefusesValue",
         [](NumberBox &b) {
             b.setCanPropertyChangeHook([](const QString &name) { return name != QLatin1String("Value"); });
             b.setValue(7);
         },
         0, "5|5|0|100"},
    };
    for (const auto &[suffix, value] : TestSupport::badEnumValues)
        cases.push_back({std::string("ShowCurrencySymbolByName") + suffix,
                         [value](NumberBox &b) { b.setProperty("ShowCurrencySymbol", value); }, 380, "5|5|0|100"});
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Refusals, NumberBoxSets, ::testing::ValuesIn(setCases()), rowName);

// A new box set to the type, after Value 1 and Increment 2.
struct TypeCase { const char *name; twDataTypeConstants type; const char *text, *min, *max; int limitError; };
using DataTypeReset = NumberBoxTable<TypeCase>;

TEST_P(DataTypeReset, SetsEverythingForTheType)
{
    const TypeCase &c = GetParam();
    box->setValue(1);
    box->setIncrement(2);
    box->setDataType(c.type);
    EXPECT_EQ(QStringList({text1->text(), Variant::toString(box->Minimum()), Variant::toString(box->Maximum()),
                           Variant::toString(box->Increment())}),
              QStringList({c.text, c.min, c.max, "1"}));
    // A bag without bounds loads the very limits the set left, and they are accepted back.
    const QVariant min = box->Minimum(), max = box->Maximum();
    PropertyBag bag;
    bag.WriteProperty(QStringLiteral("DataType"), qint32(c.type), qint32(-1));
    box->ReadProperties(bag);
    EXPECT_EQ(box->Minimum(), min);
    EXPECT_EQ(box->Maximum(), max);
    EXPECT_ERROR(box->setMaximum(max), c.limitError);
    EXPECT_ERROR(box->setValue(max), c.limitError);
    EXPECT_EQ(value(), c.limitError ? QStringLiteral("0") : QString::fromLatin1(c.max));
}

INSTANTIATE_TEST_SUITE_P(Types, DataTypeReset, ::testing::Values(
    TypeCase{"Byte", twByte, "0", "0", "255", 0},
    // The Single limit held as a double is below the nearest float: as a Single it overflows.
    TypeCase{"SingleRefusesItsOwnLimit", twSingle, "0.00", "-3.402823E+38", "3.402823E+38", 6},
    TypeCase{"Double", twDouble, "0.00", "-1.79769313486231E+308", "1.79769313486231E+308", 0},
    TypeCase{"Currency", twCurrency, "0.00", "-922337203685477", "922337203685477", 0},
    TypeCase{"Decimal", twDecimal, "0.00", "-79228162514264337593543950335", "79228162514264337593543950335", 0}),
    rowName);

TEST_F(NumberBoxTest, UnknownDataTypeIsKeptAndHoldsNothing)
{
    box->setDataType(9);
    EXPECT_EQ(int(box->DataType()), 9);
    EXPECT_FALSE(box->Minimum().isValid());
}

TEST_F(NumberBoxTest, DecimalKeepsEveryDigit)
{
    store.setString(SettingsStore::CurrentUser, International, "iCurrDigits", "4");
    box->setDataType(twDecimal);
    box->setInterceptArrowKeys(true);
    box->setIncrement(QStringLiteral("0.0001"));
    showAndFocus(text1);
    play("123456789012345678901234.5678^H-");
    EXPECT_EQ(text1->text(), QStringLiteral("-123,456,789,012,345,678,901,234.5679"));
    PropertyBag bag;
    box->WriteProperties(bag);
    NumberBox copy;
    PropertyBag loaded = PropertyBag::fromJsonText(bag.toJsonText());
    copy.ReadProperties(loaded);
    EXPECT_EQ(Variant::toString(copy.Value()), QStringLiteral("-123456789012345678901234.5679"));
}

TEST_F(NumberBoxTest, CheckBoxSwitchesTheNumberOff)
{
    box->setUpDown(true);
    EXPECT_TRUE(box->InterceptArrowKeys());
    box->setCheckBox(true);
    QSignalSpy changes(box, &NumberBox::Change);
    check1()->click();
    EXPECT_TRUE(text1->isHidden());
    EXPECT_FALSE(upDown1()->isEnabled());
    EXPECT_EQ(changes.count(), 1);
    EXPECT_FALSE(box->Value().isValid());
    box->setValue(3); // at run time a value ticks the box again
    EXPECT_TRUE(upDown1()->isEnabled() && !text1->isHidden());
    box->setNullIfEmpty(true);
    box->setValue(Variant::null());
    EXPECT_FALSE(check1()->isChecked());
    EXPECT_TRUE(Variant::isNull(box->Value()));
}

// ForeColor (0,100,0) and DisabledColor (0,0,200); the negative colours are the defaults.
struct ColourCase { const char *name; bool enabled; int value; QColor expected; };
using ColourRule = NumberBoxTable<ColourCase>;

// Checked in the palette group Text1 paints with: its current one.
TEST_P(ColourRule, NegativeNumbersTakeTheirOwnColours)
{
    const ColourCase &c = GetParam();
    box->setDisabledColor(OleColor::fromRgb(0, 0, 200));
    box->setForeColor(OleColor::fromRgb(0, 100, 0));
    box->setEnabled(c.enabled);
    box->setValue(c.value);
    const QPalette palette = text1->palette();
    EXPECT_EQ(palette.color(palette.currentColorGroup(), QPalette::Text), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Colours, ColourRule, ::testing::Values(
    ColourCase{"Negative", true, -1, QColor(192, 0, 0)},
    ColourCase{"Positive", true, 1, QColor(0, 100, 0)},
    ColourCase{"NegativeDisabled", false, -1, QColor(255, 128, 128)},
    ColourCase{"ZeroDisabled", false, 0, QColor(0, 0, 200)}), rowName);

TEST_F(NumberBoxTest, BagRoundTripInKeyOrder)
{
    PropertyBag defaults;
    box->WriteProperties(defaults);
    const QStringList order{
        "DataType", "Minimum", "Maximum", "Value", "BackColor", "Enabled", "Font",
        "ThousandSeparator", "Locked", "MouseIcon", "DecimalPlaces", "UpDown", "Increment",
        "InterceptArrowKeys", "BorderStyle", "ForeColor", "DisabledColor", "NegativeColor",
        "UseNegativeColor", "NegativeDisabledColor", "Alignment", "OLEDragMode", "OLEDropMode",
        "MouseIcon", "MousePointer", "SelectTextOnFocus", "CurrencySymbol", "ShowCurrencySymbol",
        "ToolTip", "Checked", "CheckBox", "NullIfEmpty", "EnterAsTab"};
    EXPECT_EQ(defaults.writeLog(), order);
    EXPECT_EQ(defaults.keys(), QStringList{"DecimalPlaces"}); // a new box has regional digits

    box->setDataType(twInteger);
    box->setMinimum(-5);
    box->setValue(-3);
    box->setUpDown(true);
    box->setShowCurrencySymbol(twLeft);
    box->setCurrencySymbol(QStringLiteral("kr"));
    box->setToolTip(QStringLiteral("How many"));
    box->setBackColor(OleColor::fromRgb(1, 2, 3));
    box->setBorderStyle(twNone);
    box->setAlignment(twCenter);
    box->setMousePointer(99);
    box->setEnabled(false);
    box->setEnterAsTab(true);
    box->setCheckBox(true);
    PropertyBag saved;
    box->WriteProperties(saved);

    NumberBox copy(window.get());
    QSignalSpy changes(&copy, &NumberBox::Change);
    PropertyBag loaded = PropertyBag::fromJsonText(saved.toJsonText());
    copy.ReadProperties(loaded);
    EXPECT_EQ(loaded.readLog(), order);
    EXPECT_EQ(copy.Text(), QStringLiteral("kr-3"));
    EXPECT_EQ(copy.findChild<UpDownButton *>(QStringLiteral("UpDown1"))->toolTip(), QStringLiteral("How many"));
    EXPECT_EQ(changes.count(), 1); // showing the value; the alignment raises none
    EXPECT_EQ(copy.dirtyProperties(), QStringList{"Value"}) << "loading reports only the value it shows";
    PropertyBag again;
    copy.WriteProperties(again);
    EXPECT_EQ(again.toJsonText(), saved.toJsonText());

    // No DecimalPlaces: none shown; Maximum follows the loaded type.
    PropertyBag bare;
    bare.WriteProperty(QStringLiteral("DataType"), qint32(twDouble));
    bare.WriteProperty(QStringLiteral("Value"), 7.25);
    copy.ReadProperties(bare);
    EXPECT_EQ(copy.Text(), QStringLiteral("7"));
    EXPECT_EQ(Variant::toString(copy.Maximum()), QStringLiteral("1.79769313486231E+308"));
}

// A Single as a saved form holds it: what the bag's own reading makes of a number in its text.
QVariant savedSingle(double value)
{
    const QByteArray text = R"([{"key":"v","type":"Single","value":)" + QByteArray::number(value) + "}]";
    return PropertyBag::fromJsonText(text).ReadProperty(QStringLiteral("v"));
}

struct BadBagCase { const char *name; std::vector<std::pair<const char *, QVariant>> entries; };
using NumberBoxBadBags = NumberBoxTable<BadBagCase>;

// One bad entry anywhere refuses the whole bag before anything is assigned: every property keeps
// its value and its kind (a Currency 12.5 in the Currency range, an Integer Increment of 1).
TEST_P(NumberBoxBadBags, AreRefusedAndLeaveEverythingAsItWas)
{
    box->setValue(12.5);
    box->setUpDown(true);
    PropertyBag bag;
    for (const auto &[key, value] : GetParam().entries)
        bag.WriteProperty(QString::fromLatin1(key), value);
    const std::string before = propertiesOf(*box);
    EXPECT_ERROR(box->ReadProperties(bag), 380);
    EXPECT_EQ(propertiesOf(*box), before);
    EXPECT_EQ(box->Increment().metaType(), QMetaType::fromType<qint16>());
}

const std::pair<const char *, QVariant> single{"DataType", qint32(twSingle)};

INSTANTIATE_TEST_SUITE_P(Bags, NumberBoxBadBags, ::testing::Values(
    BadBagCase{"DataTypeText", {{"DataType", "x"}}},
    BadBagCase{"ValueText", {{"DataType", qint32(twByte)}, {"Value", "abc"}}},
    BadBagCase{"ValueAboveTheLoadedType", {{"DataType", qint32(twByte)}, {"Value", 256}}},
    BadBagCase{"EnabledText", {{"Enabled", "left"}}},
    BadBagCase{"DecimalPlacesAbove28", {{"DecimalPlaces", qint16(29)}}},
    BadBagCase{"BorderStyleOutOfRange", {{"BorderStyle", qint32(3)}}},
    BadBagCase{"NegativeColorText", {{"NegativeColor", "red"}}},
    BadBagCase{"ShowCurrencySymbolOutOfRange", {{"ShowCurrencySymbol", qint32(5)}}},
    BadBagCase{"LastKeyEnterAsTabText", {{"DataType", qint32(twByte)}, {"EnterAsTab", "left"}}},
    BadBagCase{"SingleValueSavedAsSingle1e300", {single, {"Value", savedSingle(1e300)}}},
    BadBagCase{"SingleValue1e300", {single, {"Value", 1e300}}},
    BadBagCase{"SingleMinimumBelowTheType", {single, {"Minimum", -1e300}}},
    BadBagCase{"SingleMaximumAboveTheType", {single, {"Maximum", 1e300}}},
    BadBagCase{"SingleIncrementAboveTheType", {single, {"Increment", 1e300}}}), rowName);

// 110 x 21 pixels; Fusion's 3-D border of 1 pixel leaves 1620 x 285 twips inside. The up-down
// button takes the ScrollWidth at the right; the text keeps a pixel above and below.
struct LayoutCase { const char *name; twBorderStyleConstants style; bool checkBox; QRect text1, buttons; };
using NumberBoxLayout = NumberBoxTable<LayoutCase>;

TEST_P(NumberBoxLayout, UpDownTakesItsWidthAtTheRight)
{
    box->setBorderStyle(GetParam().style);
    box->setCheckBox(GetParam().checkBox);
    box->setUpDown(true);
    EXPECT_EQ(text1->geometry(), GetParam().text1);
    EXPECT_EQ(upDown1()->geometry(), GetParam().buttons);
}

INSTANTIATE_TEST_SUITE_P(Layout, NumberBoxLayout, ::testing::Values(
    LayoutCase{"Fixed3D", twFixed3D, false, QRect(2, 2, 85, 17), QRect(92, 1, 17, 19)},
    LayoutCase{"None", twNone, false, QRect(1, 1, 91, 19), QRect(93, 0, 17, 21)},
    LayoutCase{"FixedSingleWithCheckBox", twFixedSingle, true, QRect(18, 2, 71, 17), QRect(92, 1, 17, 19)}), rowName);

// What a user sees of Enabled, Font and ToolTip on a box with a check box and up-down buttons:
// the text colour Text1 paints with, which inner widgets are usable, Text1's font, and the tips
// shown over Text1 and UpDown1 (a widget's own, else its parent's).
QString seen(NumberBox &b)
{
    QStringList seen;
    auto *text1 = b.findChild<QLineEdit *>(QStringLiteral("Text1"));
    seen << text1->palette().color(text1->palette().currentColorGroup(), QPalette::Text).name() << text1->font().toString();
    for (QWidget *w : {static_cast<QWidget *>(text1), b.findChild<QWidget *>(QStringLiteral("Check1")),
                       b.findChild<QWidget *>(QStringLiteral("UpDown1"))}) {
        QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), w->mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(w, &help);
        seen << (w->isEnabled() ? "on" : "off") << (QToolTip::isVisible() ? QToolTip::text() : QString());
        QToolTip::hideText();
    }
    return seen.join(u'|');
}

struct QWidgetCase { const char *name; std::function<void(NumberBox &)> property, qwidget; };
using QWidgetSetters = NumberBoxTable<QWidgetCase>;

TEST_P(QWidgetSetters, ActAsTheProperties)
{
    NumberBox *boxes[3];
    for (NumberBox *&b : boxes) {
        b = new NumberBox(window.get());
        b->setCheckBox(true);
        b->setUpDown(true);
    }
    window->show();
    GetParam().property(*boxes[1]);
    GetParam().qwidget(*boxes[2]);
    EXPECT_NE(seen(*boxes[1]), seen(*boxes[0])) << "the property changed nothing to see";
    EXPECT_EQ(seen(*boxes[2]), seen(*boxes[1]));
}

const QFont big(QStringLiteral("DejaVu Sans"), 15);
QWidget &asQWidget(NumberBox &b) { return b; }

INSTANTIATE_TEST_SUITE_P(Setters, QWidgetSetters, ::testing::Values(
    QWidgetCase{"Enabled", [](NumberBox &b) { b.setEnabled(false); }, [](NumberBox &b) { asQWidget(b).setEnabled(false); }},
    QWidgetCase{"Font", [](NumberBox &b) { b.setFont(big); }, [](NumberBox &b) { asQWidget(b).setFont(big); }},
    QWidgetCase{"ToolTip", [](NumberBox &b) { b.setToolTip("tip"); },
                [](NumberBox &b) { asQWidget(b).setToolTip("tip"); }}),
    rowName);

struct ChildCase { const char *name; std::function<void(NumberBox &)> act; const char *present; };
using InnerWidgets = NumberBoxTable<ChildCase>;

TEST_P(InnerWidgets, ExistOnlyOnceNeeded)
{
    GetParam().act(*box);
    QStringList present;
    for (const char *name : {"Check1", "Text3", "UpDown1"}) {
        if (box->findChild<QWidget *>(QString::fromLatin1(name)))
            present << QString::fromLatin1(name);
    }
    EXPECT_EQ(present.join(u' '), QString::fromLatin1(GetParam().present));
}

INSTANTIATE_TEST_SUITE_P(Children, InnerWidgets, ::testing::Values(
    ChildCase{"NewBox", [](NumberBox &) {}, ""},
    ChildCase{"OtherPropertiesSet",
              [](NumberBox &b) { b.setChecked(false); b.setInterceptArrowKeys(true); b.setEnabled(false); }, ""},
    ChildCase{"DefaultBagRead", [](NumberBox &b) { PropertyBag bag; b.ReadProperties(bag); }, ""},
    ChildCase{"CheckBox", [](NumberBox &b) { b.setCheckBox(true); }, "Check1 Text3"},
    ChildCase{"UpDown", [](NumberBox &b) { b.setUpDown(true); }, "UpDown1"}), rowName);

} // namespace
} // namespace Tarnwell
