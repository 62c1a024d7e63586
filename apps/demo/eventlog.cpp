#include "eventlog.h"

#include "signalrelay.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace Tarnwell::Demo {

namespace {
// Raised for every pixel the pointer travels or every caret step; they would bury the rest.
const QByteArray continuousEvents[] = {"MouseMove", "OLEDragOver", "OLEGiveFeedback",
                                      "cursorPositionChanged", "selectionChanged"};
} // namespace

EventLog::EventLog(QWidget *parent) : QWidget(parent)
{
    m_text = new QPlainTextEdit(this);
    m_text->setObjectName(QStringLiteral("eventText"));
    m_text->setReadOnly(true);
    m_text->setMaximumBlockCount(5000);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setPlaceholderText(tr("Type into the form: every event the fields raise shows here."));

    m_mouseMoves = new QCheckBox(tr("Show &mouse moves"), this);
    auto *clearButton = new QPushButton(tr("C&lear"), this);
    connect(m_mouseMoves, &QCheckBox::toggled, this, &EventLog::setShowMouseMoves);
    connect(clearButton, &QPushButton::clicked, this, &EventLog::clear);

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_mouseMoves);
    buttons->addStretch();
    buttons->addWidget(clearButton);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text);
    layout->addLayout(buttons);
}

EventLog::~EventLog()
{
    for (SignalRelay *relay : std::as_const(m_relays))
        disconnect(relay, &QObject::destroyed, this, nullptr);
}

void EventLog::watch(QObject *source, const QString &name)
{
    if (!source)
        return;
    for (SignalRelay *relay : std::as_const(m_relays)) {
        if (relay->parent() == source)
            return;
    }
    // The relay lives as the source's child, so it goes with the source; the sink holds the log
    // through a guard, in case the source outlives the log.
    QPointer<EventLog> self(this);
    auto *relay = new SignalRelay(source, name, [self](const QString &line) {
        if (self)
            self->append(line);
    }, source);
    for (const QByteArray &event : continuousEvents)
        relay->setMuted(event, !m_showMouseMoves);
    m_relays.append(relay);
    connect(relay, &QObject::destroyed, this, [this, relay] { m_relays.removeOne(relay); });
}

void EventLog::note(const QString &text)
{
    append(QStringLiteral("-- ") + text);
}

void EventLog::append(const QString &line)
{
    m_text->appendPlainText(line);
}

void EventLog::clear()
{
    m_text->clear();
}

QStringList EventLog::lines() const
{
    const QString all = m_text->toPlainText();
    return all.isEmpty() ? QStringList() : all.split(u'\n');
}

void EventLog::setShowMouseMoves(bool show)
{
    m_showMouseMoves = show;
    if (m_mouseMoves->isChecked() != show)
        m_mouseMoves->setChecked(show);
    for (SignalRelay *relay : std::as_const(m_relays)) {
        for (const QByteArray &event : continuousEvents)
            relay->setMuted(event, !show);
    }
}

} // namespace Tarnwell::Demo
