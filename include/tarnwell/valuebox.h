#pragma once
#include <tarnwell/controlframe.h>
#include <tarnwell/global.h>

#include <QFlags>
#include <QString>
#include <QVariant>

#include <memory>

class QWheelEvent;

namespace Tarnwell {

class UpDownStepper;

/// @brief The base of the controls that hold one value and step it: NumberBox, DateBox and
/// TimeBox, as QAbstractSpinBox is for Qt's spin boxes and date-time edits.
///
/// It owns the up-down button `UpDown1` and its place at the right of the control, the arrow
/// keys (#InterceptArrowKeys), the mouse wheel over the control while the button is shown, the
/// arrows' enabled state at the bounds, and the read-only #Text. A step runs through one
/// skeleton: the control moves its value (by its increment, or the field under the caret) and
/// shows it; the base then reports "Value" changed and raises Change once.
class TARNWELL_EXPORT ValueBox : public ControlFrame
{
    Q_OBJECT
    /** @name Stepping */
    ///@{
    /// The up-down button `UpDown1` is shown at the right (a DateBox shows it only for
    /// month-and-year formats, its calendar button otherwise). Switching it also switches
    /// #InterceptArrowKeys in NumberBox and DateBox.
    Q_PROPERTY(bool UpDown READ UpDown WRITE setUpDown)
    /// The Up and Down keys step the value (or the field under the caret) instead of moving
    /// the caret.
    Q_PROPERTY(bool InterceptArrowKeys READ InterceptArrowKeys WRITE setInterceptArrowKeys)
    ///@}
    /// The text as shown (read-only: a set throws Error(387) at design time, Error(382) at run
    /// time).
    Q_PROPERTY(QString Text READ Text WRITE setText DESIGNABLE false STORED false)

public:
    /// Which steps can move the value from where it stands.
    enum StepEnabledFlag {
        StepNone = 0x0,        ///< neither
        StepUpEnabled = 0x1,   ///< a step up would move the value
        StepDownEnabled = 0x2  ///< a step down would move the value
    };
    /// A combination of StepEnabledFlag values.
    Q_DECLARE_FLAGS(StepEnabled, StepEnabledFlag)

    ~ValueBox() override;

    /** @name Stepping */
    ///@{
    /// Reads #UpDown.
    bool UpDown() const { return m_upDown; }
    /// Sets #UpDown.
    void setUpDown(bool on);
    /// Reads #InterceptArrowKeys.
    bool InterceptArrowKeys() const { return m_interceptArrowKeys; }
    /// Sets #InterceptArrowKeys.
    void setInterceptArrowKeys(bool on);
    ///@}

    /// The text as shown (#Text).
    QString Text() const { return valueText(); }
    /// Always refused: the text cannot be set (387 at design time, 382 at run time).
    void setText(const QString &text);

    /// Whether a step up or down would move the value now (the arrows follow it).
    virtual StepEnabled stepEnabled() const;

public slots:
    /// One step up, as a press on the upper arrow: nothing while Locked.
    void stepUp();
    /// One step down, as a press on the lower arrow: nothing while Locked.
    void stepDown();

protected:
    /// @cond INTERNAL
    // How switching UpDown treats the arrow keys.
    enum class ArrowKeysFollow {
        No,       // the keys keep their own setting
        Silently, // the keys follow the button, InterceptArrowKeys not reported changed
        Reported, // the keys follow the button as a set of InterceptArrowKeys would
    };

    ValueBox(QWidget *parent, const EditorFactory &makeEditor, ArrowKeysFollow follow);

    // --- What each control supplies.
    // Moves the value one step up or down and shows it, raising nothing (the base holds
    // isUpdating() meanwhile); false when the value stays where it is (a bound, a dead caret).
    virtual bool stepValue(bool up) = 0;
    // Whether the up-down button (rather than another button of the control) is the one shown
    // while UpDown is on.
    virtual bool showsUpDownButton() const { return true; }
    // The text Text returns.
    virtual QString valueText() const { return shownText(); }

    // A value that holds nothing: Null, Empty or an empty string.
    static bool isBlank(const QVariant &value);

    // For bag reading: assigns without reporting or laying out (the plan's steps follow).
    void assignUpDown(bool on) { m_upDown = on; }
    void assignInterceptArrowKeys(bool on) { m_interceptArrowKeys = on; }

    // The button's place: the last ScrollWidth of the inner width at the right, full height.
    int buttonLeftTwips() const;
    int reservedWidth() const override;
    void relayout() override;
    void updateValueControls() override;
    // Runs a step of an arrow key: Up and Down (without modifiers) while InterceptArrowKeys.
    // True when the key was taken (zero it then).
    bool arrowKeyStep(short keyCode, short shift);
    // Brings the arrows' enabled state up to date with stepEnabled().
    void updateArrows();

    void wheelEvent(QWheelEvent *event) override;

    /// @endcond

private:
    void runStep(bool up);

    std::unique_ptr<UpDownStepper> m_stepper;
    ArrowKeysFollow m_follow;
    bool m_upDown = false;
    bool m_interceptArrowKeys = false;
    int m_wheelRemainder = 0; // eighths of a degree not yet stepped
};

Q_DECLARE_OPERATORS_FOR_FLAGS(ValueBox::StepEnabled)

} // namespace Tarnwell
