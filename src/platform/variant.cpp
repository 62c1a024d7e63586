#include <tarnwell/error.h>
#include <tarnwell/olecolor.h>
#include <tarnwell/variant.h>

#include "platform/decimaldigits.h"
#include "platform/numerictext.h"

#include <QDateTime>

#include <charconv>
#include <cmath>
#include <limits>
#include <mutex>

namespace Tarnwell {

namespace {

// A variant's number, in the widest form its kind needs, before it is narrowed to a target type.
struct Number {
    enum Type { Int, Dbl, Sgl, Cur, Dec, Text, NullValue, NotNumber } type = Int;
    std::int64_t i = 0;
    double d = 0.0;
    float f = 0.0f;
    Currency c;
    Decimal m;
};

Number numberOf(const QVariant &v)
{
    Number n;
    const int id = v.metaType().id();
    switch (id) {
    case QMetaType::UnknownType: n.type = Number::Int; return n;
    case QMetaType::Nullptr: n.type = Number::NullValue; return n;
    case QMetaType::Bool: n.i = v.toBool() ? -1 : 0; return n;
    case QMetaType::Short:
    case QMetaType::Int:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::Char16:
    case QMetaType::Char32:
        n.i = v.toLongLong();
        return n;
    case QMetaType::UChar:
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::ULong:
    case QMetaType::ULongLong: {
        const qulonglong u = v.toULongLong();
        if (u > qulonglong(std::numeric_limits<std::int64_t>::max())) {
            n.type = Number::Dec;
            n.m = Decimal::fromParts(std::uint32_t(u), std::uint32_t(u >> 32), 0, 0, false);
        } else {
            n.i = std::int64_t(u);
        }
        return n;
    }
    case QMetaType::Float: n.type = Number::Sgl; n.f = v.toFloat(); return n;
    case QMetaType::Double: n.type = Number::Dbl; n.d = v.toDouble(); return n;
    case QMetaType::QString: n.type = Number::Text; return n;
    default: break;
    }
    if (id == qMetaTypeId<Currency>()) {
        n.type = Number::Cur;
        n.c = v.value<Currency>();
    } else if (id == qMetaTypeId<Decimal>()) {
        n.type = Number::Dec;
        n.m = v.value<Decimal>();
    } else if (id == qMetaTypeId<Date>()) {
        n.type = Number::Dbl;
        n.d = v.value<Date>().serial();
    } else if (id == qMetaTypeId<OleColor>()) {
        n.i = std::int64_t(v.value<OleColor>().value());
    } else {
        n.type = Number::NotNumber;
    }
    return n;
}

QString textOf(const QVariant &v)
{
    return v.toString(); // shares the variant's string, no copy of the characters
}

// Correctly rounded binary floating point from scanned digits, independent of the C locale.
template<typename Float>
Float floatFromText(const QVariant &v, const QLocale &locale)
{
    NumericText number;
    if (!number.scan(textOf(v), locale))
        throw Error(Error::TypeMismatch);
    if (number.count == 0)
        return number.negative ? -Float(0) : Float(0);
    char buffer[NumericText::MaxDigits + 16];
    int len = 0;
    for (int i = 0; i < number.count; ++i)
        buffer[len++] = number.digits[i];
    int exponent = number.exponent;
    if (number.firstDropped != 0 || number.stickyDropped) {
        // The dropped tail only matters as "a little more than these digits".
        buffer[len++] = char('0' + number.firstDropped);
        buffer[len++] = '1';
        exponent -= 2;
    }
    buffer[len++] = 'e';
    auto [end, ec] = std::to_chars(buffer + len, buffer + sizeof buffer, exponent);
    (void)ec;
    Float value = 0;
    const auto result = std::from_chars(buffer, end, value);
    if (result.ec == std::errc::result_out_of_range) {
        if (number.magnitude() > 0)
            throw Error(Error::Overflow);
        value = 0;
    }
    return number.negative ? -value : value;
}

std::int64_t roundedToInt64(double value)
{
    const double r = std::nearbyint(value);
    if (!(r >= -9223372036854775808.0 && r < 9223372036854775808.0))
        throw Error(Error::Overflow);
    return std::int64_t(r);
}

// The value rounded half to even to a whole number; Error(6) outside the 64-bit range.
std::int64_t wholeOf(const QVariant &v, const QLocale &locale)
{
    const Number n = numberOf(v);
    switch (n.type) {
    case Number::Int: return n.i;
    case Number::Dbl: return roundedToInt64(n.d);
    case Number::Sgl: return roundedToInt64(double(n.f));
    case Number::Cur: return n.c.toDecimal().toInt64();
    case Number::Dec: return n.m.toInt64();
    case Number::Text: return Decimal::parse(textOf(v), locale).toInt64();
    case Number::NullValue:
    case Number::NotNumber: break;
    }
    throw Error(Error::TypeMismatch);
}

bool isTrueText(const QString &text, bool &value)
{
    const QString t = text.trimmed();
    if (t.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) {
        value = true;
        return true;
    }
    if (t.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) {
        value = false;
        return true;
    }
    return false;
}

// The locale's short date with a four-digit year, so the text reads back as the same date.
QString dateFormatOf(const QLocale &locale)
{
    QString format = locale.dateFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("yyyy")))
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return format;
}

