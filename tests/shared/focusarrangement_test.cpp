// The four controls beside Qt's own widgets: a form of buddy labels and a dialog with a default
// button (item views and data mappers have suites of their own). Keys go to the focus widget, as
// a user's would.
#include <tarnwell/date.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "common/testsupport.h"

#include <QDialog>
#include <QFormLayout>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <functional>
#include <string>
#include <vector>

using namespace Tarnwell;
using TestSupport::rowName;

namespace {

enum class Kind { Mask, Number, Date, Time };

ControlFrame *make(Kind kind, QWidget *parent)
{
    switch (kind) {
    case Kind::Mask: return new MaskBox(parent);
    case Kind::Number: return new NumberBox(parent);
    case Kind::Date: return new DateBox(parent);
    case Kind::Time: return new TimeBox(parent);
    }
    return nullptr;
}

const char *kindName(Kind kind)
{
    switch (kind) {
    case Kind::Mask: return "MaskBox";
    case Kind::Number: return "NumberBox";
    case Kind::Date: return "DateBox";
    case Kind::Time: return "TimeBox";
    }
    return "";
}

// The line edit that shows a control's text (the inner MaskBox's, for a date or a time).
QLineEdit *textOf(const ControlFrame *control)
{
    return control->findChild<QLineEdit *>(QStringLiteral("Text1"));
}

void key(Qt::Key k, Qt::KeyboardModifiers modifiers = {})
{
    QTest::keyClick(QApplication::focusWidget(), k, modifiers);
    QApplication::processEvents(); // replayed keys, queued commits
}

// --- A form of buddy labels ---------------------------------------------------------------

class FocusForm : public WidgetFixture
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        auto *layout = new QFormLayout(window.get());
        start = new QLineEdit(window.get());
        layout->addRow(QStringLiteral("&Start"), start);
        for (const auto &[kind, label] : {std::pair{Kind::Mask, "&Phone"}, {Kind::Number, "&Amount"},
                                          {Kind::Date, "&Ordered"}, {Kind::Time, "&Booked"}}) {
            controls.push_back(make(kind, window.get()));
            auto *buddy = new QLabel(QString::fromLatin1(label), window.get());
            buddy->setBuddy(controls.back());
            layout->addRow(buddy, controls.back());
        }
        end = new QLineEdit(window.get());
        layout->addRow(QStringLiteral("&End"), end);
        window->resize(300, 260);
        showAndFocus(start);
    }
    // The focus, by its role in the form.
    QString focusName() const
    {
        const QWidget *focus = QApplication::focusWidget();
        if (focus == start || focus == end)
            return focus == start ? "start" : "end";
        for (size_t i = 0; i < controls.size(); ++i) {
            if (focus == controls[i])
                return kindName(Kind(i));
        }
        return focus ? QString("other ") + focus->metaObject()->className() : "none";
    }

    QLineEdit *start = nullptr, *end = nullptr;
    std::vector<ControlFrame *> controls;
};

// The control holds the focus, its text box shows it (caret and selection follow hasFocus()),
// and the control knows it has been entered.
void expectFocusedText(const ControlFrame *control)
{
    EXPECT_EQ(QApplication::focusWidget(), control);
    EXPECT_TRUE(control->controlHasFocus());
    EXPECT_TRUE(textOf(control)->hasFocus());
}

struct FieldRow { const char *name; Kind kind; Qt::Key mnemonic; };
enum class Way { SetFocus, Click, Mnemonic };
struct WayRow { const char *name; Way way; };
class FormFields : public FocusForm, public ::testing::WithParamInterface<std::tuple<FieldRow, WayRow>> {};

