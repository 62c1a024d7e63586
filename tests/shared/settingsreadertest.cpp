// The settings reader's value-type rules over an injected store, and the per-user file store.
#include "shared/filesettingsstore.h"
#include "shared/memorysettingsstore.h"
#include "shared/settingsreader.h"

#include "common/testsupport.h"
#include "shared/stylepeers.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QStyle>
#include <QTemporaryDir>

using namespace Tarnwell;

namespace {

const QString intl = QStringLiteral("Control Panel\\International");
constexpr SettingsStore::Handle hkcu = SettingsReader::HKeyCurrentUser;

class InjectedStore : public ::testing::Test
{
protected:
    void SetUp() override { SettingsReader::setStore(&store); }
    void TearDown() override { SettingsReader::setStore(nullptr); }
    MemorySettingsStore store;
};

struct TypeRow { const char *name; int type; QByteArray data; QString expected; };
class ValueTypeRules : public InjectedStore, public ::testing::WithParamInterface<TypeRow> {};

TEST_P(ValueTypeRules, ReadsAsText)
{
    store.setValue(hkcu, intl, QStringLiteral("v"), GetParam().type, GetParam().data);
    const QVariant v = SettingsReader::getRegValue(hkcu, intl, QStringLiteral("v"));
    EXPECT_EQ(v.typeId(), QMetaType::QString);
    EXPECT_EQ(v.toString(), GetParam().expected);
    EXPECT_EQ(store.openKeyCount(), 0) << "the key must be closed again";
}

INSTANTIATE_TEST_SUITE_P(Types, ValueTypeRules, ::testing::Values(
    TypeRow{"SzUpToNul", SettingsStore::RegSz, QByteArray("2\0junk", 6), "2"},
    TypeRow{"SzWithoutNulWhole", SettingsStore::RegSz, QByteArray("-255"), "-255"},
    TypeRow{"SzEmpty", SettingsStore::RegSz, QByteArray("\0", 1), ""},
    TypeRow{"SzUtf8", SettingsStore::RegSz, QByteArray("\xe2\x82\xac\0", 4), QString(QChar(0x20AC))},
    TypeRow{"BinaryNegative", SettingsStore::RegBinary, QByteArray("\xF1\xFE", 2), "-271"},
    TypeRow{"BinaryFirstTwoBytesOnly", SettingsStore::RegBinary, QByteArray("\x10\x00\xff\xff", 4), "16"},
    TypeRow{"BinaryOneByteIsLowByte", SettingsStore::RegBinary, QByteArray("\xF5", 1), "245"},
    TypeRow{"BinaryEmptyIsZero", SettingsStore::RegBinary, QByteArray(), "0"},
    TypeRow{"DwordIgnored", SettingsStore::RegDword, QByteArray("\x02\0\0\0", 4), ""},
    TypeRow{"ExpandSzIgnored", SettingsStore::RegExpandSz, QByteArray("2\0", 2), ""}), TestSupport::rowName);

struct LookupRow { const char *name; SettingsStore::Handle root; QString key, value, expected; };
class Lookups : public InjectedStore, public ::testing::WithParamInterface<LookupRow> {};

// iDigits is "3"; reading iCurrDigits fails.
TEST_P(Lookups, EveryFailureIsEmptyText)
{
    store.setString(hkcu, intl, QStringLiteral("iDigits"), QStringLiteral("3"));
    store.setString(hkcu, intl, QStringLiteral("iCurrDigits"), QStringLiteral("2"));
    store.setFailingRead(hkcu, intl, QStringLiteral("iCurrDigits"));
    const LookupRow &row = GetParam();
    EXPECT_EQ(SettingsReader::getRegValue(row.root, row.key, row.value).toString(), row.expected);
    EXPECT_EQ(store.openKeyCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(Table, Lookups, ::testing::Values(
    LookupRow{"Present", hkcu, intl, "iDigits", "3"},
    LookupRow{"NamesIgnoreCase", hkcu, "control panel\\INTERNATIONAL", "IDIGITS", "3"},
    LookupRow{"MissingValue", hkcu, intl, "sDecimal", ""},
    LookupRow{"MissingKey", hkcu, "Control Panel\\Nowhere", "iDigits", ""},
    LookupRow{"OtherRoot", SettingsStore::LocalMachine, intl, "iDigits", ""},
    LookupRow{"NotARoot", 12345, intl, "iDigits", ""},
    LookupRow{"ReadFails", hkcu, intl, "iCurrDigits", ""}), TestSupport::rowName);

TEST_F(InjectedStore, AKeyNeverOpenedReadsNothing)
{
    store.setString(hkcu, intl, QStringLiteral("iDigits"), QStringLiteral("3"));
    EXPECT_EQ(SettingsReader::readRegValue(0, QStringLiteral("iDigits")), QString());
}

TEST(FileSettingsStore, ReadsTypedValuesAndReportsScrollWidth)
{
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    FileSettingsStore file(dir.filePath(QStringLiteral("settings.ini")));
    SettingsReader::setStore(&file);

    const QString metrics = QStringLiteral("Control Panel\\Desktop\\WindowMetrics");
    QDoubleSpinBox spin;
    const int extent = Peers::upButtonRect(spin).width();
    EXPECT_EQ(SettingsReader::getRegValue(hkcu, metrics, QStringLiteral("ScrollWidth")).toString(),
              QString::number(-extent * 15))
        << "no file: the width of a spin box's buttons in negative twips";

    file.setValue(hkcu, intl, QStringLiteral("iDigits"), SettingsStore::RegSz, QByteArray("3\0", 2));
    file.setValue(hkcu, intl, QStringLiteral("sList"), SettingsStore::RegSz, QByteArray("a, b\0", 5));
    file.setValue(hkcu, intl, QStringLiteral("Bin"), SettingsStore::RegBinary, QByteArray("\xF1\xFE", 2));
    file.setValue(hkcu, intl, QStringLiteral("Dw"), SettingsStore::RegDword, QByteArray("\x07\0\0\0", 4));
    file.setValue(hkcu, metrics, QStringLiteral("ScrollWidth"), SettingsStore::RegSz, QByteArray("-300\0", 5));

    FileSettingsStore reread(file.fileName()); // what another process would see
    SettingsReader::setStore(&reread);
    EXPECT_EQ(SettingsReader::getRegValue(hkcu, intl, QStringLiteral("idigits")).toString(), "3");
    EXPECT_EQ(SettingsReader::getRegValue(hkcu, intl, QStringLiteral("sList")).toString(), "a, b");
    EXPECT_EQ(SettingsReader::getRegValue(hkcu, intl, QStringLiteral("Bin")).toString(), "-271");
    EXPECT_EQ(SettingsReader::getRegValue(hkcu, intl, QStringLiteral("Dw")).toString(), "");
    EXPECT_EQ(SettingsReader::getRegValue(hkcu, metrics, QStringLiteral("ScrollWidth")).toString(), "-300");
    SettingsReader::setStore(nullptr);
}

} // namespace
