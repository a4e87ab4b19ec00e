#pragma once

#include "reportitemcreator.h"

namespace coagulation {

// A palette entry with an icon from the library's resources and a palette group.
class REPORT_EXPORT GeneralCreator : public ReportItemCreator
{
    Q_OBJECT
public:
    GeneralCreator(const QString& iconName, SelectionMode mode, const QString& group,
                   QObject* parent = nullptr);

    QString group() const override { return m_group; }
    QIcon icon() const override { return m_icon; }

private:
    QIcon m_icon;
    QString m_group;
};

// A tool that draws its item by dragging a rectangle.
class REPORT_EXPORT GeneralRectCreator : public GeneralCreator
{
    Q_OBJECT
public:
    GeneralRectCreator(const QString& iconName, const QString& group, QObject* parent = nullptr);
    explicit GeneralRectCreator(const QString& iconName, QObject* parent = nullptr);
};

} // namespace coagulation
