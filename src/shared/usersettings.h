#pragma once
#include <QString>

// The per-user settings the controls use, read through the settings reader once per process
// and again only when the store reports a change, another store is put in place or the
// application takes another style (whose buttons stand in for a missing ScrollWidth), so that
// creating a control reads no file.
namespace Tarnwell::UserSettings {

// The up-down and drop-down buttons' width in twips: the window metrics' ScrollWidth made
// positive (0 when it is not a number).
int scrollWidthTwips();
// The regional digits after the decimal point, as the texts the reader returns ("" unset).
QString numberDigits();
QString currencyDigits();

} // namespace Tarnwell::UserSettings
