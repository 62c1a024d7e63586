// The value types, the variant helpers, the clock, the property bag and the data object, each
// reached the way a client reaches them: direct calls, operators, and QVariant's metatypes.
#include "consumer.h"

#include <tarnwell/clock.h>
#include <tarnwell/constants.h>
#include <tarnwell/currency.h>
#include <tarnwell/dataobject.h>
#include <tarnwell/date.h>
#include <tarnwell/decimal.h>
#include <tarnwell/error.h>
#include <tarnwell/olecolor.h>
#include <tarnwell/propertybag.h>
#include <tarnwell/variant.h>

#include <QImage>
#include <QMetaEnum>
#include <QMimeData>
#include <QPalette>

using namespace Tarnwell;

namespace Consumer {
namespace {

void useError()
{
    const Error overflow(Error::Overflow);
    check(overflow.number() == 6 && overflow.message() == Error::textOf(6), "Error: number and text");
    check(QString::fromUtf8(overflow.what()).size() > 0, "Error: what()");
    checkError(13, "Error: thrown by the library, caught here", [] { Currency::parse(QStringLiteral("x")); });
}

void useCurrency()
{
    const Currency a = Currency::fromInt64(3), b = Currency::parse(QStringLiteral("1.25"), QLocale::c());
    check((a + b).toString() == QStringLiteral("4.25"), "Currency: +");
    check((a - b).raw() == 17500 && (-a).raw() == -30000 && (b * 4).toDouble() == 5.0, "Currency: - and *");
    check(a != b && b < a && Currency::fromRaw(30000) == a, "Currency: comparisons");
    check(Currency::fromDouble(0.00005).raw() == 0 && Currency::fromDecimal(Decimal::fromInt64(2)).raw() == 20000,
          "Currency: from double and Decimal");
    check(Currency::max() > Currency::min() && a.toDecimal() == Decimal::fromInt64(3), "Currency: limits");
    check(Currency::Scale == 10000, "Currency: scale");
    checkError(6, "Currency: overflow", [] { Currency::max() + Currency::fromRaw(1); });
    const QVariant v = QVariant::fromValue(b);
    check(v.value<Currency>() == b && v == QVariant::fromValue(b) && v.toString() == QStringLiteral("1.25"),
          "Currency: metatype");
}

void useDecimal()
{
    const Decimal one = Decimal::fromInt64(1), half = Decimal::parse(QStringLiteral("0.50"), QLocale::c());
    check((one + half).toString() == QStringLiteral("1.5") && (one - half) == half, "Decimal: + and -");
    check((-half).isNegative() && (half * 3).toString() == QStringLiteral("1.5"), "Decimal: unary - and *");
    check(half < one && (one <=> half) == std::strong_ordering::greater, "Decimal: ordering");
    check(Decimal::fromParts(15, 0, 0, 1, false) == Decimal::fromDouble(1.5), "Decimal: parts and double");
    check(half.scale() == 2 && half.normalized().scale() == 1 && half.lo() == 50 && half.mid() == 0
              && half.hi() == 0 && !half.isZero(),
          "Decimal: fields");
    check(Decimal::parse(QStringLiteral("2.5")).rounded(0, Decimal::Rounding::HalfEven).toInt64() == 2
              && Decimal::parse(QStringLiteral("2.5")).rounded(0, Decimal::Rounding::HalfAwayFromZero).toInt64() == 3,
          "Decimal: rounding");
    check(half.mantissaDigits() == QStringLiteral("50") && half.toDouble() == 0.5, "Decimal: digits");
    check(Decimal::max() > Decimal::min() && Decimal::MaxScale == 28, "Decimal: limits");
    checkError(6, "Decimal: overflow", [] { Decimal::max() + Decimal::max(); });
    // The metatype compares through the exported operators.
    const QVariant v = QVariant::fromValue(Decimal::fromInt64(1));
    check(v == QVariant::fromValue(Decimal::parse(QStringLiteral("1.000"))), "Decimal: metatype equality");
    check(QVariant::compare(v, QVariant::fromValue(half)) == QPartialOrdering::Greater, "Decimal: metatype order");
}

void useDate()
{
    const Date first(Date::MinSerial), last(Date::MaxSerial);
    check(first.parts() == (Date::Parts{100, 1, 1, 0, 0, 0}) && last.year() == 9999, "Date: range");
    const Date d = Date::fromYmd(2024, 2, 31);
    check(d.month() == 3 && d.day() == 2 && d.dayOfWeek() == 7, "Date: serial construction rolls over");
    const Date t = Date::fromHms(25, 0, 0);
    check(t.hour() == 1 && t.minute() == 0 && t.second() == 0 && t.datePart().serial() == 1.0
              && t.timePart().serial() > 0.0,
          "Date: time serial");
    check(Date::fromQDate(QDate(1600, 12, 31)).serial() == -109206.0
              && Date::fromQDateTime(QDateTime(QDate(1899, 12, 30), QTime(18, 0))).serial() == 0.75
              && Date::fromQTime(QTime(6, 0)).serial() == 0.25,
          "Date: from Qt");
    check(d.toQDate() == QDate(2024, 3, 2) && t.toQTime() == QTime(1, 0)
              && t.toQDateTime() == QDateTime(QDate(1899, 12, 31), QTime(1, 0)),
          "Date: to Qt");
    check(Date::isLeapYear(1600) && !Date::isLeapYear(1700) && Date::daysInMonth(2023, 2) == 28, "Date: calendar");
    check(Date::isValidSerial(-657434.0) && !Date::isValidSerial(-657435.0), "Date: valid serials");
    check(Date::isDateText(QStringLiteral("12/31/1600"), QLocale(QLocale::English, QLocale::UnitedStates))
              && Date::parse(QStringLiteral("1/1/30"), QLocale(QLocale::English, QLocale::UnitedStates))->year() == 1930,
          "Date: text");
    check(first < last && first == Date(-657434.0), "Date: comparisons");
    checkError(6, "Date: before the range", [] { Date::fromYmd(100, 1, 0); });
    Clock::pin(QDateTime(QDate(2024, 3, 7), QTime(18, 0)));
    check(Date::today().serial() == 45358.0 && Date::now().serial() == 45358.75
              && Clock::now() == QDateTime(QDate(2024, 3, 7), QTime(18, 0)),
          "Clock: pinned");
    Clock::unpin();
    check(Clock::now().isValid(), "Clock: unpinned");
    // Qt's date types through the registered converters.
    check(QVariant(QDate(1600, 6, 1)).value<Date>().serial() == -109419.0
              && QVariant(QTime(12, 0)).value<Date>().serial() == 0.5
              && QVariant::fromValue(d).value<QDate>() == QDate(2024, 3, 2),
          "Date: metatype converters");
}

void useOleColor()
{
    const OleColor red = OleColor::fromRgb(255, 0, 0);
    check(red.value() == 255 && !red.isSystem() && OleColor(OleColor::WindowText).isSystem(), "OleColor: values");
    check(OleColor::fromQColor(QColor(0, 0, 192)).value() == 0xC00000u, "OleColor: from QColor");
    QPalette palette;
    check(OleColor(OleColor::WindowBackground).toQColor(palette) == palette.color(QPalette::Base),
          "OleColor: system colour");
    check(QVariant::fromValue(red).value<uint>() == 255u, "OleColor: metatype");
}

void useVariant()
{
    const QLocale c = QLocale::c();
    check(Variant::isEmpty(Variant::empty()) && Variant::isNull(Variant::null()), "Variant: Empty and Null");
    check(Variant::kind(QVariant::fromValue(qint16(1))) == Variant::Integer
              && Variant::kind(QVariant::fromValue(Date())) == Variant::DateKind,
          "Variant: kinds");
    check(Variant::isNumeric(QStringLiteral("1,234.5"), c) && Variant::isDate(QDate(2024, 1, 1), c),
          "Variant: tests");
    check(Variant::toInteger(2.5, c) == 2 && Variant::toLong(QStringLiteral("70000"), c) == 70000
              && Variant::toSingle(0.5, c) == 0.5f && Variant::toDouble(true, c) == -1.0,
          "Variant: numbers");
    check(Variant::toCurrency(1.5, c) == Currency::fromRaw(15000)
              && Variant::toDecimal(QStringLiteral("0.1"), c) == Decimal::parse(QStringLiteral("0.1")),
          "Variant: exact numbers");
    check(Variant::toDate(QDateTime(QDate(2024, 3, 7), QTime(6, 0)), c).serial() == 45358.25
              && Variant::toDate(QTime(18, 0), c).serial() == 0.75,
          "Variant: Qt dates");
    check(Variant::toBoolean(QStringLiteral("True"), c) && Variant::toString(0.1 + 0.2, c) == QStringLiteral("0.3"),
          "Variant: boolean and text");
    check(Variant::compare(QVariant::fromValue(Decimal::fromInt64(1)), 2, c) == -1, "Variant: compare");
    checkError(13, "Variant: Null is a type mismatch", [] { Variant::toDouble(Variant::null()); });
}

void usePropertyBag()
{
    PropertyBag bag;
    bag.WriteProperty(QStringLiteral("Price"), QVariant::fromValue(Currency::fromRaw(12345)), QVariant());
    bag.WriteProperty(QStringLiteral("Skipped"), 1, 1);
    const PropertyBag copy = PropertyBag::fromJsonText(bag.toJsonText());
    check(copy.ReadProperty(QStringLiteral("Price")).value<Currency>().raw() == 12345, "PropertyBag: JSON text");
    check(PropertyBag::fromJson(bag.toJson()).keys() == QStringList{QStringLiteral("Price")}, "PropertyBag: JSON");
    check(bag.contains(QStringLiteral("Price")) && !bag.contains(QStringLiteral("Skipped"))
              && bag.writeLog().size() == 2 && copy.readLog().size() == 1,
          "PropertyBag: logs");
    check(PropertyBag::sameValue(1, 1.0), "PropertyBag: same value");
    bag.clear();
    check(bag.keys().isEmpty(), "PropertyBag: clear");
}

void useDataObject()
{
    DataObject out;
    out.SetData(QStringLiteral("hello"), DataObject::CFText);
    out.setFiles({QStringLiteral("/tmp/a.txt")});
    check(out.GetFormat(DataObject::CFText) && out.GetData(DataObject::CFText).toString() == QStringLiteral("hello"),
          "DataObject: text");
    check(out.Files() == QStringList{QStringLiteral("/tmp/a.txt")}, "DataObject: files");
    out.setDataRequestHandler([](DataObject *data, short &format) { data->SetData(QImage(1, 1, QImage::Format_RGB32), format); });
    out.SetData(QVariant(), DataObject::CFBitmap);
    check(out.GetData(DataObject::CFBitmap).value<QImage>().width() == 1, "DataObject: data on request");
    check(DataObject::isKnownFormat(DataObject::CFRTF) && DataObject::mimeTypeOf(DataObject::CFText) == QStringLiteral("text/plain"),
          "DataObject: formats");
    check(out.mimeData() != nullptr, "DataObject: mime data");
    QMimeData *taken = out.takeMimeData();
    check(taken != nullptr, "DataObject: take");
    delete taken;
    QMimeData incoming;
    incoming.setText(QStringLiteral("dropped"));
    DataObject in(&incoming);
    check(in.GetData(DataObject::CFText).toString() == QStringLiteral("dropped"), "DataObject: incoming");
    checkError(387, "DataObject: incoming data is read-only", [] {
        QMimeData data;
        DataObject(&data).Clear();
    });
    check(QMetaEnum::fromType<DataObject::Format>().valueToKey(DataObject::CFFiles) == QByteArray("CFFiles"),
          "DataObject: Format enum");
}

void useConstants()
{
    check(QMetaEnum::fromType<twDataTypeConstants>().keyToValue("twCurrency") == twCurrency
              && QMetaEnum::fromType<twBorderStyleConstants>().keyCount() == 3,
          "constants: enumerations");
}

} // namespace

void useValueTypes()
{
    // The controls register the metatypes' converters when they are made; a client of the
    // values alone asks for them.
    Variant::registerTypes();
    useError();
    useCurrency();
    useDecimal();
    useDate();
    useOleColor();
    useVariant();
    usePropertyBag();
    useDataObject();
    useConstants();
}

} // namespace Consumer
