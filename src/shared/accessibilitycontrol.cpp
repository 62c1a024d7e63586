#include "shared/accessibilitycontrol.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/variant.h>

#include "shared/accessibility.h"
#include "shared/accessibilityparts.h"

#include <QApplication>
#include <QFontMetrics>
#include <QKeySequence>
#include <QLineEdit>

#include <cmath>

namespace Tarnwell {

namespace {

bool hasProperty(const QObject *object, const char *name)
{
    return object->metaObject()->indexOfProperty(name) >= 0;
}

// A documented property of the control, read by name. A getter that fails gives nothing: the
// screen reader's call comes from Qt's event loop, which no error may reach.
QVariant read(const QObject *control, const char *name)
{
    try {
        return control->property(name);
    } catch (...) {
        return {};
    }
}

bool focusInside(const QWidget *control)
{
    const QWidget *focus = QApplication::focusWidget();
    return focus && (focus == control || control->isAncestorOf(focus));
}

// A control's value as a screen reader takes it: a number where it is one, the text of a date
// or a time (a day count means nothing to a listener), nothing for Empty or Null.
QVariant figure(const QVariant &value)
{
    try {
        switch (Variant::kind(value)) {
        case Variant::Empty:
        case Variant::Null:
            return {};
        case Variant::DateKind: {
            const Date date = value.value<Date>();
            if (std::floor(date.serial()) != 0.0)
                return Variant::toString(value);
            // A time of day alone, midnight included, is read as a time.
            const QLocale locale;
            QString format = locale.timeFormat(QLocale::ShortFormat);
            if (!format.contains(QLatin1String("ss")))
                format.replace(QLatin1String("mm"), QLatin1String("mm:ss"));
            return locale.toString(date.toQTime(), format);
        }
        default:
            return Variant::toDouble(value);
        }
    } catch (...) {
        return {};
    }
}

} // namespace

ControlAccessible::ControlAccessible(QWidget *widget, QWidget *control)
    : QAccessibleWidget(widget, QAccessible::EditableText), m_control(control)
{
    // The spin-box kind is the one with a range.
    m_spinBox = control && hasProperty(control, "Maximum");
    if (control && !standsIn() && m_spinBox) {
        m_watcher = std::make_unique<QObject>();
        QObject::connect(static_cast<ControlFrame *>(control), &ControlFrame::Change,
                         m_watcher.get(), [this] { reportValueChange(); });
    }
}

ControlAccessible::~ControlAccessible()
{
    for (StepPartAccessible *&part : m_steps) {
        if (part)
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(part));
        part = nullptr;
    }
}

bool ControlAccessible::isValid() const
{
    return QAccessibleWidget::isValid() && m_control;
}

QAccessibleInterface *ControlAccessible::controlInterface() const
{
    if (!standsIn())
        return const_cast<ControlAccessible *>(this);
    return QAccessible::queryAccessibleInterface(m_control.data());
}

QLineEdit *ControlAccessible::textBox() const
{
    if (!m_textBox)
        m_textBox = Accessibility::textBoxOf(m_control);
    return m_textBox;
}

// The parts are made when first shown; once found they stay.
QWidget *ControlAccessible::partNamed(QPointer<QWidget> &part, const QString &name,
                                      Qt::FindChildOptions options) const
{
    if (!part)
        part = m_control->findChild<QWidget *>(name, options);
    return part && part->isVisibleTo(m_control) ? part.data() : nullptr;
}

QWidget *ControlAccessible::usableUpDown() const
{
    if (!m_spinBox || read(m_control, "Locked").toBool())
        return nullptr;
    QWidget *upDown = partNamed(m_upDown, QStringLiteral("UpDown1"), Qt::FindDirectChildrenOnly);
    return upDown && upDown->isEnabled() ? upDown : nullptr;
}

