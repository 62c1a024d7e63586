// The control frame through a minimal control built on it, as MaskBox and NumberBox are.
#include <tarnwell/controlframe.h>
#include <tarnwell/dataobject.h>

#include "common/testsupport.h"
#include "shared/twips.h"

#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QShortcut>
#include <QSignalSpy>

#include <functional>

using namespace Tarnwell;
using TestSupport::propertiesOf;
using TestSupport::rowName;

namespace {

using Log = std::vector<QString>;

// Logs its hooks, consumes '#' in handleKeyPress and, when asked, Delete in handleKeyDown.
class TestBox : public ControlFrame
{
public:
    explicit TestBox(QWidget *parent, Log *log) : ControlFrame(parent), m_log(log) {}
    using ControlFrame::Check1;
    using ControlFrame::Text1;
    bool consumeDelete = false;

    void setTextQuietly(const QString &text)
    {
        UpdatingGuard guard(*this);
        ControlFrame::writeText(text, 0);
    }

protected:
    void handleKeyDown(short &keyCode, short &) override
    {
        m_log->push_back(QStringLiteral("hookDown(%1)").arg(keyCode));
        if (consumeDelete && keyCode == 46)
            keyCode = 0;
    }
    void handleKeyPress(short &keyAscii) override
    {
        m_log->push_back(QStringLiteral("hookPress(%1)").arg(keyAscii));
        if (keyAscii == '#')
            keyAscii = 0;
    }
    void onEnterFocus() override
    {
        m_log->push_back(QStringLiteral("enter"));
        ControlFrame::onEnterFocus();
    }
    void onExitFocus() override { m_log->push_back(QStringLiteral("exit")); }

private:
    Log *m_log;
};

class FrameTest : public WidgetFixture
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        box = new TestBox(window.get(), &log);
        box->move(10, 10);
        next = new QLineEdit(window.get());
        next->setObjectName("next");
        next->move(10, 60);
        connect();
    }
    void connect()
    {
        QObject::connect(box, &ControlFrame::KeyDown, [this](short &k, short &s) {
            log.push_back(QStringLiteral("KeyDown(%1,%2)").arg(k).arg(s));
            if (zeroKeyCode == k)
                k = 0;
        });
        QObject::connect(box, &ControlFrame::keyPress, [this](short &a) {
            log.push_back(QStringLiteral("keyPress(%1)").arg(a));
            if (replaceAscii.first == a)
                a = replaceAscii.second;
        });
        QObject::connect(box, &ControlFrame::KeyUp, [this](short &k, short &s) {
            log.push_back(QStringLiteral("KeyUp(%1,%2)").arg(k).arg(s));
        });
        QObject::connect(box, &ControlFrame::Change, [this] { log.push_back("Change"); });
        QObject::connect(box, &ControlFrame::Click, [this] { log.push_back("Click"); });
        QObject::connect(box, &ControlFrame::DblClick, [this] { log.push_back("DblClick"); });
        auto mouse = [this](const char *name) {
            return [this, name](short &b, short &s, float &x, float &y) {
                log.push_back(QStringLiteral("%1(%2,%3,%4,%5)").arg(name).arg(b).arg(s).arg(x).arg(y));
            };
        };
        QObject::connect(box, &ControlFrame::MouseDown, mouse("MouseDown"));
        QObject::connect(box, &ControlFrame::MouseUp, mouse("MouseUp"));
    }
    Log takeLog()
    {
        Log out;
        out.swap(log);
        return out;
    }

    TestBox *box = nullptr;
    QLineEdit *next = nullptr;
    Log log;
    short zeroKeyCode = -1;
    std::pair<short, short> replaceAscii{-1, -1};
};

template<typename Row>
class FrameTable : public FrameTest, public ::testing::WithParamInterface<Row> {};

// --- Key pipeline -------------------------------------------------------------------------

struct KeyRow {
    const char *name;
    QString initialText;
    int cursor;
    Qt::Key key;
    short zeroKeyCode;               // the host zeroes this KeyCode in KeyDown
    std::pair<short, short> replace; // the host replaces this KeyAscii in keyPress
    bool consumeDelete;              // the control consumes Delete in handleKeyDown
    Log expectedLog;
    QString expectedText;
    Qt::KeyboardModifiers modifiers = {};
};
using KeyPipeline = FrameTable<KeyRow>;

