#include "hemostasis.h"

#include "assaycatalogue.h"
#include "labrandom.h"

#include <cmath>

namespace coagulation {

namespace {
constexpr double normalPt = 12.5;   // mean normal prothrombin time of the reagent lot
constexpr double isi = 1.05;        // international sensitivity index of the thromboplastin
constexpr double normalAptt = 31.0; // mean normal APTT
} // namespace

Hemostasis Hemostasis::simulate(Condition condition, LabRandom& random)
{
    Hemostasis h;
    h.pt = random.normal(12.6, 0.7);
    h.aptt = random.normal(31.0, 2.6);
    h.fib = qMax(1.2, random.normal(2.9, 0.5));
    h.tt = random.normal(17.2, 1.2);
    h.dd = std::exp(random.normal(std::log(0.22), 0.5));
    h.at3 = random.normal(100.0, 9.0);
    switch (condition) {
    case Condition::Healthy:
        break;
    case Condition::Warfarin: {
        const double inr = random.chance(0.08) ? random.uniform(4.0, 7.5) : random.uniform(1.5, 3.6);
        h.pt = normalPt * std::pow(inr, 1.0 / isi);
        h.aptt *= random.uniform(1.05, 1.3);
        break;
    }
    case Condition::Heparin:
        h.aptt *= random.chance(0.1) ? random.uniform(3.5, 6.0) : random.uniform(1.4, 3.0);
        h.tt *= random.uniform(1.4, 4.0);
        break;
    case Condition::LiverDisease:
        h.pt *= random.uniform(1.15, 1.9);
        h.aptt *= random.uniform(1.05, 1.4);
        h.fib *= random.uniform(0.45, 0.85);
        h.at3 *= random.uniform(0.45, 0.8);
        h.dd *= random.uniform(1.5, 4.0);
        break;
    case Condition::Dic:
        h.pt *= random.uniform(1.3, 2.4);
        h.aptt *= random.uniform(1.2, 1.9);
        h.fib = random.uniform(0.25, 1.6);
        h.tt *= random.uniform(1.2, 1.9);
        h.dd = random.uniform(5.0, 35.0);
        h.at3 = random.uniform(38.0, 72.0);
        break;
    case Condition::Thrombosis:
        h.dd = random.uniform(0.8, 9.0);
        h.fib *= random.uniform(1.0, 1.5);
        break;
    case Condition::Hemophilia:
        h.aptt = random.uniform(55.0, 115.0);
        break;
    case Condition::Pregnancy:
        h.fib *= random.uniform(1.3, 1.8);
        h.dd = random.uniform(0.4, 2.6);
        h.pt *= random.uniform(0.9, 0.98);
        break;
    }
    h.fdp = h.dd * random.uniform(2.6, 4.0) + random.uniform(0.3, 1.2);
    return h;
}

void Hemostasis::setMeasured(const QString& templateName, double value)
{
    if (templateName == QLatin1String("PT"))
        pt = value;
    else if (templateName == QLatin1String("APTT"))
        aptt = value;
    else if (templateName == QLatin1String("FIB"))
        fib = value;
    else if (templateName == QLatin1String("TT"))
        tt = value;
    else if (templateName == QLatin1String("D-Dimer"))
        dd = value;
    else if (templateName == QLatin1String("FDP"))
        fdp = value;
    else if (templateName == QLatin1String("AT-III"))
        at3 = value;
}

QList<double> Hemostasis::itemValues() const
{
    const double ratio = pt / normalPt;
    // Activity from the dilution curve of the thromboplastin: 100 % at the normal time.
    const double activity = qBound(5.0, 100.0 * (normalPt - 6.5) / qMax(0.5, pt - 6.5), 160.0);
    const QList<double> values = {
        pt,
        activity,
        ratio,
        std::pow(ratio, isi), // PT
        aptt,
        aptt / normalAptt, // APTT
        fib,
        qBound(3.0, 32.0 / qMax(0.1, fib), 150.0), // FIB: Clauss clotting time falls as fibrinogen rises
        tt,
        dd,
        fdp,
        at3,
    };
    Q_ASSERT(values.size() == AssayCatalogue::assays().size());
    return values;
}

} // namespace coagulation
