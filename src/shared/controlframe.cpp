#include <tarnwell/controlframe.h>

#include <tarnwell/error.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/variant.h>

#include "shared/accessibility.h"
#include "shared/bagkeys.h"
#include "shared/commonproperties.h"
#include "shared/focustracker.h"
#include "shared/innermaskeditor.h"
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

ControlFrame::ControlFrame(QWidget *parent, EditorKind kind, const QString &innerName)
    : QFrame(parent), m_commonDefaults(&maskBoxDefaults)
{
    if (kind == EditorKind::InnerMask) {
        auto editor = std::make_unique<InnerMaskEditor>(*this, innerName);
        m_inner = editor.get();
        m_editor = std::move(editor);
    } else {
        auto editor = std::make_unique<LineEditor>(*this);
        m_line = editor.get();
        m_editor = std::move(editor);
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
    FocusTracker::forget(this);
    // The editor detaches from the inner widgets first: their last events must not reach a
    // half-destroyed control.
    m_line = nullptr;
    m_inner = nullptr;
    m_editor.reset();
}

QLineEdit *ControlFrame::Text1() const
{
    return m_line ? m_line->text1() : nullptr;
}

QCheckBox *ControlFrame::Check1() const
{
    return m_line ? m_line->check1() : nullptr;
}

MaskBox *ControlFrame::innerBox() const
{
    return m_inner ? m_inner->box() : nullptr;
}

QString ControlFrame::shownText() const
{
    return m_editor->text();
}

void ControlFrame::writeText(const QString &text, int selStart, int selLength)
{
    if (m_line)
        m_line->write(text, selStart, selLength);
}

void ControlFrame::setCheckValue(bool ticked)
{
    m_editor->setChecked(ticked);
}

bool ControlFrame::valueControlsEnabled() const
{
    return Enabled() && (!m_checkBox || Checked());
}

// ---------------------------------------------------------------------------------------------
// Host site

void ControlFrame::setUserMode(bool runTime)
{
    m_userMode = runTime;
    m_editor->apply(FrameEditor::Applied::UserMode);
}

void ControlFrame::setCanPropertyChangeHook(CanPropertyChangeHook hook)
{
    m_canPropertyChange = std::move(hook);
}

bool ControlFrame::canPropertyChange(const QString &name) const
{
    return !m_canPropertyChange || m_canPropertyChange(name);
}

void ControlFrame::markDirty(const QString &name)
{
    if (!m_dirty.contains(name))
        m_dirty.append(name);
    emit PropertyChanged(name);
}

QVariant ControlFrame::noValue() const
{
    return m_nullIfEmpty ? Variant::null() : Variant::empty();
}

std::optional<QVariant> ControlFrame::beginValueSet(const QVariant &value)
{
    if (!m_userMode)
        refuse(Error::SetNotPermitted);
    if (!canPropertyChange(BagKey::Value))
        return std::nullopt;
    QPointer<ControlFrame> self(this);
    markDirty(BagKey::Value);
    if (Variant::isNull(value)) {
        if (m_checkBox)
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
    refuse(m_userMode ? Error::SetNotSupportedAtRuntime : Error::SetNotPermitted);
}

bool ControlFrame::checkHasFocus() const
{
    return m_editor->checkHasFocus();
}

// ---------------------------------------------------------------------------------------------
// Properties

void ControlFrame::setBackColor(OleColor color)
{
    m_backColor = color;
    applyBorder();
    markDirty(BagKey::BackColor);
}

void ControlFrame::setForeColor(OleColor color)
{
    m_foreColor = color;
    m_editor->apply(FrameEditor::Applied::Colors);
    markDirty(BagKey::ForeColor);
}

void ControlFrame::setDisabledColor(OleColor color)
{
    m_disabledColor = color;
    m_editor->apply(FrameEditor::Applied::Colors);
    markDirty(BagKey::DisabledColor);
}

bool ControlFrame::Enabled() const
{
    return !testAttribute(Qt::WA_ForceDisabled);
}

void ControlFrame::setEnabled(bool enabled)
{
    QFrame::setEnabled(enabled); // the colours follow in changeEvent()
    markDirty(BagKey::Enabled);
}

void ControlFrame::setFont(const QFont &font)
{
    QFrame::setFont(font); // the inner widgets take it from their parent
    markDirty(BagKey::Font);
}

void ControlFrame::setBorderStyle(twBorderStyleConstants style)
{
    if (style < twNone || style > twFixed3D)
        refuse();
    m_borderStyle = style;
    markDirty(BagKey::BorderStyle);
    applyBorder();
}

twAlignmentConstants ControlFrame::Alignment() const
{
    return m_editor->alignment();
}

void ControlFrame::setAlignment(twAlignmentConstants alignment)
{
    if (alignment < twLeftJustify || alignment > twCenter)
        refuse();
    {
        UpdatingGuard guard(*this);
        m_editor->setAlignment(alignment);
    }
    markDirty(BagKey::Alignment);
}

bool ControlFrame::Locked() const
{
    return m_editor->locked();
}

void ControlFrame::setLocked(bool locked)
{
    m_editor->setLocked(locked);
    markDirty(BagKey::Locked);
}

void ControlFrame::setSelectTextOnFocus(bool on)
{
    m_selectTextOnFocus = on;
    markDirty(BagKey::SelectTextOnFocus);
}

void ControlFrame::setNullIfEmpty(bool on)
{
    m_nullIfEmpty = on;
    markDirty(BagKey::NullIfEmpty);
}

void ControlFrame::setEnterAsTab(bool on)
{
    m_enterAsTab = on;
    m_editor->apply(FrameEditor::Applied::EnterAsTab);
    markDirty(BagKey::EnterAsTab);
}

void ControlFrame::setToolTip(const QString &text)
{
    QFrame::setToolTip(text); // the inner widgets follow in changeEvent()
    markDirty(BagKey::ToolTip);
}

void ControlFrame::setCheckBox(bool on)
{
    m_checkBox = on;
    m_editor->apply(FrameEditor::Applied::CheckBox);
    markDirty(BagKey::CheckBox);
    relayout();
    updateValueControls();
}

bool ControlFrame::Checked() const
{
    return m_editor->checked();
}

void ControlFrame::setChecked(bool on)
{
    markDirty(BagKey::Checked);
    m_editor->setChecked(on); // runs the click logic when the value changes
}

void ControlFrame::setMouseIcon(const QPixmap &icon)
{
    m_mouseIcon = icon;
    m_editor->apply(FrameEditor::Applied::Cursor);
    markDirty(BagKey::MouseIcon);
}

void ControlFrame::setMousePointer(int pointer)
{
    if (!MousePointer::isValid(pointer))
        refuse();
    m_mousePointer = pointer;
    m_editor->apply(FrameEditor::Applied::Cursor);
    markDirty(BagKey::MousePointer);
}

void ControlFrame::setOLEDragMode(int mode)
{
    if (mode != OLEDragManual && mode != OLEDragAutomatic)
        refuse();
    m_oleDragMode = mode;
    m_editor->apply(FrameEditor::Applied::DragMode);
    markDirty(BagKey::OLEDragMode);
}

void ControlFrame::setOLEDropMode(int mode)
{
    if (mode < OLEDropNone || mode > OLEDropAutomatic)
        refuse();
    m_oleDropMode = mode;
    m_editor->apply(FrameEditor::Applied::DropMode);
    markDirty(BagKey::OLEDropMode);
}

int ControlFrame::SelStart() const
{
    return m_editor->selStart();
}

void ControlFrame::setSelStart(int start)
{
    if (start < 0)
        refuse();
    m_editor->setSelStart(start);
    markDirty(BagKey::SelStart);
}

int ControlFrame::SelLength() const
{
    return m_editor->selLength();
}

void ControlFrame::setSelLength(int length)
{
    if (length < 0)
        refuse();
    m_editor->setSelLength(length);
    markDirty(BagKey::SelLength);
}

QString ControlFrame::SelText() const
{
    return m_editor->selText();
}

void ControlFrame::setSelText(const QString &)
{
    refuseSet();
}

void ControlFrame::Refresh()
{
    update();
    m_editor->refresh();
}

void ControlFrame::OLEDrag()
{
    m_editor->startDrag();
}

QFont ControlFrame::ambientFont() const
{
    return parentWidget() ? parentWidget()->font() : QApplication::font();
}

} // namespace Tarnwell
