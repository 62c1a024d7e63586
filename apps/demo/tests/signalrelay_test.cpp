// The relay must read every argument as the type the signal declares (a short read as an int is
// garbage), see by-reference arguments as they stand when its turn comes, and never outlive a
// connection.
#include "signalrelay.h"

#include "common/testsupport.h"

#include <QLineEdit>
#include <QVariant>

#include <functional>
#include <memory>

namespace {

struct Opaque { int value = 0; };

class Emitter : public QObject
{
    Q_OBJECT
signals:
    void Click();
    void KeyDown(short &KeyCode, short &Shift);
    void keyPress(short &KeyAscii);
    void MouseDown(short &Button, short &Shift, float &X, float &Y);
    void MouseMove(short &Button, short &Shift, float &X, float &Y);
    void OLEGiveFeedback(int &Effect, bool &DefaultCursors);
    void OLEStartDrag(QObject *Data, int &AllowedEffects);
    void PropertyChanged(const QString &name);
    void ValueSet(const QVariant &value);
    void Measured(double value, qlonglong count);
    void Custom(Opaque *data);
};

using Emit = std::function<void(Emitter &)>;

struct RelayRow {
    const char *name;
    Emit raise;
    const char *expected; // nullptr: nothing is logged
};

const RelayRow relayRows[] = {
    {"NoArguments", [](Emitter &e) { emit e.Click(); }, "fld.Click()"},
    {"ShortReferences", [](Emitter &e) { short key = 65, shift = 1; emit e.KeyDown(key, shift); },
     "fld.KeyDown(65, 1)"},
    {"NegativeShort", [](Emitter &e) { short ascii = -32768; emit e.keyPress(ascii); }, "fld.keyPress(-32768)"},
    {"FloatsKeepFraction",
     [](Emitter &e) { short button = 1, shift = 0; float x = 150.5f, y = 30.0f; emit e.MouseDown(button, shift, x, y); },
     "fld.MouseDown(1, 0, 150.5, 30)"},
    {"MouseMoveMutedByDefaultRule",
     [](Emitter &e) { short button = 0, shift = 0; float x = 1, y = 2; emit e.MouseMove(button, shift, x, y); }, nullptr},
    {"IntAndBoolReferences", [](Emitter &e) { int effect = 3; bool cursors = true; emit e.OLEGiveFeedback(effect, cursors); },
     "fld.OLEGiveFeedback(3, true)"},
    {"ObjectByClassAndName",
     [](Emitter &e) {
         QObject data;
         data.setObjectName(QStringLiteral("payload"));
         int allowed = 1;
         emit e.OLEStartDrag(&data, allowed);
     },
     "fld.OLEStartDrag(QObject payload, 1)"},
    {"NullObject", [](Emitter &e) { int allowed = 0; emit e.OLEStartDrag(nullptr, allowed); }, "fld.OLEStartDrag(nullptr, 0)"},
    {"StringQuotedAndEscaped", [](Emitter &e) { emit e.PropertyChanged(QStringLiteral("a\"b\\c\nd")); },
     "fld.PropertyChanged(\"a\\\"b\\\\c\\x0ad\")"},
    {"EmptyVariant", [](Emitter &e) { emit e.ValueSet(QVariant()); }, "fld.ValueSet(Empty)"},
    {"NullVariant", [](Emitter &e) { emit e.ValueSet(QVariant::fromValue(nullptr)); }, "fld.ValueSet(Null)"},
    {"VariantOfShort", [](Emitter &e) { emit e.ValueSet(QVariant::fromValue(qint16(-7))); }, "fld.ValueSet(-7)"},
    {"VariantOfString", [](Emitter &e) { emit e.ValueSet(QStringLiteral("x")); }, "fld.ValueSet(\"x\")"},
    {"DoubleAndLongLong", [](Emitter &e) { emit e.Measured(0.1 + 0.2, 1LL << 40); }, "fld.Measured(0.3, 1099511627776)"},
};

// An emitter whose relayed lines are kept.
struct Relayed {
    Emitter emitter;
    QStringList lines;
    Tarnwell::Demo::SignalRelay relay{&emitter, QStringLiteral("fld"),
                                      [this](const QString &line) { lines.append(line); }};
};
class SignalRelayTable : public ::testing::TestWithParam<RelayRow> {};

TEST_P(SignalRelayTable, LogsOneLineAsRaised)
{
    Relayed r;
    r.relay.setMuted("MouseMove", true);
    GetParam().raise(r.emitter);
    if (GetParam().expected)
        EXPECT_EQ(r.lines, QStringList{QString::fromUtf8(GetParam().expected)});
    else
        EXPECT_TRUE(r.lines.isEmpty()) << r.lines.join(u'|').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Arguments, SignalRelayTable, ::testing::ValuesIn(relayRows), TestSupport::rowName);

TEST(SignalRelay, UnknownTypeShowsItsNameInsteadOfReadingIt)
{
    Relayed r;
    Opaque opaque;
    emit r.emitter.Custom(&opaque);
    ASSERT_EQ(r.lines.size(), 1);
    EXPECT_TRUE(r.lines[0].startsWith(QStringLiteral("fld.Custom(<"))) << r.lines[0].toStdString();
}

TEST(SignalRelay, SeesAHostChangeMadeBeforeItsTurn)
{
    Emitter emitter;
    QObject::connect(&emitter, &Emitter::keyPress, [](short &ascii) { ascii = 0; });
    QStringList lines;
    Tarnwell::Demo::SignalRelay relay(&emitter, QStringLiteral("fld"),
                                      [&](const QString &line) { lines.append(line); });
    short ascii = 'a';
    emit emitter.keyPress(ascii);
    EXPECT_EQ(lines, QStringList{QStringLiteral("fld.keyPress(0)")});
    EXPECT_EQ(ascii, 0);
}

TEST(SignalRelay, RelaysAWidgetsOwnSignalsOnly)
{
    QLineEdit edit;
    Tarnwell::Demo::SignalRelay relay(&edit, QStringLiteral("txt"), [](const QString &) {});
    const QList<QByteArray> relayed = relay.relayedSignals();
    EXPECT_TRUE(relayed.contains("textChanged"));
    EXPECT_TRUE(relayed.contains("returnPressed"));
    EXPECT_FALSE(relayed.contains("windowTitleChanged"));
    EXPECT_FALSE(relayed.contains("destroyed"));
}

TEST(SignalRelay, StopsWhenDestroyed)
{
    Emitter emitter;
    int calls = 0;
    auto relay = std::make_unique<Tarnwell::Demo::SignalRelay>(&emitter, QStringLiteral("fld"),
                                                               [&](const QString &) { ++calls; });
    emit emitter.Click();
    relay.reset();
    emit emitter.Click();
    EXPECT_EQ(calls, 1);
}

TEST(SignalRelay, NullSourceRelaysNothing)
{
    Tarnwell::Demo::SignalRelay relay(nullptr, QStringLiteral("none"), [](const QString &) {});
    EXPECT_TRUE(relay.relayedSignals().isEmpty());
}

} // namespace

#include "signalrelay_test.moc"
