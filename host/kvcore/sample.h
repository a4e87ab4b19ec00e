#pragma once

#include "kvcore_global.h"
#include "sampletype.h"

#include <QString>

namespace coagulation {

class Profile;

// Rules that tie sample numbers to what they stand for.
//
// Profile settings (a null profile uses the defaults):
//   "sample/qcPrefix"        prefix of QC sample numbers, default "QC"
//   "sample/emergencyPrefix" prefix of emergency sample numbers, default "E"
class KVCORE_EXPORT Sample
{
public:
    // The QC file number of a control: the QC prefix followed by the number with at least two
    // digits, e.g. 1 gives "QC01" and 123 "QC123".
    static QString qcName(int controlNo, Profile* profile);

    // A sample number (leading and trailing blanks ignored) that starts with the QC prefix is a QC
    // sample; else one that starts with the emergency prefix is an emergency sample; anything else,
    // the empty number included, is a patient sample. Prefixes compare case-insensitively; an
    // empty prefix matches nothing.
    static kv::SampleType sampleTypeOf(const QString& sampleNo, Profile* profile);

    static QString qcPrefix(Profile* profile);
    static QString emergencyPrefix(Profile* profile);
};

} // namespace coagulation