// However the control is entered, its text shows the focus; an input method then asks the
// control and hears of its text box: the text around the caret, and the caret where it shows.
TEST_P(FormFields, EnteredAnyWayTheTextHasTheCaretAndAnswersTheInputMethod)
{
    const auto &[field, way] = GetParam();
    ControlFrame *control = controls[size_t(field.kind)];
    QSignalSpy keyDowns(control, &ControlFrame::KeyDown);
    switch (way.way) {
    case Way::SetFocus: control->setFocus(); break;
    case Way::Click: QTest::mouseClick(textOf(control), Qt::LeftButton, {}, QPoint(3, 3)); break;
    case Way::Mnemonic: key(field.mnemonic, Qt::AltModifier); break;
    }
    expectFocusedText(control);
    EXPECT_EQ(keyDowns.count(), 0) << "a mnemonic is a shortcut, not a key of the control";

    key(Qt::Key_1);
    const QLineEdit *text = textOf(control);
    EXPECT_TRUE(control->testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_EQ(control->inputMethodQuery(Qt::ImSurroundingText).toString(), text->text());
    EXPECT_EQ(control->inputMethodQuery(Qt::ImCursorPosition).toInt(), text->cursorPosition());
    const QRect caret = control->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QRect textArea(text->mapTo(control, QPoint(0, 0)), text->size());
    EXPECT_TRUE(textArea.contains(caret.center())) << caret.x() << ',' << caret.y();
}

INSTANTIATE_TEST_SUITE_P(Form, FormFields, ::testing::Combine(
    ::testing::Values(FieldRow{"Phone", Kind::Mask, Qt::Key_P}, FieldRow{"Amount", Kind::Number, Qt::Key_A},
                      FieldRow{"Ordered", Kind::Date, Qt::Key_O}, FieldRow{"Booked", Kind::Time, Qt::Key_B}),
    ::testing::Values(WayRow{"BySetFocus", Way::SetFocus}, WayRow{"ByClick", Way::Click},
                      WayRow{"ByAltLetter", Way::Mnemonic})),
    [](const auto &info) { return std::string(std::get<0>(info.param).name) + std::get<1>(info.param).name; });

TEST_F(FocusForm, TabAndShiftTabPassEachControlOnce)
{
    QStringList order;
    for (int i = 0; i < 5; ++i) {
        key(Qt::Key_Tab);
        order << focusName();
    }
    for (int i = 0; i < 5; ++i) {
        key(Qt::Key_Backtab, Qt::ShiftModifier);
        order << focusName();
    }
    EXPECT_EQ(order.join(u' '), "MaskBox NumberBox DateBox TimeBox end TimeBox DateBox NumberBox MaskBox start");
}

// With its check box shown, a control is still one block of the tab chain: its text, then the
// check box; while the box is unticked the text is hidden and the check box stands for it.
struct CheckTabRow { const char *name; Kind kind; bool ticked; const char *order; };
class CheckBoxTabbing : public FocusForm, public ::testing::WithParamInterface<CheckTabRow> {};

TEST_P(CheckBoxTabbing, TextThenCheckBox)
{
    const CheckTabRow &row = GetParam();
    for (ControlFrame *control : controls)
        control->setVisible(control == controls[size_t(row.kind)]);
    ControlFrame *control = controls[size_t(row.kind)];
    control->setCheckBox(true);
    if (row.ticked && row.kind == Kind::Date) // an empty date box shows itself unticked on leaving
        static_cast<DateBox *>(control)->setValue(QVariant::fromValue(Date::fromYmd(2024, 3, 7)));
    control->setChecked(row.ticked);
    QApplication::processEvents();
    QStringList order;
    for (const Qt::Key k : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Backtab}) {
        key(k, k == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
        const QWidget *focus = QApplication::focusWidget();
        order << (focus && focus->objectName() == "Check1" ? QString("Check1") : focusName());
        if (order.back() == "end" || order.back() == "start")
            continue;
        EXPECT_TRUE(control->controlHasFocus()) << order.back().toStdString();
    }
    EXPECT_EQ(order.join(u' '), row.order);
}

INSTANTIATE_TEST_SUITE_P(Form, CheckBoxTabbing, ::testing::Values(
    CheckTabRow{"MaskBoxTicked", Kind::Mask, true, "MaskBox Check1 end Check1 MaskBox start"},
    CheckTabRow{"MaskBoxUnticked", Kind::Mask, false, "Check1 end start end Check1 start"},
    CheckTabRow{"DateBoxTicked", Kind::Date, true, "DateBox Check1 end Check1 DateBox start"},
    CheckTabRow{"DateBoxUnticked", Kind::Date, false, "Check1 end start end Check1 start"}), rowName);

// Ticking the box by the keyboard shows the text and puts the focus into it.
TEST_F(FocusForm, TickingByKeyboardFocusesTheText)
{
    ControlFrame *date = controls[size_t(Kind::Date)];
    date->setCheckBox(true);
    date->setChecked(false);
    date->setFocus();
    ASSERT_EQ(QApplication::focusWidget()->objectName(), "Check1");
    EXPECT_TRUE(date->checkHasFocus());
    key(Qt::Key_Space);
    EXPECT_TRUE(date->Checked());
    expectFocusedText(date);
}

// --- A dialog with a default button -------------------------------------------------------

struct DialogRow {
    std::string name;
    Kind kind;
    Qt::Key key;
    bool enterAsTab;
    const char *mask; // MaskBox only
    bool hostCancelsEnter; // in keyPress, which keeps it from the dialog as from the box
    int clicked, rejected;
    bool focusMovedOn;
};
class DialogKeys : public ::testing::TestWithParam<DialogRow> {};

TEST_P(DialogKeys, EnterAndEscapeReachTheDialog)
{
    const DialogRow &row = GetParam();
    QDialog dialog;
    auto *layout = new QVBoxLayout(&dialog);
    ControlFrame *control = make(row.kind, &dialog);
    auto *next = new QLineEdit(&dialog);
    auto *ok = new QPushButton(QStringLiteral("OK"), &dialog);
    for (QWidget *w : {static_cast<QWidget *>(control), static_cast<QWidget *>(next), static_cast<QWidget *>(ok)})
        layout->addWidget(w);
    ok->setDefault(true);
    if (row.mask)
        static_cast<MaskBox *>(control)->setMask(QString::fromLatin1(row.mask));
    if (row.hostCancelsEnter)
        QObject::connect(control, &ControlFrame::keyPress, [](short &k) { k = k == 13 ? 0 : k; });
    control->setEnterAsTab(row.enterAsTab);
    QSignalSpy clicked(ok, &QPushButton::clicked);
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    control->setFocus();
    ASSERT_EQ(QApplication::focusWidget(), control);

    key(row.key);
    EXPECT_EQ(clicked.count(), row.clicked);
    EXPECT_EQ(rejected.count(), row.rejected);
    EXPECT_EQ(QApplication::focusWidget() == next, row.focusMovedOn);
}

std::vector<DialogRow> dialogRows()
{
    std::vector<DialogRow> rows{
        {"MaskedEnterPressesTheDefault", Kind::Mask, Qt::Key_Enter, false, "##/##", false, 1, 0, false},
        {"MaskedEscapeRejects", Kind::Mask, Qt::Key_Escape, false, "##/##", false, 0, 1, false},
        {"HostCancelledEnterStaysInTheControl", Kind::Mask, Qt::Key_Return, false, nullptr, true, 0, 0, false}};
    for (const Kind kind : {Kind::Mask, Kind::Number, Kind::Date, Kind::Time}) {
        const std::string name = kindName(kind);
        rows.push_back({name + "EnterPressesTheDefault", kind, Qt::Key_Return, false, nullptr, false, 1, 0, false});
        rows.push_back({name + "EscapeRejects", kind, Qt::Key_Escape, false, nullptr, false, 0, 1, false});
        rows.push_back({name + "EnterAsTabTabs", kind, Qt::Key_Return, true, nullptr, false, 0, 0, true});
    }
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Dialog, DialogKeys, ::testing::ValuesIn(dialogRows()), rowName);

// --- Composed text holding control characters ----------------------------------------------

// A commit is text, not keys: a Tab in it moves no focus and types nothing, Enter presses no
// button; the rest is typed into the control that has the focus.
struct CommitRow { const char *name; Kind kind; const char *mask; QString commit, text; };
class ComposedControlCharacters : public FocusForm, public ::testing::WithParamInterface<CommitRow> {};

TEST_P(ComposedControlCharacters, AreDroppedAndTheFocusStays)
{
    const CommitRow &row = GetParam();
    ControlFrame *control = controls[size_t(row.kind)];
    if (row.mask)
        static_cast<MaskBox *>(control)->setMask(QString::fromLatin1(row.mask));
    control->setFocus();
    std::vector<short> keyPresses;
    QObject::connect(control, &ControlFrame::keyPress, [&](short &k) { keyPresses.push_back(k); });
    QInputMethodEvent commit;
    commit.setCommitString(row.commit);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &commit);
    QApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), control);
    EXPECT_EQ(textOf(control)->text(), row.text);
    for (const short k : keyPresses)
        EXPECT_GE(k, 32) << "a control character was raised as a key";
}

INSTANTIATE_TEST_SUITE_P(Form, ComposedControlCharacters, ::testing::Values(
    CommitRow{"FreeTextTab", Kind::Mask, nullptr, "07\t03", "0703"},
    CommitRow{"MaskedTab", Kind::Mask, "##:##", "07\t03", "07:03"},
    CommitRow{"FreeTextEnterAndBackspace", Kind::Mask, nullptr, "a\r\nb\bc", "abc"},
    CommitRow{"DateTabs", Kind::Date, nullptr, "07\t03\t2024", "07/03/2024"}), rowName);

} // namespace
