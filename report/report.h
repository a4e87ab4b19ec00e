#pragma once

#include "report_global.h"

#include <kvcore/reporttype.h>

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QHash>
#include <QMap>
#include <QMetaType>
#include <QPageLayout>
#include <QPageSize>
#include <QSqlDatabase>
#include <QSqlRecord>

class QDataStream;
class QPrinter;
class QUndoCommand;
class QUndoStack;

namespace coagulation {

class ItemFactory;
class Profile;
class ReportItem;
class Tracker;
struct MaintenanceExportData;
struct QcExportData;

// One report template laid out as one printed page. Scene units are device pixels at
// dpiX x dpiY; the scene rectangle always covers the whole sheet.
class REPORT_EXPORT Report : public QGraphicsScene
{
    Q_OBJECT
public:
    static const QString suffix;   // template file suffix, "rpt"
    static const QString mimeType; // clipboard type of item lists written by saveItems

    Report(Profile* profile, ItemFactory* factory, QObject* parent = nullptr);
    ~Report() override;

    Profile* profile() const { return m_profile; }
    ItemFactory* factory() const { return m_factory; }

    kv::ReportType type() const { return m_type; }
    void setType(kv::ReportType type) { m_type = type; }
    QString filename() const { return m_fileName; }
    void setFileName(const QString& fileName) { m_fileName = fileName; }
    QString errorString() const { return m_errorString; }
    void setErrorString(const QString& errorString) { m_errorString = errorString; }
    static QString typeName(kv::ReportType type);

    // Page set-up
    QPageSize::PageSizeId pageSize() const { return m_pageSize; }
    void setPageSize(QPageSize::PageSizeId id);
    QPageLayout::Orientation orientation() const { return m_orientation; }
    void setOrientation(QPageLayout::Orientation orientation);
    QSizeF pageSizeF() const { return m_pageSizeF; }
    void setPageSizeF(const QSizeF& millimetres);
    int dpiX() const { return m_dpiX; }
    int dpiY() const { return m_dpiY; }
    QSizeF gridSize() const { return m_gridSize; }
    void setGridSize(const QSizeF& size) { m_gridSize = size; }
    void setupPrinter(QPrinter* printer) const;

    // Snapping
    void snapGrid(QPointF& point, Qt::KeyboardModifiers modifiers) const;
    void snapAngle(QPointF& point, const QPointF& anchor, Qt::KeyboardModifiers modifiers) const;

    // Design mode and editing
    bool isDesignMode() const { return m_designMode; }
    void setDesignMode(bool on) { m_designMode = on; }
    QUndoStack* undoStack() const { return m_undoStack; }
    void addUndoCommand(QUndoCommand* command);
    void itemChange(ReportItem* item, QGraphicsItem::GraphicsItemChange change, QVariant& value);
    void itemGeometryChanged(ReportItem* item);
    Tracker* tracker() const { return m_tracker; }

    // The report items of the scene, topmost first (trackers and item children left out).
    QList<ReportItem*> reportItems() const;

    // Template files
    static kv::ReportType fileType(const QString& fileName);
    bool save(const QString& fileName);
    bool save(QDataStream& out);
    bool load(const QString& fileName);
    bool load(QDataStream& in);
    bool saveItems(QDataStream& out, const QList<ReportItem*>& items) const;
    bool loadItems(QDataStream& in, QList<ReportItem*>& items) const;
    bool saveItem(QDataStream& out, ReportItem* item) const;
    bool loadItem(QDataStream& in, ReportItem*& item) const;

    // Paging and bound data
    int currentPage() const { return m_currentPage; }
    void setCurrentPage(int page) { m_currentPage = page; }
    int pageCount() const { return m_pageCount; }
    void setPageCount(int count) { m_pageCount = count; }
    int resultCount() const { return m_resultCount; }
    void setResultCount(int count) { m_resultCount = count; }
    int patientId() const { return m_patientId; }
    const QcExportData* qcData() const { return m_qcData; }
    const MaintenanceExportData* maintenanceData() const { return m_maintenanceData; }

    void fetchData(int patientId, QSqlDatabase db);
    void prepareQcData(const QcExportData* data);
    void fetchQcData(const QcExportData* data);
    void prepareMaintenanceData(const MaintenanceExportData* data);
    QSqlRecord record(const QString& table) const;
    QMetaType::Type fieldType(const QString& table, const QString& column);

public Q_SLOTS:
    void undo();
    void redo();

protected:
    void mouseReleaseEvent(QGraphicsSceneMouseEvent* event) override;

private Q_SLOTS:
    void onSelectionChanged();

private:
    friend class TemplateCheck;

    void calculatePageSize();
    void updateSceneRect();
    // Reads the file header into the page set-up; throws the message of a wrong or damaged one.
    void readHeader(QDataStream& in);
    void loadFieldType(const QString& table, QSqlDatabase db);

    Profile* m_profile;
    ItemFactory* m_factory;
    QPageSize::PageSizeId m_pageSize = QPageSize::A4;
    QPageLayout::Orientation m_orientation = QPageLayout::Portrait;
    QSizeF m_pageSizeF;
    int m_dpiX = 96;
    int m_dpiY = 96;
    QUndoStack* m_undoStack;
    bool m_designMode = false;
    bool m_replaying = false;
    Tracker* m_tracker = nullptr;
    QSizeF m_gridSize{10, 10};
    QString m_fileName;
    QString m_errorString;
    kv::ReportType m_type = kv::NoReport;
    int m_currentPage = 1;
    int m_pageCount = 1;
    int m_resultCount = 0;
    int m_patientId = 0;
    QHash<QString, QSqlRecord> m_records;
    QHash<QString, QHash<QString, QMetaType::Type>> m_fieldTypes;
    const QcExportData* m_qcData = nullptr;
    const MaintenanceExportData* m_maintenanceData = nullptr;
    QMetaObject::Connection m_selectionConnection;
};

} // namespace coagulation