QList<QAccessibleInterface *> ControlAccessible::parts() const
{
    QList<QAccessibleInterface *> out;
    // Check1 of a DateBox or a TimeBox is its inner box's.
    if (QWidget *check = partNamed(m_check, QStringLiteral("Check1"), Qt::FindChildrenRecursively)) {
        if (QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(check))
            out.append(iface);
    }
    if (QWidget *upDown = partNamed(m_upDown, QStringLiteral("UpDown1"), Qt::FindDirectChildrenOnly)) {
        for (int i = 0; i < 2; ++i) {
            StepPartAccessible *&part = m_steps[i];
            if (!part || part->upDown() != upDown) {
                if (part)
                    QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(part));
                part = new StepPartAccessible(upDown, m_control, i == 0);
                QAccessible::registerAccessibleInterface(part);
            }
            out.append(part);
        }
    }
    if (QWidget *picker = partNamed(m_picker, QStringLiteral("fdt"), Qt::FindDirectChildrenOnly)) {
        if (QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(picker))
            out.append(iface);
    }
    return out;
}

// ---------------------------------------------------------------------------------------------
// Place in the tree: the inner widgets are no children; the one standing in for the control has
// the control's place.

QAccessibleInterface *ControlAccessible::parent() const
{
    if (standsIn())
        return controlInterface()->parent();
    return QAccessibleWidget::parent();
}

int ControlAccessible::childCount() const
{
    if (standsIn())
        return controlInterface()->childCount();
    return int(parts().size());
}

QAccessibleInterface *ControlAccessible::child(int index) const
{
    if (standsIn())
        return controlInterface()->child(index);
    return parts().value(index);
}

int ControlAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    if (standsIn())
        return controlInterface()->indexOfChild(child);
    return int(parts().indexOf(const_cast<QAccessibleInterface *>(child)));
}

QAccessibleInterface *ControlAccessible::childAt(int x, int y) const
{
    if (standsIn())
        return controlInterface()->childAt(x, y);
    for (QAccessibleInterface *part : parts()) {
        if (part->rect().contains(x, y))
            return part;
    }
    return nullptr;
}

QAccessibleInterface *ControlAccessible::focusChild() const
{
    if (!focusInside(m_control))
        return nullptr;
    if (m_check && m_check->hasFocus())
        return QAccessible::queryAccessibleInterface(m_check.data());
    return controlInterface();
}

QList<QPair<QAccessibleInterface *, QAccessible::Relation>>
ControlAccessible::relations(QAccessible::Relation match) const
{
    if (standsIn())
        return controlInterface()->relations(match);
    return QAccessibleWidget::relations(match);
}

QRect ControlAccessible::rect() const
{
    if (standsIn())
        return controlInterface()->rect();
    return QAccessibleWidget::rect();
}

// ---------------------------------------------------------------------------------------------
// What it is

QString ControlAccessible::text(QAccessible::Text t) const
{
    if (standsIn())
        return controlInterface()->text(t);
    switch (t) {
    case QAccessible::Value:
        return read(m_control, "Text").toString();
    case QAccessible::Description:
        if (!m_control->accessibleDescription().isEmpty())
            return m_control->accessibleDescription();
        return read(m_control, "ToolTip").toString();
    default:
        return QAccessibleWidget::text(t);
    }
}

void ControlAccessible::setText(QAccessible::Text t, const QString &text)
{
    if (t == QAccessible::Value)
        offerText(text);
    else
        QAccessibleWidget::setText(t, text);
}

QAccessible::Role ControlAccessible::role() const
{
    return m_spinBox ? QAccessible::SpinBox : QAccessible::EditableText;
}

QAccessible::State ControlAccessible::state() const
{
    if (standsIn())
        return controlInterface()->state();
    QAccessible::State state = QAccessibleWidget::state();
    // The frame hands the focus to its text box, so Qt's own test of the frame sees no focus.
    state.focusable = true;
    state.focused = focusInside(m_control);
    const bool locked = read(m_control, "Locked").toBool();
    state.readOnly = locked;
    state.editable = !locked;
    state.selectableText = true;
    return state;
}

