// A client of the installed library: it makes one of every public class and checks a handful of
// things that only hold when the package is whole (symbols exported, metatypes and their
// converters registered, errors caught across the library boundary, the pages found by class).
// The behaviour itself is the unit suites' business.
#include <tarnwell/clock.h>
#include <tarnwell/constants.h>
#include <tarnwell/controlframe.h>
#include <tarnwell/currency.h>
#include <tarnwell/dataobject.h>
#include <tarnwell/date.h>
#include <tarnwell/datebox.h>
#include <tarnwell/decimal.h>
#include <tarnwell/error.h>
#include <tarnwell/global.h>
#include <tarnwell/itemdelegate.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/olecolor.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/propertydialog.h>
#include <tarnwell/propertypage.h>
#include <tarnwell/timebox.h>
#include <tarnwell/valuebox.h>
#include <tarnwell/variant.h>
#include <tarnwell/xabout.h>
#include <tarnwell/xgeneraldb.h>
#include <tarnwell/xgeneralmb.h>
#include <tarnwell/xgeneralnb.h>
#include <tarnwell/xgeneraltb.h>

#include <QApplication>
#include <QBuffer>
#include <QUiLoader>
#include <QMetaEnum>
#include <QMimeData>
#include <QStandardItemModel>
#include <QStyleOptionViewItem>

#include <cstdio>

using namespace Tarnwell;

namespace {

int failures = 0;

void check(bool ok, const char *what)
{
    if (!ok) {
        ++failures;
        std::fprintf(stderr, "FAILED: %s\n", what);
    }
}

// `call` must throw Tarnwell::Error `number`, caught here across the library boundary.
void checkError(int number, const char *what, void (*call)())
{
    try {
        call();
    } catch (const Error &e) {
        check(e.number() == number && e.message() == Error::textOf(number), what);
        return;
    }
    check(false, what);
}

// Persists a control and reads it back into a new one of its kind, which stores the same keys.
template<typename Box>
void roundTrip(Box &box, const char *what)
{
    PropertyBag bag;
    box.WriteProperties(bag);
    Box copy;
    PropertyBag loaded = PropertyBag::fromJsonText(bag.toJsonText());
    copy.ReadProperties(loaded);
    PropertyBag again;
    copy.WriteProperties(again);
    check(!bag.keys().isEmpty() && bag.keys() == again.keys(), what);
}

void useValueTypes()
{
    // The controls register the converters when they are made; a client of the values alone asks.
    Variant::registerTypes();
    checkError(13, "Currency: a bad text", [] { Currency::parse(QStringLiteral("x")); });
    checkError(6, "Decimal: overflow", [] { Decimal::max() + Decimal::max(); });
    const Currency price = Currency::fromInt64(3) - Currency::parse(QStringLiteral("1.25"), QLocale::c());
    check(price.raw() == 17500 && QVariant::fromValue(price).toString() == QStringLiteral("1.75"), "Currency");
    check(QVariant::fromValue(Decimal::fromInt64(1)) == QVariant::fromValue(Decimal::parse(QStringLiteral("1.000"))),
          "Decimal: metatype equality through the exported operators");
    check(QVariant(QDate(1600, 6, 1)).value<Date>().serial() == -109419.0
              && QVariant::fromValue(Date::fromYmd(2024, 2, 31)).value<QDate>() == QDate(2024, 3, 2),
          "Date: metatype converters");
    Clock::pin(QDateTime(QDate(2024, 3, 7), QTime(18, 0)));
    check(Date::now().serial() == 45358.75, "Clock: pinned");
    Clock::unpin();
    check(OleColor::fromRgb(255, 0, 0).value() == 255 && Variant::toDouble(QStringLiteral("1,234.5"), QLocale::c()) == 1234.5,
          "OleColor and Variant");
    QMimeData incoming;
    incoming.setText(QStringLiteral("dropped"));
    check(DataObject(&incoming).GetData(DataObject::CFText).toString() == QStringLiteral("dropped"), "DataObject");
    check(QMetaEnum::fromType<twDataTypeConstants>().keyToValue("twCurrency") == twCurrency, "constants");
}

void useControls(QWidget *form)
{
    auto *mask = new MaskBox(form);
    mask->setMask(QStringLiteral("(###) ###-####"));
    mask->setValue(QStringLiteral("5551234567"));
    check(mask->Text() == QStringLiteral("(555) 123-4567"), "MaskBox: mask and value");
    roundTrip(*mask, "MaskBox: property bag");

    auto *number = new NumberBox(form);
    number->setDataType(twDecimal);
    number->setIncrement(QVariant::fromValue(Decimal::parse(QStringLiteral("0.5"))));
    number->setValue(QVariant::fromValue(Decimal::parse(QStringLiteral("12.5"))));
    static_cast<ValueBox *>(number)->stepUp();
    check(number->Value().value<Decimal>() == Decimal::fromInt64(13), "NumberBox: stepped through ValueBox");
    roundTrip(*number, "NumberBox: property bag");

    auto *date = new DateBox(form);
    check(date->setProperty("Minimum", QDate(2000, 1, 1)), "DateBox: a bound by name");
    date->setValue(QDate(2024, 3, 7));
    check(date->Value().value<Date>() == Date::fromYmd(2024, 3, 7), "DateBox: value");
    roundTrip(*date, "DateBox: property bag");

    auto *time = new TimeBox(form);
    time->setFormat(twHourMinute);
    time->setValue(QTime(9, 30));
    check(time->Value().value<Date>() == Date::fromHms(9, 30, 0), "TimeBox: value");
    roundTrip(*time, "TimeBox: property bag");
    checkError(382, "TimeBox: Text is read-only", [] { TimeBox().setText(QString()); });
    checkError(380, "ControlFrame: a negative SelStart", [] { MaskBox().setSelStart(-1); });

    // The delegate makes the control for a column's kind of value.
    QStandardItemModel model(1, 1);
    model.setData(model.index(0, 0), QDate(2024, 3, 7));
    ItemDelegate delegate;
    std::unique_ptr<QWidget> editor(delegate.createEditor(form, QStyleOptionViewItem(), model.index(0, 0)));
    check(qobject_cast<ControlFrame *>(editor.get()) != nullptr, "ItemDelegate: an editor");

    // Design time: the dialog finds each control's General page beside the About page.
    const QList<QObject *> controls{mask, number, date, time};
    const char *pages[] = {"Tarnwell::xGeneralMB", "Tarnwell::xGeneralNB", "Tarnwell::xGeneralDB",
                           "Tarnwell::xGeneralTB"};
    for (qsizetype i = 0; i < controls.size(); ++i) {
        PropertyDialog dialog({controls[i]});
        check(dialog.pages().size() == 2 && qstrcmp(dialog.pages()[0]->metaObject()->className(), pages[i]) == 0
                  && qobject_cast<xAbout *>(dialog.pages()[1]),
              "PropertyDialog: the pages of each control");
    }
    check(!xAbout::versionText().isEmpty() && !xGeneralMB().Caption().isEmpty() && !xGeneralNB().Caption().isEmpty()
              && !xGeneralDB().Caption().isEmpty() && !xGeneralTB().Caption().isEmpty(),
          "the pages made directly");
}

} // namespace

