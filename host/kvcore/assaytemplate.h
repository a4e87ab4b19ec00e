#pragma once

#include "kvcore_global.h"

#include <QString>

namespace coagulation {

// A test as configured on the analyser (row of the configuration table "assayTemplate"),
// e.g. "PT" or "APTT"; it groups the assay items that one measurement reports.
class KVCORE_EXPORT AssayTemplate
{
public:
    AssayTemplate() = default;
    AssayTemplate(qint64 id, const QString& name) : m_id(id), m_name(name) {}

    qint64 id() const { return m_id; }
    void setId(qint64 id) { m_id = id; }
    QString name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }

private:
    qint64 m_id = 0;
    QString m_name;
};

} // namespace coagulation
