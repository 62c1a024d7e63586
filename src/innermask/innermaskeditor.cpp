#include "innermask/innermaskeditor.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/dataobject.h>
#include <tarnwell/maskbox.h>

#include "shared/controlframe_p.h"
#include "shared/lineeditor.h"

#include <QPointer>

namespace Tarnwell {

InnerMaskEditor::InnerMaskEditor(ControlFrame &frame, const QString &name)
    : m_frame(frame), m_d(*ControlFramePrivate::get(&frame)), m_box(new MaskBox(&frame))
{
    m_box->setObjectName(name);
    // The outer control reports its Value once per edit; a second, unheard report from the box
    // would only mark the box dirty.
    ControlFramePrivate::get(m_box)->ownerReportsValue = true;
    // The outer frame draws the border and decides whether entering selects.
    m_box->setBorderStyle(twNone);
    m_box->setSelectTextOnFocus(false);
    m_box->setUserMode(frame.UserMode());
    // The outer control holds the focus for the inner box and its text box, and hands them its
    // keys and focus changes; the inner box hands them on to its text box in turn.
    m_box->setFocusProxy(&frame);
    m_box->clearDirty();
    m_checked = m_box->Checked();
    relayEvents();
}

InnerMaskEditor::Factory InnerMaskEditor::factory(const QString &name)
{
    return [name](ControlFrame &frame) -> std::unique_ptr<FrameEditor> {
        return std::make_unique<InnerMaskEditor>(frame, name);
    };
}

void InnerMaskEditor::commonDefaultsChanged(const CommonDefaults &defaults)
{
    // The inner box draws the outer control's colours, so it knows their defaults too.
    ControlFramePrivate *inner = ControlFramePrivate::get(m_box);
    inner->commonDefaults = &defaults;
    inner->applyTextColor();
}

InnerMaskEditor::~InnerMaskEditor()
{
    // The box dies after the outer frame's destructor; its last signals must not reach it.
    disconnect(m_box, nullptr, this, nullptr);
}

namespace {

// A slot that raises the same event on the outer control with the very same arguments.
template<typename... Args>
auto relayTo(ControlFrame *outer, void (ControlFrame::*signal)(Args...))
{
    return [outer, signal](Args... args) {
        try {
            (outer->*signal)(args...);
        } catch (...) {
            // Nothing unwinds through the inner box into the event loop.
        }
    };
}

} // namespace

// Every event of the inner box is the outer control's, raised once with the same arguments, so a
// host's change to a key reaches the inner box's own handling; the outer control's key hooks run
// on what the host left.
void InnerMaskEditor::relayEvents()
{
    ControlFrame *outer = &m_frame;
    ControlFramePrivate *hooks = &m_d;
    connect(m_box, &ControlFrame::Click, this, relayTo(outer, &ControlFrame::Click));
    connect(m_box, &ControlFrame::DblClick, this, relayTo(outer, &ControlFrame::DblClick));
    connect(m_box, &ControlFrame::MouseDown, this, relayTo(outer, &ControlFrame::MouseDown));
    connect(m_box, &ControlFrame::MouseMove, this, relayTo(outer, &ControlFrame::MouseMove));
    connect(m_box, &ControlFrame::MouseUp, this, relayTo(outer, &ControlFrame::MouseUp));
    connect(m_box, &ControlFrame::OLECompleteDrag, this, relayTo(outer, &ControlFrame::OLECompleteDrag));
    connect(m_box, &ControlFrame::OLEDragDrop, this, relayTo(outer, &ControlFrame::OLEDragDrop));
    connect(m_box, &ControlFrame::OLEDragOver, this, relayTo(outer, &ControlFrame::OLEDragOver));
    connect(m_box, &ControlFrame::OLEGiveFeedback, this, relayTo(outer, &ControlFrame::OLEGiveFeedback));
    connect(m_box, &ControlFrame::OLESetData, this, relayTo(outer, &ControlFrame::OLESetData));
    connect(m_box, &ControlFrame::OLEStartDrag, this, relayTo(outer, &ControlFrame::OLEStartDrag));
    connect(m_box, &ControlFrame::KeyDown, this, [outer, hooks](short &keyCode, short &shift) {
        QPointer<ControlFrame> self(outer);
        try {
            emit outer->KeyDown(keyCode, shift);
            if (self && keyCode != 0)
                hooks->handleKeyDown(keyCode, shift);
        } catch (...) {
            keyCode = 0; // a key that failed half-way is dropped
        }
    });
    connect(m_box, &ControlFrame::keyPress, this, [outer, hooks](short &keyAscii) {
        QPointer<ControlFrame> self(outer);
        try {
            emit outer->keyPress(keyAscii);
            if (self && keyAscii != 0)
                hooks->handleKeyPress(keyAscii);
        } catch (...) {
            keyAscii = 0;
        }
    });
    connect(m_box, &ControlFrame::KeyUp, this, [outer, hooks](short &keyCode, short &shift) {
        QPointer<ControlFrame> self(outer);
        try {
            emit outer->KeyUp(keyCode, shift);
            if (self && keyCode != 0)
                hooks->handleKeyUp(keyCode, shift);
        } catch (...) {
            keyCode = 0;
        }
    });
    connect(m_box, &ControlFrame::Change, this, [this, outer, hooks] {
        try {
            // The inner box raises Change for its check box as well: the outer control's value
            // controls follow the box, as they do on a line control.
            if (m_box->Checked() != m_checked) {
                QPointer<ControlFrame> self(outer);
                m_checked = m_box->Checked();
                hooks->updateValueControls();
                if (self)
                    hooks->afterCheckClick();
                if (!self)
                    return;
            }
            hooks->onTextChanged(text());
        } catch (...) {
        }
    });
}

QWidget *InnerMaskEditor::focusTarget() const
{
    return m_box;
}

void InnerMaskEditor::forward(QEvent *event)
{
    // Straight to the box's handlers: sending it would take the event through the box's parents,
    // this control among them, a second time.
    static_cast<QObject *>(m_box)->event(event);
}

QVariant InnerMaskEditor::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return LineEditor::mapQueryToFrame(m_box, &m_frame, query, m_box->inputMethodQuery(query));
}

