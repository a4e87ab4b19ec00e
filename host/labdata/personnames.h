#pragma once

#include <QStringList>

namespace coagulation {

class LabRandom;

// Common Chinese personal names: a frequent surname and one or two given-name characters.
class PersonNames
{
public:
    static QString name(LabRandom& random, bool male);
    // count different names of either sex, e.g. the laboratory's staff.
    static QStringList names(LabRandom& random, int count);
};

} // namespace coagulation
