// The four controls beside Qt's own widgets: a form of buddy labels, a dialog with a default
// button, an item view editing through a delegate and a data mapper. Keys go to the focus
// widget, as a user's would.
#include <tarnwell/date.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "common/testsupport.h"

#include <QDataWidgetMapper>
#include <QDialog>
#include <QFormLayout>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <functional>

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

struct FieldRow { const char *name; Kind kind; Qt::Key mnemonic; };
class FormFields : public FocusForm, public ::testing::WithParamInterface<FieldRow> {};

const auto fields = ::testing::Values(FieldRow{"Phone", Kind::Mask, Qt::Key_P}, FieldRow{"Amount", Kind::Number, Qt::Key_A},
                                      FieldRow{"Ordered", Kind::Date, Qt::Key_O}, FieldRow{"Booked", Kind::Time, Qt::Key_B});

// The control holds the focus, its text box shows it (caret and selection follow hasFocus()),
// and the control knows it has been entered.
void expectFocusedText(const ControlFrame *control)
{
    EXPECT_EQ(QApplication::focusWidget(), control);
    EXPECT_TRUE(control->controlHasFocus());
    EXPECT_TRUE(textOf(control)->hasFocus());
}

TEST_P(FormFields, SetFocusPutsTheCaretInTheText)
{
    ControlFrame *control = controls[size_t(GetParam().kind)];
    control->setFocus();
    expectFocusedText(control);
}

TEST_P(FormFields, ClickingTheTextFocusesTheControl)
{
    ControlFrame *control = controls[size_t(GetParam().kind)];
    QTest::mouseClick(textOf(control), Qt::LeftButton, {}, QPoint(3, 3));
    expectFocusedText(control);
}

TEST_P(FormFields, AltLetterOfTheBuddyLabel)
{
    ControlFrame *control = controls[size_t(GetParam().kind)];
    QSignalSpy keyDowns(control, &ControlFrame::KeyDown);
    key(GetParam().mnemonic, Qt::AltModifier);
    expectFocusedText(control);
    EXPECT_EQ(keyDowns.count(), 0) << "the mnemonic was a shortcut, not a key of the control";
}

// An input method asks the control, which holds the focus, and hears of its text box: the text
// around the caret, and the caret where the text box shows it.
TEST_P(FormFields, InputMethodQueriesAnswerForTheText)
{
    ControlFrame *control = controls[size_t(GetParam().kind)];
    control->setFocus();
    key(Qt::Key_1);
    const QLineEdit *text = textOf(control);
    EXPECT_TRUE(control->testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_EQ(control->inputMethodQuery(Qt::ImSurroundingText).toString(), text->text());
    EXPECT_EQ(control->inputMethodQuery(Qt::ImCursorPosition).toInt(), text->cursorPosition());
    const QRect caret = control->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QRect textArea(text->mapTo(control, QPoint(0, 0)), text->size());
    EXPECT_TRUE(textArea.contains(caret.center())) << caret.x() << ',' << caret.y();
}

INSTANTIATE_TEST_SUITE_P(Form, FormFields, fields, rowName);

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
    const char *name;
    Kind kind;
    Qt::Key key;
    bool enterAsTab;
    const char *mask; // MaskBox only
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

INSTANTIATE_TEST_SUITE_P(Dialog, DialogKeys, ::testing::Values(
    DialogRow{"MaskBoxEnterPressesTheDefault", Kind::Mask, Qt::Key_Return, false, nullptr, 1, 0, false},
    DialogRow{"MaskedEnterPressesTheDefault", Kind::Mask, Qt::Key_Enter, false, "##/##", 1, 0, false},
    DialogRow{"MaskBoxEscapeRejects", Kind::Mask, Qt::Key_Escape, false, nullptr, 0, 1, false},
    DialogRow{"MaskedEscapeRejects", Kind::Mask, Qt::Key_Escape, false, "##/##", 0, 1, false},
    DialogRow{"MaskBoxEnterAsTabTabs", Kind::Mask, Qt::Key_Return, true, nullptr, 0, 0, true},
    DialogRow{"NumberBoxEnterPressesTheDefault", Kind::Number, Qt::Key_Return, false, nullptr, 1, 0, false},
    DialogRow{"NumberBoxEscapeRejects", Kind::Number, Qt::Key_Escape, false, nullptr, 0, 1, false},
    DialogRow{"NumberBoxEnterAsTabTabs", Kind::Number, Qt::Key_Return, true, nullptr, 0, 0, true},
    DialogRow{"DateBoxEnterPressesTheDefault", Kind::Date, Qt::Key_Return, false, nullptr, 1, 0, false},
    DialogRow{"DateBoxEscapeRejects", Kind::Date, Qt::Key_Escape, false, nullptr, 0, 1, false},
    DialogRow{"DateBoxEnterAsTabTabs", Kind::Date, Qt::Key_Return, true, nullptr, 0, 0, true},
    DialogRow{"TimeBoxEnterPressesTheDefault", Kind::Time, Qt::Key_Return, false, nullptr, 1, 0, false},
    DialogRow{"TimeBoxEscapeRejects", Kind::Time, Qt::Key_Escape, false, nullptr, 0, 1, false},
    DialogRow{"TimeBoxEnterAsTabTabs", Kind::Time, Qt::Key_Return, true, nullptr, 0, 0, true}), rowName);

// A host that cancels Enter in keyPress keeps it from the dialog, as it keeps it from the box.
TEST(DialogKeysCancelled, HostCancelledEnterStaysInTheControl)
{
    QDialog dialog;
    auto *box = new MaskBox(&dialog);
    auto *ok = new QPushButton(QStringLiteral("OK"), &dialog);
    ok->move(0, 40);
    ok->setDefault(true);
    QObject::connect(box, &MaskBox::keyPress, [](short &k) { k = k == 13 ? 0 : k; });
    QSignalSpy clicked(ok, &QPushButton::clicked);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    box->setFocus();
    key(Qt::Key_Return);
    EXPECT_EQ(clicked.count(), 0);
}

// --- An item view editing through a delegate ----------------------------------------------

// Edits with one of the controls; the cells' data is left alone (only the signals count).
class ControlDelegate : public QStyledItemDelegate
{
public:
    explicit ControlDelegate(Kind kind) : m_kind(kind) {}
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return make(m_kind, parent);
    }
    void setEditorData(QWidget *, const QModelIndex &) const override {}
    void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override {}

private:
    Kind m_kind;
};

