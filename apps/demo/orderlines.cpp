#include "orderlines.h"

#include <tarnwell/itemdelegate.h>

#include <QDate>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTime>

namespace Tarnwell::Demo {

OrderLines::OrderLines(QWidget *parent) : QTableView(parent), m_lines(new QStandardItemModel(0, ColumnCount, this))
{
    m_lines->setHorizontalHeaderLabels({tr("Item"), tr("Quantity"), tr("Unit price"), tr("Delivery"), tr("Time")});
    const QVariantList sample[] = {
        {tr("Hex bolts M8"), 100, 0.12, QDate(2024, 3, 14), QTime(9, 0)},
        {tr("Washers"), 250, 0.03, QDate(2024, 3, 14), QTime(9, 0)},
        {tr("Wing nuts"), 40, 0.25, QDate(2024, 3, 21), QTime(14, 30)},
    };
    for (const QVariantList &values : sample) {
        QList<QStandardItem *> row;
        for (const QVariant &value : values) {
            auto *item = new QStandardItem;
            item->setData(value, Qt::EditRole);
            row.append(item);
        }
        m_lines->appendRow(row);
    }
    setModel(m_lines);
    // One line makes every column's editor one of the controls, chosen by the cell's type.
    setItemDelegate(new Tarnwell::ItemDelegate(this));
    horizontalHeader()->setStretchLastSection(true);
    resizeColumnsToContents();
    // Wide enough for every column, as the layout asks it, rather than a width set by hand.
    setSizeAdjustPolicy(AdjustToContents);
    setDesignMode(false);
    connect(m_lines, &QStandardItemModel::dataChanged, this,
            [this](const QModelIndex &topLeft, const QModelIndex &bottomRight) {
                for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
                    for (int column = topLeft.column(); column <= bottomRight.column(); ++column)
                        emit lineEdited(row, column);
                }
            });
}

void OrderLines::setDesignMode(bool design)
{
    if (design && state() == EditingState) {
        // Leaving the current cell commits and closes its editor, as a click elsewhere does.
        const QModelIndex current = currentIndex();
        setCurrentIndex(QModelIndex());
        setCurrentIndex(current);
    }
    setEditTriggers(design ? NoEditTriggers : DoubleClicked | EditKeyPressed | AnyKeyPressed);
}

QString OrderLines::describe(int row, int column) const
{
    const QVariant value = m_lines->index(row, column).data(Qt::EditRole);
    return tr("line %1, %2: %3 (%4)")
        .arg(row + 1)
        .arg(m_lines->headerData(column, Qt::Horizontal).toString(), value.toString(),
             QString::fromLatin1(value.metaType().name()));
}

} // namespace Tarnwell::Demo
