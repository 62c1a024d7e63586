#include <tarnwell/itemdelegate.h>

#include <tarnwell/datebox.h>
#include <tarnwell/decimal.h>
#include <tarnwell/error.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "shared/modelvalues.h"

#include <QAbstractItemModel>
#include <QMetaProperty>

#include <limits>

namespace Tarnwell {

namespace {

// The data type and range that edit an integer cell of `type` with nothing it cannot hold.
struct IntegerCell
{
    twDataTypeConstants dataType;
    QString minimum; // in C-locale digits: Decimal reads every 64-bit limit exactly
    QString maximum;
};

template<typename T>
IntegerCell integerCell(twDataTypeConstants dataType)
{
    return {dataType, QString::number(std::numeric_limits<T>::min()),
            QString::number(std::numeric_limits<T>::max())};
}

IntegerCell integerCellOf(QMetaType type)
{
    switch (type.id()) {
    case QMetaType::UChar: return integerCell<uchar>(twByte);
    case QMetaType::Char: return integerCell<char>(twInteger);
    case QMetaType::SChar: return integerCell<signed char>(twInteger);
    case QMetaType::Short: return integerCell<short>(twInteger);
    case QMetaType::UShort: return integerCell<ushort>(twLong);
    case QMetaType::Int: return integerCell<int>(twLong);
    case QMetaType::UInt: return integerCell<uint>(twDecimal);
    case QMetaType::Long: return integerCell<long>(twDecimal);
    case QMetaType::ULong: return integerCell<ulong>(twDecimal);
    case QMetaType::ULongLong: return integerCell<qulonglong>(twDecimal);
    default: return integerCell<qlonglong>(twDecimal);
    }
}

QVariant decimalOf(const QString &digits)
{
    return QVariant::fromValue(Decimal::parse(digits, QLocale::c()));
}

NumberBox *numberEditor(QWidget *parent, QMetaType type)
{
    auto *box = new NumberBox(parent);
    if (ModelValues::isInteger(type)) {
        const IntegerCell cell = integerCellOf(type);
        box->setDataType(cell.dataType);
        box->setDecimalPlaces(0);
        box->setMinimum(decimalOf(cell.minimum));
        box->setMaximum(decimalOf(cell.maximum));
    } else {
        box->setDataType(type.id() == QMetaType::Float ? twSingle : twDouble);
    }
    return box;
}

twAlignmentConstants alignmentOf(const QModelIndex &index)
{
    const auto horizontal = Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()) & Qt::AlignHorizontal_Mask;
    if (horizontal & Qt::AlignRight)
        return twRightJustify;
    if (horizontal & Qt::AlignHCenter)
        return twCenter;
    return twLeftJustify;
}

// The control that edits a cell holding `type`; null for a type none of them edits.
ControlFrame *controlFor(QWidget *parent, QMetaType type)
{
    if (ModelValues::isNumber(type))
        return numberEditor(parent, type);
    switch (type.id()) {
    case QMetaType::QDate: return new DateBox(parent);
    case QMetaType::QTime: return new TimeBox(parent);
    case QMetaType::QString: return new MaskBox(parent);
    default: return nullptr;
    }
}

} // namespace

ItemDelegate::ItemDelegate(QObject *parent) : QStyledItemDelegate(parent) {}

ItemDelegate::~ItemDelegate() = default;

QWidget *ItemDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    const QMetaType type = index.data(Qt::EditRole).metaType();
    ControlFrame *control = nullptr;
    try {
        control = controlFor(parent, type);
        if (control) {
            control->setUserMode(true);
            control->setCheckBox(false);
            // The cell is the border; an editor drawn inside it needs none of its own.
            control->setBorderStyle(twNone);
            // Typing replaces the cell's value, as Qt's own editors do.
            control->setSelectTextOnFocus(true);
            // The text stays where the cell showed it.
            control->setAlignment(alignmentOf(index));
        }
    } catch (const Error &) {
        // Nothing above refuses these settings; should one, the base editor stands in.
        delete control;
        control = nullptr;
    }
    if (!control)
        return QStyledItemDelegate::createEditor(parent, option, index);
    // The cell's own text must not show through the strips between the inner widgets.
    control->setAutoFillBackground(true);
    return control;
}

void ItemDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const
{
    QStyledItemDelegate::updateEditorGeometry(editor, option, index);
    if (!qobject_cast<ControlFrame *>(editor))
        return;
    QRect rect = editor->geometry();
    const int width = qMax(rect.width(), editor->sizeHint().width());
    if (option.direction == Qt::RightToLeft)
        rect.setLeft(rect.right() - width + 1);
    else
        rect.setWidth(width);
    editor->setGeometry(rect);
}

void ItemDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                const QModelIndex &index) const
{
    const QMetaProperty user = editor->metaObject()->userProperty();
    if (!qobject_cast<ControlFrame *>(editor) || !user.isValid()) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    QVariant value = ModelValues::unwrapped(user.read(editor));
    // A cleared date or time keeps its cell's type: an invalid QDate, not an empty cell.
    const QMetaType cellType = index.data(Qt::EditRole).metaType();
    if (!value.isValid() && cellType.isValid())
        value = QVariant(cellType);
    model->setData(index, value, Qt::EditRole);
}

} // namespace Tarnwell
