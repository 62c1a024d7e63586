#include "formdocument.h"

#include "demoform.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QMetaMethod>
#include <QMetaProperty>

#include <exception>
#include <utility>

namespace Tarnwell::Demo {

namespace {

const QString applicationName = QStringLiteral("tarnwell-demo");
constexpr int documentVersion = 1;

// The control's WriteProperties/ReadProperties taking a PropertyBag by reference, looked up by
// name so that any control the form holds is served without the demo knowing its class.
QMetaMethod bagMethod(const QObject *object, const char *name)
{
    const QMetaObject *meta = object->metaObject();
    for (int i = 0; i < meta->methodCount(); ++i) {
        const QMetaMethod method = meta->method(i);
        if (method.name() == name && method.parameterCount() == 1
            && method.parameterTypeName(0).endsWith("PropertyBag&"))
            return method;
    }
    return {};
}

// Calls a bag method directly: the reference argument needs no meta type and no copy.
void invokeWithBag(QObject *object, const QMetaMethod &method, PropertyBag &bag)
{
    void *argv[] = {nullptr, &bag};
    QMetaObject::metacall(object, QMetaObject::InvokeMetaMethod, method.methodIndex(), argv);
}

} // namespace

PropertyBag FormDocument::bagOf(QWidget *field)
{
    PropertyBag bag;
    if (const QMetaMethod write = bagMethod(field, "WriteProperties"); write.isValid())
        invokeWithBag(field, write, bag);
    else if (const auto *edit = qobject_cast<const QLineEdit *>(field))
        bag.WriteProperty(QStringLiteral("Text"), edit->text(), QString());
    return bag;
}

void FormDocument::applyBag(QWidget *field, const PropertyBag &bag)
{
    if (const QMetaMethod read = bagMethod(field, "ReadProperties"); read.isValid()) {
        PropertyBag copy = bag; // ReadProperties logs what it reads into the bag
        invokeWithBag(field, read, copy);
    } else if (auto *edit = qobject_cast<QLineEdit *>(field)) {
        edit->setText(bag.ReadProperty(QStringLiteral("Text"), QString()).toString());
    }
}

PropertyBag FormDocument::dataOf(QWidget *field)
{
    PropertyBag data;
    if (field->metaObject()->indexOfProperty("Value") >= 0)
        data.WriteProperty(QStringLiteral("Value"), field->property("Value"), QVariant());
    return data;
}

void FormDocument::applyData(QWidget *field, const PropertyBag &data)
{
    const int index = field->metaObject()->indexOfProperty("Value");
    if (index < 0 || !field->metaObject()->property(index).isWritable())
        return;
    // An absent Value is Empty, which clears the field as a new one would be.
    field->setProperty("Value", data.ReadProperty(QStringLiteral("Value"), QVariant()));
}

QByteArray FormDocument::save(const DemoForm &form)
{
    QJsonArray fields;
    for (QWidget *field : form.fields()) {
        QJsonObject entry;
        entry.insert(QStringLiteral("name"), field->objectName());
        entry.insert(QStringLiteral("class"), QString::fromLatin1(field->metaObject()->className()));
        entry.insert(QStringLiteral("properties"), bagOf(field).toJson());
        if (field->metaObject()->indexOfProperty("Value") >= 0)
            entry.insert(QStringLiteral("data"), dataOf(field).toJson());
        fields.append(entry);
    }
    QJsonObject root;
    root.insert(QStringLiteral("application"), applicationName);
    root.insert(QStringLiteral("version"), documentVersion);
    root.insert(QStringLiteral("fields"), fields);
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

bool FormDocument::load(DemoForm &form, const QByteArray &json, QString *error, QStringList *skipped)
{
    auto fail = [error](const QString &message) {
        if (error)
            *error = message;
        return false;
    };
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return fail(QStringLiteral("not JSON: %1 at offset %2")
                        .arg(parseError.errorString()).arg(parseError.offset));
    const QJsonObject root = document.object();
    if (!document.isObject() || root.value(QStringLiteral("application")).toString() != applicationName)
        return fail(QStringLiteral("not a saved Tarnwell demo form"));
    const QJsonValue version = root.value(QStringLiteral("version"));
    if (!version.isDouble() || version.toDouble() != documentVersion)
        return fail(QStringLiteral("unsupported version %1 (this demo reads version %2)")
                        .arg(version.toVariant().toString()).arg(documentVersion));
    if (!root.value(QStringLiteral("fields")).isArray())
        return fail(QStringLiteral("\"fields\" is missing or not a list"));

    // Everything is checked before anything is applied, so a bad file changes nothing.
    struct Update {
        QWidget *field;
        PropertyBag properties;
        PropertyBag data;
        bool hasData;
    };
    QList<Update> updates;
    QStringList unknown;
    for (const QJsonValue &value : root.value(QStringLiteral("fields")).toArray()) {
        const QJsonObject entry = value.toObject();
        const QString name = entry.value(QStringLiteral("name")).toString();
        const QJsonValue properties = entry.value(QStringLiteral("properties"));
        const QJsonValue data = entry.value(QStringLiteral("data"));
        if (!value.isObject() || name.isEmpty() || !properties.isArray())
            return fail(QStringLiteral("each field needs a \"name\" and a \"properties\" list"));
        if (!data.isUndefined() && !data.isArray())
            return fail(QStringLiteral("field \"%1\": \"data\" is not a list").arg(name));
        QWidget *field = form.field(name);
        if (!field) {
            unknown.append(name);
            continue;
        }
        for (const Update &update : std::as_const(updates)) {
            if (update.field == field)
                return fail(QStringLiteral("field \"%1\" appears twice").arg(name));
        }
        updates.append({field, PropertyBag::fromJson(properties.toArray()),
                        PropertyBag::fromJson(data.toArray()), data.isArray()});
    }

    QList<Update> previous;
    for (const Update &update : std::as_const(updates))
        previous.append({update.field, bagOf(update.field), dataOf(update.field), true});
    auto apply = [](const Update &update) {
        applyBag(update.field, update.properties);
        if (update.hasData)
            applyData(update.field, update.data);
    };
    QString failedField;
    try {
        for (const Update &update : std::as_const(updates)) {
            failedField = update.field->objectName();
            apply(update);
        }
    } catch (const std::exception &e) {
        for (const Update &update : std::as_const(previous)) {
            try {
                apply(update);
            } catch (const std::exception &) {
                // It held these properties a moment ago; nothing more to do if it now refuses.
            }
        }
        return fail(QStringLiteral("field \"%1\": %2").arg(failedField, QString::fromLocal8Bit(e.what())));
    }
    if (skipped)
        *skipped = unknown;
    return true;
}

} // namespace Tarnwell::Demo
