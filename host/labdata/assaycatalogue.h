#pragma once

#include "labdata_global.h"

#include <QList>
#include <QString>

namespace coagulation {

// One assay item the laboratory runs, with its reference range and limits. A limit of 0 means
// none; a reference range of 0 to 0 means none is reported.
struct AssayDefinition
{
    QString templateName; // assay template, e.g. "PT"
    QString method;
    QString name; // assay item name within the template
    QString abbr;
    QString code; // name printed on reports
    QString unit;
    int precision = 1;
    bool visible = true;
    double referenceLow = 0.0;
    double referenceHigh = 0.0;
    double criticalLow = 0.0;
    double criticalHigh = 0.0;
    double measureLow = 0.0; // measuring range; results beyond it read "<x" or ">x"
    double measureHigh = 0.0;
};

// A control material for one assay item at one level.
struct QcMaterial
{
    int controlNo = 0;
    QString name;
    QString level;
    QString templateName;
    QString itemName;
    double target = 0.0;
    double sd = 0.0;
    bool hasLimits = false;
};

// The coagulation assays and control materials of the generated laboratory, in display order.
class LABDATA_EXPORT AssayCatalogue
{
public:
    static const QList<AssayDefinition>& assays();
    static QStringList templateNames(); // in display order, each once
    static const QList<QcMaterial>& qcMaterials();
    // Index into assays() of an item, -1 when unknown.
    static int indexOf(const QString& templateName, const QString& itemName);
};

} // namespace coagulation
