#pragma once
// Helpers for tables whose rows either give a result or name the error number a call must throw.
#include <tarnwell/error.h>

#include <gtest/gtest.h>

#include <QLocale>

#include <string>

namespace TestSupport {

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

// Names a parameterised test after its row's `name`.
inline constexpr auto rowName = [](const auto &info) { return std::string(info.param.name); };

} // namespace TestSupport
