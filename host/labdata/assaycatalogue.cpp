#include "assaycatalogue.h"

#include <QStringList>

namespace coagulation {

namespace {

AssayDefinition assay(const char* templateName, const char* method, const char* name, const char* abbr,
                      const char* code, const char* unit, int precision, bool visible, double referenceLow,
                      double referenceHigh, double criticalLow, double criticalHigh, double measureLow,
                      double measureHigh)
{
    return {QString::fromUtf8(templateName),
            QString::fromUtf8(method),
            QString::fromUtf8(name),
            QString::fromUtf8(abbr),
            QString::fromUtf8(code),
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
            QString::fromUtf8(name),
            QString::fromUtf8(level),
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
        assay("PT", "凝固法", "PT Sec", "PT-S", "凝血酶原时间", "s", 1, true, 11.0, 14.5, 0, 30.0, 5.0,
              120.0),
        assay("PT", "凝固法", "PT Act", "PT%", "凝血酶原活动度", "%", 0, true, 70, 130, 0, 0, 0, 0),
        assay("PT", "凝固法", "PT Ratio", "PT-R", "凝血酶原比值", "", 2, true, 0, 0, 0, 0, 0, 0),
        assay("PT", "凝固法", "PT INR", "INR", "国际标准化比值", "", 2, true, 0.8, 1.2, 0, 4.5, 0, 0),
        assay("APTT", "凝固法", "APTT Sec", "APTT", "活化部分凝血活酶时间", "s", 1, true, 25.0, 37.0, 0, 70.0,
              10.0, 150.0),
        assay("APTT", "凝固法", "APTT Ratio", "APTT-R", "活化部分凝血活酶时间比值", "", 2, false, 0.8, 1.2, 0,
              0, 0, 0),
        assay("FIB", "凝固法(Clauss)", "FIB Conc", "FIB", "纤维蛋白原", "g/L", 2, true, 2.0, 4.0, 1.0, 0,
              0.35, 10.0),
        assay("FIB", "凝固法(Clauss)", "FIB Sec", "FIB-S", "纤维蛋白原凝固时间", "s", 1, false, 0, 0, 0, 0, 0,
              0),
        assay("TT", "凝固法", "TT Sec", "TT", "凝血酶时间", "s", 1, true, 14.0, 21.0, 0, 0, 5.0, 150.0),
        assay("D-Dimer", "免疫比浊法", "DD Conc", "D-D", "D-二聚体", "mg/L FEU", 2, true, 0, 0.55, 0, 0, 0.10,
              20.0),
        assay("FDP", "免疫比浊法", "FDP Conc", "FDP", "纤维蛋白(原)降解产物", "mg/L", 1, true, 0, 5.0, 0, 0,
              2.5, 150.0),
        assay("AT-III", "发色底物法", "AT3 Act", "AT-III", "抗凝血酶III活性", "%", 0, true, 80, 120, 0, 0, 0,
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
        material(1, "凝血质控血浆", "正常值", "PT", "PT Sec", 12.2, 0.30, true),
        material(2, "凝血质控血浆", "异常值", "PT", "PT Sec", 25.5, 0.80, true),
        material(3, "凝血质控血浆", "正常值", "APTT", "APTT Sec", 30.5, 0.90, true),
        material(4, "凝血质控血浆", "异常值", "APTT", "APTT Sec", 55.0, 1.80, true),
        material(5, "凝血质控血浆", "正常值", "FIB", "FIB Conc", 2.85, 0.12, true),
        material(6, "凝血质控血浆", "异常值", "FIB", "FIB Conc", 1.10, 0.06, true),
        material(7, "凝血质控血浆", "正常值", "TT", "TT Sec", 17.0, 0.50, true),
        material(8, "凝血质控血浆", "异常值", "TT", "TT Sec", 28.0, 1.00, true),
        material(9, "D-二聚体质控品", "低值", "D-Dimer", "DD Conc", 0.35, 0.03, false),
        material(10, "D-二聚体质控品", "高值", "D-Dimer", "DD Conc", 2.80, 0.15, false),
        material(11, "FDP质控品", "低值", "FDP", "FDP Conc", 6.0, 0.40, false),
        material(12, "FDP质控品", "高值", "FDP", "FDP Conc", 22.0, 1.20, false),
        material(13, "抗凝血酶质控品", "正常值", "AT-III", "AT3 Act", 98.0, 3.0, false),
        material(14, "抗凝血酶质控品", "异常值", "AT-III", "AT3 Act", 45.0, 2.5, false),
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
