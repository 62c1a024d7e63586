#include <tarnwell/numberbox.h>
#include <tarnwell/variant.h>
#include <tarnwell/xgeneralnb.h>

#include "pages/pagebindings.h"
#include "shared/slotguard.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace Tarnwell {

namespace {

QStringList dataTypeItems()
{
    return {QStringLiteral("0 - Byte"),   QStringLiteral("1 - Integer"),  QStringLiteral("2 - Long"),
            QStringLiteral("3 - Single"), QStringLiteral("4 - Double"),   QStringLiteral("5 - Currency"),
            QStringLiteral("6 - Decimal")};
}

QStringList currencyPositionItems()
{
    return {QStringLiteral("0 - No Currency"), QStringLiteral("1 - Left"), QStringLiteral("2 - Right")};
}

NumberBox *makeNumber(QWidget *parent, const char *name)
{
    auto *field = new NumberBox(parent);
    field->setObjectName(QLatin1String(name));
    return field;
}

} // namespace

xGeneralNB::xGeneralNB(QWidget *parent)
    : PropertyPage(QStringLiteral("General"), parent)
    , m_fields(std::make_unique<Pages::PageBindings>([this] { markChanged(); }))
{
    buildFields();
    buildSwitches();
    layOut();
    connectPreview();
    // The fields start in the type the list shows; that is no edit of the user's.
    m_dataType->setCurrentIndex(m_value->DataType());
    takeDataType(m_dataType->currentIndex());
    showPreview();
    setChanged(false);
}

xGeneralNB::~xGeneralNB() = default;

void xGeneralNB::buildFields()
{
    using namespace Pages;
    m_dataType = makeList(this, "cmbDataType", dataTypeItems());
    m_alignment = makeList(this, "cmbAlignment", alignmentItems());
    m_borderStyle = makeList(this, "cmbBorderStyle", borderStyleItems());
    m_showCurrencySymbol = makeList(this, "cmbShowCurrencySymbol", currencyPositionItems());
    QLineEdit *currencySymbol = makeText(this, "txtCurrencySymbol");
    m_currencySymbol = currencySymbol;

    // Its saved design: a whole number from 0, stepped with its buttons.
    m_decimalPlaces = makeNumber(this, "nmbDecimalPlaces");
    m_decimalPlaces->setDataType(twInteger);
    m_decimalPlaces->setMinimum(0);
    m_decimalPlaces->setUpDown(true);
    m_increment = makeNumber(this, "nmbIncrement");
    m_minimum = makeNumber(this, "nmbMinimum");
    m_maximum = makeNumber(this, "nmbMaximum");
    m_value = makeNumber(this, "nmbValue");

    m_fields->bindIndex("DataType", m_dataType);
    m_fields->bindIndex("Alignment", m_alignment);
    m_fields->bindIndex("BorderStyle", m_borderStyle);
    m_fields->bindIndex("ShowCurrencySymbol", m_showCurrencySymbol);
    m_fields->bindText("CurrencySymbol", currencySymbol);
    m_fields->bindValue("DecimalPlaces", m_decimalPlaces);
    m_fields->bindValue("Increment", m_increment);
    m_fields->bindValue("Minimum", m_minimum);
    m_fields->bindValue("Maximum", m_maximum);
    m_fields->bindValue("Value", m_value);
}

void xGeneralNB::buildSwitches()
{
    struct Switch {
        const char *name;
        const char *caption;
        const char *property;
    };
    static constexpr Switch switches[] = {
        {"chkNullIfEmpty", QT_TR_NOOP("&Null If Empty"), "NullIfEmpty"},
        {"chkChecked", QT_TR_NOOP("Checked"), "Checked"},
        {"chkCheckBox", QT_TR_NOOP("CheckBox"), "CheckBox"},
        {"chkUpDown", QT_TR_NOOP("&UpDown Button"), "UpDown"},
        {"chkSelectTextOnFocus", QT_TR_NOOP("Select &Text on Focus"), "SelectTextOnFocus"},
        {"chkUseNegativeColor", QT_TR_NOOP("U&se Negative Color"), "UseNegativeColor"},
        {"chkEnabled", QT_TR_NOOP("&Enabled"), "Enabled"},
        {"chkThousandSeparator", QT_TR_NOOP("T&housands Separator"), "ThousandSeparator"},
        {"chkLocked", QT_TR_NOOP("&Locked"), "Locked"},
        {"chkInterceptArrowKeys", QT_TR_NOOP("&Intercept Arrow Keys"), "InterceptArrowKeys"},
    };
    auto *frame2 = new QGroupBox(this);
    frame2->setObjectName(QStringLiteral("Frame2"));
    auto *column = new QVBoxLayout(frame2);
    for (const Switch &s : switches) {
        QCheckBox *check = Pages::makeCheck(frame2, s.name, tr(s.caption));
        column->addWidget(check);
        m_fields->bind(s.property, check);
        m_checks.append(check);
    }
    column->addStretch(1);
    m_upDown = findChild<QCheckBox *>(QStringLiteral("chkUpDown"));
    m_interceptArrowKeys = findChild<QCheckBox *>(QStringLiteral("chkInterceptArrowKeys"));
}

