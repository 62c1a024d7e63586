#include <tarnwell/controlframe.h>

#include <climits>
#include <tarnwell/dataobject.h>
#include <tarnwell/error.h>
#include <tarnwell/propertybag.h>

#include "platform/keyboard.h"
#include "shared/keysender.h"

#include <QApplication>
#include <QCheckBox>
#include <QDrag>
#include <QDropEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStyle>

#include <cmath>

namespace Tarnwell {

namespace {

const QString kBackColor = QStringLiteral("BackColor");
const QString kForeColor = QStringLiteral("ForeColor");
const QString kDisabledColor = QStringLiteral("DisabledColor");
const QString kEnabled = QStringLiteral("Enabled");
const QString kFont = QStringLiteral("Font");
const QString kBorderStyle = QStringLiteral("BorderStyle");
const QString kAlignment = QStringLiteral("Alignment");
const QString kLocked = QStringLiteral("Locked");
const QString kSelectTextOnFocus = QStringLiteral("SelectTextOnFocus");
const QString kNullIfEmpty = QStringLiteral("NullIfEmpty");
const QString kEnterAsTab = QStringLiteral("EnterAsTab");
const QString kToolTip = QStringLiteral("ToolTip");
const QString kCheckBox = QStringLiteral("CheckBox");
const QString kChecked = QStringLiteral("Checked");
const QString kMouseIcon = QStringLiteral("MouseIcon");
const QString kMousePointer = QStringLiteral("MousePointer");
const QString kOLEDragMode = QStringLiteral("OLEDragMode");
const QString kOLEDropMode = QStringLiteral("OLEDropMode");

[[noreturn]] void refuse(int number = Error::InvalidPropertyValue)
{
    throw Error(number);
}

bool isValidMousePointer(int pointer)
{
    return (pointer >= 0 && pointer <= ControlFrame::MousePointerSizeAll)
           || pointer == ControlFrame::MousePointerCustom;
}

Qt::Alignment qtAlignment(twAlignmentConstants alignment)
{
    switch (alignment) {
    case twRightJustify: return Qt::AlignRight | Qt::AlignVCenter;
    case twCenter: return Qt::AlignHCenter | Qt::AlignVCenter;
    default: return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

short buttonBit(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton: return 1;
    case Qt::RightButton: return 2;
    case Qt::MiddleButton: return 4;
    default: return 0;
    }
}

short buttonMask(Qt::MouseButtons buttons)
{
    short mask = 0;
    for (Qt::MouseButton b : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (buttons & b)
            mask |= buttonBit(b);
    }
    return mask;
}

int effectOf(Qt::DropActions actions)
{
    int effect = ControlFrame::EffectNone;
    if (actions & Qt::CopyAction)
        effect |= ControlFrame::EffectCopy;
    if (actions & (Qt::MoveAction | Qt::TargetMoveAction))
        effect |= ControlFrame::EffectMove;
    return effect;
}

Qt::DropActions actionsOf(int effect)
{
    Qt::DropActions actions;
    if (effect & ControlFrame::EffectCopy)
        actions |= Qt::CopyAction;
    if (effect & ControlFrame::EffectMove)
        actions |= Qt::MoveAction;
    return actions;
}

// The one action a drop takes from the effect a host chose: move wins when the source allows it.
Qt::DropAction actionFor(int effect, Qt::DropActions possible)
{
    if ((effect & ControlFrame::EffectMove) && (possible & Qt::MoveAction))
        return Qt::MoveAction;
    if ((effect & ControlFrame::EffectCopy) && (possible & Qt::CopyAction))
        return Qt::CopyAction;
    return Qt::IgnoreAction;
}

// Bag values: numbers of any kind, and OLE colours stored as their own type or as a Long.
bool toInt(const QVariant &v, qint64 *out)
{
    if (v.userType() == qMetaTypeId<OleColor>()) {
        *out = qvariant_cast<OleColor>(v).value();
        return true;
    }
    bool ok = false;
    *out = v.toLongLong(&ok);
    return ok;
}

int intFrom(const QVariant &v)
{
    qint64 n = 0;
    if (!toInt(v, &n) || n < INT32_MIN || n > INT32_MAX)
        refuse();
    return int(n);
}

QPixmap pixmapFrom(const QVariant &v)
{
    if (!v.isValid() || v.isNull())
        return QPixmap();
    if (v.typeId() == QMetaType::QPixmap)
        return qvariant_cast<QPixmap>(v);
    if (v.typeId() == QMetaType::QImage)
        return QPixmap::fromImage(qvariant_cast<QImage>(v));
    refuse();
    return QPixmap();
}

QFont fontFrom(const QVariant &v)
{
    if (v.typeId() == QMetaType::QFont)
        return qvariant_cast<QFont>(v);
    if (v.typeId() == QMetaType::QString) {
        QFont font;
        if (font.fromString(v.toString()))
            return font;
    }
    refuse();
    return QFont();
}

// Sets a flag for the lifetime of the scope and puts the previous value back.
class FlagScope
{
public:
    explicit FlagScope(bool &flag) : m_flag(flag), m_old(flag) { m_flag = true; }
    ~FlagScope() { m_flag = m_old; }
    FlagScope(const FlagScope &) = delete;
    FlagScope &operator=(const FlagScope &) = delete;

private:
    bool &m_flag;
    bool m_old;
};

} // namespace

ControlFrame::ControlFrame(QWidget *parent) : QFrame(parent)
{
    // Check1 first, so that it stands before Text1 in the focus chain (it is left of it) and a
    // Tab out of Text1 leaves the control.
    m_check1 = new QCheckBox(this);
    m_check1->setObjectName(QStringLiteral("Check1"));
    m_check1->setChecked(true);
    m_check1->hide();
    m_text1 = new QLineEdit(this);
    m_text1->setObjectName(QStringLiteral("Text1"));
    // The layout leaves the text box only a few pixels more than the font's cap height; every
    // pixel of it goes to the text.
    m_text1->setFrame(false);
    m_text1->setContentsMargins(0, 0, 0, 0);
    m_text1->setTextMargins(0, 0, 0, 0);
    m_text1->setAlignment(qtAlignment(twRightJustify));
    m_text1->setMouseTracking(true); // the host sees MouseMove without a button held
    m_text1->setDragEnabled(false);
    m_text1->setAcceptDrops(false);
    setFocusProxy(m_text1);

    m_text1->installEventFilter(this);
    m_check1->installEventFilter(this);

    connect(m_text1, &QLineEdit::textChanged, this, [this] {
        try {
            onTextChanged();
        } catch (...) {
            // A host's Change handler must not unwind through the line edit.
        }
    });
    connect(m_check1, &QCheckBox::toggled, this, [this] {
        try {
            onCheckClick();
        } catch (...) {
        }
    });
    if (auto *app = qobject_cast<QApplication *>(QCoreApplication::instance())) {
        m_focusConnection = connect(app, &QApplication::focusChanged, this,
                                    [this](QWidget *old, QWidget *now) {
                                        try {
                                            focusChanged(old, now);
                                        } catch (...) {
                                        }
                                    });
    }
    initCommon();
}

ControlFrame::~ControlFrame()
{
    // The children die after this destructor; their last events must not reach our members.
    disconnect(m_focusConnection);
    m_text1->removeEventFilter(this);
    m_check1->removeEventFilter(this);
    disconnect(m_text1, nullptr, this, nullptr);
    disconnect(m_check1, nullptr, this, nullptr);
}

// ---------------------------------------------------------------------------------------------
// Host site

void ControlFrame::setUserMode(bool runTime)
{
    m_userMode = runTime;
}

void ControlFrame::setCanPropertyChangeHook(CanPropertyChangeHook hook)
{
    m_canPropertyChange = std::move(hook);
}

bool ControlFrame::CanPropertyChange(const QString &name) const
{
    return !m_canPropertyChange || m_canPropertyChange(name);
}

void ControlFrame::markDirty(const QString &name)
{
    if (!m_dirty.contains(name))
        m_dirty.append(name);
    emit PropertyChanged(name);
}

// ---------------------------------------------------------------------------------------------
// Properties

void ControlFrame::setBackColor(OleColor color)
{
    m_backColor = color;
    applyBorder();
    markDirty(kBackColor);
}

void ControlFrame::setForeColor(OleColor color)
{
    m_foreColor = color;
    applyTextColor();
    markDirty(kForeColor);
}

void ControlFrame::setDisabledColor(OleColor color)
{
    m_disabledColor = color;
    applyTextColor();
    markDirty(kDisabledColor);
}

bool ControlFrame::Enabled() const
{
    // The frame's own setting; a disabled parent form does not change it.
    return !testAttribute(Qt::WA_ForceDisabled);
}

void ControlFrame::setEnabled(bool enabled)
{
    QFrame::setEnabled(enabled);
    m_check1->setEnabled(enabled);
    applyTextColor();
    markDirty(kEnabled);
}

QFont ControlFrame::Font() const
{
    return m_text1->font();
}

void ControlFrame::setFont(const QFont &font)
{
    m_text1->setFont(font);
    markDirty(kFont);
}

void ControlFrame::validateBorderStyle(int style) const
{
    if (style < twNone || style > twFixed3D)
        refuse();
}

void ControlFrame::setBorderStyle(twBorderStyleConstants style)
{
    validateBorderStyle(style);
    m_borderStyle = style;
    markDirty(kBorderStyle);
    applyBorder();
}

twAlignmentConstants ControlFrame::Alignment() const
{
    const Qt::Alignment a = m_text1->alignment() & Qt::AlignHorizontal_Mask;
    if (a & Qt::AlignRight)
        return twRightJustify;
    if (a & Qt::AlignHCenter)
        return twCenter;
    return twLeftJustify;
}

void ControlFrame::setAlignment(twAlignmentConstants alignment)
{
    if (alignment < twLeftJustify || alignment > twCenter)
        refuse();
    {
        UpdatingGuard guard(*this);
        m_text1->setAlignment(qtAlignment(alignment));
    }
    markDirty(kAlignment);
}

bool ControlFrame::Locked() const
{
    return m_text1->isReadOnly();
}

void ControlFrame::setLocked(bool locked)
{
    m_text1->setReadOnly(locked);
    markDirty(kLocked);
}

void ControlFrame::setSelectTextOnFocus(bool on)
{
    m_selectTextOnFocus = on;
    markDirty(kSelectTextOnFocus);
}

void ControlFrame::setNullIfEmpty(bool on)
{
    m_nullIfEmpty = on;
    markDirty(kNullIfEmpty);
}

void ControlFrame::setEnterAsTab(bool on)
{
    m_enterAsTab = on;
    markDirty(kEnterAsTab);
}

QString ControlFrame::ToolTip() const
{
    return m_text1->toolTip();
}

void ControlFrame::setToolTip(const QString &text)
{
    m_text1->setToolTip(text);
    markDirty(kToolTip);
}

void ControlFrame::setCheckBox(bool on)
{
    m_checkBox = on;
    markDirty(kCheckBox);
    relayout();
}

void ControlFrame::setChecked(bool on)
{
    m_checked = on;
    markDirty(kChecked);
    if (m_check1->isChecked() != on)
        m_check1->setChecked(on); // runs the click logic
    else
        applyCheckVisibility();
}

void ControlFrame::setMouseIcon(const QPixmap &icon)
{
    m_mouseIcon = icon;
    applyCursor();
    markDirty(kMouseIcon);
}

void ControlFrame::setMousePointer(int pointer)
{
    if (!isValidMousePointer(pointer))
        refuse();
    m_mousePointer = pointer;
    applyCursor();
    markDirty(kMousePointer);
}

void ControlFrame::setOLEDragMode(int mode)
{
    if (mode != OLEDragManual && mode != OLEDragAutomatic)
        refuse();
    m_oleDragMode = mode;
    m_text1->setDragEnabled(mode == OLEDragAutomatic);
    markDirty(kOLEDragMode);
}

void ControlFrame::setOLEDropMode(int mode)
{
    if (mode < OLEDropNone || mode > OLEDropAutomatic)
        refuse();
    m_oleDropMode = mode;
    applyDropMode();
    markDirty(kOLEDropMode);
}

void ControlFrame::applyDropMode()
{
    m_text1->setAcceptDrops(m_oleDropMode != OLEDropNone);
}

int ControlFrame::SelStart() const
{
    return m_text1->hasSelectedText() ? m_text1->selectionStart() : m_text1->cursorPosition();
}

void ControlFrame::setSelStart(int start)
{
    if (start < 0)
        refuse();
    m_text1->setCursorPosition(qMin(start, int(m_text1->text().size())));
    markDirty(QStringLiteral("SelStart"));
}

int ControlFrame::SelLength() const
{
    return m_text1->selectionLength();
}

void ControlFrame::setSelLength(int length)
{
    if (length < 0)
        refuse();
    const int start = SelStart();
    const int clipped = qMin(length, int(m_text1->text().size()) - start);
    if (clipped > 0)
        m_text1->setSelection(start, clipped);
    else
        m_text1->setCursorPosition(start);
    markDirty(QStringLiteral("SelLength"));
}

QString ControlFrame::SelText() const
{
    return m_text1->selectedText();
}

void ControlFrame::setSelText(const QString &)
{
    refuseSet();
}

void ControlFrame::refuseSet() const
{
    refuse(m_userMode ? Error::SetNotSupportedAtRuntime : Error::SetNotPermitted);
}

bool ControlFrame::bagBool(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool();
    return bagInt(value, LLONG_MIN, LLONG_MAX) != 0;
}

qint64 ControlFrame::bagInt(const QVariant &value, qint64 lowest, qint64 highest)
{
    qint64 n = 0;
    if (!toInt(value, &n) || n < lowest || n > highest)
        refuse();
    return n;
}

OleColor ControlFrame::bagColor(const QVariant &value)
{
    return OleColor(std::uint32_t(bagInt(value, INT32_MIN, UINT32_MAX)));
}

QString ControlFrame::bagString(const QVariant &value)
{
    if (value.typeId() != QMetaType::QString && !value.canConvert<QString>())
        refuse();
    return value.toString();
}

QSize ControlFrame::sizeHint() const
{
    const int allowance = twipsToPixels(borderAllowanceY(BorderStyle()));
    const int height = m_text1->sizeHint().height() + allowance + 2 * frameWidth();
    return QSize(twipsToPixels(DefaultWidthTwips), qMax(twipsToPixels(DefaultHeightTwips), height));
}

QSize ControlFrame::minimumSizeHint() const
{
    return QSize(twipsToPixels(DefaultWidthTwips) / 3, sizeHint().height());
}

void ControlFrame::Refresh()
{
    update();
    m_text1->update();
    m_check1->update();
}

// ---------------------------------------------------------------------------------------------
// Colours, border, cursor

QColor ControlFrame::resolveColor(OleColor color) const
{
    return color.toQColor(palette());
}

void ControlFrame::paintWidget(QWidget *widget, const QColor &text, const QColor &base)
{
    if (!widget)
        return;
    QPalette pal = widget->palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        pal.setColor(group, QPalette::Text, text);
        pal.setColor(group, QPalette::Base, base);
    }
    widget->setPalette(pal);
}

void ControlFrame::applyTextColor()
{
    FlagScope scope(m_applyingPalette);
    paintWidget(m_text1, resolveColor(Enabled() ? m_foreColor : m_disabledColor),
                resolveColor(m_backColor));
}

void ControlFrame::applyBorder()
{
    switch (m_borderStyle) {
    case twNone:
        setFrameStyle(QFrame::NoFrame | QFrame::Plain);
        setLineWidth(0);
        break;
    case twFixedSingle:
        setFrameStyle(QFrame::Box | QFrame::Plain);
        setLineWidth(1);
        break;
    case twFixed3D:
        setFrameStyle(QFrame::Panel | QFrame::Sunken);
        setLineWidth(2);
        break;
    }
    applyTextColor();
    // The strip around the inner widgets takes the text box's colour.
    {
        FlagScope scope(m_applyingPalette);
        QPalette pal = palette();
        const QColor back = resolveColor(m_backColor);
        for (QPalette::ColorGroup group :
             {QPalette::Active, QPalette::Inactive, QPalette::Disabled})
            pal.setColor(group, QPalette::Window, back);
        setPalette(pal);
        setAutoFillBackground(true);
    }
    // The frame's width changed the inner area.
    relayout();
}

Qt::CursorShape ControlFrame::cursorShapeFor(int mousePointer)
{
    switch (mousePointer) {
    case 1: return Qt::ArrowCursor;
    case 2: return Qt::CrossCursor;
    case 3: return Qt::IBeamCursor;
    case 4: return Qt::PointingHandCursor; // the host's "icon" pointer has no Qt twin
    case 5: return Qt::SizeAllCursor;
    case 6: return Qt::SizeBDiagCursor;
    case 7: return Qt::SizeVerCursor;
    case 8: return Qt::SizeFDiagCursor;
    case 9: return Qt::SizeHorCursor;
    case 10: return Qt::UpArrowCursor;
    case 11: return Qt::WaitCursor;
    case 12: return Qt::ForbiddenCursor;
    case 13: return Qt::BusyCursor;
    case 14: return Qt::WhatsThisCursor;
    case 15: return Qt::SizeAllCursor;
    default: return Qt::ArrowCursor;
    }
}

void ControlFrame::applyCursor()
{
    if (m_mousePointer == MousePointerDefault
        || (m_mousePointer == MousePointerCustom && m_mouseIcon.isNull()))
        m_text1->unsetCursor();
    else if (m_mousePointer == MousePointerCustom)
        m_text1->setCursor(QCursor(m_mouseIcon));
    else
        m_text1->setCursor(cursorShapeFor(m_mousePointer));
}

// ---------------------------------------------------------------------------------------------
// Layout

int ControlFrame::borderAllowanceX(twBorderStyleConstants style)
{
    switch (style) {
    case twNone: return 15;
    case twFixedSingle: return 45;
    default: return 80;
    }
}

int ControlFrame::borderAllowanceY(twBorderStyleConstants style)
{
    switch (style) {
    case twNone: return 15;
    case twFixedSingle: return 45;
    default: return 75;
    }
}

int ControlFrame::roundHalfEven(double value)
{
    if (!std::isfinite(value))
        return 0;
    const double clamped = qBound(double(INT_MIN), value, double(INT_MAX));
    const double lower = std::floor(clamped);
    const double diff = clamped - lower;
    double result = lower;
    if (diff > 0.5 || (diff == 0.5 && std::fmod(lower, 2.0) != 0.0))
        result = lower + 1.0;
    return int(qBound(double(INT_MIN), result, double(INT_MAX)));
}

int ControlFrame::twipsToPixels(double twips)
{
    return roundHalfEven(twips / TwipsPerPixel);
}

int ControlFrame::checkBoxTopTwips(int textHeightTwips, int checkHeightTwips)
{
    const double pixels = (double(textHeightTwips) - checkHeightTwips + 1) / TwipsPerPixel;
    return roundHalfEven(pixels / 2) * TwipsPerPixel;
}

int ControlFrame::innerWidthTwips() const
{
    return contentsRect().width() * TwipsPerPixel;
}

int ControlFrame::innerHeightTwips() const
{
    return contentsRect().height() * TwipsPerPixel;
}

void ControlFrame::placeTwips(QWidget *child, int left, int top, int width, int height)
{
    if (!child)
        return;
    const QRect inner = contentsRect();
    child->setGeometry(inner.left() + twipsToPixels(left), inner.top() + twipsToPixels(top),
                       qMax(0, twipsToPixels(width)), qMax(0, twipsToPixels(height)));
}

void ControlFrame::relayout()
{
    const int left = m_checkBox ? 255 : 15;
    const int top = 15;
    placeTwips(m_text1, left, top, innerWidthTwips() - borderAllowanceX(m_borderStyle) - left,
               innerHeightTwips() - borderAllowanceY(m_borderStyle));
    m_check1->setVisible(m_checkBox);
    if (m_checkBox) {
        const int w = style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, m_check1);
        const int h = style()->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, m_check1);
        const int textHeight = m_text1->height() * TwipsPerPixel;
        placeTwips(m_check1, 15, checkBoxTopTwips(textHeight, h * TwipsPerPixel),
                   w * TwipsPerPixel, h * TwipsPerPixel);
    }
    applyCheckVisibility();
    applyTextColor();
}

