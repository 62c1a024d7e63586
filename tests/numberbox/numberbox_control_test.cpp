// The number box as a host and a user meet it, under the offscreen platform: real key events,
// clipboard, mouse, drops and focus; refusals and their errors; type resets, the check box,
// colours, persistence and layout.
#include <tarnwell/error.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include "common/errorassert.h"
#include "common/widgetfixture.h"
#include "shared/contextmenuhook.h"
#include "shared/memorysettingsstore.h"
#include "shared/settingsreader.h"
#include "shared/updownbutton.h"

#include <QCheckBox>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>

#include <functional>

[[maybe_unused]] static void PrintTo(const QString &s, std::ostream *os) { *os << '"' << s.toStdString() << '"'; }

namespace Tarnwell {
namespace {

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
    // Created when first shown.
    QCheckBox *check1() const { return box->findChild<QCheckBox *>(QStringLiteral("Check1")); }
    UpDownButton *upDown1() const { return box->findChild<UpDownButton *>(QStringLiteral("UpDown1")); }
};

// --- Keys, clipboard and stepping -------------------------------------------------------------

struct KeyCase
{
    const char *name;
    twDataTypeConstants type;
    const char *value;   // set before focusing
    const char *start;   // the text after focusing, caret at '|' (none: all selected)
    const char *keys;
    const char *expected;
    const char *expectedValue;
    twCurrencyPositionConstants symbol = twNoCurrency;
    const char *clipboard = "";
    const char *increment = "1";
};
std::ostream &operator<<(std::ostream &os, const KeyCase &c) { return os << c.name; }

class NumberBoxKeys : public NumberBoxTest, public ::testing::WithParamInterface<KeyCase> {};

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

const KeyCase keyCases[] = {
    {"TypesOverSelectAll", twDouble, "0", "0.00", "1234567.89", "1,234,567.89|", "1234567.89"},
    {"TypesAfterCurrencySymbol", twCurrency, "0", "$0.00", "19.95", "$19.95|", "19.95", twLeft},
    {"BackspaceTakesDigitBeforeGrouping", twDouble, "1234", "1,|234.00", "<", "|234.00", "234"},
    {"DeleteSkipsGrouping", twDouble, "1234", "1|,234.00", ">", "1|34.00", "134"},
    {"MinusOnZeroStartsNegativeEntry", twCurrency, "0", "|0.00", "-42", "-42|.00", "-42"},
    {"DecimalJumpThenOverwrite", twDouble, "12", "|12.00", ".5", "12.5|0", "12.5"},
    {"UndoAndCutKeysDoNothing", twDouble, "12", "12|.00", "3ZX", "123|.00", "123"},
    {"CtrlVPastesGroupedWithSymbol", twCurrency, "0", "$0.00", "V", "$1,234.5|0", "1234.5",
     twLeft, "$1,234.5"},
    {"ShiftInsertPastes", twDouble, "0", "0.00", "I", "-12|.00", "-12", twNoCurrency, "-12"},
    {"ArrowsStepKeepingCaret", twDouble, "999", "999.0|0", "^", "1,000.0|0", "1000"},
    {"ButtonsStep", twDouble, "1", "1.00", "uud", "|1.25", "1.25", twNoCurrency, "", "0.25"},
    {"ByteStepStopsAtTypeLimit", twByte, "250", "250", "^", "250|", "250", twNoCurrency, "", "10"},
    {"DecimalStepsExactly", twDecimal, "0.1", "0.10", "^^^", "|0.70", "0.7", twNoCurrency, "", "0.2"},
};
INSTANTIATE_TEST_SUITE_P(Typing, NumberBoxKeys, ::testing::ValuesIn(keyCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(NumberBoxTest, HostSeesKeysFirstAndMayChangeThem)
{
    box->setDataType(twInteger);
    QList<short> seen;
    QObject::connect(box, &NumberBox::keyPress, box, [&](short &ascii) {
        seen << ascii;
        if (ascii == 'x')
            ascii = '7';
    });
    QSignalSpy changes(box, &NumberBox::Change);
    focusAt(QStringLiteral("0"));
    play("4x");
    EXPECT_EQ(seen, (QList<short>{'4', 'x'}));
    EXPECT_EQ(text1->text(), QStringLiteral("47"));
    EXPECT_EQ(changes.count(), 2);
}

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
std::ostream &operator<<(std::ostream &os, const RepairCase &c) { return os << c.name; }

class NumberBoxRepair : public NumberBoxTest, public ::testing::WithParamInterface<RepairCase> {};

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

const RepairCase repairCases[] = {
    {"SteppedBelowMinimumGoesToMinimum", 1, 10, "v", "1", "1"},
    {"TypedAboveMaximumGoesToZero", -10, 10, "H55", "0", "0"},
    {"InRangeIsKept", -10, 10, "7", "7", "7"},
    // A maximum below zero refuses the repair: 0 is stored, the old text stays.
    {"MaximumBelowZeroLeavesText", -10, -5, "^^", "-3", "0"},
};
INSTANTIATE_TEST_SUITE_P(Leaving, NumberBoxRepair, ::testing::ValuesIn(repairCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(NumberBoxTest, NoOtherPathLeavesForeignText)
{
    box->setValue(12);
    focusAt(QStringLiteral("12.00"));
    QSignalSpy changes(box, &NumberBox::Change);
    text1->setText(QStringLiteral("12abc")); // as a drag move or an undo would
    EXPECT_EQ(text1->text(), QStringLiteral("12.00"));
    EXPECT_EQ(changes.count(), 0);
    text1->setText(QStringLiteral("3,4")); // a number after all: taken and formatted
    EXPECT_EQ(text1->text(), QStringLiteral("34.00"));

    QInputMethodEvent compose;
    compose.setCommitString(QStringLiteral("x9"));
    QApplication::sendEvent(text1, &compose);
    EXPECT_EQ(text1->text(), QStringLiteral("34.00"));
    text1->setCursorPosition(0);
    compose.setCommitString(QStringLiteral("5"));
    QApplication::sendEvent(text1, &compose);
    EXPECT_EQ(text1->text(), QStringLiteral("534.00"));

    EXPECT_TRUE(ContextMenuHook::isHooked(text1));
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(2, 2), text1->mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(text1, &menu);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(NumberBoxTest, AutomaticDropTakesNumbersOnlyAndNeverMoves)
{
    box->setOLEDropMode(ControlFrame::OLEDropAutomatic);
    box->setValue(1);
    showAndFocus(text1);
    for (const auto &[dropped, expected] : {std::pair{"abc", "1.00"}, std::pair{"2,000", "20,001.00"}}) {
        QMimeData data;
        data.setText(QString::fromLatin1(dropped));
        const Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(QPoint(1, 1), actions, &data, Qt::LeftButton, {});
        QApplication::sendEvent(text1, &enter);
        EXPECT_EQ(enter.isAccepted(), QLatin1String(dropped) != QLatin1String("abc")) << dropped;
        QDropEvent drop(QPointF(1, 1), actions, &data, Qt::LeftButton, {});
        QApplication::sendEvent(text1, &drop);
        EXPECT_EQ(text1->text(), QString::fromLatin1(expected)) << dropped;
        EXPECT_NE(drop.dropAction(), Qt::MoveAction) << dropped;
    }
}

// --- Property sets ------------------------------------------------------------------------------

struct SetCase
{
    const char *name;
    std::function<void(NumberBox &)> set;
    int error;            // 0: no error
    const char *expected; // text|Value|Minimum|Maximum after the set
};
std::ostream &operator<<(std::ostream &os, const SetCase &c) { return os << c.name; }

class NumberBoxSets : public NumberBoxTest, public ::testing::WithParamInterface<SetCase> {};

TEST_P(NumberBoxSets, RefuseWithErrorOrQuietly)
{
    const SetCase &c = GetParam();
    box->setDataType(twInteger);
    box->setMinimum(0);
    box->setMaximum(100);
    box->setValue(5);
    box->setCheckBox(true);
    box->setChecked(false);
    box->clearDirty();
    QSignalSpy changes(box, &NumberBox::Change);
    try {
        c.set(*box);
        EXPECT_EQ(c.error, 0);
    } catch (const Error &e) {
        EXPECT_EQ(e.number(), c.error);
    }
    EXPECT_TRUE(c.error == 0 || changes.count() == 0) << "a refused set moved the check box";
    box->setChecked(true);
    const QString state = QStringList{text1->text(), value(), Variant::toString(box->Minimum()),
                                      Variant::toString(box->Maximum())}.join(u'|');
    EXPECT_EQ(state, QString::fromLatin1(c.expected));
}

const SetCase setCases[] = {
    {"ValueText", [](NumberBox &b) { b.setValue(QStringLiteral("abc")); }, 13, "5|5|0|100"},
    {"ValueAboveType", [](NumberBox &b) { b.setValue(40000); }, 6, "5|5|0|100"},
    {"MinimumNull", [](NumberBox &b) { b.setMinimum(Variant::null()); }, 13, "5|5|0|100"},
    {"MaximumAboveType", [](NumberBox &b) { b.setMaximum(32768); }, 6, "5|5|0|100"},
    {"TextAtRunTime", [](NumberBox &b) { b.setText(QStringLiteral("1")); }, 382, "5|5|0|100"},
    {"TextAtDesignTime", [](NumberBox &b) { b.setUserMode(false); b.setText(QStringLiteral("1")); },
     387, "5|5|0|100"},
    {"CurrencyPosition", [](NumberBox &b) { b.setShowCurrencySymbol(twCurrencyPositionConstants(3)); },
     380, "5|5|0|100"},
    {"ValueOutsideRange", [](NumberBox &b) { b.setValue(101); }, 0, "5|5|0|100"},
    {"MinimumPullsValueUp", [](NumberBox &b) { b.setMinimum(10); }, 0, "10|10|10|100"},
    {"MaximumPullsValueDown", [](NumberBox &b) { b.setMaximum(3); }, 0, "3|3|0|3"},
    {"EmptyTextIsZero", [](NumberBox &b) { b.setValue(QString()); }, 0, "0|0|0|100"},
    {"RoundsHalfToEven", [](NumberBox &b) { b.setValue(2.5); }, 0, "2|2|0|100"},
    {"HostRefusesValue",
     [](NumberBox &b) {
         b.setCanPropertyChangeHook([](const QString &name) { return name != QLatin1String("Value"); });
         b.setValue(7);
     },
     0, "5|5|0|100"},
};
INSTANTIATE_TEST_SUITE_P(Refusals, NumberBoxSets, ::testing::ValuesIn(setCases),
                         [](const auto &info) { return std::string(info.param.name); });

TEST_F(NumberBoxTest, DataTypeResetsEverythingForTheType)
{
    // The Single limit held as a double is below the nearest float: as a Single it overflows.
    struct Row { twDataTypeConstants type; const char *text; const char *min; const char *max; int limitError; };
    const Row rows[] = {
        {twByte, "0", "0", "255", 0},
        {twSingle, "0.00", "-3.402823E+38", "3.402823E+38", 6},
        {twDouble, "0.00", "-1.79769313486231E+308", "1.79769313486231E+308", 0},
        {twCurrency, "0.00", "-922337203685477", "922337203685477", 0},
        {twDecimal, "0.00", "-79228162514264337593543950335", "79228162514264337593543950335", 0},
    };
    for (const Row &r : rows) {
        box->setValue(1);
        box->setIncrement(2);
        box->setDataType(r.type);
        EXPECT_EQ(QStringList({text1->text(), Variant::toString(box->Minimum()),
                               Variant::toString(box->Maximum()), Variant::toString(box->Increment())}),
                  QStringList({r.text, r.min, r.max, "1"}));
        // A bag without bounds loads the very limits the set left, and they are accepted back.
        const QVariant min = box->Minimum(), max = box->Maximum();
        PropertyBag bag;
        bag.WriteProperty(QStringLiteral("DataType"), qint32(r.type), qint32(-1));
        box->ReadProperties(bag);
        EXPECT_EQ(box->Minimum(), min) << r.min;
        EXPECT_EQ(box->Maximum(), max) << r.max;
        EXPECT_EQ(TestSupport::errorOf([&] { box->setMaximum(max); }), r.limitError) << r.max;
        EXPECT_EQ(TestSupport::errorOf([&] { box->setValue(max); }), r.limitError) << r.max;
        EXPECT_EQ(Variant::toString(box->Value()), r.limitError ? QStringLiteral("0") : QString::fromLatin1(r.max));
    }
    box->setDataType(9); // stored as it is; it holds nothing
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

TEST_F(NumberBoxTest, ColourRule)
{
    box->setDisabledColor(OleColor::fromRgb(0, 0, 200));
    box->setForeColor(OleColor::fromRgb(0, 100, 0));
    struct Row { bool enabled; bool useNegative; int value; QColor expected; };
    const Row rows[] = {
        {true, true, -1, QColor(192, 0, 0)},      {true, true, 1, QColor(0, 100, 0)},
        {false, true, -1, QColor(255, 128, 128)}, {false, true, 0, QColor(0, 0, 200)},
        {true, false, -1, QColor(0, 100, 0)},
    };
    for (const Row &r : rows) {
        box->setEnabled(r.enabled);
        box->setUseNegativeColor(r.useNegative);
        box->setValue(r.value);
        EXPECT_EQ(text1->palette().color(QPalette::Active, QPalette::Text), r.expected)
            << r.enabled << r.useNegative << r.value;
    }
}

// --- Persistence and layout --------------------------------------------------------------------

TEST_F(NumberBoxTest, BagRoundTripInKeyOrder)
{
    EXPECT_TRUE(box->dirtyProperties().isEmpty());
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

TEST_F(NumberBoxTest, BadBagValueChangesNothing)
{
    box->setValue(12.5);
    box->setUpDown(true);
    const std::pair<const char *, QVariant> rows[] = {
        {"DecimalPlaces", qint16(29)}, {"Value", QStringLiteral("abc")},
        {"ShowCurrencySymbol", qint32(5)}, {"NegativeColor", QStringLiteral("red")}};
    for (const auto &[key, bad] : rows) {
        PropertyBag bag;
        bag.WriteProperty(QStringLiteral("DataType"), qint32(twByte));
        bag.WriteProperty(QString::fromLatin1(key), bad);
        EXPECT_THROW(box->ReadProperties(bag), Error) << key;
        EXPECT_EQ(text1->text(), QStringLiteral("12.50")) << key;
        EXPECT_TRUE(box->DataType() == twCurrency && box->UpDown()) << key;
    }
}

TEST_F(NumberBoxTest, LayoutInTwips)
{
    // 110 x 21 pixels; a 3-D border of 2 pixels leaves 1590 x 255 twips inside.
    struct Row { twBorderStyleConstants style; bool checkBox; bool upDown; QRect text1; QRect buttons; };
    const Row rows[] = {
        {twFixed3D, false, false, QRect(3, 3, 100, 12), QRect()},
        {twFixed3D, false, true, QRect(3, 3, 83, 12), QRect(91, 2, 17, 17)},
        {twFixed3D, true, false, QRect(19, 3, 84, 12), QRect()},
        {twNone, false, true, QRect(1, 1, 91, 20), QRect(93, 0, 17, 21)},
        {twFixedSingle, true, true, QRect(18, 2, 71, 16), QRect(92, 1, 17, 19)},
    };
    for (const Row &r : rows) {
        box->setBorderStyle(r.style);
        box->setCheckBox(r.checkBox);
        box->setUpDown(r.upDown);
        SCOPED_TRACE(::testing::Message() << r.style << r.checkBox << r.upDown);
        EXPECT_EQ(text1->geometry(), r.text1);
        EXPECT_EQ(upDown1() && upDown1()->isVisibleTo(box) ? upDown1()->geometry() : QRect(), r.buttons);
    }
}

} // namespace
} // namespace Tarnwell
