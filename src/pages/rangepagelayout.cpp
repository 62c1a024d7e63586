#include "pages/rangepagelayout.h"

#include <tarnwell/variant.h>

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace Tarnwell::Pages {

QGroupBox *makeFrame(QWidget *parent, const char *name)
{
    auto *frame = new QGroupBox(parent);
    frame->setObjectName(QLatin1String(name));
    return frame;
}

void layOutRangePage(QWidget *page, QGroupBox *fieldFrame, std::initializer_list<CaptionedField> fields,
                     QGroupBox *checkFrame, std::initializer_list<QCheckBox *> boxes)
{
    auto *form = new QFormLayout(fieldFrame);
    // Fields as wide as the frame on every style, so that the range boxes show a whole date.
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (const CaptionedField &row : fields)
        form->addRow(row.label, row.field);

    auto *column = new QVBoxLayout(checkFrame);
    for (QCheckBox *box : boxes)
        column->addWidget(box);
    column->addStretch();

    auto *columns = new QHBoxLayout(page);
    // The fields take the width the page gains; the check boxes keep theirs.
    columns->addWidget(fieldFrame, 1, Qt::AlignTop);
    columns->addWidget(checkFrame);
}

bool keepsBound(const char *name, const QVariant &value)
{
    const bool bound = qstrcmp(name, "Minimum") == 0 || qstrcmp(name, "Maximum") == 0;
    return bound && Variant::kind(value) != Variant::DateKind;
}

} // namespace Tarnwell::Pages