void ControlFrame::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    try {
        relayout();
    } catch (...) {
    }
}

void ControlFrame::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    try {
        switch (event->type()) {
        case QEvent::EnabledChange:
            // Also reached by QWidget::setEnabled through a base pointer.
            if (m_check1->isEnabledTo(this) != Enabled())
                m_check1->setEnabled(Enabled());
            applyTextColor();
            break;
        case QEvent::PaletteChange:
            // A new palette may resolve the system colours differently.
            if (!m_applyingPalette)
                applyBorder();
            break;
        default:
            break;
        }
    } catch (...) {
    }
}

QFont ControlFrame::ambientFont() const
{
    return parentWidget() ? parentWidget()->font() : QApplication::font();
}

// ---------------------------------------------------------------------------------------------
// Check box, text, focus

void ControlFrame::applyCheckVisibility()
{
    m_text1->setVisible(!m_checkBox || m_checked);
}

void ControlFrame::onCheckClick()
{
    m_checked = m_check1->isChecked();
    applyCheckVisibility();
    if (!m_text1->isHidden() && m_checkHasFocus)
        m_text1->setFocus(Qt::OtherFocusReason);
    afterCheckClick();
    if (!m_updating)
        emit Change();
}

void ControlFrame::onTextChanged()
{
    markDirty(QStringLiteral("Value"));
    if (!m_updating)
        emit Change();
}

