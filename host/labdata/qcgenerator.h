#pragma once

#include "labrandom.h"

#include <QDate>
#include <QHash>
#include <QSqlDatabase>
#include <QStringList>

namespace coagulation {

struct QcMaterial;

// Fills the QC database's "reagent" and "qcResult" tables: one reagent per control material of
// AssayCatalogue, each with its QC runs at about 08:00, 14:00 and 20:00, the last on the last day.
// Values scatter normally around the material's mean with a slow drift and occasional outliers;
// a value beyond 3 SD of the target is marked rejected.
class QcGenerator
{
public:
    QcGenerator(quint32 seed, const QDate& lastDay, const QStringList& staff);

    bool write(QSqlDatabase db, int pointsPerReagent);
    QString errorString() const { return m_errorString; }

private:
    QString lot(const QcMaterial& material);

    LabRandom m_random;
    QDate m_lastDay;
    QStringList m_staff;
    QHash<QString, QString> m_lots; // material name and level -> lot number
    QString m_errorString;
};

} // namespace coagulation