// A form naming the four controls, built by QUiLoader from the plugin installed under the prefix:
// the controls it makes are the library's own classes, in run mode.
void useInstalledDesignerPlugin(QWidget *parent)
{
    QUiLoader loader;
    loader.clearPluginPaths();
    loader.addPluginPath(QStringLiteral(TARNWELL_INSTALLED_PLUGINS "/designer"));
    QByteArray ui(R"(<ui version="4.0"><widget class="QWidget" name="form">
        <widget class="Tarnwell::MaskBox" name="mask"><property name="Mask"><string>##-##</string></property></widget>
        <widget class="Tarnwell::NumberBox" name="number"/><widget class="Tarnwell::DateBox" name="date"/>
        <widget class="Tarnwell::TimeBox" name="time"/></widget></ui>)");
    QBuffer buffer(&ui);
    QWidget *form = loader.load(&buffer, parent);
    check(form && form->findChild<MaskBox *>(QStringLiteral("mask")) && form->findChild<NumberBox *>(QStringLiteral("number"))
              && form->findChild<DateBox *>(QStringLiteral("date")) && form->findChild<TimeBox *>(QStringLiteral("time")),
          "Designer plugin: QUiLoader makes the four controls");
    const MaskBox *mask = form ? form->findChild<MaskBox *>(QStringLiteral("mask")) : nullptr;
    check(mask && mask->Mask() == QStringLiteral("##-##") && mask->UserMode(), "Designer plugin: a run-time control");
}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QWidget form;
    try {
        useValueTypes();
        useControls(&form);
        useInstalledDesignerPlugin(&form);
    } catch (const Error &e) {
        check(false, e.what()); // a call the checks did not expect to throw
    }
    std::printf("%s\n", failures == 0 ? "consumer: every check passed" : "consumer: checks failed");
    return failures == 0 ? 0 : 1;
}
