#include "demooptions.h"

namespace Tarnwell::Demo {

QString DemoOptions::usage()
{
    return QStringLiteral(
        "Usage: tarnwell-demo [--load FILE] [--sample] [--design] [--dark] [--drop-down FIELD] [--save FILE]\n"
        "                    [--properties FIELD [--page CAPTION]] [--screenshot FILE]\n"
        "  --load FILE        apply a form saved as JSON\n"
        "  --sample           type a sample customer order into the form\n"
        "  --design           start in design mode\n"
        "  --dark             the Fusion style in a dark palette\n"
        "  --drop-down FIELD  open the calendar of a date field (dtbOrderDate, dtbDelivery...)\n"
        "  --properties FIELD open a field's property dialog in design mode (mskTelephone...)\n"
        "  --page CAPTION     the dialog's page to show: General (the default) or About\n"
        "  --save FILE        save the form's properties as JSON and exit\n"
        "  --screenshot FILE  render the window to a PNG and exit (types the sample order first\n"
        "                     unless --load is given)\n"
        "  -h, --help         show this text\n");
}

DemoOptions DemoOptions::parse(const QStringList &arguments)
{
    DemoOptions options;
    auto takeArgument = [&](qsizetype &i, QString &target, const char *what) {
        const QString &option = arguments[i];
        if (!target.isEmpty()) {
            options.error = QStringLiteral("%1 given twice").arg(option);
        } else if (i + 1 >= arguments.size() || arguments[i + 1].isEmpty()
                   || arguments[i + 1].startsWith(QLatin1String("--"))) {
            options.error = QStringLiteral("%1 needs a %2").arg(option, QLatin1String(what));
        } else {
            target = arguments[++i];
        }
    };
    auto takeFile = [&](qsizetype &i, QString &target) { takeArgument(i, target, "file name"); };
    for (qsizetype i = 1; i < arguments.size() && options.error.isEmpty(); ++i) {
        QString argument = arguments[i];
        // --option=value is the same as --option value.
        if (argument.startsWith(QLatin1String("--")) && argument.contains(u'=')) {
            const qsizetype eq = argument.indexOf(u'=');
            QStringList rest = arguments.mid(0, i);
            rest << argument.left(eq) << argument.mid(eq + 1) << arguments.mid(i + 1);
            return parse(rest);
        }
        if (argument == QLatin1String("--load"))
            takeFile(i, options.loadFile);
        else if (argument == QLatin1String("--save"))
            takeFile(i, options.saveFile);
        else if (argument == QLatin1String("--screenshot"))
            takeFile(i, options.screenshotFile);
        else if (argument == QLatin1String("--sample"))
            options.sample = true;
        else if (argument == QLatin1String("--design"))
            options.design = true;
        else if (argument == QLatin1String("--dark"))
            options.dark = true;
        else if (argument == QLatin1String("--drop-down"))
            takeArgument(i, options.dropDown, "field name");
        else if (argument == QLatin1String("--properties"))
            takeArgument(i, options.properties, "field name");
        else if (argument == QLatin1String("--page"))
            takeArgument(i, options.page, "page caption");
        else if (argument == QLatin1String("-h") || argument == QLatin1String("--help"))
            options.help = true;
        else
            options.error = QStringLiteral("unknown argument \"%1\"").arg(argument);
    }
    if (options.error.isEmpty() && !options.page.isEmpty() && options.properties.isEmpty())
        options.error = QStringLiteral("--page needs --properties");
    if (!options.error.isEmpty()) {
        DemoOptions failed;
        failed.error = options.error;
        return failed;
    }
    if (!options.screenshotFile.isEmpty() && options.loadFile.isEmpty())
        options.sample = true;
    return options;
}

} // namespace Tarnwell::Demo
