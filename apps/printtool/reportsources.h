#pragma once

#include <kvcore/qcseries.h>
#include <kvcore/workbench.h>

#include <QCoreApplication>
#include <QDate>
#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace coagulation {

class Profile;

// Finds in a profile's databases what the print tool is asked to print, with a clear message
// for whatever is not there.
class ReportSources
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::PrintTool)
public:
    explicit ReportSources(Profile* profile) : m_profile(profile) {}

    QString errorString() const { return m_errorString; }

    // The ids, each checked to be a patient.
    bool checkPatients(const QList<qint64>& ids);
    // The patient of each sample number (the latest one with that number), in the given order.
    bool patientsOfSamples(const QStringList& sampleNumbers, QList<qint64>* ids);
    // The sample numbers of patients whose samples are QC samples.
    QStringList qcSamples(const QList<qint64>& ids) const;
    // One series per reagent (all reagents when none is given), with the points in the range.
    bool qcSeries(const QList<qint64>& reagentIds, const QDate& from, const QDate& to,
                  std::vector<std::unique_ptr<QcSeries>>* series);
    // The workbench with this id, or the first one for 0.
    bool workbench(qint64 id, Workbench* workbench);

private:
    bool fail(const QString& message);

    Profile* m_profile;
    QString m_errorString;
};

} // namespace coagulation
