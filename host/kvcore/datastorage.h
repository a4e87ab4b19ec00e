#pragma once

#include "kvcore_global.h"
#include "maintenanceexportdata.h"
#include "qcexportdata.h"
#include "reporttype.h"

#include <QList>
#include <QObject>
#include <QSqlDatabase>
#include <QString>

namespace coagulation {

class Workspace;

// A back-end to which the host hands what it stores or prints: a month of maintenance records,
// QC series, or patients' results. The report module's printer is one.
class KVCORE_EXPORT DataStorage : public QObject
{
    Q_OBJECT
public:
    // How a store call reaches its destination.
    enum StoreMode : int {
        StoreAtOnce = 0,     // with the back-end's defaults, asking nothing
        StoreWithDialog = 1, // after a dialog that the user may cancel
        StorePreview = 2,    // after showing what would be stored
    };
    Q_ENUM(StoreMode)

    explicit DataStorage(QObject* parent = nullptr);
    ~DataStorage() override;

public Q_SLOTS:
    virtual void setWorkspace(coagulation::Workspace* workspace) = 0;
    // Base names of the templates of one report type in a directory.
    virtual QList<QString> enumTemplate(const QString& directory, coagulation::kv::ReportType type) = 0;
    // The data handed in is borrowed for the length of the call.
    virtual bool store(const coagulation::MaintenanceExportData* data,
                       coagulation::DataStorage::StoreMode mode) = 0;
    virtual bool store(const QList<coagulation::QcExportData*>& data,
                       coagulation::DataStorage::StoreMode mode) = 0;
    virtual bool store(const QList<qint64>& patientIds, QSqlDatabase database,
                       coagulation::DataStorage::StoreMode mode) = 0;
};

} // namespace coagulation
