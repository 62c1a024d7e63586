#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/global.h>
#include <tarnwell/olecolor.h>

#include <QFont>
#include <QFrame>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>

class QCheckBox;
class QLineEdit;

namespace Tarnwell {

class ControlFramePrivate;
class DataObject;
struct CommonDefaults;
class FrameEditor;
class PropertyBag;

/// @brief The outer frame every Tarnwell control is built on, and the properties and events
/// the four controls share.
///
/// It is the host's site (design or run time, the can-property-change query, the set of
/// properties reported changed), keeps the focus and updating flags, draws the border, raises
/// the events, and stores the common properties, which it applies to the inner widgets through an
/// editor: a line editor (the text box `Text1` and the check box `Check1`, for MaskBox and
/// NumberBox) or an inner-mask editor (an inner MaskBox, for DateBox and TimeBox).
///
/// Events carrying arguments by reference must be connected with Qt::DirectConnection (or the
/// default automatic connection on the GUI thread): a queued connection cannot hand the changed
/// value back, and Qt refuses to queue reference arguments.
///
/// Refused property values throw Error(380) and leave the control as it was. QWidget's own
/// setEnabled, setFont and setToolTip, called through a QWidget pointer, have the same effect on
/// the control as #Enabled, #Font and #ToolTip (only the property is not reported changed).
///
/// Every setter of a property reports the property changed under its own name
/// (PropertyChanged() and dirtyProperties()).
class TARNWELL_EXPORT ControlFrame : public QFrame
{
    Q_OBJECT
    /** @name Appearance and state */
    ///@{
    /// Background colour of the text (default OleColor::WindowBackground, the palette's Base).
    Q_PROPERTY(Tarnwell::OleColor BackColor READ BackColor WRITE setBackColor)
    /// Text colour while the control is enabled (default OleColor::WindowText).
    Q_PROPERTY(Tarnwell::OleColor ForeColor READ ForeColor WRITE setForeColor)
    /// Text colour while the control is disabled (default OleColor::GrayText).
    Q_PROPERTY(Tarnwell::OleColor DisabledColor READ DisabledColor WRITE setDisabledColor)
    /// Whether the control takes input; the frame's own setting (default true).
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    /// The font of the text (default the ambient font: the parent widget's).
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    /// The frame border (default Tarnwell::twFixed3D, the style's sunken line-edit panel); a value outside
    /// the constants throws Error(380).
    Q_PROPERTY(Tarnwell::twBorderStyleConstants BorderStyle READ BorderStyle WRITE setBorderStyle)
    /// Horizontal alignment of the text; a value outside the constants throws Error(380).
    Q_PROPERTY(Tarnwell::twAlignmentConstants Alignment READ Alignment WRITE setAlignment)
    ///@}

    /** @name Behaviour */
    ///@{
    /// The text can be selected and copied but not changed, by keys or by the up-down button
    /// (default false).
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    /// Entering the control selects all its text.
    Q_PROPERTY(bool SelectTextOnFocus READ SelectTextOnFocus WRITE setSelectTextOnFocus)
    /// `Value` gives Null (a QVariant holding std::nullptr_t) rather than Empty (an invalid
    /// QVariant) when there is no valid value or the check box is cleared (default false).
    Q_PROPERTY(bool NullIfEmpty READ NullIfEmpty WRITE setNullIfEmpty)
    /// Enter moves the focus on as Tab does, and is not raised as a key (default false).
    Q_PROPERTY(bool EnterAsTab READ EnterAsTab WRITE setEnterAsTab)
    /// The tool tip of the control and its inner widgets.
    Q_PROPERTY(QString ToolTip READ ToolTip WRITE setToolTip)
    ///@}

    /** @name Check box */
    ///@{
    /// A check box `Check1` is shown left of the text (default false); while it is cleared the
    /// text is hidden and `Value` holds no value.
    Q_PROPERTY(bool CheckBox READ CheckBox WRITE setCheckBox)
    /// The state of the check box, as a click leaves it: the text's visibility follows, and
    /// Change is raised.
    Q_PROPERTY(bool Checked READ Checked WRITE setChecked)
    ///@}

