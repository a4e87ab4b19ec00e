#include "maintenancerecordmodel.h"

#include "maintenancerecords.h"
#include "workbench.h"

#include <QCoreApplication>

namespace coagulation {

namespace {

// Results that say nothing beyond "done": the cell then only names the operator. Records are
// written in the language of the laboratory, which need not be the session's.
bool isNotable(const QString& result)
{
    for (const char* plain : {QT_TRANSLATE_NOOP("coagulation::MaintenanceRecordModel", "正常"),
                              QT_TRANSLATE_NOOP("coagulation::MaintenanceRecordModel", "已完成")}) {
        if (result == QLatin1String(plain) ||
            result == QCoreApplication::translate("coagulation::MaintenanceRecordModel", plain))
            return false;
    }
    return !result.isEmpty();
}

// Long task names break into lines of a few characters so that the columns stay narrow; names
// made of words break between words.
QString wrapped(const QString& text, int width)
{
    QStringList lines;
    if (text.contains(QLatin1Char(' '))) {
        for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
            if (!lines.isEmpty() && lines.last().size() + 1 + word.size() <= 2 * width)
                lines.last() += QLatin1Char(' ') + word;
            else
                lines.append(word);
        }
        return lines.join(QLatin1Char('\n'));
    }
    // As even as can be: seven characters break 4 + 3, not 6 + 1.
    const qsizetype count = qMax<qsizetype>(1, (text.size() + width - 1) / width);
    const qsizetype perLine = (text.size() + count - 1) / count;
    for (qsizetype i = 0; i < text.size(); i += perLine)
        lines.append(text.mid(i, perLine));
    return lines.join(QLatin1Char('\n'));
}

} // namespace

MaintenanceRecordModel::MaintenanceRecordModel(Workbench* workbench, const QDate& month,
                                               MaintenanceManager::RecordType recordType, QObject* parent)
    : QAbstractTableModel(parent), m_workbench(workbench), m_month(month), m_recordType(recordType)
{
    read();
}

void MaintenanceRecordModel::updateInfo(Workbench* workbench, const QDate& month,
                                        MaintenanceManager::RecordType recordType)
{
    beginResetModel();
    m_workbench = workbench;
    m_month = month;
    m_recordType = recordType;
    read();
    endResetModel();
}

void MaintenanceRecordModel::read()
{
    m_records.clear();
    m_days.clear();
    m_tasks.clear();
    m_cells.clear();
    m_remarks.clear();
    if (!m_workbench)
        return;
    m_records = MaintenanceRecords(m_workbench->profile()).records(m_workbench, m_month, m_recordType);
    // Tasks in the order they were first done; days in date order (the records come sorted).
    for (const MaintenanceRecord& record : m_records) {
        if (!m_tasks.contains(record.task))
            m_tasks.append(record.task);
    }
    for (const MaintenanceRecord& record : m_records) {
        if (m_days.isEmpty() || m_days.last() != record.date) {
            m_days.append(record.date);
            m_cells.append(QList<Cell>(m_tasks.size()));
            m_remarks.append(QStringList());
        }
        Cell& cell = m_cells.last()[m_tasks.indexOf(record.task)];
        if (!record.operatorName.isEmpty() && !cell.operators.contains(record.operatorName))
            cell.operators.append(record.operatorName);
        if (isNotable(record.result))
            cell.notableResults.append(record.result);
        if (!record.remark.isEmpty())
            m_remarks.last().append(record.remark);
    }
}

int MaintenanceRecordModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_days.size());
}

int MaintenanceRecordModel::columnCount(const QModelIndex& parent) const
{
    // With no records one column says so.
    return parent.isValid() ? 0 : int(m_tasks.size()) + 1;
}

QVariant MaintenanceRecordModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_days.size() || index.column() > m_tasks.size())
        return QVariant();
    if (isRemarkColumn(index.column())) {
        if (role == Qt::DisplayRole)
            return m_remarks.at(index.row()).join(QStringLiteral("；"));
        return QVariant();
    }
    const Cell& cell = m_cells.at(index.row()).at(index.column());
    switch (role) {
    case Qt::DisplayRole: {
        const QString separator = tr("、");
        QString text = cell.operators.join(separator);
        if (!cell.notableResults.isEmpty())
            text += QLatin1Char('\n') + cell.notableResults.join(separator);
        return text;
    }
    case NotableResultRole:
        return !cell.notableResults.isEmpty();
    default:
        return QVariant();
    }
}

QVariant MaintenanceRecordModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || section < 0)
        return QVariant();
    if (orientation == Qt::Vertical)
        return section < m_days.size() ? QVariant(m_days.at(section).toString(QStringLiteral("MM-dd")))
                                       : QVariant();
    if (section < m_tasks.size())
        return wrapped(m_tasks.at(section), 6);
    if (section == m_tasks.size())
        return m_tasks.isEmpty() ? tr("无记录") : tr("备注");
    return QVariant();
}

} // namespace coagulation
