#pragma once

#include "kvcore_global.h"

#include <QString>

namespace coagulation {

// An analyser workbench of the laboratory (row of the QC database's "workbench" table).
class KVCORE_EXPORT Workbench
{
public:
    Workbench() = default;
    Workbench(int id, const QString& name) : m_id(id), m_name(name) {}

    int id() const { return m_id; }
    void setId(int id) { m_id = id; }
    QString name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }

private:
    int m_id = 0;
    QString m_name;
};

} // namespace coagulation
