#pragma once
#include <QAccessibleWidget>
#include <QPointer>

#include <array>
#include <memory>

class QLineEdit;

namespace Tarnwell {

class StepPartAccessible;

// What a screen reader sees of a control: one object with the role of the control's Qt peer
// (EditableText with the text interfaces for MaskBox, as a QLineEdit; SpinBox with the value
// interface too for NumberBox, DateBox and TimeBox, as a QAbstractSpinBox), its name, state and
// value read through the control's documented properties, and the visible parts that act as its
// children. The inner widgets carrying the text are hidden: each gets an interface of this class
// too, standing for the control, so that a focus or caret event Qt raises for the inner text box
// names the control; it answers everything as the control's own interface does.
class ControlAccessible : public QAccessibleWidget,
                          public QAccessibleValueInterface,
                          public QAccessibleTextInterface,
                          public QAccessibleEditableTextInterface
{
public:
    // `widget` is `control` itself or one of its hidden inner widgets.
    ControlAccessible(QWidget *widget, QWidget *control);
    ~ControlAccessible() override;

    QWidget *control() const { return m_control; }
    bool isSpinBox() const { return m_spinBox; }

    // QAccessibleInterface
    bool isValid() const override;
    QAccessibleInterface *parent() const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    QList<QPair<QAccessibleInterface *, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override;
    QRect rect() const override;
    QString text(QAccessible::Text t) const override;
    void setText(QAccessible::Text t, const QString &text) override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType t) override;

    // QAccessibleActionInterface
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;
    QStringList keyBindingsForAction(const QString &actionName) const override;

    // QAccessibleValueInterface
    QVariant currentValue() const override;
    void setCurrentValue(const QVariant &value) override;
    QVariant maximumValue() const override;
    QVariant minimumValue() const override;
    QVariant minimumStepSize() const override;

    // QAccessibleTextInterface
    void selection(int selectionIndex, int *startOffset, int *endOffset) const override;
    int selectionCount() const override;
    void addSelection(int startOffset, int endOffset) override;
    void removeSelection(int selectionIndex) override;
    void setSelection(int selectionIndex, int startOffset, int endOffset) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int startOffset, int endOffset) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                             int *startOffset, int *endOffset) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType boundaryType,
                            int *startOffset, int *endOffset) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType boundaryType, int *startOffset,
                         int *endOffset) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int startIndex, int endIndex) override;
    QString attributes(int offset, int *startOffset, int *endOffset) const override;

    // QAccessibleEditableTextInterface
    void deleteText(int startOffset, int endOffset) override;
    void insertText(int offset, const QString &text) override;
    void replaceText(int startOffset, int endOffset, const QString &text) override;

private:
    bool standsIn() const { return widget() != m_control; }
    // The control's own interface (this one unless this stands in for it).
    QAccessibleInterface *controlInterface() const;
    QLineEdit *textBox() const;
    // The visible part of that object name, found once into `part`; null while hidden.
    QWidget *partNamed(QPointer<QWidget> &part, const QString &name, Qt::FindChildOptions options) const;
    // The up-down button while it can be pressed, else null.
    QWidget *usableUpDown() const;
    // The parts a screen reader may land on, in the order they stand on the form.
    QList<QAccessibleInterface *> parts() const;
    void step(bool up);
    // The text box's text changed to `text` as a paste would change it: the control decides.
    void offerText(const QString &text);
    // Tells a listening screen reader that the value changed, on the object it has the focus on.
    void reportValueChange();

    QPointer<QWidget> m_control;
    bool m_spinBox = false;
    mutable QPointer<QLineEdit> m_textBox;
    mutable QPointer<QWidget> m_check;
    mutable QPointer<QWidget> m_upDown;
    mutable QPointer<QWidget> m_picker;
    // UpDown1's two halves, registered with Qt's cache and owned here.
    mutable std::array<StepPartAccessible *, 2> m_steps{};
    std::unique_ptr<QObject> m_watcher;
};

} // namespace Tarnwell
