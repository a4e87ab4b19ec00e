#pragma once

#include <QCoreApplication>

namespace coagulation {

// The generated laboratory's texts (departments, diagnoses, assays, remarks, …) are Chinese; with an
// English translation installed the generator writes an English laboratory.
class LabText
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::LabText)
};

} // namespace coagulation
