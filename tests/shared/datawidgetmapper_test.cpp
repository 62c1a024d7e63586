// The four controls under a QDataWidgetMapper: each row is shown in the cells' values, a submit
// writes them back in the cells' types, and a row whose cells a control refuses leaves that
// control as it was and reports it, with nothing thrown into Qt's event loop.
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "common/testsupport.h"

#include <QDataWidgetMapper>
#include <QSignalSpy>
#include <QStandardItemModel>

namespace Tarnwell {
namespace {

class Mapping : public WidgetFixture, public ::testing::WithParamInterface<QDataWidgetMapper::SubmitPolicy>
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        model = new QStandardItemModel(2, 5, window.get());
        // The second row holds what the controls refuse: a text that is no number, a date after
        // the box's Maximum, a time after its Maximum, a code the mask cannot hold.
        const QVariantList rows[] = {{"ABC1234", 42, 42.25, QDate(2024, 3, 7), QTime(9, 30)},
                                     {"too long for it", 7, "abc", QDate(2031, 1, 1), QTime(23, 0)}};
        for (int r = 0; r < 2; ++r) {
            for (int c = 0; c < 5; ++c)
                model->setData(model->index(r, c), rows[r][c], Qt::EditRole);
        }
        (code = new MaskBox(window.get()))->setMask("@@@-####");
        quantity = new NumberBox(window.get());
        quantity->setDataType(twLong);
        price = new NumberBox(window.get());
        date = new DateBox(window.get());
        date->setMaximum(Date::fromYmd(2030, 12, 31));
        time = new TimeBox(window.get());
        time->setMaximum(Date::fromHms(22, 0, 0));
        mapper = new QDataWidgetMapper(window.get());
        mapper->setModel(model);
        mapper->setSubmitPolicy(GetParam());
        int column = 0;
        for (QWidget *w : controls())
            mapper->addMapping(w, column++);
    }
    QList<ControlFrame *> controls() const { return {code, quantity, price, date, time}; }
    QVariantList shown() const
    {
        QVariantList values;
        for (ControlFrame *c : controls())
            values.append(c->metaObject()->userProperty().read(c));
        return values;
    }
    QVariantList cells(int row) const
    {
        QVariantList values;
        for (int c = 0; c < 5; ++c)
            values.append(model->index(row, c).data(Qt::EditRole));
        return values;
    }

    QStandardItemModel *model = nullptr;
    QDataWidgetMapper *mapper = nullptr;
    MaskBox *code = nullptr;
    NumberBox *quantity = nullptr, *price = nullptr;
    DateBox *date = nullptr;
    TimeBox *time = nullptr;
};

TEST_P(Mapping, ShowsARowAndWritesItBackInItsTypes)
{
    mapper->toFirst();
    const QVariantList first = cells(0);
    EXPECT_EQ(shown(), first);
    mapper->submit();
    for (int c = 0; c < 5; ++c)
        EXPECT_EQ(cells(0)[c].metaType(), first[c].metaType()) << "column " << c;
    EXPECT_EQ(cells(0), first);
}

TEST_P(Mapping, RefusedCellsLeaveTheirControlsAsTheyWere)
{
    mapper->toFirst();
    std::vector<std::unique_ptr<QSignalSpy>> refusals;
    for (ControlFrame *c : controls())
        refusals.push_back(std::make_unique<QSignalSpy>(c, &ControlFrame::valueRefused));
    const QVariantList before = shown();

    mapper->toNext();

    const QVariantList after = shown();
    const int expected[] = {Error::InvalidPropertyValue, 0, Error::TypeMismatch, Error::InvalidPropertyValue,
                            Error::InvalidPropertyValue};
    for (int c = 0; c < 5; ++c) {
        SCOPED_TRACE(controls()[c]->metaObject()->className());
        ASSERT_EQ(refusals[c]->count(), expected[c] ? 1 : 0);
        if (expected[c]) {
            EXPECT_EQ(refusals[c]->at(0).at(1).toInt(), expected[c]);
            EXPECT_EQ(after[c], before[c]);
        }
    }
    EXPECT_EQ(after[1], 7);
}

TEST_P(Mapping, TypedValuesReachTheModel)
{
    mapper->toFirst();
    showAndFocus(quantity);
    QTest::keyClicks(QApplication::focusWidget(), "17");
    if (GetParam() == QDataWidgetMapper::ManualSubmit) {
        EXPECT_EQ(cells(0)[1], 42) << "nothing before the submit";
        mapper->submit();
    } else {
        // Tab commits through the mapper's delegate, as it does from a line edit.
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QApplication::processEvents();
    }
    EXPECT_EQ(cells(0)[1].metaType(), QMetaType::fromType<int>());
    EXPECT_EQ(cells(0)[1], 17);
}

INSTANTIATE_TEST_SUITE_P(Policies, Mapping,
                         ::testing::Values(QDataWidgetMapper::AutoSubmit, QDataWidgetMapper::ManualSubmit),
                         [](const auto &info) {
                             return std::string(info.param == QDataWidgetMapper::AutoSubmit ? "AutoSubmit" : "ManualSubmit");
                         });

} // namespace
} // namespace Tarnwell
