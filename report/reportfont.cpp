#include "reportfont.h"

#include <QStringList>

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

} // namespace coagulation
