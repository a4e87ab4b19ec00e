#include "generalcreator.h"

namespace coagulation {

GeneralCreator::GeneralCreator(const QString& iconName, SelectionMode mode, const QString& group,
                               QObject* parent)
    : ReportItemCreator(mode, parent), m_icon(QStringLiteral(":/resources/%1.png").arg(iconName)),
      m_group(group)
{}

GeneralRectCreator::GeneralRectCreator(const QString& iconName, const QString& group, QObject* parent)
    : GeneralCreator(iconName, DragRectSelection, group, parent)
{}

GeneralRectCreator::GeneralRectCreator(const QString& iconName, QObject* parent)
    : GeneralRectCreator(iconName, QString(), parent)
{}

} // namespace coagulation
