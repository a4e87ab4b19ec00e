#include "assaycatalogue.h"

#include "labtext.h"

#include <QStringList>

namespace coagulation {

namespace {

AssayDefinition assay(const char* templateName, const char* method, const char* name, const char* abbr,
                      const char* code, const char* unit, int precision, bool visible, double referenceLow,
                      double referenceHigh, double criticalLow, double criticalHigh, double measureLow,
                      double measureHigh)
{
    return {QString::fromUtf8(templateName),
            LabText::tr(method),
            QString::fromUtf8(name),
            QString::fromUtf8(abbr),
            LabText::tr(code),
            QString::fromUtf8(unit),
            precision,
            visible,
            referenceLow,
            referenceHigh,
            criticalLow,
            criticalHigh,
            measureLow,
            measureHigh};
}

QcMaterial material(int controlNo, const char* name, const char* level, const char* templateName,
                    const char* itemName, double target, double sd, bool hasLimits)
{
    return {controlNo,
            LabText::tr(name),
            LabText::tr(level),
            QString::fromUtf8(templateName),
            QString::fromUtf8(itemName),
            target,
            sd,
            hasLimits};
}

} // namespace

const QList<AssayDefinition>& AssayCatalogue::assays()
{
    static const QList<AssayDefinition> list = {
        assay("PT", QT_TRANSLATE_NOOP("coagulation::LabText", "凝固法"), "PT Sec", "PT-S",
              QT_TRANSLATE_NOOP("coagulation::LabText", "凝血酶原时间"), "s", 1, true, 11.0, 14.5, 0, 30.0,
              5.0, 120.0),
        assay("PT", QT_TRANSLATE_NOOP("coagulation::LabText", "凝固法"), "PT Act", "PT%",
              QT_TRANSLATE_NOOP("coagulation::LabText", "凝血酶原活动度"), "%", 0, true, 70, 130, 0, 0, 0, 0),
        assay("PT", QT_TRANSLATE_NOOP("coagulation::LabText", "凝固法"), "PT Ratio", "PT-R",
              QT_TRANSLATE_NOOP("coagulation::LabText", "凝血酶原比值"), "", 2, true, 0, 0, 0, 0, 0, 0),
        assay("PT", QT_TRANSLATE_NOOP("coagulation::LabText", "凝固法"), "PT INR", "INR",
              QT_TRANSLATE_NOOP("coagulation::LabText", "国际标准化比值"), "", 2, true, 0.8, 1.2, 0, 4.5, 0,
              0),
        assay("APTT", QT_TRANSLATE_NOOP("coagulation::LabText", "凝固法"), "APTT Sec", "APTT",
              QT_TRANSLATE_NOOP("coagulation::LabText", "活化部分凝血活酶时间"), "s", 1, true, 25.0, 37.0, 0,
              70.0, 10.0, 150.0),
        assay("APTT", QT_TRANSLATE_NOOP("coagulation::LabText", "凝固法"), "APTT Ratio", "APTT-R",
              QT_TRANSLATE_NOOP("coagulation::LabText", "活化部分凝血活酶时间比值"), "", 2, false, 0.8, 1.2,
              0, 0, 0, 0),
        assay("FIB", QT_TRANSLATE_NOOP("coagulation::LabText", "凝固法(Clauss)"), "FIB Conc", "FIB",
              QT_TRANSLATE_NOOP("coagulation::LabText", "纤维蛋白原"), "g/L", 2, true, 2.0, 4.0, 1.0, 0, 0.35,
              10.0),
        assay("FIB", QT_TRANSLATE_NOOP("coagulation::LabText", "凝固法(Clauss)"), "FIB Sec", "FIB-S",
              QT_TRANSLATE_NOOP("coagulation::LabText", "纤维蛋白原凝固时间"), "s", 1, false, 0, 0, 0, 0, 0,
              0),
        assay("TT", QT_TRANSLATE_NOOP("coagulation::LabText", "凝固法"), "TT Sec", "TT",
              QT_TRANSLATE_NOOP("coagulation::LabText", "凝血酶时间"), "s", 1, true, 14.0, 21.0, 0, 0, 5.0,
              150.0),
        assay("D-Dimer", QT_TRANSLATE_NOOP("coagulation::LabText", "免疫比浊法"), "DD Conc", "D-D",
              QT_TRANSLATE_NOOP("coagulation::LabText", "D-二聚体"), "mg/L FEU", 2, true, 0, 0.55, 0, 0, 0.10,
              20.0),
        assay("FDP", QT_TRANSLATE_NOOP("coagulation::LabText", "免疫比浊法"), "FDP Conc", "FDP",
              QT_TRANSLATE_NOOP("coagulation::LabText", "纤维蛋白(原)降解产物"), "mg/L", 1, true, 0, 5.0, 0,
              0, 2.5, 150.0),
        assay("AT-III", QT_TRANSLATE_NOOP("coagulation::LabText", "发色底物法"), "AT3 Act", "AT-III",
              QT_TRANSLATE_NOOP("coagulation::LabText", "抗凝血酶III活性"), "%", 0, true, 80, 120, 0, 0, 0,
              0),
    };
    return list;
}

QStringList AssayCatalogue::templateNames()
{
    QStringList names;
    for (const AssayDefinition& definition : assays()) {
        if (!names.contains(definition.templateName))
            names.append(definition.templateName);
    }
    return names;
}

const QList<QcMaterial>& AssayCatalogue::qcMaterials()
{
    static const QList<QcMaterial> list = {
        material(1, QT_TRANSLATE_NOOP("coagulation::LabText", "凝血质控血浆"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "正常值"), "PT", "PT Sec", 12.2, 0.30, true),
        material(2, QT_TRANSLATE_NOOP("coagulation::LabText", "凝血质控血浆"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "异常值"), "PT", "PT Sec", 25.5, 0.80, true),
        material(3, QT_TRANSLATE_NOOP("coagulation::LabText", "凝血质控血浆"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "正常值"), "APTT", "APTT Sec", 30.5, 0.90, true),
        material(4, QT_TRANSLATE_NOOP("coagulation::LabText", "凝血质控血浆"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "异常值"), "APTT", "APTT Sec", 55.0, 1.80, true),
        material(5, QT_TRANSLATE_NOOP("coagulation::LabText", "凝血质控血浆"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "正常值"), "FIB", "FIB Conc", 2.85, 0.12, true),
        material(6, QT_TRANSLATE_NOOP("coagulation::LabText", "凝血质控血浆"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "异常值"), "FIB", "FIB Conc", 1.10, 0.06, true),
        material(7, QT_TRANSLATE_NOOP("coagulation::LabText", "凝血质控血浆"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "正常值"), "TT", "TT Sec", 17.0, 0.50, true),
        material(8, QT_TRANSLATE_NOOP("coagulation::LabText", "凝血质控血浆"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "异常值"), "TT", "TT Sec", 28.0, 1.00, true),
        material(9, QT_TRANSLATE_NOOP("coagulation::LabText", "D-二聚体质控品"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "低值"), "D-Dimer", "DD Conc", 0.35, 0.03, false),
        material(10, QT_TRANSLATE_NOOP("coagulation::LabText", "D-二聚体质控品"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "高值"), "D-Dimer", "DD Conc", 2.80, 0.15, false),
        material(11, QT_TRANSLATE_NOOP("coagulation::LabText", "FDP质控品"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "低值"), "FDP", "FDP Conc", 6.0, 0.40, false),
        material(12, QT_TRANSLATE_NOOP("coagulation::LabText", "FDP质控品"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "高值"), "FDP", "FDP Conc", 22.0, 1.20, false),
        material(13, QT_TRANSLATE_NOOP("coagulation::LabText", "抗凝血酶质控品"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "正常值"), "AT-III", "AT3 Act", 98.0, 3.0, false),
        material(14, QT_TRANSLATE_NOOP("coagulation::LabText", "抗凝血酶质控品"),
                 QT_TRANSLATE_NOOP("coagulation::LabText", "异常值"), "AT-III", "AT3 Act", 45.0, 2.5, false),
    };
    return list;
}

int AssayCatalogue::indexOf(const QString& templateName, const QString& itemName)
{
    const QList<AssayDefinition>& list = assays();
    for (int i = 0; i < list.size(); ++i) {
        if (list.at(i).templateName == templateName && list.at(i).name == itemName)
            return i;
    }
    return -1;
}

} // namespace coagulation
