#include "demowindow.h"

#include "demoform.h"
#include "designsurface.h"
#include "eventlog.h"
#include "formdocument.h"
#include "orderlines.h"

#include <tarnwell/propertydialog.h>

#include <QActionGroup>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QSaveFile>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

namespace Tarnwell::Demo {

DemoWindow::DemoWindow(QWidget *parent) : QMainWindow(parent)
{
    setWindowTitle(tr("Tarnwell demo: customer order"));

    auto *formBox = new QGroupBox(tr("Customer order"));
    m_form = new DemoForm;
    auto *formLayout = new QVBoxLayout(formBox);
    formLayout->addWidget(m_form);

    auto *linesBox = new QGroupBox(tr("Order lines"));
    m_lines = new OrderLines;
    auto *linesLayout = new QVBoxLayout(linesBox);
    linesLayout->addWidget(m_lines);

    auto *order = new QWidget;
    auto *orderLayout = new QVBoxLayout(order);
    orderLayout->setContentsMargins(QMargins());
    orderLayout->addWidget(formBox);
    orderLayout->addWidget(linesBox, 1);

    auto *logBox = new QGroupBox(tr("Events"));
    m_log = new EventLog;
    auto *logLayout = new QVBoxLayout(logBox);
    logLayout->addWidget(m_log);

    auto *splitter = new QSplitter;
    splitter->addWidget(order);
    splitter->addWidget(logBox);
    splitter->setStretchFactor(0, 0);
    splitter->setStretchFactor(1, 1);
    setCentralWidget(splitter);

    for (QWidget *field : m_form->fields())
        m_log->watch(field, field->objectName());
    connect(m_form, &DemoForm::fieldAdded, m_log, &EventLog::watch);
    connect(m_lines, &OrderLines::lineEdited, m_log,
            [this](int row, int column) { m_log->note(m_lines->describe(row, column)); });

    m_modeLabel = new QLabel;
    statusBar()->addPermanentWidget(m_modeLabel);
    createActions();
    m_surface = new DesignSurface(m_form, m_propertiesAction);
    connect(m_surface, &DesignSurface::selectionChanged, this, &DemoWindow::updatePropertiesAction);
    setDesignMode(false);
    resize(sizeHint().expandedTo(QSize(960, 640)));
}

void DemoWindow::createActions()
{
    QMenu *file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Load..."), QKeySequence::Open, this, &DemoWindow::loadInteractively);
    file->addAction(tr("&Save..."), QKeySequence::Save, this, &DemoWindow::saveInteractively);
    file->addSeparator();
    file->addAction(tr("Type a sample &order"), this, [this] { m_form->typeSampleOrder(); });
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);

    auto *modes = new QActionGroup(this);
    m_runAction = modes->addAction(tr("&Run"));
    m_designAction = modes->addAction(tr("&Design"));
    m_runAction->setCheckable(true);
    m_designAction->setCheckable(true);
    m_runAction->setToolTip(tr("Run mode: the fields take input and raise events"));
    m_designAction->setToolTip(tr("Design mode: the fields are laid out, not used"));
    connect(m_runAction, &QAction::triggered, this, [this] { setDesignMode(false); });
    connect(m_designAction, &QAction::triggered, this, [this] { setDesignMode(true); });

    m_propertiesAction = new QAction(tr("&Properties..."), this);
    m_propertiesAction->setObjectName(QStringLiteral("propertiesAction"));
    m_propertiesAction->setToolTip(tr("Edit the selected fields' settings"));
    connect(m_propertiesAction, &QAction::triggered, this, &DemoWindow::openProperties);

    QMenu *mode = menuBar()->addMenu(tr("&Mode"));
    mode->addActions(modes->actions());
    mode->addSeparator();
    mode->addAction(m_propertiesAction);
    QToolBar *toolBar = addToolBar(tr("Mode"));
    toolBar->setObjectName(QStringLiteral("modeToolBar"));
    toolBar->setMovable(false);
    toolBar->addActions(modes->actions());
    toolBar->addSeparator();
    toolBar->addAction(m_propertiesAction);
}

void DemoWindow::setDesignMode(bool design)
{
    const bool changed = design != m_form->designMode();
    m_form->setDesignMode(design);
    m_lines->setDesignMode(design);
    (design ? m_designAction : m_runAction)->setChecked(true);
    // The glass takes the clicks in design mode only; leaving it drops the selection.
    if (!design)
        m_surface->clearSelection();
    m_surface->setVisible(design);
    m_surface->raise();
    updatePropertiesAction();
    m_modeLabel->setText(design ? tr("Design mode") : tr("Run mode"));
    if (changed)
        m_log->note(design ? tr("design mode") : tr("run mode"));
}

