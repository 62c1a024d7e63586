// Tarnwell's demo: a customer order form built from the library's controls, with every event
// they raise logged beside it.
#include "demooptions.h"
#include "demowindow.h"
#include "demoform.h"

#include <QApplication>
#include <QPalette>
#include <QColor>
#include <QFontDatabase>

#include <cstdio>

using Tarnwell::Demo::DemoOptions;
using Tarnwell::Demo::DemoWindow;

namespace {

void fail(const QString &message)
{
    std::fprintf(stderr, "tarnwell-demo: %s\n", qPrintable(message));
}

// Offscreen there is no desktop font to inherit; DejaVu renders legibly wherever it is installed.
void chooseOffscreenFont()
{
    if (QGuiApplication::platformName() != QLatin1String("offscreen"))
        return;
    if (QFontDatabase::families().contains(QStringLiteral("DejaVu Sans")))
        QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 10));
}

// Fusion in the dark palette a desktop's dark theme gives: every field must stay readable.
void useDarkPalette()
{
    QApplication::setStyle(QStringLiteral("Fusion"));
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(45, 45, 48));
    dark.setColor(QPalette::WindowText, QColor(230, 230, 230));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::AlternateBase, QColor(53, 53, 56));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    dark.setColor(QPalette::Button, QColor(53, 53, 56));
    dark.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    dark.setColor(QPalette::Highlight, QColor(38, 79, 120));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::ToolTipBase, QColor(60, 60, 60));
    dark.setColor(QPalette::ToolTipText, QColor(230, 230, 230));
    dark.setColor(QPalette::PlaceholderText, QColor(140, 140, 140));
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(120, 120, 120));
    dark.setColor(QPalette::Disabled, QPalette::WindowText, QColor(120, 120, 120));
    dark.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(120, 120, 120));
    QApplication::setPalette(dark);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tarnwell-demo"));
    const DemoOptions options = DemoOptions::parse(QApplication::arguments());
    if (options.help) {
        std::fputs(qPrintable(DemoOptions::usage()), stdout);
        return 0;
    }
    if (!options.error.isEmpty()) {
        fail(options.error);
        std::fputs(qPrintable(DemoOptions::usage()), stderr);
        return 2;
    }
    chooseOffscreenFont();
    if (options.dark)
        useDarkPalette();

    DemoWindow window;
    QString error;
    if (!options.loadFile.isEmpty() && !window.loadFrom(options.loadFile, &error)) {
        fail(error);
        return 1;
    }
    window.show();
    // Typed into as a user would: in the active window, so that fields see the focus come and go.
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    if (options.sample)
        window.form()->typeSampleOrder();
    window.setDesignMode(options.design);
    if (!options.dropDown.isEmpty() && !window.dropDown(options.dropDown, &error)) {
        fail(error);
        return 1;
    }
    if (!options.properties.isEmpty() && !window.showProperties(options.properties, options.page, &error)) {
        fail(error);
        return 1;
    }
    if (!options.batch())
        return app.exec();

    // Let the window lay itself out and paint before it is saved or rendered.
    QApplication::processEvents();
    if (!options.saveFile.isEmpty() && !window.saveTo(options.saveFile, &error)) {
        fail(error);
        return 1;
    }
    if (!options.screenshotFile.isEmpty() && !window.renderTo(options.screenshotFile, &error)) {
        fail(error);
        return 1;
    }
    return 0;
}
