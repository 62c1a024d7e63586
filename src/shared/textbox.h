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

    // True while the text box handles a key event.
    bool handlingKey() const { return m_keyDepth > 0; }

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    int m_keyDepth = 0;
};

} // namespace Tarnwell