    /** @name Mouse pointer, drag and drop */
    ///@{
    /// The picture of the mouse pointer while #MousePointer is MousePointerCustom (99).
    Q_PROPERTY(QPixmap MouseIcon READ MouseIcon WRITE setMouseIcon)
    /// The mouse pointer over the text: 0 (default) to 15 map onto Qt's cursor shapes, 99 uses
    /// #MouseIcon; any other number throws Error(380).
    Q_PROPERTY(int MousePointer READ MousePointer WRITE setMousePointer)
    /// How a drag starts: OLEDragManual (0, default: OLEDrag() starts one) or OLEDragAutomatic
    /// (1: the text box drags its selection by itself). Error(380) for any other number.
    Q_PROPERTY(int OLEDragMode READ OLEDragMode WRITE setOLEDragMode)
    /// What a drop does: OLEDropNone (0, default), OLEDropManual (1: the OLEDragOver and
    /// OLEDragDrop events) or OLEDropAutomatic (2: the text box takes the drop). Error(380) for
    /// any other number.
    Q_PROPERTY(int OLEDropMode READ OLEDropMode WRITE setOLEDropMode)
    ///@}

    /** @name Selection (run time) */
    ///@{
    /// The caret position, or the start of the selection, in characters.
    Q_PROPERTY(int SelStart READ SelStart WRITE setSelStart DESIGNABLE false STORED false)
    /// The number of characters selected.
    Q_PROPERTY(int SelLength READ SelLength WRITE setSelLength DESIGNABLE false STORED false)
    /// The selected text. Setting it replaces the selection where the control allows it
    /// (NumberBox); elsewhere it is refused.
    Q_PROPERTY(QString SelText READ SelText WRITE setSelText DESIGNABLE false STORED false)
    ///@}

public:
    /// Mouse-pointer constants of the host (0..15, and 99 for the custom #MouseIcon).
    enum { MousePointerDefault = 0, MousePointerSizeAll = 15, MousePointerCustom = 99 };
    /// Drag modes: 0 manual (OLEDrag starts a drag), 1 automatic (the text box drags by itself).
    enum { OLEDragManual = 0, OLEDragAutomatic = 1 };
    /// Drop modes: 0 none, 1 manual (OLEDragOver/OLEDragDrop events), 2 automatic (text box drops).
    enum { OLEDropNone = 0, OLEDropManual = 1, OLEDropAutomatic = 2 };
    /// Drop effects carried by the OLE events (a mask: copy, move, scroll).
    enum { EffectNone = 0, EffectCopy = 1, EffectMove = 2, EffectScroll = int(0x80000000) };
    /// States of OLEDragOver: the drag entered, left or moved over the control.
    enum { DragEnter = 0, DragLeave = 1, DragOver = 2 };

    /// Twips in one logical pixel: the host's sizes and mouse coordinates are in twips.
    static constexpr int TwipsPerPixel = 15;
    /// Width of a new control in twips (110 pixels).
    static constexpr int DefaultWidthTwips = 1650;
    /// Height of a new control in twips (21 pixels).
    static constexpr int DefaultHeightTwips = 315;

    ~ControlFrame() override;

