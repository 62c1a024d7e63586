// What a screen reader meets on a form of the four controls: roles, names, values, text, states,
// the parts that act and what their actions do, and the focus events it hears.
#include <tarnwell/clock.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>
#include <tarnwell/variant.h>

#include "common/testsupport.h"
#include "shared/datepicker.h"

#include <QAccessible>
#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

#include <functional>

using namespace Tarnwell;
using TestSupport::rowName;

namespace {

enum Which { Phone, Price, OrderDate, Shift };

// An order form: a notes line first, then each control behind its label, as a host lays it out.
class Form : public PinnedClockFixture
{
protected:
    void SetUp() override
    {
        PinnedClockFixture::SetUp();
        window->resize(360, 220);
        auto *layout = new QFormLayout(window.get());
        notes = new QLineEdit(window.get());
        layout->addRow(QStringLiteral("&Notes:"), notes);
        phone = new MaskBox(window.get());
        phone->setMask(QStringLiteral("(###) ###-####"));
        price = new NumberBox(window.get());
        price->setUpDown(true);
        price->setMinimum(0);
        price->setMaximum(100);
        price->setIncrement(2.5);
        price->setValue(12.5);
        orderDate = new DateBox(window.get());
        orderDate->setMinimum(Date::fromYmd(2024, 1, 1));
        orderDate->setMaximum(Date::fromYmd(2024, 12, 31));
        orderDate->setValue(QVariant::fromValue(Date::fromYmd(2024, 3, 15)));
        shift = new TimeBox(window.get());
        shift->setUpDown(true);
        shift->setValue(QStringLiteral("09:30"));
        const char *labels[] = {"&Phone:", "P&rice:", "&Order date:", "&Shift start:"};
        for (Which w : {Phone, Price, OrderDate, Shift}) {
            auto *label = new QLabel(QString::fromLatin1(labels[w]), window.get());
            label->setBuddy(control(w));
            layout->addRow(label, control(w));
        }
        window->show();
        (void)QTest::qWaitForWindowExposed(window.get());
    }