QString timeFormatOf(const QLocale &locale)
{
    QString format = locale.timeFormat(QLocale::ShortFormat);
    if (!format.contains(QLatin1String("ss")))
        format.replace(QLatin1String("mm"), QLatin1String("mm:ss"));
    return format;
}

QString dateText(const Date &date, const QLocale &locale)
{
    if (!Date::isValidSerial(date.serial()))
        return DecimalDigits::fromDouble(date.serial()).toGeneralString(locale.decimalPoint(), 15);
    const double whole = std::floor(date.serial());
    const bool hasTime = date.serial() != whole;
    const bool hasDate = whole != 0.0;
    QString out;
    if (hasDate || !hasTime)
        out = locale.toString(date.toQDate(), dateFormatOf(locale));
    if (hasTime) {
        if (!out.isEmpty())
            out += u' ';
        out += locale.toString(date.toQTime(), timeFormatOf(locale));
    }
    return out;
}

bool isQtDate(int id)
{
    return id == QMetaType::QDate || id == QMetaType::QDateTime || id == QMetaType::QTime;
}

// Qt's own date and time types as dates, a QTime as a time of day on day 0; nothing for any other
// type. A null one holds no date (Error(13)), a year outside 100..9999 does not fit (Error(6)).
std::optional<Date> fromQtDate(const QVariant &v)
{
    switch (v.metaType().id()) {
    case QMetaType::QDate: return Date::fromQDate(*static_cast<const QDate *>(v.constData()));
    case QMetaType::QDateTime:
        return Date::fromQDateTime(*static_cast<const QDateTime *>(v.constData()));
    case QMetaType::QTime: return Date::fromQTime(*static_cast<const QTime *>(v.constData()));
    default: return std::nullopt;
    }
}

// Registers `convert` for From -> To; a conversion that fails (throws) reports failure to Qt
// instead of letting the error into its event loop.
// The converters live in this library: they are removed again when it is unloaded, so Qt's
// registry never calls into unmapped code.
struct RegisteredConverters {
    QList<std::pair<QMetaType, QMetaType>> pairs;
    ~RegisteredConverters()
    {
        for (const auto &[from, to] : pairs)
            QMetaType::unregisterConverterFunction(from, to);
    }
};

RegisteredConverters &registeredConverters()
{
    static RegisteredConverters registered;
    return registered;
}

template<typename From, typename To, typename Fn>
void addConverter(Fn convert)
{
    const QMetaType from = QMetaType::fromType<From>();
    const QMetaType to = QMetaType::fromType<To>();
    if (QMetaType::hasRegisteredConverterFunction(from, to))
        return;
    const bool added = QMetaType::registerConverterFunction(
        [convert](const void *in, void *out) -> bool {
            try {
                *static_cast<To *>(out) = convert(*static_cast<const From *>(in));
                return true;
            } catch (const Error &) {
                return false;
            }
        },
        from, to);
    if (added)
        registeredConverters().pairs.append({from, to});
}

// A serial outside the date range has no Qt counterpart: the conversion fails.
template<typename QtType>
QtType validQt(const QtType &value)
{
    if (!value.isValid())
        throw Error(Error::Overflow);
    return value;
}

} // namespace

QVariant Variant::null()
{
    return QVariant::fromValue(nullptr);
}

bool Variant::isNull(const QVariant &v)
{
    return v.metaType().id() == QMetaType::Nullptr;
}