enum class Act { Enter, Tab, Escape, ClickAnotherCell };
struct ViewRow { const char *name; Kind kind; Act act; int commits; QAbstractItemDelegate::EndEditHint hint; };
class ViewEditing : public WidgetFixture, public ::testing::WithParamInterface<ViewRow> {};

TEST_P(ViewEditing, KeysAndClicksCommitAndClose)
{
    const ViewRow &row = GetParam();
    QStandardItemModel model(3, 3);
    ControlDelegate delegate(row.kind);
    auto *view = new QTableView(window.get());
    view->resize(300, 200);
    view->setModel(&model);
    view->setItemDelegate(&delegate);
    QSignalSpy commits(&delegate, &QAbstractItemDelegate::commitData);
    QSignalSpy closes(&delegate, &QAbstractItemDelegate::closeEditor);
    showAndFocus(view);
    view->setCurrentIndex(model.index(0, 0));
    view->edit(model.index(0, 0));
    QApplication::processEvents();
    auto *editor = qobject_cast<ControlFrame *>(QApplication::focusWidget());
    ASSERT_NE(editor, nullptr) << "the editor takes the focus itself";
    ASSERT_TRUE(editor->controlHasFocus());

    switch (row.act) {
    case Act::Enter: key(Qt::Key_Return); break;
    case Act::Tab: key(Qt::Key_Tab); break;
    case Act::Escape: key(Qt::Key_Escape); break;
    case Act::ClickAnotherCell:
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(model.index(2, 1)).center());
        QApplication::processEvents();
        break;
    }
    EXPECT_EQ(commits.count(), row.commits);
    ASSERT_EQ(closes.count(), 1);
    EXPECT_EQ(closes.front().at(1).value<QAbstractItemDelegate::EndEditHint>(), row.hint);
}

using H = QAbstractItemDelegate;
INSTANTIATE_TEST_SUITE_P(View, ViewEditing, ::testing::Values(
    ViewRow{"MaskBoxEnterCommits", Kind::Mask, Act::Enter, 1, H::SubmitModelCache},
    ViewRow{"MaskBoxTabCommitsAndMovesOn", Kind::Mask, Act::Tab, 1, H::EditNextItem},
    ViewRow{"MaskBoxEscapeReverts", Kind::Mask, Act::Escape, 0, H::RevertModelCache},
    ViewRow{"MaskBoxClickAwayCommits", Kind::Mask, Act::ClickAnotherCell, 1, H::NoHint},
    ViewRow{"NumberBoxEnterCommits", Kind::Number, Act::Enter, 1, H::SubmitModelCache},
    ViewRow{"NumberBoxTabCommitsAndMovesOn", Kind::Number, Act::Tab, 1, H::EditNextItem},
    ViewRow{"NumberBoxEscapeReverts", Kind::Number, Act::Escape, 0, H::RevertModelCache},
    ViewRow{"NumberBoxClickAwayCommits", Kind::Number, Act::ClickAnotherCell, 1, H::NoHint},
    ViewRow{"DateBoxEnterCommits", Kind::Date, Act::Enter, 1, H::SubmitModelCache},
    ViewRow{"DateBoxTabCommitsAndMovesOn", Kind::Date, Act::Tab, 1, H::EditNextItem},
    ViewRow{"DateBoxEscapeReverts", Kind::Date, Act::Escape, 0, H::RevertModelCache},
    ViewRow{"DateBoxClickAwayCommits", Kind::Date, Act::ClickAnotherCell, 1, H::NoHint},
    ViewRow{"TimeBoxEnterCommits", Kind::Time, Act::Enter, 1, H::SubmitModelCache},
    ViewRow{"TimeBoxTabCommitsAndMovesOn", Kind::Time, Act::Tab, 1, H::EditNextItem},
    ViewRow{"TimeBoxEscapeReverts", Kind::Time, Act::Escape, 0, H::RevertModelCache},
    ViewRow{"TimeBoxClickAwayCommits", Kind::Time, Act::ClickAnotherCell, 1, H::NoHint}), rowName);

// A data mapper submitting on its own hears of the edit when Tab leaves the control.
TEST_F(FocusForm, DataMapperSubmitsOnTab)
{
    QStandardItemModel model(1, 1);
    QDataWidgetMapper mapper;
    mapper.setModel(&model);
    mapper.setSubmitPolicy(QDataWidgetMapper::AutoSubmit);
    mapper.addMapping(controls.front(), 0);
    mapper.toFirst();
    QSignalSpy commits(mapper.itemDelegate(), &QAbstractItemDelegate::commitData);
    controls.front()->setFocus();
    key(Qt::Key_5);
    key(Qt::Key_Tab);
    // Tab commits, and so does the leaving that follows, as with a line edit.
    EXPECT_GE(commits.count(), 1);
    EXPECT_EQ(focusName(), "NumberBox");
}

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
