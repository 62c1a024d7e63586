#pragma once
#include <QObject>
#include <QPointer>
#include <QSet>

class QWidget;

namespace Tarnwell {

// Keeps a widget's context menu from ever opening (by mouse or by the menu key) while leaving
// every other event alone: an event filter that swallows QEvent::ContextMenu.
//
// The original kept the replaced window procedure in one process-wide slot, so a second install
// overwrote it. Here each install filters its own widget and removing it unhooks exactly that
// widget; the slot survives only as hookedWidget(), the widget hooked last.
class ContextMenuHook : public QObject
{
    Q_OBJECT
public:
    static void installWindowHook(QWidget *control);
    static void removeWindowHook(QWidget *control);
    static bool isHooked(const QWidget *control);
    static QWidget *hookedWidget();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    ContextMenuHook() = default;
    static ContextMenuHook *instance();

    QPointer<QWidget> m_last;
    // The widgets hooked now: a set rather than a mark on each widget, which would cost every
    // new NumberBox a dynamic property.
    QSet<const QWidget *> m_hooked;
};

} // namespace Tarnwell
