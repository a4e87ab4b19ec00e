#include "datastorage.h"

namespace coagulation {

DataStorage::DataStorage(QObject* parent) : QObject(parent) {}

DataStorage::~DataStorage() = default;

} // namespace coagulation
