#pragma once
// Qt's own editors as the controls' peers: what the style shows of them, read from the widgets
// themselves so that a test compares against Qt, not against our own measuring.
#include <QAbstractSpinBox>
#include <QStyle>
#include <QStyleOptionSpinBox>

namespace Peers {

// The option a spin box paints with (a protected member, reached as its own class names it).
struct OpenSpinBox : QAbstractSpinBox
{
    static constexpr auto init = &OpenSpinBox::initStyleOption;
};

// Where the style puts a spin box's up button, the box at its own size hint.
inline QRect upButtonRect(QAbstractSpinBox &box)
{
    box.resize(box.sizeHint());
    QStyleOptionSpinBox option;
    (box.*OpenSpinBox::init)(&option);
    return box.style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &box);
}

} // namespace Peers
