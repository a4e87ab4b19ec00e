#include "sample.h"

#include <core/profile.h>

namespace coagulation {

namespace {

QString setting(Profile* profile, const QString& key, const QString& defaultValue)
{
    return profile ? profile->value(key, defaultValue).toString() : defaultValue;
}

bool hasPrefix(const QString& sampleNo, const QString& prefix)
{
    return !prefix.isEmpty() && sampleNo.startsWith(prefix, Qt::CaseInsensitive);
}

} // namespace

QString Sample::qcPrefix(Profile* profile)
{
    return setting(profile, QStringLiteral("sample/qcPrefix"), QStringLiteral("QC"));
}

QString Sample::emergencyPrefix(Profile* profile)
{
    return setting(profile, QStringLiteral("sample/emergencyPrefix"), QStringLiteral("E"));
}

QString Sample::qcName(int controlNo, Profile* profile)
{
    return qcPrefix(profile) + QStringLiteral("%1").arg(controlNo, 2, 10, QLatin1Char('0'));
}

kv::SampleType Sample::sampleTypeOf(const QString& sampleNo, Profile* profile)
{
    const QString number = sampleNo.trimmed();
    if (hasPrefix(number, qcPrefix(profile)))
        return kv::QcSample;
    if (hasPrefix(number, emergencyPrefix(profile)))
        return kv::EmergencySample;
    return kv::PatientSample;
}

} // namespace coagulation
