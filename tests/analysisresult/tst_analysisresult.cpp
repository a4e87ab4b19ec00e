#include <core/analysisresult.h>
#include <core/profile.h>

#include <QTest>

using namespace coagulation;

class TestAnalysisResult : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void toStringFormats_data();
    void toStringFormats();
    void marks_data();
    void marks();
    void parsing_data();
    void parsing();
};

void TestAnalysisResult::toStringFormats_data()
{
    QTest::addColumn<QString>("text"); // empty: built from the number
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("separator");
    QTest::addColumn<int>("flags");
    QTest::addColumn<int>("format");
    QTest::addColumn<char>("formatChar");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("expected");

    QTest::newRow("value f1") << QString() << 12.34 << QString() << 0 << 1 << 'f' << 1 << "12.3";
    QTest::newRow("value g4 all flags") << QString() << 12.3 << QString() << 65535 << 1 << 'g' << 4 << "12.3";
    QTest::newRow("value raw") << QString() << 0.5 << QString() << 0 << 0 << 'f' << 3 << "0.5";
    QTest::newRow("text f2 pads") << "2.5" << 0.0 << QString() << 0 << 1 << 'f' << 2 << "2.50";
    QTest::newRow("text raw keeps digits") << "2.50" << 0.0 << QString() << 0 << 0 << 'f' << 0 << "2.50";
    QTest::newRow("text f0 rounds") << "99.5" << 0.0 << QString() << 0 << 1 << 'f' << 0 << "100";
    QTest::newRow("text e") << "1234" << 0.0 << QString() << 0 << 1 << 'e' << 2 << "1.23e+03";
    QTest::newRow("blanks around number") << " 31.2 " << 0.0 << QString() << 0 << 1 << 'f' << 1 << "31.2";
    QTest::newRow("greater than stays") << ">150.0" << 0.0 << QString() << 0x15 << 1 << 'f' << 1 << ">150.0";
    QTest::newRow("chinese text stays") << "无凝固" << 0.0 << QString() << 0 << 1 << 'f' << 1 << "无凝固";
    QTest::newRow("empty text stays") << "" << 0.0 << QString() << 0 << 1 << 'f' << 1 << "";
    QTest::newRow("flagged high") << "15.2" << 0.0 << QString() << 1 << 2 << 'f' << 1 << "15.2↑";
    QTest::newRow("flagged text") << "<0.35" << 0.0 << QString() << 0x2a << 2 << 'f' << 2 << "<0.35↓↓";
    QTest::newRow("unknown format is 1") << "3" << 0.0 << QString() << 1 << 7 << 'f' << 1 << "3.0";
    QTest::newRow("bad format char is g") << "3.14159" << 0.0 << QString() << 0 << 1 << 'x' << 3 << "3.14";
    QTest::newRow("negative precision is 6")
        << "1.5" << 0.0 << QString() << 0 << 1 << 'f' << -1 << "1.500000";
    QTest::newRow("decimal comma in and out") << "2,75" << 0.0 << "," << 0 << 1 << 'f' << 1 << "2,8";
    QTest::newRow("decimal point with comma profile") << "2.75" << 0.0 << "," << 0 << 1 << 'f' << 2 << "2,75";
    QTest::newRow("comma without setting is text")
        << "2,75" << 0.0 << QString() << 0 << 1 << 'f' << 1 << "2,75";
}

void TestAnalysisResult::toStringFormats()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    QFETCH(QString, separator);
    QFETCH(int, flags);
    QFETCH(int, format);
    QFETCH(char, formatChar);
    QFETCH(int, precision);
    QFETCH(QString, expected);

    Profile profile;
    if (!separator.isEmpty())
        profile.setValue(QStringLiteral("result/decimalSeparator"), separator);
    AnalysisResult result = text.isNull() ? AnalysisResult(value) : AnalysisResult(text, &profile);
    result.setFlags(flags);
    QCOMPARE(result.toString(&profile, format, formatChar, precision), expected);
}

void TestAnalysisResult::marks_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none") << 0 << QString() << "";
    QTest::newRow("high") << int(AnalysisResult::High) << QString() << "↑";
    QTest::newRow("low") << int(AnalysisResult::Low) << QString() << "↓";
    QTest::newRow("critical high") << int(AnalysisResult::High | AnalysisResult::CriticalHigh) << QString()
                                   << "↑↑";
    QTest::newRow("critical low") << int(AnalysisResult::Low | AnalysisResult::CriticalLow) << QString()
                                  << "↓↓";
    QTest::newRow("high and low: high wins") << 3 << QString() << "↑";
    QTest::newRow("critical low beats high")
        << int(AnalysisResult::High | AnalysisResult::CriticalLow) << QString() << "↓↓";
    QTest::newRow("all bits") << 65535 << QString() << "↑↑";
    QTest::newRow("other bits only") << int(AnalysisResult::AboveRange | AnalysisResult::Edited) << QString()
                                     << "";
    QTest::newRow("letters high") << 1 << QStringLiteral("letters") << "H";
    QTest::newRow("letters low") << 2 << QStringLiteral("letters") << "L";
    QTest::newRow("letters all bits") << 65535 << QStringLiteral("letters") << "HH";
    QTest::newRow("letters critical low") << 10 << QStringLiteral("letters") << "LL";
    QTest::newRow("arrows named") << 2 << QStringLiteral("arrows") << "↓";
    QTest::newRow("unknown style is arrows") << 1 << QStringLiteral("emoji") << "↑";
    QTest::newRow("style none") << 65535 << QStringLiteral("none") << "";
}

void TestAnalysisResult::marks()
{
    QFETCH(int, flags);
    QFETCH(QString, style);
    QFETCH(QString, expected);

    Profile profile;
    if (!style.isNull())
        profile.setValue(QStringLiteral("result/flagStyle"), style);
    AnalysisResult result(12.3);
    result.setFlags(flags);
    QCOMPARE(result.suffix(&profile), expected);
    // Without a profile the default style applies.
    if (style.isNull())
        QCOMPARE(result.suffix(nullptr), expected);
}

void TestAnalysisResult::parsing_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("numeric");
    QTest::addColumn<double>("value");

    QTest::newRow("integer") << "100" << true << 100.0;
    QTest::newRow("decimal") << "0.55" << true << 0.55;
    QTest::newRow("negative") << "-1.5" << true << -1.5;
    QTest::newRow("out of range") << ">150.0" << false << 0.0;
    QTest::newRow("below range") << "<0.10" << false << 0.0;
    QTest::newRow("nan text") << "nan" << false << 0.0;
    QTest::newRow("infinite text") << "inf" << false << 0.0;
    QTest::newRow("dashes") << "----" << false << 0.0;
}

void TestAnalysisResult::parsing()
{
    QFETCH(QString, text);
    QFETCH(bool, numeric);
    QFETCH(double, value);

    const AnalysisResult result(text, nullptr);
    QCOMPARE(result.isNumeric(), numeric);
    QCOMPARE(result.text(), text);
    if (numeric)
        QCOMPARE(result.value(), value);
    else
        QVERIFY(qIsNaN(result.value()));
    QCOMPARE(AnalysisResult(qQNaN()).isNumeric(), false);
}

QTEST_GUILESS_MAIN(TestAnalysisResult)
#include "tst_analysisresult.moc"
