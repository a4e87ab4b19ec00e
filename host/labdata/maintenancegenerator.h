#pragma once

#include "labrandom.h"

#include <QDate>
#include <QSqlDatabase>
#include <QStringList>

namespace coagulation {

// Fills the QC database's "workbench" and "maintenanceRecord" tables: two coagulation analysers
// whose daily tasks are done on most days, weekly tasks on Mondays and monthly tasks on the first
// Saturday of a month, from the first day of the earliest month up to the last day.
class MaintenanceGenerator
{
public:
    MaintenanceGenerator(quint32 seed, const QDate& lastDay, const QStringList& staff);

    bool write(QSqlDatabase db, int months);
    QString errorString() const { return m_errorString; }

    // The task names of a record type, in the order they are done.
    static QStringList tasks(int recordType);

private:
    LabRandom m_random;
    QDate m_lastDay;
    QStringList m_staff;
    QString m_errorString;
};

} // namespace coagulation
