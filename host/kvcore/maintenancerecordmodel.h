#pragma once

#include "kvcore_global.h"
#include "maintenancemanager.h"
#include "maintenancerecord.h"

#include <QAbstractTableModel>
#include <QDate>
#include <QList>
#include <QStringList>

namespace coagulation {

class Workbench;

// One month of a workbench's maintenance of one record type, read from the QC database of the
// workbench's profile: a row per day with records, a column per task (the operator who did it,
// and the result when it was not fine), and a last column with the day's remarks.
class KVCORE_EXPORT MaintenanceRecordModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    enum Role { NotableResultRole = Qt::UserRole + 1 };

    MaintenanceRecordModel(Workbench* workbench, const QDate& month,
                           MaintenanceManager::RecordType recordType, QObject* parent = nullptr);

    Workbench* workbench() const { return m_workbench; }
    QDate month() const { return m_month; }
    MaintenanceManager::RecordType recordType() const { return m_recordType; }
    const QList<MaintenanceRecord>& records() const { return m_records; }

    // Reads the records of another workbench, month (any day of it) or record type.
    void updateInfo(Workbench* workbench, const QDate& month, MaintenanceManager::RecordType recordType);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    struct Cell
    {
        QStringList operators;
        QStringList notableResults;
    };

    void read();
    bool isRemarkColumn(int column) const { return column == m_tasks.size(); }

    Workbench* m_workbench; // borrowed
    QDate m_month;
    MaintenanceManager::RecordType m_recordType;
    QList<MaintenanceRecord> m_records;
    QList<QDate> m_days;
    QStringList m_tasks;
    QList<QList<Cell>> m_cells;   // [day][task]
    QList<QStringList> m_remarks; // [day]
};

} // namespace coagulation
