#pragma once
// What the designer suites share: the built plugin, loaded as Designer and QUiLoader load it, and
// one form editor of Designer's own components, to place controls on forms and save them as
// Designer does.
#include "common/testsupport.h"

#include <QtDesigner/QDesignerComponents>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerIntegration>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

#include <QCoreApplication>
#include <QBuffer>
#include <QFile>
#include <QPluginLoader>
#include <QUiLoader>

namespace DesignerTest {

inline const QString pluginDir = QStringLiteral(TARNWELL_DESIGNER_PLUGIN_DIR);
inline const QString roundTripUi = QStringLiteral(TARNWELL_ROUNDTRIP_UI);

// The collection the plugin file exports, or null (with the loader's message in the failure).
inline QDesignerCustomWidgetCollectionInterface *collection()
{
    static QPluginLoader loader(pluginDir + QStringLiteral("/libtarnwell_designer.so"));
    auto *plugins = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    EXPECT_NE(plugins, nullptr) << loader.errorString().toStdString();
    return plugins;
}

inline QDesignerCustomWidgetInterface *pluginFor(const QString &className)
{
    if (QDesignerCustomWidgetCollectionInterface *plugins = collection()) {
        for (QDesignerCustomWidgetInterface *plugin : plugins->customWidgets()) {
            if (plugin->name() == className)
                return plugin;
        }
    }
    return nullptr;
}

// Designer's form editor, with the plugins found where Designer finds them under QT_PLUGIN_PATH.
inline QDesignerFormEditorInterface *core()
{
    static QDesignerFormEditorInterface *editor = [] {
        QCoreApplication::addLibraryPath(pluginDir.section(QLatin1Char('/'), 0, -2));
        QDesignerComponents::initializeResources();
        QDesignerFormEditorInterface *made = QDesignerComponents::createFormEditor(qApp);
        QDesignerComponents::initializePlugins(made);
        made->setPropertyEditor(QDesignerComponents::createPropertyEditor(made, nullptr));
        new QDesignerIntegration(made, made);
        return made;
    }();
    return editor;
}

// A form window of the form editor holding the form `ui`; closed with the test.
struct Form {
    explicit Form(const QString &ui)
        : window(core()->formWindowManager()->createFormWindow(nullptr))
    {
        window->setContents(ui);
    }
    ~Form() { delete window; }
    Form(const Form &) = delete;
    Form &operator=(const Form &) = delete;

    template<class T = QWidget>
    T *child(const char *name) const { return window->mainContainer()->findChild<T *>(QLatin1String(name)); }
    QDesignerPropertySheetExtension *sheet(QObject *object) const
    {
        return qt_extension<QDesignerPropertySheetExtension *>(core()->extensionManager(), object);
    }

    QDesignerFormWindowInterface *window;
};

inline QString readFile(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

// A form built from `ui` by QUiLoader with the plugin's folder as its only plugin path.
inline std::unique_ptr<QWidget> loadWithUiLoader(const QString &ui)
{
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(pluginDir);
    QByteArray bytes = ui.toUtf8();
    QBuffer buffer(&bytes);
    std::unique_ptr<QWidget> form(loader.load(&buffer));
    EXPECT_NE(form, nullptr) << loader.errorString().toStdString();
    return form;
}

} // namespace DesignerTest
