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

class DataObject;
struct CommonDefaults;
enum class CommonKey;
class FrameEditor;
class InnerMaskEditor;
class LineEditor;
class PropertyBag;

// The outer frame every Tarnwell control is built on. It is the host's site (design or run
// time, the can-property-change query, the set of properties reported changed), keeps the
// focus and updating flags, draws the border, raises the events, and stores the common
// properties, which it applies to the inner widgets through an editor: a line editor (the text
// box Text1 and the check box Check1, for MaskBox and NumberBox) or an inner-mask editor (an
// inner MaskBox, for DateBox and TimeBox).
//
// Events carrying arguments by reference must be connected with Qt::DirectConnection (or the
// default automatic connection on the GUI thread): a queued connection cannot hand the changed
// value back, and Qt refuses to queue reference arguments.
//
// Refused property values throw Error(380) and leave the control as it was. QWidget's own
// setEnabled, setFont and setToolTip, called through a QWidget pointer, have the same effect on
// the control as Enabled, Font and ToolTip (only the property is not reported changed).
class TARNWELL_EXPORT ControlFrame : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(Tarnwell::OleColor BackColor READ BackColor WRITE setBackColor)
    Q_PROPERTY(Tarnwell::OleColor ForeColor READ ForeColor WRITE setForeColor)
    Q_PROPERTY(Tarnwell::OleColor DisabledColor READ DisabledColor WRITE setDisabledColor)
    Q_PROPERTY(bool Enabled READ Enabled WRITE setEnabled)
    Q_PROPERTY(QFont Font READ Font WRITE setFont)
    Q_PROPERTY(Tarnwell::twBorderStyleConstants BorderStyle READ BorderStyle WRITE setBorderStyle)
    Q_PROPERTY(Tarnwell::twAlignmentConstants Alignment READ Alignment WRITE setAlignment)
    Q_PROPERTY(bool Locked READ Locked WRITE setLocked)
    Q_PROPERTY(bool SelectTextOnFocus READ SelectTextOnFocus WRITE setSelectTextOnFocus)
    Q_PROPERTY(bool NullIfEmpty READ NullIfEmpty WRITE setNullIfEmpty)
    Q_PROPERTY(bool EnterAsTab READ EnterAsTab WRITE setEnterAsTab)
    Q_PROPERTY(QString ToolTip READ ToolTip WRITE setToolTip)
    Q_PROPERTY(bool CheckBox READ CheckBox WRITE setCheckBox)
    Q_PROPERTY(bool Checked READ Checked WRITE setChecked)
    Q_PROPERTY(QPixmap MouseIcon READ MouseIcon WRITE setMouseIcon)
    Q_PROPERTY(int MousePointer READ MousePointer WRITE setMousePointer)
    Q_PROPERTY(int OLEDragMode READ OLEDragMode WRITE setOLEDragMode)
    Q_PROPERTY(int OLEDropMode READ OLEDropMode WRITE setOLEDropMode)
    Q_PROPERTY(int SelStart READ SelStart WRITE setSelStart DESIGNABLE false STORED false)
    Q_PROPERTY(int SelLength READ SelLength WRITE setSelLength DESIGNABLE false STORED false)
    Q_PROPERTY(QString SelText READ SelText WRITE setSelText DESIGNABLE false STORED false)

