#include <tarnwell/propertydialog.h>

#include <tarnwell/datebox.h>
#include <tarnwell/error.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>
#include <tarnwell/xabout.h>
#include <tarnwell/xgeneraldb.h>
#include <tarnwell/xgeneralmb.h>
#include <tarnwell/xgeneralnb.h>
#include <tarnwell/xgeneraltb.h>

#include <QDialogButtonBox>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include <exception>

namespace Tarnwell {

namespace {

QString nameOf(const QObject *control)
{
    if (!control)
        return QString();
    return control->objectName().isEmpty() ? QString::fromLatin1(control->metaObject()->className())
                                           : control->objectName();
}

} // namespace

PropertyDialog::PropertyDialog(const QList<QObject *> &controls, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("PropertyDialog"));
    for (QObject *control : controls)
        m_controls.append(control);

    const QString first = nameOf(controls.value(0));
    if (controls.size() > 1)
        setWindowTitle(tr("Properties of %1 and %n more", nullptr, int(controls.size() - 1)).arg(first));
    else if (!first.isEmpty())
        setWindowTitle(tr("Properties of %1").arg(first));
    else
        setWindowTitle(tr("Properties"));

    m_tabs = new QTabWidget(this);
    m_tabs->setObjectName(QStringLiteral("tabs"));
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this);
    m_buttons->setObjectName(QStringLiteral("buttons"));
    connect(m_buttons, &QDialogButtonBox::accepted, this, &PropertyDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &PropertyDialog::reject);
    connect(applyButton(), &QPushButton::clicked, this, [this] { (void)applyChanges(); });

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(m_buttons);

    if (PropertyPage *general = createGeneralPage(controls.value(0)))
        addPage(general);
    addPage(new xAbout);
    updateApply();
}

PropertyDialog::~PropertyDialog()
{
    // The pages are deleted with the widget, after this object's members are gone.
    for (PropertyPage *page : std::as_const(m_pages))
        disconnect(page, nullptr, this, nullptr);
}

PropertyPage *PropertyDialog::createGeneralPage(const QObject *control, QWidget *parent)
{
    if (qobject_cast<const MaskBox *>(control))
        return new xGeneralMB(parent);
    if (qobject_cast<const NumberBox *>(control))
        return new xGeneralNB(parent);
    if (qobject_cast<const DateBox *>(control))
        return new xGeneralDB(parent);
    if (qobject_cast<const TimeBox *>(control))
        return new xGeneralTB(parent);
    return nullptr;
}

QList<QObject *> PropertyDialog::SelectedControls() const
{
    QList<QObject *> controls;
    for (const QPointer<QObject> &control : m_controls) {
        if (control)
            controls.append(control);
    }
    return controls;
}

void PropertyDialog::addPage(PropertyPage *page)
{
    if (!page || m_pages.contains(page))
        return;
    m_pages.append(page);
    if (m_writer)
        page->setPropertyWriter(m_writer);
    page->setSelectedControls(SelectedControls());
    m_tabs->addTab(page, page->Caption());
    connect(page, &PropertyPage::changedChanged, this, &PropertyDialog::updateApply);
    connect(page, &QObject::destroyed, this, [this, page] {
        m_pages.removeOne(page);
        updateApply();
    });
    try {
        page->SelectionChanged();
    } catch (const Error &error) {
        reportError(page, error.message());
    } catch (const std::exception &error) {
        reportError(page, QString::fromLocal8Bit(error.what()));
    }
    updateApply();
}

QList<PropertyPage *> PropertyDialog::pages() const
{
    return m_pages;
}

PropertyPage *PropertyDialog::page(const QString &caption) const
{
    for (PropertyPage *page : m_pages) {
        if (page->Caption() == caption)
            return page;
    }
    return nullptr;
}

bool PropertyDialog::setCurrentPage(const QString &caption)
{
    PropertyPage *shown = page(caption);
    if (shown)
        m_tabs->setCurrentWidget(shown);
    return shown != nullptr;
}

void PropertyDialog::setPropertyWriter(PropertyPage::PropertyWriter writer)
{
    m_writer = std::move(writer);
    for (PropertyPage *page : std::as_const(m_pages))
        page->setPropertyWriter(m_writer);
}

QPushButton *PropertyDialog::applyButton() const
{
    return m_buttons->button(QDialogButtonBox::Apply);
}

bool PropertyDialog::applyChanges()
{
    const QList<PropertyPage *> pages = m_pages;
    for (PropertyPage *page : pages) {
        if (!page->Changed())
            continue;
        // A refusal must not leave this slot: the user sees it and corrects the page.
        try {
            page->ApplyChanges();
        } catch (const Error &error) {
            reportError(page, error.message());
            return false;
        } catch (const std::exception &error) {
            reportError(page, QString::fromLocal8Bit(error.what()));
            return false;
        }
    }
    return true;
}

void PropertyDialog::accept()
{
    if (applyChanges())
        QDialog::accept();
}

void PropertyDialog::updateApply()
{
    bool changed = false;
    for (const PropertyPage *page : std::as_const(m_pages))
        changed = changed || page->Changed();
    applyButton()->setEnabled(changed);
}

void PropertyDialog::reportError(PropertyPage *page, const QString &message)
{
    m_tabs->setCurrentWidget(page);
    QMessageBox::warning(this, windowTitle(), message);
}

} // namespace Tarnwell
