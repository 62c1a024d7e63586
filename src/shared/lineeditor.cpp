#include "shared/lineeditor.h"

#include <tarnwell/controlframe.h>

#include "shared/controlframe_p.h"
#include "shared/focustracker.h"
#include "shared/mousepointer.h"
#include "shared/slotguard.h"
#include "shared/textbox.h"
#include "shared/twips.h"

#include <QApplication>
#include <QCheckBox>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>
#include <iterator>

namespace Tarnwell {

namespace {

Qt::Alignment qtAlignment(twAlignmentConstants alignment)
{
    switch (alignment) {
    case twRightJustify: return Qt::AlignRight | Qt::AlignVCenter;
    case twCenter: return Qt::AlignHCenter | Qt::AlignVCenter;
    default: return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

TextBox *makeTextBox(ControlFrame &frame)
{
    auto *text1 = new TextBox(&frame);
    text1->setObjectName(QStringLiteral("Text1"));
    // The layout leaves the text box only a few pixels more than the font's cap height; every
    // pixel of it goes to the text.
    text1->setFrame(false);
    text1->setAlignment(qtAlignment(twRightJustify));
    text1->setMouseTracking(true); // the host sees MouseMove without a button held
    text1->setDragEnabled(false);
    text1->setAcceptDrops(false);
    return text1;
}

// Lets a frameless line edit shorter than its font's line show the whole of its capitals and
// descenders: the line is shifted so that what is drawn, capitals to descenders, sits centred.
// A box tall enough is centred as usual, with no margins.
void fitTextLine(QLineEdit *edit)
{
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

} // namespace

LineEditor::LineEditor(ControlFrame &frame)
    : m_frame(frame), m_d(*ControlFramePrivate::get(&frame)), m_text1(makeTextBox(frame)),
      m_keys(frame, *m_text1), m_relay(frame, *m_text1)
{
    // The frame holds the focus for the text box: clicks and setFocus() on it go to the frame.
    m_text1->setFocusProxy(&frame);
    m_text1->installEventFilter(this);
    connect(m_text1, &QLineEdit::textChanged, this, guardedSlot([this](const QString &text) { textChanged(text); }));
}

LineEditor::~LineEditor()
{
    // The widgets die after the frame's destructor; their last events must not reach us.
    m_text1->removeEventFilter(this);
    disconnect(m_text1, nullptr, this, nullptr);
    if (m_check1) {
        m_check1->removeEventFilter(this);
        disconnect(m_check1, nullptr, this, nullptr);
    }
}

QLineEdit *LineEditor::text1() const
{
    return m_text1;
}

QCheckBox *LineEditor::check1()
{
    if (m_check1)
        return m_check1;
    m_check1 = new QCheckBox(&m_frame);
    m_check1->setObjectName(QStringLiteral("Check1"));
    m_check1->setChecked(m_checked);
    m_check1->hide();
    m_check1->installEventFilter(this);
    connect(m_check1, &QCheckBox::toggled, this, [this] {
        try {
            m_checked = m_check1->isChecked();
            checkClicked();
        } catch (...) {
        }
    });
    return m_check1;
}

void LineEditor::write(const QString &text, int selStart, int selLength)
{
    QPointer<QLineEdit> alive(m_text1);
    if (m_text1->text() != text) {
        ++m_writing;
        m_text1->setText(text);
        // A Change handler may have destroyed the control meanwhile.
        if (!alive)
            return;
        --m_writing;
    }
    const int length = int(text.size());
    const int start = qBound(0, selStart, length);
    if (selLength > 0)
        m_text1->setSelection(start, qMin(selLength, length - start));
    else if (m_text1->cursorPosition() != start || m_text1->hasSelectedText())
        m_text1->setCursorPosition(start); // a caret that moves is announced to accessibility
}

void LineEditor::textChanged(const QString &text)
{
    if (m_reverting) {
        m_accepted = text;
        return;
    }
    if (m_writing > 0 || m_text1->handlingKey()) {
        m_accepted = text;
        m_d.onTextChanged(text);
        return;
    }
    // Text that came without keys.
    const QString previous = m_accepted;
    if (m_text1->isReadOnly()) {
        const QScopedValueRollback<bool> reverting(m_reverting, true);
        m_text1->setText(previous);
        m_text1->setCursorPosition(int(previous.size()));
        return;
    }
    m_accepted = text;
    m_d.onForeignText(text, previous);
}

// ---------------------------------------------------------------------------------------------
// Properties

QWidget *LineEditor::focusTarget() const
{
    return m_text1;
}

void LineEditor::forward(QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        m_keys.keyPress(static_cast<QKeyEvent *>(event));
        break;
    case QEvent::KeyRelease:
        m_keys.keyRelease(static_cast<QKeyEvent *>(event));
        break;
    case QEvent::ShortcutOverride:
        m_keys.shortcutOverride(static_cast<QKeyEvent *>(event));
        break;
    case QEvent::InputMethod:
        m_keys.inputMethod(static_cast<QInputMethodEvent *>(event));
        break;
    case QEvent::FocusIn: {
        // The line edit selects everything when tabbed into; whether entering selects is
        // SelectTextOnFocus's call alone, so without it the caret stays where it was.
        const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
        if (!m_frame.SelectTextOnFocus()
            && (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
                || reason == Qt::ShortcutFocusReason)) {
            QFocusEvent plain(QEvent::FocusIn, Qt::OtherFocusReason);
            m_text1->handOn(&plain);
        } else {
            m_text1->handOn(event);
        }
        break;
    }
    default:
        m_text1->handOn(event);
        break;
    }
}

QVariant LineEditor::inputMethodQuery(Qt::InputMethodQuery query) const
{
    return mapQueryToFrame(m_text1, &m_frame, query, m_text1->inputMethodQuery(query));
}

QVariant LineEditor::mapQueryToFrame(const QWidget *text, const QWidget *frame,
                                     Qt::InputMethodQuery query, const QVariant &value)
{
    switch (query) {
    case Qt::ImCursorRectangle:
    case Qt::ImAnchorRectangle:
    case Qt::ImInputItemClipRectangle:
        return value.toRectF().translated(text->mapTo(frame, QPoint(0, 0)));
    default:
        return value;
    }
}

void LineEditor::paint(QWidget *box, const QColor &text, const QColor &base, bool natural)
{
    if (!box)
        return;
    if (natural) {
        if (box->testAttribute(Qt::WA_SetPalette))
            box->setPalette(QPalette());
        return;
    }
    constexpr QPalette::ColorGroup groups[] = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};
    // Painted in these colours already (a control sets several colours in a row, most of which
    // leave the text as it is): a new palette would only be propagated for nothing.
    const QPalette &current = box->palette();
    if (box->testAttribute(Qt::WA_SetPalette)
        && std::all_of(std::begin(groups), std::end(groups), [&](QPalette::ColorGroup group) {
               return current.color(group, QPalette::Text) == text
                      && current.color(group, QPalette::Base) == base;
           }))
        return;
    QPalette pal = current;
    for (QPalette::ColorGroup group : groups) {
        pal.setColor(group, QPalette::Text, text);
        pal.setColor(group, QPalette::Base, base);
    }
    box->setPalette(pal);
}

void LineEditor::apply(Applied what)
{
    switch (what) {
    case Applied::Colors:
        m_d.applyTextColor();
        break;
    case Applied::Cursor:
        MousePointer::apply(m_text1, m_frame.MousePointer(), m_frame.MouseIcon());
        break;
    case Applied::DragMode:
        m_text1->setDragEnabled(m_frame.OLEDragMode() == ControlFrame::OLEDragAutomatic);
        break;
    case Applied::DropMode:
        m_text1->setAcceptDrops(m_frame.OLEDropMode() != ControlFrame::OLEDropNone);
        break;
    case Applied::CheckBox:
        if (m_frame.CheckBox())
            check1();
        applyCheckVisibility();
        break;
    case Applied::EnterAsTab: // read by the key pipeline
    case Applied::ToolTip:    // the frame's own: Text1 shows its parent's tip
    case Applied::UserMode:
        break;
    }
}

twAlignmentConstants LineEditor::alignment() const
{
    const Qt::Alignment a = m_text1->alignment() & Qt::AlignHorizontal_Mask;
    if (a & Qt::AlignRight)
        return twRightJustify;
    if (a & Qt::AlignHCenter)
        return twCenter;
    return twLeftJustify;
}

void LineEditor::setAlignment(twAlignmentConstants alignment)
{
    m_text1->setAlignment(qtAlignment(alignment));
}

bool LineEditor::locked() const
{
    return m_text1->isReadOnly();
}

void LineEditor::setLocked(bool locked)
{
    m_text1->setReadOnly(locked);
}

void LineEditor::setChecked(bool checked)
{
    if (m_checked == checked) {
        applyCheckVisibility();
        return;
    }
    m_checked = checked;
    if (m_check1) {
        const QSignalBlocker blocker(m_check1);
        m_check1->setChecked(checked);
    }
    checkClicked();
}

// The check box's value changed: the text shows only while it is ticked, the focus goes into the
// text when the user ticked it, and the host hears of it.
void LineEditor::checkClicked()
{
    applyCheckVisibility();
    if (!m_text1->isHidden() && m_checkHasFocus)
        m_text1->setFocus(Qt::OtherFocusReason);
    QPointer<ControlFrame> self(&m_frame);
    m_d.updateValueControls();
    if (!self)
        return;
    m_d.afterCheckClick();
    if (self && !m_frame.isUpdating())
        emit m_frame.Change();
}

// The text shows only while the box is ticked. While it is hidden the check box takes the focus
// for the control: the control that holds the focus (the outer one, for an inner MaskBox) hands
// it to the check box, which Tab reaches after the text.
void LineEditor::applyCheckVisibility()
{
    const bool hidden = m_frame.CheckBox() && !m_checked;
    m_text1->setVisible(!hidden);
    if (!m_check1)
        return;
    ControlFrame *root = FocusTracker::focusRoot(&m_frame);
    if (root->focusProxy() != m_check1)
        FocusTracker::placeAfterText(root, m_check1);
    if (hidden && root->focusProxy() != m_check1) {
        const bool rootFocused = QApplication::focusWidget() == root;
        root->setFocusProxy(m_check1);
        if (rootFocused)
            m_check1->setFocus(Qt::OtherFocusReason);
    } else if (!hidden && root->focusProxy() == m_check1) {
        root->setFocusProxy(nullptr);
    }
}

QString LineEditor::text() const
{
    return m_text1->text();
}

int LineEditor::selStart() const
{
    return m_text1->hasSelectedText() ? m_text1->selectionStart() : m_text1->cursorPosition();
}

void LineEditor::setSelStart(int start)
{
    m_text1->setCursorPosition(qMin(start, int(m_text1->text().size())));
}

int LineEditor::selLength() const
{
    return m_text1->selectionLength();
}

void LineEditor::setSelLength(int length)
{
    const int start = selStart();
    const int clipped = qMin(length, int(m_text1->text().size()) - start);
    if (clipped > 0)
        m_text1->setSelection(start, clipped);
    else
        m_text1->setCursorPosition(start);
}

QString LineEditor::selText() const
{
    return m_text1->selectedText();
}

void LineEditor::selectAll()
{
    m_text1->setSelection(0, int(m_text1->text().size()));
}

// ---------------------------------------------------------------------------------------------
// Layout

void LineEditor::layout(int reservedWidth)
{
    const twBorderStyleConstants style = m_frame.BorderStyle();
    const bool checkBox = m_frame.CheckBox();
    const int left = checkBox ? Twips::TextLeftWithCheckBox : Twips::TextInset;
    const int top = Twips::TextInset;
    // Across, the border's allowance; down, the same inset below as above, so that the text line
    // stays centred on the frame as a QLineEdit centres it (the allowance would cut it short).
    m_d.placeTwips(m_text1, left, top,
                   m_d.innerWidthTwips() - Twips::borderAllowanceX(style) - left - reservedWidth,
                   m_d.innerHeightTwips() - 2 * top);
    if (checkBox) {
        QCheckBox *box = check1();
        const QStyle *st = m_frame.style();
        const int w = st->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, box);
        const int h = st->pixelMetric(QStyle::PM_IndicatorHeight, nullptr, box);
        const int textHeight = m_text1->height() * Twips::PerPixel;
        m_d.placeTwips(box, 15, Twips::checkBoxTop(textHeight, h * Twips::PerPixel),
                       w * Twips::PerPixel, h * Twips::PerPixel);
        box->show();
    } else if (m_check1) {
        m_check1->hide();
    }
    applyCheckVisibility();
}

void LineEditor::refresh()
{
    m_text1->update();
    if (m_check1)
        m_check1->update();
}

void LineEditor::startDrag()
{
    m_relay.startDrag();
}

// ---------------------------------------------------------------------------------------------
// Events

bool LineEditor::eventFilter(QObject *watched, QEvent *event)
{
    try {
        if (watched == m_text1)
            return filterText(event);
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
        case QEvent::InputMethod:
            return true;
        default:
            return false;
        }
    }
    return false;
}

bool LineEditor::filterText(QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod: {
        // Sent to the text box itself (not handed on by the control): the control's own, with
        // its filters and its parents, as if sent to it. Handing it on goes around this filter.
        QCoreApplication::sendEvent(FocusTracker::focusRoot(&m_frame), event);
        event->accept(); // the control has propagated it already
        return true;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
        return m_relay.mouse(static_cast<QMouseEvent *>(event));
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::DragLeave:
    case QEvent::Drop:
        return m_d.filterDrop(event) || m_relay.drag(event);
    case QEvent::Resize:
    case QEvent::FontChange:
        fitTextLine(m_text1);
        return false;
    default:
        return false;
    }
}

} // namespace Tarnwell
