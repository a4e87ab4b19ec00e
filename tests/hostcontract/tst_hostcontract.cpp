// The library uses only what the host provides: every host header it includes and every host
// symbol it links against is on the allow-list below, and it never asks the platform or the
// environment how to behave.
#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>
#include <QtTest>

namespace {

const QSet<QString> allowedHeaders = {
    // core
    "core/analysisresult.h", "core/information.h", "core/profile.h", "core/toplevelwidget.h",
    "core/waitcursor.h",
    // kvcore
    "kvcore/assayitem.h", "kvcore/assaytemplate.h", "kvcore/datastorage.h",
    "kvcore/datastoragefactoryinterface.h", "kvcore/maintenanceexportdata.h", "kvcore/maintenancemanager.h",
    "kvcore/maintenancerecorddelegate.h", "kvcore/maintenancerecordmodel.h", "kvcore/maintenancetableview.h",
    "kvcore/qcexportdata.h", "kvcore/qcplot.h", "kvcore/qcplotscale.h", "kvcore/qcpoint.h",
    "kvcore/reporttype.h", "kvcore/sample.h", "kvcore/sampletype.h", "kvcore/statistic.h",
    "kvcore/workbench.h", "kvcore/workspace.h",
    // the plot's Qwt scale-draw interface
    "kvcore/qcscaledraw.h", "kvcore/qcscalewidget.h"};

// Host classes whose members the library may call, and host functions it may call.
const QStringList allowedClasses = {
    // core
    "Profile", "AnalysisResult", "WaitCursor",
    // kvcore
    "DataStorage", "DataStorageFactoryInterface", "Workspace", "Sample", "AssayItem", "AssayTemplate",
    "QcPlot", "QcPlotScale", "QcPoint", "MaintenanceTableView", "MaintenanceRecordModel",
    "MaintenanceRecordDelegate", "Workbench", "QcExportData", "MaintenanceExportData", "QcScaleDraw",
    "QcScaleWidget"};
const QStringList allowedFunctions = {"topLevelWidget", "information", "statistic"};

QString sourceDir()
{
    return QDir(QStringLiteral(TESTS_SOURCE_DIR "/..")).absolutePath();
}

// Demangled dynamic symbols of a library, defined or undefined.
QSet<QString> dynamicSymbols(const QString& library, bool defined)
{
    QProcess nm;
    nm.start(QStringLiteral("nm"),
             {QStringLiteral("-D"), QStringLiteral("-C"),
              defined ? QStringLiteral("--defined-only") : QStringLiteral("--undefined-only"), library});
    if (!nm.waitForFinished(60000) || nm.exitCode() != 0)
        return {};
    QSet<QString> symbols;
    static const QRegularExpression line(QStringLiteral("^(?:[0-9a-f]+)?\\s+\\w\\s+(.+)$"));
    for (const QString& text : QString::fromUtf8(nm.readAllStandardOutput()).split(QLatin1Char('\n'))) {
        const QRegularExpressionMatch match = line.match(text);
        if (match.hasMatch())
            symbols.insert(match.captured(1).trimmed());
    }
    return symbols;
}

bool isAllowed(QString symbol)
{
    static const QRegularExpression decoration(
        QStringLiteral("^(vtable for |typeinfo for |typeinfo name for |non-virtual thunk to )"));
    symbol.remove(decoration);
    for (const QString& name : allowedClasses) {
        if (symbol.startsWith(QStringLiteral("coagulation::%1::").arg(name)) ||
            symbol == QStringLiteral("coagulation::%1").arg(name))
            return true;
    }
    for (const QString& name : allowedFunctions) {
        if (symbol.startsWith(QStringLiteral("coagulation::%1(").arg(name)))
            return true;
    }
    return false;
}

} // namespace

class tst_HostContract : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void sources_data();
    void sources();
    void symbols();
};

void tst_HostContract::sources_data()
{
    QTest::addColumn<QString>("fileName");
    const QDir report(sourceDir() + QStringLiteral("/report"));
    const QStringList files = report.entryList({QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files);
    QVERIFY(files.contains(QStringLiteral("reportprinter.cpp")));
    for (const QString& file : files)
        QTest::newRow(qPrintable(file)) << report.filePath(file);
}

void tst_HostContract::sources()
{
    QFETCH(QString, fileName);
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());

    const QStringList hostFolders =
        QDir(sourceDir() + QStringLiteral("/host")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    static const QRegularExpression include(QStringLiteral("^\\s*#\\s*include\\s*[<\"]([^>\"]+)[>\"]"),
                                            QRegularExpression::MultilineOption);
    for (auto it = include.globalMatch(text); it.hasNext();) {
        const QString header = it.next().captured(1);
        if (hostFolders.contains(header.section(QLatin1Char('/'), 0, 0)))
            QVERIFY2(allowedHeaders.contains(header),
                     qPrintable(header + QStringLiteral(" is no host facility")));
    }
    // Dialogs and messages behave the same for every host: nothing asks where it runs.
    static const QRegularExpression sniffing(
        QStringLiteral("\\b(qgetenv|qEnvironmentVariable\\w*|getenv|platformName|QProcessEnvironment|"
                       "InformationLog)\\b"));
    const QRegularExpressionMatch found = sniffing.match(text);
    QVERIFY2(!found.hasMatch(), qPrintable(found.captured(0)));
}

void tst_HostContract::symbols()
{
    if (QStandardPaths::findExecutable(QStringLiteral("nm")).isEmpty())
        QSKIP("nm (binutils) not installed");
    QSet<QString> host = dynamicSymbols(QStringLiteral(CORE_LIBRARY), true);
    host.unite(dynamicSymbols(QStringLiteral(KVCORE_LIBRARY), true));
    const QSet<QString> imported = dynamicSymbols(QStringLiteral(REPORT_LIBRARY), false);
    QVERIFY(!host.isEmpty());
    QVERIFY(imported.contains(QStringLiteral("coagulation::topLevelWidget()")));

    QStringList refused;
    for (const QString& symbol : imported) {
        if (host.contains(symbol) && !isAllowed(symbol))
            refused.append(symbol);
    }
    refused.sort();
    QVERIFY2(refused.isEmpty(), qPrintable(refused.join(QLatin1Char('\n'))));
}

QTEST_MAIN(tst_HostContract)
#include "tst_hostcontract.moc"
