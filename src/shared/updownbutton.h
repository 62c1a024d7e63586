#pragma once
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

class QStyleOptionSpinBox;

namespace Tarnwell {

// A pair of arrow buttons, up above down, drawn by the style as a spin box's buttons. Pressing the upper one sets Value
// to 1 and raises Change, the lower one sets Value to 0 and raises Change; held down, the press
// repeats (first after 300 ms, then every 60 ms) while the pointer stays on that button. Setting
// Value raises Change every time, also with the value it already holds: the owner resets Value
// after each step and tells its own resets apart itself.
class UpDownButton : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int Value READ Value WRITE setValue)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(bool Visible READ Visible WRITE setVisible)
public:
    enum Part { NoPart, UpPart, DownPart };
    static constexpr int RepeatDelay = 300;
    static constexpr int RepeatInterval = 60;

    explicit UpDownButton(QWidget *parent = nullptr);

    int Value() const { return m_value; }
    void setValue(int value);
    bool Enabled() const { return isEnabled(); }
    bool Visible() const { return !isHidden(); }

    Part pressedPart() const { return m_pressed; }
    // Whether a step up, and a step down, would move the owner's value now. Asked when the
    // arrows are drawn and pressed, never stored: an arrow that would not move the value is
    // greyed out, and a press on it does nothing. Without a query both arrows are enabled.
    using ArrowsQuery = std::function<std::pair<bool, bool>()>;
    void setArrowsQuery(ArrowsQuery query) { m_arrows = std::move(query); }
    bool isPartEnabled(Part part) const;
    Part partAt(const QPoint &pos) const;
    // The part's share of the widget: the style's up button and everything above the down
    // button, the rest for the down button.
    QRect partRect(Part part) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void Change();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool event(QEvent *event) override;

private:
    // A spin box placed so that the style's arrow buttons of it fill this widget.
    void initSpinOption(QStyleOptionSpinBox *option) const;
    int downTop() const;
    void fire();
    void repeat();
    void release();

    int m_value = 0;
    Part m_pressed = NoPart;
    Part m_hovered = NoPart;
    bool m_under = false; // the pointer is over the pressed part
    ArrowsQuery m_arrows;
    QTimer m_repeat;
};

} // namespace Tarnwell
