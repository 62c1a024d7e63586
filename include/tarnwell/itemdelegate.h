#pragma once
#include <tarnwell/global.h>

#include <QStyledItemDelegate>

namespace Tarnwell {

// An item delegate that edits a view's cells with Tarnwell's controls, chosen by the type the
// cell holds (its Qt::EditRole data):
//
//   int, short, char and the unsigned ones up to 16 bits   NumberBox, an integer DataType
//   uint, long long, unsigned long long                     NumberBox, Decimal with no decimals
//   double, float                                           NumberBox, Double or Single
//   QDate                                                   DateBox
//   QTime                                                   TimeBox
//   QString                                                 MaskBox without a mask
//
// Integer cells are edited with no decimals and within their type's limits. Any other type
// (QDateTime among them: neither DateBox nor TimeBox shows a date and a time together) gets
// QStyledItemDelegate's own editor.
//
// The editors run at run time, with no check box and no border, select their text on entry,
// align their text as the cell shows it (Qt::TextAlignmentRole, left when unset), are never
// narrower than their size hint (a date's digits and its calendar button overflow a narrow
// column to the right, as Qt's own text editors do), and read and write the cell through their
// USER property, so that the cell keeps its type (an int
// stays an int, a QDate a QDate); a cleared date or time is written as an invalid QDate or QTime.
//
//   view->setItemDelegate(new Tarnwell::ItemDelegate(view));
//   view->setItemDelegateForColumn(3, new Tarnwell::ItemDelegate(view));
//
// A host that wants other settings (a mask, a currency symbol, a date format) derives and
// adjusts the control createEditor returns.
class TARNWELL_EXPORT ItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    explicit ItemDelegate(QObject *parent = nullptr);
    ~ItemDelegate() override;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
};

} // namespace Tarnwell
