#pragma once

#include <QList>
#include <QString>

namespace coagulation {

class LabRandom;

// What makes a patient's clotting tests abnormal.
enum class Condition {
    Healthy,
    Warfarin,     // oral anticoagulation: PT and INR prolonged
    Heparin,      // APTT and TT prolonged
    LiverDisease, // factors, fibrinogen and antithrombin low
    Dic,          // everything off, D-dimer and FDP very high
    Thrombosis,   // D-dimer and FDP raised
    Hemophilia,   // APTT alone prolonged
    Pregnancy,    // fibrinogen and D-dimer physiologically raised
};

// The primary quantities of one plasma sample, from which every assay item is derived.
struct Hemostasis
{
    double pt = 12.5;   // s
    double aptt = 31.0; // s
    double fib = 2.9;   // g/L
    double tt = 17.0;   // s
    double dd = 0.25;   // mg/L FEU
    double fdp = 1.5;   // mg/L
    double at3 = 100.0; // %

    static Hemostasis simulate(Condition condition, LabRandom& random);

    // Sets the primary quantity that the assay template measures (a control material's value).
    void setMeasured(const QString& templateName, double value);

    // One value per entry of AssayCatalogue::assays().
    QList<double> itemValues() const;
};

} // namespace coagulation
