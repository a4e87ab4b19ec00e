#include "assayconfigwriter.h"

#include "assaycatalogue.h"
#include "tablewriter.h"

namespace coagulation {

namespace {
QVariant limitOrNull(double limit)
{
    return limit != 0.0 ? QVariant(limit) : QVariant(QMetaType(QMetaType::Double));
}
} // namespace

bool AssayConfigWriter::write(QSqlDatabase db)
{
    TableWriter templates(db, QStringLiteral("assayTemplate"),
                          {QStringLiteral("id"), QStringLiteral("name"), QStringLiteral("method")});
    TableWriter items(db, QStringLiteral("assayItem"),
                      {QStringLiteral("id"), QStringLiteral("assayTemplateId"), QStringLiteral("name"),
                       QStringLiteral("abbr"), QStringLiteral("code"), QStringLiteral("unit"),
                       QStringLiteral("precision"), QStringLiteral("visible"), QStringLiteral("referenceLow"),
                       QStringLiteral("referenceHigh"), QStringLiteral("criticalLow"),
                       QStringLiteral("criticalHigh"), QStringLiteral("displayOrder")});
    const QStringList names = AssayCatalogue::templateNames();
    const QList<AssayDefinition>& assays = AssayCatalogue::assays();
    for (int t = 0; t < names.size(); ++t) {
        QString method;
        for (const AssayDefinition& assay : assays) {
            if (assay.templateName == names.at(t)) {
                method = assay.method;
                break;
            }
        }
        if (!templates.insert({t + 1, names.at(t), method})) {
            m_errorString = templates.errorString();
            return false;
        }
    }
    for (int i = 0; i < assays.size(); ++i) {
        const AssayDefinition& assay = assays.at(i);
        if (!items.insert({i + 1, int(names.indexOf(assay.templateName)) + 1, assay.name, assay.abbr,
                           assay.code, assay.unit, assay.precision, assay.visible ? 1 : 0, assay.referenceLow,
                           assay.referenceHigh, limitOrNull(assay.criticalLow),
                           limitOrNull(assay.criticalHigh), i + 1})) {
            m_errorString = items.errorString();
            return false;
        }
    }
    return true;
}

} // namespace coagulation
