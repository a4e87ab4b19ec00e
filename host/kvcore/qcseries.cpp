#include "qcseries.h"

namespace coagulation {

void QcSeries::setAssayTemplate(const std::optional<AssayTemplate>& assayTemplate)
{
    m_assayTemplate = assayTemplate ? std::make_unique<AssayTemplate>(*assayTemplate) : nullptr;
    m_data.assayTemplate = m_assayTemplate.get();
}

void QcSeries::setAssayItem(const std::optional<AssayItem>& assayItem)
{
    m_assayItem = assayItem ? std::make_unique<AssayItem>(*assayItem) : nullptr;
    m_data.assayItem = m_assayItem.get();
}

} // namespace coagulation
