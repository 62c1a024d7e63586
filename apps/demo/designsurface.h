#pragma once
// Design mode's glass over the form: a click selects the field under it (Ctrl+click adds or
// removes it), the selection is drawn as a frame with handles, and the context menu offers the
// selection's properties.
#include <QList>
#include <QPointer>
#include <QWidget>

class QAction;

namespace Tarnwell::Demo {

class DemoForm;

class DesignSurface : public QWidget
{
    Q_OBJECT
public:
    // Covers `form` and follows its size; hidden until design mode shows it. `properties` is the
    // window's "Properties..." action, offered in the context menu too.
    DesignSurface(DemoForm *form, QAction *properties);

    QList<QWidget *> selection() const;
    // The field under `pos` (this widget's coordinates), or the field a caption there names.
    QWidget *fieldAt(const QPoint &pos) const;

    void selectOnly(QWidget *field); // null clears the selection
    void toggle(QWidget *field);
    void clearSelection() { selectOnly(nullptr); }

signals:
    void selectionChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void setSelection(const QList<QWidget *> &fields);
    QRect frameOf(const QWidget *field) const;

    DemoForm *m_form;
    QAction *m_properties;
    QList<QPointer<QWidget>> m_selected;
};

} // namespace Tarnwell::Demo
