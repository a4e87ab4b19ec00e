#pragma once

#include <QSqlDatabase>
#include <QString>

namespace coagulation {

// Writes AssayCatalogue into the configuration database's "assayTemplate" and "assayItem"
// tables; ids follow the catalogue's order from 1.
class AssayConfigWriter
{
public:
    bool write(QSqlDatabase db);
    QString errorString() const { return m_errorString; }

private:
    QString m_errorString;
};

} // namespace coagulation
