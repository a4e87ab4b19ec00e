#pragma once

#include <QMessageLogger>
#include <QSqlError>

// SQL failures never stop a print job; they are logged with where they happened.
#define REPORT_SQL_WARNING(error)                                                                            \
    QMessageLogger(__FILE__, __LINE__, Q_FUNC_INFO)                                                          \
        .warning("%s:%d: %s", __FILE__, __LINE__, qPrintable((error).text()))