void *ControlAccessible::interface_cast(QAccessible::InterfaceType t)
{
    switch (t) {
    case QAccessible::ValueInterface:
        return m_spinBox ? static_cast<QAccessibleValueInterface *>(this) : nullptr;
    case QAccessible::TextInterface:
        return static_cast<QAccessibleTextInterface *>(this);
    case QAccessible::EditableTextInterface:
        return static_cast<QAccessibleEditableTextInterface *>(this);
    default:
        return QAccessibleWidget::interface_cast(t);
    }
}

// ---------------------------------------------------------------------------------------------
// Actions: stepping as the up-down button does, and taking the focus.

QStringList ControlAccessible::actionNames() const
{
    QStringList names;
    if (!m_control->isEnabled())
        return names;
    if (usableUpDown())
        names << increaseAction() << decreaseAction();
    names << setFocusAction();
    return names;
}

void ControlAccessible::doAction(const QString &actionName)
{
    if (!m_control->isEnabled())
        return;
    if (actionName == increaseAction() || actionName == decreaseAction()) {
        if (QWidget *upDown = usableUpDown())
            StepPartAccessible::press(upDown, actionName == increaseAction());
    } else if (actionName == setFocusAction()) {
        m_control->setFocus(Qt::OtherFocusReason);
    }
}

QStringList ControlAccessible::keyBindingsForAction(const QString &actionName) const
{
    if (!read(m_control, "InterceptArrowKeys").toBool())
        return {};
    if (actionName == increaseAction())
        return {QKeySequence(Qt::Key_Up).toString(QKeySequence::NativeText)};
    if (actionName == decreaseAction())
        return {QKeySequence(Qt::Key_Down).toString(QKeySequence::NativeText)};
    return {};
}

// ---------------------------------------------------------------------------------------------
// Value: the documented properties, read and written by name.

QVariant ControlAccessible::currentValue() const
{
    return figure(read(m_control, "Value"));
}

void ControlAccessible::setCurrentValue(const QVariant &value)
{
    try {
        m_control->setProperty("Value", value);
    } catch (...) {
        // A refused value leaves the control as it was; nothing reaches the screen reader's call.
    }
}

QVariant ControlAccessible::maximumValue() const
{
    return figure(read(m_control, "Maximum"));
}

QVariant ControlAccessible::minimumValue() const
{
    return figure(read(m_control, "Minimum"));
}

QVariant ControlAccessible::minimumStepSize() const
{
    // A date or a time steps one unit of the field under the caret.
    if (!hasProperty(m_control, "Increment"))
        return 1;
    return figure(read(m_control, "Increment"));
}

void ControlAccessible::reportValueChange()
{
    if (!QAccessible::isActive()) // no screen reader listens: spare reading the value
        return;
    // The screen reader follows the object it heard the focus on: the text box's stand-in while
    // the text box has the focus.
    QObject *target = m_control;
    if (QLineEdit *box = textBox(); box && box->hasFocus())
        target = box;
    QAccessibleValueChangeEvent event(target, currentValue());
    QAccessible::updateAccessibility(&event);
}

// ---------------------------------------------------------------------------------------------
// Text: the text box's, as a QLineEdit gives it. Edits go in as text arriving without keys, which
// the control takes, reshapes or refuses (a Locked control refuses it all).

void ControlAccessible::selection(int selectionIndex, int *startOffset, int *endOffset) const
{
    *startOffset = *endOffset = 0;
    QLineEdit *box = textBox();
    if (selectionIndex != 0 || !box || !box->hasSelectedText())
        return;
    *startOffset = box->selectionStart();
    *endOffset = box->selectionEnd();
}

int ControlAccessible::selectionCount() const
{
    QLineEdit *box = textBox();
    return box && box->hasSelectedText() ? 1 : 0;
}

void ControlAccessible::addSelection(int startOffset, int endOffset)
{
    setSelection(0, startOffset, endOffset);
}

