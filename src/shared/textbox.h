#pragma once
#include <QLineEdit>

namespace Tarnwell {

// The line editor's text box Text1: a QLineEdit that knows when its text is changing because of
// a key it is handling, so that such text can be told apart from text that arrives without keys
// (the context menu, a drop, an undo or a program's call on the line edit).
class TextBox : public QLineEdit
{
    Q_OBJECT
public:
    explicit TextBox(QWidget *parent) : QLineEdit(parent) {}

    // True while the text box handles a key event or types text for the key pipeline.
    bool handlingKey() const { return m_keyDepth > 0; }
    // Handles an event its control hands on (the control holds the focus for the text box):
    // straight to the line edit's handlers, with no filters and no propagation to the parents.
    void handOn(QEvent *event) { QLineEdit::event(event); }
    // Inserts `text` at the caret as typed text (replacing the selection), in one edit.
    void typeText(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    int m_keyDepth = 0;
};

} // namespace Tarnwell
