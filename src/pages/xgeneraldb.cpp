#include <tarnwell/xgeneraldb.h>

#include <tarnwell/constants.h>
#include <tarnwell/datebox.h>

#include "datefields/datefields.h"
#include "pages/pagebindings.h"
#include "pages/rangepagelayout.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace Tarnwell {

xGeneralDB::xGeneralDB(QWidget *parent)
    : PropertyPage(QStringLiteral("General"), parent)
    , m_fields(std::make_unique<Pages::PageBindings>([this] { markChanged(); }))
{
    using namespace Pages;

    QGroupBox *frame1 = makeFrame(this, "Frame1");
    m_format = makeList(frame1, "cmbDateFormat",
                        {QStringLiteral("Day/Month/Year"), QStringLiteral("Month/Day/Year"),
                         QStringLiteral("Month/Year"), QStringLiteral("Year/Month"), QStringLiteral("Year/Month/Day")});
    m_displayFormat = makeText(frame1, "txtDisplayFormat");
    m_separator = makeCombo(frame1, "cmbSeparator",
                            {QStringLiteral("/"), QStringLiteral("."), QStringLiteral("-"), QStringLiteral(" ")});
    QComboBox *borderStyle = makeList(frame1, "cmbBorderStyle", borderStyleItems());
    QComboBox *alignment = makeList(frame1, "cmbAlignment", alignmentItems());
    m_minimum = new DateBox(frame1);
    m_minimum->setObjectName(QStringLiteral("dtMinimum"));
    m_maximum = new DateBox(frame1);
    m_maximum->setObjectName(QStringLiteral("dtMaximum"));

    QGroupBox *frame2 = makeFrame(this, "Frame2");
    QCheckBox *enabled = makeCheck(frame2, "chkEnabled", QStringLiteral("&Enabled"));
    QCheckBox *upDown = makeCheck(frame2, "chkUpDown", QStringLiteral("&UpDown Button"));
    QCheckBox *interceptArrowKeys = makeCheck(frame2, "chkInterceptArrowKeys", QStringLiteral("&Intercept Arrow Keys"));
    QCheckBox *selectTextOnFocus = makeCheck(frame2, "chkSelectTextOnFocus", QStringLiteral("Select &Text on Focus"));
    QCheckBox *locked = makeCheck(frame2, "chkLocked", QStringLiteral("&Locked"));
    QCheckBox *nullIfEmpty = makeCheck(frame2, "chkNullIfEmpty", QStringLiteral("&Null If Empty"));
    QCheckBox *checkBox = makeCheck(frame2, "chkCheckBox", QStringLiteral("CheckBox"));
    QCheckBox *checked = makeCheck(frame2, "chkChecked", QStringLiteral("Checked"));

    layOutRangePage(this, frame1,
                    {{makeLabel(frame1, "lblFormat", QStringLiteral("&Format:"), m_format), m_format},
                     {makeLabel(frame1, "lblDisplayFormat", QStringLiteral("&Display Format:"), m_displayFormat),
                      m_displayFormat},
                     {makeLabel(frame1, "Label1", QStringLiteral("&Separator:"), m_separator), m_separator},
                     {makeLabel(frame1, "lblBorderStyle", QStringLiteral("&Border Style:"), borderStyle), borderStyle},
                     {makeLabel(frame1, "Label3", QStringLiteral("&Alignment:"), alignment), alignment},
                     {makeLabel(frame1, "lblMinimum", QStringLiteral("&Minimum:"), m_minimum), m_minimum},
                     {makeLabel(frame1, "lblMaximum", QStringLiteral("Ma&ximum:"), m_maximum), m_maximum}},
                    frame2, {enabled, upDown, interceptArrowKeys, selectTextOnFocus, locked, nullIfEmpty, checkBox, checked});

    // A new page shows the pattern of the format it shows, before any edit counts.
    followFormat();

    m_fields->bindIndex("Format", m_format);
    m_fields->bindText("DisplayFormat", m_displayFormat);
    m_fields->bindText("Separator", m_separator);
    m_fields->bindIndex("BorderStyle", borderStyle);
    m_fields->bindIndex("Alignment", alignment);
    m_fields->bindValue("Minimum", m_minimum);
    m_fields->bindValue("Maximum", m_maximum);
    m_fields->bind("Enabled", enabled);
    m_fields->bind("UpDown", upDown);
    m_fields->bind("InterceptArrowKeys", interceptArrowKeys);
    m_fields->bind("SelectTextOnFocus", selectTextOnFocus);
    m_fields->bind("Locked", locked);
    m_fields->bind("NullIfEmpty", nullIfEmpty);
    m_fields->bind("CheckBox", checkBox);
    m_fields->bind("Checked", checked);

    // Choosing the format already shown rebuilds the pattern too: that is how the user brings a
    // new separator into it.
    connect(m_format, &QComboBox::currentIndexChanged, this, &xGeneralDB::followFormat);
    connect(m_format, &QComboBox::activated, this, [this] {
        followFormat();
        markChanged();
    });
    for (QComboBox *list : {m_separator, borderStyle, alignment})
        connect(list, &QComboBox::activated, this, [this] { markChanged(); });
    connect(upDown, &QCheckBox::clicked, interceptArrowKeys, &QCheckBox::setChecked);
}

xGeneralDB::~xGeneralDB() = default;

void xGeneralDB::followFormat()
{
    const int format = m_format->currentIndex();
    // The engine's template, "/" standing for the separator; none for an index naming no format.
    if (const std::optional<QString> pattern = DateFields(format).displayPattern())
        m_displayFormat->setText(QString(*pattern).replace(QLatin1Char('/'), m_separator->currentText()));
    const int rangeOrder = format == twMonthDayYear ? twMonthDayYear : twDayMonthYear;
    m_minimum->setFormat(rangeOrder);
    m_maximum->setFormat(rangeOrder);
}

void xGeneralDB::fill(QObject *control)
{
    m_fields->fill(control, {"Enabled", "Format", "BorderStyle", "DisplayFormat", "Separator", "UpDown",
                             "InterceptArrowKeys", "SelectTextOnFocus", "Locked", "Alignment", "Minimum",
                             "Maximum", "CheckBox", "Checked", "NullIfEmpty"});
}

void xGeneralDB::apply(QObject *control)
{
    for (const char *name : {"CheckBox", "Checked", "Enabled", "Format", "BorderStyle", "DisplayFormat", "Separator",
                             "UpDown", "InterceptArrowKeys", "SelectTextOnFocus", "Locked", "Alignment",
                             "NullIfEmpty", "Minimum", "Maximum"}) {
        const QVariant value = m_fields->value(name);
        if (!Pages::keepsBound(name, value))
            write(control, name, value);
    }
}

} // namespace Tarnwell
