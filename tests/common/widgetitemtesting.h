#pragma once

// Helpers for the items that show a widget on the page: what reaches the widget, their payloads,
// and the printed page as a reader sees it.

#include "payload.h"

#include <report.h>
#include <reportitembase.h>

#include <QDataStream>
#include <QDir>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace coagulation::test {

// Counts the clicks, drags and wheel turns that reach a widget. Plain moves are hover, which a
// proxy passes on so that the widget's cursor shows.
class MouseCounter : public QObject
{
public:
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::MouseMove:
            if (static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton)
                ++count;
            break;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
            ++count;
            break;
        default:
            break;
        }
        return false;
    }
};

// Where printed pages go: kept under build/out/<name> with COAGULATION_KEEP_OUTPUT set (to look
// at them), else in the temporary folder.
inline QString outputDir(const QString& name, const QTemporaryDir& tmp)
{
    const QString kept =
        QDir(QStringLiteral(TESTS_SOURCE_DIR)).filePath(QStringLiteral("../build/out/") + name);
    return qEnvironmentVariableIsSet("COAGULATION_KEEP_OUTPUT") && QDir().mkpath(kept) ? kept : tmp.path();
}

// The first page at 96 dpi as pdftoppm sees it, written next to the PDF; null without pdftoppm.
inline QImage pdfToPng(const QString& pdfFileName)
{
    const QString pdftoppm = QStandardPaths::findExecutable(QStringLiteral("pdftoppm"));
    if (pdftoppm.isEmpty())
        return QImage();
    QString base = pdfFileName;
    base.chop(4); // ".pdf"
    if (QProcess::execute(pdftoppm, {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("96"),
                                     QStringLiteral("-singlefile"), pdfFileName, base}) != 0)
        return QImage();
    return QImage(base + QStringLiteral(".png"));
}

} // namespace coagulation::test
