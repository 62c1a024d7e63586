#include <tarnwell/controlframe.h>

#include <tarnwell/error.h>
#include <tarnwell/variant.h>

#include "shared/accessibility.h"
#include "shared/bagkeys.h"
#include "shared/commonproperties.h"
#include "shared/controlframe_p.h"
#include "shared/focustracker.h"
#include "shared/lineeditor.h"
#include "shared/mousepointer.h"
#include "shared/twips.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPointer>

namespace Tarnwell {

namespace {

[[noreturn]] void refuse(int number = Error::InvalidPropertyValue)
{
    throw Error(number);
}

const CommonDefaults maskBoxDefaults;

} // namespace

ControlFramePrivate::ControlFramePrivate(ControlFrame *frame)
    : q_ptr(frame), commonDefaults(&maskBoxDefaults)
{
}

ControlFramePrivate::~ControlFramePrivate() = default;

ControlFrame::ControlFrame(QWidget *parent, const EditorFactory &makeEditor)
    : QFrame(parent), m_d(std::make_unique<ControlFramePrivate>(this))
{
    Q_D(ControlFrame);
    if (makeEditor) {
        d->editor = makeEditor(*this);
    } else {
        auto editor = std::make_unique<LineEditor>(*this);
        d->line = editor.get();
        d->editor = std::move(editor);
    }
    // The control itself takes the focus and hands it to its text widget, as the spin boxes
    // and date edits this library's controls stand beside do (MaskBox takes a line edit's).
    setFocusPolicy(Qt::WheelFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    FocusTracker::watch();
    Accessibility::install();
    // A one-line editor: as QLineEdit, it takes the width a layout offers and keeps its height.
    setSizePolicy(QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed, QSizePolicy::LineEdit));
    resize(Twips::toPixels(Twips::DefaultWidth), Twips::toPixels(Twips::DefaultHeight));
    applyBorder();
}

ControlFrame::~ControlFrame()
{
    Q_D(ControlFrame);
    FocusTracker::forget(this);
    // The editor detaches from the inner widgets first: their last events must not reach a
    // half-destroyed control.
    d->line = nullptr;
    d->editor.reset();
}

ControlFrame::UpdatingGuard::UpdatingGuard(ControlFrame &frame)
    : m_frame(frame), m_old(frame.d_func()->updating)
{
    m_frame.d_func()->updating = true;
}

ControlFrame::UpdatingGuard::~UpdatingGuard()
{
    m_frame.d_func()->updating = m_old;
}

FrameEditor &ControlFrame::editor() const
{
    Q_D(const ControlFrame);
    return *d->editor;
}

QLineEdit *ControlFrame::Text1() const
{
    Q_D(const ControlFrame);
    return d->line ? d->line->text1() : nullptr;
}

QCheckBox *ControlFrame::Check1() const
{
    Q_D(const ControlFrame);
    return d->line ? d->line->check1() : nullptr;
}

QString ControlFrame::shownText() const
{
    Q_D(const ControlFrame);
    return d->editor->text();
}

void ControlFrame::writeText(const QString &text, int selStart, int selLength)
{
    Q_D(ControlFrame);
    if (d->line)
        d->line->write(text, selStart, selLength);
}

void ControlFrame::setCheckValue(bool ticked)
{
    Q_D(ControlFrame);
    d->editor->setChecked(ticked);
}

bool ControlFrame::valueControlsEnabled() const
{
    Q_D(const ControlFrame);
    return Enabled() && (!d->checkBox || Checked());
}

// ---------------------------------------------------------------------------------------------
// Host site

bool ControlFrame::UserMode() const
{
    Q_D(const ControlFrame);
    return d->userMode;
}

void ControlFrame::setUserMode(bool runTime)
{
    Q_D(ControlFrame);
    d->userMode = runTime;
    d->editor->apply(FrameEditor::Applied::UserMode);
}

void ControlFrame::setCanPropertyChangeHook(CanPropertyChangeHook hook)
{
    Q_D(ControlFrame);
    d->canPropertyChange = std::move(hook);
}

bool ControlFrame::canPropertyChange(const QString &name) const
{
    Q_D(const ControlFrame);
    return !d->canPropertyChange || d->canPropertyChange(name);
}

QStringList ControlFrame::dirtyProperties() const
{
    Q_D(const ControlFrame);
    return d->dirty;
}

bool ControlFrame::isDirty(const QString &name) const
{
    Q_D(const ControlFrame);
    return d->dirty.contains(name);
}

void ControlFrame::clearDirty()
{
    Q_D(ControlFrame);
    d->dirty.clear();
}

void ControlFrame::markDirty(const QString &name)
{
    Q_D(ControlFrame);
    if (d->ownerReportsValue && name == BagKey::Value)
        return;
    if (!d->dirty.contains(name))
        d->dirty.append(name);
    emit PropertyChanged(name);
}

QVariant ControlFrame::noValue() const
{
    Q_D(const ControlFrame);
    return d->nullIfEmpty ? Variant::null() : Variant::empty();
}

std::optional<QVariant> ControlFrame::beginValueSet(const QVariant &value)
{
    Q_D(ControlFrame);
    if (!d->userMode)
        refuse(Error::SetNotPermitted);
    if (!canPropertyChange(BagKey::Value))
        return std::nullopt;
    QPointer<ControlFrame> self(this);
    markDirty(BagKey::Value);
    if (Variant::isNull(value)) {
        if (d->checkBox)
            setCheckValue(false);
        if (!self)
            return std::nullopt;
        updateValueControls();
        return Variant::empty();
    }
    if (value.typeId() == QMetaType::QString && value.toString().isEmpty())
        return Variant::empty();
    return value;
}

void ControlFrame::refuseSet() const
{
    Q_D(const ControlFrame);
    refuse(d->userMode ? Error::SetNotSupportedAtRuntime : Error::SetNotPermitted);
}

bool ControlFrame::controlHasFocus() const
{
    Q_D(const ControlFrame);
    return d->hasFocus;
}

bool ControlFrame::checkHasFocus() const
{
    Q_D(const ControlFrame);
    return d->editor->checkHasFocus();
}

bool ControlFrame::isUpdating() const
{
    Q_D(const ControlFrame);
    return d->updating;
}

// ---------------------------------------------------------------------------------------------
// Properties

// A common property set by its setter: checked as a bag value is (Error 380 for one outside its
// constants), applied through its row of the common table, reported changed. A few report first,
// as the frame documents them.
void ControlFramePrivate::setCommon(CommonKey key, const QVariant &value, Report report)
{
    Q_Q(ControlFrame);
    const CommonProperty &property = CommonProperties::row(key);
    const QVariant checked = property.check(value);
    if (report == Report::First)
        q->markDirty(property.name);
    property.assign(*q, checked);
    if (report == Report::After)
        q->markDirty(property.name);
}

OleColor ControlFrame::BackColor() const
{
    Q_D(const ControlFrame);
    return d->backColor;
}

void ControlFrame::setBackColor(OleColor color)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::BackColor, QVariant::fromValue(color));
}

