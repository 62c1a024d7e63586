#include <tarnwell/xgeneralmb.h>

#include "pages/pagebindings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace Tarnwell {

namespace {

// One rule to a line. The label shows plain text, so the "any character" placeholder is the one
// ampersand it is in a mask.
QString maskRules()
{
    return QStringList{
        QStringLiteral("The Mask field accepts:"),
        QStringLiteral("# - as numbers - 0 to 9"),
        QStringLiteral("@ - as letters - A to Z  - a to z"),
        QStringLiteral("? - as Numbers or Letters - 0 to 9 - A to Z - a to z"),
        QStringLiteral("& - any character - ranges: 32 to 126 - 128 to 255"),
        QStringLiteral("\\ - Treat the next character in the mask string as a literal"),
    }.join(u'\n');
}

} // namespace

xGeneralMB::xGeneralMB(QWidget *parent)
    : PropertyPage(QStringLiteral("General"), parent)
    , m_fields(std::make_unique<Pages::PageBindings>([this] { markChanged(); }))
{
    using namespace Pages;

    auto *frame1 = new QGroupBox(this);
    frame1->setObjectName(QStringLiteral("Frame1"));
    QLineEdit *mask = makeText(frame1, "txtMask");
    auto *rules = new QLabel(maskRules(), frame1);
    rules->setObjectName(QStringLiteral("Label1"));
    rules->setTextFormat(Qt::PlainText);
    auto *maskForm = new QFormLayout(frame1);
    maskForm->addRow(makeLabel(frame1, "lblMask", tr("&Mask:"), mask), mask);
    maskForm->addRow(rules);

    QComboBox *charCase = makeList(this, "cmbCase",
                                   {QStringLiteral("0 - Any"), QStringLiteral("1 - Upper Case"),
                                    QStringLiteral("2 - Lower Case")});
    QComboBox *alignment = makeList(this, "cmbAlignment", alignmentItems());
    QComboBox *borderStyle = makeList(this, "cmbBorderStyle", borderStyleItems());
    auto *lists = new QFormLayout;
    lists->addRow(makeLabel(this, "lblCase", tr("&Case:"), charCase), charCase);
    lists->addRow(makeLabel(this, "lblAlignment", tr("&Alignment:"), alignment), alignment);
    lists->addRow(makeLabel(this, "lblBorderStyle", tr("&Border Style:"), borderStyle), borderStyle);

    auto *frame2 = new QGroupBox(this);
    frame2->setObjectName(QStringLiteral("Frame2"));
    const QList<QCheckBox *> checks{
        makeCheck(frame2, "chkEnabled", tr("&Enabled")),
        makeCheck(frame2, "chkLocked", tr("&Locked")),
        makeCheck(frame2, "chkSelectTextOnFocus", tr("Select &Text on Focus")),
        makeCheck(frame2, "chkPromptInclude", tr("&Prompt Include")),
        makeCheck(frame2, "chkCheckBox", tr("CheckBox")),
        makeCheck(frame2, "chkChecked", tr("Checked")),
        makeCheck(frame2, "chkNullIfEmpty", tr("&Null If Empty")),
    };
    auto *checkGrid = new QGridLayout(frame2);
    for (int i = 0; i < checks.size(); ++i)
        checkGrid->addWidget(checks.at(i), i / 2, i % 2);

    auto *page = new QVBoxLayout(this);
    page->addWidget(frame1);
    page->addLayout(lists);
    page->addWidget(frame2);
    page->addStretch(1);

    // The tab order of the page's widget table, whatever the layout's nesting.
    QList<QWidget *> order{mask, charCase, alignment, borderStyle};
    for (QCheckBox *check : checks)
        order.append(check);
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order.at(i - 1), order.at(i));

    m_fields->bindText("Mask", mask);
    m_fields->bindIndex("CharCase", charCase);
    m_fields->bindIndex("Alignment", alignment);
    m_fields->bindIndex("BorderStyle", borderStyle);
    const char *const checkProperties[] = {"Enabled",  "Locked",  "SelectTextOnFocus", "PromptInclude",
                                           "CheckBox", "Checked", "NullIfEmpty"};
    for (int i = 0; i < checks.size(); ++i)
        m_fields->bind(checkProperties[i], checks.at(i));
}

xGeneralMB::~xGeneralMB() = default;

void xGeneralMB::fill(QObject *control)
{
    m_fields->fill(control, {"Enabled", "BorderStyle", "SelectTextOnFocus", "Locked", "Alignment", "Mask",
                             "CharCase", "PromptInclude", "CheckBox", "Checked", "NullIfEmpty"});
}

void xGeneralMB::apply(QObject *control)
{
    for (const char *name : {"CheckBox", "Checked", "Enabled", "BorderStyle", "SelectTextOnFocus", "Locked",
                             "Alignment", "Mask", "CharCase", "PromptInclude", "NullIfEmpty"})
        write(control, name, m_fields->value(name));
}

} // namespace Tarnwell
