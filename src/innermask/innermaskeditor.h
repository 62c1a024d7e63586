#pragma once
#include <tarnwell/controlframe.h>

#include "shared/frameeditor.h"

#include <QObject>

namespace Tarnwell {

class ControlFrame;
class ControlFramePrivate;
class MaskBox;

// The editor of DateBox and TimeBox: an inner MaskBox (mdtDate, mdtTime) that carries the text,
// driven through MaskBox's public interface (and through the frame's private part for the common
// defaults and for leaving the Value reports to the outer control). It forwards the common
// properties to the inner box, keeps the box in the outer control's design or run mode, relays
// its events to the outer control once and by reference (then runs the outer control's key
// hooks), and reports the inner box's Change to the outer control's onTextChanged() with the
// box's text (after updateValueControls() and afterCheckClick() when the Change came from its
// check box). The inner box never selects on entry of its own: selecting on entry is the outer
// control's SelectTextOnFocus.
class InnerMaskEditor final : public QObject, public FrameEditor
{
    Q_OBJECT
public:
    InnerMaskEditor(ControlFrame &frame, const QString &name);
    ~InnerMaskEditor() override;

    MaskBox *box() const { return m_box; }
    // What a control's constructor hands its frame to make its editor.
    using Factory = std::function<std::unique_ptr<FrameEditor>(ControlFrame &frame)>;
    // The editor a control on an inner MaskBox named `name` hands its frame.
    static Factory factory(const QString &name);
    // The inner box of a control made with factory().
    static MaskBox &boxOf(const FrameEditor &editor)
    {
        return *static_cast<const InnerMaskEditor &>(editor).m_box;
    }

    // FrameEditor
    QWidget *focusTarget() const override;
    void forward(QEvent *event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void apply(Applied what) override;
    void commonDefaultsChanged(const CommonDefaults &defaults) override;
    twAlignmentConstants alignment() const override;
    void setAlignment(twAlignmentConstants alignment) override;
    bool locked() const override;
    void setLocked(bool locked) override;
    bool checked() const override;
    void setChecked(bool checked) override;
    bool checkHasFocus() const override;
    QString text() const override;
    int selStart() const override;
    void setSelStart(int start) override;
    int selLength() const override;
    void setSelLength(int length) override;
    QString selText() const override;
    void selectAll() override;
    void layout(int reservedWidth) override;
    void refresh() override;
    void startDrag() override;

private:
    void relayEvents();

    ControlFrame &m_frame;
    ControlFramePrivate &m_d; // the outer control's hooks
    MaskBox *m_box = nullptr;
    bool m_checked = true; // the inner check box as the outer control last saw it
};

} // namespace Tarnwell
