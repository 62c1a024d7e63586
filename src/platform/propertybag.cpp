#include <tarnwell/propertybag.h>

#include <tarnwell/currency.h>
#include <tarnwell/date.h>
#include <tarnwell/decimal.h>
#include <tarnwell/error.h>
#include <tarnwell/olecolor.h>

#include <QBuffer>
#include <QDataStream>
#include <QFont>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPixmap>

#include <cmath>
#include <optional>

namespace Tarnwell {
namespace {

enum class Kind {
    Empty, Null, Boolean, Signed, Unsigned, Single, Double, String, Currency, Decimal, Date,
    OleColor, Font, Pixmap, Image, Other
};

// Integer kinds by their stable names in the JSON text.
struct IntegerKind {
    int typeId;
    const char *name;
    bool isSigned;
};

constexpr IntegerKind integerKinds[] = {
    {QMetaType::Char, "Char", true},          {QMetaType::SChar, "SByte", true},
    {QMetaType::UChar, "Byte", false},        {QMetaType::Short, "Integer", true},
    {QMetaType::UShort, "UInteger", false},   {QMetaType::Int, "Long", true},
    {QMetaType::UInt, "ULong", false},        {QMetaType::Long, "CLong", true},
    {QMetaType::ULong, "CULong", false},      {QMetaType::LongLong, "LongLong", true},
    {QMetaType::ULongLong, "ULongLong", false},
};

const IntegerKind *integerKindOf(int typeId)
{
    for (const IntegerKind &k : integerKinds) {
        if (k.typeId == typeId)
            return &k;
    }
    return nullptr;
}

const IntegerKind *integerKindNamed(const QString &name)
{
    for (const IntegerKind &k : integerKinds) {
        if (name == QLatin1String(k.name))
            return &k;
    }
    return nullptr;
}

Kind kindOf(const QVariant &v)
{
    if (!v.isValid())
        return Kind::Empty;
    const int id = v.metaType().id();
    if (id == QMetaType::Nullptr)
        return Kind::Null;
    if (id == QMetaType::Bool)
        return Kind::Boolean;
    if (const IntegerKind *k = integerKindOf(id))
        return k->isSigned ? Kind::Signed : Kind::Unsigned;
    if (id == QMetaType::Float)
        return Kind::Single;
    if (id == QMetaType::Double)
        return Kind::Double;
    if (id == QMetaType::QString)
        return Kind::String;
    if (id == QMetaType::QFont)
        return Kind::Font;
    if (id == QMetaType::QPixmap)
        return Kind::Pixmap;
    if (id == QMetaType::QImage)
        return Kind::Image;
    if (v.metaType() == QMetaType::fromType<Currency>())
        return Kind::Currency;
    if (v.metaType() == QMetaType::fromType<Decimal>())
        return Kind::Decimal;
    if (v.metaType() == QMetaType::fromType<Date>())
        return Kind::Date;
    if (v.metaType() == QMetaType::fromType<OleColor>())
        return Kind::OleColor;
    return Kind::Other;
}

QImage pictureOf(const QVariant &v, Kind kind)
{
    if (kind == Kind::Pixmap)
        return v.value<QPixmap>().toImage();
    if (kind == Kind::Image)
        return v.value<QImage>();
    return {};
}

// "none": Empty and every null picture stand for the same absent picture.
bool isNoPicture(const QVariant &v, Kind kind)
{
    return kind == Kind::Empty || ((kind == Kind::Pixmap || kind == Kind::Image) && pictureOf(v, kind).isNull());
}

bool samePixels(const QImage &a, const QImage &b)
{
    if (a.size() != b.size())
        return false;
    // Premultiplied, so that fully transparent pixels match whatever colour they once carried
    // (a QPixmap keeps none).
    return a.convertToFormat(QImage::Format_ARGB32_Premultiplied)
        == b.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

// ---- Numbers compared by value across kinds --------------------------------------------------

struct Number {
    enum Tag { Integer, Real, Money, Exact } tag = Integer;
    __int128 integer = 0;
    long double real = 0;
    Currency money;
    Decimal exact;
};

bool isNumberKind(Kind k)
{
    switch (k) {
    case Kind::Boolean: case Kind::Signed: case Kind::Unsigned: case Kind::Single: case Kind::Double:
    case Kind::Currency: case Kind::Decimal: case Kind::Date: case Kind::OleColor:
        return true;
    default:
        return false;
    }
}

Number numberOf(const QVariant &v, Kind k)
{
    Number n;
    n.tag = Number::Integer;
    switch (k) {
    case Kind::Boolean: n.integer = v.toBool() ? -1 : 0; break; // the host's True is -1
    case Kind::Signed: n.integer = v.toLongLong(); break;
    case Kind::Unsigned: n.integer = v.toULongLong(); break;
    case Kind::OleColor: n.integer = v.value<OleColor>().value(); break;
    case Kind::Single: n.tag = Number::Real; n.real = v.value<float>(); break;
    case Kind::Double: n.tag = Number::Real; n.real = v.value<double>(); break;
    case Kind::Date: n.tag = Number::Real; n.real = v.value<Date>().serial(); break;
    case Kind::Currency: n.tag = Number::Money; n.money = v.value<Currency>(); break;
    case Kind::Decimal: n.tag = Number::Exact; n.exact = v.value<Decimal>(); break;
    default: break;
    }
    return n;
}

long double realOf(const Number &n)
{
    switch (n.tag) {
    case Number::Integer: return static_cast<long double>(n.integer);
    case Number::Real: return n.real;
    case Number::Money: return static_cast<long double>(n.money.raw()) / Currency::Scale;
    case Number::Exact: return n.exact.toDouble();
    }
    return 0;
}

Decimal decimalOf(const Number &n)
{
    switch (n.tag) {
    case Number::Money: return n.money.toDecimal();
    case Number::Exact: return n.exact;
    default: {
        const bool negative = n.integer < 0;
        const auto magnitude = static_cast<unsigned __int128>(negative ? -n.integer : n.integer);
        return Decimal::fromParts(std::uint32_t(magnitude), std::uint32_t(magnitude >> 32),
                                  std::uint32_t(magnitude >> 64), 0, negative);
    }
    }
}

bool sameNumber(const Number &a, const Number &b)
{
    if (a.tag == Number::Real || b.tag == Number::Real) {
        // Two NaNs read back the same, which is all the bag needs to know.
        if (a.tag == Number::Real && b.tag == Number::Real)
            return a.real == b.real || (std::isnan(a.real) && std::isnan(b.real));
        return realOf(a) == realOf(b);
    }
    if (a.tag == Number::Exact || b.tag == Number::Exact)
        return decimalOf(a) == decimalOf(b);
    if (a.tag == Number::Money && b.tag == Number::Money)
        return a.money == b.money;
    const __int128 scaledA = a.tag == Number::Money ? __int128(a.money.raw()) : a.integer * (b.tag == Number::Money ? Currency::Scale : 1);
    const __int128 scaledB = b.tag == Number::Money ? __int128(b.money.raw()) : b.integer * (a.tag == Number::Money ? Currency::Scale : 1);
    return scaledA == scaledB;
}

// ---- Exact decimal text from the 96-bit parts --------------------------------------------------

QString decimalText(const Decimal &d)
{
    std::uint32_t words[3] = {d.hi(), d.mid(), d.lo()};
    QString digits;
    do {
        std::uint64_t remainder = 0;
        for (std::uint32_t &w : words) {
            const std::uint64_t current = (remainder << 32) | w;
            w = std::uint32_t(current / 10);
            remainder = current % 10;
        }
        digits.prepend(QChar(u'0' + char16_t(remainder)));
    } while (words[0] != 0 || words[1] != 0 || words[2] != 0);
    const int scale = d.scale();
    if (digits.size() <= scale)
        digits.prepend(QString(scale - digits.size() + 1, u'0'));
    if (scale > 0)
        digits.insert(digits.size() - scale, u'.');
    if (d.isNegative())
        digits.prepend(u'-');
    return digits;
}

std::optional<Decimal> decimalFromText(QStringView text)
{
    bool negative = false;
    if (text.startsWith(u'-')) {
        negative = true;
        text = text.mid(1);
    }
    std::uint32_t words[3] = {0, 0, 0}; // least significant first
    int scale = -1;
    bool anyDigit = false;
    for (QChar c : text) {
        if (c == u'.' && scale < 0) {
            scale = 0;
            continue;
        }
        if (c < u'0' || c > u'9')
            return std::nullopt;
        std::uint64_t carry = std::uint64_t(c.unicode() - u'0');
        for (std::uint32_t &w : words) {
            const std::uint64_t current = std::uint64_t(w) * 10 + carry;
            w = std::uint32_t(current);
            carry = current >> 32;
        }
        if (carry != 0)
            return std::nullopt;
        anyDigit = true;
        if (scale >= 0 && ++scale > Decimal::MaxScale)
            return std::nullopt;
    }
    if (!anyDigit)
        return std::nullopt;
    return Decimal::fromParts(words[0], words[1], words[2], scale < 0 ? 0 : scale, negative);
}

// ---- JSON values -------------------------------------------------------------------------------

constexpr double ExactIntegerLimit = 9007199254740992.0; // 2^53

QJsonValue realToJson(double d)
{
    // JSON has no infinities, NaN or negative zero: those travel as text.
    if (d == 0 && std::signbit(d))
        return u"-0"_qs;
    if (std::isfinite(d))
        return d;
    return QString::number(d, 'g', QLocale::FloatingPointShortest);
}

std::optional<double> realFromJson(const QJsonValue &v)
{
    if (v.isDouble())
        return v.toDouble();
    if (!v.isString())
        return std::nullopt;
    bool ok = false;
    const double d = QLocale::c().toDouble(v.toString(), &ok);
    if (ok)
        return d;
    const QString t = v.toString().toLower();
    if (t == u"nan")
        return std::nan("");
    if (t == u"inf" || t == u"+inf")
        return HUGE_VAL;
    if (t == u"-inf")
        return -HUGE_VAL;
    return std::nullopt;
}

QString pngBase64(const QImage &image)
{
    if (image.isNull())
        return {};
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return QString::fromLatin1(png.toBase64());
}

std::optional<QImage> imageFromBase64(const QString &text)
{
    if (text.isEmpty())
        return QImage();
    QImage image;
    if (!image.loadFromData(QByteArray::fromBase64(text.toLatin1()), "PNG"))
        return std::nullopt;
    return image;
}

constexpr QDataStream::Version StreamVersion = QDataStream::Qt_6_4;

QJsonObject entryToJson(const QString &key, const QVariant &v)
{
    QJsonObject o;
    o.insert(u"key"_qs, key);
    QString type;
    QJsonValue value;
    switch (kindOf(v)) {
    case Kind::Empty: type = u"Empty"_qs; break;
    case Kind::Null: type = u"Null"_qs; break;
    case Kind::Boolean: type = u"Boolean"_qs; value = v.toBool(); break;
    case Kind::Signed: {
        type = QLatin1String(integerKindOf(v.metaType().id())->name);
        const qint64 i = v.toLongLong();
        value = std::fabs(double(i)) < ExactIntegerLimit ? QJsonValue(double(i)) : QJsonValue(QString::number(i));
        break;
    }
    case Kind::Unsigned: {
        type = QLatin1String(integerKindOf(v.metaType().id())->name);
        const quint64 u = v.toULongLong();
        value = double(u) < ExactIntegerLimit ? QJsonValue(double(u)) : QJsonValue(QString::number(u));
        break;
    }
    case Kind::Single: type = u"Single"_qs; value = realToJson(double(v.value<float>())); break;
    case Kind::Double: type = u"Double"_qs; value = realToJson(v.value<double>()); break;
    case Kind::Date: type = u"Date"_qs; value = realToJson(v.value<Date>().serial()); break;
    case Kind::String: type = u"String"_qs; value = v.toString(); break;
    case Kind::Currency: type = u"Currency"_qs; value = v.value<Currency>().toString(QLocale::c()); break;
    case Kind::Decimal: type = u"Decimal"_qs; value = decimalText(v.value<Decimal>()); break;
    case Kind::OleColor: type = u"OleColor"_qs; value = double(v.value<OleColor>().value()); break;
    case Kind::Font: type = u"Font"_qs; value = v.value<QFont>().toString(); break;
    case Kind::Pixmap: type = u"Picture"_qs; value = pngBase64(v.value<QPixmap>().toImage()); break;
    case Kind::Image: type = u"Image"_qs; value = pngBase64(v.value<QImage>()); break;
    case Kind::Other: {
        // Anything else travels in Qt's own stream format, so that nothing written is lost.
        type = u"Variant"_qs;
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setVersion(StreamVersion);
        out << v;
        value = QString::fromLatin1(bytes.toBase64());
        break;
    }
    }
    o.insert(u"type"_qs, type);
    if (!value.isUndefined())
        o.insert(u"value"_qs, value);
    return o;
}

std::optional<QVariant> integerFromJson(const IntegerKind &kind, const QJsonValue &value)
{
    QVariant wide;
    if (value.isDouble()) {
        const double d = value.toDouble();
        if (d != std::trunc(d) || std::fabs(d) > ExactIntegerLimit)
            return std::nullopt;
        wide = kind.isSigned ? QVariant(qint64(d)) : d < 0 ? QVariant() : QVariant(quint64(d));
    } else if (value.isString()) {
        bool ok = false;
        wide = kind.isSigned ? QVariant(value.toString().toLongLong(&ok))
                             : QVariant(value.toString().toULongLong(&ok));
        if (!ok)
            return std::nullopt;
    }
    if (!wide.isValid())
        return std::nullopt;
    QVariant narrow = wide;
    if (!narrow.convert(QMetaType(kind.typeId)))
        return std::nullopt;
    // A value that does not fit the kind comes back different.
    const bool fits = kind.isSigned ? narrow.toLongLong() == wide.toLongLong()
                                    : narrow.toULongLong() == wide.toULongLong();
    if (!fits)
        return std::nullopt;
    return narrow;
}

std::optional<QVariant> entryFromJson(const QString &type, const QJsonValue &value)
{
    if (type == u"Empty")
        return QVariant();
    if (type == u"Null")
        return QVariant::fromValue(nullptr);
    if (type == u"Boolean")
        return value.isBool() ? std::optional<QVariant>(value.toBool()) : std::nullopt;
    if (const IntegerKind *k = integerKindNamed(type))
        return integerFromJson(*k, value);
    if (type == u"Single" || type == u"Double" || type == u"Date") {
        const std::optional<double> d = realFromJson(value);
        if (!d)
            return std::nullopt;
        if (type == u"Single")
            return QVariant(float(*d));
        if (type == u"Date")
            return QVariant::fromValue(Date(*d));
        return QVariant(*d);
    }
    if (!value.isString() && type != u"OleColor")
        return std::nullopt;
    const QString text = value.toString();
    if (type == u"String")
        return QVariant(text);
    if (type == u"Currency") {
        try {
            return QVariant::fromValue(Currency::parse(text, QLocale::c()));
        } catch (const Error &) {
            return std::nullopt;
        }
    }
    if (type == u"Decimal") {
        const std::optional<Decimal> d = decimalFromText(text);
        return d ? std::optional<QVariant>(QVariant::fromValue(*d)) : std::nullopt;
    }
    if (type == u"OleColor") {
        const double d = value.toDouble(-1);
        if (!value.isDouble() || d < 0 || d > 4294967295.0 || d != std::trunc(d))
            return std::nullopt;
        return QVariant::fromValue(OleColor(std::uint32_t(d)));
    }
    if (type == u"Font") {
        QFont font;
        if (!font.fromString(text))
            return std::nullopt;
        return QVariant(font);
    }
    if (type == u"Picture" || type == u"Image") {
        const std::optional<QImage> image = imageFromBase64(text);
        if (!image)
            return std::nullopt;
        if (type == u"Image")
            return QVariant(*image);
        return QVariant(image->isNull() ? QPixmap() : QPixmap::fromImage(*image));
    }
    if (type == u"Variant") {
        const QByteArray bytes = QByteArray::fromBase64(text.toLatin1());
        QDataStream in(bytes);
        in.setVersion(StreamVersion);
        QVariant v;
        in >> v;
        if (in.status() != QDataStream::Ok || !v.isValid())
            return std::nullopt;
        return v;
    }
    return std::nullopt;
}

} // namespace

QVariant PropertyBag::ReadProperty(const QString &key, const QVariant &defaultValue) const
{
    m_readLog.append(key);
    for (const Entry &e : m_entries) {
        if (e.key == key)
            return e.value;
    }
    return defaultValue;
}

void PropertyBag::WriteProperty(const QString &key, const QVariant &value, const QVariant &defaultValue)
{
    m_writeLog.append(key);
    const auto it = std::find_if(m_entries.begin(), m_entries.end(),
                                 [&](const Entry &e) { return e.key == key; });
    if (sameValue(value, defaultValue)) {
        // Reading gives the default back; an older stored value would contradict it.
        if (it != m_entries.end())
            m_entries.erase(it);
        return;
    }
    if (it != m_entries.end())
        it->value = value;
    else
        m_entries.append({key, value});
}

bool PropertyBag::contains(const QString &key) const
{
    return std::any_of(m_entries.begin(), m_entries.end(), [&](const Entry &e) { return e.key == key; });
}

QStringList PropertyBag::keys() const
{
    QStringList result;
    result.reserve(m_entries.size());
    for (const Entry &e : m_entries)
        result.append(e.key);
    return result;
}

void PropertyBag::clear()
{
    m_entries.clear();
    m_readLog.clear();
    m_writeLog.clear();
}

QJsonArray PropertyBag::toJson() const
{
    QJsonArray array;
    for (const Entry &e : m_entries)
        array.append(entryToJson(e.key, e.value));
    return array;
}

PropertyBag PropertyBag::fromJson(const QJsonArray &json)
{
    PropertyBag bag;
    for (const QJsonValue &item : json) {
        const QJsonObject o = item.toObject();
        const QJsonValue key = o.value(u"key");
        if (!key.isString())
            continue;
        // An entry that cannot be read is left out; the rest of the bag still loads.
        const std::optional<QVariant> value = entryFromJson(o.value(u"type").toString(), o.value(u"value"));
        if (!value)
            continue;
        const auto it = std::find_if(bag.m_entries.begin(), bag.m_entries.end(),
                                     [&](const Entry &e) { return e.key == key.toString(); });
        if (it != bag.m_entries.end())
            it->value = *value;
        else
            bag.m_entries.append({key.toString(), *value});
    }
    return bag;
}

QByteArray PropertyBag::toJsonText() const
{
    return QJsonDocument(toJson()).toJson(QJsonDocument::Indented);
}

PropertyBag PropertyBag::fromJsonText(const QByteArray &text)
{
    QJsonParseError error{};
    const QJsonDocument doc = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError || !doc.isArray())
        return {};
    return fromJson(doc.array());
}

bool PropertyBag::sameValue(const QVariant &a, const QVariant &b)
{
    const Kind ka = kindOf(a);
    const Kind kb = kindOf(b);
    if (isNoPicture(a, ka) && isNoPicture(b, kb))
        return true;
    if (ka == Kind::Empty || kb == Kind::Empty || ka == Kind::Null || kb == Kind::Null)
        return ka == kb;
    const bool pictureA = ka == Kind::Pixmap || ka == Kind::Image;
    const bool pictureB = kb == Kind::Pixmap || kb == Kind::Image;
    if (pictureA || pictureB)
        return pictureA && pictureB && samePixels(pictureOf(a, ka), pictureOf(b, kb));
    if (ka == Kind::Font || kb == Kind::Font)
        return ka == kb && a.value<QFont>().toString() == b.value<QFont>().toString();
    if (isNumberKind(ka) || isNumberKind(kb)) {
        if (!isNumberKind(ka) || !isNumberKind(kb))
            return false;
        try {
            return sameNumber(numberOf(a, ka), numberOf(b, kb));
        } catch (const Error &) {
            return false;
        }
    }
    if (ka != kb)
        return false;
    if (ka == Kind::String)
        return a.toString() == b.toString();
    return a == b;
}

} // namespace Tarnwell
