#include <tarnwell/xgeneralmb.h>

namespace Tarnwell {

xGeneralMB::xGeneralMB(QWidget *parent)
    : PropertyPage(QStringLiteral("General"), parent)
{
}

xGeneralMB::~xGeneralMB() = default;

void xGeneralMB::fill(QObject *)
{
}

void xGeneralMB::apply(QObject *)
{
}

} // namespace Tarnwell