Variant::Kind Variant::kind(const QVariant &v)
{
    const int id = v.metaType().id();
    switch (id) {
    case QMetaType::UnknownType: return Empty;
    case QMetaType::Nullptr: return Null;
    case QMetaType::Short: return Integer;
    case QMetaType::Int: return Long;
    case QMetaType::Float: return Single;
    case QMetaType::Double: return Double;
    case QMetaType::QString: return String;
    case QMetaType::Bool: return Boolean;
    case QMetaType::UChar: return Byte;
    default: break;
    }
    if (id == qMetaTypeId<Currency>())
        return CurrencyKind;
    if (id == qMetaTypeId<Decimal>())
        return DecimalKind;
    if (id == qMetaTypeId<Date>())
        return DateKind;
    return Other;
}

bool Variant::isNumeric(const QVariant &v, const QLocale &locale)
{
    const int id = v.metaType().id();
    if (id == qMetaTypeId<Date>())
        return false; // the host does not count dates as numbers
    const Number n = numberOf(v);
    if (n.type == Number::Text) {
        NumericText number;
        return number.scan(textOf(v), locale);
    }
    return n.type != Number::NullValue && n.type != Number::NotNumber;
}

bool Variant::isDate(const QVariant &v, const QLocale &locale)
{
    const int id = v.metaType().id();
    if (id == qMetaTypeId<Date>())
        return true;
    if (isQtDate(id)) {
        try {
            return fromQtDate(v).has_value();
        } catch (const Error &) {
            return false; // a null one, or a year the date type does not hold
        }
    }
    if (id == QMetaType::QString)
        return Date::isDateText(textOf(v), locale);
    return false;
}

qint16 Variant::toInteger(const QVariant &v, const QLocale &locale)
{
    const std::int64_t w = wholeOf(v, locale);
    if (w < std::numeric_limits<qint16>::min() || w > std::numeric_limits<qint16>::max())
        throw Error(Error::Overflow);
    return qint16(w);
}

qint32 Variant::toLong(const QVariant &v, const QLocale &locale)
{
    const std::int64_t w = wholeOf(v, locale);
    if (w < std::numeric_limits<qint32>::min() || w > std::numeric_limits<qint32>::max())
        throw Error(Error::Overflow);
    return qint32(w);
}

float Variant::toSingle(const QVariant &v, const QLocale &locale)
{
    const Number n = numberOf(v);
    if (n.type == Number::Sgl)
        return n.f;
    if (n.type == Number::Text)
        return floatFromText<float>(v, locale);
    const double d = toDouble(v, locale);
    const float f = float(d);
    if (std::isfinite(d) && !std::isfinite(f))
        throw Error(Error::Overflow);
    return f;
}

double Variant::toDouble(const QVariant &v, const QLocale &locale)
{
    const Number n = numberOf(v);
    switch (n.type) {
    case Number::Int: return double(n.i);
    case Number::Dbl: return n.d;
    case Number::Sgl: return double(n.f);
    case Number::Cur: return n.c.toDouble();
    case Number::Dec: return n.m.toDouble();
    case Number::Text: return floatFromText<double>(v, locale);
    case Number::NullValue:
    case Number::NotNumber: break;
    }
    throw Error(Error::TypeMismatch);
}

Currency Variant::toCurrency(const QVariant &v, const QLocale &locale)
{
    const Number n = numberOf(v);
    switch (n.type) {
    case Number::Int: return Currency::fromInt64(n.i);
    case Number::Dbl: return Currency::fromDouble(n.d);
    case Number::Sgl: return Currency::fromDouble(double(n.f));
    case Number::Cur: return n.c;
    case Number::Dec: return Currency::fromDecimal(n.m);
    case Number::Text: return Currency::parse(textOf(v), locale);
    case Number::NullValue:
    case Number::NotNumber: break;
    }
    throw Error(Error::TypeMismatch);
}

Decimal Variant::toDecimal(const QVariant &v, const QLocale &locale)
{
    const Number n = numberOf(v);
    switch (n.type) {
    case Number::Int: return Decimal::fromInt64(n.i);
    case Number::Dbl: return Decimal::fromDouble(n.d);
    case Number::Sgl: {
        // A Single carries 7 significant digits; its decimal value is those digits.
        const DecimalDigits digits = DecimalDigits::fromFloat(n.f);
        if (!digits.finite)
            throw Error(Error::Overflow);
        return Decimal::parse(digits.toGeneralString(u".", 7), QLocale::c());
    }
    case Number::Cur: return n.c.toDecimal();
    case Number::Dec: return n.m;
    case Number::Text: return Decimal::parse(textOf(v), locale);
    case Number::NullValue:
    case Number::NotNumber: break;
    }
    throw Error(Error::TypeMismatch);
}

