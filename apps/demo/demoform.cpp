#include "demoform.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/date.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/timebox.h>

#include <QApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMetaProperty>
#include <QPainter>

#include <tuple>

namespace Tarnwell::Demo {

namespace {

bool hasProperty(const QObject *object, const char *name)
{
    return object->metaObject()->indexOfProperty(name) >= 0;
}


void setNumber(QWidget *field, double number)
{
    if (hasProperty(field, "Value")) {
        try {
            field->setProperty("Value", number);
        } catch (const std::exception &) {
            // Out of the field's range: it keeps its previous value, as a user's entry would.
        }
    } else if (auto *edit = qobject_cast<QLineEdit *>(field)) {
        edit->setText(QLocale().toString(number, 'f', 2));
    }
}

// The widget that takes a field's keystrokes: the control's inner text box, or the field itself.
QWidget *keyTarget(QWidget *field)
{
    if (qobject_cast<QLineEdit *>(field))
        return field;
    if (auto *inner = field->findChild<QLineEdit *>(QStringLiteral("Text1")))
        return inner;
    return field->focusProxy() ? field->focusProxy() : field;
}

// The key a US keyboard types `c` with, and whether it needs Shift.
std::pair<int, Qt::KeyboardModifiers> keyFor(QChar c)
{
    static const QString shifted = QStringLiteral("~!@#$%^&*()_+{}|:\"<>?");
    if (c.isLetter() && c.unicode() < 128)
        return {Qt::Key_A + (c.toUpper().unicode() - 'A'), c.isUpper() ? Qt::ShiftModifier : Qt::NoModifier};
    return {c.unicode() < 128 ? int(c.unicode()) : int(Qt::Key_unknown),
            shifted.contains(c) ? Qt::ShiftModifier : Qt::NoModifier};
}

// Names a placeholder is known by in the sample order, with what a user would type into it.
struct SampleEntry {
    const char *field;
    const char *keys;
};
constexpr SampleEntry sampleOrder[] = {
    {"txtCustomer", "Ada Lovelace"},
    {"mskTelephone", "5550123456"}, // the mask supplies the punctuation
    {"mskPostalCode", "101151234"},
    {"mskProduct", "abc1234"}, // upper-cased by the field
    {"nmbPrice", "19.95"},
    {"nmbQuantity", "3"},
    {"nmbBalance", "-42.50"},
    {"dtbOrderDate", "07032024"},
    {"dtbDelivery", "042024"},
    {"dtbBirthDate", "10121815"},
    {"tmbAppointment", "0930p"}, // "p" turns the morning into the evening
    {"tmbShiftStart", "0745"},
};

} // namespace

DemoForm::DemoForm(QWidget *parent) : QWidget(parent)
{
    m_layout = new QFormLayout(this);
    m_layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_layout->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    buildCustomerOrder();
}

DemoForm::~DemoForm()
{
    // The fields outlive this destructor (QWidget deletes its children later): they must not
    // report their destruction into a list that is already gone.
    for (QWidget *f : std::as_const(m_fields))
        disconnect(f, &QObject::destroyed, this, nullptr);
}

void DemoForm::buildCustomerOrder()
{
    // Placeholders: each QLineEdit below stands in for the control named in its comment and is
    // replaced by it once that control exists, e.g.
    //   add<Tarnwell::MaskBox>(tr("&Telephone"), "mskTelephone")->setMask("(###) ###-####");
    auto placeholder = [this](const QString &label, const QString &name, const QString &hint) {
        auto *edit = add<QLineEdit>(label, name);
        edit->setPlaceholderText(hint);
        return edit;
    };
    placeholder(tr("&Customer name"), QStringLiteral("txtCustomer"), tr("Name on the order")); // MaskBox, no mask
    // Masked fields: the literals are shown, only digits or letters go in; the Values are the
    // typed characters alone (no prompt spaces), and the product code is kept in capitals.
    for (const auto &[label, name, mask, charCase] :
         {std::tuple{tr("&Telephone"), "mskTelephone", "(###) ###-####", Tarnwell::twAnyCase},
          std::tuple{tr("&Postal code"), "mskPostalCode", "#####-####", Tarnwell::twAnyCase},
          std::tuple{tr("P&roduct code"), "mskProduct", "@@@-####", Tarnwell::twUpperCase}}) {
        auto *box = add<Tarnwell::MaskBox>(label, QString::fromLatin1(name));
        box->setMask(QString::fromLatin1(mask));
        box->setCharCase(charCase);
        box->setPromptInclude(false);
        box->setAlignment(Tarnwell::twLeftJustify);
    }
    addNumberFields();
    addScheduleFields();

    for (const char *name : {"nmbPrice", "nmbQuantity"}) {
        QWidget *source = field(QString::fromLatin1(name));
        // Controls raise Change; placeholders have textChanged.
        if (source->metaObject()->indexOfSignal("Change()") >= 0)
            connect(source, SIGNAL(Change()), this, SLOT(updateTotals()));
        else if (auto *edit = qobject_cast<QLineEdit *>(source))
            connect(edit, &QLineEdit::textChanged, this, &DemoForm::updateTotals);
    }
}

// The number fields: a price in dollars, a quantity with up-down buttons, the amount they make
// (four decimals, read-only) and an account balance that turns red below zero.
void DemoForm::addNumberFields()
{
    auto *price = add<Tarnwell::NumberBox>(tr("Pr&ice"), QStringLiteral("nmbPrice"));
    price->setShowCurrencySymbol(Tarnwell::twLeft);
    price->setMinimum(0);
    auto *quantity = add<Tarnwell::NumberBox>(tr("&Quantity"), QStringLiteral("nmbQuantity"));
    quantity->setDataType(Tarnwell::twInteger);
    quantity->setUpDown(true);
    quantity->setMinimum(0);
    quantity->setMaximum(999);
    // Four decimals may exceed the user's regional currency digits, which bound DecimalPlaces;
    // a saved form carries them, so the amount is loaded as one.
    auto *amount = add<Tarnwell::NumberBox>(tr("&Amount"), QStringLiteral("nmbAmount"));
    Tarnwell::PropertyBag saved;
    saved.WriteProperty(QStringLiteral("DataType"), qint32(Tarnwell::twDecimal));
    saved.WriteProperty(QStringLiteral("DecimalPlaces"), qint16(4));
    saved.WriteProperty(QStringLiteral("Locked"), true);
    amount->ReadProperties(saved);
    auto *balance = add<Tarnwell::NumberBox>(tr("&Balance"), QStringLiteral("nmbBalance"));
    balance->setSelectTextOnFocus(false); // entering keeps the red figure readable
}

// Dates and times: the order date (day, month, year, with a calendar), the delivery month (month
// and year, stepped with the up-down button), a date of birth that must lie between 1800 and
// today, an appointment on the 12-hour clock and a shift start on the 24-hour clock between
// 06:00 and 22:00.
void DemoForm::addScheduleFields()
{
    auto *orderDate = add<Tarnwell::DateBox>(tr("Or&der date"), QStringLiteral("dtbOrderDate"));
    auto *delivery = add<Tarnwell::DateBox>(tr("Deli&very month"), QStringLiteral("dtbDelivery"));
    delivery->setFormat(Tarnwell::twMonthYear);
    auto *birth = add<Tarnwell::DateBox>(tr("Date of &birth"), QStringLiteral("dtbBirthDate"));
    birth->setMinimum(Tarnwell::Date::fromYmd(1800, 1, 1));
    birth->setMaximum(Tarnwell::Date::today());
    birth->setUpDown(false); // typed, not picked
    auto *appointment = add<Tarnwell::TimeBox>(tr("Appoin&tment"), QStringLiteral("tmbAppointment"));
    appointment->setFormat(Tarnwell::twHourMinuteAMPM);
    auto *shift = add<Tarnwell::TimeBox>(tr("S&hift start"), QStringLiteral("tmbShiftStart"));
    shift->setFormat(Tarnwell::twHourMinute);
    shift->setMinimum(Tarnwell::Date::fromHms(6, 0, 0));
    shift->setMaximum(Tarnwell::Date::fromHms(22, 0, 0));
    shift->setUpDown(true);
    shift->setInterceptArrowKeys(true);
    for (Tarnwell::ControlFrame *box :
         std::initializer_list<Tarnwell::ControlFrame *>{orderDate, delivery, birth, appointment, shift})
        box->setAlignment(Tarnwell::twLeftJustify);
}

bool DemoForm::addField(const QString &label, const QString &name, QWidget *field)
{
    if (!field || name.isEmpty() || this->field(name)) {
        delete field;
        return false;
    }
    field->setParent(this);
    field->setObjectName(name);
    auto *caption = new QLabel(label, this);
    caption->setBuddy(field);
    m_layout->addRow(caption, field);
    m_fields.append(field);
    connect(field, &QObject::destroyed, this, [this, field] { m_fields.removeOne(field); });
    emit fieldAdded(field, name);
    return true;
}

double DemoForm::numberOf(const QWidget *field)
{
    if (hasProperty(field, "Value")) {
        const QVariant value = field->property("Value");
        double number = 0;
        if (value.isValid() && QMetaType::convert(value.metaType(), value.constData(),
                                                  QMetaType::fromType<double>(), &number))
            return number;
        return 0;
    }
    if (const auto *edit = qobject_cast<const QLineEdit *>(field)) {
        const QLocale locale;
        QString text = edit->text();
        text.remove(locale.currencySymbol()).remove(locale.groupSeparator());
        return locale.toDouble(text.trimmed());
    }
    return 0;
}

QString DemoForm::textOf(const QWidget *field)
{
    if (const auto *edit = qobject_cast<const QLineEdit *>(field))
        return edit->text();
    if (const auto *inner = field->findChild<const QLineEdit *>(QStringLiteral("Text1")))
        return inner->text();
    return QString();
}

QWidget *DemoForm::field(const QString &name) const
{
    for (QWidget *f : m_fields) {
        if (f->objectName() == name)
            return f;
    }
    return nullptr;
}

void DemoForm::setDesignMode(bool design)
{
    if (design == m_designMode)
        return;
    m_designMode = design;
    for (QWidget *f : std::as_const(m_fields)) {
        if (auto *frame = qobject_cast<ControlFrame *>(f))
            frame->setUserMode(!design);
        else if (auto *edit = qobject_cast<QLineEdit *>(f))
            edit->setReadOnly(design || f->objectName() == QLatin1String("nmbAmount"));
    }
    update();
}

bool DemoForm::typeText(QWidget *field, const QString &text)
{
    if (!field || !m_fields.contains(field) || !field->isEnabled())
        return false;
    QWidget *target = keyTarget(field);
    field->setFocus(Qt::TabFocusReason);
    for (const QChar c : text) {
        const auto [key, modifiers] = keyFor(c);
        QKeyEvent press(QEvent::KeyPress, key, modifiers, QString(c));
        QCoreApplication::sendEvent(target, &press);
        QKeyEvent release(QEvent::KeyRelease, key, modifiers, QString(c));
        QCoreApplication::sendEvent(target, &release);
    }
    return true;
}

void DemoForm::updateTotals()
{
    QWidget *amount = field(QStringLiteral("nmbAmount"));
    QWidget *price = field(QStringLiteral("nmbPrice"));
    QWidget *quantity = field(QStringLiteral("nmbQuantity"));
    if (!amount || !price || !quantity || m_updatingTotals)
        return;
    m_updatingTotals = true;
    setNumber(amount, numberOf(price) * numberOf(quantity));
    m_updatingTotals = false;
}

void DemoForm::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    if (!m_designMode)
        return;
    // A form designer's grid tells design mode apart at a glance.
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    constexpr int step = 8;
    for (int y = step; y < height(); y += step) {
        for (int x = step; x < width(); x += step)
            painter.drawPoint(x, y);
    }
}

QStringList DemoForm::sampleFieldNames()
{
    QStringList names;
    for (const SampleEntry &entry : sampleOrder)
        names.append(QString::fromLatin1(entry.field));
    return names;
}

void DemoForm::typeSampleOrder()
{
    for (const SampleEntry &entry : sampleOrder) {
        if (QWidget *f = field(QString::fromLatin1(entry.field)))
            typeText(f, QString::fromLatin1(entry.keys));
    }
}

} // namespace Tarnwell::Demo
