#pragma once
#include <tarnwell/global.h>

#include <QStyledItemDelegate>

namespace Tarnwell {

/// @brief An item delegate that edits a view's cells with Tarnwell's controls, chosen by the
/// type the cell holds (its Qt::EditRole data).
///
/// | Cell type                                              | Editor                              |
/// |--------------------------------------------------------|-------------------------------------|
/// | int, short, char and the unsigned ones up to 16 bits   | NumberBox, an integer DataType      |
/// | uint, long long, unsigned long long                    | NumberBox, Decimal with no decimals |
/// | double, float                                          | NumberBox, Double or Single         |
/// | QDate                                                  | DateBox                             |
/// | QTime                                                  | TimeBox                             |
/// | QString                                                | MaskBox without a mask              |
///
/// Integer cells are edited with no decimals and within their type's limits. Any other type
/// (QDateTime among them: neither DateBox nor TimeBox shows a date and a time together) gets
/// QStyledItemDelegate's own editor.
///
/// The editors run at run time, with no check box and no border, select their text on entry,
/// align their text as the cell shows it (Qt::TextAlignmentRole, left when unset), are never
/// narrower than their size hint (a date's digits and its calendar button overflow a narrow
/// column to the right, as Qt's own text editors do), and read and write the cell through their
/// USER property, so that the cell keeps its type (an int
/// stays an int, a QDate a QDate); a cleared date or time is written as an invalid QDate or QTime.
///
/// @code
/// view->setItemDelegate(new Tarnwell::ItemDelegate(view));
/// view->setItemDelegateForColumn(3, new Tarnwell::ItemDelegate(view));
/// @endcode
///
/// A host that wants other settings (a mask, a currency symbol, a date format) derives and
/// adjusts the control createEditor returns.
class TARNWELL_EXPORT ItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT
public:
    /// A delegate owned by `parent` (usually the view).
    explicit ItemDelegate(QObject *parent = nullptr);
    ~ItemDelegate() override;

    /// The control for the cell's type (see the table above), set up for the cell; other types
    /// get QStyledItemDelegate's editor.
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /// Writes the editor's USER property into the cell, in the cell's own type; a control with no
    /// value writes a default value of that type (an invalid QDate or QTime).
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    /// The cell's rectangle, widened to the editor's size hint when the column is narrower.
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
};

} // namespace Tarnwell
