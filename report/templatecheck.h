#pragma once

#include "report_global.h"

#include <QCoreApplication>
#include <QString>

namespace coagulation {

class ItemFactory;

// Tells whether a template file loads completely: a usable header (known type and version,
// resolution above zero, a finite page size above zero), every declared item made and read
// without a stream error, and nothing after the last item. Report::load accepts more (a broken
// item list loads as an empty page); callers that must not print or overwrite a damaged
// template check it first.
class REPORT_EXPORT TemplateCheck
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::TemplateCheck)
public:
    explicit TemplateCheck(ItemFactory* factory);

    bool check(const QString& fileName);
    // What is wrong with the last file checked, naming the item (from 1, and its key) where one is
    // concerned; empty after a good file. The file name is left to the caller.
    QString errorString() const { return m_errorString; }

private:
    bool fail(const QString& message);

    ItemFactory* m_factory;
    QString m_errorString;
};

} // namespace coagulation
