#include <tarnwell/xgeneralnb.h>

namespace Tarnwell {

xGeneralNB::xGeneralNB(QWidget *parent)
    : PropertyPage(QStringLiteral("General"), parent)
{
}

xGeneralNB::~xGeneralNB() = default;

void xGeneralNB::fill(QObject *)
{
}

void xGeneralNB::apply(QObject *)
{
}

} // namespace Tarnwell
