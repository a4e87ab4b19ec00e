#include "columndisplaynames.h"
#include "labtext.h"

#include <core/profile.h>

namespace coagulation {

const QList<QPair<QString, QString>>& ColumnDisplayNames::entries()
{
    static const QList<QPair<QString, QString>> list = {
        {QStringLiteral("hospital"), LabText::tr("示例市第一人民医院")},
        {QStringLiteral("patient/sampleNo"), LabText::tr("样本号")},
        {QStringLiteral("patient/name"), LabText::tr("姓名")},
        {QStringLiteral("patient/sex"), LabText::tr("性别")},
        {QStringLiteral("patient/age"), LabText::tr("年龄")},
        {QStringLiteral("patient/ageUnit"), LabText::tr("年龄单位")},
        {QStringLiteral("patient/department"), LabText::tr("科室")},
        {QStringLiteral("patient/bed"), LabText::tr("床号")},
        {QStringLiteral("patient/doctor"), LabText::tr("送检医生")},
        {QStringLiteral("patient/sampleKind"), LabText::tr("样本类型")},
        {QStringLiteral("patient/collectTime"), LabText::tr("采样时间")},
        {QStringLiteral("patient/receiveTime"), LabText::tr("接收时间")},
        {QStringLiteral("patient/reportTime"), LabText::tr("报告时间")},
        {QStringLiteral("patient/birthday"), LabText::tr("出生日期")},
        {QStringLiteral("patient/checkTime"), LabText::tr("检验时间")},
        {QStringLiteral("patient/diagnosis"), LabText::tr("临床诊断")},
        {QStringLiteral("patient/remark"), LabText::tr("备注")},
        {QStringLiteral("reagent/name"), LabText::tr("质控品名称")},
        {QStringLiteral("reagent/lot"), LabText::tr("批号")},
        {QStringLiteral("reagent/level"), LabText::tr("水平")},
        {QStringLiteral("reagent/expiry"), LabText::tr("有效期")},
        {QStringLiteral("reagent/manufacturer"), LabText::tr("生产厂家")},
        {QStringLiteral("reagent/assayTemplate"), LabText::tr("检测项目")},
        {QStringLiteral("reagent/unit"), LabText::tr("单位")},
        {QStringLiteral("reagent/targetValue"), LabText::tr("靶值")},
        {QStringLiteral("reagent/mean"), LabText::tr("均值")},
        {QStringLiteral("reagent/sd"), LabText::tr("标准差")},
    };
    return list;
}

void ColumnDisplayNames::write(Profile* profile)
{
    if (!profile)
        return;
    for (const auto& entry : entries())
        profile->setValue(entry.first, entry.second, true);
}

} // namespace coagulation