    ControlFrame *control(Which w) const
    {
        const std::array<ControlFrame *, 4> all{phone, price, orderDate, shift};
        return all[w];
    }
    static QAccessibleInterface *of(QObject *object) { return QAccessible::queryAccessibleInterface(object); }
    QAccessibleInterface *of(Which w) const { return of(control(w)); }
    // The text box the control's text is typed into.
    QLineEdit *text1(Which w) const { return control(w)->findChild<QLineEdit *>(QStringLiteral("Text1")); }
    // The control's children, each as "role name".
    QStringList children(Which w) const
    {
        QStringList out;
        QAccessibleInterface *iface = of(w);
        for (int i = 0; i < iface->childCount(); ++i) {
            QAccessibleInterface *child = iface->child(i);
            out << QString::number(child->role(), 16) + u' ' + child->text(QAccessible::Name);
            EXPECT_EQ(child->parent(), iface) << "child " << i;
            EXPECT_EQ(iface->indexOfChild(child), i);
        }
        return out;
    }
    QAccessibleInterface *childNamed(Which w, const QString &name) const
    {
        QAccessibleInterface *iface = of(w);
        for (int i = 0; i < iface->childCount(); ++i) {
            if (iface->child(i)->text(QAccessible::Name) == name)
                return iface->child(i);
        }
        ADD_FAILURE() << "no child " << name.toStdString();
        return nullptr;
    }
    QLineEdit *notes = nullptr;
    MaskBox *phone = nullptr;
    NumberBox *price = nullptr;
    DateBox *orderDate = nullptr;
    TimeBox *shift = nullptr;
};

template<typename Row>
class FormTable : public Form, public ::testing::WithParamInterface<Row> {};

// -------------------------------------------------------------------------------------------------
// Who each control is

struct IdentityRow {
    const char *name;
    Which which;
    QAccessible::Role role;
    const char *label;
    bool hasValue;
};
using Identity = FormTable<IdentityRow>;

TEST_P(Identity, HasItsQtPeersRoleAndItsBuddysName)
{
    const IdentityRow &row = GetParam();
    QAccessibleInterface *iface = of(row.which);
    ASSERT_TRUE(iface && iface->isValid());
    EXPECT_EQ(iface->role(), row.role);
    EXPECT_EQ(iface->text(QAccessible::Name), QString::fromLatin1(row.label));
    EXPECT_EQ(iface->valueInterface() != nullptr, row.hasValue);
    EXPECT_NE(iface->textInterface(), nullptr);
    EXPECT_NE(iface->editableTextInterface(), nullptr);
    EXPECT_EQ(iface->parent(), of(window.get()));
    EXPECT_EQ(iface->text(QAccessible::Value), control(row.which)->property("Text").toString());

    control(row.which)->setAccessibleName(QStringLiteral("Given"));
    EXPECT_EQ(iface->text(QAccessible::Name), QStringLiteral("Given")) << "accessibleName wins";
}

INSTANTIATE_TEST_SUITE_P(Controls, Identity, ::testing::Values(
    IdentityRow{"MaskBoxAsLineEdit", Phone, QAccessible::EditableText, "Phone:", false},
    IdentityRow{"NumberBoxAsSpinBox", Price, QAccessible::SpinBox, "Price:", true},
    IdentityRow{"DateBoxAsSpinBox", OrderDate, QAccessible::SpinBox, "Order date:", true},
    IdentityRow{"TimeBoxAsSpinBox", Shift, QAccessible::SpinBox, "Shift start:", true}), rowName);

struct DescriptionRow {
    const char *name;
    Which which;
    const char *toolTip, *description, *expected;
};
using Description = FormTable<DescriptionRow>;

TEST_P(Description, ComesFromAccessibleDescriptionElseToolTip)
{
    const DescriptionRow &row = GetParam();
    control(row.which)->setToolTip(QString::fromLatin1(row.toolTip));
    control(row.which)->setAccessibleDescription(QString::fromLatin1(row.description));
    EXPECT_EQ(of(row.which)->text(QAccessible::Description), QString::fromLatin1(row.expected));
}

INSTANTIATE_TEST_SUITE_P(Sources, Description, ::testing::Values(
    DescriptionRow{"ToolTipAlone", Phone, "Daytime number", "", "Daytime number"},
    DescriptionRow{"DescriptionOverToolTip", Price, "Each", "Price of one unit", "Price of one unit"},
    DescriptionRow{"InnerBoxToolTipIsTheControls", OrderDate, "When ordered", "", "When ordered"},
    DescriptionRow{"NeitherGivesNothing", Shift, "", "", ""}), rowName);

// -------------------------------------------------------------------------------------------------
// Values of the spin boxes

struct ValueRow {
    const char *name;
    Which which;
    QVariant current, minimum, maximum, step;
};
using ValueFigures = FormTable<ValueRow>;

TEST_P(ValueFigures, AreTheDocumentedFigures)
{
    const ValueRow &row = GetParam();
    QAccessibleValueInterface *value = of(row.which)->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue(), row.current);
    EXPECT_EQ(value->minimumValue(), row.minimum);
    EXPECT_EQ(value->maximumValue(), row.maximum);
    EXPECT_EQ(value->minimumStepSize(), row.step);
}

INSTANTIATE_TEST_SUITE_P(Controls, ValueFigures, ::testing::Values(
    ValueRow{"NumberAsNumbers", Price, 12.5, 0.0, 100.0, 2.5},
    ValueRow{"DateAsText", OrderDate, "3/15/2024", "1/1/2024", "12/31/2024", 1},
    ValueRow{"TimeAsText", Shift, "9:30:00 AM", "12:00:00 AM", "11:59:59 PM", 1}), rowName);

struct SetValueRow {
    const char *name;
    Which which;
    QVariant given;
    const char *valueAfter;
};
using SetValue = FormTable<SetValueRow>;

