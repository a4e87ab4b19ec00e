#pragma once

#include "labdata_global.h"

#include <QList>
#include <QPair>
#include <QString>

namespace coagulation {

class Profile;

// The profile entries that give report designers readable names: "table/column" keys for the
// patient and reagent columns a report may show, and the hospital's name under "hospital".
class LABDATA_EXPORT ColumnDisplayNames
{
public:
    static const QList<QPair<QString, QString>>& entries();
    // Writes every entry into the profile, persisted to its INI file.
    static void write(Profile* profile);
};

} // namespace coagulation
