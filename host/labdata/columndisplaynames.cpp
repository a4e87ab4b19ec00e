#include "columndisplaynames.h"

#include <core/profile.h>

namespace coagulation {

const QList<QPair<QString, QString>>& ColumnDisplayNames::entries()
{
    static const QList<QPair<QString, QString>> list = {
        {QStringLiteral("hospital"), QStringLiteral("示例市第一人民医院")},
        {QStringLiteral("patient/sampleNo"), QStringLiteral("样本号")},
        {QStringLiteral("patient/name"), QStringLiteral("姓名")},
        {QStringLiteral("patient/sex"), QStringLiteral("性别")},
        {QStringLiteral("patient/age"), QStringLiteral("年龄")},
        {QStringLiteral("patient/ageUnit"), QStringLiteral("年龄单位")},
        {QStringLiteral("patient/department"), QStringLiteral("科室")},
        {QStringLiteral("patient/bed"), QStringLiteral("床号")},
        {QStringLiteral("patient/doctor"), QStringLiteral("送检医生")},
        {QStringLiteral("patient/sampleKind"), QStringLiteral("样本类型")},
        {QStringLiteral("patient/collectTime"), QStringLiteral("采样时间")},
        {QStringLiteral("patient/receiveTime"), QStringLiteral("接收时间")},
        {QStringLiteral("patient/reportTime"), QStringLiteral("报告时间")},
        {QStringLiteral("patient/birthday"), QStringLiteral("出生日期")},
        {QStringLiteral("patient/checkTime"), QStringLiteral("检验时间")},
        {QStringLiteral("patient/diagnosis"), QStringLiteral("临床诊断")},
        {QStringLiteral("patient/remark"), QStringLiteral("备注")},
        {QStringLiteral("reagent/name"), QStringLiteral("质控品名称")},
        {QStringLiteral("reagent/lot"), QStringLiteral("批号")},
        {QStringLiteral("reagent/level"), QStringLiteral("水平")},
        {QStringLiteral("reagent/expiry"), QStringLiteral("有效期")},
        {QStringLiteral("reagent/manufacturer"), QStringLiteral("生产厂家")},
        {QStringLiteral("reagent/assayTemplate"), QStringLiteral("检测项目")},
        {QStringLiteral("reagent/unit"), QStringLiteral("单位")},
        {QStringLiteral("reagent/targetValue"), QStringLiteral("靶值")},
        {QStringLiteral("reagent/mean"), QStringLiteral("均值")},
        {QStringLiteral("reagent/sd"), QStringLiteral("标准差")},
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
