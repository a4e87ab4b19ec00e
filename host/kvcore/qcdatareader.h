#pragma once

#include "kvcore_global.h"
#include "qcseries.h"

#include <QDate>
#include <QList>

#include <memory>

namespace coagulation {

class Profile;

// Reads QC series from the profile's QC database: a reagent row of "reagent" with its points in
// "qcResult", and the assay template and item named by the reagent from the configuration
// database (left null when the configuration has no such assay).
class KVCORE_EXPORT QcDataReader
{
public:
    explicit QcDataReader(Profile* profile);

    // Ids of all reagents, ascending.
    QList<qint64> reagentIds() const;

    // The series of one reagent with its points measured from the start of `from` to the end of
    // `to`, in time order; an invalid date leaves that end open. All points are selected for
    // printing (firstIndex 0, count = number of points). The range only selects points: startTime
    // and endTime stay 0, so a chart's time axis ends at the points, not at a far-off range end.
    // Null, with errorString() set, for an unknown reagent or a database error.
    std::unique_ptr<QcSeries> read(qint64 reagentId, const QDate& from = QDate(), const QDate& to = QDate());

    QString errorString() const { return m_errorString; }

private:
    bool readReagent(qint64 reagentId, QcSeries* series);
    bool readPoints(qint64 reagentId, const QDate& from, const QDate& to, QcExportData* data);

    Profile* m_profile;
    QString m_errorString;
};

} // namespace coagulation