bool ControlFrame::containsFocusWidget(const QWidget *widget) const
{
    return widget && (widget == this || isAncestorOf(widget));
}

void ControlFrame::focusChanged(QWidget *, QWidget *now)
{
    // A window losing activation leaves no focus widget; the control still holds the focus
    // within its window and does not leave.
    if (!now)
        return;
    const bool inside = containsFocusWidget(now);
    if (inside && !m_hasFocus) {
        m_hasFocus = true;
        onEnterFocus();
    } else if (!inside && m_hasFocus) {
        m_hasFocus = false;
        onExitFocus();
    }
}

void ControlFrame::onEnterFocus()
{
    if (m_selectTextOnFocus)
        m_text1->setSelection(0, int(m_text1->text().size()));
}

void ControlFrame::onExitFocus() {}

// ---------------------------------------------------------------------------------------------
// Event relay and the key pipeline

void ControlFrame::handleKeyDown(short &, short &) {}
void ControlFrame::handleKeyPress(short &) {}
void ControlFrame::handleKeyUp(short &, short &) {}

bool ControlFrame::keepsShortcutKey(short, short, short) const
{
    return true;
}

bool ControlFrame::eventFilter(QObject *watched, QEvent *event)
{
    try {
        if (watched == m_text1)
            return filterTextEvent(event);
        if (watched == m_check1) {
            if (event->type() == QEvent::FocusIn)
                m_checkHasFocus = true;
            else if (event->type() == QEvent::FocusOut)
                m_checkHasFocus = false;
        }
    } catch (...) {
        // Nothing may unwind into the event loop; a key that failed half-way is dropped.
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
            return true;
        default:
            return false;
        }
    }
    return QFrame::eventFilter(watched, event);
}

