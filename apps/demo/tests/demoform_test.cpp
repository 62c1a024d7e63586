// The form as a user meets it: typed keys reach the fields and the log, totals follow, design
// mode stops input, and names stay unique.
#include "demoform.h"
#include "eventlog.h"

#include "common/testsupport.h"

#include <QLineEdit>
#include <QMainWindow>

namespace {

using Tarnwell::Demo::DemoForm;
using Tarnwell::Demo::EventLog;

struct TotalsRow {
    const char *name;
    const char *price;    // keys typed into Price
    const char *quantity; // keys typed into Quantity
    double amount;
};

const TotalsRow totalsRows[] = {
    {"Plain", "19.95", "3", 59.85},
    {"WholePrice", "4", "25", 100.0},
    {"ZeroQuantity", "12.50", "0", 0.0},
    {"NoQuantityYet", "7.25", "", 0.0},
    {"CentsOnly", ".05", "7", 0.35},
};
class TotalsTable : public ::testing::TestWithParam<TotalsRow> {};

TEST_P(TotalsTable, AmountFollowsPriceTimesQuantityAsTyped)
{
    DemoForm form;
    form.typeText(form.field(QStringLiteral("nmbPrice")), QString::fromUtf8(GetParam().price));
    form.typeText(form.field(QStringLiteral("nmbQuantity")), QString::fromUtf8(GetParam().quantity));
    EXPECT_NEAR(DemoForm::numberOf(form.field(QStringLiteral("nmbAmount"))), GetParam().amount, 1e-9)
        << "amount shows " << DemoForm::textOf(form.field(QStringLiteral("nmbAmount"))).toStdString();
}

INSTANTIATE_TEST_SUITE_P(Form, TotalsTable, ::testing::ValuesIn(totalsRows), TestSupport::rowName);

TEST(DemoForm, TypedKeysReachTheFieldAndTheLogOnce)
{
    auto logTyping = [](int watches) {
        DemoForm form;
        EventLog log;
        QWidget *customer = form.field(QStringLiteral("txtCustomer"));
        for (int i = 0; i < watches; ++i)
            log.watch(customer, customer->objectName());
        EXPECT_TRUE(form.typeText(customer, QStringLiteral("Ab")));
        EXPECT_EQ(DemoForm::textOf(customer), QStringLiteral("Ab"));
        return log.lines();
    };
    const QStringList once = logTyping(1);
    EXPECT_FALSE(once.isEmpty());
    for (const QString &line : once)
        EXPECT_TRUE(line.startsWith(QStringLiteral("txtCustomer."))) << line.toStdString();
    EXPECT_EQ(logTyping(2), once) << "a second watch must not double the lines";
}

TEST(DemoForm, DesignModeStopsInputAndRunModeRestoresIt)
{
    DemoForm form;
    form.setDesignMode(true);
    form.typeText(form.field(QStringLiteral("txtCustomer")), QStringLiteral("x"));
    EXPECT_EQ(DemoForm::textOf(form.field(QStringLiteral("txtCustomer"))), QString());
    form.setDesignMode(false);
    form.typeText(form.field(QStringLiteral("txtCustomer")), QStringLiteral("y"));
    EXPECT_EQ(DemoForm::textOf(form.field(QStringLiteral("txtCustomer"))), QStringLiteral("y"));
    const QString amount = DemoForm::textOf(form.field(QStringLiteral("nmbAmount")));
    form.typeText(form.field(QStringLiteral("nmbAmount")), QStringLiteral("5"));
    EXPECT_EQ(DemoForm::textOf(form.field(QStringLiteral("nmbAmount"))), amount)
        << "Amount is computed, never typed";
}

TEST(DemoForm, NamesStayUniqueAndRemovedFieldsLeave)
{
    DemoForm form;
    const qsizetype before = form.fields().size();
    EXPECT_FALSE(form.addField(QStringLiteral("Again"), QStringLiteral("txtCustomer"), new QLineEdit));
    EXPECT_FALSE(form.addField(QStringLiteral("Nameless"), QString(), new QLineEdit));
    EXPECT_FALSE(form.addField(QStringLiteral("Nothing"), QStringLiteral("x"), nullptr));
    EXPECT_EQ(form.fields().size(), before);
    EXPECT_EQ(form.add<QLineEdit>(QStringLiteral("Again"), QStringLiteral("nmbPrice")), nullptr);
    auto *extra = form.add<QLineEdit>(QStringLiteral("Extra"), QStringLiteral("txtExtra"));
    ASSERT_NE(extra, nullptr);
    EXPECT_EQ(form.field(QStringLiteral("txtExtra")), extra);
    delete extra;
    EXPECT_EQ(form.field(QStringLiteral("txtExtra")), nullptr);
    EXPECT_EQ(form.fields().size(), before);
}

TEST(DemoForm, SampleOrderFillsEveryNamedField)
{
    DemoForm form;
    form.typeSampleOrder();
    for (const QString &name : DemoForm::sampleFieldNames()) {
        SCOPED_TRACE(name.toStdString());
        ASSERT_NE(form.field(name), nullptr);
        EXPECT_FALSE(DemoForm::textOf(form.field(name)).trimmed().isEmpty());
    }
}

} // namespace
