#pragma once
#include <QIcon>
#include <QString>

namespace Tarnwell {

// The widget-box icon of a control: a small sunken text box showing `glyph`, drawn at the sizes
// the widget box and the object inspector ask for.
QIcon controlIcon(const QString &glyph);

} // namespace Tarnwell