bool ControlFrame::filterTextEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return textKeyPress(static_cast<QKeyEvent *>(event));
    case QEvent::KeyRelease:
        return textKeyRelease(static_cast<QKeyEvent *>(event));
    case QEvent::ShortcutOverride:
        return textShortcutOverride(static_cast<QKeyEvent *>(event));
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return textMouse(static_cast<QMouseEvent *>(event));
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return textDrag(event);
    case QEvent::FocusIn:
        return textFocusIn(static_cast<QFocusEvent *>(event));
    case QEvent::Resize:
    case QEvent::FontChange:
        fitTextLine(m_text1);
        return false;
    default:
        return false;
    }
}

bool ControlFrame::textFocusIn(QFocusEvent *event)
{
    // The line edit selects everything when tabbed into; whether entering selects is
    // SelectTextOnFocus's call alone, so without it the caret stays where it was.
    const Qt::FocusReason reason = event->reason();
    if (m_selectTextOnFocus
        || (reason != Qt::TabFocusReason && reason != Qt::BacktabFocusReason
            && reason != Qt::ShortcutFocusReason))
        return false;
    QFocusEvent plain(QEvent::FocusIn, Qt::OtherFocusReason);
    QCoreApplication::sendEvent(m_text1, &plain);
    return true;
}

