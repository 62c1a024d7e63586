#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/global.h>
#include <tarnwell/olecolor.h>

#include <QFont>
#include <QFrame>
#include <QPixmap>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <functional>

class QCheckBox;
class QDragEnterEvent;
class QDragMoveEvent;
class QDropEvent;
class QFocusEvent;
class QKeyEvent;
class QLineEdit;
class QMouseEvent;

namespace Tarnwell {

class DataObject;
class PropertyBag;

// The outer frame every Tarnwell control is built on: it owns the common properties, forwards
// them to the inner text box `Text1` and check box `Check1`, relays their events to the host under
// the control's own event names, and runs the key pipeline that lets first the host and then the
// control itself change or consume each keystroke.
//
// Events carrying arguments by reference must be connected with Qt::DirectConnection (or the
// default automatic connection on the GUI thread): a queued connection cannot hand the changed
// value back, and Qt refuses to queue reference arguments.
//
// A control derives from ControlFrame, adds its own inner widgets and properties, and overrides
// the virtual hooks of the protected section (key handling, text change, focus, check-box click,
// layout, SelText).
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

    explicit ControlFrame(QWidget *parent = nullptr);
    ~ControlFrame() override;

    // Common properties. Every setter marks the property dirty under its own name; refused values
    // throw Error(380) and leave the control unchanged.
    OleColor BackColor() const { return m_backColor; }
    void setBackColor(OleColor color);
    OleColor ForeColor() const { return m_foreColor; }
    void setForeColor(OleColor color);
    OleColor DisabledColor() const { return m_disabledColor; }
    void setDisabledColor(OleColor color);
    // The frame's own enabled state. Hides QWidget::setEnabled so that the text colour follows;
    // a call through a QWidget pointer is caught by changeEvent() all the same.
    bool Enabled() const;
    void setEnabled(bool enabled);
    QFont Font() const;
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
    QString ToolTip() const;
    void setToolTip(const QString &text);
    bool CheckBox() const { return m_checkBox; }
    void setCheckBox(bool on);
    bool Checked() const { return m_checked; }
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
    // Starts a drag of Text1's selection: OLEStartDrag, the drag itself, OLECompleteDrag.
    Q_INVOKABLE void OLEDrag();

    // The host site.
    bool UserMode() const { return m_userMode; }  // true at run time (the default)
    void setUserMode(bool runTime);
    using CanPropertyChangeHook = std::function<bool(const QString &name)>;
    void setCanPropertyChangeHook(CanPropertyChangeHook hook);
    bool CanPropertyChange(const QString &name) const;
    QStringList dirtyProperties() const { return m_dirty; } // in the order first marked
    bool isDirty(const QString &name) const { return m_dirty.contains(name); }
    void clearDirty() { m_dirty.clear(); }

    // Per-instance flags.
    bool HasFocus() const { return m_hasFocus; }
    bool CheckHasFocus() const { return m_checkHasFocus; }
    bool Updating() const { return m_updating; }

    // Layout arithmetic shared by the controls (all in twips unless named pixels).
    static int borderAllowanceX(twBorderStyleConstants style); // 15, 45, 80
    static int borderAllowanceY(twBorderStyleConstants style); // 15, 45, 75
    static int twipsToPixels(double twips);                   // nearest pixel, halves to even
    static double pixelsToTwips(double pixels) { return pixels * TwipsPerPixel; }
    static int roundHalfEven(double value);
    // The check box's top edge: the nearest whole pixel to half the free height, in twips.
    static int checkBoxTopTwips(int textHeightTwips, int checkHeightTwips);
    // Mouse-pointer constant to cursor shape (ArrowCursor for 99 and anything unknown).
    static Qt::CursorShape cursorShapeFor(int mousePointer);

    // Keys of the property bag that readCommon/writeCommon know.
    static const QStringList &commonKeys();

    // The documented default size, grown to fit the font: the text box gets the inner height less
    // the border allowance, so both are added back to the text box's own height.
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

protected:
    // Readers of property-bag values: anything unreadable throws Error(380), as a bad property
    // value does, so every control refuses a damaged bag the same way.
    static bool bagBool(const QVariant &value);
    static qint64 bagInt(const QVariant &value, qint64 lowest, qint64 highest);
    static OleColor bagColor(const QVariant &value);
    static QString bagString(const QVariant &value);
    // Refuses a set of a property that is read-only once placed: 387 at design time, 382 at
    // run time.
    [[noreturn]] void refuseSet() const;

    // Raises Updating for its lifetime (nests: the previous state comes back).
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

    QLineEdit *Text1() const { return m_text1; }
    QCheckBox *Check1() const { return m_check1; }

    // Reports `name` changed to the host: dirty set and PropertyChanged.
    void markDirty(const QString &name);
    void setUpdating(bool on) { m_updating = on; }

    // --- Key pipeline hooks (Text1's keys). Each runs after the host's event of the same name.
    // Zero keyCode to consume a key that types no character (Delete, arrows).
    virtual void handleKeyDown(short &keyCode, short &shift);
    // Zero keyAscii to consume the character; change it to have another character typed.
    virtual void handleKeyPress(short &keyAscii);
    virtual void handleKeyUp(short &keyCode, short &shift);
    // Whether a key that application shortcuts might claim (Ctrl+V, Ctrl+X, Ctrl+Z, Ctrl+C,
    // Shift+Insert, Shift+Delete, Ctrl+Insert) is kept for Text1's key pipeline. Default: all
    // of them, so that handleKeyPress decides.
    virtual bool keepsShortcutKey(short keyCode, short shift, short keyAscii) const;

