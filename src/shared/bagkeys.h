#pragma once
#include <QString>

// The names of every persisted property, spelled once. Each is both the property-bag key and the
// name a changed property is reported under (PropertyChanged).
namespace Tarnwell::BagKey {

// Common to every control.
inline const QString BackColor = QStringLiteral("BackColor");
inline const QString ForeColor = QStringLiteral("ForeColor");
inline const QString DisabledColor = QStringLiteral("DisabledColor");
inline const QString Enabled = QStringLiteral("Enabled");
inline const QString Font = QStringLiteral("Font");
inline const QString BorderStyle = QStringLiteral("BorderStyle");
inline const QString Alignment = QStringLiteral("Alignment");
inline const QString Locked = QStringLiteral("Locked");
inline const QString SelectTextOnFocus = QStringLiteral("SelectTextOnFocus");
inline const QString NullIfEmpty = QStringLiteral("NullIfEmpty");
inline const QString EnterAsTab = QStringLiteral("EnterAsTab");
inline const QString ToolTip = QStringLiteral("ToolTip");
inline const QString CheckBox = QStringLiteral("CheckBox");
inline const QString Checked = QStringLiteral("Checked");
inline const QString MouseIcon = QStringLiteral("MouseIcon");
inline const QString MousePointer = QStringLiteral("MousePointer");
inline const QString OLEDragMode = QStringLiteral("OLEDragMode");
inline const QString OLEDropMode = QStringLiteral("OLEDropMode");
// Reported changed, never stored.
inline const QString SelStart = QStringLiteral("SelStart");
inline const QString SelLength = QStringLiteral("SelLength");

// Values and ranges.
inline const QString Value = QStringLiteral("Value");
inline const QString Text = QStringLiteral("Text");
inline const QString Minimum = QStringLiteral("Minimum");
inline const QString Maximum = QStringLiteral("Maximum");

// MaskBox.
inline const QString Mask = QStringLiteral("Mask");
inline const QString CharCase = QStringLiteral("CharCase");
inline const QString PromptInclude = QStringLiteral("PromptInclude");

// NumberBox.
inline const QString DataType = QStringLiteral("DataType");
inline const QString Increment = QStringLiteral("Increment");
inline const QString DecimalPlaces = QStringLiteral("DecimalPlaces");
inline const QString ThousandSeparator = QStringLiteral("ThousandSeparator");
inline const QString CurrencySymbol = QStringLiteral("CurrencySymbol");
inline const QString ShowCurrencySymbol = QStringLiteral("ShowCurrencySymbol");
inline const QString NegativeColor = QStringLiteral("NegativeColor");
inline const QString NegativeDisabledColor = QStringLiteral("NegativeDisabledColor");
inline const QString UseNegativeColor = QStringLiteral("UseNegativeColor");

// Up-down stepping (NumberBox, DateBox, TimeBox).
inline const QString UpDown = QStringLiteral("UpDown");
inline const QString InterceptArrowKeys = QStringLiteral("InterceptArrowKeys");

// DateBox and TimeBox.
inline const QString Format = QStringLiteral("Format");
inline const QString Separator = QStringLiteral("Separator");
inline const QString DisplayFormat = QStringLiteral("DisplayFormat");
inline const QString CalendarBackColor = QStringLiteral("CalendarBackColor");
inline const QString CalendarForeColor = QStringLiteral("CalendarForeColor");
inline const QString CalendarTitleBackColor = QStringLiteral("CalendarTitleBackColor");
inline const QString CalendarTitleForeColor = QStringLiteral("CalendarTitleForeColor");
inline const QString CalendarTrailingForeColor = QStringLiteral("CalendarTrailingForeColor");
inline const QString CalendarFont = QStringLiteral("CalendarFont");

} // namespace Tarnwell::BagKey
