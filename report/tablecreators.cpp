#include "tablecreators.h"

#include "multicoltableitems.h"
#include "qcinfotableitems.h"
#include "tableitems.h"

namespace coagulation {

namespace {

constexpr QLatin1String tableIcon("toolText");

} // namespace

// --- PatientTableCreator ----------------------------------------------------------------------

PatientTableCreator::PatientTableCreator(Profile* profile, const QString& group, QObject* parent)
    : GeneralRectCreator(tableIcon, group, parent), m_profile(profile)
{}

QList<QString> PatientTableCreator::keys() const
{
    return {QStringLiteral("Results"), QStringLiteral("结果")};
}

QString PatientTableCreator::name() const
{
    return tr("结果");
}

ReportItem* PatientTableCreator::create()
{
    return new ReportPatientTableItem(m_profile);
}

// --- QcInfoTableCreator -----------------------------------------------------------------------

QcInfoTableCreator::QcInfoTableCreator(const QString& group, QObject* parent)
    : GeneralRectCreator(tableIcon, group, parent)
{}

QList<QString> QcInfoTableCreator::keys() const
{
    return {QStringLiteral("QcControlInfo")};
}

QString QcInfoTableCreator::name() const
{
    return tr("多规则/上下限值");
}

ReportItem* QcInfoTableCreator::create()
{
    return new ReportQcInfoTableItem;
}

// --- QcInfoDetailsTableCreator ----------------------------------------------------------------

QcInfoDetailsTableCreator::QcInfoDetailsTableCreator(const QString& group, QObject* parent)
    : GeneralRectCreator(tableIcon, group, parent)
{}

QList<QString> QcInfoDetailsTableCreator::keys() const
{
    return {QStringLiteral("QcControlInfoDetails")};
}

QString QcInfoDetailsTableCreator::name() const
{
    return tr("多规则/上下限值（带计算值）");
}

ReportItem* QcInfoDetailsTableCreator::create()
{
    return new ReportQcInfoDetailsTableItem;
}

// --- QcTableCreator ---------------------------------------------------------------------------

QcTableCreator::QcTableCreator(const QString& group, QObject* parent)
    : GeneralRectCreator(tableIcon, group, parent)
{}

QList<QString> QcTableCreator::keys() const
{
    return {QStringLiteral("QcTable")};
}

QString QcTableCreator::name() const
{
    return tr("质控结果");
}

ReportItem* QcTableCreator::create()
{
    return new ReportQcTableItem;
}

} // namespace coagulation
