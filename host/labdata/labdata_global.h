#pragma once

#include <QtCore/qglobal.h>

#if defined(COAGULATION_LABDATA_LIBRARY)
#define LABDATA_EXPORT Q_DECL_EXPORT
#else
#define LABDATA_EXPORT Q_DECL_IMPORT
#endif