OleColor ControlFrame::ForeColor() const
{
    Q_D(const ControlFrame);
    return d->foreColor;
}

void ControlFrame::setForeColor(OleColor color)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::ForeColor, QVariant::fromValue(color));
}

OleColor ControlFrame::DisabledColor() const
{
    Q_D(const ControlFrame);
    return d->disabledColor;
}

void ControlFrame::setDisabledColor(OleColor color)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::DisabledColor, QVariant::fromValue(color));
}

bool ControlFrame::Enabled() const
{
    return !testAttribute(Qt::WA_ForceDisabled);
}

void ControlFrame::setEnabled(bool enabled)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::Enabled, enabled);
}

void ControlFrame::setFont(const QFont &font)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::Font, font);
}

twBorderStyleConstants ControlFrame::BorderStyle() const
{
    Q_D(const ControlFrame);
    return d->borderStyle;
}

void ControlFrame::setBorderStyle(twBorderStyleConstants style)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::BorderStyle, int(style), ControlFramePrivate::Report::First);
}

twAlignmentConstants ControlFrame::Alignment() const
{
    Q_D(const ControlFrame);
    return d->editor->alignment();
}

void ControlFrame::setAlignment(twAlignmentConstants alignment)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::Alignment, int(alignment));
}

bool ControlFrame::Locked() const
{
    Q_D(const ControlFrame);
    return d->editor->locked();
}

