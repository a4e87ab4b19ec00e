#pragma once

#include "report_global.h"

#include <QString>

namespace coagulation {

class Profile;
class ReportItem;

// Makes an item for any key of one scheme ("field:/", "prop:/", "profile:/"), so that a template
// may hold a data field, a property or a profile value that no palette entry offers.
class REPORT_EXPORT CreatorFactory
{
public:
    explicit CreatorFactory(Profile* profile) : m_profile(profile) {}
    CreatorFactory(const CreatorFactory&) = default;
    CreatorFactory(CreatorFactory&&) = default;
    CreatorFactory& operator=(const CreatorFactory&) = default;
    CreatorFactory& operator=(CreatorFactory&&) = default;
    virtual ~CreatorFactory();

    Profile* profile() const { return m_profile; }

    // A new item owned by the caller, or null when the key is not of this scheme or malformed.
    virtual ReportItem* create(const QString& key) = 0;

private:
    Profile* m_profile; // borrowed
};

// "field:/" table "/" column
class REPORT_EXPORT FieldItemFactory : public CreatorFactory
{
public:
    using CreatorFactory::CreatorFactory;
    ReportItem* create(const QString& key) override;
};

// "prop:/" name, slashes allowed in the name
class REPORT_EXPORT PropItemFactory : public CreatorFactory
{
public:
    using CreatorFactory::CreatorFactory;
    ReportItem* create(const QString& key) override;
};

// "profile:/" name
class REPORT_EXPORT ProfileItemFactory : public CreatorFactory
{
public:
    using CreatorFactory::CreatorFactory;
    ReportItem* create(const QString& key) override;
};

} // namespace coagulation
