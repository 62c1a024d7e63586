#pragma once
// The consumer's own tally: every check that fails is printed and counted; main() exits non-zero
// when any did.
#include <QString>

class QWidget;

namespace Consumer {

void check(bool ok, const char *what);
// `call` must throw Tarnwell::Error with `number`, caught here across the library boundary.
void checkError(int number, const char *what, void (*call)());

void useValueTypes();
void useControls(QWidget *form);

} // namespace Consumer
