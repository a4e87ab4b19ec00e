#include "patientgenerator.h"
#include "labtext.h"

#include "assaycatalogue.h"
#include "departments.h"
#include "personnames.h"
#include "resultgrading.h"
#include "tablewriter.h"

#include <core/analysisresult.h>
#include <kvcore/sample.h>

#include <QDateTime>
#include <QHash>

#include <cmath>

namespace coagulation {

// Times are wall-clock times; they are built in UTC only so that no daylight-saving gap of the
// machine's time zone can shift them.
namespace {
const QString dateTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");
const QString dateFormat = QStringLiteral("yyyy-MM-dd");
const QString timeFormat = QStringLiteral("HH:mm:ss");
constexpr int samplesPerDay = 40;
constexpr int qcSampleInterval = 25;
// Every so often a patient gets the whole catalogue, repeated, with a long remark: the demo's
// worst case for the report layout.
constexpr int worstCaseInterval = 50;
constexpr int worstCaseOffset = 10;

QTime timeBetween(LabRandom& random, int fromMinute, int toMinute)
{
    return QTime(0, 0).addSecs(qint64(random.between(fromMinute * 60, toMinute * 60 - 1)));
}

QVariant textOrNull(const QString& text)
{
    return text.isEmpty() ? QVariant(QMetaType(QMetaType::QString)) : QVariant(text);
}
} // namespace

struct PatientGenerator::Sample
{
    bool emergency = false;
    QString sampleNo;
    QString name;
    QString sex;
    QVariant age{QMetaType(QMetaType::Int)};
    QString ageUnit;
    QString department;
    QString bed;
    QString doctor;
    QString sampleKind;
    QDateTime collected;
    QDateTime received;
    QDateTime checked;
    QDateTime reported;
    QDate birthday;
    QString diagnosis;
    QString remark;
    QStringList panel; // assay templates requested
    QList<double> values;
    QStringList reruns; // assay templates measured a second time
    const QcMaterial* control = nullptr;
};

PatientGenerator::PatientGenerator(Profile* profile, quint32 seed, const QDate& lastDay)
    : m_profile(profile), m_random(seed, 1), m_lastDay(lastDay)
{}

bool PatientGenerator::write(QSqlDatabase db, int patientCount)
{
    TableWriter patients(
        db, QStringLiteral("patient"),
        {QStringLiteral("id"), QStringLiteral("sampleNo"), QStringLiteral("name"), QStringLiteral("sex"),
         QStringLiteral("age"), QStringLiteral("ageUnit"), QStringLiteral("department"),
         QStringLiteral("bed"), QStringLiteral("doctor"), QStringLiteral("sampleKind"),
         QStringLiteral("collectTime"), QStringLiteral("receiveTime"), QStringLiteral("reportTime"),
         QStringLiteral("birthday"), QStringLiteral("checkTime"), QStringLiteral("diagnosis"),
         QStringLiteral("remark"), QStringLiteral("printTime")});
    TableWriter results(db, QStringLiteral("result"),
                        {QStringLiteral("id"), QStringLiteral("patientId"), QStringLiteral("item"),
                         QStringLiteral("subitem"), QStringLiteral("abbr"), QStringLiteral("code"),
                         QStringLiteral("result"), QStringLiteral("unit"), QStringLiteral("flag"),
                         QStringLiteral("lowerMarkLimit"), QStringLiteral("upperMarkLimit"),
                         QStringLiteral("displayOrder")});

    const QList<Department>& departments = Department::all();
    QList<int> weights;
    QHash<QString, QStringList> doctors;
    for (const Department& department : departments) {
        weights.append(department.weight);
        doctors.insert(department.name, PersonNames::names(m_random, 3));
    }

    const int days = qMax(1, (patientCount + samplesPerDay - 1) / samplesPerDay);
    const QDate firstDay = m_lastDay.addDays(1 - days);
    QDate day;
    int sequence = 0;
    m_nextResultId = 1;
    for (int i = 0; i < patientCount; ++i) {
        const QDate sampleDay = firstDay.addDays(qint64(i) * days / patientCount);
        if (sampleDay != day) {
            day = sampleDay;
            sequence = 0;
        }
        ++sequence;
        Sample sample;
        if (i % qcSampleInterval == qcSampleInterval / 2) {
            sample = qcSample(day);
        } else {
            const Department& department = departments.at(m_random.weighted(weights));
            sample = patientSample(department, doctors.value(department.name), day);
            sample.sampleNo =
                (sample.emergency ? coagulation::Sample::emergencyPrefix(m_profile) : QString()) +
                day.toString(QStringLiteral("yyMMdd")) +
                QStringLiteral("%1").arg(sequence, 4, 10, QLatin1Char('0'));
            if (i % worstCaseInterval == worstCaseOffset)
                makeWorstCase(sample);
        }
        if (!writeSample(sample, i + 1, patients, results))
            return false;
    }
    return true;
}

PatientGenerator::Sample PatientGenerator::patientSample(const Department& department,
                                                         const QStringList& doctors, const QDate& day)
{
    Sample sample;
    sample.emergency = department.emergency;
    sample.department = department.name;
    const Diagnosis& diagnosis = m_random.pick(department.diagnoses);
    sample.diagnosis = diagnosis.text;
    const Condition condition = diagnosis.condition == Condition::Warfarin || m_random.chance(0.75)
                                    ? diagnosis.condition
                                    : Condition::Healthy;

    const bool male = department.patients != Department::Women && m_random.chance(0.5);
    sample.sex = male ? LabText::tr("男") : LabText::tr("女");
    sample.name = PersonNames::name(m_random, male);
    QDate born;
    if (department.patients == Department::Children) {
        const int kind = m_random.weighted({70, 20, 10});
        if (kind == 0) {
            sample.age = m_random.between(1, 14);
            sample.ageUnit = LabText::tr("岁");
            born = day.addYears(-sample.age.toInt()).addDays(-m_random.between(0, 364));
        } else if (kind == 1) {
            sample.age = m_random.between(1, 11);
            sample.ageUnit = LabText::tr("月");
            born = day.addMonths(-sample.age.toInt()).addDays(-m_random.between(0, 27));
        } else {
            sample.age = m_random.between(1, 28);
            sample.ageUnit = LabText::tr("天");
            born = day.addDays(-sample.age.toInt());
            // Newborns are registered under their mother's name.
            sample.name = (male ? LabText::tr("%1之子") : LabText::tr("%1之女"))
                              .arg(PersonNames::name(m_random, false));
        }
    } else {
        const int age = department.patients == Department::Women
                            ? m_random.between(22, 42)
                            : qBound(18, int(m_random.normal(56.0, 17.0)), 96);
        sample.age = age;
        sample.ageUnit = LabText::tr("岁");
        born = day.addYears(-age).addDays(-m_random.between(0, 364));
    }
    if (!m_random.chance(0.06))
        sample.birthday = born;

    if (department.inpatient)
        sample.bed = LabText::tr("%1床").arg(m_random.between(1, 58));
    else if (department.emergency && m_random.chance(0.5))
        sample.bed = LabText::tr("抢救%1").arg(m_random.between(1, 8));
    sample.doctor = doctors.isEmpty() ? QString() : m_random.pick(doctors);
    sample.sampleKind = m_random.chance(0.96) ? LabText::tr("枸橼酸钠抗凝血") : LabText::tr("乏血小板血浆");
    setTimes(sample, collectTime(department, day));

    if (diagnosis.text == LabText::tr("华法林用药监测")) {
        sample.panel = QStringList{QStringLiteral("PT")};
    } else {
        sample.panel = QStringList{QStringLiteral("PT"), QStringLiteral("APTT"), QStringLiteral("FIB"),
                                   QStringLiteral("TT")};
        const bool fibrinolysis = condition == Condition::Dic || condition == Condition::Thrombosis ||
                                  condition == Condition::Pregnancy || department.emergency;
        if (fibrinolysis || m_random.chance(0.3))
            sample.panel << QStringLiteral("D-Dimer") << QStringLiteral("FDP");
        const bool antithrombin = condition == Condition::Dic || condition == Condition::Heparin ||
                                  condition == Condition::LiverDisease;
        if ((antithrombin && m_random.chance(0.6)) || m_random.chance(0.08))
            sample.panel << QStringLiteral("AT-III");
    }
    sample.values = Hemostasis::simulate(condition, m_random).itemValues();

    const int remark = m_random.weighted({90, 3, 2, 3, 2});
    static const QStringList remarks = {QString(), LabText::tr("轻度溶血"), LabText::tr("脂血"),
                                        LabText::tr("复查"), LabText::tr("标本量偏少")};
    sample.remark = remarks.at(remark);
    return sample;
}

void PatientGenerator::makeWorstCase(Sample& sample)
{
    // No extra random numbers: the samples after this one stay what they were.
    sample.panel = AssayCatalogue::templateNames();
    sample.reruns = sample.panel;
    if (sample.diagnosis == LabText::tr("华法林用药监测")) // that clinic asks for the PT alone
        sample.diagnosis = LabText::tr("多器官功能障碍综合征");
    sample.remark =
        LabText::tr("标本轻度溶血，结果仅供参考；首次检测结果异常，已用原标本复查，复查结果与首次一致；"
                    "危急值已电话通知临床医生并登记");
}

PatientGenerator::Sample PatientGenerator::qcSample(const QDate& day)
{
    const QcMaterial& material = m_random.pick(AssayCatalogue::qcMaterials());
    Sample sample;
    sample.sampleNo = coagulation::Sample::qcName(material.controlNo, m_profile);
    sample.name = LabText::tr("%1(%2)", "control material (level)").arg(material.name, material.level);
    sample.department = LabText::tr("检验科");
    sample.sampleKind = LabText::tr("质控血浆");
    sample.remark = LabText::tr("室内质控");
    setTimes(sample, QDateTime(day, timeBetween(m_random, 8 * 60, 9 * 60), Qt::UTC));
    Hemostasis values = Hemostasis::simulate(Condition::Healthy, m_random);
    values.setMeasured(material.templateName, m_random.normal(material.target, material.sd));
    sample.values = values.itemValues();
    sample.panel = QStringList{material.templateName};
    sample.control = &material;
    return sample;
}

QDateTime PatientGenerator::collectTime(const Department& department, const QDate& day)
{
    QTime time;
    if (department.emergency)
        time = timeBetween(m_random, 0, 24 * 60);
    else if (department.inpatient)
        time = m_random.chance(0.7) ? timeBetween(m_random, 5 * 60 + 30, 7 * 60 + 30)
                                    : timeBetween(m_random, 8 * 60, 21 * 60);
    else
        time = m_random.chance(0.7) ? timeBetween(m_random, 7 * 60 + 30, 11 * 60 + 30)
                                    : timeBetween(m_random, 13 * 60 + 30, 16 * 60 + 30);
    return QDateTime(day, time, Qt::UTC);
}

void PatientGenerator::setTimes(Sample& sample, const QDateTime& collected)
{
    sample.collected = collected;
    sample.received = collected.addSecs(m_random.between(8 * 60, 75 * 60));
    sample.checked = sample.received.addSecs(m_random.between(5 * 60, 35 * 60));
    sample.reported = sample.checked.addSecs(m_random.between(10 * 60, 60 * 60));
}

AssayDefinition PatientGenerator::rangeFor(const AssayDefinition& assay, const QcMaterial* control)
{
    if (!control)
        return assay;
    // A control is judged against its own target (+-2 SD), never against patient ranges or
    // critical values; the other items of its assay template have no range at all.
    AssayDefinition judged = assay;
    judged.criticalLow = judged.criticalHigh = 0.0;
    judged.referenceLow = judged.referenceHigh = 0.0;
    if (assay.templateName == control->templateName && assay.name == control->itemName) {
        const double scale = std::pow(10.0, assay.precision);
        judged.referenceLow = std::round((control->target - 2 * control->sd) * scale) / scale;
        judged.referenceHigh = std::round((control->target + 2 * control->sd) * scale) / scale;
    }
    return judged;
}

bool PatientGenerator::writeSample(const Sample& sample, qint64 patientId, TableWriter& patients,
                                   TableWriter& results)
{
    QList<AssayDefinition> assays = AssayCatalogue::assays();
    for (AssayDefinition& assay : assays)
        assay = rangeFor(assay, sample.control);
    QList<GradedResult> graded;
    bool critical = false;
    for (int i = 0; i < assays.size(); ++i) {
        graded.append(GradedResult::grade(assays.at(i), sample.values.value(i)));
        if (sample.panel.contains(assays.at(i).templateName) &&
            (graded.last().flags & (AnalysisResult::CriticalHigh | AnalysisResult::CriticalLow)))
            critical = true;
    }
    // Critical values are phoned through to the ward, and the laboratory notes that it did.
    QString remark = sample.remark;
    if (critical && remark.isEmpty())
        remark = LabText::tr("危急值已电话通知临床");

    const QVariant nullDateTime{QMetaType(QMetaType::QString)};
    if (!patients.insert({patientId, sample.sampleNo, textOrNull(sample.name), textOrNull(sample.sex),
                          sample.age, textOrNull(sample.ageUnit), textOrNull(sample.department),
                          textOrNull(sample.bed), textOrNull(sample.doctor), textOrNull(sample.sampleKind),
                          sample.collected.toString(dateTimeFormat), sample.received.toString(dateTimeFormat),
                          sample.reported.toString(dateTimeFormat),
                          textOrNull(sample.birthday.toString(dateFormat)),
                          sample.checked.time().toString(timeFormat), textOrNull(sample.diagnosis),
                          textOrNull(remark), nullDateTime})) {
        m_errorString = patients.errorString();
        return false;
    }
    for (int i = 0; i < assays.size(); ++i) {
        const AssayDefinition& assay = assays.at(i);
        if (!sample.panel.contains(assay.templateName))
            continue;
        // A rerun reads a little differently from the first measurement.
        const int runs = sample.reruns.contains(assay.templateName) ? 2 : 1;
        for (int run = 0; run < runs; ++run) {
            const GradedResult result =
                run == 0 ? graded.at(i) : GradedResult::grade(assay, sample.values.value(i) * 1.03);
            if (!results.insert({m_nextResultId++, patientId, assay.templateName, assay.name, assay.abbr,
                                 assay.code, result.text, assay.unit, result.flags, assay.referenceLow,
                                 assay.referenceHigh, i + 1})) {
                m_errorString = results.errorString();
                return false;
            }
        }
    }
    return true;
}

} // namespace coagulation
