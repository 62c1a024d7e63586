#include <tarnwell/xabout.h>

namespace Tarnwell {

xAbout::xAbout(QWidget *parent)
    : PropertyPage(QStringLiteral("About"), parent)
{
}

xAbout::~xAbout() = default;

void xAbout::fill(QObject *)
{
}

void xAbout::apply(QObject *)
{
}

} // namespace Tarnwell
