#pragma once

#include "labrandom.h"

#include <QDate>
#include <QSqlDatabase>

namespace coagulation {

class Profile;
class TableWriter;
struct Department;

// Fills the data database's "patient" and "result" tables: about 40 samples a day up to the last
// day, from the hospital's departments, with every 25th sample a QC sample numbered by
// Sample::qcName and emergency samples numbered with the emergency prefix.
class PatientGenerator
{
public:
    PatientGenerator(Profile* profile, quint32 seed, const QDate& lastDay);

    bool write(QSqlDatabase db, int patientCount);
    QString errorString() const { return m_errorString; }

private:
    struct Sample;

    Sample patientSample(const Department& department, const QStringList& doctors, const QDate& day);
    Sample qcSample(const QDate& day);
    QDateTime collectTime(const Department& department, const QDate& day);
    void setTimes(Sample& sample, const QDateTime& collected);
    bool writeSample(const Sample& sample, qint64 patientId, TableWriter& patients, TableWriter& results);

    Profile* m_profile;
    LabRandom m_random;
    QDate m_lastDay;
    qint64 m_nextResultId = 1;
    QString m_errorString;
};

} // namespace coagulation
