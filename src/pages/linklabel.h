#pragma once
// A label that stands for a link: it takes the focus, answers a click, Enter or Space with
// activated(), shows the link's normal or hover colour, and tells a screen reader it is a link
// that can be pressed.
#include <tarnwell/olecolor.h>

#include <QLabel>

namespace Tarnwell::Pages {

class LinkLabel : public QLabel
{
    Q_OBJECT
public:
    LinkLabel(QWidget *parent, const char *name, OleColor normal, OleColor hover);

    bool hovered() const { return m_hovered; }
    void setHovered(bool hovered);
    // The colour the label shows now, as the host's colour value.
    OleColor color() const { return m_hovered ? m_hover : m_normal; }

signals:
    void activated();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showColor();

    OleColor m_normal;
    OleColor m_hover;
    bool m_hovered = false;
    bool m_pressed = false;
};

} // namespace Tarnwell::Pages
