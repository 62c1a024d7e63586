// Cells of a table edited with real keys and clicks, through a plain QStyledItemDelegate whose
// editors are the controls and through Tarnwell::ItemDelegate: the editor opens on the cell's
// value, Enter, Tab and a click elsewhere commit, Escape cancels, and the cell keeps its type.
#include <tarnwell/datebox.h>
#include <tarnwell/itemdelegate.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "common/testsupport.h"

#include <QStandardItemModel>
#include <QStyledItemDelegate>
#include <QTableView>

#include <limits>

namespace Tarnwell {
namespace {

enum Column { Quantity, Price, Delivery, Time, Item };

// What a user writes first: the controls returned as they come, the rest left to Qt.
class PlainDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const override
    {
        switch (index.column()) {
        case Quantity:
        case Price: return new NumberBox(parent);
        case Delivery: return new DateBox(parent);
        case Time: return new TimeBox(parent);
        default: return new MaskBox(parent);
        }
    }
};

// How the editor opens (d double-click, f F2) and closes (E Enter, T Tab, X Escape, C a click on
// the next row).
struct EditRow { const char *name; bool shipped; int column; char open; const char *keys; char close; QVariant cell; };
std::ostream &operator<<(std::ostream &os, const EditRow &row) { return os << row.name; }

class CellEditing : public WidgetFixture, public ::testing::WithParamInterface<EditRow>
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        window->resize(640, 240);
        model = new QStandardItemModel(2, 5, window.get());
        const QVariantList rows[] = {{3, 10.5, QDate(2024, 5, 20), QTime(9, 30), "Bolts"},
                                     {1, 2.0, QDate(2024, 6, 1), QTime(14, 0), "Nuts"}};
        for (int r = 0; r < 2; ++r) {
            for (int c = 0; c < 5; ++c)
                model->setData(model->index(r, c), rows[r][c], Qt::EditRole);
        }
        view = new QTableView(window.get());
        view->setModel(model);
        view->resize(640, 240);
        if (GetParam().shipped)
            view->setItemDelegate(new ItemDelegate(view));
        else
            view->setItemDelegate(new PlainDelegate(view));
        showAndFocus(view);
    }
    QPoint centre(int row, int column) const { return view->visualRect(model->index(row, column)).center(); }

    QStandardItemModel *model = nullptr;
    QTableView *view = nullptr;
};

TEST_P(CellEditing, CommitsInTheCellsTypeOrCancels)
{
    const EditRow &row = GetParam();
    const QModelIndex cell = model->index(0, row.column);
    const QVariant before = cell.data(Qt::EditRole);
    view->setCurrentIndex(cell);
    if (row.open == 'd') {
        // As a mouse sends it: QTest's double-click alone has no press before it.
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centre(0, row.column));
        QTest::mousePress(view->viewport(), Qt::LeftButton, {}, centre(0, row.column));
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre(0, row.column));
        QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, centre(0, row.column));
    } else {
        QTest::keyClick(view, Qt::Key_F2);
    }
    auto *editor = qobject_cast<ControlFrame *>(view->indexWidget(cell));
    ASSERT_TRUE(editor) << "no control opened";
    EXPECT_EQ(editor->metaObject()->userProperty().read(editor), before) << "opened on the cell's value";

    for (const char key : std::string_view(row.keys))
        QTest::keyClick(QApplication::focusWidget(), key);
    const Qt::Key closeKey = row.close == 'E' ? Qt::Key_Return : row.close == 'T' ? Qt::Key_Tab : Qt::Key_Escape;
    if (row.close == 'C')
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centre(1, 0));
    else
        QTest::keyClick(QApplication::focusWidget(), closeKey);
    QApplication::processEvents(); // Enter commits through a queued call

    EXPECT_EQ(view->indexWidget(cell), nullptr) << "the editor is closed";
    EXPECT_EQ(cell.data(Qt::EditRole).metaType(), row.cell.metaType());
    EXPECT_EQ(cell.data(Qt::EditRole), row.cell);
    if (row.close == 'T') {
        EXPECT_EQ(view->currentIndex(), model->index(0, row.column + 1));
    }
}

INSTANTIATE_TEST_SUITE_P(Cells, CellEditing, ::testing::Values(
    EditRow{"shipped int by F2 and Enter", true, Quantity, 'f', "12", 'E', 12},
    EditRow{"shipped int takes no decimals", true, Quantity, 'f', "4.5", 'E', 45},
    EditRow{"shipped double by double-click", true, Price, 'd', "7.25", 'E', 7.25},
    EditRow{"shipped date", true, Delivery, 'f', "01072024", 'E', QDate(2024, 7, 1)},
    EditRow{"shipped time", true, Time, 'f', "104500", 'E', QTime(10, 45)},
    EditRow{"shipped text", true, Item, 'f', "Washers", 'E', "Washers"},
    EditRow{"shipped Tab commits and moves", true, Quantity, 'f', "5", 'T', 5},
    EditRow{"shipped Escape cancels", true, Price, 'f', "99", 'X', 10.5},
    EditRow{"shipped click elsewhere commits", true, Delivery, 'd', "02072024", 'C', QDate(2024, 7, 2)},
    EditRow{"plain int stays int", false, Quantity, 'f', "8", 'E', 8},
    EditRow{"plain double stays double", false, Price, 'd', "", 'E', 10.5},
    EditRow{"plain date by double-click", false, Delivery, 'd', "", 'E', QDate(2024, 5, 20)},
    EditRow{"plain time Tab", false, Time, 'f', "", 'T', QTime(9, 30)},
    EditRow{"plain click elsewhere commits", false, Quantity, 'd', "9", 'C', 9},
    EditRow{"plain text Escape cancels", false, Item, 'f', "x", 'X', "Bolts"},
    EditRow{"plain text click elsewhere commits", false, Item, 'f', "x", 'C', "x"},
    EditRow{"plain date Escape cancels", false, Delivery, 'f', "01072024", 'X', QDate(2024, 5, 20)},
    EditRow{"plain date Tab commits and moves", false, Delivery, 'f', "01072024", 'T', QDate(2024, 7, 1)},
    EditRow{"plain time Escape cancels", false, Time, 'f', "1045", 'X', QTime(9, 30)},
    EditRow{"shipped time click elsewhere commits", true, Time, 'f', "104500", 'C', QTime(10, 45)},
    EditRow{"plain number Escape cancels", false, Price, 'f', "99", 'X', 10.5}),
    TestSupport::rowName);

