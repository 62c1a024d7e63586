// The order lines as a user edits them: F2 opens the cell's control, typed keys and Tab commit,
// each cell keeps its type, and design mode opens nothing.
#include "orderlines.h"

#include <tarnwell/controlframe.h>
#include <tarnwell/itemdelegate.h>

#include "common/testsupport.h"

#include <QSignalSpy>
#include <QStandardItemModel>

namespace {

using Tarnwell::Demo::OrderLines;

struct LineEdit { const char *name; int column; const char *keys; QVariant cell; };
std::ostream &operator<<(std::ostream &os, const LineEdit &row) { return os << row.name; }
class OrderLineEditing : public WidgetFixture, public ::testing::WithParamInterface<LineEdit> {};

TEST_P(OrderLineEditing, TypedAndTabbedKeepsTheCellsType)
{
    auto *lines = new OrderLines(window.get());
    lines->resize(window->size());
    QSignalSpy edited(lines, &OrderLines::lineEdited);
    showAndFocus(lines);
    const QModelIndex cell = lines->lines()->index(1, GetParam().column);
    lines->setCurrentIndex(cell);
    QTest::keyClick(lines, Qt::Key_F2);
    ASSERT_TRUE(qobject_cast<Tarnwell::ControlFrame *>(lines->indexWidget(cell)));
    QTest::keyClicks(QApplication::focusWidget(), GetParam().keys);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(cell.data(Qt::EditRole).metaType(), GetParam().cell.metaType());
    EXPECT_EQ(cell.data(Qt::EditRole), GetParam().cell);
    EXPECT_EQ(edited.count(), 1);
    EXPECT_NE(lines->describe(1, GetParam().column).indexOf(GetParam().cell.metaType().name()), -1);
}

INSTANTIATE_TEST_SUITE_P(OrderLines, OrderLineEditing, ::testing::Values(
    LineEdit{"quantity", OrderLines::Quantity, "12", 12},
    LineEdit{"unit price", OrderLines::UnitPrice, "1.5", 1.5},
    LineEdit{"delivery date", OrderLines::DeliveryDate, "01042024", QDate(2024, 4, 1)},
    LineEdit{"delivery time", OrderLines::DeliveryTime, "113000", QTime(11, 30)},
    LineEdit{"item", OrderLines::Item, "Rivets", "Rivets"}),
    TestSupport::rowName);

class OrderLinesMode : public WidgetFixture {};

TEST_F(OrderLinesMode, DesignModeOpensNoEditor)
{
    auto *lines = new OrderLines(window.get());
    EXPECT_TRUE(qobject_cast<Tarnwell::ItemDelegate *>(lines->itemDelegate()));
    showAndFocus(lines);
    lines->setCurrentIndex(lines->lines()->index(0, OrderLines::Quantity));
    lines->setDesignMode(true);
    QTest::keyClick(lines, Qt::Key_F2);
    EXPECT_EQ(lines->indexWidget(lines->currentIndex()), nullptr);
}

} // namespace
