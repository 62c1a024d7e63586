#include "shared/contextmenuhook.h"

#include <QEvent>
#include <QWidget>

namespace Tarnwell {

ContextMenuHook *ContextMenuHook::instance()
{
    // Lives as long as the process; hooked widgets drop their filter themselves when destroyed.
    static ContextMenuHook *hook = new ContextMenuHook;
    return hook;
}

void ContextMenuHook::installWindowHook(QWidget *control)
{
    if (!control)
        return;
    ContextMenuHook *hook = instance();
    // A second install on the same widget must not stack a second filter.
    if (!hook->m_hooked.contains(control)) {
        hook->m_hooked.insert(control);
        control->installEventFilter(hook);
    }
    hook->m_last = control;
}

void ContextMenuHook::removeWindowHook(QWidget *control)
{
    if (!control)
        return;
    ContextMenuHook *hook = instance();
    if (hook->m_hooked.remove(control))
        control->removeEventFilter(hook);
    if (hook->m_last == control)
        hook->m_last = nullptr;
}

bool ContextMenuHook::isHooked(const QWidget *control)
{
    return control && instance()->m_hooked.contains(control);
}

QWidget *ContextMenuHook::hookedWidget()
{
    return instance()->m_last;
}

bool ContextMenuHook::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ContextMenu) {
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace Tarnwell