// The editor each cell type gets, and a cell opened and committed unedited comes back exactly.
struct TypeRow { const char *name; QVariant cell; const char *editor; int dataType = -1; };
std::ostream &operator<<(std::ostream &os, const TypeRow &row) { return os << row.name; }
class EditorChoice : public WidgetFixture, public ::testing::WithParamInterface<TypeRow> {};

TEST_P(EditorChoice, FollowsTheCellsTypeAndKeepsItsValue)
{
    const TypeRow &row = GetParam();
    QStandardItemModel model(1, 2);
    model.setData(model.index(0, 0), row.cell, Qt::EditRole);
    model.setData(model.index(0, 1), Qt::AlignRight, Qt::TextAlignmentRole);
    ItemDelegate delegate;
    QWidget *editor = delegate.createEditor(window.get(), QStyleOptionViewItem(), model.index(0, 0));
    ASSERT_TRUE(editor);
    EXPECT_TRUE(editor->inherits(row.editor)) << editor->metaObject()->className();
    if (auto *number = qobject_cast<NumberBox *>(editor)) {
        EXPECT_EQ(number->DataType(), row.dataType);
        if (row.dataType != twDouble && row.dataType != twSingle) {
            EXPECT_EQ(number->DecimalPlaces(), 0);
        }
    }
    if (auto *control = qobject_cast<ControlFrame *>(editor)) {
        EXPECT_FALSE(control->CheckBox() || !control->UserMode() || control->BorderStyle() != twNone);
        EXPECT_EQ(control->Alignment(), twLeftJustify);
    }
    delegate.setEditorData(editor, model.index(0, 0));
    delegate.setModelData(editor, &model, model.index(0, 1));
    const QVariant back = model.index(0, 1).data(Qt::EditRole);
    EXPECT_EQ(back.metaType(), row.cell.metaType());
    EXPECT_EQ(back, row.cell);
}

INSTANTIATE_TEST_SUITE_P(Cells, EditorChoice, ::testing::Values(
    TypeRow{"int", -123456, "Tarnwell::NumberBox", twLong},
    TypeRow{"unsigned char", QVariant::fromValue(uchar(200)), "Tarnwell::NumberBox", twByte},
    TypeRow{"short", QVariant::fromValue(short(-300)), "Tarnwell::NumberBox", twInteger},
    TypeRow{"long long beyond double", QVariant::fromValue(Q_INT64_C(-9007199254740993)), "Tarnwell::NumberBox", twDecimal},
    TypeRow{"unsigned long long max", QVariant::fromValue(std::numeric_limits<qulonglong>::max()), "Tarnwell::NumberBox", twDecimal},
    TypeRow{"double", 3.14159, "Tarnwell::NumberBox", twDouble},
    TypeRow{"float", QVariant::fromValue(2.5f), "Tarnwell::NumberBox", twSingle},
    TypeRow{"date", QDate(1999, 12, 31), "Tarnwell::DateBox"},
    TypeRow{"time", QTime(23, 59, 59), "Tarnwell::TimeBox"},
    TypeRow{"text", "free text", "Tarnwell::MaskBox"},
    TypeRow{"date and time", QDateTime(QDate(2024, 1, 2), QTime(3, 4)), "QDateTimeEdit"},
    TypeRow{"bool", true, "QComboBox"}),
    TestSupport::rowName);

class EditorGeometry : public WidgetFixture {};

TEST_F(EditorGeometry, TakesTheCellsAlignmentAndNeverShrinksBelowTheHint)
{
    QStandardItemModel model(1, 1);
    model.setData(model.index(0, 0), QDate(2024, 5, 20), Qt::EditRole);
    model.setData(model.index(0, 0), int(Qt::AlignRight | Qt::AlignVCenter), Qt::TextAlignmentRole);
    QTableView view(window.get());
    view.setModel(&model);
    view.setItemDelegate(new ItemDelegate(&view));
    view.setColumnWidth(0, 30);
    showAndFocus(&view);
    view.setCurrentIndex(model.index(0, 0));
    QTest::keyClick(&view, Qt::Key_F2);
    auto *editor = qobject_cast<DateBox *>(view.indexWidget(model.index(0, 0)));
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->Alignment(), twRightJustify);
    EXPECT_GE(editor->width(), editor->sizeHint().width());
    EXPECT_EQ(editor->x(), view.visualRect(model.index(0, 0)).x());
}

} // namespace
} // namespace Tarnwell
