#pragma once

#include <QPointF>
#include <QString>

namespace coagulation {

class TemplateBuilder;

// Page furniture shared by the layouts; each returns the y below what it placed.
namespace PageFurniture {
double header(TemplateBuilder& builder, const QString& title);
void footer(TemplateBuilder& builder);
// Left and right content margins of a portrait A4 page, in scene units.
constexpr double margin = 45.0;
// Left edges of the four columns of an information block on that page, and its right end.
inline constexpr double columnX[] = {margin, margin + 190, margin + 340, margin + 510, 749};
// A caption with a line to sign on.
void signature(TemplateBuilder& builder, const QString& label, const QPointF& pos);
} // namespace PageFurniture

namespace Layouts {
void patientReport(TemplateBuilder& builder);
void qcSampleReport(TemplateBuilder& builder);
void qcReport(TemplateBuilder& builder);
void maintenanceReport(TemplateBuilder& builder);
} // namespace Layouts

} // namespace coagulation