Date Variant::toDate(const QVariant &v, const QLocale &locale)
{
    const int id = v.metaType().id();
    if (id == qMetaTypeId<Date>())
        return v.value<Date>();
    if (const std::optional<Date> qtDate = fromQtDate(v))
        return *qtDate;
    if (id == QMetaType::QString) {
        if (const std::optional<Date> parsed = Date::parse(textOf(v), locale))
            return *parsed;
        throw Error(Error::TypeMismatch);
    }
    const double serial = toDouble(v, locale);
    if (!Date::isValidSerial(serial))
        throw Error(Error::Overflow);
    return Date(serial);
}

bool Variant::toBoolean(const QVariant &v, const QLocale &locale)
{
    const Number n = numberOf(v);
    switch (n.type) {
    case Number::Int: return n.i != 0;
    case Number::Dbl: return n.d != 0.0;
    case Number::Sgl: return n.f != 0.0f;
    case Number::Cur: return n.c.raw() != 0;
    case Number::Dec: return !n.m.isZero();
    case Number::Text: {
        bool value = false;
        if (isTrueText(textOf(v), value))
            return value;
        return toDouble(v, locale) != 0.0;
    }
    case Number::NullValue:
    case Number::NotNumber: break;
    }
    throw Error(Error::TypeMismatch);
}

QString Variant::toString(const QVariant &v, const QLocale &locale)
{
    const int id = v.metaType().id();
    switch (id) {
    case QMetaType::UnknownType: return QString();
    case QMetaType::QString: return textOf(v);
    case QMetaType::Bool: return v.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    case QMetaType::Float:
        return DecimalDigits::fromFloat(v.toFloat())
            .toGeneralString(NumericText::localeChars(locale).decimal, 7);
    case QMetaType::Double:
        return DecimalDigits::fromDouble(v.toDouble(), 15)
            .toGeneralString(NumericText::localeChars(locale).decimal, 15);
    default: break;
    }
    if (id == qMetaTypeId<Date>())
        return dateText(v.value<Date>(), locale);
    const Number n = numberOf(v);
    switch (n.type) {
    case Number::Int: return QString::number(n.i);
    case Number::Cur: return n.c.toString(locale);
    case Number::Dec: return n.m.toString(locale);
    case Number::NotNumber:
        if (v.canConvert<QString>())
            return v.toString(); // a Qt type with its own text (QDate, QUrl, ...)
        break;
    default: break;
    }
    throw Error(Error::TypeMismatch);
}

int Variant::compare(const QVariant &a, const QVariant &b, const QLocale &locale)
{
    // Exact kinds (integers, Currency, Decimal, numeric texts that fit) compare as Decimal;
    // a Single or Double on either side compares as the host does after widening to Decimal,
    // falling back to doubles where a value is beyond the Decimal range.
    auto exactOf = [&](const QVariant &v, Decimal &out) -> bool {
        const Number n = numberOf(v);
        switch (n.type) {
        case Number::Int: out = Decimal::fromInt64(n.i); return true;
        case Number::Cur: out = n.c.toDecimal(); return true;
        case Number::Dec: out = n.m; return true;
        case Number::Text:
            try {
                out = Decimal::parse(textOf(v), locale);
                return true;
            } catch (const Error &e) {
                if (e.number() == Error::TypeMismatch)
                    throw;
                return false;
            }
        case Number::NullValue:
        case Number::NotNumber: throw Error(Error::TypeMismatch);
        default: return false;
        }
    };
    Decimal x, y;
    bool exactA = exactOf(a, x);
    bool exactB = exactOf(b, y);
    if (!exactA || !exactB) {
        const double da = toDouble(a, locale), db = toDouble(b, locale);
        if (std::isnan(da) || std::isnan(db))
            return da == db ? 0 : (std::isnan(da) ? -1 : 1);
        try {
            if (!exactA)
                x = Decimal::fromDouble(da);
            if (!exactB)
                y = Decimal::fromDouble(db);
        } catch (const Error &) {
            return da < db ? -1 : (da > db ? 1 : 0);
        }
    }
    const auto order = x <=> y;
    return order < 0 ? -1 : (order > 0 ? 1 : 0);
}

