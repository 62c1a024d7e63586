// The control frame through a minimal control built on it, as MaskBox and NumberBox are.
#include <tarnwell/controlframe.h>
#include <tarnwell/dataobject.h>
#include <tarnwell/error.h>
#include <tarnwell/propertybag.h>

#include "common/errorassert.h"
#include "common/widgetfixture.h"
#include "shared/commonproperties.h"
#include "shared/twips.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QShortcut>
#include <QSignalSpy>

using namespace Tarnwell;

// Readable QStrings in failure output.
static void PrintTo(const QString &s, std::ostream *os)
{
    *os << '"' << s.toStdString() << '"';
}

namespace {

using Log = std::vector<QString>;
using K = CommonKey;
const std::initializer_list<CommonKey> allKeys{
    K::BackColor, K::Enabled, K::Font, K::Locked, K::MouseIcon, K::BorderStyle, K::ForeColor,
    K::DisabledColor, K::Alignment, K::OLEDragMode, K::OLEDropMode, K::MousePointer,
    K::SelectTextOnFocus, K::ToolTip, K::CheckBox, K::Checked, K::NullIfEmpty, K::EnterAsTab};

// Logs its hooks, consumes '#' in handleKeyPress and, when asked, Delete in handleKeyDown.
class TestBox : public ControlFrame
{
public:
    explicit TestBox(QWidget *parent, Log *log) : ControlFrame(parent), m_log(log) {}
    using ControlFrame::Check1;
    using ControlFrame::Text1;
    bool consumeDelete = false;
    void writeAll(PropertyBag &bag) const { CommonProperties::write(*this, bag, allKeys); }
    void readAll(const PropertyBag &bag) { BagPlan(*this).common(allKeys).read(bag); }
    void writeText(const QString &text) { ControlFrame::writeText(text, 0); }

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

// --- Key pipeline -------------------------------------------------------------------------

struct KeyRow {
    const char *name;
    QString initialText;
    int cursor;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
    QString text;
    short zeroKeyCode;                 // the host zeroes this KeyCode in KeyDown
    std::pair<short, short> replace;   // the host replaces this KeyAscii in keyPress
    bool consumeDelete;                // the control consumes Delete in handleKeyDown
    Log expectedLog;
    QString expectedText;
};

class KeyPipeline : public FrameTest, public ::testing::WithParamInterface<KeyRow> {};

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
const Qt::KeyboardModifiers none = Qt::NoModifier;

INSTANTIATE_TEST_SUITE_P(
    Keys, KeyPipeline,
    ::testing::Values(
        KeyRow{"TypedLetter", "", 0, Qt::Key_A, none, "a", -1, keep, false,
               {"KeyDown(65,0)", "hookDown(65)", "keyPress(97)", "hookPress(97)", "Change",
                "KeyUp(65,0)"},
               "a"},
        KeyRow{"HostChangesCharacter", "", 0, Qt::Key_A, none, "a", -1, {'a', 'X'}, false,
               {"KeyDown(65,0)", "hookDown(65)", "keyPress(97)", "hookPress(88)", "Change",
                "KeyUp(65,0)"},
               "X"},
        KeyRow{"HostChangesToBackspace", "xy", 2, Qt::Key_Q, none, "q", -1, {'q', 8}, false,
               {"KeyDown(81,0)", "hookDown(81)", "keyPress(113)", "hookPress(8)", "Change",
                "KeyUp(81,0)"},
               "x"},
        KeyRow{"HostCancelsCharacter", "", 0, Qt::Key_A, none, "a", -1, {'a', 0}, false,
               {"KeyDown(65,0)", "hookDown(65)", "keyPress(97)", "KeyUp(65,0)"}, ""},
        KeyRow{"ControlConsumesCharacter", "", 0, Qt::Key_NumberSign, none, "#", -1, keep, false,
               {"KeyDown(51,0)", "hookDown(51)", "keyPress(35)", "hookPress(35)", "KeyUp(51,0)"},
               ""},
        KeyRow{"DeletePassesOn", "xy", 0, Qt::Key_Delete, none, "", -1, keep, false,
               {"KeyDown(46,0)", "hookDown(46)", "Change", "KeyUp(46,0)"}, "y"},
        KeyRow{"HostZeroesDelete", "xy", 0, Qt::Key_Delete, none, "", 46, keep, false,
               {"KeyDown(46,0)", "KeyUp(46,0)"}, "xy"},
        KeyRow{"ControlConsumesDelete", "xy", 0, Qt::Key_Delete, none, "", -1, keep, true,
               {"KeyDown(46,0)", "hookDown(46)", "KeyUp(46,0)"}, "xy"},
        KeyRow{"ZeroedKeyCodeStillTypes", "", 0, Qt::Key_A, none, "a", 65, keep, false,
               {"KeyDown(65,0)", "keyPress(97)", "hookPress(97)", "Change", "KeyUp(65,0)"}, "a"},
        KeyRow{"EnterWithoutEnterAsTab", "", 0, Qt::Key_Return, none, "\r", -1, keep, false,
               {"KeyDown(13,0)", "hookDown(13)", "keyPress(13)", "hookPress(13)", "KeyUp(13,0)"},
               ""},
        KeyRow{"TabIsNavigationOnly", "", 0, Qt::Key_Tab, none, "\t", -1, keep, false, {"exit"}, ""}),
    [](const auto &info) { return std::string(info.param.name); });

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

TEST_F(FrameTest, TextColourFollowsEnabled)
{
    const QColor red(255, 0, 0), blue(0, 0, 255);
    struct {
        const char *name;
        bool enabled;
        OleColor fore, disabled;
        QColor expected;
    } rows[] = {
        {"enabled shows ForeColor", true, OleColor::fromRgb(0, 0, 255), OleColor::fromRgb(255, 0, 0), blue},
        {"disabled shows DisabledColor", false, OleColor::fromRgb(0, 0, 255), OleColor::fromRgb(255, 0, 0), red},
        {"enabled again restores ForeColor", true, OleColor::fromRgb(0, 0, 255), OleColor::fromRgb(255, 0, 0), blue},
        {"system text colour from the palette", true, OleColor::WindowText, OleColor::fromRgb(255, 0, 0),
         box->palette().color(QPalette::Text)},
    };
    for (const auto &row : rows) {
        box->setForeColor(row.fore);
        box->setDisabledColor(row.disabled);
        box->setEnabled(row.enabled);
        EXPECT_EQ(box->Enabled(), row.enabled) << row.name;
        EXPECT_EQ(box->Text1()->palette().color(QPalette::Text), row.expected) << row.name;
    }
    // The same rule when a host goes through QWidget's own setter.
    static_cast<QWidget *>(box)->setEnabled(false);
    EXPECT_EQ(box->Text1()->palette().color(QPalette::Text), red);
    EXPECT_FALSE(box->Check1()->isEnabled());
}

TEST_F(FrameTest, BackColourPaintsTextBoxAndFrame)
{
    box->setBackColor(OleColor::fromRgb(0, 128, 0));
    EXPECT_EQ(box->Text1()->palette().color(QPalette::Base), QColor(0, 128, 0));
    // The strip between the border and the text box.
    const QPoint strip = box->contentsRect().topLeft();
    EXPECT_EQ(box->grab().toImage().pixelColor(strip), QColor(0, 128, 0));
    EXPECT_EQ(box->BackColor(), OleColor::fromRgb(0, 128, 0));
}

TEST_F(FrameTest, BorderStyleShapesTheFrame)
{
    struct {
        twBorderStyleConstants style;
        QFrame::Shape shape;
        QFrame::Shadow shadow;
        int frameWidth;
    } rows[] = {
        {twNone, QFrame::NoFrame, QFrame::Plain, 0},
        {twFixedSingle, QFrame::Box, QFrame::Plain, 1},
        {twFixed3D, QFrame::Panel, QFrame::Sunken, 2},
    };
    for (const auto &row : rows) {
        box->setBorderStyle(row.style);
        EXPECT_EQ(box->frameShape(), row.shape) << row.style;
        EXPECT_EQ(box->frameShadow(), row.shadow) << row.style;
        EXPECT_EQ(box->frameWidth(), row.frameWidth) << row.style;
    }
}

// --- Refusals and dirty names -------------------------------------------------------------

TEST_F(FrameTest, BadValuesAreRefusedAndChangeNothing)
{
    struct {
        const char *name;
        std::function<void()> set;
        int number;
    } rows[] = {
        {"BorderStyle 3", [&] { box->setBorderStyle(twBorderStyleConstants(3)); }, 380},
        {"Alignment -1", [&] { box->setAlignment(twAlignmentConstants(-1)); }, 380},
        {"MousePointer 16", [&] { box->setMousePointer(16); }, 380},
        {"OLEDragMode 2", [&] { box->setOLEDragMode(2); }, 380},
        {"OLEDropMode 3", [&] { box->setOLEDropMode(3); }, 380},
        {"SelStart -1", [&] { box->setSelStart(-1); }, 380},
        {"SelLength -1", [&] { box->setSelLength(-1); }, 380},
        {"SelText at run time", [&] { box->setSelText("x"); }, 382},
        {"SelText at design time", [&] { box->setUserMode(false); box->setSelText("x"); }, 387},
    };
    for (const auto &row : rows) {
        box->clearDirty();
        try {
            row.set();
            ADD_FAILURE() << row.name << ": no error";
        } catch (const Error &e) {
            EXPECT_EQ(e.number(), row.number) << row.name;
        }
        EXPECT_TRUE(box->dirtyProperties().isEmpty()) << row.name;
    }
    EXPECT_EQ(box->BorderStyle(), twFixed3D);
    EXPECT_EQ(box->Alignment(), twRightJustify);
    EXPECT_EQ(box->MousePointer(), 0);
}

TEST_F(FrameTest, EveryPropertySetByNameMarksItsOwnName)
{
    box->setTextQuietly("hello");
    struct {
        const char *property;
        QVariant value;
    } rows[] = {
        {"BackColor", QVariant::fromValue(OleColor(0xFF))},
        {"ForeColor", QVariant::fromValue(OleColor(0xFF00))},
        {"DisabledColor", QVariant::fromValue(OleColor(0xFF0000))},
        {"Enabled", false},
        {"Font", QFont("DejaVu Sans", 14)},
        {"BorderStyle", QVariant::fromValue(twFixedSingle)},
        {"Alignment", QVariant::fromValue(twCenter)},
        {"Locked", true},
        {"SelectTextOnFocus", false},
        {"NullIfEmpty", true},
        {"EnterAsTab", true},
        {"ToolTip", "tip"},
        {"CheckBox", true},
        {"Checked", false},
        {"MousePointer", 11},
        {"OLEDragMode", 1},
        {"OLEDropMode", 2},
        {"SelStart", 1},
        {"SelLength", 3},
    };
    for (const auto &row : rows) {
        box->clearDirty();
        QSignalSpy spy(box, &ControlFrame::PropertyChanged);
        EXPECT_TRUE(box->setProperty(row.property, row.value)) << row.property;
        EXPECT_TRUE(box->isDirty(row.property)) << row.property;
        ASSERT_GE(spy.count(), 1) << row.property;
        EXPECT_EQ(spy.last().at(0).toString(), row.property);
        EXPECT_EQ(box->property(row.property), row.value) << row.property;
    }
    EXPECT_EQ(box->SelText(), "ell");
}

// --- Check box ----------------------------------------------------------------------------

TEST_F(FrameTest, CheckBoxShowsTextWhileTicked)
{
    const auto click = [this] { QTest::mouseClick(box->Check1(), Qt::LeftButton); };
    struct {
        const char *name;
        bool checkBox, checkedBefore;
        std::function<void()> act;
        bool textVisible;
        QWidget *focus; // null: Text1
    } rows[] = {
        {"ticked by mouse: focus into the text", true, false, click, true, nullptr},
        {"ticked from code: focus stays", true, false, [this] { box->setChecked(true); }, true, next},
        {"unticked by mouse", true, true, click, false, box->Check1()},
        {"no check box: text whatever Checked", false, true, [this] { box->setChecked(false); }, true, next},
    };
    for (const auto &row : rows) {
        box->setCheckBox(row.checkBox);
        box->setChecked(row.checkedBefore);
        showAndFocus(next);
        takeLog();
        row.act();
        QCoreApplication::processEvents();
        EXPECT_EQ(box->Checked(), !row.checkedBefore) << row.name;
        EXPECT_EQ(box->Check1()->isVisible(), row.checkBox) << row.name;
        EXPECT_EQ(box->Text1()->isVisible(), row.textVisible) << row.name;
        EXPECT_EQ(QApplication::focusWidget(), row.focus ? row.focus : box->Text1()) << row.name;
        const Log seen = takeLog();
        EXPECT_EQ(std::count(seen.begin(), seen.end(), "Change"), 1) << row.name;
    }
}

// --- Focus and text change ----------------------------------------------------------------

TEST_F(FrameTest, EnteringSelectsAllOnlyWithSelectTextOnFocus)
{
    struct {
        const char *name;
        bool selectTextOnFocus;
        Qt::FocusReason reason;
        int selStart, selLength;
    } rows[] = {
        {"on, from code", true, Qt::OtherFocusReason, 0, 5},
        {"on, by Tab", true, Qt::TabFocusReason, 0, 5},
        {"off, from code", false, Qt::OtherFocusReason, 2, 0},
        {"off, by Tab: the caret stays", false, Qt::TabFocusReason, 2, 0},
        {"off, by Shift+Tab", false, Qt::BacktabFocusReason, 2, 0},
    };
    box->setTextQuietly("hello");
    for (const auto &row : rows) {
        box->setSelectTextOnFocus(row.selectTextOnFocus);
        showAndFocus(next);
        box->Text1()->setCursorPosition(2);
        box->Text1()->setFocus(row.reason);
        EXPECT_TRUE(box->HasFocus()) << row.name;
        EXPECT_EQ(box->SelStart(), row.selStart) << row.name;
        EXPECT_EQ(box->SelLength(), row.selLength) << row.name;
    }
}

TEST_F(FrameTest, MovingBetweenInnerWidgetsIsNotLeaving)
{
    box->setCheckBox(true);
    showAndFocus(box->Text1());
    box->Check1()->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(box->CheckHasFocus());
    box->Text1()->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(box->CheckHasFocus());
    next->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(box->HasFocus());
    EXPECT_EQ(takeLog(), (Log{"enter", "exit"}));
}

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

TEST(FrameLayout, CheckBoxTopRoundsHalvesToEven)
{
    struct {
        int text, check, top;
    } tops[] = {{315, 195, 60}, {180, 195, 0}, {255, 195, 30},
                // exact halves go to the even pixel: 0.5 -> 0, 1.5 -> 2, 2.5 -> 2
                {209, 195, 0}, {239, 195, 30}, {269, 195, 30}};
    for (const auto &t : tops)
        EXPECT_EQ(Twips::checkBoxTop(t.text, t.check), t.top) << t.text;
}

TEST_F(FrameTest, NewFrameSizeAndTextBoxPlacement)
{
    EXPECT_EQ(box->size(), QSize(110, 21));
    window->show();
    struct {
        twBorderStyleConstants style;
        bool checkBox;
        QRect text; // in the frame's coordinates
    } rows[] = {
        // 3-D: inner 106 x 17 from (2,2); width (1590 - 80 - 15) / 15 rounds to 100.
        {twFixed3D, false, QRect(3, 3, 100, 12)},
        // Single: inner 108 x 19; the text box is the inner width less 60 twips.
        {twFixedSingle, false, QRect(2, 2, 104, 16)},
        {twNone, false, QRect(1, 1, 108, 20)},
        {twFixedSingle, true, QRect(18, 2, 88, 16)},
    };
    for (const auto &row : rows) {
        box->setBorderStyle(row.style);
        box->setCheckBox(row.checkBox);
        EXPECT_EQ(box->Text1()->geometry(), row.text) << row.style << " " << row.checkBox;
    }
    box->resize(5, 5); // too small: sizes stop at zero
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

TEST_F(FrameTest, DefaultSizeTextKeepsCapitalsAndDescenders)
{
    // What the same text needs in a box with room to spare, against what the default-size
    // text box shows: nothing may be cut that its height could have shown.
    const QString sample = QStringLiteral("HMgjpqy");
    window->show();
    for (int points : {8, 9, 10, 12}) {
        QFont font = box->Font();
        font.setPointSize(points);
        box->setFont(font);
        box->setTextQuietly(sample);
        QLineEdit roomy;
        roomy.setFrame(false);
        roomy.setFont(font);
        roomy.setText(sample);
        roomy.resize(200, 60);
        const int needed = inkRows(&roomy);
        ASSERT_GT(needed, 0) << points;
        EXPECT_EQ(inkRows(box->Text1()), qMin(needed, box->Text1()->height())) << points << " pt";
    }
    box->resize(110, 200); // tall enough again: the plain line, no margins
    EXPECT_EQ(box->Text1()->textMargins(), QMargins());
}

// --- Persistence --------------------------------------------------------------------------

TEST_F(FrameTest, CommonKeysRoundTripAndDefaultsAreNotStored)
{
    PropertyBag bag;
    box->clearDirty();
    box->writeAll(bag);
    EXPECT_TRUE(bag.keys().isEmpty()) << bag.keys().join(",").toStdString();

    box->setBackColor(OleColor::fromRgb(1, 2, 3));
    box->setBorderStyle(twNone);
    box->setAlignment(twCenter);
    box->setCheckBox(true);
    box->setChecked(false);
    box->setToolTip("tip");
    box->setMousePointer(99);
    box->setEnabled(false);
    box->setEnterAsTab(true);
    box->writeAll(bag);

    Log otherLog;
    TestBox other(window.get(), &otherLog);
    other.readAll(bag);
    EXPECT_EQ(other.BackColor(), OleColor::fromRgb(1, 2, 3));
    EXPECT_EQ(other.BorderStyle(), twNone);
    EXPECT_EQ(other.Alignment(), twCenter);
    EXPECT_TRUE(other.CheckBox());
    EXPECT_FALSE(other.Checked());
    EXPECT_TRUE(other.Text1()->isHidden());
    EXPECT_EQ(other.ToolTip(), "tip");
    EXPECT_EQ(other.MousePointer(), 99);
    EXPECT_FALSE(other.Enabled());
    EXPECT_FALSE(other.Check1()->isEnabled());
    EXPECT_TRUE(other.EnterAsTab());
    EXPECT_TRUE(other.dirtyProperties().isEmpty()) << "loading marks nothing dirty";
}

TEST_F(FrameTest, BadBagValueIsRefusedAndChangesNothing)
{
    for (const char *key : {"BorderStyle", "Alignment", "MousePointer", "Enabled"}) {
        PropertyBag bag;
        bag.WriteProperty("BackColor", qint32(0xFF), qint32(0));
        bag.WriteProperty(key, QString("left"), qint16(1));
        EXPECT_EQ(TestSupport::errorOf([&] { box->readAll(bag); }), 380) << key;
        EXPECT_EQ(box->BackColor(), OleColor::WindowBackground) << key;
    }
    EXPECT_EQ(box->BorderStyle(), twFixed3D);
}

} // namespace