public:
    // Mouse-pointer constants of the host (0..15, and 99 for the custom MouseIcon).
    enum { MousePointerDefault = 0, MousePointerSizeAll = 15, MousePointerCustom = 99 };
    // Drag modes: 0 manual (OLEDrag starts a drag), 1 automatic (the text box drags by itself).
    // Drop modes: 0 none, 1 manual (OLEDragOver/OLEDragDrop events), 2 automatic (text box drops).
    enum { OLEDragManual = 0, OLEDragAutomatic = 1 };
    enum { OLEDropNone = 0, OLEDropManual = 1, OLEDropAutomatic = 2 };
    // Drop effects carried by the OLE events.
    enum { EffectNone = 0, EffectCopy = 1, EffectMove = 2, EffectScroll = int(0x80000000) };
    // States of OLEDragOver.
    enum { DragEnter = 0, DragLeave = 1, DragOver = 2 };

    static constexpr int TwipsPerPixel = 15;
    static constexpr int DefaultWidthTwips = 1650;
    static constexpr int DefaultHeightTwips = 315;

    ~ControlFrame() override;

    // Common properties. Every setter reports the property changed under its own name.
    OleColor BackColor() const { return m_backColor; }
    void setBackColor(OleColor color);
    OleColor ForeColor() const { return m_foreColor; }
    void setForeColor(OleColor color);
    OleColor DisabledColor() const { return m_disabledColor; }
    void setDisabledColor(OleColor color);
    // The frame's own setting; a disabled parent form does not change it.
    bool Enabled() const;
    void setEnabled(bool enabled);
    QFont Font() const { return font(); }
    void setFont(const QFont &font);
    twBorderStyleConstants BorderStyle() const { return m_borderStyle; }
    void setBorderStyle(twBorderStyleConstants style);
    twAlignmentConstants Alignment() const;
    void setAlignment(twAlignmentConstants alignment);
    bool Locked() const;
    void setLocked(bool locked);
    bool SelectTextOnFocus() const { return m_selectTextOnFocus; }
    void setSelectTextOnFocus(bool on);
    bool NullIfEmpty() const { return m_nullIfEmpty; }
    void setNullIfEmpty(bool on);
    bool EnterAsTab() const { return m_enterAsTab; }
    void setEnterAsTab(bool on);
    QString ToolTip() const { return toolTip(); }
    void setToolTip(const QString &text);
    bool CheckBox() const { return m_checkBox; }
    void setCheckBox(bool on);
    bool Checked() const;
    void setChecked(bool on);
    QPixmap MouseIcon() const { return m_mouseIcon; }
    void setMouseIcon(const QPixmap &icon);
    int MousePointer() const { return m_mousePointer; }
    void setMousePointer(int pointer);
    int OLEDragMode() const { return m_oleDragMode; }
    void setOLEDragMode(int mode);
    int OLEDropMode() const { return m_oleDropMode; }
    void setOLEDropMode(int mode);
    int SelStart() const;
    void setSelStart(int start);   // Error(380) below 0; beyond the text it goes to the end
    int SelLength() const;
    void setSelLength(int length); // Error(380) below 0; clipped at the end of the text
    QString SelText() const;
    // Refused by default: Error(387) at design time, Error(382) at run time.
    virtual void setSelText(const QString &text);

    Q_INVOKABLE void Refresh();
    // Starts a drag of the selected text: OLEStartDrag, the drag itself, OLECompleteDrag.
    Q_INVOKABLE void OLEDrag();

    // The host site.
    bool UserMode() const { return m_userMode; } // true at run time (the default)
    void setUserMode(bool runTime);
    using CanPropertyChangeHook = std::function<bool(const QString &name)>;
    void setCanPropertyChangeHook(CanPropertyChangeHook hook);
    bool canPropertyChange(const QString &name) const;
    QStringList dirtyProperties() const { return m_dirty; } // in the order first marked
    bool isDirty(const QString &name) const { return m_dirty.contains(name); }
    void clearDirty() { m_dirty.clear(); }

    // The control holds the keyboard focus itself, as QAbstractSpinBox does for its line edit:
    // the inner text widget has the control as its focus proxy, and the control hands it its
    // keys, composed text and focus changes, so that an item delegate's or a data mapper's event
    // filter on the control sees them all, and keys the control leaves ignored (Enter, Escape)
    // go on to its parents. The focus policy is that of the control's Qt peer.
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

    // Per-instance flags: the focus is somewhere in the control (on it, or on one of its inner
    // widgets), the focus is on Check1, the control is writing its own inner widgets.
    bool controlHasFocus() const { return m_hasFocus; }
    bool checkHasFocus() const;
    bool isUpdating() const { return m_updating; }

    // What a QLineEdit of the same style and font asks for (a spin box's height when the
    // control shows buttons), widened by the check box and the buttons. A control no layout
    // manages keeps the documented default size.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void Click();
    void DblClick();
    void MouseDown(short &Button, short &Shift, float &X, float &Y);
    void MouseMove(short &Button, short &Shift, float &X, float &Y);
    void MouseUp(short &Button, short &Shift, float &X, float &Y);
    void OLECompleteDrag(int &Effect);
    void OLEDragDrop(Tarnwell::DataObject *Data, int &Effect, short &Button, short &Shift,
                     float &X, float &Y);
    void OLEDragOver(Tarnwell::DataObject *Data, int &Effect, short &Button, short &Shift,
                     float &X, float &Y, short &State);
    void OLEGiveFeedback(int &Effect, bool &DefaultCursors);
    void OLESetData(Tarnwell::DataObject *Data, short &DataFormat);
    void OLEStartDrag(Tarnwell::DataObject *Data, int &AllowedEffects);
    void Change();
    void KeyDown(short &KeyCode, short &Shift);
    void keyPress(short &KeyAscii);
    void KeyUp(short &KeyCode, short &Shift);

    // A property reported changed to the host (also recorded in dirtyProperties()).
    void PropertyChanged(const QString &name);

    // A value written through the control's USER property (as an item delegate or a widget
    // mapper writes it) was refused with Error `errorNumber`; the control is as it was. Such a
    // write never throws: Qt's event loop is what would receive the exception.
    void valueRefused(const QVariant &value, int errorNumber);

