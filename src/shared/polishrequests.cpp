#include "shared/polishrequests.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

namespace Tarnwell {

void dropPolishRequests(QWidget *control)
{
    if (!control || !QCoreApplication::instance())
        return;
    QCoreApplication::removePostedEvents(control, QEvent::PolishRequest);
    for (QObject *child : control->children()) {
        if (child->isWidgetType())
            dropPolishRequests(static_cast<QWidget *>(child));
    }
}

} // namespace Tarnwell
