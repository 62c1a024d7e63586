#pragma once
#include <QtCore/qglobal.h>

#if defined(TARNWELL_BUILDING)
#define TARNWELL_EXPORT Q_DECL_EXPORT
#else
#define TARNWELL_EXPORT Q_DECL_IMPORT
#endif
