#include "assayitem.h"

namespace coagulation {

AssayItem::AssayItem(qint64 id, const QString& name, const QString& abbr, const QString& unit, int precision)
    : m_id(id), m_name(name), m_abbr(abbr), m_unit(unit), m_precision(precision)
{}

QString AssayItem::valueString(double value) const
{
    return QString::number(value, 'f', qBound(0, m_precision, 15));
}

} // namespace coagulation
