// The USER property of each control (MaskBox text, NumberBox value, DateBox date, TimeBox time):
// what Qt's item delegates and widget mappers write is taken in the cell's type, or refused with
// the control untouched and a report, never an exception; and its notify signal fires once per
// change of the value, never for a focus move alone.
#include <tarnwell/currency.h>
#include <tarnwell/datebox.h>
#include <tarnwell/maskbox.h>
#include <tarnwell/numberbox.h>
#include <tarnwell/timebox.h>

#include "common/testsupport.h"

#include <QLineEdit>
#include <QSignalSpy>

#include <functional>

namespace Tarnwell {
namespace {

using Make = std::function<ControlFrame *(QWidget *)>;

template<typename Control>
Make make(std::function<void(Control &)> setUp = {})
{
    return [setUp](QWidget *parent) {
        auto *control = new Control(parent);
        if (setUp)
            setUp(*control);
        return control;
    };
}

struct WriteRow
{
    const char *name;
    Make make;
    QVariant written;
    int refused;   // the error reported, 0 when taken
    QVariant read; // the property afterwards, when taken
    int notified;  // notify signals the write raised
};
std::ostream &operator<<(std::ostream &os, const WriteRow &row) { return os << row.name; }

class UserWrites : public WidgetFixture, public ::testing::WithParamInterface<WriteRow> {};

TEST_P(UserWrites, AreTakenInTheirTypeOrReportedWithNothingChanged)
{
    const WriteRow &row = GetParam();
    ControlFrame *control = row.make(window.get());
    const QMetaProperty user = control->metaObject()->userProperty();
    const std::string before = TestSupport::propertiesOf(*control);
    QSignalSpy refused(control, &ControlFrame::valueRefused);
    QSignalSpy notified(control, user.notifySignal());

    EXPECT_ERROR(user.write(control, row.written), 0);
    QApplication::processEvents(); // a notify that would come late must come now

    EXPECT_EQ(notified.count(), row.notified);
    if (row.refused) {
        EXPECT_EQ(TestSupport::propertiesOf(*control), before);
        ASSERT_EQ(refused.count(), 1);
        EXPECT_EQ(refused.at(0).at(1).toInt(), row.refused);
    } else {
        EXPECT_EQ(refused.count(), 0);
        const QVariant read = user.read(control);
        EXPECT_EQ(read.metaType(), row.read.metaType()) << ::testing::PrintToString(read);
        EXPECT_EQ(read, row.read);
    }
}

const QDate march7(2024, 3, 7);
const auto phone = [](MaskBox &b) { b.setMask("(###) ###-####"); };
const auto designTime = [](ControlFrame &c) { c.setUserMode(false); };

INSTANTIATE_TEST_SUITE_P(Controls, UserWrites, ::testing::Values(
    WriteRow{"number keeps an int cell int", make<NumberBox>(), 7, 0, 7, 1},
    WriteRow{"number keeps a double cell double", make<NumberBox>(), 10.5, 0, 10.5, 1},
    WriteRow{"number reads a text, a double for currency", make<NumberBox>(), "42.25", 0, 42.25, 1},
    WriteRow{"number gives int for an integer type", make<NumberBox>([](NumberBox &b) { b.setDataType(twLong); }), "12", 0, 12, 1},
    WriteRow{"number never gives a currency", make<NumberBox>(), QVariant::fromValue(Currency::fromInt64(3)), 0, 3.0, 1},
    WriteRow{"number refuses text that is no number", make<NumberBox>(), "abc", Error::TypeMismatch, {}, 0},
    WriteRow{"number refuses beyond its type", make<NumberBox>([](NumberBox &b) { b.setDataType(twByte); }), 300, Error::Overflow, {}, 0},
    WriteRow{"number refuses beyond Maximum", make<NumberBox>([](NumberBox &b) { b.setMaximum(100); }), 500, Error::InvalidPropertyValue, {}, 0},
    WriteRow{"number empty unticks its check box", make<NumberBox>([](NumberBox &b) { b.setCheckBox(true); b.setChecked(true); }), QVariant(), 0, QVariant(), 1},
    WriteRow{"date takes a QDate", make<DateBox>(), march7, 0, march7, 1},
    WriteRow{"date invalid clears", make<DateBox>([](DateBox &b) { b.setDate(march7); }), QDate(), 0, QDate(), 1},
    WriteRow{"date refuses after Maximum", make<DateBox>([](DateBox &b) { b.setMaximum(Date::fromYmd(2023, 12, 31)); }), march7, Error::InvalidPropertyValue, {}, 0},
    WriteRow{"date refuses before the year 100", make<DateBox>(), QDate(50, 1, 1), Error::Overflow, {}, 0},
    WriteRow{"date refuses before Minimum", make<DateBox>(), QDate(1500, 1, 1), Error::InvalidPropertyValue, {}, 0},
    WriteRow{"date refuses at design time", make<DateBox>(designTime), march7, Error::SetNotPermitted, {}, 0},
    WriteRow{"time takes whole seconds", make<TimeBox>(), QTime(21, 45, 30, 500), 0, QTime(21, 45, 30), 1},
    WriteRow{"time invalid clears", make<TimeBox>([](TimeBox &b) { b.setTime(QTime(9, 0)); }), QTime(), 0, QTime(), 1},
    WriteRow{"time refuses after Maximum", make<TimeBox>([](TimeBox &b) { b.setMaximum(Date::fromHms(22, 0, 0)); }), QTime(22, 0, 1), Error::InvalidPropertyValue, {}, 0},
    WriteRow{"text takes what fits the mask", make<MaskBox>(phone), "5550123456", 0, "5550123456", 1},
    WriteRow{"text refuses a letter in a digit", make<MaskBox>(phone), "555abc", Error::InvalidPropertyValue, {}, 0},
    WriteRow{"text refuses more than the mask holds", make<MaskBox>(phone), "55501234567", Error::InvalidPropertyValue, {}, 0},
    WriteRow{"text is free without a mask", make<MaskBox>(), "Ada", 0, "Ada", 1},
    WriteRow{"text refuses at design time", make<MaskBox>(designTime), "Ada", Error::SetNotPermitted, {}, 0}),
    TestSupport::rowName);

TEST(UserProperties, AreThePeersOfQtsOwnWidgetsAndValueIsNoLongerOne)
{
    const struct { const QMetaObject *meta; const char *name, *notify; QMetaType type; } peers[] = {
        {&MaskBox::staticMetaObject, "text", "textChanged", QMetaType::fromType<QString>()},
        {&NumberBox::staticMetaObject, "value", "valueChanged", QMetaType::fromType<QVariant>()},
        {&DateBox::staticMetaObject, "date", "dateChanged", QMetaType::fromType<QDate>()},
        {&TimeBox::staticMetaObject, "time", "timeChanged", QMetaType::fromType<QTime>()}};
    for (const auto &peer : peers) {
        const QMetaProperty user = peer.meta->userProperty();
        SCOPED_TRACE(peer.meta->className());
        EXPECT_STREQ(user.name(), peer.name);
        EXPECT_EQ(user.metaType(), peer.type);
        EXPECT_EQ(user.notifySignal().name(), QByteArray(peer.notify));
        EXPECT_FALSE(user.isDesignable() || user.isStored());
        EXPECT_FALSE(peer.meta->property(peer.meta->indexOfProperty("Value")).isUser());
    }
}

TEST(UserProperties, LeaveTheDocumentedValueThrowingForTheHost)
{
    NumberBox box;
    EXPECT_ERROR(box.setProperty("Value", "abc"), Error::TypeMismatch);
    DateBox date;
    EXPECT_ERROR(date.setValue("no date"), Error::TypeMismatch);
}

// Keys typed into a focused control, then the focus moved away: the notify signal fires exactly
// when a read of the property after a key (or after leaving) differs from the read before it.
struct KeysRow { const char *name; Make make; const char *keys; int atLeast; };
std::ostream &operator<<(std::ostream &os, const KeysRow &row) { return os << row.name; }
class UserNotify : public WidgetFixture, public ::testing::WithParamInterface<KeysRow> {};

TEST_P(UserNotify, FiresOncePerChangeOfTheValue)
{
    ControlFrame *control = GetParam().make(window.get());
    const QMetaProperty user = control->metaObject()->userProperty();
    auto *other = new QLineEdit(window.get());
    other->move(0, 100);
    QSignalSpy notified(control, user.notifySignal());
    int changes = 0;
    QVariant last = user.read(control);
    const auto count = [&] {
        QApplication::processEvents();
        const QVariant now = user.read(control);
        changes += now != last;
        last = now;
        EXPECT_EQ(notified.count(), changes) << "after reading " << ::testing::PrintToString(now);
    };
    showAndFocus(control);
    count();
    for (const char key : std::string_view(GetParam().keys)) {
        if (key == '^')
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
        else
            QTest::keyClick(QApplication::focusWidget(), key);
        count();
    }
    other->setFocus();
    count();
    EXPECT_GE(changes, GetParam().atLeast);
    if (!notified.isEmpty()) {
        EXPECT_EQ(notified.last().at(0), last) << "the signal carries the new value";
    }
}

INSTANTIATE_TEST_SUITE_P(Controls, UserNotify, ::testing::Values(
    KeysRow{"number per digit", make<NumberBox>(), "12", 2},
    KeysRow{"number not for a decimal point", make<NumberBox>(), "1.", 1},
    KeysRow{"number per step", make<NumberBox>([](NumberBox &b) { b.setInterceptArrowKeys(true); }), "^^", 2},
    KeysRow{"number brought into range on leaving", make<NumberBox>([](NumberBox &b) { b.setMinimum(10); b.setMaximum(20); }), "5", 2},
    KeysRow{"date as its digits read", make<DateBox>(), "07032024", 1},
    KeysRow{"date not for a focus move", make<DateBox>([](DateBox &b) { b.setDate(QDate(2024, 3, 7)); }), "", 0},
    KeysRow{"time as its digits read", make<TimeBox>([](TimeBox &b) { b.setFormat(twHourMinute); }), "0930", 1},
    KeysRow{"time per step", make<TimeBox>([](TimeBox &b) { b.setTime(QTime(9, 30)); b.setInterceptArrowKeys(true); }), "^^", 2},
    KeysRow{"text per character", make<MaskBox>(), "abc", 3}),
    TestSupport::rowName);

} // namespace
} // namespace Tarnwell
