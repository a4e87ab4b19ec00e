#pragma once

#include "kvcore_global.h"

#include <QString>

namespace coagulation {

// One reported quantity of an assay template (row of the configuration table "assayItem"),
// e.g. the seconds of a PT ("PT-S", unit "s", one decimal).
class KVCORE_EXPORT AssayItem
{
public:
    AssayItem() = default;
    AssayItem(qint64 id, const QString& name, const QString& abbr, const QString& unit, int precision);

    qint64 id() const { return m_id; }
    void setId(qint64 id) { m_id = id; }
    QString name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }
    QString abbr() const { return m_abbr; }
    void setAbbr(const QString& abbr) { m_abbr = abbr; }
    QString unit() const { return m_unit; }
    void setUnit(const QString& unit) { m_unit = unit; }
    int precision() const { return m_precision; }
    void setPrecision(int precision) { m_precision = precision; }

    // The value in fixed notation with the item's number of decimals (a negative precision counts
    // as 0, more than 15 as 15).
    QString valueString(double value) const;

private:
    qint64 m_id = 0;
    QString m_name;
    QString m_abbr;
    QString m_unit;
    int m_precision = 2;
};

} // namespace coagulation
