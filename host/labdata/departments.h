#pragma once

#include "hemostasis.h"

#include <QList>
#include <QString>

namespace coagulation {

struct Diagnosis
{
    QString text;
    Condition condition;
};

// A requesting department of the hospital and the patients it typically sends.
struct Department
{
    enum Patients { Adults, Children, Women };

    QString name;
    int weight;     // share of the samples
    bool inpatient; // patients have beds
    bool emergency; // samples get emergency numbers
    Patients patients;
    QList<Diagnosis> diagnoses;

    static const QList<Department>& all();
};

} // namespace coagulation
