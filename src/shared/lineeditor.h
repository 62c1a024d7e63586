#pragma once
#include "shared/eventrelay.h"
#include "shared/frameeditor.h"
#include "shared/keypipeline.h"

#include <QObject>

class QCheckBox;
class QColor;
class QLineEdit;

namespace Tarnwell {

class ControlFrame;
class ControlFramePrivate;
class TextBox;

// The editor of MaskBox and NumberBox: the text box Text1 and, left of it, the check box Check1,
// which is created only when it is first needed. It runs the key pipeline and the mouse and drag
// relay on Text1, and tells the frame's own writes, typed text and text that arrives without
// keys apart.
class LineEditor final : public QObject, public FrameEditor
{
    Q_OBJECT
public:
    explicit LineEditor(ControlFrame &frame);
    ~LineEditor() override;

    QLineEdit *text1() const;
    // Check1, created hidden on first use.
    QCheckBox *check1();

    // Writes Text1 as the control's own edit: the text only when it differs, then the selection.
    void write(const QString &text, int selStart, int selLength);

    // Paints a text box of the control with its text and back colours; a box in the default
    // colours keeps its natural palette, so nothing is copied for it.
    static void paint(QWidget *box, const QColor &text, const QColor &base, bool natural);
    // An input-method answer of the text widget `text`, its rectangles moved into `frame`'s
    // coordinates.
    static QVariant mapQueryToFrame(const QWidget *text, const QWidget *frame,
                                    Qt::InputMethodQuery query, const QVariant &value);

    // FrameEditor
    QWidget *focusTarget() const override;
    void forward(QEvent *event) override;
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    void apply(Applied what) override;
    twAlignmentConstants alignment() const override;
    void setAlignment(twAlignmentConstants alignment) override;
    bool locked() const override;
    void setLocked(bool locked) override;
    bool checked() const override { return m_checked; }
    void setChecked(bool checked) override;
    bool checkHasFocus() const override { return m_checkHasFocus; }
    QString text() const override;
    int selStart() const override;
    void setSelStart(int start) override;
    int selLength() const override;
    void setSelLength(int length) override;
    QString selText() const override;
    void selectAll() override;
    void layout(int reservedWidth) override;
    void refresh() override;
    void startDrag() override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool filterText(QEvent *event);
    void textChanged(const QString &text);
    void checkClicked();
    void applyCheckVisibility();

    ControlFrame &m_frame;
    ControlFramePrivate &m_d; // the control's hooks
    TextBox *m_text1 = nullptr;
    QCheckBox *m_check1 = nullptr;
    KeyPipeline m_keys;
    EventRelay m_relay;
    QString m_accepted; // the text as last taken
    bool m_checked = true;
    bool m_checkHasFocus = false;
    int m_writing = 0;
    bool m_reverting = false;
};

} // namespace Tarnwell
