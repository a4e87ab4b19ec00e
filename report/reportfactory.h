#pragma once

#include "report_global.h"

#include <kvcore/datastoragefactoryinterface.h>

#include <QObject>

namespace coagulation {

// The plug-in object: the host finds it by interface id and asks it for printers.
class REPORT_EXPORT ReportFactory : public QObject, public DataStorageFactoryInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "velra.kv.dataStorageFactoryInterface")
    Q_INTERFACES(coagulation::DataStorageFactoryInterface)
public:
    explicit ReportFactory(QObject* parent = nullptr);

    // A new ReportPrinter owned by the caller; it needs a workspace before it can print.
    DataStorage* create() override;
};

} // namespace coagulation
