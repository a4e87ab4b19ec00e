#include <core/profile.h>
#include <kvcore/sample.h>

#include <QTest>

using namespace coagulation;

class TestSample : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void qcName_data();
    void qcName();
    void sampleTypeOf_data();
    void sampleTypeOf();
};

void TestSample::qcName_data()
{
    QTest::addColumn<QString>("prefix"); // null: setting absent
    QTest::addColumn<int>("controlNo");
    QTest::addColumn<QString>("expected");
    QTest::newRow("one") << QString() << 1 << "QC01";
    QTest::newRow("twelve") << QString() << 12 << "QC12";
    QTest::newRow("three digits") << QString() << 123 << "QC123";
    QTest::newRow("zero") << QString() << 0 << "QC00";
    QTest::newRow("own prefix") << "ZK" << 7 << "ZK07";
    QTest::newRow("empty prefix") << "" << 5 << "05";
}

void TestSample::qcName()
{
    QFETCH(QString, prefix);
    QFETCH(int, controlNo);
    QFETCH(QString, expected);
    Profile profile;
    if (!prefix.isNull())
        profile.setValue(QStringLiteral("sample/qcPrefix"), prefix);
    QCOMPARE(Sample::qcName(controlNo, &profile), expected);
    if (prefix.isNull())
        QCOMPARE(Sample::qcName(controlNo, nullptr), expected);
    // A QC file number is always recognised as a QC sample, whatever the prefix.
    if (!prefix.isEmpty())
        QCOMPARE(Sample::sampleTypeOf(expected, &profile), kv::QcSample);
}

void TestSample::sampleTypeOf_data()
{
    QTest::addColumn<QString>("qcPrefix");
    QTest::addColumn<QString>("emergencyPrefix");
    QTest::addColumn<QString>("sampleNo");
    QTest::addColumn<int>("expected");

    const QString unset;
    QTest::newRow("patient digits") << unset << unset << "2406280017" << int(kv::PatientSample);
    QTest::newRow("qc") << unset << unset << "QC03" << int(kv::QcSample);
    QTest::newRow("qc lower case") << unset << unset << "qc03" << int(kv::QcSample);
    QTest::newRow("qc with blanks") << unset << unset << "  QC03 " << int(kv::QcSample);
    QTest::newRow("emergency") << unset << unset << "E2406280002" << int(kv::EmergencySample);
    QTest::newRow("emergency lower case") << unset << unset << "e17" << int(kv::EmergencySample);
    QTest::newRow("q alone is patient") << unset << unset << "Q12" << int(kv::PatientSample);
    QTest::newRow("empty") << unset << unset << "" << int(kv::PatientSample);
    QTest::newRow("own qc prefix") << "ZK" << unset << "ZK01" << int(kv::QcSample);
    QTest::newRow("default prefix no longer qc") << "ZK" << unset << "QC01" << int(kv::PatientSample);
    QTest::newRow("qc prefix starting with E wins") << "EQ" << unset << "EQ01" << int(kv::QcSample);
    const QString jz = QStringLiteral("JZ");
    QTest::newRow("own emergency prefix") << unset << jz << "JZ0001" << int(kv::EmergencySample);
    QTest::newRow("E no longer emergency") << unset << jz << "E0001" << int(kv::PatientSample);
    QTest::newRow("empty prefixes match nothing")
        << QString("") << QString("") << "QC01" << int(kv::PatientSample);
}

void TestSample::sampleTypeOf()
{
    QFETCH(QString, qcPrefix);
    QFETCH(QString, emergencyPrefix);
    QFETCH(QString, sampleNo);
    QFETCH(int, expected);
    Profile profile;
    if (!qcPrefix.isNull())
        profile.setValue(QStringLiteral("sample/qcPrefix"), qcPrefix);
    if (!emergencyPrefix.isNull())
        profile.setValue(QStringLiteral("sample/emergencyPrefix"), emergencyPrefix);
    QCOMPARE(int(Sample::sampleTypeOf(sampleNo, &profile)), expected);
    if (qcPrefix.isNull() && emergencyPrefix.isNull())
        QCOMPARE(int(Sample::sampleTypeOf(sampleNo, nullptr)), expected);
}

QTEST_GUILESS_MAIN(TestSample)
#include "tst_sample.moc"
