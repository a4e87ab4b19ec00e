#include "qcgenerator.h"
#include "labtext.h"

#include "assaycatalogue.h"
#include "tablewriter.h"

#include <QDateTime>

#include <cmath>

namespace coagulation {

namespace {
const QString dateTimeFormat = QStringLiteral("yyyy-MM-dd HH:mm:ss");
const QString dateFormat = QStringLiteral("yyyy-MM-dd");
constexpr int runsPerDay = 3;
constexpr int runHours[runsPerDay] = {8, 14, 20};
constexpr double twoPi = 6.283185307179586;

double rounded(double value, int precision)
{
    return QString::number(value, 'f', precision).toDouble();
}
} // namespace

QcGenerator::QcGenerator(quint32 seed, const QDate& lastDay, const QStringList& staff)
    : m_random(seed, 2), m_lastDay(lastDay), m_staff(staff)
{}

QString QcGenerator::lot(const QcMaterial& material)
{
    const QString key = material.name + QLatin1Char('/') + material.level;
    auto it = m_lots.constFind(key);
    if (it != m_lots.constEnd())
        return *it;
    const bool normalLevel = material.level == LabText::tr("正常值") || material.level == LabText::tr("低值");
    const QString number =
        QStringLiteral("%1%2%3")
            .arg(normalLevel ? QLatin1Char('N') : QLatin1Char('P'))
            .arg(m_lastDay.addMonths(-m_random.between(1, 5)).toString(QStringLiteral("yyMM")))
            .arg(m_random.between(11, 99));
    m_lots.insert(key, number);
    return number;
}

bool QcGenerator::write(QSqlDatabase db, int pointsPerReagent)
{
    TableWriter reagents(
        db, QStringLiteral("reagent"),
        {QStringLiteral("id"), QStringLiteral("name"), QStringLiteral("lot"), QStringLiteral("level"),
         QStringLiteral("controlNo"), QStringLiteral("manufacturer"), QStringLiteral("expiry"),
         QStringLiteral("assayTemplate"), QStringLiteral("assayItem"), QStringLiteral("unit"),
         QStringLiteral("targetValue"), QStringLiteral("mean"), QStringLiteral("sd"),
         QStringLiteral("hasLimits"), QStringLiteral("upperStopLimit"), QStringLiteral("upperMarkLimit"),
         QStringLiteral("lowerMarkLimit"), QStringLiteral("lowerStopLimit")});
    TableWriter points(db, QStringLiteral("qcResult"),
                       {QStringLiteral("id"), QStringLiteral("reagentId"), QStringLiteral("time"),
                        QStringLiteral("value"), QStringLiteral("rejected"), QStringLiteral("operator")});
    QHash<QString, QDate> expiries;
    qint64 pointId = 1;
    qint64 reagentId = 0;
    const QVariant noLimit{QMetaType(QMetaType::Double)};
    for (const QcMaterial& material : AssayCatalogue::qcMaterials()) {
        ++reagentId;
        const int index = AssayCatalogue::indexOf(material.templateName, material.itemName);
        const AssayDefinition assay = index >= 0 ? AssayCatalogue::assays().at(index) : AssayDefinition();
        const QString lotNumber = lot(material);
        if (!expiries.contains(lotNumber))
            expiries.insert(lotNumber, m_lastDay.addDays(m_random.between(120, 420)));
        // The laboratory's own mean sits close to the manufacturer's target.
        const double mean =
            rounded(material.target + m_random.normal(0.0, 0.2 * material.sd), assay.precision + 1);
        const double sd = material.sd;
        const auto limit = [&](double sds) -> QVariant {
            return material.hasLimits ? QVariant(rounded(material.target + sds * sd, assay.precision))
                                      : noLimit;
        };
        if (!reagents.insert({reagentId, material.name, lotNumber, material.level, material.controlNo,
                              LabText::tr("示例医疗器械有限公司"),
                              expiries.value(lotNumber).toString(dateFormat), material.templateName,
                              material.itemName, assay.unit, material.target, mean, sd,
                              material.hasLimits ? 1 : 0, limit(3), limit(2), limit(-2), limit(-3)})) {
            m_errorString = reagents.errorString();
            return false;
        }

        const double phase = m_random.uniform(0.0, twoPi);
        for (int k = 0; k < pointsPerReagent; ++k) {
            const int fromLast = pointsPerReagent - 1 - k;
            const QDate day = m_lastDay.addDays(-(fromLast / runsPerDay));
            const int hour = runHours[runsPerDay - 1 - fromLast % runsPerDay];
            const QDateTime time(day, QTime(hour, m_random.between(0, 44), m_random.between(0, 59)), Qt::UTC);
            double z = m_random.normal(0.0, 1.0);
            if (m_random.chance(0.015))
                z += (m_random.chance(0.5) ? 1.0 : -1.0) * m_random.uniform(2.2, 3.6);
            const double drift = 0.25 * sd * std::sin(twoPi * k / 45.0 + phase);
            const double value = rounded(mean + drift + z * sd, assay.precision);
            const bool rejected = std::fabs(value - material.target) > 3.0 * sd;
            if (!points.insert({pointId++, reagentId, time.toString(dateTimeFormat), value, rejected ? 1 : 0,
                                m_staff.isEmpty() ? QVariant() : QVariant(m_random.pick(m_staff))})) {
                m_errorString = points.errorString();
                return false;
            }
        }
    }
    return true;
}

} // namespace coagulation
