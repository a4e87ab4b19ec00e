#pragma once

#include "assayitem.h"
#include "assaytemplate.h"
#include "kvcore_global.h"
#include "qcexportdata.h"

#include <memory>
#include <optional>

namespace coagulation {

// Owns a QcExportData together with the assay template and item it points to. Neither copyable
// nor movable, so the data's pointers always point into this object.
class KVCORE_EXPORT QcSeries
{
public:
    QcSeries() = default;
    QcSeries(const QcSeries&) = delete;
    QcSeries& operator=(const QcSeries&) = delete;

    QcExportData* data() { return &m_data; }
    const QcExportData* data() const { return &m_data; }

    // Replace the owned assay template or item (or drop it with std::nullopt) and repoint the data.
    void setAssayTemplate(const std::optional<AssayTemplate>& assayTemplate);
    void setAssayItem(const std::optional<AssayItem>& assayItem);

private:
    QcExportData m_data;
    std::unique_ptr<AssayTemplate> m_assayTemplate;
    std::unique_ptr<AssayItem> m_assayItem;
};

} // namespace coagulation