void xGeneralNB::layOut()
{
    using Pages::makeLabel;
    auto *form = new QFormLayout;
    const std::pair<QWidget *, QString> rows[] = {
        {m_dataType, tr("&Data Type:")},
        {m_alignment, tr("Alig&nment:")},
        {m_borderStyle, tr("&Border Style:")},
        {m_showCurrencySymbol, tr("Show Currency Symbol:")},
        {m_currencySymbol, tr("Cu&rrency Symbol:")},
        {m_decimalPlaces, tr("Decimal &Places:")},
        {m_increment, tr("In&crement:")},
        {m_minimum, tr("&Minimum:")},
        {m_maximum, tr("Ma&ximum:")},
        {m_value, tr("&Value:")},
    };
    QList<QWidget *> order;
    for (const auto &[field, caption] : rows) {
        const QString name = QLatin1String("lbl") + field->objectName().mid(3);
        form->addRow(makeLabel(this, name.toLatin1().constData(), caption, field), field);
        order.append(field);
    }

    // Wide enough for a Currency's bounds with a symbol; Decimal's and Double's limits scroll.
    const int numberWidth = fontMetrics().horizontalAdvance(QStringLiteral("-$922,337,203,685,477.58 ")) + 24;
    for (NumberBox *field : {m_increment, m_minimum, m_maximum, m_value})
        field->setMinimumWidth(numberWidth);

    auto *frame1 = new QGroupBox(this);
    frame1->setObjectName(QStringLiteral("Frame1"));
    auto *warning = new QLabel(
        tr("Warning  - The Value field in this screen show some of the changed properties."), frame1);
    warning->setObjectName(QStringLiteral("lblWarning"));
    warning->setWordWrap(true);
    (new QVBoxLayout(frame1))->addWidget(warning);

    auto *left = new QVBoxLayout;
    left->addLayout(form);
    left->addWidget(frame1);
    left->addStretch(1);
    auto *page = new QHBoxLayout(this);
    page->addLayout(left, 3);
    page->addWidget(findChild<QGroupBox *>(QStringLiteral("Frame2")), 2);

    // The tab order of the page's widget table, whatever the layout's nesting.
    for (QCheckBox *check : std::as_const(m_checks))
        order.append(check);
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));
}

void xGeneralNB::connectPreview()
{
    const auto preview = guardedSlot([this](auto &&...) { showPreview(); });
    for (QComboBox *list : {m_alignment, m_borderStyle, m_showCurrencySymbol})
        connect(list, &QComboBox::currentIndexChanged, this, preview);
    connect(static_cast<QLineEdit *>(m_currencySymbol), &QLineEdit::textChanged, this, preview);
    for (QCheckBox *check : std::as_const(m_checks))
        connect(check, &QCheckBox::toggled, this, preview);

    // A click, not a fill: the control's own InterceptArrowKeys is what a filled page shows.
    connect(m_upDown, &QCheckBox::clicked, m_interceptArrowKeys, &QCheckBox::setChecked);

    connect(m_dataType, &QComboBox::currentIndexChanged, this, guardedSlot([this](int index) {
                if (!filling())
                    takeDataType(index); // filling takes the control's type itself
            }));
    connect(m_decimalPlaces, &ControlFrame::Change, this, guardedSlot([this] { takeDecimalPlaces(); }));
    connect(m_increment, &ControlFrame::Change, this,
            guardedSlot([this] { m_value->setIncrement(m_increment->Value()); }));
    m_minimum->installEventFilter(this);
    m_maximum->installEventFilter(this);
}