bool DemoWindow::saveTo(const QString &path, QString *error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(FormDocument::save(*m_form)) < 0 || !file.commit()) {
        *error = tr("Cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    m_log->note(tr("saved %1").arg(path));
    return true;
}

bool DemoWindow::loadFrom(const QString &path, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = tr("Cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    QString reason;
    QStringList skipped;
    if (!FormDocument::load(*m_form, file.readAll(), &reason, &skipped)) {
        *error = tr("Cannot load %1: %2").arg(path, reason);
        return false;
    }
    m_log->note(tr("loaded %1").arg(path));
    if (!skipped.isEmpty())
        m_log->note(tr("not on this form, skipped: %1").arg(skipped.join(QStringLiteral(", "))));
    return true;
}

bool DemoWindow::dropDown(const QString &fieldName, QString *error)
{
    QWidget *field = m_form->field(fieldName);
    if (!field || field->metaObject()->indexOfMethod("ShowDropDown()") < 0) {
        *error = tr("No date field named %1").arg(fieldName);
        return false;
    }
    activateWindow();
    field->setFocus(Qt::OtherFocusReason);
    QMetaObject::invokeMethod(field, "ShowDropDown");
    // The calendar opens on the keys the field replays.
    QApplication::processEvents();
    return true;
}

void DemoWindow::updatePropertiesAction()
{
    m_propertiesAction->setEnabled(m_form->designMode() && !m_surface->selection().isEmpty());
}

PropertyDialog *DemoWindow::propertyDialog() const
{
    return m_dialog;
}

void DemoWindow::openProperties()
{
    const QList<QWidget *> fields = m_surface->selection();
    if (fields.isEmpty())
        return;
    if (m_dialog)
        m_dialog->close();
    QList<QObject *> controls(fields.cbegin(), fields.cend());
    m_dialog = new PropertyDialog(controls, this);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    const QString names = m_dialog->windowTitle();
    // The pages write through the fields' properties, so the form shows every change at once and
    // a save writes it.
    connect(m_dialog, &QDialog::accepted, m_log, [this, names] { m_log->note(tr("%1: OK").arg(names)); });
    connect(m_dialog->applyButton(), &QAbstractButton::clicked, m_surface, qOverload<>(&QWidget::update));
    m_log->note(names);
    m_dialog->open();
}

bool DemoWindow::showProperties(const QString &fieldName, const QString &page, QString *error)
{
    QWidget *field = m_form->field(fieldName);
    if (!field) {
        *error = tr("No field named %1").arg(fieldName);
        return false;
    }
    setDesignMode(true);
    m_surface->selectOnly(field);
    openProperties();
    if (!page.isEmpty() && !m_dialog->setCurrentPage(page)) {
        *error = tr("No page named %1 for %2").arg(page, fieldName);
        return false;
    }
    QApplication::processEvents();
    return true;
}

bool DemoWindow::renderTo(const QString &path, QString *error)
{
    QPixmap image = grab();
    // Open popups (a date field's calendar) and the property dialog are windows of their own:
    // drawn where they stand, a dialog kept inside the picture.
    QPainter painter(&image);
    for (QWidget *popup : QApplication::topLevelWidgets()) {
        if (popup == this || !popup->isVisible())
            continue;
        QPoint at = popup->mapToGlobal(QPoint()) - mapToGlobal(QPoint());
        if (popup->windowType() == Qt::Dialog && popup->parentWidget() == this) {
            at.setX(std::clamp(at.x(), 0, std::max(0, image.width() - popup->width())));
            at.setY(std::clamp(at.y(), 0, std::max(0, image.height() - popup->height())));
        } else if (popup->windowType() != Qt::Popup) {
            continue;
        }
        painter.drawPixmap(at, popup->grab());
    }
    painter.end();
    if (image.isNull() || !image.save(path, "PNG")) {
        *error = tr("Cannot write the screenshot %1").arg(path);
        return false;
    }
    return true;
}

void DemoWindow::saveInteractively()
{
    const QString path = QFileDialog::getSaveFileName(this, tr("Save form"), QStringLiteral("order.json"),
                                                      tr("Form files (*.json)"));
    QString error;
    if (!path.isEmpty() && !saveTo(path, &error))
        QMessageBox::warning(this, tr("Save form"), error);
}

void DemoWindow::loadInteractively()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Load form"), QString(),
                                                      tr("Form files (*.json);;All files (*)"));
    QString error;
    if (!path.isEmpty() && !loadFrom(path, &error))
        QMessageBox::warning(this, tr("Load form"), error);
}

} // namespace Tarnwell::Demo