void InnerMaskEditor::apply(Applied what)
{
    switch (what) {
    case Applied::Colors:
        // Each set repaints the inner text box, so only what changed is set: a new control
        // passes here several times. A new palette reaches the inner box by itself.
        if (m_box->BackColor() != m_frame.BackColor())
            m_box->setBackColor(m_frame.BackColor());
        if (m_box->ForeColor() != m_frame.ForeColor())
            m_box->setForeColor(m_frame.ForeColor());
        if (m_box->DisabledColor() != m_frame.DisabledColor())
            m_box->setDisabledColor(m_frame.DisabledColor());
        // Disabled by the outer frame as by its own setting, so that it shows DisabledColor.
        if (m_box->Enabled() != m_frame.Enabled())
            m_box->setEnabled(m_frame.Enabled());
        break;
    case Applied::Cursor:
        m_box->setMouseIcon(m_frame.MouseIcon());
        m_box->setMousePointer(m_frame.MousePointer());
        break;
    case Applied::DragMode:
        m_box->setOLEDragMode(m_frame.OLEDragMode());
        break;
    case Applied::DropMode:
        m_box->setOLEDropMode(m_frame.OLEDropMode());
        break;
    case Applied::EnterAsTab:
        m_box->setEnterAsTab(m_frame.EnterAsTab());
        break;
    case Applied::ToolTip:
        m_box->setToolTip(m_frame.ToolTip());
        break;
    case Applied::CheckBox:
        m_box->setCheckBox(m_frame.CheckBox());
        break;
    case Applied::UserMode:
        m_box->setUserMode(m_frame.UserMode());
        break;
    }
}

twAlignmentConstants InnerMaskEditor::alignment() const
{
    return m_box->Alignment();
}

void InnerMaskEditor::setAlignment(twAlignmentConstants alignment)
{
    m_box->setAlignment(alignment);
}

bool InnerMaskEditor::locked() const
{
    return m_box->Locked();
}

void InnerMaskEditor::setLocked(bool locked)
{
    m_box->setLocked(locked);
}

bool InnerMaskEditor::checked() const
{
    return m_box->Checked();
}

void InnerMaskEditor::setChecked(bool checked)
{
    m_box->setChecked(checked);
}

bool InnerMaskEditor::checkHasFocus() const
{
    return m_box->checkHasFocus();
}

QString InnerMaskEditor::text() const
{
    return m_box->Text();
}

int InnerMaskEditor::selStart() const
{
    return m_box->SelStart();
}

void InnerMaskEditor::setSelStart(int start)
{
    m_box->setSelStart(start);
}

int InnerMaskEditor::selLength() const
{
    return m_box->SelLength();
}

void InnerMaskEditor::setSelLength(int length)
{
    m_box->setSelLength(length);
}

QString InnerMaskEditor::selText() const
{
    return m_box->SelText();
}

void InnerMaskEditor::selectAll()
{
    m_box->setSelStart(0);
    m_box->setSelLength(int(m_box->Text().size()));
}

void InnerMaskEditor::layout(int reservedWidth)
{
    m_d.placeTwips(m_box, 0, 0, m_d.innerWidthTwips() - reservedWidth, m_d.innerHeightTwips());
}

void InnerMaskEditor::refresh()
{
    m_box->Refresh();
}

void InnerMaskEditor::startDrag()
{
    m_box->OLEDrag();
}

} // namespace Tarnwell
