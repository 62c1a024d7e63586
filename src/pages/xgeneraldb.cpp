#include <tarnwell/xgeneraldb.h>

namespace Tarnwell {

xGeneralDB::xGeneralDB(QWidget *parent)
    : PropertyPage(QStringLiteral("General"), parent)
{
}

xGeneralDB::~xGeneralDB() = default;

void xGeneralDB::fill(QObject *)
{
}

void xGeneralDB::apply(QObject *)
{
}

} // namespace Tarnwell
