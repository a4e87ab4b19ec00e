#pragma once

#include "labrandom.h"

#include <QDate>
#include <QSqlDatabase>

namespace coagulation {

class Profile;
class TableWriter;
struct AssayDefinition;
struct Department;
struct QcMaterial;

// Fills the data database's "patient" and "result" tables: about 40 samples a day up to the last
// day, from the hospital's departments, with every 25th sample a QC sample numbered by
// Sample::qcName (its results judged against the control's target range) and emergency samples
// numbered with the emergency prefix. Every 50th patient from the 11th on (ids 11, 61, ...) has
// every assay of the catalogue measured twice and a long remark.
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
    static void makeWorstCase(Sample& sample);
    static AssayDefinition rangeFor(const AssayDefinition& assay, const QcMaterial* control);
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