protected:
    // Makes the inner widgets that carry a control's text. Without one, a control gets the line
    // editor: the text box Text1 and the check box Check1. A control built on other widgets (an
    // inner MaskBox) hands its own.
    using EditorFactory = std::function<std::unique_ptr<FrameEditor>(ControlFrame &frame)>;
    // The common values are those of a new control; the subclass sets its own defaults after.
    explicit ControlFrame(QWidget *parent, const EditorFactory &makeEditor = nullptr);

    // Raises isUpdating() for its lifetime (nests: the previous state comes back).
    class UpdatingGuard
    {
    public:
        explicit UpdatingGuard(ControlFrame &frame) : m_frame(frame), m_old(frame.m_updating)
        {
            m_frame.m_updating = true;
        }
        ~UpdatingGuard() { m_frame.m_updating = m_old; }
        UpdatingGuard(const UpdatingGuard &) = delete;
        UpdatingGuard &operator=(const UpdatingGuard &) = delete;

    private:
        ControlFrame &m_frame;
        bool m_old;
    };

    FrameEditor &editor() const { return *m_editor; }
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
    const CommonDefaults &commonDefaults() const { return *m_commonDefaults; }

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
    // arrived without keys and was taken. Default: mark "Value" dirty and raise Change unless
    // isUpdating().
    virtual void onTextChanged();
    // Text arrived in the text box without keys (a paste from the context menu, a drop, an
    // undo, a program's call on the text box) while the control is not Locked (a Locked
    // control takes none of it: `previous` comes back). Default: keep it, as onTextChanged()
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

private:
    friend class CommonProperties;
    friend class FocusTracker;
    friend class InnerMaskEditor;
    friend class KeyPipeline;
    friend class LineEditor;
    friend class UpDownStepper;

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

    std::unique_ptr<FrameEditor> m_editor;
    const CommonDefaults *m_commonDefaults;
    LineEditor *m_line = nullptr;       // m_editor, for a line control

    OleColor m_backColor = OleColor::WindowBackground;
    OleColor m_foreColor = OleColor::WindowText;
    OleColor m_disabledColor = OleColor::GrayText;
    twBorderStyleConstants m_borderStyle = twFixed3D;
    bool m_selectTextOnFocus = true;
    bool m_nullIfEmpty = false;
    bool m_enterAsTab = false;
    bool m_checkBox = false;
    QPixmap m_mouseIcon;
    int m_mousePointer = 0;
    int m_oleDragMode = 0;
    int m_oleDropMode = 0;

    bool m_userMode = true;
    CanPropertyChangeHook m_canPropertyChange;
    QStringList m_dirty;

    bool m_hasFocus = false;
    bool m_updating = false;
};

} // namespace Tarnwell
