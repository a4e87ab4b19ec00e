#pragma once

#include <QMessageLogger>
#include <QSqlError>

namespace coagulation::detail {

// A source file's path from the top of the source tree ("report/reportdata.cpp"), whether the
// compiler was given it absolute, relative to a build folder or through a cache's rewriting:
// users never see where the library happened to be built.
constexpr const char* sourcePath(const char* file)
{
    const char* found = file;
    for (const char* p = file; *p; ++p) {
        const bool atComponent = p == file || p[-1] == '/' || p[-1] == '\\';
        if (atComponent && p[0] == 'r' && p[1] == 'e' && p[2] == 'p' && p[3] == 'o' && p[4] == 'r' &&
            p[5] == 't' && (p[6] == '/' || p[6] == '\\'))
            found = p;
    }
    return found;
}

} // namespace coagulation::detail

// SQL failures never stop a print job; they are logged with where they happened.
#define REPORT_SQL_WARNING(error)                                                                            \
    QMessageLogger(coagulation::detail::sourcePath(__FILE__), __LINE__, Q_FUNC_INFO)                         \
        .warning("%s:%d: %s", coagulation::detail::sourcePath(__FILE__), __LINE__,                           \
                 qPrintable((error).text()))
