#include "common/testsupport.h"
#include <tarnwell/currency.h>
#include <tarnwell/date.h>
#include <tarnwell/decimal.h>
#include <tarnwell/olecolor.h>
#include <tarnwell/propertybag.h>

#include <QFont>
#include <QImage>
#include <QPixmap>

#include <bit>
#include <cmath>
#include <functional>
#include <limits>

using Tarnwell::PropertyBag;

namespace {

QImage sampleImage()
{
    QImage image(4, 3, QImage::Format_ARGB32);
    for (int y = 0; y < 3; ++y) {
        for (int x = 0; x < 4; ++x)
            image.setPixel(x, y, qRgba(x * 60, y * 100, 17, x == 3 ? 0 : 255));
    }
    return image;
}

QFont sampleFont()
{
    QFont font(u"DejaVu Sans"_qs, 11);
    font.setBold(true);
    font.setUnderline(true);
    return font;
}

struct KindCase { const char *name; std::function<QVariant()> make; };
class PropertyBagKinds : public testing::TestWithParam<KindCase> {};

// Every kind goes through JSON text and comes back as the same kind and value.
TEST_P(PropertyBagKinds, SurviveJsonText)
{
    const QVariant original = GetParam().make();
    PropertyBag bag;
    bag.WriteProperty(u"P"_qs, original, QString(u"\u0001sentinel"_qs));
    ASSERT_TRUE(bag.contains(u"P"_qs));
    const QByteArray text = bag.toJsonText();
    const PropertyBag back = PropertyBag::fromJsonText(text);
    ASSERT_EQ(back.keys(), QStringList{u"P"_qs}) << text.toStdString();
    const QVariant read = back.ReadProperty(u"P"_qs, u"absent"_qs);
    EXPECT_EQ(read.isValid(), original.isValid());
    EXPECT_EQ(read.metaType(), original.metaType()) << read.metaType().name();
    EXPECT_TRUE(PropertyBag::sameValue(read, original)) << text.toStdString();
    if (original.metaType() == QMetaType::fromType<double>() || original.metaType() == QMetaType::fromType<float>()) {
        EXPECT_EQ(std::bit_cast<quint64>(read.toDouble()), std::bit_cast<quint64>(original.toDouble()))
            << text.toStdString();
    }
    if (original.metaType() == QMetaType::fromType<Tarnwell::Decimal>()) {
        EXPECT_EQ(read.value<Tarnwell::Decimal>().scale(), original.value<Tarnwell::Decimal>().scale());
    }
    if (original.metaType() == QMetaType::fromType<QFont>()) {
        EXPECT_EQ(read.value<QFont>(), original.value<QFont>());
    }
}

using Tarnwell::Currency;
using Tarnwell::Date;
using Tarnwell::Decimal;
using Tarnwell::OleColor;

INSTANTIATE_TEST_SUITE_P(Table, PropertyBagKinds, testing::Values(
    KindCase{"Empty", [] { return QVariant(); }},
    KindCase{"Null", [] { return QVariant::fromValue(nullptr); }},
    KindCase{"True", [] { return QVariant(true); }},
    KindCase{"False", [] { return QVariant(false); }},
    KindCase{"Integer", [] { return QVariant(qint16(-32768)); }},
    KindCase{"Long", [] { return QVariant(qint32(2147483647)); }},
    KindCase{"Single", [] { return QVariant(0.1f); }},
    KindCase{"Double", [] { return QVariant(2.675); }},
    KindCase{"NegativeZero", [] { return QVariant(-0.0); }},
    KindCase{"Infinity", [] { return QVariant(-std::numeric_limits<double>::infinity()); }},
    KindCase{"NaN", [] { return QVariant(std::numeric_limits<double>::quiet_NaN()); }},
    KindCase{"String", [] { return QVariant(u"h\u00e9llo \"quoted\"\n\\"_qs); }},
    KindCase{"EmptyString", [] { return QVariant(QString()); }},
    KindCase{"Currency", [] { return QVariant::fromValue(Currency::fromRaw(123456)); }},
    KindCase{"CurrencyMin", [] { return QVariant::fromValue(Currency::min()); }},
    KindCase{"DecimalTrailingZeros", [] { return QVariant::fromValue(Decimal::fromParts(1500, 0, 0, 3, false)); }},
    KindCase{"DecimalMax", [] { return QVariant::fromValue(Decimal::fromParts(~0u, ~0u, ~0u, 0, true)); }},
    KindCase{"Date", [] { return QVariant::fromValue(Date(-1.25)); }},
    KindCase{"DateUpper", [] { return QVariant::fromValue(Date(Date::MaxSerial + 0.5)); }},
    KindCase{"DateFirstDayEvening", [] { return QVariant::fromValue(Date(Date::MinSerial - 0.75)); }},
    KindCase{"SystemColour", [] { return QVariant::fromValue(OleColor(OleColor::GrayText)); }},
    KindCase{"RgbColour", [] { return QVariant::fromValue(OleColor(0x8080FF)); }},
    KindCase{"Font", [] { return QVariant(sampleFont()); }},
    KindCase{"Picture", [] { return QVariant(QPixmap::fromImage(sampleImage())); }},
    KindCase{"NullPicture", [] { return QVariant(QPixmap()); }},
    KindCase{"Image", [] { return QVariant(sampleImage()); }},
    KindCase{"Byte", [] { return QVariant::fromValue(quint8(200)); }},
    KindCase{"SByte", [] { return QVariant::fromValue(qint8(-5)); }},
    KindCase{"ULong", [] { return QVariant::fromValue(quint32(4000000000u)); }},
    KindCase{"LongLongBeyondDouble", [] { return QVariant::fromValue(qint64(-9007199254740993)); }},
    KindCase{"ULongLongMax", [] { return QVariant::fromValue(std::numeric_limits<quint64>::max()); }},
    KindCase{"CLong", [] { return QVariant::fromValue(long(-7)); }},
    KindCase{"OtherKind", [] { return QVariant(QStringList{u"a"_qs, u"b"_qs}); }}), TestSupport::rowName);

struct ElisionCase {
    const char *name;
    std::function<QVariant()> value;
    std::function<QVariant()> defaultValue;
    bool stored;
};
class PropertyBagDefaults : public testing::TestWithParam<ElisionCase> {};

TEST_P(PropertyBagDefaults, StoresOnlyWhatDiffersFromTheDefault)
{
    const ElisionCase &c = GetParam();
    PropertyBag bag;
    bag.WriteProperty(u"K"_qs, c.value(), c.defaultValue());
    EXPECT_EQ(bag.contains(u"K"_qs), c.stored);
    EXPECT_EQ(PropertyBag::sameValue(c.value(), c.defaultValue()), !c.stored);
    EXPECT_EQ(PropertyBag::sameValue(c.defaultValue(), c.value()), !c.stored) << "not symmetric";
}

QVariant v(auto x) { return QVariant::fromValue(x); }

INSTANTIATE_TEST_SUITE_P(Table, PropertyBagDefaults, testing::Values(
    ElisionCase{"IntegerEqualsLong", [] { return v(qint16(2)); }, [] { return v(qint32(2)); }, false},
    ElisionCase{"ColourEqualsLong", [] { return v(OleColor(2)); }, [] { return v(qint32(2)); }, false},
    ElisionCase{"SystemColourIsNotNegativeLong", [] { return v(OleColor(0x80000005)); },
                [] { return v(qint32(0x80000005u)); }, true},
    ElisionCase{"TrueIsMinusOne", [] { return v(true); }, [] { return v(qint16(-1)); }, false},
    ElisionCase{"TrueIsNotOne", [] { return v(true); }, [] { return v(qint16(1)); }, true},
    ElisionCase{"FalseDiffersFromTrue", [] { return v(false); }, [] { return v(true); }, true},
    ElisionCase{"SingleHalfEqualsDouble", [] { return v(0.5f); }, [] { return v(0.5); }, false},
    ElisionCase{"SingleTenthIsNotDoubleTenth", [] { return v(0.1f); }, [] { return v(0.1); }, true},
    ElisionCase{"CurrencyEqualsLong", [] { return v(Currency::fromRaw(10000)); }, [] { return v(qint32(1)); }, false},
    ElisionCase{"CurrencyFractionIsNotLong", [] { return v(Currency::fromRaw(10001)); }, [] { return v(qint32(1)); }, true},
    ElisionCase{"CurrencyEqualsDouble", [] { return v(Currency::fromRaw(15000)); }, [] { return v(1.5); }, false},
    ElisionCase{"DecimalEqualsCurrency", [] { return v(Decimal::fromParts(150, 0, 0, 2, false)); },
                [] { return v(Currency::fromRaw(15000)); }, false},
    ElisionCase{"DecimalEqualsULongLong", [] { return v(Decimal::fromParts(~0u, ~0u, 0, 0, false)); },
                [] { return v(std::numeric_limits<quint64>::max()); }, false},
    ElisionCase{"HugeUnsignedIsNotMinusOne", [] { return v(std::numeric_limits<quint64>::max()); },
                [] { return v(qint64(-1)); }, true},
    ElisionCase{"DateEqualsItsSerial", [] { return v(Date(45358)); }, [] { return v(45358.0); }, false},
    ElisionCase{"NumericTextIsNotANumber", [] { return v(u"1"_qs); }, [] { return v(qint16(1)); }, true},
    ElisionCase{"TextCaseMatters", [] { return v(u"a"_qs); }, [] { return v(u"A"_qs); }, true},
    ElisionCase{"EmptyTextIsNotEmpty", [] { return v(QString()); }, [] { return QVariant(); }, true},
    ElisionCase{"NullIsNotEmpty", [] { return v(nullptr); }, [] { return QVariant(); }, true},
    ElisionCase{"NullEqualsNull", [] { return v(nullptr); }, [] { return v(nullptr); }, false},
    ElisionCase{"EmptyEqualsEmpty", [] { return QVariant(); }, [] { return QVariant(); }, false},
    ElisionCase{"SameFont", [] { return v(sampleFont()); }, [] { return v(sampleFont()); }, false},
    ElisionCase{"FontSizeDiffers", [] {
                    QFont f = sampleFont();
                        f.setPointSize(12);
                        return v(f);
                    }, [] { return v(sampleFont()); }, true},
        ElisionCase{"NullPictureIsNone", [] { return v(QPixmap()); }, [] { return QVariant(); }, false},
        ElisionCase{"NullPicturesAlike", [] { return v(QPixmap()); }, [] { return v(QImage()); }, false},
        ElisionCase{"PictureIsSomething", [] { return v(QPixmap::fromImage(sampleImage())); }, [] { return QVariant(); }, true},
        ElisionCase{"PictureEqualsImageByPixels", [] { return v(QPixmap::fromImage(sampleImage())); },
                    [] { return v(sampleImage()); }, false},
        ElisionCase{"OnePixelDiffers", [] {
                        QImage i = sampleImage();
                        i.setPixel(0, 0, qRgb(1, 2, 3));
                        return v(i);
                    }, [] { return v(sampleImage()); }, true},
        ElisionCase{"PictureIsNotNumber", [] { return v(QPixmap()); }, [] { return v(qint32(0)); }, true}), TestSupport::rowName);

TEST(PropertyBagOrder, ReplacesInPlaceAndRemovesOnDefault)
{
    PropertyBag bag;
    bag.WriteProperty(u"A"_qs, 1, 0);
    bag.WriteProperty(u"B"_qs, 2, 0);
    bag.WriteProperty(u"C"_qs, 0, 0);
    bag.WriteProperty(u"A"_qs, 3, 0);
    EXPECT_EQ(bag.keys(), (QStringList{u"A"_qs, u"B"_qs}));
    EXPECT_EQ(bag.ReadProperty(u"A"_qs, 0).toInt(), 3);

    bag.WriteProperty(u"A"_qs, 0, 0); // back to the default: the old 3 must not be read
    EXPECT_EQ(bag.keys(), QStringList{u"B"_qs});
    EXPECT_EQ(bag.ReadProperty(u"A"_qs, 7).toInt(), 7);

    bag.WriteProperty(u"A"_qs, 5, 0);
    EXPECT_EQ(bag.keys(), (QStringList{u"B"_qs, u"A"_qs}));
    EXPECT_EQ(bag.writeLog(), (QStringList{u"A"_qs, u"B"_qs, u"C"_qs, u"A"_qs, u"A"_qs, u"A"_qs}));
    EXPECT_EQ(bag.readLog(), (QStringList{u"A"_qs, u"A"_qs}));
    EXPECT_EQ(PropertyBag::fromJsonText(bag.toJsonText()).keys(), (QStringList{u"B"_qs, u"A"_qs}));

    bag.clear();
    EXPECT_TRUE(bag.keys().isEmpty());
    EXPECT_TRUE(bag.writeLog().isEmpty());
}

struct DamageCase { const char *name; const char *text; QStringList keys; };
class PropertyBagJson : public testing::TestWithParam<DamageCase> {};

TEST_P(PropertyBagJson, DamagedInputLosesOnlyWhatIsDamaged)
{
    EXPECT_EQ(PropertyBag::fromJsonText(QByteArray(GetParam().text)).keys(), GetParam().keys);
}

INSTANTIATE_TEST_SUITE_P(Table, PropertyBagJson, testing::Values(
    DamageCase{"NotJson", "{{{", {}},
    DamageCase{"NotAnArray", "{\"key\":\"A\"}", {}},
    DamageCase{"Empty", "", {}},
    DamageCase{"UnknownType", R"([{"key":"A","type":"Bogus","value":1},{"key":"B","type":"Long","value":2}])", {u"B"_qs}},
    DamageCase{"IntegerOutOfRange", R"([{"key":"A","type":"Integer","value":40000}])", {}},
    DamageCase{"FractionalInteger", R"([{"key":"A","type":"Long","value":1.5}])", {}},
    DamageCase{"BadCurrency", R"([{"key":"A","type":"Currency","value":"12x"}])", {}},
    DamageCase{"DecimalTooLong", R"([{"key":"A","type":"Decimal","value":"79228162514264337593543950336"}])", {}},
    DamageCase{"BadPicture", R"([{"key":"A","type":"Picture","value":"bm90IGEgcG5n"}])", {}},
    DamageCase{"MissingKey", R"([{"type":"Long","value":2}])", {}},
    DamageCase{"DuplicateKeepsFirstPlace", R"([{"key":"A","type":"Long","value":1},{"key":"B","type":"Long","value":2},{"key":"A","type":"Long","value":3}])",
               {u"A"_qs, u"B"_qs}}), TestSupport::rowName);

TEST(PropertyBagJsonRepeatedKey, LastValueWins)
{
    const PropertyBag bag = PropertyBag::fromJsonText(
        R"([{"key":"A","type":"Long","value":1},{"key":"A","type":"Long","value":3}])");
    EXPECT_EQ(bag.ReadProperty(u"A"_qs).toInt(), 3);
}

} // namespace