TEST_P(SetValue, GoesThroughTheValuePropertyAndNeverThrows)
{
    const SetValueRow &row = GetParam();
    of(row.which)->valueInterface()->setCurrentValue(row.given);
    EXPECT_EQ(Variant::toString(control(row.which)->property("Value")), QString::fromLatin1(row.valueAfter));
}

INSTANTIATE_TEST_SUITE_P(Values, SetValue, ::testing::Values(
    SetValueRow{"NumberTaken", Price, 42.0, "42"},
    SetValueRow{"NumberAboveMaximumRefused", Price, 1000.0, "12.5"},
    SetValueRow{"TextThatIsNoNumberRefused", Price, "lots", "12.5"},
    SetValueRow{"DateTaken", OrderDate, QVariant::fromValue(Date::fromYmd(2024, 7, 4)), "7/4/2024"},
    SetValueRow{"TextThatIsNoDateRefused", OrderDate, "soon", "3/15/2024"}),
    rowName);

// -------------------------------------------------------------------------------------------------
// Text, caret and selection, and edits that the control judges

TEST_F(Form, TextInterfaceReadsTheTypedText)
{
    QTest::mouseClick(text1(Phone), Qt::LeftButton, {}, QPoint(4, text1(Phone)->height() / 2));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("5551234"));
    QAccessibleTextInterface *text = of(Phone)->textInterface();
    EXPECT_EQ(text->text(0, text->characterCount()), phone->Text());
    EXPECT_EQ(text->cursorPosition(), phone->SelStart());
    EXPECT_FALSE(text->characterRect(1).isEmpty());

    text->setSelection(0, 1, 4);
    EXPECT_EQ(phone->SelStart(), 1);
    EXPECT_EQ(phone->SelLength(), 3);
    int start = -1, end = -1;
    text->selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(1, 4));
    EXPECT_EQ(text->selectionCount(), 1);
    text->removeSelection(0);
    EXPECT_EQ(text->selectionCount(), 0);
}

struct EditRow {
    const char *name;
    Which which;
    bool locked;
    std::function<void(QAccessibleEditableTextInterface *)> edit;
    const char *textAfter; // empty: unchanged
};
using Edit = FormTable<EditRow>;

TEST_P(Edit, ArrivesAsTextWithoutKeys)
{
    const EditRow &row = GetParam();
    control(row.which)->setLocked(row.locked);
    const QString before = control(row.which)->property("Text").toString();
    row.edit(of(row.which)->editableTextInterface());
    QApplication::processEvents(); // a box without the focus reshapes foreign text after it lands
    const QString expected = *row.textAfter ? QString::fromLatin1(row.textAfter) : before;
    EXPECT_EQ(control(row.which)->property("Text").toString(), expected);
}

INSTANTIATE_TEST_SUITE_P(Edits, Edit, ::testing::Values(
    EditRow{"DigitsIntoPlaceholders", Phone, false, [](auto *e) { e->replaceText(1, 4, QStringLiteral("555")); },
            "(555)    -    "},
    EditRow{"LockedTakesNothing", Phone, true, [](auto *e) { e->insertText(0, QStringLiteral("555")); }, ""},
    EditRow{"NumberReplaced", Price, false, [](auto *e) { e->replaceText(0, 5, QStringLiteral("7")); }, "7.00"},
    EditRow{"LockedNumberKept", Price, true, [](auto *e) { e->deleteText(0, 2); }, ""}), rowName);

// -------------------------------------------------------------------------------------------------
// States

struct StateRow {
    const char *name;
    Which which;
    std::function<void(Form *, ControlFrame *)> arrange;
    bool focused, readOnly, disabled;
};
using States = FormTable<StateRow>;

