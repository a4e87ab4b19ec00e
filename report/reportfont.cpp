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
    // Bounded before rounding: a template's resolution is a number from the file.
    result.setPixelSize(qRound(qBound(1.0, font.pointSizeF() * dpi / 72.0, 65536.0)));
    return result;
}

} // namespace coagulation