    // --- Text1's text changed. Default: mark "Value" dirty and raise Change unless Updating.
    virtual void onTextChanged();

    // --- Focus entering or leaving the control as a whole (moves between its own inner widgets
    // are not seen). Defaults: HasFocus is set / cleared by the caller before the hook; entering
    // selects all of Text1 when SelectTextOnFocus.
    virtual void onEnterFocus();
    virtual void onExitFocus();
    // Whether the focus widget belongs to this control (default: it is this frame or inside it).
    // A control with a popup window of its own widens this.
    virtual bool containsFocusWidget(const QWidget *widget) const;

    // --- Check1's value changed (user or code). Default: Checked from Check1, Text1's
    // visibility, focus to Text1 when the user ticked it, afterCheckClick(), Change unless
    // Updating.
    virtual void onCheckClick();
    virtual void afterCheckClick() {}
    // Text1 shown when CheckBox is off or Checked is on.
    void applyCheckVisibility();

    // --- Layout. Default: Text1 and Check1 from the inner size, BorderStyle and CheckBox.
    // Runs on resize and from applyBorder(), so it must not call applyBorder() itself.
    virtual void relayout();
    // The inner size the layout works from, in twips.
    int innerWidthTwips() const;
    int innerHeightTwips() const;
    // Places a child in twips relative to the inner area (sizes below zero become zero).
    void placeTwips(QWidget *child, int left, int top, int width, int height);

    // --- Colours and border.
    // Text1's text colour: ForeColor while enabled, DisabledColor while not.
    virtual void applyTextColor();
    // Frame shape from BorderStyle, the text colour, then Text1's back colour onto the frame.
    virtual void applyBorder();
    // A colour resolved against this control's palette (system colours included).
    QColor resolveColor(OleColor color) const;
    // Puts a text and a base colour on a widget's palette in every colour group.
    static void paintWidget(QWidget *widget, const QColor &text, const QColor &base);

    // Lets a frameless line edit shorter than its font's line show the whole of its capitals and
    // descenders (text margins shift the line; none when the line fits).
    static void fitTextLine(QLineEdit *edit);

    // The ambient font: the parent widget's font, else the application font.
    QFont ambientFont() const;

    // --- Persistence of the common keys (see commonKeys()), one key at a time, because each
    // control has its own key order. Reading assigns the inner widgets directly (no dirty marks);
    // "Alignment" is read with Updating raised; "Checked" runs the check-box click logic;
    // "CheckBox" re-lays out. A bad value in the bag throws Error(380). Returns false for a key
    // that is not a common one. The defaults are those of a new control.
    bool readCommon(const PropertyBag &bag, const QString &key);
    bool writeCommon(PropertyBag &bag, const QString &key) const;
    void readCommon(const PropertyBag &bag, const QStringList &keys);
    void writeCommon(PropertyBag &bag, const QStringList &keys) const;
    QVariant commonDefault(const QString &key) const;
    // Common defaults of a new control: colours, 3-D border, SelectTextOnFocus, Checked, no
    // check box, 110 x 21 pixels; then the border is applied.
    void initCommon();

    // QWidget
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool filterTextEvent(QEvent *event);
    bool textKeyPress(QKeyEvent *event);
    bool textKeyRelease(QKeyEvent *event);
    bool textShortcutOverride(QKeyEvent *event);
    void deliverChangedCharacter(QKeyEvent *original, short keyAscii);
    bool textMouse(QMouseEvent *event);
    bool textDrag(QEvent *event);
    bool textFocusIn(QFocusEvent *event);
    void focusChanged(QWidget *old, QWidget *now);
    void applyCursor();
    void applyDropMode();
    void validateBorderStyle(int style) const;

    QLineEdit *m_text1 = nullptr;
    QCheckBox *m_check1 = nullptr;

    OleColor m_backColor = OleColor::WindowBackground;
    OleColor m_foreColor = OleColor::WindowText;
    OleColor m_disabledColor = OleColor::GrayText;
    twBorderStyleConstants m_borderStyle = twFixed3D;
    bool m_selectTextOnFocus = true;
    bool m_nullIfEmpty = false;
    bool m_enterAsTab = false;
    bool m_checkBox = false;
    bool m_checked = true;
    QPixmap m_mouseIcon;
    int m_mousePointer = 0;
    int m_oleDragMode = 0;
    int m_oleDropMode = 0;

    bool m_userMode = true;
    CanPropertyChangeHook m_canPropertyChange;
    QStringList m_dirty;

    bool m_hasFocus = false;
    bool m_checkHasFocus = false;
    bool m_updating = false;
    bool m_applyingPalette = false;
    bool m_replayingKey = false;
    bool m_suppressClick = false;
    QPointer<DataObject> m_dragData;
    QMetaObject::Connection m_focusConnection;
};

} // namespace Tarnwell