TEST_P(States, FollowTheControl)
{
    const StateRow &row = GetParam();
    row.arrange(this, control(row.which));
    QApplication::processEvents();
    const QAccessible::State state = of(row.which)->state();
    EXPECT_TRUE(state.focusable);
    EXPECT_EQ(bool(state.focused), row.focused);
    EXPECT_EQ(bool(state.readOnly), row.readOnly);
    EXPECT_EQ(bool(state.editable), !row.readOnly);
    EXPECT_EQ(bool(state.disabled), row.disabled);
}

void focusText(Form *, ControlFrame *c) { QTest::mouseClick(c->findChild<QLineEdit *>("Text1"), Qt::LeftButton); }

INSTANTIATE_TEST_SUITE_P(Controls, States, ::testing::Values(
    StateRow{"Idle", Phone, [](Form *, ControlFrame *) {}, false, false, false},
    StateRow{"FocusInText", Price, focusText, true, false, false},
    StateRow{"FocusInInnerBox", OrderDate, focusText, true, false, false},
    StateRow{"FocusOnCheckBox", Phone,
             [](Form *, ControlFrame *c) {
                 c->setCheckBox(true);
                 QTest::mouseClick(c->findChild<QCheckBox *>("Check1"), Qt::LeftButton, {}, QPoint(2, 2));
             }, true, false, false},
    StateRow{"Locked", Shift, [](Form *, ControlFrame *c) { c->setLocked(true); }, false, true, false},
    StateRow{"Disabled", Price, [](Form *, ControlFrame *c) { c->setEnabled(false); }, false, false, true},
    StateRow{"FormDisabled", Shift, [](Form *, ControlFrame *c) { c->parentWidget()->setEnabled(false); },
             false, false, true}), rowName);

// -------------------------------------------------------------------------------------------------
// Children: the visible parts that act, never the inner widgets

constexpr auto button = QAccessible::Button;
constexpr auto check = QAccessible::CheckBox;
constexpr auto dropDown = QAccessible::ButtonDropDown;
QString part(QAccessible::Role role, const char *name) { return QString::number(role, 16) + u' ' + QLatin1String(name); }

struct ChildrenRow {
    const char *name;
    Which which;
    std::function<void(ControlFrame *)> arrange;
    QStringList children;
};
using Children = FormTable<ChildrenRow>;

TEST_P(Children, AreTheVisiblePartsThatAct)
{
    const ChildrenRow &row = GetParam();
    row.arrange(control(row.which));
    QApplication::processEvents();
    EXPECT_EQ(children(row.which), row.children);
}

INSTANTIATE_TEST_SUITE_P(Parts, Children, ::testing::Values(
    ChildrenRow{"PlainMaskBoxHasNone", Phone, [](ControlFrame *) {}, {}},
    ChildrenRow{"CheckBoxNamedAfterControl", Phone, [](ControlFrame *c) { c->setCheckBox(true); },
                {part(check, "Phone:")}},
    ChildrenRow{"UpDownAsMoreAndLess", Price, [](ControlFrame *) {}, {part(button, "More"), part(button, "Less")}},
    ChildrenRow{"HiddenUpDownGone", Price, [](ControlFrame *c) { c->setProperty("UpDown", false); }, {}},
    ChildrenRow{"CalendarButton", OrderDate, [](ControlFrame *) {}, {part(dropDown, "Open calendar")}},
    ChildrenRow{"InnerBoxCheckBoxIsTheControls", OrderDate, [](ControlFrame *c) { c->setCheckBox(true); },
                {part(check, "Order date:"), part(dropDown, "Open calendar")}},
    ChildrenRow{"TimeUpDown", Shift, [](ControlFrame *c) { c->setCheckBox(true); },
                {part(check, "Shift start:"), part(button, "More"), part(button, "Less")}}), rowName);

