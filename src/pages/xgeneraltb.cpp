#include <tarnwell/xgeneraltb.h>

namespace Tarnwell {

xGeneralTB::xGeneralTB(QWidget *parent)
    : PropertyPage(QStringLiteral("General"), parent)
{
}

xGeneralTB::~xGeneralTB() = default;

void xGeneralTB::fill(QObject *)
{
}

void xGeneralTB::apply(QObject *)
{
}

} // namespace Tarnwell
