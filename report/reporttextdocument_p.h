#pragma once

#include <QTextDocument>

namespace coagulation {

// The document of a text item. A template's HTML must not reach outside the template: no file,
// device or network resource is ever loaded, whatever an image or style sheet names (a name
// like "/dev/stdin" would block, "/dev/zero" would read until memory runs out).
class ReportTextDocument : public QTextDocument
{
public:
    using QTextDocument::QTextDocument;

protected:
    QVariant loadResource(int type, const QUrl& name) override;
};

} // namespace coagulation
