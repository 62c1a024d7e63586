#pragma once
// The demo's command line, parsed apart from the window so that scripts get clear errors.
#include <QString>
#include <QStringList>

namespace Tarnwell::Demo {

class DemoOptions
{
public:
    // `arguments` includes the program name first, as QCoreApplication::arguments() has it.
    static DemoOptions parse(const QStringList &arguments);
    static QString usage();

    QString loadFile;       // --load FILE: apply a saved form at start
    QString saveFile;       // --save FILE: write the form (after --load and --sample) and exit
    QString screenshotFile; // --screenshot FILE: render the window to a PNG and exit
    bool sample = false;    // --sample: type a sample order into the form
    bool design = false;    // --design: start in design mode
    bool dark = false;      // --dark: the Fusion style in a dark palette
    QString dropDown;       // --drop-down FIELD: open that date field's calendar
    QString properties;     // --properties FIELD: open that field's property dialog (design mode)
    QString page;           // --page CAPTION: the dialog's page to show ("General", "About")
    bool help = false;
    QString error;          // set when the command line cannot be used; nothing else is then

    // Runs without showing a window: everything asked for is done, then the demo exits.
    bool batch() const { return !saveFile.isEmpty() || !screenshotFile.isEmpty(); }
};

} // namespace Tarnwell::Demo
