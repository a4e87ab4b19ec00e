#include "reportfont.h"

#include <QStringList>
#include <QtMath>

namespace coagulation {

QFont withChineseFallback(const QFont& font)
{
    static const QString chinese = QStringLiteral("Noto Sans CJK SC");
    QStringList families = font.families();
    if (families.isEmpty())
        families.append(font.family());
    if (families.contains(chinese))
        return font;
    families.append(chinese);
    QFont result = font;
    result.setFamilies(families);
    return result;
}

QFont sceneFont(const QFont& font, int dpi)
{
    if (font.pixelSize() > 0 || font.pointSizeF() <= 0 || dpi <= 0)
        return font;
    QFont result = font;
    result.setPixelSize(qMax(1, qRound(font.pointSizeF() * dpi / 72.0)));
    return result;
}

} // namespace coagulation