void Variant::registerTypes()
{
    static std::once_flag once;
    std::call_once(once, [] {
        qRegisterMetaType<Currency>();
        qRegisterMetaType<Decimal>();
        qRegisterMetaType<Date>();
        qRegisterMetaType<OleColor>();

        // Converters speak the C locale, so texts made by QVariant read back on any machine.
        const QLocale c = QLocale::c();
        addConverter<Currency, QString>([c](const Currency &v) { return v.toString(c); });
        addConverter<QString, Currency>([c](const QString &s) { return Currency::parse(s, c); });
        addConverter<Currency, double>([](const Currency &v) { return v.toDouble(); });
        addConverter<double, Currency>([](const double &d) { return Currency::fromDouble(d); });

        addConverter<Decimal, QString>([c](const Decimal &v) { return v.toString(c); });
        addConverter<QString, Decimal>([c](const QString &s) { return Decimal::parse(s, c); });
        addConverter<Decimal, double>([](const Decimal &v) { return v.toDouble(); });
        addConverter<double, Decimal>([](const double &d) { return Decimal::fromDouble(d); });

        addConverter<Date, QString>([](const Date &v) {
            if (!Date::isValidSerial(v.serial()))
                throw Error(Error::Overflow);
            const QDateTime dt = v.toQDateTime();
            return v.serial() == std::floor(v.serial()) ? dt.date().toString(Qt::ISODate)
                                                       : dt.toString(Qt::ISODate);
        });
        addConverter<QString, Date>([](const QString &s) {
            const QDateTime iso = QDateTime::fromString(s.trimmed(), Qt::ISODate);
            if (iso.isValid())
                return Date::fromQDateTime(iso);
            const QDate isoDate = QDate::fromString(s.trimmed(), Qt::ISODate);
            if (isoDate.isValid())
                return Date::fromQDate(isoDate);
            if (const std::optional<Date> parsed = Date::parse(s, QLocale()))
                return *parsed;
            throw Error(Error::TypeMismatch);
        });
        // Qt's date types both ways, so that a QDate written by name reaches a Date property.
        addConverter<QDate, Date>([](const QDate &d) { return Date::fromQDate(d); });
        addConverter<QDateTime, Date>([](const QDateTime &d) { return Date::fromQDateTime(d); });
        addConverter<QTime, Date>([](const QTime &t) { return Date::fromQTime(t); });
        addConverter<Date, QDate>([](const Date &v) { return validQt(v.toQDate()); });
        addConverter<Date, QDateTime>([](const Date &v) { return validQt(v.toQDateTime()); });
        addConverter<Date, QTime>([](const Date &v) { return validQt(v.toQTime()); });
        addConverter<Date, double>([](const Date &v) { return v.serial(); });
        addConverter<double, Date>([](const double &d) {
            if (!Date::isValidSerial(d))
                throw Error(Error::Overflow);
            return Date(d);
        });

        addConverter<OleColor, uint>([](const OleColor &v) { return uint(v.value()); });
        addConverter<uint, OleColor>([](const uint &u) { return OleColor(u); });
        addConverter<OleColor, double>([](const OleColor &v) { return double(v.value()); });
        addConverter<double, OleColor>([](const double &d) {
            const double r = std::nearbyint(d);
            if (!(r >= -2147483648.0 && r <= 4294967295.0))
                throw Error(Error::Overflow);
            // Negative numbers are the signed view of the same 32 bits (system colours).
            return OleColor(r < 0 ? std::uint32_t(std::int32_t(r)) : std::uint32_t(r));
        });
        // What a .ui file or a colour dialog hands over: its red, green and blue.
        addConverter<QColor, OleColor>([](const QColor &c) { return OleColor::fromQColor(c); });
        addConverter<OleColor, QString>([](const OleColor &v) { return QString::number(v.value()); });
        addConverter<QString, OleColor>([](const QString &s) {
            const std::int64_t w = Decimal::parse(s, QLocale::c()).toInt64();
            if (w < std::numeric_limits<std::int32_t>::min() || w > 0xFFFFFFFFll)
                throw Error(Error::Overflow);
            return OleColor(std::uint32_t(w));
        });
    });
}

} // namespace Tarnwell
