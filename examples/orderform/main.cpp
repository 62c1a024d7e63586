// An order form: a telephone number, a price, an order date and a delivery time, each a Tarnwell
// control beside a label whose Alt+letter moves the focus to it.
//   orderform                     shows the form
//   orderform --check             fills it in, checks what the controls hold, exits (0 = fine)
//   orderform --screenshot FILE   renders the filled-in form to a PNG and exits
#include <tarnwell/currency.h>
#include <tarnwell/date.h>
#include <tarnwell/datebox.h>
#include <tarnwell/error.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <cstdio>

namespace {

struct OrderForm
{
    QWidget window;
    Tarnwell::MaskBox *phone = new Tarnwell::MaskBox;
    Tarnwell::NumberBox *price = new Tarnwell::NumberBox;
    Tarnwell::DateBox *ordered = new Tarnwell::DateBox;
    Tarnwell::TimeBox *delivery = new Tarnwell::TimeBox;

    OrderForm()
    {
        window.setWindowTitle(QStringLiteral("Order"));

        phone->setMask(QStringLiteral("(###) ###-####"));
        phone->setPromptInclude(false); // Value: the digits only

        price->setDataType(Tarnwell::twCurrency);
        price->setCurrencySymbol(QStringLiteral("$"));
        price->setShowCurrencySymbol(Tarnwell::twLeft);
        price->setThousandSeparator(true);
        price->setMinimum(0);
        price->setUpDown(true); // the Up and Down keys step by Increment too

        ordered->setFormat(Tarnwell::twDayMonthYear);
        ordered->setMinimum(QDate(2000, 1, 1));

        delivery->setFormat(Tarnwell::twHourMinute); // 24-hour, no seconds
        delivery->setUpDown(true);
        delivery->setInterceptArrowKeys(true);

        // Enter moves on to the next field, as Tab does.
        for (Tarnwell::ControlFrame *field : {static_cast<Tarnwell::ControlFrame *>(phone),
                                              static_cast<Tarnwell::ControlFrame *>(price),
                                              static_cast<Tarnwell::ControlFrame *>(ordered),
                                              static_cast<Tarnwell::ControlFrame *>(delivery)})
            field->setEnterAsTab(true);

        auto *form = new QFormLayout(&window);
        form->addRow(QStringLiteral("&Telephone"), phone); // the label becomes the buddy's
        form->addRow(QStringLiteral("&Price"), price);
        form->addRow(QStringLiteral("&Order date"), ordered);
        form->addRow(QStringLiteral("&Delivery at"), delivery);
        form->addRow(new QPushButton(QStringLiteral("Place order")));
    }

    void fillIn()
    {
        phone->setValue(QStringLiteral("5550123456"));
        price->setValue(QStringLiteral("1234.5"));
        ordered->setDate(QDate(2024, 3, 7));
        delivery->setTime(QTime(14, 30));
    }
};

// What the filled-in form must hold: each control's value in its own type and as shown.
int check(OrderForm &form)
{
    int failures = 0;
    auto expect = [&failures](bool ok, const char *what) {
        if (!ok) {
            std::fprintf(stderr, "orderform: %s\n", what);
            ++failures;
        }
    };
    form.fillIn();
    expect(form.phone->Text() == QStringLiteral("(555) 012-3456"), "telephone shown in its mask");
    expect(form.phone->Value().toString() == QStringLiteral("5550123456"), "telephone value");
    expect(form.price->Value().value<Tarnwell::Currency>() == Tarnwell::Currency::fromRaw(12345000),
           "price held exactly as a Currency");
    expect(form.price->value().toDouble() == 1234.5, "price as a model value");
    expect(form.ordered->Value().value<Tarnwell::Date>().toQDate() == QDate(2024, 3, 7),
           "order date");
    expect(form.delivery->time() == QTime(14, 30), "delivery time");

    // The labels are the controls' buddies: Alt+letter reaches them.
    auto *layout = static_cast<QFormLayout *>(form.window.layout());
    for (QWidget *field : {static_cast<QWidget *>(form.phone), static_cast<QWidget *>(form.price),
                           static_cast<QWidget *>(form.ordered),
                           static_cast<QWidget *>(form.delivery)}) {
        auto *label = qobject_cast<QLabel *>(layout->labelForField(field));
        expect(label && label->buddy() == field, "buddy label");
    }

    // A refused value throws and leaves the control as it was.
    try {
        form.price->setValue(QStringLiteral("not a number"));
        expect(false, "a text that is no number was taken");
    } catch (const Tarnwell::Error &error) {
        expect(error.number() == Tarnwell::Error::TypeMismatch, "error 13 for a text");
    }
    expect(form.price->value().toDouble() == 1234.5, "price unchanged after the refusal");
    return failures == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    OrderForm form;

    if (args.contains(QStringLiteral("--check")))
        return check(form);
    const qsizetype shot = args.indexOf(QStringLiteral("--screenshot"));
    if (shot > 0 && shot + 1 < args.size()) {
        form.fillIn();
        form.window.resize(form.window.sizeHint().expandedTo(QSize(320, 0)));
        form.window.show();
        QApplication::processEvents();
        return form.window.grab().save(args.at(shot + 1)) ? 0 : 1;
    }
    form.window.show();
    return app.exec();
}