void ControlFrame::fitTextLine(QLineEdit *edit)
{
    if (!edit)
        return;
    // A box shorter than the font's line would crop the line's bottom (descenders) while
    // keeping the empty space above the capitals; shift the line so that what is drawn, capitals
    // to descenders, sits centred. A box tall enough is centred as usual, with no margins.
    const QFontMetrics fm(edit->font());
    const int available = edit->contentsRect().height();
    const int line = fm.height();
    if (available <= 0 || available >= line) {
        if (edit->textMargins() != QMargins())
            edit->setTextMargins(0, 0, 0, 0);
        return;
    }
    const int cap = fm.capHeight() > 0 ? qMin(fm.capHeight(), fm.ascent()) : fm.ascent();
    const int top = (available - (cap + fm.descent())) / 2 + cap - fm.ascent();
    const QMargins margins(0, top, 0, available - top - line);
    if (edit->textMargins() != margins)
        edit->setTextMargins(margins);
}

bool ControlFrame::textKeyPress(QKeyEvent *event)
{
    if (m_replayingKey)
        return false;
    // Tab moves the focus through Qt's chain; the host sees no key events for it.
    if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab)
        return false;

    QPointer<ControlFrame> self(this);
    const int vk = Keyboard::virtualKey(*event);
    bool keyConsumed = false;
    if (vk != 0) {
        short keyCode = short(vk);
        short shift = short(Keyboard::shiftMask(event->modifiers()));
        emit KeyDown(keyCode, shift);
        if (!self)
            return true;
        if (keyCode != 0)
            handleKeyDown(keyCode, shift);
        keyConsumed = keyCode == 0;
    }

    const int ascii = Keyboard::keyAscii(*event);
    if (ascii == 0)
        return keyConsumed;
    if (ascii == '\r' && m_enterAsTab) {
        KeySender::SendCharKeys(QStringLiteral("\t"), false, false);
        return true;
    }
    short keyAscii = short(ascii);
    emit keyPress(keyAscii);
    if (!self)
        return true;
    if (keyAscii != 0)
        handleKeyPress(keyAscii);
    if (keyAscii == 0)
        return true;
    if (keyAscii == short(ascii))
        return false; // the key goes on as it came, with whatever else it does
    deliverChangedCharacter(event, keyAscii);
    return true;
}

