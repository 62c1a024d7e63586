#include "signalrelay.h"

#include <QMetaMethod>
#include <QVariant>
#include <QWidget>

namespace Tarnwell::Demo {

namespace {

// Moc records a non-const reference parameter by its spelled type ("short&"), which has no meta
// type of its own; the value behind the pointer is the referred type.
QMetaType parameterType(const QMetaMethod &method, int index)
{
    QMetaType type = method.parameterMetaType(index);
    if (type.isValid())
        return type;
    QByteArray name = method.parameterTypeName(index);
    while (name.endsWith('&'))
        name.chop(1);
    return QMetaType::fromName(name);
}

QString quoted(const QString &text)
{
    QString out;
    out.reserve(text.size() + 2);
    out += u'"';
    for (const QChar c : text) {
        if (c == u'"' || c == u'\\')
            out += u'\\';
        if (c.unicode() < 0x20)
            out += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QChar(u'0'));
        else
            out += c;
    }
    out += u'"';
    return out;
}

} // namespace

SignalRelay::SignalRelay(QObject *source, const QString &name, Sink sink, QObject *parent)
    : QObject(parent), m_name(name), m_sink(std::move(sink))
{
    if (!source)
        return;
    const QMetaObject *meta = source->metaObject();
    const int first = source->isWidgetType() ? QWidget::staticMetaObject.methodCount()
                                             : QObject::staticMetaObject.methodCount();
    const int slotBase = QObject::staticMetaObject.methodCount();
    for (int i = first; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.methodType() != QMetaMethod::Signal)
            continue;
        Relayed relayed{method.name(), {}};
        for (int p = 0; p < method.parameterCount(); ++p)
            relayed.types.append(parameterType(method, p));
        if (QMetaObject::connect(source, i, this, slotBase + int(m_relayed.size()), Qt::DirectConnection))
            m_relayed.append(std::move(relayed));
    }
}

QList<QByteArray> SignalRelay::relayedSignals() const
{
    QList<QByteArray> names;
    for (const Relayed &r : m_relayed)
        names.append(r.name);
    return names;
}

void SignalRelay::setMuted(const QByteArray &signalName, bool muted)
{
    if (muted)
        m_muted.insert(signalName);
    else
        m_muted.remove(signalName);
}

QString SignalRelay::formatArgument(QMetaType type, const void *value)
{
    if (!value)
        return QStringLiteral("?");
    switch (type.id()) {
    case QMetaType::Bool:
        return *static_cast<const bool *>(value) ? QStringLiteral("true") : QStringLiteral("false");
    case QMetaType::Short:
        return QString::number(*static_cast<const short *>(value));
    case QMetaType::UShort:
        return QString::number(*static_cast<const ushort *>(value));
    case QMetaType::Int:
        return QString::number(*static_cast<const int *>(value));
    case QMetaType::UInt:
        return QString::number(*static_cast<const uint *>(value));
    case QMetaType::Long:
        return QString::number(*static_cast<const long *>(value));
    case QMetaType::LongLong:
        return QString::number(*static_cast<const qlonglong *>(value));
    case QMetaType::ULongLong:
        return QString::number(*static_cast<const qulonglong *>(value));
    case QMetaType::Float:
        return QString::number(*static_cast<const float *>(value), 'g', 7);
    case QMetaType::Double:
        return QString::number(*static_cast<const double *>(value), 'g', 15);
    case QMetaType::QString:
        return quoted(*static_cast<const QString *>(value));
    case QMetaType::QVariant: {
        const QVariant &v = *static_cast<const QVariant *>(value);
        if (!v.isValid())
            return QStringLiteral("Empty");
        if (v.metaType().id() == QMetaType::Nullptr)
            return QStringLiteral("Null");
        return formatArgument(v.metaType(), v.constData());
    }
    default:
        break;
    }
    if (type.flags() & QMetaType::PointerToQObject) {
        const QObject *object = *static_cast<QObject *const *>(value);
        if (!object)
            return QStringLiteral("nullptr");
        const QString objectName = object->objectName();
        const QString className = QString::fromLatin1(object->metaObject()->className());
        return objectName.isEmpty() ? className : className + u' ' + objectName;
    }
    if (type.isValid()) {
        // Types with a registered conversion to text (Currency, Date, ...) show their value.
        QString text;
        if (QMetaType::convert(type, value, QMetaType::fromType<QString>(), &text))
            return text;
        return QStringLiteral("<%1>").arg(QString::fromLatin1(type.name()));
    }
    return QStringLiteral("<?>");
}

void SignalRelay::relay(const Relayed &relayed, void **argv) const
{
    if (!m_sink || m_muted.contains(relayed.name))
        return;
    QString line = m_name;
    line += u'.';
    line += QString::fromLatin1(relayed.name);
    line += u'(';
    for (qsizetype i = 0; i < relayed.types.size(); ++i) {
        if (i)
            line += QStringLiteral(", ");
        line += formatArgument(relayed.types[i], argv[i + 1]);
    }
    line += u')';
    m_sink(line);
}

int SignalRelay::qt_metacall(QMetaObject::Call call, int id, void **argv)
{
    id = QObject::qt_metacall(call, id, argv);
    if (id < 0)
        return id;
    if (call == QMetaObject::InvokeMetaMethod) {
        if (id < m_relayed.size())
            relay(m_relayed[id], argv);
        id -= int(m_relayed.size());
    }
    return id;
}

} // namespace Tarnwell::Demo
