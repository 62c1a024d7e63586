// Runs every public class of the installed library once, as an application would.
#include "consumer.h"

#include <tarnwell/error.h>

#include <QApplication>
#include <QWidget>

#include <cstdio>

namespace Consumer {

namespace {
int failures = 0;
}

void check(bool ok, const char *what)
{
    if (!ok) {
        ++failures;
        std::fprintf(stderr, "FAILED: %s\n", what);
    }
}

void checkError(int number, const char *what, void (*call)())
{
    try {
        call();
    } catch (const Tarnwell::Error &e) {
        check(e.number() == number, what);
        return;
    }
    check(false, what);
}

} // namespace Consumer

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QWidget form;
    form.resize(400, 300);
    try {
        Consumer::useValueTypes();
        Consumer::useControls(&form);
    } catch (const Tarnwell::Error &e) {
        Consumer::check(false, e.what()); // a call the checks did not expect to throw
    }
    std::printf("%s\n", Consumer::failures == 0 ? "consumer: every check passed" : "consumer: checks failed");
    return Consumer::failures == 0 ? 0 : 1;
}