void ControlFrame::deliverChangedCharacter(QKeyEvent *original, short keyAscii)
{
    const QChar ch(char16_t(static_cast<unsigned short>(keyAscii)));
    int key = 0;
    int shiftBits = 0;
    const int scan = Keyboard::vkKeyScan(ch);
    if (scan > 0) {
        key = Keyboard::qtKey(scan & 0xFF);
        shiftBits = (scan >> 8) & 0x7;
    } else {
        key = ch.toUpper().unicode();
    }
    Qt::KeyboardModifiers modifiers;
    if (shiftBits & Keyboard::ShiftBit)
        modifiers |= Qt::ShiftModifier;
    if (shiftBits & Keyboard::CtrlBit)
        modifiers |= Qt::ControlModifier;
    QKeyEvent typed(QEvent::KeyPress, key, modifiers, QString(ch), original->isAutoRepeat());
    FlagScope scope(m_replayingKey);
    QCoreApplication::sendEvent(m_text1, &typed);
}

bool ControlFrame::textKeyRelease(QKeyEvent *event)
{
    // Auto-repeat brings releases the keyboard never made; the host sees one KeyUp at the end.
    if (event->isAutoRepeat() || m_replayingKey)
        return false;
    if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab)
        return false;
    const int vk = Keyboard::virtualKey(*event);
    if (vk == 0)
        return false;
    QPointer<ControlFrame> self(this);
    short keyCode = short(vk);
    short shift = short(Keyboard::shiftMask(event->modifiers()));
    emit KeyUp(keyCode, shift);
    if (!self)
        return true;
    if (keyCode != 0)
        handleKeyUp(keyCode, shift);
    return keyCode == 0;
}

bool ControlFrame::textShortcutOverride(QKeyEvent *event)
{
    const short vk = short(Keyboard::virtualKey(*event));
    const short shift = short(Keyboard::shiftMask(event->modifiers()));
    const short ascii = short(Keyboard::keyAscii(*event));
    const bool editKey = ascii == 3 || ascii == 22 || ascii == 24 || ascii == 26
                         || (vk == Keyboard::VkInsert && (shift == 1 || shift == 2))
                         || (vk == Keyboard::VkDelete && shift == 1);
    if (editKey && keepsShortcutKey(vk, shift, ascii)) {
        event->accept(); // delivered as a key press to Text1, not as an application shortcut
        return true;
    }
    return false;
}

bool ControlFrame::textMouse(QMouseEvent *event)
{
    QPointer<ControlFrame> self(this);
    const QPointF pos = event->position();
    short shift = short(Keyboard::shiftMask(event->modifiers()));
    float x = float(pos.x() * TwipsPerPixel);
    float y = float(pos.y() * TwipsPerPixel);
    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        short button = buttonBit(event->button());
        emit MouseDown(button, shift, x, y);
        break;
    }
    case QEvent::MouseMove: {
        short button = buttonMask(event->buttons());
        emit MouseMove(button, shift, x, y);
        break;
    }
    case QEvent::MouseButtonRelease: {
        short button = buttonBit(event->button());
        emit MouseUp(button, shift, x, y);
        if (!self)
            return true;
        const bool click = event->button() == Qt::LeftButton && !m_suppressClick
                           && m_text1->rect().contains(pos.toPoint());
        m_suppressClick = false;
        if (click)
            emit Click();
        break;
    }
    case QEvent::MouseButtonDblClick:
        // The release that ends a double click is a MouseUp but not a second Click.
        m_suppressClick = true;
        emit DblClick();
        break;
    default:
        break;
    }
    return !self;
}