TEST_P(KeyPipeline, HostFirstThenControlThenTextBox)
{
    const KeyRow &row = GetParam();
    box->setTextQuietly(row.initialText);
    showAndFocus(box->Text1());
    box->Text1()->setCursorPosition(row.cursor);
    box->consumeDelete = row.consumeDelete;
    zeroKeyCode = row.zeroKeyCode;
    replaceAscii = row.replace;
    takeLog();
    QTest::keyPress(box->Text1(), row.key, row.modifiers);
    QTest::keyRelease(box->Text1(), row.key, row.modifiers);
    EXPECT_EQ(takeLog(), row.expectedLog);
    EXPECT_EQ(box->Text1()->text(), row.expectedText);
}

const std::pair<short, short> keep{-1, -1};

INSTANTIATE_TEST_SUITE_P(Keys, KeyPipeline, ::testing::Values(
    KeyRow{"TypedLetter", "", 0, Qt::Key_A, -1, keep, false,
           {"KeyDown(65,0)", "hookDown(65)", "keyPress(97)", "hookPress(97)", "Change", "KeyUp(65,0)"}, "a"},
    KeyRow{"HostChangesCharacter", "", 0, Qt::Key_A, -1, {'a', 'X'}, false,
           {"KeyDown(65,0)", "hookDown(65)", "keyPress(97)", "hookPress(88)", "Change", "KeyUp(65,0)"}, "X"},
    KeyRow{"HostChangesToBackspace", "xy", 2, Qt::Key_Q, -1, {'q', 8}, false,
           {"KeyDown(81,0)", "hookDown(81)", "keyPress(113)", "hookPress(8)", "Change", "KeyUp(81,0)"}, "x"},
    KeyRow{"HostCancelsCharacter", "", 0, Qt::Key_A, -1, {'a', 0}, false,
           {"KeyDown(65,0)", "hookDown(65)", "keyPress(97)", "KeyUp(65,0)"}, ""},
    KeyRow{"ControlConsumesCharacter", "", 0, Qt::Key_NumberSign, -1, keep, false,
           {"KeyDown(51,0)", "hookDown(51)", "keyPress(35)", "hookPress(35)", "KeyUp(51,0)"}, ""},
    KeyRow{"DeletePassesOn", "xy", 0, Qt::Key_Delete, -1, keep, false,
           {"KeyDown(46,0)", "hookDown(46)", "Change", "KeyUp(46,0)"}, "y"},
    KeyRow{"HostZeroesDelete", "xy", 0, Qt::Key_Delete, 46, keep, false, {"KeyDown(46,0)", "KeyUp(46,0)"}, "xy"},
    KeyRow{"ControlConsumesDelete", "xy", 0, Qt::Key_Delete, -1, keep, true,
           {"KeyDown(46,0)", "hookDown(46)", "KeyUp(46,0)"}, "xy"},
    KeyRow{"ZeroedKeyCodeStillTypes", "", 0, Qt::Key_A, 65, keep, false,
           {"KeyDown(65,0)", "keyPress(97)", "hookPress(97)", "Change", "KeyUp(65,0)"}, "a"},
    KeyRow{"EnterWithoutEnterAsTab", "", 0, Qt::Key_Return, -1, keep, false,
           {"KeyDown(13,0)", "hookDown(13)", "keyPress(13)", "hookPress(13)", "KeyUp(13,0)"}, ""},
    KeyRow{"TabIsNavigationOnly", "", 0, Qt::Key_Tab, -1, keep, false, {"exit"}, ""},
    // An accelerator types nothing, though the line edit would take its text.
    KeyRow{"AltLetterIsNoCharacter", "", 0, Qt::Key_A, -1, keep, false, {"KeyDown(18,4)", "hookDown(18)", "KeyDown(65,4)", "hookDown(65)", "KeyUp(65,4)", "KeyUp(18,0)"}, "",
           Qt::AltModifier}), rowName);