void xGeneralNB::showPreview()
{
    // Every display setting at once: cheap, and right whichever widget changed.
    m_value->setAlignment(twAlignmentConstants(qMax(0, m_alignment->currentIndex())));
    m_value->setBorderStyle(twBorderStyleConstants(qMax(0, m_borderStyle->currentIndex())));
    m_value->setShowCurrencySymbol(twCurrencyPositionConstants(qMax(0, m_showCurrencySymbol->currentIndex())));
    m_value->setCurrencySymbol(m_fields->value("CurrencySymbol").toString());
    m_value->setThousandSeparator(m_fields->value("ThousandSeparator").toBool());
    m_value->setUseNegativeColor(m_fields->value("UseNegativeColor").toBool());
    // UpDown switches arrow-key stepping with it; the page's own choice of that comes after.
    m_value->setUpDown(m_upDown->isChecked());
    m_value->setInterceptArrowKeys(m_interceptArrowKeys->isChecked());
}

bool xGeneralNB::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusOut && (watched == m_minimum || watched == m_maximum))
        guardedSlot([this] { takeRange(); })();
    return PropertyPage::eventFilter(watched, event);
}

void xGeneralNB::takeDataType(int dataType)
{
    if (dataType < twByte || dataType > twDecimal)
        return;
    for (NumberBox *field : {m_value, m_increment, m_maximum, m_minimum})
        field->setDataType(dataType);
    // The bound and step fields hold what the reset gives the control, not the fields' own zero,
    // so that applying right away leaves the control with its type's full range.
    m_minimum->setValue(m_minimum->Minimum());
    m_maximum->setValue(m_maximum->Maximum());
    m_increment->setValue(m_increment->Increment());
    // The decimals DataType gives the control: the most it takes for the type.
    const qint16 places = m_value->MaxDecimalPlaces();
    m_decimalPlaces->setMaximum(places);
    m_decimalPlaces->setValue(places);
    takeDecimalPlaces();
}

void xGeneralNB::takeDecimalPlaces()
{
    const auto places = qint16(m_decimalPlaces->Value().toInt());
    for (NumberBox *field : {m_minimum, m_maximum, m_value, m_increment})
        field->setDecimalPlaces(places);
}

void xGeneralNB::takeRange()
{
    // Whichever way the range moved, one of the first two sets is taken and the third settles
    // the other: a bound is refused while it would cross the current opposite one.
    const QVariant minimum = m_minimum->Value();
    const QVariant maximum = m_maximum->Value();
    m_value->setMaximum(maximum);
    m_value->setMinimum(minimum);
    m_value->setMaximum(maximum);
}

void xGeneralNB::fill(QObject *control)
{
    m_fields->fill(control, {"DataType"});
    takeDataType(m_dataType->currentIndex());
    m_fields->fill(control, {"Alignment", "Enabled", "InterceptArrowKeys"});
    m_increment->setDecimalPlaces(qint16(read(control, "DecimalPlaces").toInt()));
    m_fields->fill(control, {"Increment", "UpDown", "DecimalPlaces"});
    takeDecimalPlaces();
    m_value->setIncrement(m_increment->Value());
    m_fields->fill(control, {"Locked", "Maximum", "Minimum", "ThousandSeparator"});
    // A cleared check box leaves the control no number to show; the field keeps its zero.
    const QVariant value = read(control, "Value");
    if (!Variant::isEmpty(value) && !Variant::isNull(value))
        m_fields->show("Value", value);
    m_fields->fill(control, {"BorderStyle", "UseNegativeColor", "SelectTextOnFocus", "CurrencySymbol",
                             "ShowCurrencySymbol", "CheckBox", "Checked", "NullIfEmpty"});
    showPreview();
    m_decimalPlaces->setMaximum(read(control, "MaxDecimalPlaces"));
    takeRange();
}

void xGeneralNB::apply(QObject *control)
{
    for (const char *name : {"CheckBox", "Checked", "DataType", "Alignment", "Enabled", "UpDown",
                             "InterceptArrowKeys", "Increment", "DecimalPlaces", "Locked", "Maximum",
                             "Minimum", "ThousandSeparator", "Value", "BorderStyle", "UseNegativeColor",
                             "SelectTextOnFocus", "ShowCurrencySymbol", "CurrencySymbol", "NullIfEmpty"})
        write(control, name, m_fields->value(name));
}

} // namespace Tarnwell