void ControlAccessible::removeSelection(int selectionIndex)
{
    if (QLineEdit *box = textBox(); box && selectionIndex == 0)
        box->deselect();
}

void ControlAccessible::setSelection(int selectionIndex, int startOffset, int endOffset)
{
    if (QLineEdit *box = textBox(); box && selectionIndex == 0)
        box->setSelection(startOffset, endOffset - startOffset);
}

int ControlAccessible::cursorPosition() const
{
    QLineEdit *box = textBox();
    return box ? box->cursorPosition() : 0;
}

void ControlAccessible::setCursorPosition(int position)
{
    if (QLineEdit *box = textBox())
        box->setCursorPosition(position);
}

QString ControlAccessible::text(int startOffset, int endOffset) const
{
    QLineEdit *box = textBox();
    if (!box || startOffset > endOffset)
        return {};
    return box->text().mid(startOffset, endOffset - startOffset);
}

// Offset -2 is the caret's, as screen readers ask it.
QString ControlAccessible::textBeforeOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                            int *startOffset, int *endOffset) const
{
    return QAccessibleTextInterface::textBeforeOffset(offset == -2 ? cursorPosition() : offset,
                                                      boundaryType, startOffset, endOffset);
}

QString ControlAccessible::textAfterOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                           int *startOffset, int *endOffset) const
{
    return QAccessibleTextInterface::textAfterOffset(offset == -2 ? cursorPosition() : offset,
                                                     boundaryType, startOffset, endOffset);
}

QString ControlAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                                        int *startOffset, int *endOffset) const
{
    return QAccessibleTextInterface::textAtOffset(offset == -2 ? cursorPosition() : offset,
                                                  boundaryType, startOffset, endOffset);
}

int ControlAccessible::characterCount() const
{
    QLineEdit *box = textBox();
    return box ? int(box->text().size()) : 0;
}

QRect ControlAccessible::characterRect(int offset) const
{
    QLineEdit *box = textBox();
    if (!box || offset < 0 || offset >= box->text().size())
        return {};
    // Measured from the caret, which Qt places wherever the text is scrolled or aligned.
    const QString text = box->text();
    const QFontMetrics metrics(box->font());
    const QRect caret = box->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const int x = caret.x() + metrics.horizontalAdvance(text.left(offset))
                  - metrics.horizontalAdvance(text.left(box->cursorPosition()));
    const QRect local(x, caret.y(), metrics.horizontalAdvance(text.at(offset)), caret.height());
    return QRect(box->mapToGlobal(local.topLeft()), local.size());
}

int ControlAccessible::offsetAtPoint(const QPoint &point) const
{
    QLineEdit *box = textBox();
    return box ? box->cursorPositionAt(box->mapFromGlobal(point)) : -1;
}

void ControlAccessible::scrollToSubstring(int startIndex, int endIndex)
{
    // Moving the caret to each end scrolls both into view.
    setCursorPosition(endIndex);
    setCursorPosition(startIndex);
}

QString ControlAccessible::attributes(int offset, int *startOffset, int *endOffset) const
{
    *startOffset = *endOffset = offset; // one font and colour throughout
    return {};
}

void ControlAccessible::deleteText(int startOffset, int endOffset)
{
    if (QLineEdit *box = textBox())
        offerText(box->text().remove(startOffset, endOffset - startOffset));
}

void ControlAccessible::insertText(int offset, const QString &text)
{
    if (QLineEdit *box = textBox())
        offerText(box->text().insert(offset, text));
}

void ControlAccessible::replaceText(int startOffset, int endOffset, const QString &text)
{
    if (QLineEdit *box = textBox())
        offerText(box->text().replace(startOffset, endOffset - startOffset, text));
}

void ControlAccessible::offerText(const QString &text)
{
    QLineEdit *box = textBox();
    if (!box || !m_control->isEnabled())
        return;
    try {
        box->setText(text);
    } catch (...) {
        // The control's refusal stays inside it.
    }
}

} // namespace Tarnwell