TEST_F(FrameTest, EnterAsTabMovesFocusAndRaisesNoKeyPress)
{
    box->setEnterAsTab(true);
    showAndFocus(box->Text1());
    takeLog();
    QTest::keyClick(box->Text1(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), next);
    const Log seen = takeLog();
    EXPECT_EQ(std::count_if(seen.begin(), seen.end(),
                            [](const QString &s) { return s.startsWith("keyPress"); }),
              0);
    EXPECT_EQ(seen.front(), "KeyDown(13,0)");
    EXPECT_TRUE(std::find(seen.begin(), seen.end(), "exit") != seen.end());
}

TEST_F(FrameTest, EditKeysBeatApplicationShortcutsEvenWhenLocked)
{
    int fired = 0;
    auto *shortcut = new QShortcut(QKeySequence::Paste, window.get());
    QObject::connect(shortcut, &QShortcut::activated, [&] { ++fired; });
    box->setLocked(true);
    showAndFocus(box->Text1());
    takeLog();
    QTest::keyClick(box->Text1(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(fired, 0);
    const Log seen = takeLog();
    EXPECT_TRUE(std::find(seen.begin(), seen.end(), "keyPress(22)") != seen.end());
}

// --- Colours and border -------------------------------------------------------------------

// A colour a row expects: a fixed one, or a role of the control's palette in a colour group.
struct Shade {
    QColor fixed;
    QPalette::ColorGroup group = QPalette::Active;
    QPalette::ColorRole role = QPalette::NoRole;
    QColor on(const QWidget *w) const { return role == QPalette::NoRole ? fixed : w->palette().color(group, role); }
};
const Shade blue{QColor(0, 0, 255)}, red{QColor(255, 0, 0)}, green{QColor(0, 128, 0)};
const Shade windowText{{}, QPalette::Active, QPalette::Text}, grayText{{}, QPalette::Disabled, QPalette::Text};
const Shade windowBackground{{}, QPalette::Active, QPalette::Base}, unchecked{};

// `back` unchecked: whatever the style gives a disabled box.
struct ColourRow { const char *name; std::function<void(TestBox &)> set; Shade text, back; };
using Colours = FrameTable<ColourRow>;

// The text box is checked in its palette's current colour group, the one it paints with.
TEST_P(Colours, TextAndStripFollowEnabledAndTheColourProperties)
{
    const ColourRow &row = GetParam();
    row.set(*box);
    const QPalette text1 = box->Text1()->palette();
    EXPECT_EQ(text1.color(text1.currentColorGroup(), QPalette::Text), row.text.on(box));
    if (row.back.fixed.isValid() || row.back.role != QPalette::NoRole) {
        EXPECT_EQ(text1.color(text1.currentColorGroup(), QPalette::Base), row.back.on(box));
        // The strip between the text box and the border.
        const QPoint strip(box->Text1()->geometry().right() + 2, box->height() / 2);
        EXPECT_EQ(box->grab().toImage().pixelColor(strip), row.back.on(box));
    }
}

void blueOnRed(TestBox &b)
{
    b.setForeColor(OleColor::fromRgb(0, 0, 255));
    b.setDisabledColor(OleColor::fromRgb(255, 0, 0));
}

INSTANTIATE_TEST_SUITE_P(Table, Colours, ::testing::Values(
    ColourRow{"NewControl", [](TestBox &) {}, windowText, windowBackground},
    ColourRow{"ForeColorWhileEnabled", blueOnRed, blue, windowBackground},
    ColourRow{"DisabledColorWhileDisabled", [](TestBox &b) { blueOnRed(b); b.setEnabled(false); }, red, unchecked},
    ColourRow{"ForeColorWhenEnabledAgain",
              [](TestBox &b) { blueOnRed(b); b.setEnabled(false); b.setEnabled(true); }, blue, windowBackground},
    ColourRow{"DefaultDisabledColor", [](TestBox &b) { b.setEnabled(false); }, grayText, unchecked},
    ColourRow{"DisabledThroughQWidget",
              [](TestBox &b) { blueOnRed(b); static_cast<QWidget &>(b).setEnabled(false); }, red, unchecked},
    ColourRow{"BackColor", [](TestBox &b) { b.setBackColor(OleColor::fromRgb(0, 128, 0)); }, windowText, green},
    ColourRow{"BackColorWhileDisabled",
              [](TestBox &b) { blueOnRed(b); b.setBackColor(OleColor::fromRgb(0, 128, 0)); b.setEnabled(false); },
              red, green}), rowName);

// --- Refusals and dirty names -------------------------------------------------------------

struct RefusalRow { std::string name; std::function<void(TestBox &)> set; int number; };
using Refusals = FrameTable<RefusalRow>;

TEST_P(Refusals, ThrowTheirNumberAndChangeNothing)
{
    box->setTextQuietly("hello");
    box->setSelStart(1);
    box->setSelLength(2);
    box->clearDirty();
    const std::string before = propertiesOf(*box);
    EXPECT_ERROR(GetParam().set(*box), GetParam().number);
    EXPECT_EQ(propertiesOf(*box), before);
    EXPECT_TRUE(box->dirtyProperties().isEmpty());
}

std::vector<RefusalRow> refusals()
{
    std::vector<RefusalRow> rows{
        {"BorderStyle3", [](TestBox &b) { b.setBorderStyle(twBorderStyleConstants(3)); }, 380},
        {"AlignmentMinus1", [](TestBox &b) { b.setAlignment(twAlignmentConstants(-1)); }, 380},
        {"MousePointer16", [](TestBox &b) { b.setMousePointer(16); }, 380},
        {"OLEDragMode2", [](TestBox &b) { b.setOLEDragMode(2); }, 380},
        {"OLEDropMode3", [](TestBox &b) { b.setOLEDropMode(3); }, 380},
        {"SelStartMinus1", [](TestBox &b) { b.setSelStart(-1); }, 380},
        {"SelLengthMinus1", [](TestBox &b) { b.setSelLength(-1); }, 380},
        {"SelTextAtRunTime", [](TestBox &b) { b.setSelText("x"); }, 382},
        {"SelTextAtDesignTime", [](TestBox &b) { b.setUserMode(false); b.setSelText("x"); }, 387},
    };
    // By name, as a host or a form loader sets them.
    for (const char *property : {"BorderStyle", "Alignment"}) {
        for (const auto &[suffix, value] : TestSupport::badEnumValues)
            rows.push_back({std::string("ByName") + property + suffix,
                            [property, value](TestBox &b) { b.setProperty(property, value); }, 380});
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Table, Refusals, ::testing::ValuesIn(refusals()), rowName);

struct ByNameRow { const char *name; QVariant value; }; // name: the property
using SetByName = FrameTable<ByNameRow>;

TEST_P(SetByName, MarksTheProperty)
{
    box->setTextQuietly("hello");
    box->clearDirty();
    QSignalSpy spy(box, &ControlFrame::PropertyChanged);
    const char *property = GetParam().name;
    EXPECT_TRUE(box->setProperty(property, GetParam().value));
    EXPECT_EQ(box->dirtyProperties(), QStringList{property});
    ASSERT_GE(spy.count(), 1);
    EXPECT_EQ(spy.last().at(0).toString(), property);
    EXPECT_EQ(box->property(property), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Table, SetByName, ::testing::Values(
    ByNameRow{"BackColor", QVariant::fromValue(OleColor(0xFF))},
    ByNameRow{"ForeColor", QVariant::fromValue(OleColor(0xFF00))},
    ByNameRow{"DisabledColor", QVariant::fromValue(OleColor(0xFF0000))},
    ByNameRow{"Enabled", false}, ByNameRow{"Font", QFont("DejaVu Sans", 14)},
    ByNameRow{"BorderStyle", QVariant::fromValue(twFixedSingle)},
    ByNameRow{"Alignment", QVariant::fromValue(twCenter)}, ByNameRow{"Locked", true},
    ByNameRow{"SelectTextOnFocus", false}, ByNameRow{"NullIfEmpty", true},
    ByNameRow{"EnterAsTab", true}, ByNameRow{"ToolTip", "tip"}, ByNameRow{"CheckBox", true},
    ByNameRow{"Checked", false}, ByNameRow{"MousePointer", 11}, ByNameRow{"OLEDragMode", 1},
    ByNameRow{"OLEDropMode", 2}, ByNameRow{"SelStart", 1}, ByNameRow{"SelLength", 3}), rowName);

// --- Check box ----------------------------------------------------------------------------

enum class Focus { Text, Check1, Next };
struct CheckRow {
    const char *name; bool checkBox, checkedBefore; std::function<void(TestBox &)> act; bool textVisible; Focus focus;
};
using CheckBoxes = FrameTable<CheckRow>;

TEST_P(CheckBoxes, TextShowsWhileTicked)
{
    const CheckRow &row = GetParam();
    box->setCheckBox(row.checkBox);
    box->setChecked(row.checkedBefore);
    showAndFocus(next);
    takeLog();
    row.act(*box);
    QCoreApplication::processEvents();
    const auto *check1 = box->findChild<QCheckBox *>("Check1");
    EXPECT_EQ(box->Checked(), !row.checkedBefore);
    EXPECT_EQ(check1 && check1->isVisible(), row.checkBox);
    EXPECT_EQ(box->Text1()->isVisible(), row.textVisible);
    const QWidget *focus[] = {box, check1, next}; // the control holds the focus for its text
    EXPECT_EQ(QApplication::focusWidget(), focus[int(row.focus)]);
    const Log seen = takeLog();
    EXPECT_EQ(std::count(seen.begin(), seen.end(), "Change"), 1);
}

void clickCheck1(TestBox &b) { QTest::mouseClick(b.Check1(), Qt::LeftButton); }

INSTANTIATE_TEST_SUITE_P(Table, CheckBoxes, ::testing::Values(
    CheckRow{"TickedByMouseFocusesTheText", true, false, clickCheck1, true, Focus::Text},
    CheckRow{"TickedFromCodeLeavesTheFocus", true, false, [](TestBox &b) { b.setChecked(true); }, true, Focus::Next},
    CheckRow{"UntickedByMouse", true, true, clickCheck1, false, Focus::Check1},
    CheckRow{"NoCheckBoxShowsTheTextUnticked", false, true, [](TestBox &b) { b.setChecked(false); }, true, Focus::Next}),
    rowName);

// --- Focus and text change ----------------------------------------------------------------

struct EnterRow { const char *name; bool selectTextOnFocus; Qt::FocusReason reason; int selStart, selLength; };
using Entering = FrameTable<EnterRow>;

TEST_P(Entering, SelectsAllOnlyWithSelectTextOnFocus)
{
    const EnterRow &row = GetParam();
    box->setTextQuietly("hello");
    box->setSelectTextOnFocus(row.selectTextOnFocus);
    showAndFocus(next);
    box->Text1()->setCursorPosition(2);
    box->Text1()->setFocus(row.reason);
    EXPECT_TRUE(box->controlHasFocus());
    EXPECT_EQ(box->SelStart(), row.selStart);
    EXPECT_EQ(box->SelLength(), row.selLength);
}

INSTANTIATE_TEST_SUITE_P(Table, Entering, ::testing::Values(
    EnterRow{"OnFromCode", true, Qt::OtherFocusReason, 0, 5},
    EnterRow{"OffByTabTheCaretStays", false, Qt::TabFocusReason, 2, 0},
    EnterRow{"OffByShiftTab", false, Qt::BacktabFocusReason, 2, 0}), rowName);

// Tab goes from the widget before the control into its text (the control itself holds the
// focus), then to Check1, then to the widget after; Shift+Tab goes back the same way. The control
// and its inner widgets are one block of the tab chain.
TEST_F(FrameTest, TabGoesThroughTheTextThenCheck1)
{
    auto *before = new QLineEdit(window.get());
    Log otherLog;
    auto *checked = new TestBox(window.get(), &otherLog);
    auto *after = new QLineEdit(window.get());
    before->setObjectName("before");
    checked->setObjectName("control");
    after->setObjectName("after");
    checked->setCheckBox(true);
    showAndFocus(before);
    QStringList order;
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Backtab}) {
        QTest::keyClick(QApplication::focusWidget(), key, key == Qt::Key_Tab ? Qt::NoModifier : Qt::ShiftModifier);
        order << QApplication::focusWidget()->objectName();
    }
    EXPECT_EQ(order.join(u' '), QStringLiteral("control Check1 after Check1 control before"));
}

TEST_F(FrameTest, MovingBetweenInnerWidgetsIsNotLeaving)
{
    box->setCheckBox(true);
    showAndFocus(box->Text1());
    box->Check1()->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(box->checkHasFocus());
    box->Text1()->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(box->checkHasFocus());
    next->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(box->controlHasFocus());
    EXPECT_EQ(takeLog(), (Log{"enter", "exit"}));
}

// Focus that goes nowhere is left all the same, unless only the window stopped being active.
struct NowhereRow { const char *name; std::function<void(TestBox &)> lose; Log log; };
using FocusGoingNowhere = FrameTable<NowhereRow>;

TEST_P(FocusGoingNowhere, LeavesUnlessTheWindowKeepsIt)
{
    next->setFocusPolicy(Qt::NoFocus);
    showAndFocus(box->Text1());
    takeLog();
    QWidget elsewhere; // a second window to make active, when the row loses no focus itself
    if (GetParam().lose) {
        GetParam().lose(*box);
    } else {
        elsewhere.show();
        elsewhere.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
        ASSERT_EQ(QApplication::focusWidget(), nullptr);
    }
    QApplication::processEvents();
    EXPECT_EQ(takeLog(), GetParam().log);
}

INSTANTIATE_TEST_SUITE_P(Table, FocusGoingNowhere, ::testing::Values(
    NowhereRow{"Disabled", [](TestBox &b) { b.setEnabled(false); }, {"exit"}},
    NowhereRow{"Cleared", [](TestBox &b) { b.clearFocus(); }, {"exit"}},
    NowhereRow{"AnotherWindowActivated", nullptr, {}}), rowName);

TEST_F(FrameTest, TextChangeRaisesChangeUnlessUpdating)
{
    box->clearDirty();
    box->Text1()->setText("one");
    box->setTextQuietly("two");
    EXPECT_EQ(takeLog(), Log{"Change"});
    EXPECT_TRUE(box->isDirty("Value"));
}

// --- Mouse --------------------------------------------------------------------------------

TEST_F(FrameTest, MouseEventsRelayInTwips)
{
    showAndFocus(box->Text1());
    takeLog();
    const QPoint at(4, 3);
    QTest::mouseClick(box->Text1(), Qt::LeftButton, Qt::ShiftModifier, at);
    // The second click of a double click, as Qt delivers it: press, double click, release.
    QTest::mousePress(box->Text1(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(box->Text1(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(box->Text1(), Qt::LeftButton, {}, at);
    const Log expected{"MouseDown(1,1,60,45)", "MouseUp(1,1,60,45)", "Click",
                       "MouseDown(1,0,60,45)", "DblClick", "MouseUp(1,0,60,45)"};
    EXPECT_EQ(takeLog(), expected);
}

TEST_F(FrameTest, ManualDropRaisesDragEventsAndLeavesTextAlone)
{
    box->setOLEDropMode(ControlFrame::OLEDropManual);
    box->setTextQuietly("keep");
    QObject::connect(box, &ControlFrame::OLEDragOver,
                     [this](DataObject *data, int &effect, short &, short &, float &x, float &, short &state) {
                         log.push_back(QStringLiteral("OLEDragOver(%1,%2,%3,%4)")
                                           .arg(data->GetData(DataObject::CFText).toString())
                                           .arg(effect).arg(x).arg(state));
                     });
    QObject::connect(box, &ControlFrame::OLEDragDrop,
                     [this](DataObject *data, int &effect, short &, short &, float &, float &) {
                         log.push_back(QStringLiteral("OLEDragDrop(%1,%2)")
                                           .arg(data->GetData(DataObject::CFText).toString())
                                           .arg(effect));
                         effect = ControlFrame::EffectCopy;
                     });
    QMimeData mime;
    mime.setText("dragged");
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(QPoint(2, 1), offered, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box->Text1(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(2, 1), offered, &mime, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(box->Text1(), &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    EXPECT_EQ(takeLog(), (Log{"OLEDragOver(dragged,3,30,0)", "OLEDragDrop(dragged,3)"}));
    EXPECT_EQ(box->Text1()->text(), "keep");
}

// --- Layout -------------------------------------------------------------------------------

// The text box's and the check box's heights and the check box's top, in twips.
struct TopRow { const char *name; int text, check, top; };
class CheckBoxTop : public ::testing::TestWithParam<TopRow> {};

TEST_P(CheckBoxTop, CentresOnTheTextRoundingHalvesToEven)
{
    EXPECT_EQ(Twips::checkBoxTop(GetParam().text, GetParam().check), GetParam().top);
}

INSTANTIATE_TEST_SUITE_P(Table, CheckBoxTop, ::testing::Values(
    TopRow{"TallText", 315, 195, 60}, TopRow{"TextShorterThanTheBox", 180, 195, 0},
    TopRow{"Between", 255, 195, 30}, TopRow{"HalfPixelGoesTo0", 209, 195, 0},
    TopRow{"OneAndAHalfGoTo2", 239, 195, 30}, TopRow{"TwoAndAHalfGoTo2", 269, 195, 30}), rowName);

// Text1, in the frame's coordinates, in a frame of the default 1650 x 315 twips (110 x 21 pixels).
struct LayoutRow { const char *name; twBorderStyleConstants style; bool checkBox; int frameWidth; QRect text; };
using Layout = FrameTable<LayoutRow>;

TEST_P(Layout, BorderAndCheckBoxPlaceTheTextBox)
{
    box->setBorderStyle(GetParam().style);
    box->setCheckBox(GetParam().checkBox);
    EXPECT_EQ(box->frameWidth(), GetParam().frameWidth);
    EXPECT_EQ(box->Text1()->geometry(), GetParam().text);
}

// Down, the text box keeps one pixel to the inner area's top and bottom edges.
INSTANTIATE_TEST_SUITE_P(Table, Layout, ::testing::Values(
    // 3-D, Fusion's one-pixel line-edit frame: inner 108 x 19 from (1,1); width
    // (1620 - 80 - 15) / 15 rounds to 102.
    LayoutRow{"Fixed3D", twFixed3D, false, 1, QRect(2, 2, 102, 17)},
    LayoutRow{"Fixed3DWithCheckBox", twFixed3D, true, 1, QRect(18, 2, 86, 17)},
    // Single: inner 108 x 19; the text box is the inner width less 60 twips.
    LayoutRow{"FixedSingle", twFixedSingle, false, 1, QRect(2, 2, 104, 17)},
    LayoutRow{"FixedSingleWithCheckBox", twFixedSingle, true, 1, QRect(18, 2, 88, 17)},
    LayoutRow{"None", twNone, false, 0, QRect(1, 1, 108, 19)},
    LayoutRow{"NoneWithCheckBox", twNone, true, 0, QRect(17, 1, 92, 19)}), rowName);

TEST_F(FrameTest, NewFrameHasTheDefaultSizeAndTooSmallOneLeavesNoText)
{
    EXPECT_EQ(box->size(), QSize(110, 21));
    window->show(); // a hidden widget hears of its resize only when shown
    box->resize(5, 5);
    EXPECT_EQ(box->Text1()->width(), 0);
}

// Rows of a widget's picture holding dark (text) pixels.
static int inkRows(QWidget *w)
{
    const QImage image = w->grab().toImage();
    int rows = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) < 128) {
                ++rows;
                break;
            }
        }
    }
    return rows;
}

using DefaultSizeText = FrameTable<int>;

// What the same text needs in a box with room to spare, against what the default-size text box
// shows: nothing may be cut that its height could have shown.
TEST_P(DefaultSizeText, KeepsCapitalsAndDescenders)
{
    const QString sample = QStringLiteral("HMgjpqy");
    window->show();
    QFont font = box->Font();
    font.setPointSize(GetParam());
    box->setFont(font);
    box->setTextQuietly(sample);
    QLineEdit roomy;
    roomy.setFrame(false);
    roomy.setFont(font);
    roomy.setText(sample);
    roomy.resize(200, 60);
    const int needed = inkRows(&roomy);
    ASSERT_GT(needed, 0);
    EXPECT_EQ(inkRows(box->Text1()), qMin(needed, box->Text1()->height()));
    box->resize(110, 200); // tall enough again: the plain line, no margins
    EXPECT_EQ(box->Text1()->textMargins(), QMargins());
}

INSTANTIATE_TEST_SUITE_P(Points, DefaultSizeText, ::testing::Values(8, 12),
                         [](const auto &info) { return std::to_string(info.param) + "pt"; });

} // namespace