    /** @name Appearance and state */
    ///@{
    /// Reads #BackColor.
    OleColor BackColor() const;
    /// Sets #BackColor.
    void setBackColor(OleColor color);
    /// Reads #ForeColor.
    OleColor ForeColor() const;
    /// Sets #ForeColor.
    void setForeColor(OleColor color);
    /// Reads #DisabledColor.
    OleColor DisabledColor() const;
    /// Sets #DisabledColor.
    void setDisabledColor(OleColor color);
    /// Reads #Enabled: the frame's own setting; a disabled parent form does not change it.
    bool Enabled() const;
    /// Sets #Enabled.
    void setEnabled(bool enabled);
    /// Reads #Font.
    QFont Font() const { return font(); }
    /// Sets #Font; the inner widgets take it too.
    void setFont(const QFont &font);
    /// Reads #BorderStyle.
    twBorderStyleConstants BorderStyle() const;
    /// Sets #BorderStyle; Error(380) outside the constants.
    void setBorderStyle(twBorderStyleConstants style);
    /// Reads #Alignment.
    twAlignmentConstants Alignment() const;
    /// Sets #Alignment; Error(380) outside the constants.
    void setAlignment(twAlignmentConstants alignment);
    ///@}

    /** @name Behaviour */
    ///@{
    /// Reads #Locked.
    bool Locked() const;
    /// Sets #Locked.
    void setLocked(bool locked);
    /// Reads #SelectTextOnFocus.
    bool SelectTextOnFocus() const;
    /// Sets #SelectTextOnFocus.
    void setSelectTextOnFocus(bool on);
    /// Reads #NullIfEmpty.
    bool NullIfEmpty() const;
    /// Sets #NullIfEmpty.
    void setNullIfEmpty(bool on);
    /// Reads #EnterAsTab.
    bool EnterAsTab() const;
    /// Sets #EnterAsTab.
    void setEnterAsTab(bool on);
    /// Reads #ToolTip.
    QString ToolTip() const { return toolTip(); }
    /// Sets #ToolTip.
    void setToolTip(const QString &text);
    ///@}

    /** @name Check box */
    ///@{
    /// Reads #CheckBox.
    bool CheckBox() const;
    /// Sets #CheckBox.
    void setCheckBox(bool on);
    /// Reads #Checked.
    bool Checked() const;
    /// Sets #Checked, as a click on the check box would.
    void setChecked(bool on);
    ///@}

    /** @name Mouse pointer, drag and drop */
    ///@{
    /// Reads #MouseIcon.
    QPixmap MouseIcon() const;
    /// Sets #MouseIcon.
    void setMouseIcon(const QPixmap &icon);
    /// Reads #MousePointer.
    int MousePointer() const;
    /// Sets #MousePointer; Error(380) for a number that is no pointer.
    void setMousePointer(int pointer);
    /// Reads #OLEDragMode.
    int OLEDragMode() const;
    /// Sets #OLEDragMode; Error(380) outside 0..1.
    void setOLEDragMode(int mode);
    /// Reads #OLEDropMode.
    int OLEDropMode() const;
    /// Sets #OLEDropMode; Error(380) outside 0..2.
    void setOLEDropMode(int mode);
    ///@}

    /** @name Selection (run time) */
    ///@{
    /// Reads #SelStart.
    int SelStart() const;
    void setSelStart(int start);   ///< Error(380) below 0; beyond the text it goes to the end
    /// Reads #SelLength.
    int SelLength() const;
    void setSelLength(int length); ///< Error(380) below 0; clipped at the end of the text
    /// Reads #SelText.
    QString SelText() const;
    /// Replaces the selection. Refused by default: Error(387) at design time, Error(382) at run
    /// time.
    virtual void setSelText(const QString &text);
    ///@}

    /// Repaints the control and its inner widgets.
    Q_INVOKABLE void Refresh();
    /// Starts a drag of the selected text: OLEStartDrag, the drag itself, OLECompleteDrag.
    Q_INVOKABLE void OLEDrag();

    /** @name The host site */
    ///@{
    bool UserMode() const; ///< true at run time (the default)
    /// Puts the control into run mode (true) or design mode (false), as a form designer does.
    void setUserMode(bool runTime);
    /// The host's can-property-change query: returns whether the property `name` may change.
    using CanPropertyChangeHook = std::function<bool(const QString &name)>;
    /// Installs the can-property-change query consulted before `Value` changes (default: every
    /// change allowed).
    void setCanPropertyChangeHook(CanPropertyChangeHook hook);
    /// Asks the installed query whether `name` may change (true without one).
    bool canPropertyChange(const QString &name) const;
    QStringList dirtyProperties() const; ///< in the order first marked
    /// Whether `name` was reported changed since the last clearDirty().
    bool isDirty(const QString &name) const;
    /// Forgets the properties reported changed (a host calls it after saving).
    void clearDirty();
    ///@}

