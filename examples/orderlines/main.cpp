// Order lines in a QTableView, edited in place by Tarnwell's controls: one line sets the delegate,
// which picks the control from the type each cell holds (QString, int, double, QDate, QTime).
//   orderlines                     shows the table (double-click or F2 to edit a cell)
//   orderlines --check             edits one cell of each column through its control, checks that
//                                  every cell keeps its type, exits (0 = fine)
//   orderlines --screenshot FILE   renders the table with a date cell being edited and exits
#include <tarnwell/datebox.h>
#include <tarnwell/itemdelegate.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include <QApplication>
#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>

#include <cstdio>

namespace {

enum Column { Item, Quantity, UnitPrice, Delivery, Time, ColumnCount };

void addLine(QStandardItemModel &model, const QString &item, int quantity, double price,
             QDate delivery, QTime time)
{
    QList<QStandardItem *> cells;
    for (const QVariant &value : {QVariant(item), QVariant(quantity), QVariant(price),
                                  QVariant(delivery), QVariant(time)}) {
        auto *cell = new QStandardItem;
        cell->setData(value, Qt::EditRole); // the type the delegate reads
        cells.append(cell);
    }
    model.appendRow(cells);
}

struct OrderLines
{
    QStandardItemModel model{0, ColumnCount};
    QTableView view;

    OrderLines()
    {
        model.setHorizontalHeaderLabels({QStringLiteral("Item"), QStringLiteral("Quantity"),
                                         QStringLiteral("Unit price"), QStringLiteral("Delivery"),
                                         QStringLiteral("Time")});
        addLine(model, QStringLiteral("Hex bolts M8"), 100, 0.12, QDate(2024, 3, 14), QTime(9, 0));
        addLine(model, QStringLiteral("Washers"), 250, 0.03, QDate(2024, 3, 14), QTime(9, 0));
        addLine(model, QStringLiteral("Wing nuts"), 40, 0.25, QDate(2024, 3, 21), QTime(14, 30));

        view.setModel(&model);
        view.setItemDelegate(new Tarnwell::ItemDelegate(&view)); // the one line
        view.horizontalHeader()->setStretchLastSection(true);
        view.resize(560, 200);
    }

    // Opens the editor of a cell, as a double-click does, and returns it.
    QWidget *edit(int row, int column)
    {
        const QModelIndex index = model.index(row, column);
        view.openPersistentEditor(index);
        return view.indexWidget(index);
    }

    void commit(int row, int column)
    {
        const QModelIndex index = model.index(row, column);
        view.itemDelegate()->setModelData(view.indexWidget(index), &model, index);
        view.closePersistentEditor(index);
    }
};

int check(OrderLines &lines)
{
    int failures = 0;
    auto expect = [&failures](bool ok, const char *what) {
        if (!ok) {
            std::fprintf(stderr, "orderlines: %s\n", what);
            ++failures;
        }
    };
    // Each column's editor is the control for its type, and writes the cell back in that type.
    auto *item = qobject_cast<Tarnwell::MaskBox *>(lines.edit(0, Item));
    expect(item != nullptr, "a text cell is edited by a MaskBox");
    if (item)
        item->setModelText(QStringLiteral("Hex bolts M10"));
    lines.commit(0, Item);

    auto *quantity = qobject_cast<Tarnwell::NumberBox *>(lines.edit(0, Quantity));
    expect(quantity && quantity->DecimalPlaces() == 0, "an int cell is edited without decimals");
    if (quantity)
        quantity->setModelValue(120);
    lines.commit(0, Quantity);

    auto *price = qobject_cast<Tarnwell::NumberBox *>(lines.edit(0, UnitPrice));
    expect(price != nullptr, "a double cell is edited by a NumberBox");
    if (price)
        price->setModelValue(0.15);
    lines.commit(0, UnitPrice);

    auto *delivery = qobject_cast<Tarnwell::DateBox *>(lines.edit(0, Delivery));
    expect(delivery != nullptr, "a QDate cell is edited by a DateBox");
    if (delivery)
        delivery->setDate(QDate(2024, 3, 15));
    lines.commit(0, Delivery);

    auto *time = qobject_cast<Tarnwell::TimeBox *>(lines.edit(0, Time));
    expect(time != nullptr, "a QTime cell is edited by a TimeBox");
    if (time)
        time->setTime(QTime(10, 15));
    lines.commit(0, Time);

    auto cell = [&lines](int column) { return lines.model.index(0, column).data(Qt::EditRole); };
    expect(cell(Item) == QVariant(QStringLiteral("Hex bolts M10")), "the item text");
    expect(cell(Quantity).metaType() == QMetaType::fromType<int>() && cell(Quantity).toInt() == 120,
           "the quantity, still an int");
    expect(cell(UnitPrice).metaType() == QMetaType::fromType<double>()
               && cell(UnitPrice).toDouble() == 0.15,
           "the unit price, still a double");
    expect(cell(Delivery) == QVariant(QDate(2024, 3, 15)), "the delivery date, still a QDate");
    expect(cell(Time) == QVariant(QTime(10, 15)), "the time, still a QTime");
    return failures == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList args = app.arguments();
    OrderLines lines;

    if (args.contains(QStringLiteral("--check")))
        return check(lines);
    const qsizetype shot = args.indexOf(QStringLiteral("--screenshot"));
    if (shot > 0 && shot + 1 < args.size()) {
        lines.view.show();
        lines.edit(2, Delivery);
        QApplication::processEvents();
        return lines.view.grab().save(args.at(shot + 1)) ? 0 : 1;
    }
    lines.view.show();
    return app.exec();
}