bool ControlFrame::textDrag(QEvent *event)
{
    if (m_oleDropMode != OLEDropManual)
        return false; // automatic drops are the line edit's own; no drops reach it otherwise
    QPointer<ControlFrame> self(this);

    if (event->type() == QEvent::DragLeave) {
        if (m_dragData) {
            int effect = EffectNone;
            short button = 0, shift = 0, state = DragLeave;
            float x = 0, y = 0;
            emit OLEDragOver(m_dragData, effect, button, shift, x, y, state);
            if (self && m_dragData)
                m_dragData->deleteLater();
        }
        return true;
    }

    auto *drop = static_cast<QDropEvent *>(event);
    if (event->type() == QEvent::DragEnter) {
        if (m_dragData)
            m_dragData->deleteLater();
        m_dragData = new DataObject(drop->mimeData(), this);
    } else if (!m_dragData) {
        m_dragData = new DataObject(drop->mimeData(), this);
    }
    QPointer<DataObject> data = m_dragData;
    int effect = effectOf(drop->possibleActions());
    short button = buttonMask(drop->buttons());
    short shift = short(Keyboard::shiftMask(drop->modifiers()));
    float x = float(drop->position().x() * TwipsPerPixel);
    float y = float(drop->position().y() * TwipsPerPixel);

    if (event->type() == QEvent::Drop) {
        emit OLEDragDrop(data, effect, button, shift, x, y);
        if (!self)
            return true;
        const Qt::DropAction action = actionFor(effect, drop->possibleActions());
        drop->setDropAction(action);
        if (action == Qt::IgnoreAction)
            drop->ignore();
        else
            drop->accept();
        if (data)
            data->deleteLater();
        return true;
    }

    short state = event->type() == QEvent::DragEnter ? short(DragEnter) : short(DragOver);
    emit OLEDragOver(data, effect, button, shift, x, y, state);
    if (!self)
        return true;
    const Qt::DropAction action = actionFor(effect, drop->possibleActions());
    auto *move = static_cast<QDragMoveEvent *>(event);
    move->setDropAction(action);
    // The enter is always taken, so that the moves that follow reach the host, which may
    // accept the drop at another position.
    if (action != Qt::IgnoreAction || event->type() == QEvent::DragEnter)
        move->accept();
    else
        move->ignore();
    return true;
}

void ControlFrame::OLEDrag()
{
    QPointer<ControlFrame> self(this);
    auto *data = new DataObject(nullptr, this);
    data->setDataRequestHandler([self](DataObject *d, short &format) {
        if (self)
            emit self->OLESetData(d, format);
    });
    int allowed = EffectCopy | EffectMove;
    emit OLEStartDrag(data, allowed);
    if (!self)
        return;
    if (data->mimeData()->formats().isEmpty() && m_text1->hasSelectedText())
        data->SetData(m_text1->selectedText(), DataObject::CFText);
    if (allowed == EffectNone || data->mimeData()->formats().isEmpty()) {
        data->deleteLater();
        return;
    }
    auto *drag = new QDrag(m_text1);
    drag->setMimeData(data->takeMimeData());
    connect(drag, &QDrag::actionChanged, this, [self](Qt::DropAction action) {
        if (!self)
            return;
        int effect = effectOf(action);
        bool defaultCursors = true;
        emit self->OLEGiveFeedback(effect, defaultCursors);
    });
    const Qt::DropAction result = drag->exec(actionsOf(allowed));
    if (!self)
        return;
    int effect = effectOf(result);
    emit OLECompleteDrag(effect);
    data->deleteLater();
}

// ---------------------------------------------------------------------------------------------
// Persistence

const QStringList &ControlFrame::commonKeys()
{
    static const QStringList keys{kBackColor,    kEnabled,      kFont,
                                  kLocked,       kMouseIcon,    kBorderStyle,
                                  kForeColor,    kDisabledColor, kAlignment,
                                  kOLEDragMode,  kOLEDropMode,  kMousePointer,
                                  kSelectTextOnFocus, kToolTip, kCheckBox,
                                  kChecked,      kNullIfEmpty,  kEnterAsTab};
    return keys;
}

QVariant ControlFrame::commonDefault(const QString &key) const
{
    if (key == kBackColor)
        return QVariant(qint32(OleColor::WindowBackground));
    if (key == kForeColor)
        return QVariant(qint32(OleColor::WindowText));
    if (key == kDisabledColor)
        return QVariant(qint32(OleColor::GrayText));
    if (key == kEnabled || key == kSelectTextOnFocus || key == kChecked)
        return QVariant(true);
    if (key == kLocked || key == kCheckBox || key == kNullIfEmpty || key == kEnterAsTab)
        return QVariant(false);
    if (key == kFont)
        return QVariant(ambientFont());
    if (key == kBorderStyle)
        return QVariant(qint16(twFixed3D));
    if (key == kAlignment)
        return QVariant(qint16(twRightJustify));
    if (key == kOLEDragMode || key == kOLEDropMode || key == kMousePointer)
        return QVariant(qint16(0));
    if (key == kToolTip)
        return QVariant(QString());
    return QVariant(); // MouseIcon: no picture
}

