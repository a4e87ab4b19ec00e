#pragma once

#include "kvcore_global.h"

#include <QtPlugin>

namespace coagulation {

class DataStorage;

// What a storage plug-in offers the host: new back-ends, each owned by the caller.
class KVCORE_EXPORT DataStorageFactoryInterface
{
public:
    virtual ~DataStorageFactoryInterface();
    virtual DataStorage* create() = 0;
};

} // namespace coagulation

#define DataStorageFactoryInterface_iid "velra.kv.dataStorageFactoryInterface"
Q_DECLARE_INTERFACE(coagulation::DataStorageFactoryInterface, DataStorageFactoryInterface_iid)
