// Prints a one-page sample report built in code, to show the drawing items on paper.
#include <core/profile.h>
#include <drawingitems.h>
#include <report.h>

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPrinter>

#include <cstdio>

using namespace coagulation;

namespace {

ReportTextItem* addText(Report& report, const QString& text, const QPointF& pos, int pixelSize, bool bold,
                        Qt::Alignment alignment = Qt::AlignLeft, double width = -1)
{
    auto* item = new ReportTextItem(true);
    QFont font(QStringLiteral("Noto Sans CJK SC"));
    font.setPixelSize(pixelSize);
    font.setBold(bold);
    item->setFont(font);
    item->setTextWidth(width);
    item->setPlainText(text);
    item->setAlignment(alignment);
    item->setPos(pos);
    report.addItem(item);
    return item;
}

QImage logo()
{
    QImage image(96, 96, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setBrush(QColor(180, 20, 40));
    p.setPen(Qt::NoPen);
    p.drawEllipse(QRectF(8, 8, 80, 80));
    p.setBrush(Qt::white);
    p.drawRect(QRectF(40, 22, 16, 52));
    p.drawRect(QRectF(22, 40, 52, 16));
    return image;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QString outDir = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("out/demo");
    QDir().mkpath(outDir);
    const QString pdf = QFileInfo(QDir(outDir).filePath(QStringLiteral("sample.pdf"))).absoluteFilePath();

    Profile profile;
    Report report(&profile, nullptr);
    report.setType(kv::PatientReport);
    const double width = report.sceneRect().width();

    auto* image = new ReportImageItem;
    image->setPixmap(QPixmap::fromImage(logo()));
    image->setPos(60, 40);
    image->setTransform(QTransform::fromScale(0.75, 0.75));
    report.addItem(image);

    addText(report, QStringLiteral("示例市第一人民医院"), QPointF(0, 40), 28, true, Qt::AlignHCenter, width);
    addText(report, QStringLiteral("凝血检验报告单"), QPointF(0, 84), 20, false, Qt::AlignHCenter, width);

    auto* rule = new ReportLineItem;
    rule->setLine(QLineF(60, 130, width - 60, 130));
    rule->setPen(QPen(Qt::black, 2));
    report.addItem(rule);

    const QStringList labels = {QStringLiteral("姓名：张伟"), QStringLiteral("性别：男"),
                                QStringLiteral("年龄：56岁"), QStringLiteral("科室：心内科"),
                                QStringLiteral("床号：12"),   QStringLiteral("样本号：20261123-001")};
    for (int i = 0; i < labels.size(); ++i)
        addText(report, labels.at(i), QPointF(70 + (i % 3) * 220, 145 + (i / 3) * 28), 15, false);

    auto* box = new ReportRectItem;
    box->setRect(QRectF(60, 215, width - 120, 180));
    box->setPen(QPen(Qt::darkGray, 1));
    box->setBrush(QColor(240, 244, 250));
    report.addItem(box);
    const QStringList rows = {QStringLiteral("项目\t结果\t单位\t参考值"),
                              QStringLiteral("PT 凝血酶原时间\t12.3\ts\t11.0-14.5"),
                              QStringLiteral("INR 国际标准化比值\t1.02\t\t0.80-1.20"),
                              QStringLiteral("APTT 活化部分凝血活酶时间\t31.6\ts\t25.0-37.0"),
                              QStringLiteral("FIB 纤维蛋白原\t2.85\tg/L\t2.00-4.00")};
    for (int r = 0; r < rows.size(); ++r) {
        const QStringList cells = rows.at(r).split(QLatin1Char('\t'));
        const double xs[] = {75, 400, 500, 580};
        for (int c = 0; c < cells.size(); ++c)
            addText(report, cells.at(c), QPointF(xs[c], 225 + r * 32), 15, r == 0);
    }

    auto* footer = new ReportLineItem;
    footer->setLine(
        QLineF(60, report.sceneRect().height() - 80, width - 60, report.sceneRect().height() - 80));
    report.addItem(footer);
    addText(report, QStringLiteral("本报告仅对所检测样本负责"), QPointF(60, report.sceneRect().height() - 72),
            13, false);

    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    report.setupPrinter(&printer);
    QPainter painter;
    if (!painter.begin(&printer)) {
        std::fprintf(stderr, "Cannot write %s\n", qPrintable(pdf));
        return 1;
    }
    report.render(&painter, QRectF(), QRectF(), Qt::KeepAspectRatio);
    painter.end();
    std::printf("Demo report written to %s\n", qPrintable(pdf));
    return 0;
}