TEST_F(Form, InnerWidgetsStandForTheirControl)
{
    for (Which w : {Phone, Price, OrderDate, Shift}) {
        QAccessibleInterface *inner = of(text1(w));
        ASSERT_NE(inner, nullptr);
        EXPECT_EQ(inner->role(), of(w)->role());
        EXPECT_EQ(inner->text(QAccessible::Name), of(w)->text(QAccessible::Name));
        EXPECT_EQ(inner->parent(), of(window.get())) << "in the control's place, not inside it";
        EXPECT_EQ(of(w)->indexOfChild(inner), -1);
    }
    QAccessibleInterface *innerBox = of(orderDate->findChild<MaskBox *>(QStringLiteral("mdtDate")));
    EXPECT_EQ(innerBox->role(), QAccessible::SpinBox);
    EXPECT_EQ(innerBox->text(QAccessible::Name), QStringLiteral("Order date:"));
    // Qt's own widgets keep Qt's interfaces.
    EXPECT_EQ(of(notes)->role(), QAccessible::EditableText);
    EXPECT_EQ(of(notes)->text(QAccessible::Name), QStringLiteral("Notes:"));
}

// -------------------------------------------------------------------------------------------------
// Actions really act

struct ActionRow {
    const char *name;
    Which which;
    const char *child; // "": the control's own action
    QString action;
    std::function<QString(ControlFrame *)> outcome;
    const char *expected;
};
using Actions = FormTable<ActionRow>;

QString valueOf(ControlFrame *c) { return Variant::toString(c->property("Value")); }
QString checkedOf(ControlFrame *c) { return QString::number(c->Checked()); }
QString calendarShownOf(ControlFrame *c) { return QString::number(c->findChild<DatePicker *>("fdt")->isPopupVisible()); }

INSTANTIATE_TEST_SUITE_P(Parts, Actions, ::testing::Values(
    ActionRow{"MoreStepsUp", Price, "More", QAccessibleActionInterface::pressAction(), valueOf, "15"},
    ActionRow{"LessStepsDown", Price, "Less", QAccessibleActionInterface::pressAction(), valueOf, "10"},
    ActionRow{"IncreaseOnSpinBox", Price, "", QAccessibleActionInterface::increaseAction(), valueOf, "15"},
    ActionRow{"DecreaseOnTime", Shift, "", QAccessibleActionInterface::decreaseAction(), valueOf, "8:30:00 AM"},
    ActionRow{"CheckBoxToggles", Phone, "Phone:", QAccessibleActionInterface::toggleAction(), checkedOf, "0"},
    ActionRow{"CalendarOpens", OrderDate, "Open calendar", QAccessibleActionInterface::pressAction(),
              calendarShownOf, "1"}), rowName);

TEST_P(Actions, DoWhatAClickDoes)
{
    const ActionRow &row = GetParam();
    phone->setCheckBox(true);
    QApplication::processEvents();
    QAccessibleInterface *target = *row.child ? childNamed(row.which, QString::fromLatin1(row.child)) : of(row.which);
    ASSERT_NE(target, nullptr);
    QAccessibleActionInterface *actions = target->actionInterface();
    ASSERT_NE(actions, nullptr);
    ASSERT_TRUE(actions->actionNames().contains(row.action)) << actions->actionNames().join(u',').toStdString();
    actions->doAction(row.action);
    QApplication::processEvents();
    EXPECT_EQ(row.outcome(control(row.which)), QString::fromLatin1(row.expected));
}

TEST_F(Form, NoStepActionsWhileLockedOrWithoutUpDown)
{
    const QString increase = QAccessibleActionInterface::increaseAction();
    EXPECT_TRUE(of(Price)->actionInterface()->actionNames().contains(increase));
    price->setLocked(true);
    EXPECT_FALSE(of(Price)->actionInterface()->actionNames().contains(increase));
    of(Price)->actionInterface()->doAction(increase);
    EXPECT_EQ(valueOf(price), QStringLiteral("12.5"));
    EXPECT_FALSE(of(OrderDate)->actionInterface()->actionNames().contains(increase));
    EXPECT_FALSE(of(Phone)->actionInterface()->actionNames().contains(increase));
}

