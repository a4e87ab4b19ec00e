#pragma once

#include <QtCore/qglobal.h>

#if defined(COAGULATION_REPORT_LIBRARY)
#define REPORT_EXPORT Q_DECL_EXPORT
#else
#define REPORT_EXPORT Q_DECL_IMPORT
#endif
