#pragma once

#include <kvcore/reporttype.h>

#include <QList>
#include <QString>

namespace coagulation {

class Report;
class TemplateBuilder;

// One of the templates a new installation starts with.
struct DefaultTemplate
{
    const char* title; // base name of the template file, in Chinese
    kv::ReportType type;
    QString settingKey; // profile key under which the printer remembers the choice
    void (*build)(TemplateBuilder& builder);

    QString name() const; // the title in the session's language
};

// The default templates, built in code so that they can be reviewed and rebuilt.
class DefaultTemplates
{
public:
    // Result rows the patient templates have room for: the ten visible assays of the demo
    // catalogue, each measured twice.
    static constexpr int patientResultRows = 20;

    static const QList<DefaultTemplate>& all();
    static const DefaultTemplate* find(const QString& name);

    // Lays the template out on an empty report (page set-up included); the report needs a profile
    // that names the database columns, as the designer's profile does.
    static void build(const DefaultTemplate& entry, Report* report);

    // Writes every template as "<name>.rpt" into the directory, which is created when missing.
    static bool writeAll(const QString& directory, QString* errorString);
};

} // namespace coagulation
