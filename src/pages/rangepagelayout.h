#pragma once
// What the DateBox and TimeBox pages share: their layout (the captioned fields in Frame1 beside
// the check boxes in Frame2) and the rule for a range box that holds no bound.
#include <QVariant>

#include <initializer_list>

class QCheckBox;
class QGroupBox;
class QLabel;
class QWidget;

namespace Tarnwell::Pages {

// An untitled group frame. The page creates its widgets inside their frame in the order of the
// page's widget table, which makes that order the tab order.
QGroupBox *makeFrame(QWidget *parent, const char *name);

struct CaptionedField {
    QLabel *label;
    QWidget *field;
};

// Lays the page out with Qt layouts, so that it follows the font and the scale: `fields` as a
// form in `fieldFrame` at the left, `boxes` in a column in `checkFrame` at the right.
void layOutRangePage(QWidget *page, QGroupBox *fieldFrame, std::initializer_list<CaptionedField> fields,
                     QGroupBox *checkFrame, std::initializer_list<QCheckBox *> boxes);

// Whether applying `value` to property `name` is skipped: a range box emptied by the user (Null or
// Empty, no date) leaves the control's Minimum or Maximum as it is, instead of passing a value
// the bound cannot take.
bool keepsBound(const char *name, const QVariant &value);

} // namespace Tarnwell::Pages
