#pragma once
#include <tarnwell/error.h>

#include <QObject>
#include <QVariant>

#include <functional>

namespace Tarnwell {

class ControlFrame;

// The value behind a control's USER property, the one Qt's item delegates and widget mappers
// read and write (MaskBox text, NumberBox value, DateBox date, TimeBox time). It tells the
// property's notify signal once per change of that value, whatever changed it (typing, stepping,
// a set), and never on a move of the focus alone; and it turns a refused write into a report
// (ControlFrame::valueRefused and a warning) instead of an exception that would reach Qt's event
// loop.
//
// Made in the control's constructor once its defaults are in place, and held as the control's
// last member: it goes, with its connections, before the rest of the control, so that nothing
// emitted while the control is torn down reads a value half destroyed.
class UserValue : public QObject
{
public:
    using Reader = std::function<QVariant()>;
    using Notifier = std::function<void(const QVariant &)>;

    // `read` gives the property's value as the property's type; `notify` emits its signal.
    UserValue(ControlFrame &frame, Reader read, Notifier notify);
    ~UserValue() override;

    // Runs `set`, which writes `value` through the control's documented setters and throws the
    // control's Error for a value it refuses; the refusal is reported and goes no further.
    template<typename Set>
    void write(const QVariant &value, Set &&set)
    {
        try {
            set();
        } catch (const Error &error) {
            refuse(value, error.number());
        }
        check();
    }

    // Reports `value` refused with Error `errorNumber`.
    void refuse(const QVariant &value, int errorNumber);

    // Tells the change when the value differs from the one last told.
    void check();

private:
    // Another property moved, which may move the value with no Change (PromptInclude, CharCase,
    // CheckBox, DataType...). Checked once control returns to the event loop, so that a setter
    // that reports its property before it has finished is not seen half-way.
    void checkLater();
    // Runs the checks asked for since the last run, in the order they were asked.
    static void runPendingChecks();

    ControlFrame &m_frame;
    Reader m_read;
    Notifier m_notify;
    QVariant m_told;
    bool m_checkPending = false;
};

} // namespace Tarnwell
