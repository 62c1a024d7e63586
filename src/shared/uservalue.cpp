#include "shared/uservalue.h"

#include <tarnwell/controlframe.h>

#include "shared/bagkeys.h"

#include <QDebug>
#include <QPointer>

namespace Tarnwell {

UserValue::UserValue(ControlFrame &frame, Reader read, Notifier notify)
    : m_frame(frame), m_read(std::move(read)), m_notify(std::move(notify)),
      m_told(m_read())
{
    // Change comes once the control has settled its value; so does "Value" from NumberBox. The
    // date and time controls report "Value" before they set it, which finds nothing new here
    // and leaves the change to their Change.
    connect(&frame, &ControlFrame::Change, this, &UserValue::check);
    connect(&frame, &ControlFrame::PropertyChanged, this, [this](const QString &name) {
        if (name == BagKey::Value)
            check();
        else
            checkLater();
    });
}

void UserValue::check()
{
    const QVariant now = m_read();
    // Same type and same value: an int 2 and a double 2.0 are different cells to a model.
    if (now.metaType() == m_told.metaType() && now == m_told)
        return;
    m_told = now;
    m_notify(now);
}

void UserValue::checkLater()
{
    if (m_checkPending)
        return;
    m_checkPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_checkPending = false;
            check();
        },
        Qt::QueuedConnection);
}

void UserValue::refuse(const QVariant &value, int errorNumber)
{
    qWarning().nospace() << m_frame.metaObject()->className() << ' ' << m_frame.objectName()
                         << ": refused " << value << ": " << Error::textOf(errorNumber) << " ("
                         << errorNumber << ')';
    emit m_frame.valueRefused(value, errorNumber);
}

} // namespace Tarnwell
