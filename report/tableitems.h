#pragma once

#include "graphicstableitem.h"
#include "reportitembase.h"

namespace coagulation {

class Profile;

// A grid table placed on a report page: moved and selected like any item, resized and
// re-columned through its handle polygon, saved as exactly the grid payload.
class REPORT_EXPORT ReportTableItem : public ReportItemImpl<GraphicsTableItem, ReportItem>
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ReportTableItem)
public:
    ReportTableItem();
    // A duplicate of the grid that is a report item of its own (same key).
    ReportTableItem(const ReportTableItem& other);

    Tracker* createTracker() override;
    QFont font() const override;
    void setFont(const QFont& font) override;
    // Origin, lower-right corner of the stored size, row line point, then column borders.
    QPolygonF geometry() const override;
    void save(QDataStream& out) override;
    void load(QDataStream& in) override;

protected:
    void updateGeometry(const QPolygonF& polygon) override;
};

// The patient's results, one row per visible assay result in display order. In the designer it
// shows a header row and one sample row; printed tables hold data rows only.
class REPORT_EXPORT ReportPatientTableItem : public ReportTableItem
{
    Q_DECLARE_TR_FUNCTIONS(coagulation::ReportPatientTableItem)
public:
    explicit ReportPatientTableItem(Profile* profile);

    Profile* profile() const { return m_profile; }

    void updateData() override;

private:
    Profile* m_profile;
};

} // namespace coagulation
