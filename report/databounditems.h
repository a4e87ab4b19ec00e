#pragma once

#include "drawingitems.h"

namespace coagulation {

class Profile;

// A column of the record being printed; shows "[display name]" in the designer.
class REPORT_EXPORT ReportFieldItem : public ReportTextItem
{
    Q_OBJECT
public:
    explicit ReportFieldItem(Profile* profile);
    ReportFieldItem(Profile* profile, const QString& table, const QString& field);

    Profile* profile() const { return m_profile; }
    QString table() const { return m_table; }
    void setTable(const QString& table);
    QString field() const { return m_field; }
    void setField(const QString& field);

    void updateData() override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;

private:
    void setDesignerText();

    Profile* m_profile;
    QString m_table;
    QString m_field;
};

// A property of the print job or of the QC data: date, time, page, qc/item, qc/abbr, qc/unit, qc/fileno.
class REPORT_EXPORT ReportPropItem : public ReportTextItem
{
    Q_OBJECT
public:
    explicit ReportPropItem(Profile* profile);
    ReportPropItem(Profile* profile, const QString& name);

    Profile* profile() const { return m_profile; }
    QString propName() const { return m_propName; }
    void setPropName(const QString& name);

    void updateData() override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;

private:
    QString text() const;

    Profile* m_profile;
    QString m_propName;
};

// A value from the host's settings, such as the hospital name.
class REPORT_EXPORT ReportProfileItem : public ReportTextItem
{
    Q_OBJECT
public:
    explicit ReportProfileItem(Profile* profile);
    ReportProfileItem(Profile* profile, const QString& name);

    Profile* profile() const { return m_profile; }
    QString propName() const { return m_propName; }
    void setPropName(const QString& name);

    void updateData() override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;

private:
    void setDesignerText();

    Profile* m_profile;
    QString m_propName;
};

// The month of a maintenance report, "yyyy-MM".
class REPORT_EXPORT ReportMonthItem : public ReportTextItem
{
    Q_OBJECT
public:
    ReportMonthItem();
    void updateData() override;
};

// A caption for the operator's signature; stays as designed.
class REPORT_EXPORT ReportOperatorItem : public ReportTextItem
{
    Q_OBJECT
public:
    ReportOperatorItem();
};

} // namespace coagulation
