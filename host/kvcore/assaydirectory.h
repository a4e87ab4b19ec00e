#pragma once

#include "assayitem.h"
#include "assaytemplate.h"
#include "kvcore_global.h"

#include <optional>

namespace coagulation {

class Profile;

// Looks assay templates and items up by name in the profile's configuration database.
class KVCORE_EXPORT AssayDirectory
{
public:
    explicit AssayDirectory(Profile* profile);

    std::optional<AssayTemplate> findTemplate(const QString& name) const;
    std::optional<AssayItem> findItem(const AssayTemplate& assayTemplate, const QString& name) const;

private:
    Profile* m_profile;
};

} // namespace coagulation