void ControlFrame::setLocked(bool locked)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::Locked, locked);
}

bool ControlFrame::SelectTextOnFocus() const
{
    Q_D(const ControlFrame);
    return d->selectTextOnFocus;
}

void ControlFrame::setSelectTextOnFocus(bool on)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::SelectTextOnFocus, on);
}

bool ControlFrame::NullIfEmpty() const
{
    Q_D(const ControlFrame);
    return d->nullIfEmpty;
}

void ControlFrame::setNullIfEmpty(bool on)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::NullIfEmpty, on);
}

bool ControlFrame::EnterAsTab() const
{
    Q_D(const ControlFrame);
    return d->enterAsTab;
}

void ControlFrame::setEnterAsTab(bool on)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::EnterAsTab, on);
}

void ControlFrame::setToolTip(const QString &text)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::ToolTip, text);
}

bool ControlFrame::CheckBox() const
{
    Q_D(const ControlFrame);
    return d->checkBox;
}

void ControlFrame::setCheckBox(bool on)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::CheckBox, on);
}

bool ControlFrame::Checked() const
{
    Q_D(const ControlFrame);
    return d->editor->checked();
}

void ControlFrame::setChecked(bool on)
{
    Q_D(ControlFrame);
    // Reported first: the click logic may raise Change.
    d->setCommon(CommonKey::Checked, on, ControlFramePrivate::Report::First);
}

QPixmap ControlFrame::MouseIcon() const
{
    Q_D(const ControlFrame);
    return d->mouseIcon;
}

void ControlFrame::setMouseIcon(const QPixmap &icon)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::MouseIcon, icon);
}

int ControlFrame::MousePointer() const
{
    Q_D(const ControlFrame);
    return d->mousePointer;
}

void ControlFrame::setMousePointer(int pointer)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::MousePointer, pointer);
}

int ControlFrame::OLEDragMode() const
{
    Q_D(const ControlFrame);
    return d->oleDragMode;
}

void ControlFrame::setOLEDragMode(int mode)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::OLEDragMode, mode);
}

int ControlFrame::OLEDropMode() const
{
    Q_D(const ControlFrame);
    return d->oleDropMode;
}

void ControlFrame::setOLEDropMode(int mode)
{
    Q_D(ControlFrame);
    d->setCommon(CommonKey::OLEDropMode, mode);
}

int ControlFrame::SelStart() const
{
    Q_D(const ControlFrame);
    return d->editor->selStart();
}

void ControlFrame::setSelStart(int start)
{
    Q_D(ControlFrame);
    if (start < 0)
        refuse();
    d->editor->setSelStart(start);
    markDirty(BagKey::SelStart);
}

int ControlFrame::SelLength() const
{
    Q_D(const ControlFrame);
    return d->editor->selLength();
}

void ControlFrame::setSelLength(int length)
{
    Q_D(ControlFrame);
    if (length < 0)
        refuse();
    d->editor->setSelLength(length);
    markDirty(BagKey::SelLength);
}

QString ControlFrame::SelText() const
{
    Q_D(const ControlFrame);
    return d->editor->selText();
}

void ControlFrame::setSelText(const QString &)
{
    refuseSet();
}

void ControlFrame::Refresh()
{
    Q_D(ControlFrame);
    update();
    d->editor->refresh();
}

void ControlFrame::OLEDrag()
{
    Q_D(ControlFrame);
    d->editor->startDrag();
}

QFont ControlFrame::ambientFont() const
{
    return parentWidget() ? parentWidget()->font() : QApplication::font();
}

} // namespace Tarnwell
