#include "demowindow.h"

#include "demoform.h"
#include "eventlog.h"
#include "formdocument.h"
#include "orderlines.h"

#include <QActionGroup>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPainter>
#include <QSaveFile>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>

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

    QMenu *mode = menuBar()->addMenu(tr("&Mode"));
    mode->addActions(modes->actions());
    QToolBar *toolBar = addToolBar(tr("Mode"));
    toolBar->setObjectName(QStringLiteral("modeToolBar"));
    toolBar->setMovable(false);
    toolBar->addActions(modes->actions());
}

void DemoWindow::setDesignMode(bool design)
{
    const bool changed = design != m_form->designMode();
    m_form->setDesignMode(design);
    m_lines->setDesignMode(design);
    (design ? m_designAction : m_runAction)->setChecked(true);
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

bool DemoWindow::renderTo(const QString &path, QString *error)
{
    QPixmap image = grab();
    // Open popups (a date field's calendar) are windows of their own: drawn where they stand.
    QPainter painter(&image);
    for (QWidget *popup : QApplication::topLevelWidgets()) {
        if (popup != this && popup->isVisible() && popup->windowType() == Qt::Popup)
            painter.drawPixmap(popup->mapToGlobal(QPoint()) - mapToGlobal(QPoint()), popup->grab());
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
