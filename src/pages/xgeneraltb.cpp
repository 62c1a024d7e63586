#include <tarnwell/xgeneraltb.h>

#include <tarnwell/timebox.h>

#include "pages/pagebindings.h"
#include "pages/rangepagelayout.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

namespace Tarnwell {

namespace {

// A range box of the page: a live editor that steps by button and arrow keys and selects its text
// on entry, so that a bound is typed over at once.
TimeBox *makeRangeBox(QWidget *parent, const char *name)
{
    auto *box = new TimeBox(parent);
    box->setObjectName(QLatin1String(name));
    box->setUpDown(true);
    box->setInterceptArrowKeys(true);
    box->setSelectTextOnFocus(true);
    return box;
}

} // namespace

xGeneralTB::xGeneralTB(QWidget *parent)
    : PropertyPage(QStringLiteral("General"), parent)
    , m_fields(std::make_unique<Pages::PageBindings>([this] { markChanged(); }))
{
    using namespace Pages;

    QGroupBox *frame1 = makeFrame(this, "Frame1");
    m_format = makeList(frame1, "cmbTimeFormat",
                        {QStringLiteral("HH:MM:SS AM/PM"), QStringLiteral("HH:MM AM/PM"), QStringLiteral("HH:MM:SS"),
                         QStringLiteral("HH:MM")});
    QComboBox *separator = makeCombo(frame1, "cmbSeparator", {QStringLiteral(":"), QStringLiteral(".")});
    QComboBox *borderStyle = makeList(frame1, "cmbBorderStyle", borderStyleItems());
    QComboBox *alignment = makeList(frame1, "cmbAlignment", alignmentItems());
    m_minimum = makeRangeBox(frame1, "tmMinimum");
    m_maximum = makeRangeBox(frame1, "tmMaximum");

    QGroupBox *frame2 = makeFrame(this, "Frame2");
    QCheckBox *enabled = makeCheck(frame2, "chkEnabled", QStringLiteral("&Enabled"));
    QCheckBox *locked = makeCheck(frame2, "chkLocked", QStringLiteral("&Locked"));
    QCheckBox *selectTextOnFocus = makeCheck(frame2, "chkSelectTextOnFocus", QStringLiteral("Select &Text on Focus"));
    QCheckBox *interceptArrowKeys = makeCheck(frame2, "chkInterceptArrowKeys", QStringLiteral("&Intercept Arrow Keys"));
    QCheckBox *upDown = makeCheck(frame2, "chkUpDown", QStringLiteral("&UpDown Button"));
    QCheckBox *nullIfEmpty = makeCheck(frame2, "chkNullIfEmpty", QStringLiteral("&Null If Empty"));
    QCheckBox *checkBox = makeCheck(frame2, "chkCheckBox", QStringLiteral("CheckBox"));
    QCheckBox *checked = makeCheck(frame2, "chkChecked", QStringLiteral("Checked"));

    layOutRangePage(this, frame1,
                    {{makeLabel(frame1, "lblFormat", QStringLiteral("&Format:"), m_format), m_format},
                     {makeLabel(frame1, "Label1", QStringLiteral("&Separator:"), separator), separator},
                     {makeLabel(frame1, "lblBorderStyle", QStringLiteral("&Border Style:"), borderStyle), borderStyle},
                     {makeLabel(frame1, "Label3", QStringLiteral("&Alignment:"), alignment), alignment},
                     {makeLabel(frame1, "lblMinimum", QStringLiteral("&Minimum:"), m_minimum), m_minimum},
                     {makeLabel(frame1, "lblMaximum", QStringLiteral("Ma&ximum:"), m_maximum), m_maximum}},
                    frame2, {enabled, locked, selectTextOnFocus, interceptArrowKeys, upDown, nullIfEmpty, checkBox, checked});

    followFormat();

    m_fields->bindIndex("Format", m_format);
    m_fields->bindText("Separator", separator);
    m_fields->bindIndex("BorderStyle", borderStyle);
    m_fields->bindIndex("Alignment", alignment);
    m_fields->bindValue("Minimum", m_minimum);
    m_fields->bindValue("Maximum", m_maximum);
    m_fields->bind("Enabled", enabled);
    m_fields->bind("Locked", locked);
    m_fields->bind("SelectTextOnFocus", selectTextOnFocus);
    m_fields->bind("InterceptArrowKeys", interceptArrowKeys);
    m_fields->bind("UpDown", upDown);
    m_fields->bind("NullIfEmpty", nullIfEmpty);
    m_fields->bind("CheckBox", checkBox);
    m_fields->bind("Checked", checked);

    connect(m_format, &QComboBox::currentIndexChanged, this, &xGeneralTB::followFormat);
    // Choosing the item already shown is an edit too.
    for (QComboBox *list : {m_format, separator, borderStyle, alignment})
        connect(list, &QComboBox::activated, this, [this] { markChanged(); });
}

xGeneralTB::~xGeneralTB() = default;

void xGeneralTB::followFormat()
{
    m_maximum->setFormat(m_format->currentIndex());
    m_minimum->setFormat(m_format->currentIndex());
}

void xGeneralTB::fill(QObject *control)
{
    m_fields->fill(control, {"Enabled", "Format", "BorderStyle", "Separator", "UpDown", "InterceptArrowKeys",
                             "SelectTextOnFocus", "Locked", "Alignment", "CheckBox", "Checked", "NullIfEmpty",
                             "Maximum", "Minimum"});
}

void xGeneralTB::apply(QObject *control)
{
    for (const char *name : {"CheckBox", "Checked", "Enabled", "Format", "BorderStyle", "Separator", "UpDown",
                             "InterceptArrowKeys", "SelectTextOnFocus", "Locked", "Alignment", "Maximum", "Minimum",
                             "NullIfEmpty"}) {
        const QVariant value = m_fields->value(name);
        if (!Pages::keepsBound(name, value))
            write(control, name, value);
    }
    followFormat();
}

} // namespace Tarnwell
