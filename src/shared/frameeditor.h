#pragma once
#include <tarnwell/constants.h>

#include <QString>
#include <QVariant>

class QEvent;
class QWidget;

namespace Tarnwell {

struct CommonDefaults;

// The inner widgets that carry a control's text, seen from the frame. The frame stores the common
// values it owns and asks its editor to apply them; the values that live in the inner widgets
// (alignment, locked state, selection, check box) are read back from them.
class FrameEditor
{
public:
    // The common values the frame stores and the editor applies.
    enum class Applied {
        Colors,    // BackColor, the text colour (the frame's textColor()), Enabled
        Cursor,    // MousePointer, MouseIcon
        DragMode,  // OLEDragMode
        DropMode,  // OLEDropMode
        EnterAsTab,
        ToolTip,
        CheckBox,  // shown or hidden (the layout follows)
        UserMode,
    };

    FrameEditor() = default;
    virtual ~FrameEditor() = default;
    FrameEditor(const FrameEditor &) = delete;
    FrameEditor &operator=(const FrameEditor &) = delete;

    // The widget that shows the text. The control itself holds the keyboard focus, as a spin box
    // holds it for its line edit: this widget has the control as its focus proxy, so setFocus()
    // on it focuses the control, and it is handed the control's keys, composed text and focus
    // changes through forward().
    virtual QWidget *focusTarget() const = 0;
    // One of the control's own KeyPress, KeyRelease, ShortcutOverride, InputMethod, FocusIn or
    // FocusOut events, handled as the text widget would handle it; a key left ignored goes on to
    // the control's parents (a dialog's default button, an item view's editor handling).
    virtual void forward(QEvent *event) = 0;
    // The text widget's answer, its rectangles in the control's coordinates.
    virtual QVariant inputMethodQuery(Qt::InputMethodQuery query) const = 0;
    virtual void apply(Applied what) = 0;
    // The control's defaults of the common properties changed (its constructor names its own):
    // inner widgets that draw its colours take them too.
    virtual void commonDefaultsChanged(const CommonDefaults &) {}

    virtual twAlignmentConstants alignment() const = 0;
    virtual void setAlignment(twAlignmentConstants alignment) = 0;
    virtual bool locked() const = 0;
    virtual void setLocked(bool locked) = 0;
    virtual bool checked() const = 0;
    // Ticks or clears the check box; its click logic runs when the value changes.
    virtual void setChecked(bool checked) = 0;
    virtual bool checkHasFocus() const = 0;

    virtual QString text() const = 0;
    virtual int selStart() const = 0;
    virtual void setSelStart(int start) = 0; // within the text
    virtual int selLength() const = 0;
    virtual void setSelLength(int length) = 0; // clipped to the text
    virtual QString selText() const = 0;
    virtual void selectAll() = 0;

    // Places the inner widgets in the frame's inner area, less `reservedWidth` twips at the
    // right for the control's own buttons.
    virtual void layout(int reservedWidth) = 0;
    virtual void refresh() = 0;
    virtual void startDrag() = 0;
};

} // namespace Tarnwell
