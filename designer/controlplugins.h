#pragma once
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <QObject>

class QDesignerFormEditorInterface;

namespace Tarnwell {

class ControlFrame;

// What Designer's widget box and form writer need to know of one control.
struct ControlDescription {
    const char *className;  // as the .ui file names it
    const char *objectName; // the name a control dropped on a form starts with
    const char *header;     // the include the generated code uses
    const char *toolTip;    // the one-line description
    const char *whatsThis;
    const char *glyph;      // drawn on the widget-box icon
    const QMetaObject *metaObject;
    ControlFrame *(*create)(QWidget *parent);
};

// One control of the collection. Inside Designer (initialize() has been called with the form
// editor) a control placed on a form is in design mode; created by QUiLoader, which never
// initializes a plugin, it is in run mode, as a control of a running program.
class ControlPlugin : public QObject, public QDesignerCustomWidgetInterface
{
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    ControlPlugin(const ControlDescription &description, QObject *parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override { return false; }
    QWidget *createWidget(QWidget *parent) override;
    bool isInitialized() const override { return m_core != nullptr; }
    void initialize(QDesignerFormEditorInterface *core) override;
    QString domXml() const override;

private:
    const ControlDescription &m_description;
    QDesignerFormEditorInterface *m_core = nullptr;
};

// The plugin Designer and QUiLoader load: MaskBox, NumberBox, DateBox and TimeBox in the group
// "Tarnwell".
class ControlCollection : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit ControlCollection(QObject *parent = nullptr);
    QList<QDesignerCustomWidgetInterface *> customWidgets() const override { return m_plugins; }

private:
    QList<QDesignerCustomWidgetInterface *> m_plugins;
};

} // namespace Tarnwell
