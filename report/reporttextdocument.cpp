#include "reporttextdocument_p.h"

#include <QImage>

namespace coagulation {

QVariant ReportTextDocument::loadResource(int type, const QUrl&)
{
    // A picture must come back as one: without it the layout would read the named file itself.
    // It shows as Qt's own sign of a missing picture.
    if (type == QTextDocument::ImageResource) {
        static const QImage missing = [] {
            QImage image(QStringLiteral(":/qt-project.org/styles/commonstyle/images/file-16.png"));
            if (image.isNull()) {
                image = QImage(16, 16, QImage::Format_ARGB32);
                image.fill(Qt::transparent);
            }
            return image;
        }();
        return missing;
    }
    return QByteArray(); // an empty style sheet
}

} // namespace coagulation
