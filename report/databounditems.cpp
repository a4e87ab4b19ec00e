#include "databounditems.h"

#include <core/profile.h>
#include <kvcore/assayitem.h>
#include <kvcore/assaytemplate.h>
#include <kvcore/maintenanceexportdata.h>
#include <kvcore/qcexportdata.h>
#include <kvcore/sample.h>

#include <QDataStream>
#include <QDateTime>
#include <QLocale>
#include <QSqlRecord>

namespace coagulation {

namespace {

QString formatValue(const QVariant& value, QMetaType::Type type)
{
    const QLocale locale;
    switch (type) {
    case QMetaType::QDate: {
        const QDate date = value.toDate();
        return date.isValid() ? locale.toString(date, QLocale::ShortFormat) : QString();
    }
    case QMetaType::QTime: {
        QTime time = value.toTime();
        if (!time.isValid()) {
            const QDateTime dateTime = value.toDateTime();
            if (dateTime.isValid())
                time = dateTime.time();
        }
        return time.isValid() ? locale.toString(time, QLocale::ShortFormat) : QString();
    }
    case QMetaType::QDateTime: {
        const QDateTime dateTime = value.toDateTime();
        return dateTime.isValid() ? locale.toString(dateTime, QLocale::ShortFormat) : QString();
    }
    default:
        return value.toString();
    }
}

} // namespace

// --- ReportFieldItem ------------------------------------------------------------------------

ReportFieldItem::ReportFieldItem(Profile* profile) : ReportTextItem(false), m_profile(profile) {}

ReportFieldItem::ReportFieldItem(Profile* profile, const QString& table, const QString& field)
    : ReportTextItem(false), m_profile(profile), m_table(table), m_field(field)
{
    setDesignerText();
}

void ReportFieldItem::setTable(const QString& table)
{
    m_table = table;
    setDesignerText();
}

void ReportFieldItem::setField(const QString& field)
{
    m_field = field;
    setDesignerText();
}

void ReportFieldItem::setDesignerText()
{
    const QString key = QStringLiteral("%1/%2").arg(m_table, m_field);
    const QString name = m_profile ? m_profile->value(key, m_field).toString() : m_field;
    setPlainText(QStringLiteral("[%1]").arg(name));
}

void ReportFieldItem::updateData()
{
    Report* r = report();
    if (!r)
        return;
    const QVariant value = r->record(m_table).value(m_field);
    showData(formatValue(value, r->fieldType(m_table, m_field)));
}

void ReportFieldItem::save(QDataStream& out)
{
    ReportTextItem::save(out);
    out << qint8(1) << m_table << m_field;
}

void ReportFieldItem::load(QDataStream& in)
{
    ReportTextItem::load(in);
    qint8 version = 0;
    in >> version >> m_table >> m_field;
}

// --- ReportPropItem -------------------------------------------------------------------------

ReportPropItem::ReportPropItem(Profile* profile) : ReportTextItem(false), m_profile(profile) {}

ReportPropItem::ReportPropItem(Profile* profile, const QString& name)
    : ReportTextItem(false), m_profile(profile), m_propName(name)
{
    updateData();
}

void ReportPropItem::setPropName(const QString& name)
{
    m_propName = name;
    updateData();
}

QString ReportPropItem::text() const
{
    const Report* r = report();
    const QcExportData* qc = r ? r->qcData() : nullptr;
    if (m_propName == QLatin1String("date"))
        return QLocale().toString(QDate::currentDate(), QLocale::LongFormat);
    if (m_propName == QLatin1String("time"))
        return QTime::currentTime().toString(Qt::TextDate);
    if (m_propName == QLatin1String("page"))
        return tr("%1/%2").arg(r ? r->currentPage() : 1).arg(r ? r->pageCount() : 1);
    if (m_propName == QLatin1String("qc/item"))
        return qc && qc->assayTemplate ? qc->assayTemplate->name() : QStringLiteral("[PT]");
    if (m_propName == QLatin1String("qc/abbr"))
        return qc && qc->assayItem ? qc->assayItem->abbr() : QStringLiteral("[PT-S]");
    if (m_propName == QLatin1String("qc/unit"))
        return qc && qc->assayItem ? qc->assayItem->unit() : QStringLiteral("[s]");
    if (m_propName == QLatin1String("qc/fileno"))
        return qc ? Sample::qcName(qc->controlNo, m_profile) : QStringLiteral("[QC01]");
    return m_propName;
}

void ReportPropItem::updateData()
{
    showData(text());
}

void ReportPropItem::save(QDataStream& out)
{
    ReportTextItem::save(out);
    out << qint8(1) << m_propName;
}

void ReportPropItem::load(QDataStream& in)
{
    ReportTextItem::load(in);
    qint8 version = 0;
    in >> version >> m_propName;
}

// --- ReportProfileItem ----------------------------------------------------------------------

ReportProfileItem::ReportProfileItem(Profile* profile) : ReportTextItem(false), m_profile(profile) {}

ReportProfileItem::ReportProfileItem(Profile* profile, const QString& name)
    : ReportTextItem(false), m_profile(profile), m_propName(name)
{
    setDesignerText();
}

void ReportProfileItem::setPropName(const QString& name)
{
    m_propName = name;
    setDesignerText();
}

void ReportProfileItem::setDesignerText()
{
    setPlainText(QStringLiteral("[%1]").arg(m_propName));
}

void ReportProfileItem::updateData()
{
    showData(m_profile ? m_profile->value(m_propName).toString() : QString());
}

void ReportProfileItem::save(QDataStream& out)
{
    ReportTextItem::save(out);
    out << qint8(1) << m_propName;
}

void ReportProfileItem::load(QDataStream& in)
{
    ReportTextItem::load(in);
    qint8 version = 0;
    in >> version >> m_propName;
}

// --- ReportMonthItem / ReportOperatorItem ---------------------------------------------------

ReportMonthItem::ReportMonthItem() : ReportTextItem(true)
{
    setPlainText(QDate::currentDate().toString(QStringLiteral("yyyy-MM")));
}

void ReportMonthItem::updateData()
{
    Report* r = report();
    // Only a maintenance report has a month to show.
    if (!r || !r->maintenanceData())
        return;
    showData(r->maintenanceData()->month.toString(QStringLiteral("yyyy-MM")));
}

ReportOperatorItem::ReportOperatorItem() : ReportTextItem(true)
{
    setPlainText(tr("操作者"));
}

} // namespace coagulation
