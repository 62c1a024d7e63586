#include <tarnwell/controlframe.h>

#include <tarnwell/error.h>
#include <tarnwell/variant.h>

#include "shared/accessibility.h"
#include "shared/bagkeys.h"
#include "shared/commonproperties.h"
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

ControlFrame::ControlFrame(QWidget *parent, const EditorFactory &makeEditor)
    : QFrame(parent), m_commonDefaults(&maskBoxDefaults)
{
    if (makeEditor) {
        m_editor = makeEditor(*this);
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

// A common property set by its setter: checked as a bag value is (Error 380 for one outside its
// constants), applied through its row of the common table, reported changed. A few report first,
// as the frame documents them.
void ControlFrame::setCommon(CommonKey key, const QVariant &value, Report report)
{
    const CommonProperty &property = CommonProperties::row(key);
    const QVariant checked = property.check(value);
    if (report == Report::First)
        markDirty(property.name);
    property.assign(*this, checked);
    if (report == Report::After)
        markDirty(property.name);
}

void ControlFrame::setBackColor(OleColor color)
{
    setCommon(CommonKey::BackColor, QVariant::fromValue(color));
}

void ControlFrame::setForeColor(OleColor color)
{
    setCommon(CommonKey::ForeColor, QVariant::fromValue(color));
}

void ControlFrame::setDisabledColor(OleColor color)
{
    setCommon(CommonKey::DisabledColor, QVariant::fromValue(color));
}

bool ControlFrame::Enabled() const
{
    return !testAttribute(Qt::WA_ForceDisabled);
}

void ControlFrame::setEnabled(bool enabled)
{
    setCommon(CommonKey::Enabled, enabled);
}

void ControlFrame::setFont(const QFont &font)
{
    setCommon(CommonKey::Font, font);
}

void ControlFrame::setBorderStyle(twBorderStyleConstants style)
{
    setCommon(CommonKey::BorderStyle, int(style), Report::First);
}

twAlignmentConstants ControlFrame::Alignment() const
{
    return m_editor->alignment();
}

void ControlFrame::setAlignment(twAlignmentConstants alignment)
{
    setCommon(CommonKey::Alignment, int(alignment));
}

bool ControlFrame::Locked() const
{
    return m_editor->locked();
}

void ControlFrame::setLocked(bool locked)
{
    setCommon(CommonKey::Locked, locked);
}

void ControlFrame::setSelectTextOnFocus(bool on)
{
    setCommon(CommonKey::SelectTextOnFocus, on);
}

void ControlFrame::setNullIfEmpty(bool on)
{
    setCommon(CommonKey::NullIfEmpty, on);
}

void ControlFrame::setEnterAsTab(bool on)
{
    setCommon(CommonKey::EnterAsTab, on);
}

void ControlFrame::setToolTip(const QString &text)
{
    setCommon(CommonKey::ToolTip, text);
}

void ControlFrame::setCheckBox(bool on)
{
    setCommon(CommonKey::CheckBox, on);
}

bool ControlFrame::Checked() const
{
    return m_editor->checked();
}

void ControlFrame::setChecked(bool on)
{
    setCommon(CommonKey::Checked, on, Report::First); // the click logic may raise Change
}

void ControlFrame::setMouseIcon(const QPixmap &icon)
{
    setCommon(CommonKey::MouseIcon, icon);
}

void ControlFrame::setMousePointer(int pointer)
{
    setCommon(CommonKey::MousePointer, pointer);
}

void ControlFrame::setOLEDragMode(int mode)
{
    setCommon(CommonKey::OLEDragMode, mode);
}

void ControlFrame::setOLEDropMode(int mode)
{
    setCommon(CommonKey::OLEDropMode, mode);
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
