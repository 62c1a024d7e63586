#pragma once
// The order's lines: a table whose cells are edited in place with Tarnwell's controls, each cell
// keeping its type (quantities int, prices double, dates QDate, times QTime).
#include <QString>
#include <QTableView>

class QStandardItemModel;

namespace Tarnwell::Demo {

class OrderLines : public QTableView
{
    Q_OBJECT
public:
    enum Column { Item, Quantity, UnitPrice, DeliveryDate, DeliveryTime, ColumnCount };

    explicit OrderLines(QWidget *parent = nullptr);

    QStandardItemModel *lines() const { return m_lines; }

    // Design mode opens no editors, as the form's fields take no input then.
    void setDesignMode(bool design);

    // "line 2, Quantity: 12 (int)": what an edit left in a cell, for the event log.
    QString describe(int row, int column) const;

signals:
    // A cell took a new value (an editor committed it).
    void lineEdited(int row, int column);

private:
    QStandardItemModel *m_lines;
};

} // namespace Tarnwell::Demo
