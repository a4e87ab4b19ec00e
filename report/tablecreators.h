#pragma once

#include "generalcreator.h"

namespace coagulation {

class Profile;

// The patient's result table.
class REPORT_EXPORT PatientTableCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    PatientTableCreator(Profile* profile, const QString& group, QObject* parent = nullptr);

    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;

private:
    Profile* m_profile;
};

// The control limits (or mean, SD and CV) of the QC material.
class REPORT_EXPORT QcInfoTableCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit QcInfoTableCreator(const QString& group, QObject* parent = nullptr);

    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

// The QC information with the values computed from the printed points.
class REPORT_EXPORT QcInfoDetailsTableCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit QcInfoDetailsTableCreator(const QString& group, QObject* parent = nullptr);

    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

// The multi-column list of QC results.
class REPORT_EXPORT QcTableCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit QcTableCreator(const QString& group, QObject* parent = nullptr);

    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

} // namespace coagulation
