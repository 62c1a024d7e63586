// A form drawn in Qt Designer with the Tarnwell plugin and compiled by uic: the generated
// Ui::OrderForm includes <tarnwell/maskbox.h> and the others and sets the properties Designer
// saved, so the controls come up as they were drawn.
//   designerform                     shows the form
//   designerform --check             checks the settings the form gave the controls, exits (0 = fine)
//   designerform --screenshot FILE   renders the form to a PNG and exits
#include "ui_orderform.h"

#include <QApplication>
#include <QWidget>

#include <cstdio>

namespace {

int check(const Ui::OrderForm &ui)
{
    int failures = 0;
    auto expect = [&failures](bool ok, const char *what) {
        if (!ok) {
            std::fprintf(stderr, "designerform: %s\n", what);
            ++failures;
        }
    };
    expect(ui.phone->Mask() == QStringLiteral("(###) ###-####"), "the telephone's mask");
    expect(ui.phone->PromptInclude() == false, "the telephone's PromptInclude");
    expect(ui.price->DataType() == Tarnwell::twCurrency, "the price's data type");
    expect(ui.price->ShowCurrencySymbol() == Tarnwell::twLeft, "the price's currency symbol");
    expect(ui.price->Minimum().toDouble() == 0.0, "the price's minimum");
    expect(ui.ordered->Format() == Tarnwell::twYearMonthDay, "the date's format");
    expect(ui.ordered->Separator() == QStringLiteral("-"), "the date's separator");
    expect(ui.ordered->Minimum().toQDate() == QDate(2020, 1, 1), "the date's minimum");
    expect(ui.delivery->Format() == Tarnwell::twHourMinute, "the time's format");
    expect(ui.delivery->Maximum().toQTime() == QTime(18, 0), "the time's maximum");
    expect(ui.phoneLabel->buddy() == ui.phone, "the telephone's buddy label");

    // The controls run as in any program: they take values at once.
    ui.ordered->setDate(QDate(2024, 3, 7));
    expect(ui.ordered->Text() == QStringLiteral("2024-Mar-07"), "the date shown in its pattern");
    return failures == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    QWidget window;
    Ui::OrderForm ui;
    ui.setupUi(&window);

    if (args.contains(QStringLiteral("--check")))
        return check(ui);
    const qsizetype shot = args.indexOf(QStringLiteral("--screenshot"));
    if (shot > 0 && shot + 1 < args.size()) {
        window.show();
        QApplication::processEvents();
        return window.grab().save(args.at(shot + 1)) ? 0 : 1;
    }
    window.show();
    return app.exec();
}
