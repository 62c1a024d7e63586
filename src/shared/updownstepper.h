#pragma once
#include <QObject>

#include <functional>
#include <utility>

namespace Tarnwell {

class ControlFrame;
class ControlFramePrivate;
class UpDownButton;

// The up-down button UpDown1 of a control and the stepping glue around it, the same for every
// control that steps. The button is created when it is first shown. Each press of it, and each
// arrow key the control hands over, runs the control's step once: nothing while the control is
// Locked, isUpdating() or already stepping; the focus moves into the text first (the caret where
// the selection started); the button's value gives the direction and goes back to 0 after.
class UpDownStepper : public QObject
{
    Q_OBJECT
public:
    using Step = std::function<void(bool up)>;
    // Whether a step up, and a step down, would move the value now.
    using ArrowsQuery = std::function<std::pair<bool, bool>()>;

    UpDownStepper(ControlFrame &frame, Step step);
    ~UpDownStepper() override;

    UpDownButton *button() const { return m_button; }
    bool isShown() const { return m_shown; }
    void setShown(bool on);
    // Places the button (when shown), in twips of the control's inner area.
    void place(int left, int top, int width, int height);
    // The button is usable while the control's value controls are (see ControlFrame).
    void updateEnabled();
    // One step, as a press on the upper (true) or lower half of the button.
    void stepBy(bool up);
    // The arrows greyed out where a step would not move the value (handed to the button, which
    // asks when it paints); updateArrows() repaints them after the value moved.
    void setArrowsQuery(ArrowsQuery query) { m_arrows = std::move(query); }
    void updateArrows();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    UpDownButton *ensureButton();
    void updateToolTip();
    void pressed();

    ControlFrame &m_frame;
    ControlFramePrivate &m_d; // the control's layout and state
    Step m_step;
    ArrowsQuery m_arrows;
    UpDownButton *m_button = nullptr;
    bool m_shown = false;
    bool m_stepping = false;
};

} // namespace Tarnwell
