#include <tarnwell/propertypage.h>

#include <tarnwell/error.h>

namespace Tarnwell {

namespace {

void writeByName(QObject *control, const char *name, const QVariant &value)
{
    // setProperty lets the control's own refusal through; false means the value could not even
    // be converted to the property's type (or there is no such property), which a host sees as
    // a type mismatch.
    if (!control->setProperty(name, value))
        throw Error(Error::TypeMismatch);
}

} // namespace

PropertyPage::PropertyPage(const QString &caption, QWidget *parent)
    : QWidget(parent)
    , m_caption(caption)
    , m_writer(writeByName)
{
}

PropertyPage::~PropertyPage() = default;

QList<QObject *> PropertyPage::SelectedControls() const
{
    QList<QObject *> controls;
    for (const QPointer<QObject> &control : m_selected) {
        if (control)
            controls.append(control);
    }
    return controls;
}

void PropertyPage::setSelectedControls(const QList<QObject *> &controls)
{
    m_selected.clear();
    for (QObject *control : controls)
        m_selected.append(control);
}

void PropertyPage::setChanged(bool changed)
{
    if (changed == m_changed)
        return;
    m_changed = changed;
    emit changedChanged(changed);
}

void PropertyPage::setPropertyWriter(PropertyWriter writer)
{
    m_writer = writer ? std::move(writer) : PropertyWriter(writeByName);
}

void PropertyPage::SelectionChanged()
{
    const QList<QObject *> controls = SelectedControls();
    if (controls.isEmpty())
        return;
    // The widgets' change signals fire while the page fills them; they are not the user's edits.
    m_filling = true;
    try {
        fill(controls.first());
    } catch (...) {
        m_filling = false;
        throw;
    }
    m_filling = false;
    setChanged(false);
}

void PropertyPage::ApplyChanges()
{
    const QList<QObject *> controls = SelectedControls();
    if (controls.isEmpty())
        return;
    apply(controls.first());
    setChanged(false);
}

void PropertyPage::markChanged()
{
    if (!m_filling)
        setChanged(true);
}

QVariant PropertyPage::read(const QObject *control, const char *name)
{
    return control->property(name);
}

void PropertyPage::write(QObject *control, const char *name, const QVariant &value) const
{
    m_writer(control, name, value);
}

} // namespace Tarnwell