TEST_F(Form, CalendarButtonClosesWhatItOpened)
{
    QAccessibleInterface *open = childNamed(OrderDate, QStringLiteral("Open calendar"));
    ASSERT_NE(open, nullptr);
    open->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(orderDate->findChild<DatePicker *>("fdt")->isPopupVisible());
    EXPECT_TRUE(open->state().expanded);
    open->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(orderDate->findChild<DatePicker *>("fdt")->isPopupVisible());
    EXPECT_TRUE(open->state().collapsed);
}

// -------------------------------------------------------------------------------------------------
// What the screen reader hears

struct FocusRow {
    const char *name;
    Which which;
    std::function<void(Form *, ControlFrame *)> focus;
    QAccessible::Role role;
    const char *label;
};
using Focus = FormTable<FocusRow>;

TEST_P(Focus, NamesTheControl)
{
    const FocusRow &row = GetParam();
    showAndFocus(notes);
    row.focus(this, control(row.which));
    QApplication::processEvents();
    // The event QWidget::setFocus raises for the widget that took the focus (this platform has no
    // screen reader to hand it to), resolved as the screen reader's bridge resolves it.
    QAccessibleEvent event(QApplication::focusWidget(), QAccessible::Focus);
    QAccessibleInterface *heard = event.accessibleInterface();
    ASSERT_NE(heard, nullptr);
    EXPECT_EQ(heard->role(), row.role);
    EXPECT_EQ(heard->text(QAccessible::Name), QString::fromLatin1(row.label));
    EXPECT_TRUE(heard->state().focused);
    // The control in its place on the form; its check box as its child.
    EXPECT_EQ(heard->parent(), row.role == QAccessible::CheckBox ? of(row.which) : of(window.get()));
    EXPECT_TRUE(of(row.which)->state().focused);
    EXPECT_EQ(of(window.get())->focusChild()->text(QAccessible::Name), QString::fromLatin1(row.label));
}

void tabFromNotes(Form *, ControlFrame *c)
{
    // Tab until the focus is inside the control, as a user would.
    for (int i = 0; i < 8 && !c->isAncestorOf(QApplication::focusWidget()); ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
}
// The arrangement where the frame itself holds the focus and passes keys on, as QAbstractSpinBox
// does.
void frameHoldsFocus(Form *, ControlFrame *c)
{
    c->setFocusProxy(nullptr);
    c->setFocusPolicy(Qt::StrongFocus);
    c->setFocus(Qt::TabFocusReason);
}

INSTANTIATE_TEST_SUITE_P(Ways, Focus, ::testing::Values(
    FocusRow{"TabIntoMaskBox", Phone, tabFromNotes, QAccessible::EditableText, "Phone:"},
    FocusRow{"TabIntoNumberBox", Price, tabFromNotes, QAccessible::SpinBox, "Price:"},
    FocusRow{"ClickIntoDateBox", OrderDate, focusText, QAccessible::SpinBox, "Order date:"},
    FocusRow{"ClickOnCheckBox", Phone,
             [](Form *, ControlFrame *c) {
                 c->setCheckBox(true);
                 QTest::mouseClick(c->findChild<QCheckBox *>("Check1"), Qt::LeftButton, {}, QPoint(2, 2));
             },
             QAccessible::CheckBox, "Phone:"},
    FocusRow{"FrameHoldingFocus", Shift, frameHoldsFocus, QAccessible::SpinBox, "Shift start:"}), rowName);

TEST_F(Form, ControlsGoWithTheirParts)
{
    for (Which w : {Price, OrderDate, Shift})
        ASSERT_GT(of(w)->childCount(), 0); // the parts exist
    delete price;
    delete orderDate;
    price = nullptr;
    orderDate = nullptr;
    QAccessibleInterface *form = of(window.get());
    for (int i = 0; i < form->childCount(); ++i)
        EXPECT_TRUE(form->child(i)->isValid());
    EXPECT_EQ(of(Shift)->childCount(), 2);
}

} // namespace
