#pragma once

#include <QtCore/qglobal.h>

#if defined(COAGULATION_KVCORE_LIBRARY)
#define KVCORE_EXPORT Q_DECL_EXPORT
#else
#define KVCORE_EXPORT Q_DECL_IMPORT
#endif