    /// The control holds the keyboard focus itself, as QAbstractSpinBox does for its line edit:
    /// the inner text widget has the control as its focus proxy, and the control hands it its
    /// keys, composed text and focus changes, so that an item delegate's or a data mapper's event
    /// filter on the control sees them all, and keys the control leaves ignored (Enter, Escape)
    /// go on to its parents. The focus policy is that of the control's Qt peer.
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    /** @name Per-instance flags */
    ///@{
    /// The focus is somewhere in the control (on it, or on one of its inner widgets).
    bool controlHasFocus() const;
    /// The focus is on the check box Check1.
    bool checkHasFocus() const;
    /// The control is writing its own inner widgets (their change notifications are ignored).
    bool isUpdating() const;
    ///@}

    /// What a QLineEdit of the same style and font asks for (a spin box's height when the
    /// control shows buttons), widened by the check box and the buttons. A control no layout
    /// manages keeps the documented default size.
    QSize sizeHint() const override;
    /// The smallest size sizeHint() allows, computed the same way.
    QSize minimumSizeHint() const override;

signals:
    /** @name Mouse events
     * Coordinates are in twips (#TwipsPerPixel to a pixel) relative to the text box; `Button`
     * is 1 left, 2 right, 4 middle (MouseMove: a mask of the buttons held); `Shift` is the
     * mask 1 Shift, 2 Ctrl, 4 Alt. */
    ///@{
    /// A left click on the text.
    void Click();
    /// A double click on the text.
    void DblClick();
    /// A mouse button went down over the text.
    void MouseDown(short &Button, short &Shift, float &X, float &Y);
    /// The mouse moved over the text.
    void MouseMove(short &Button, short &Shift, float &X, float &Y);
    /// A mouse button came up over the text.
    void MouseUp(short &Button, short &Shift, float &X, float &Y);
    ///@}

    /** @name Drag-and-drop events
     * Effects are masks of EffectCopy, EffectMove and EffectScroll; `Data` is the dragged
     * data, valid during the handler only. */
    ///@{
    /// A drag started from the control ended with `Effect` (EffectNone when it was cancelled).
    void OLECompleteDrag(int &Effect);
    /// Something was dropped on the control (#OLEDropMode manual); set `Effect` to what was done.
    void OLEDragDrop(Tarnwell::DataObject *Data, int &Effect, short &Button, short &Shift,
                     float &X, float &Y);
    /// A drag entered, moved over or left the control (`State`: DragEnter, DragOver,
    /// DragLeave; #OLEDropMode manual); set `Effect` to what a drop would do.
    void OLEDragOver(Tarnwell::DataObject *Data, int &Effect, short &Button, short &Shift,
                     float &X, float &Y, short &State);
    /// A drag from the control moved over a target that would take it with `Effect`
    /// (`DefaultCursors` comes in true: Qt draws the drag cursors).
    void OLEGiveFeedback(int &Effect, bool &DefaultCursors);
    /// A drop target asked for `DataFormat`, declared on `Data` without a value: supply it with
    /// DataObject::SetData().
    void OLESetData(Tarnwell::DataObject *Data, short &DataFormat);
    /// A drag starts: put what is dragged into `Data` (the selected text when left empty) and
    /// narrow `AllowedEffects` (EffectNone cancels the drag).
    void OLEStartDrag(Tarnwell::DataObject *Data, int &AllowedEffects);
    ///@}

