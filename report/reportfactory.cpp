#include "reportfactory.h"

#include "reportprinter.h"

namespace coagulation {

ReportFactory::ReportFactory(QObject* parent) : QObject(parent) {}

DataStorage* ReportFactory::create()
{
    return new ReportPrinter(nullptr);
}

} // namespace coagulation
