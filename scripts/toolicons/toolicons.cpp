// Draws the six tool icons of the report designer's palette as PNG files.
// Usage: toolicons <output folder>

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cstdio>
#include <functional>

namespace {

constexpr int size = 48;
const QColor ink(0x37, 0x47, 0x4f);    // outlines and strokes
const QColor accent(0x1e, 0x88, 0xe5); // the part that says what the tool makes
const QColor wash(0xbb, 0xde, 0xfb);   // light fills

QPen strokePen(const QColor& color, double width = 3.0)
{
    return QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
}

void drawArrow(QPainter& p)
{
    QPainterPath path;
    path.moveTo(13, 6);
    path.lineTo(13, 38);
    path.lineTo(21, 31);
    path.lineTo(27, 43);
    path.lineTo(32, 40.5);
    path.lineTo(26.5, 29);
    path.lineTo(37, 28);
    path.closeSubpath();
    p.setPen(strokePen(ink, 2.5));
    p.setBrush(Qt::white);
    p.drawPath(path);
}

void drawLine(QPainter& p)
{
    p.setPen(strokePen(accent, 3.5));
    p.drawLine(QPointF(10, 38), QPointF(38, 10));
    p.setPen(strokePen(ink, 2.0));
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(10, 38), 4.5, 4.5);
    p.drawEllipse(QPointF(38, 10), 4.5, 4.5);
}

void drawRect(QPainter& p)
{
    p.setPen(strokePen(accent, 3.5));
    p.setBrush(wash);
    p.drawRoundedRect(QRectF(7, 11, 34, 26), 2, 2);
}

void drawText(QPainter& p)
{
    // A "T" built from strokes, so the icon does not depend on the fonts installed.
    p.setPen(strokePen(accent, 5.0));
    p.drawLine(QPointF(9, 10), QPointF(33, 10));
    p.drawLine(QPointF(21, 10), QPointF(21, 39));
    // The text cursor, ready for typing.
    p.setPen(strokePen(ink, 2.5));
    p.drawLine(QPointF(38, 24), QPointF(38, 42));
    p.drawLine(QPointF(34.5, 24), QPointF(41.5, 24));
    p.drawLine(QPointF(34.5, 42), QPointF(41.5, 42));
}

void drawImage(QPainter& p)
{
    const QRectF frame(6, 9, 36, 30);
    p.setPen(strokePen(ink, 2.5));
    p.setBrush(wash);
    p.drawRoundedRect(frame, 2, 2);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xff, 0xb3, 0x00));
    p.drawEllipse(QPointF(32, 18), 4, 4);
    QPainterPath hills;
    hills.moveTo(8, 37);
    hills.lineTo(18, 23);
    hills.lineTo(25, 31);
    hills.lineTo(29, 27);
    hills.lineTo(40, 37);
    hills.closeSubpath();
    p.setBrush(accent);
    p.drawPath(hills);
}

void drawChart(QPainter& p)
{
    // Axes, the mean and two control limits, and a run of control values.
    p.setPen(strokePen(ink, 2.5));
    p.drawLine(QPointF(7, 6), QPointF(7, 42));
    p.drawLine(QPointF(7, 42), QPointF(43, 42));
    QPen limit(ink, 1.5, Qt::DashLine, Qt::FlatCap);
    limit.setDashPattern({2.0, 2.0});
    p.setPen(limit);
    p.drawLine(QPointF(10, 12), QPointF(43, 12));
    p.drawLine(QPointF(10, 36), QPointF(43, 36));
    p.setPen(QPen(ink, 1.0));
    p.drawLine(QPointF(10, 24), QPointF(43, 24));
    const QPolygonF values({{12, 26}, {18, 17}, {24, 29}, {30, 21}, {36, 15}, {41, 27}});
    p.setPen(strokePen(accent, 2.5));
    p.drawPolyline(values);
    p.setPen(Qt::NoPen);
    p.setBrush(accent);
    for (const QPointF& point : values)
        p.drawEllipse(point, 2.6, 2.6);
}

bool write(const QDir& folder, const QString& name, const std::function<void(QPainter&)>& draw)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    painter.end();
    return image.save(folder.filePath(name + QStringLiteral(".png")));
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: toolicons <output folder>\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    const bool ok = write(folder, QStringLiteral("toolArrow"), drawArrow) &&
                    write(folder, QStringLiteral("toolLine"), drawLine) &&
                    write(folder, QStringLiteral("toolRect"), drawRect) &&
                    write(folder, QStringLiteral("toolText"), drawText) &&
                    write(folder, QStringLiteral("toolImage"), drawImage) &&
                    write(folder, QStringLiteral("toolChart"), drawChart);
    if (!ok)
        std::fprintf(stderr, "toolicons: cannot write to %s\n", argv[1]);
    return ok ? 0 : 1;
}