    /** @name Change and keyboard events
     * For one key: KeyDown, then keyPress for a key that types a character, then KeyUp. Each is
     * raised before the control handles the key, so a handler connected directly may change or
     * cancel it (zero `KeyCode` or `KeyAscii`). */
    ///@{
    /// The text or the value changed: once per accepted keystroke, step, paste or set.
    void Change();
    /// A key went down: `KeyCode` a virtual-key code (Enter 13, Delete 46, Up 38, Down 40...),
    /// `Shift` the mask 1 Shift, 2 Ctrl, 4 Alt.
    void KeyDown(short &KeyCode, short &Shift);
    /// A key typed the character `KeyAscii` (Backspace 8, Ctrl+C 3, Ctrl+V 22); spelled with a
    /// small k. Zero it to swallow the character, change it to have another one typed.
    void keyPress(short &KeyAscii);
    /// A key came up.
    void KeyUp(short &KeyCode, short &Shift);
    ///@}

    /// A property reported changed to the host (also recorded in dirtyProperties()).
    void PropertyChanged(const QString &name);

    /// A value written through the control's USER property (as an item delegate or a widget
    /// mapper writes it) was refused with Error `errorNumber`; the control is as it was. Such a
    /// write never throws: Qt's event loop is what would receive the exception.
    void valueRefused(const QVariant &value, int errorNumber);

protected:
    /// @cond INTERNAL
    // Makes the inner widgets that carry a control's text. Without one, a control gets the line
    // editor: the text box Text1 and the check box Check1. A control built on other widgets (an
    // inner MaskBox) hands its own.
    using EditorFactory = std::function<std::unique_ptr<FrameEditor>(ControlFrame &frame)>;
    // The common values are those of a new control; the subclass sets its own defaults after.
    explicit ControlFrame(QWidget *parent, const EditorFactory &makeEditor = nullptr);

    // Raises isUpdating() for its lifetime (nests: the previous state comes back).
    class TARNWELL_EXPORT UpdatingGuard
    {
    public:
        explicit UpdatingGuard(ControlFrame &frame);
        ~UpdatingGuard();
        UpdatingGuard(const UpdatingGuard &) = delete;
        UpdatingGuard &operator=(const UpdatingGuard &) = delete;

    private:
        ControlFrame &m_frame;
        bool m_old;
    };

    FrameEditor &editor() const;
    // The line editor's text box (null for a control with another editor). Text a control writes
    // goes through writeText(), so that it is told apart from text arriving without keys.
    QLineEdit *Text1() const;
    // The line editor's check box; created on first use (it starts hidden).
    QCheckBox *Check1() const;
    // The text as shown in the text box (or the inner box).
    QString shownText() const;
    // Writes the line editor's text box: only when the text differs, then the selection.
    void writeText(const QString &text, int selStart, int selLength = 0);
    // Ticks or clears the check box as a click would: Checked, the text's visibility, Change.
    void setCheckValue(bool ticked);
    // Whether the controls that act on the value (up-down button, calendar) may be used: the
    // frame is enabled and the check box, if shown, is ticked.
    bool valueControlsEnabled() const;

    // The defaults of the common properties for this kind of control (a static object); they
    // are those of MaskBox unless the control names its own.
    void setCommonDefaults(const CommonDefaults &defaults);
    const CommonDefaults &commonDefaults() const;

    // What Value gives when there is no value: Null with NullIfEmpty, else Empty.
    QVariant noValue() const;
    // The start of a Value set the date and time controls share: Error(387) at design time;
    // nothing (nullopt) when the host's can-property-change query refuses; otherwise "Value" is
    // reported changed, a Null clears a shown check box (the enabled state of the value controls
    // follows), and the value to set comes back with Null and "" turned into Empty.
    std::optional<QVariant> beginValueSet(const QVariant &value);

    // Reports `name` changed to the host: dirty set and PropertyChanged.
    void markDirty(const QString &name);
    // Refuses a set of a property that is read-only once placed: 387 at design time, 382 at
    // run time.
    [[noreturn]] void refuseSet() const;

