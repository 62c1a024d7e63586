#pragma once
// What every test executable shares: readable failure output, the error-number checks, names for
// the rows of parameterised tables, the pinned locales, a snapshot of an object's properties and,
// for the widget suites, a fixture that puts widgets on a shown, active window.
#include <tarnwell/error.h>
#include <tarnwell/olecolor.h>
#include <tarnwell/variant.h>

#include <gtest/gtest.h>

#include <QColor>
#include <QLocale>
#include <QMetaProperty>
#include <QPixmap>
#include <QRect>
#include <QVariant>

#include <climits>
#include <concepts>
#include <string>
#include <string_view>

#ifndef TARNWELL_TEST_WITHOUT_WIDGETS
#include <tarnwell/clock.h>

#include <QApplication>
#include <QTest>

#include <memory>
#endif

// Printers. Templates, so that a suite's own printer for one of these types (an exact match) wins
// instead of clashing.
template<std::same_as<QString> T>
void PrintTo(const T &s, std::ostream *os) { *os << '"' << s.toStdString() << '"'; }
template<std::same_as<QColor> T>
void PrintTo(const T &c, std::ostream *os) { *os << "QColor(" << c.name(QColor::HexArgb).toStdString() << ')'; }
template<std::same_as<QRect> T>
void PrintTo(const T &r, std::ostream *os)
{
    *os << "QRect(" << r.x() << ',' << r.y() << ' ' << r.width() << 'x' << r.height() << ')';
}
namespace Tarnwell {
template<std::same_as<OleColor> T>
void PrintTo(const T &c, std::ostream *os) { *os << "OleColor(0x" << std::hex << c.value() << std::dec << ')'; }
} // namespace Tarnwell

// The kind and the value, so that a value that changed kind but not text shows.
template<std::same_as<QVariant> T>
void PrintTo(const T &value, std::ostream *os)
{
    const QVariant &v = value;
    if (!v.isValid()) {
        *os << "Empty";
        return;
    }
    *os << v.metaType().name() << '(';
    if (v.metaType() == QMetaType::fromType<Tarnwell::OleColor>())
        Tarnwell::PrintTo(v.value<Tarnwell::OleColor>(), os);
    else if (v.metaType() == QMetaType::fromType<QPixmap>())
        *os << v.value<QPixmap>().width() << 'x' << v.value<QPixmap>().height() << " #" << v.value<QPixmap>().cacheKey();
    else
        *os << v.toString().toStdString();
    *os << ')';
}

namespace TestSupport {

// The test main pins the default locale to enUS; tables name the others they need.
inline const QLocale enUS(QLocale::English, QLocale::UnitedStates);
inline const QLocale deDE(QLocale::German, QLocale::Germany);
inline const QLocale frFR(QLocale::French, QLocale::France);

// The error number `call` throws, 0 when it returns.
int errorOf(auto &&call)
{
    try {
        call();
    } catch (const Tarnwell::Error &e) {
        return e.number();
    }
    return 0;
}

// Expects `call` to throw error `error`, or, when `error` is 0, to return `expected`.
template<typename Expected>
void expectOutcome(auto &&call, int error, const Expected &expected)
{
    decltype(call()) value{};
    EXPECT_EQ(errorOf([&] { value = call(); }), error);
    if (!error) {
        EXPECT_EQ(value, expected);
    }
}

// Names a parameterised test's row after its `name`, made the one CamelCase word a test name
// must be ("typing over everything" becomes TypingOverEverything).
inline constexpr auto rowName = [](const auto &info) {
    std::string out;
    bool wordStart = true;
    for (const char c : std::string_view(info.param.name)) {
        const bool alnum = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (alnum || c == '_')
            out += wordStart && c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c;
        wordStart = !alnum && c != '_';
    }
    return out;
};

// Values outside every enumeration property's constants, each with a name for its row.
inline const std::pair<const char *, int> badEnumValues[] = {
    {"Minus1", -1}, {"Is255", 255}, {"Is1000", 1000}, {"IntMin", INT_MIN}};

// Every readable property of an object, one "name=kind(value)" line each: a refused call must
// leave this unchanged (a failure shows the lines that differ).
inline std::string propertiesOf(const QObject &object)
{
    std::string lines;
    const QMetaObject *meta = object.metaObject();
    for (int i = QObject::staticMetaObject.propertyCount(); i < meta->propertyCount(); ++i) {
        const QMetaProperty property = meta->property(i);
        if (property.isReadable())
            lines += std::string(property.name()) + '=' + ::testing::PrintToString(property.read(&object)) + '\n';
    }
    return lines;
}

// A value with its storage type as one text: "short:255", "Currency:0.3", "Empty".
inline QString describe(const QVariant &v)
{
    if (!v.isValid())
        return QStringLiteral("Empty");
    return QString::fromLatin1(v.metaType().name()).remove(QStringLiteral("Tarnwell::")) + u':' +
           Tarnwell::Variant::toString(v, QLocale::c());
}

} // namespace TestSupport

// Expects `statement` to throw Tarnwell::Error `number` (0: to throw nothing).
#define EXPECT_ERROR(statement, number)                                                            \
    EXPECT_EQ(::TestSupport::errorOf([&] { statement; }), (number)) << "from: " #statement

#ifndef TARNWELL_TEST_WITHOUT_WIDGETS

// A top-level window for the test's widgets, shown and activated on demand, so that key events
// sent through QTest reach the focused widget as they would on a real form.
class WidgetFixture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        window = std::make_unique<QWidget>();
        window->resize(320, 200);
    }
    void TearDown() override { window.reset(); }

    // Shows the window and gives `target` the keyboard focus.
    void showAndFocus(QWidget *target)
    {
        window->show();
        window->activateWindow();
        QApplication::setActiveWindow(window.get());
        (void)QTest::qWaitForWindowExposed(window.get());
        target->setFocus(Qt::OtherFocusReason);
        QApplication::processEvents();
    }

    std::unique_ptr<QWidget> window;
};

// The widget fixture with the clock standing at 15 May 2024 09:30, so that "today" moves no test.
class PinnedClockFixture : public WidgetFixture
{
protected:
    void SetUp() override
    {
        WidgetFixture::SetUp();
        Tarnwell::Clock::pin(QDateTime(QDate(2024, 5, 15), QTime(9, 30)));
    }
    void TearDown() override
    {
        WidgetFixture::TearDown();
        Tarnwell::Clock::unpin();
    }
};

#endif