bool ControlFrame::writeCommon(PropertyBag &bag, const QString &key) const
{
    QVariant value;
    if (key == kBackColor)
        value = qint32(m_backColor.value());
    else if (key == kForeColor)
        value = qint32(m_foreColor.value());
    else if (key == kDisabledColor)
        value = qint32(m_disabledColor.value());
    else if (key == kEnabled)
        value = Enabled();
    else if (key == kFont)
        value = Font();
    else if (key == kLocked)
        value = Locked();
    else if (key == kMouseIcon)
        value = m_mouseIcon.isNull() ? QVariant() : QVariant(m_mouseIcon);
    else if (key == kBorderStyle)
        value = qint16(m_borderStyle);
    else if (key == kAlignment)
        value = qint16(Alignment());
    else if (key == kOLEDragMode)
        value = qint16(m_oleDragMode);
    else if (key == kOLEDropMode)
        value = qint16(m_oleDropMode);
    else if (key == kMousePointer)
        value = qint16(m_mousePointer);
    else if (key == kSelectTextOnFocus)
        value = m_selectTextOnFocus;
    else if (key == kToolTip)
        value = ToolTip();
    else if (key == kCheckBox)
        value = m_checkBox;
    else if (key == kChecked)
        value = m_checked;
    else if (key == kNullIfEmpty)
        value = m_nullIfEmpty;
    else if (key == kEnterAsTab)
        value = m_enterAsTab;
    else
        return false;
    bag.WriteProperty(key, value, commonDefault(key));
    return true;
}

void ControlFrame::writeCommon(PropertyBag &bag, const QStringList &keys) const
{
    for (const QString &key : keys)
        writeCommon(bag, key);
}

bool ControlFrame::readCommon(const PropertyBag &bag, const QString &key)
{
    if (!commonKeys().contains(key))
        return false;
    const QVariant v = bag.ReadProperty(key, commonDefault(key));
    if (key == kBackColor) {
        m_backColor = bagColor(v);
        applyBorder();
    } else if (key == kForeColor) {
        m_foreColor = bagColor(v);
        applyTextColor();
    } else if (key == kDisabledColor) {
        m_disabledColor = bagColor(v);
        applyTextColor();
    } else if (key == kEnabled) {
        const bool on = bagBool(v);
        QFrame::setEnabled(on);
        m_check1->setEnabled(on);
        applyTextColor();
    } else if (key == kFont) {
        m_text1->setFont(fontFrom(v));
    } else if (key == kLocked) {
        m_text1->setReadOnly(bagBool(v));
    } else if (key == kMouseIcon) {
        m_mouseIcon = pixmapFrom(v);
        applyCursor();
    } else if (key == kBorderStyle) {
        const int style = intFrom(v);
        validateBorderStyle(style);
        m_borderStyle = twBorderStyleConstants(style);
        applyBorder();
    } else if (key == kAlignment) {
        const int alignment = intFrom(v);
        if (alignment < twLeftJustify || alignment > twCenter)
            refuse();
        UpdatingGuard guard(*this);
        m_text1->setAlignment(qtAlignment(twAlignmentConstants(alignment)));
    } else if (key == kOLEDragMode) {
        const int mode = intFrom(v);
        if (mode != OLEDragManual && mode != OLEDragAutomatic)
            refuse();
        m_oleDragMode = mode;
        m_text1->setDragEnabled(mode == OLEDragAutomatic);
    } else if (key == kOLEDropMode) {
        const int mode = intFrom(v);
        if (mode < OLEDropNone || mode > OLEDropAutomatic)
            refuse();
        m_oleDropMode = mode;
        applyDropMode();
    } else if (key == kMousePointer) {
        const int pointer = intFrom(v);
        if (!isValidMousePointer(pointer))
            refuse();
        m_mousePointer = pointer;
        applyCursor();
    } else if (key == kSelectTextOnFocus) {
        m_selectTextOnFocus = bagBool(v);
    } else if (key == kToolTip) {
        m_text1->setToolTip(v.toString());
    } else if (key == kCheckBox) {
        m_checkBox = bagBool(v);
        relayout();
    } else if (key == kChecked) {
        m_checked = bagBool(v);
        if (m_check1->isChecked() != m_checked)
            m_check1->setChecked(m_checked);
        else
            applyCheckVisibility();
    } else if (key == kNullIfEmpty) {
        m_nullIfEmpty = bagBool(v);
    } else if (key == kEnterAsTab) {
        m_enterAsTab = bagBool(v);
    }
    return true;
}

void ControlFrame::readCommon(const PropertyBag &bag, const QStringList &keys)
{
    for (const QString &key : keys)
        readCommon(bag, key);
}

void ControlFrame::initCommon()
{
    m_borderStyle = twFixed3D;
    m_foreColor = OleColor::WindowText;
    m_disabledColor = OleColor::GrayText;
    m_selectTextOnFocus = true;
    m_checkBox = false;
    m_nullIfEmpty = false;
    m_enterAsTab = false;
    resize(twipsToPixels(DefaultWidthTwips), twipsToPixels(DefaultHeightTwips));
    applyBorder();
    m_checked = true;
    if (!m_check1->isChecked())
        m_check1->setChecked(true);
    else
        applyCheckVisibility();
}

} // namespace Tarnwell
