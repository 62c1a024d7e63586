#include "shared/uservalue.h"

#include <tarnwell/controlframe.h>

#include "shared/bagkeys.h"

#include <QCoreApplication>
#include <QDebug>
#include <QList>
#include <QPointer>

namespace Tarnwell {

namespace {

// The values waiting for their deferred check, and the one queued call that runs them all. A
// form that creates a thousand controls queues one call, not a thousand: every object that still
// has a posted event costs a scan of the whole event queue when it is destroyed.
struct PendingChecks
{
    QList<UserValue *> values;
    QPointer<QCoreApplication> queuedOn; // the application the call is queued on, if any
};

PendingChecks &pendingChecks()
{
    static PendingChecks pending;
    return pending;
}

} // namespace

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

UserValue::~UserValue()
{
    if (m_checkPending)
        pendingChecks().values.removeOne(this);
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
    PendingChecks &pending = pendingChecks();
    QCoreApplication *app = QCoreApplication::instance();
    if (!app)
        return; // no event loop to come back to: nothing can be listening yet
    m_checkPending = true;
    pending.values.append(this);
    // A call queued on an application since destroyed was dropped with it.
    if (pending.queuedOn != app) {
        pending.queuedOn = app;
        QMetaObject::invokeMethod(app, &UserValue::runPendingChecks, Qt::QueuedConnection);
    }
}

void UserValue::runPendingChecks()
{
    PendingChecks &pending = pendingChecks();
    pending.queuedOn.clear();
    // One at a time from the live list: a notify handler may destroy controls still waiting,
    // and a destroyed value leaves the list itself. Checks asked for meanwhile wait for the next
    // call, as they would have on their own.
    qsizetype due = pending.values.size();
    while (due-- > 0 && !pending.values.isEmpty()) {
        UserValue *value = pending.values.takeFirst();
        value->m_checkPending = false;
        try {
            value->check();
        } catch (...) {
            // A handler's exception must not reach the event loop.
        }
    }
}

void UserValue::refuse(const QVariant &value, int errorNumber)
{
    qWarning().nospace() << m_frame.metaObject()->className() << ' ' << m_frame.objectName()
                         << ": refused " << value << ": " << Error::textOf(errorNumber) << " ("
                         << errorNumber << ')';
    emit m_frame.valueRefused(value, errorNumber);
}

} // namespace Tarnwell
