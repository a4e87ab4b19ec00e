#include "datastoragefactoryinterface.h"

namespace coagulation {

DataStorageFactoryInterface::~DataStorageFactoryInterface() = default;

} // namespace coagulation