    // --- Key pipeline hooks. Each runs after the host's event of the same name.
    // Zero keyCode to consume a key that types no character (Delete, arrows).
    virtual void handleKeyDown(short &keyCode, short &shift);
    // Zero keyAscii to consume the character; change it to have another character typed. Enter
    // and Escape are typed by no control: unless the host cancelled them, they go on to the
    // parents whatever this hook does. The characters of a composed text (an input method's
    // commit) come here one by one; those passed on are typed together once the commit is done,
    // so a hook that reads the text sees it as it stood before them.
    virtual void handleKeyPress(short &keyAscii);
    virtual void handleKeyUp(short &keyCode, short &shift);
    // Whether a key that application shortcuts might claim (Ctrl+V, Ctrl+X, Ctrl+Z, Ctrl+C,
    // Shift+Insert, Shift+Delete, Ctrl+Insert) is kept for the key pipeline. Default: all of
    // them, so that handleKeyPress decides.
    virtual bool keepsShortcutKey(short keyCode, short shift, short keyAscii) const;

    // --- The text changed: by a key, by the control's own write, or (line editor) by text that
    // arrived without keys and was taken; `text` is the text as now shown. Default: mark "Value"
    // dirty and raise Change unless isUpdating().
    virtual void onTextChanged(const QString &text);
    // Text arrived in the text box without keys (a paste from the context menu, a drop, an
    // undo, a program's call on the text box) while the control is not Locked (a Locked
    // control takes none of it: `previous` comes back). Default: keep it, as onTextChanged(text)
    // reports. A control may write its own text instead (writeText()).
    virtual void onForeignText(const QString &text, const QString &previous);

    // --- Focus entering or leaving the control as a whole (moves between its own inner widgets
    // are not seen). controlHasFocus() turns on / off before the hook. Default: entering
    // selects all the text when SelectTextOnFocus.
    virtual void onEnterFocus();
    virtual void onExitFocus();

    // --- A drag entering, moving over or dropping on the text box; true when the control took
    // it. Default: not taken (the drop modes decide).
    virtual bool filterDrop(QEvent *event);

    // --- The check box's value changed (user or code): Checked, the text's visibility, focus
    // into the text when the user ticked it, updateValueControls(), this hook, then Change
    // unless isUpdating().
    virtual void afterCheckClick() {}
    // The enabled state of the controls that act on the value (valueControlsEnabled()) may have
    // changed: Enabled, CheckBox or Checked moved. Default: nothing.
    virtual void updateValueControls() {}

    // --- Layout: the text (and check box) from the inner size, BorderStyle and CheckBox, less
    // `reservedWidth()` twips at the right. Runs on resize and after the border changes.
    virtual void relayout();
    virtual int reservedWidth() const { return 0; }
    // The inner size the layout works from, in twips.
    int innerWidthTwips() const;
    int innerHeightTwips() const;
    // Places a child in twips relative to the inner area (sizes below zero become zero).
    void placeTwips(QWidget *child, int left, int top, int width, int height);

    // --- Colours and border.
    // The text colour: ForeColor while enabled, DisabledColor while not.
    virtual OleColor textColor() const;
    // Applies textColor() and BackColor to the text; a control with more text boxes adds them.
    virtual void applyTextColor();
    // Paints a text box of this control in textColor() on BackColor, as Text1 is painted.
    void paintTextBox(QWidget *box) const;
    // Frame shape from BorderStyle, the text colour, then the layout.
    void applyBorder();
    // A colour resolved against this control's palette (system colours included).
    QColor resolveColor(OleColor color) const;

    // The ambient font: the parent widget's font, else the application font.
    QFont ambientFont() const;

    // QWidget
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;

    /// @endcond

private:
    // Every private member lives in the private part, which the frame's own helpers (the editors,
    // the key pipeline, the stepper, the focus tracker) reach instead of befriending the frame.
    Q_DECLARE_PRIVATE_D(m_d, ControlFrame)
    std::unique_ptr<ControlFramePrivate> m_d;
};

} // namespace Tarnwell
