// Qt's date types meet Tarnwell::Date through the registered converters: a QDate, QDateTime or
// QTime written by name reaches a Date property, and a Date reads back as each of them.
#include "common/testsupport.h"

#include <tarnwell/date.h>
#include <tarnwell/variant.h>

#include <QMetaProperty>

using namespace Tarnwell;
using TestSupport::rowName;

namespace {

// A property written through the meta-object system, as QObject::setProperty, a
// QDataWidgetMapper or Qt Designer write it.
struct DateHolder {
    Q_GADGET
    Q_PROPERTY(Tarnwell::Date When MEMBER when)
public:
    Date when{1.0};
};

struct WriteRow { const char *name; QVariant written; bool taken; double serial; };
class WriteByName : public testing::TestWithParam<WriteRow>
{
protected:
    void SetUp() override { Variant::registerTypes(); }
};

TEST_P(WriteByName, ReachesTheDatePropertyOrLeavesIt)
{
    const WriteRow &row = GetParam();
    DateHolder holder;
    const QMetaProperty property = DateHolder::staticMetaObject.property(
        DateHolder::staticMetaObject.indexOfProperty("When"));
    EXPECT_EQ(property.writeOnGadget(&holder, row.written), row.taken);
    EXPECT_EQ(holder.when.serial(), row.serial);
}

// A conversion that fails writes nothing: the holder keeps serial 1.
INSTANTIATE_TEST_SUITE_P(Table, WriteByName, testing::Values(
    WriteRow{"QDate", QDate(2024, 3, 7), true, 45358},
    WriteRow{"QDateBefore1601", QDate(1600, 6, 1), true, -109419},
    WriteRow{"QDateFirstDay", QDate(100, 1, 1), true, -657434},
    WriteRow{"QDateTime", QDateTime(QDate(2024, 3, 7), QTime(6, 0)), true, 45358.25},
    WriteRow{"QTime", QTime(18, 0), true, 0.75},
    WriteRow{"IsoText", QStringLiteral("1600-06-01"), true, -109419},
    WriteRow{"Serial", 2.5, true, 2.5},
    WriteRow{"QDateYear99", QDate(99, 12, 31), false, 1},
    WriteRow{"NullQDate", QDate(), false, 1},
    WriteRow{"NullQTime", QTime(), false, 1},
    WriteRow{"NotADate", QStringLiteral("soon"), false, 1}), rowName);

struct BackRow { const char *name; double serial; QDate date; QTime time; };
class BackToQt : public testing::TestWithParam<BackRow>
{
protected:
    void SetUp() override { Variant::registerTypes(); }
};

TEST_P(BackToQt, ConvertsToQDateQDateTimeAndQTime)
{
    const BackRow &row = GetParam();
    const QVariant date = QVariant::fromValue(Date(row.serial));
    EXPECT_EQ(date.value<QDate>(), row.date);
    EXPECT_EQ(date.value<QTime>(), row.time);
    EXPECT_EQ(date.value<QDateTime>(), row.date.isValid() ? QDateTime(row.date, row.time) : QDateTime());
    QVariant copy = date;
    EXPECT_EQ(copy.convert(QMetaType::fromType<QDate>()), row.date.isValid());
}

INSTANTIATE_TEST_SUITE_P(Table, BackToQt, testing::Values(
    BackRow{"Evening", 45358.75, QDate(2024, 3, 7), QTime(18, 0)},
    BackRow{"BeforeEpochFractionCountsForward", -1.25, QDate(1899, 12, 29), QTime(6, 0)},
    BackRow{"FirstDay", -657434, QDate(100, 1, 1), QTime(0, 0)},
    BackRow{"LastSecond", 2958465 + 86399.0 / 86400, QDate(9999, 12, 31), QTime(23, 59, 59)},
    BackRow{"TimeOnDayZero", 0.5, QDate(1899, 12, 30), QTime(12, 0)},
    BackRow{"BeforeTheRangeHasNone", -657435, QDate(), QTime()},
    BackRow{"FarBeyondHasNone", 1e10, QDate(), QTime()}), rowName);

// Every day of the type's range survives a trip through QDate and back, as a property would take
// it; QDate's Julian days are the independent count.
TEST(QtDateRoundTrip, EveryFirstOfTheMonthFromYear100)
{
    Variant::registerTypes();
    for (int year = 100; year <= 9999; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const QDate date(year, month, 1);
            const Date converted = QVariant(date).value<Date>();
            if (qint64(converted.serial()) != date.toJulianDay() - QDate(1899, 12, 30).toJulianDay()
                || QVariant::fromValue(converted).value<QDate>() != date)
                FAIL() << date.toString(Qt::ISODate).toStdString();
        }
    }
}

} // namespace

#include "qtdate_test.moc"
