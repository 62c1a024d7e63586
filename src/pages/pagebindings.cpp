#include "pages/pagebindings.h"

#include <tarnwell/controlframe.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

namespace Tarnwell::Pages {

QStringList alignmentItems()
{
    return {QStringLiteral("0 - Left Justify"), QStringLiteral("1 - Right Justify"), QStringLiteral("2 - Center")};
}

QStringList borderStyleItems()
{
    return {QStringLiteral("0 - None"), QStringLiteral("1 - FixedSingle"), QStringLiteral("2 - Fixed3D")};
}

QCheckBox *makeCheck(QWidget *parent, const char *name, const QString &caption)
{
    auto *box = new QCheckBox(caption, parent);
    box->setObjectName(QLatin1String(name));
    return box;
}

QComboBox *makeList(QWidget *parent, const char *name, const QStringList &items)
{
    auto *list = new QComboBox(parent);
    list->setObjectName(QLatin1String(name));
    list->addItems(items);
    return list;
}

QComboBox *makeCombo(QWidget *parent, const char *name, const QStringList &items)
{
    QComboBox *combo = makeList(parent, name, items);
    combo->setEditable(true);
    // Typed text is the value; it is not added to the list.
    combo->setInsertPolicy(QComboBox::NoInsert);
    return combo;
}

QLineEdit *makeText(QWidget *parent, const char *name)
{
    auto *text = new QLineEdit(parent);
    text->setObjectName(QLatin1String(name));
    return text;
}

QLabel *makeLabel(QWidget *parent, const char *name, const QString &text, QWidget *buddy)
{
    auto *label = new QLabel(text, parent);
    label->setObjectName(QLatin1String(name));
    label->setBuddy(buddy);
    return label;
}

PageBindings::PageBindings(std::function<void()> edited)
    : m_edited(std::move(edited))
{
}

void PageBindings::add(const char *property, Kind kind, QObject *widget)
{
    m_fields.insert(QByteArray(property), Field{kind, widget});
}

void PageBindings::bind(const char *property, QCheckBox *box)
{
    add(property, Kind::Check, box);
    QObject::connect(box, &QCheckBox::toggled, box, [this] { m_edited(); });
}

void PageBindings::bindIndex(const char *property, QComboBox *list)
{
    add(property, Kind::Index, list);
    QObject::connect(list, &QComboBox::currentIndexChanged, list, [this] { m_edited(); });
}

void PageBindings::bindText(const char *property, QComboBox *combo)
{
    add(property, Kind::ComboText, combo);
    QObject::connect(combo, &QComboBox::currentTextChanged, combo, [this] { m_edited(); });
}

void PageBindings::bindText(const char *property, QLineEdit *text)
{
    add(property, Kind::LineText, text);
    QObject::connect(text, &QLineEdit::textChanged, text, [this] { m_edited(); });
}

void PageBindings::bindValue(const char *property, ControlFrame *control)
{
    add(property, Kind::ControlValue, control);
    QObject::connect(control, &ControlFrame::Change, control, [this] { m_edited(); });
}

void PageBindings::fill(const QObject *control, std::initializer_list<const char *> properties)
{
    for (const char *property : properties)
        show(property, control->property(property));
}

QVariant PageBindings::value(const char *property) const
{
    const auto it = m_fields.constFind(QByteArray(property));
    Q_ASSERT(it != m_fields.constEnd());
    QObject *widget = it->widget;
    switch (it->kind) {
    case Kind::Check:
        return static_cast<QCheckBox *>(widget)->isChecked();
    case Kind::Index:
        return static_cast<QComboBox *>(widget)->currentIndex();
    case Kind::ComboText:
        return static_cast<QComboBox *>(widget)->currentText();
    case Kind::LineText:
        return static_cast<QLineEdit *>(widget)->text();
    case Kind::ControlValue:
        return widget->property("Value");
    }
    return {};
}

void PageBindings::show(const char *property, const QVariant &value)
{
    const auto it = m_fields.constFind(QByteArray(property));
    Q_ASSERT(it != m_fields.constEnd());
    QObject *widget = it->widget;
    switch (it->kind) {
    case Kind::Check:
        static_cast<QCheckBox *>(widget)->setChecked(value.toBool());
        break;
    case Kind::Index:
        static_cast<QComboBox *>(widget)->setCurrentIndex(value.toInt());
        break;
    case Kind::ComboText:
        static_cast<QComboBox *>(widget)->setCurrentText(value.toString());
        break;
    case Kind::LineText:
        static_cast<QLineEdit *>(widget)->setText(value.toString());
        break;
    case Kind::ControlValue:
        widget->setProperty("Value", value);
        break;
    }
}

} // namespace Tarnwell::Pages
