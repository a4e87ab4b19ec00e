#include "maintenancegenerator.h"
#include "labtext.h"

#include "tablewriter.h"

#include <kvcore/maintenancemanager.h>

namespace coagulation {

namespace {

// A long note, a few times a month: the worst case for the printed table.
QString longNote()
{
    return LabText::tr("试剂位温度曾短时升至十二摄氏度，复测恢复正常；已记录报警时间并通知工程师，"
                       "下次巡检时检查制冷模块与温度传感器");
}

struct Task
{
    QString name;
    bool check;      // a check reports "正常"/"异常"; other tasks report "已完成"
    QString problem; // what the operator notes when something was wrong
};

const QList<Task>& taskList(int recordType)
{
    static const QList<Task> daily = {
        {LabText::tr("检查试剂位温度"), true, LabText::tr("试剂位温度偏高，已通知工程师")},
        {LabText::tr("检查清洗液余量"), true, LabText::tr("清洗液不足，已补充")},
        {LabText::tr("排空废液"), false, LabText::tr("废液桶传感器报警，已复位")},
        {LabText::tr("清洗探针"), false, LabText::tr("探针堵塞，已疏通")},
        {LabText::tr("检查反应杯余量"), true, LabText::tr("反应杯不足，已补充")},
    };
    static const QList<Task> weekly = {
        {LabText::tr("更换清洗液"), false, LabText::tr("清洗液批号更换")},
        {LabText::tr("清洁样本针和试剂针外壁"), false, LabText::tr("针外壁有结晶，已反复擦拭")},
        {LabText::tr("清洁试剂仓"), false, LabText::tr("试剂仓内有冷凝水，已擦干")},
        {LabText::tr("检查管路有无漏液"), true, LabText::tr("管路接头渗漏，已紧固")},
        {LabText::tr("清空废弃反应杯盒"), false, QString()},
    };
    static const QList<Task> monthly = {
        {LabText::tr("清洁散热过滤网"), false, LabText::tr("过滤网积尘较多")},
        {LabText::tr("检查光路及光源强度"), true, LabText::tr("光源强度下降，已预约更换灯泡")},
        {LabText::tr("检查注射器密封性"), true, LabText::tr("注射器漏气，已更换密封圈")},
        {LabText::tr("清洁反应盘"), false, QString()},
        {LabText::tr("备份数据库"), false, LabText::tr("备份盘空间不足，已清理")},
    };
    static const QList<Task> none;
    switch (recordType) {
    case MaintenanceManager::DailyMaintenance:
        return daily;
    case MaintenanceManager::WeeklyMaintenance:
        return weekly;
    case MaintenanceManager::MonthlyMaintenance:
        return monthly;
    default:
        return none;
    }
}

} // namespace

MaintenanceGenerator::MaintenanceGenerator(quint32 seed, const QDate& lastDay, const QStringList& staff)
    : m_random(seed, 3), m_lastDay(lastDay), m_staff(staff)
{}

QStringList MaintenanceGenerator::tasks(int recordType)
{
    QStringList names;
    for (const Task& task : taskList(recordType))
        names.append(task.name);
    return names;
}

bool MaintenanceGenerator::write(QSqlDatabase db, int months)
{
    TableWriter workbenches(db, QStringLiteral("workbench"), {QStringLiteral("id"), QStringLiteral("name")});
    const QStringList names = {LabText::tr("1号凝血分析仪"), LabText::tr("2号凝血分析仪")};
    for (int i = 0; i < names.size(); ++i) {
        if (!workbenches.insert({i + 1, names.at(i)})) {
            m_errorString = workbenches.errorString();
            return false;
        }
    }
    if (months <= 0)
        return true;

    TableWriter records(db, QStringLiteral("maintenanceRecord"),
                        {QStringLiteral("id"), QStringLiteral("workbench"), QStringLiteral("recordType"),
                         QStringLiteral("date"), QStringLiteral("task"), QStringLiteral("operator"),
                         QStringLiteral("result"), QStringLiteral("remark")});
    qint64 id = 1;
    const QDate lastMonth(m_lastDay.year(), m_lastDay.month(), 1);
    for (QDate day = lastMonth.addMonths(1 - months); day <= m_lastDay; day = day.addDays(1)) {
        for (int workbench = 1; workbench <= names.size(); ++workbench) {
            QList<int> due;
            if (m_random.chance(0.96))
                due.append(MaintenanceManager::DailyMaintenance);
            if (day.dayOfWeek() == Qt::Monday && m_random.chance(0.97))
                due.append(MaintenanceManager::WeeklyMaintenance);
            if (day.dayOfWeek() == Qt::Saturday && day.day() <= 7 && m_random.chance(0.95))
                due.append(MaintenanceManager::MonthlyMaintenance);
            const QString operatorName = m_staff.isEmpty() ? QString() : m_random.pick(m_staff);
            for (int recordType : due) {
                for (const Task& task : taskList(recordType)) {
                    const bool problem = !task.problem.isEmpty() && m_random.chance(0.02);
                    const QString result = !task.check ? LabText::tr("已完成")
                                           : problem   ? LabText::tr("异常")
                                                       : LabText::tr("正常");
                    QString remark = problem ? task.problem : QString();
                    if (remark.isEmpty() && recordType == MaintenanceManager::DailyMaintenance &&
                        task.name == taskList(recordType).first().name && day.day() % 9 == 5)
                        remark = longNote();
                    if (!records.insert({id++, workbench, recordType,
                                         day.toString(QStringLiteral("yyyy-MM-dd")), task.name, operatorName,
                                         result, remark})) {
                        m_errorString = records.errorString();
                        return false;
                    }
                }
            }
        }
    }
    return true;
}

} // namespace coagulation
