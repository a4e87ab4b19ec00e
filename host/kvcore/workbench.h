#pragma once

#include "kvcore_global.h"

#include <QString>

namespace coagulation {

class Profile;

// An analyser workbench of the laboratory (row of the QC database's "workbench" table). It knows
// the profile whose QC database keeps its maintenance records.
class KVCORE_EXPORT Workbench
{
public:
    Workbench() = default;
    Workbench(int id, const QString& name, Profile* profile = nullptr)
        : m_id(id), m_name(name), m_profile(profile)
    {}

    int id() const { return m_id; }
    void setId(int id) { m_id = id; }
    QString name() const { return m_name; }
    void setName(const QString& name) { m_name = name; }
    Profile* profile() const { return m_profile; }
    void setProfile(Profile* profile) { m_profile = profile; }

private:
    int m_id = 0;
    QString m_name;
    Profile* m_profile = nullptr; // borrowed
};

} // namespace coagulation
