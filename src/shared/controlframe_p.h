#pragma once
// ControlFrame's private part, as QLineEditPrivate is QLineEdit's: the state of the frame, its
// private helpers, and small doors to its protected hooks for the helpers that drive a control
// from inside (the line and inner-mask editors, the key pipeline, the up-down stepper, the focus
// tracker, the common-property table). Those helpers befriend nothing: they reach the frame
// through get() and call its hooks through here. Only widget code includes this header.
#include <tarnwell/controlframe.h>

#include "shared/frameeditor.h"

#include <memory>

namespace Tarnwell {

enum class CommonKey;
class LineEditor;

class ControlFramePrivate
{
public:
    Q_DECLARE_PUBLIC(ControlFrame)

    // The frame's guard for its own writes, named for the common-property table.
    using UpdatingGuard = ControlFrame::UpdatingGuard;

    explicit ControlFramePrivate(ControlFrame *frame);
    ~ControlFramePrivate();
    ControlFramePrivate(const ControlFramePrivate &) = delete;
    ControlFramePrivate &operator=(const ControlFramePrivate &) = delete;

    static ControlFramePrivate *get(ControlFrame *frame) { return frame->d_func(); }
    static const ControlFramePrivate *get(const ControlFrame *frame) { return frame->d_func(); }

    // --- The frame's own helpers.
    void enterFocus();
    void exitFocus();
    // Hands one of the control's own keyboard, composition or focus events to its text widget.
    void forwardToText(QEvent *event);
    // Sets a common property through its row of the common table; reports it changed before or
    // after applying it.
    enum class Report { First, After };
    void setCommon(CommonKey key, const QVariant &value, Report report = Report::After);
    QSize hintFor(bool minimum) const;
    // The keyboard focus is on the frame or one of its inner widgets.
    bool focusIsInside() const;

    // --- The protected hooks and helpers, called on the helpers' behalf (virtual ones reach the
    // control's override).
    void handleKeyDown(short &keyCode, short &shift) { q_func()->handleKeyDown(keyCode, shift); }
    void handleKeyPress(short &keyAscii) { q_func()->handleKeyPress(keyAscii); }
    void handleKeyUp(short &keyCode, short &shift) { q_func()->handleKeyUp(keyCode, shift); }
    bool keepsShortcutKey(short keyCode, short shift, short keyAscii) const
    {
        return q_func()->keepsShortcutKey(keyCode, shift, keyAscii);
    }
    void onTextChanged(const QString &text) { q_func()->onTextChanged(text); }
    void onForeignText(const QString &text, const QString &previous)
    {
        q_func()->onForeignText(text, previous);
    }
    bool filterDrop(QEvent *event) { return q_func()->filterDrop(event); }
    void afterCheckClick() { q_func()->afterCheckClick(); }
    void updateValueControls() { q_func()->updateValueControls(); }
    bool valueControlsEnabled() const { return q_func()->valueControlsEnabled(); }
    void applyTextColor() { q_func()->applyTextColor(); }
    void applyBorder() { q_func()->applyBorder(); }
    void relayout() { q_func()->relayout(); }
    QFont ambientFont() const { return q_func()->ambientFont(); }
    int innerWidthTwips() const { return q_func()->innerWidthTwips(); }
    int innerHeightTwips() const { return q_func()->innerHeightTwips(); }
    void placeTwips(QWidget *child, int left, int top, int width, int height)
    {
        q_func()->placeTwips(child, left, top, width, height);
    }

    ControlFrame *q_ptr;

    std::unique_ptr<FrameEditor> editor;
    const CommonDefaults *commonDefaults;
    LineEditor *line = nullptr; // the editor, for a line control

    OleColor backColor = OleColor::WindowBackground;
    OleColor foreColor = OleColor::WindowText;
    OleColor disabledColor = OleColor::GrayText;
    twBorderStyleConstants borderStyle = twFixed3D;
    bool selectTextOnFocus = true;
    bool nullIfEmpty = false;
    bool enterAsTab = false;
    bool checkBox = false;
    QPixmap mouseIcon;
    int mousePointer = 0;
    int oleDragMode = 0;
    int oleDropMode = 0;

    bool userMode = true;
    ControlFrame::CanPropertyChangeHook canPropertyChange;
    QStringList dirty;

    bool hasFocus = false;
    bool updating = false;
    // This frame is the inner text box of another control, which reports "Value" itself once
    // per edit: the frame raises Change for its owner but reports no "Value" of its own.
    bool ownerReportsValue = false;
};

} // namespace Tarnwell
