#pragma once

#include <QMessageLogger>
#include <QSqlError>

#include <cstring>

namespace coagulation {

// A source file's path from the library's folder on ("report/x.cpp"): where the build ran is no
// business of whoever reads the log.
inline const char* librarySourcePath(const char* file)
{
    const char* path = file;
    for (const char* at = std::strstr(file, "report/"); at; at = std::strstr(at + 1, "report/"))
        path = at;
    return path;
}

} // namespace coagulation

// SQL failures never stop a print job; they are logged with where they happened.
#define REPORT_SQL_WARNING(error)                                                                            \
    QMessageLogger(coagulation::librarySourcePath(__FILE__), __LINE__, Q_FUNC_INFO)                          \
        .warning("%s:%d: %s", coagulation::librarySourcePath(__FILE__), __LINE__, qPrintable((error).text()))
