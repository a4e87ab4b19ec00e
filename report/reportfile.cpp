// The template file: report type, page set-up and the framed items.

#include "report.h"

#include "itemfactory.h"
#include "payloadreader_p.h"
#include "reportitembase.h"
#include "templatelimits_p.h"

#include <core/information.h>

#include <QDataStream>
#include <QFile>
#include <QSaveFile>
#include <QtEndian>

#include <new>

namespace coagulation {

namespace {

constexpr QDataStream::Version streamVersion = QDataStream::Qt_4_6;
constexpr quint8 formatVersion = 1;

// One tag per report type. Each is written as the qint32 whose little-endian bytes are the tag,
// so the big-endian file shows it reversed ("tprn"); older readers depend on that.
constexpr char typeTags[] = "nrptqrptmrpt";

bool isKnownType(kv::ReportType type)
{
    return type >= kv::PatientReport && type <= kv::MaintenanceRecordReport;
}

qint32 tagOf(kv::ReportType type)
{
    return qFromLittleEndian<qint32>(typeTags + 4 * int(type));
}

kv::ReportType typeOfTag(qint32 tag)
{
    for (int type = kv::PatientReport; type <= kv::MaintenanceRecordReport; ++type) {
        if (tagOf(kv::ReportType(type)) == tag)
            return kv::ReportType(type);
    }
    return kv::NoReport;
}

bool isPageSize(qint32 id)
{
    return id >= 0 && id <= QPageSize::LastPageSize;
}

bool isOrientation(qint32 orientation)
{
    return orientation == QPageLayout::Portrait || orientation == QPageLayout::Landscape;
}

} // namespace

kv::ReportType Report::fileType(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return kv::NoReport;
    QDataStream in(&file);
    in.setVersion(streamVersion);
    qint32 tag = 0;
    in >> tag;
    return typeOfTag(tag);
}

bool Report::save(const QString& fileName)
{
    // Written aside and put in place whole: a failed save leaves an existing template as it was.
    QSaveFile file(fileName);
    file.setDirectWriteFallback(true); // a folder we may not create files in
    if (!file.open(QIODevice::WriteOnly)) {
        information(file.errorString(), QMessageBox::Ok, QMessageBox::Ok);
        return false;
    }
    QDataStream out(&file);
    if (!save(out)) {
        file.cancelWriting();
        return false;
    }
    if (!file.commit()) {
        information(file.errorString(), QMessageBox::Ok, QMessageBox::Ok);
        return false;
    }
    return true;
}

bool Report::save(QDataStream& out)
{
    if (!isKnownType(m_type)) {
        m_errorString = tr("未知的报表类型");
        return false;
    }
    out.setVersion(streamVersion);
    out << tagOf(m_type) << qint8(formatVersion) << qint32(m_dpiX) << qint32(m_dpiY) << qint32(m_pageSize)
        << qint32(m_orientation) << m_pageSizeF;
    // Stream errors past the header are not reported.
    saveItems(out, reportItems());
    return true;
}

bool Report::load(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        m_errorString = file.errorString();
        return false;
    }
    QDataStream in(&file);
    return load(in);
}

void Report::readHeader(QDataStream& in)
{
    in.setVersion(streamVersion);
    qint32 tag = 0;
    qint8 version = 0;
    in >> tag >> version;
    m_type = typeOfTag(tag);
    if (m_type == kv::NoReport)
        throw tr("错误的文件格式");
    if (quint8(version) > formatVersion)
        throw tr("无法读取高版本的文档");

    qint32 dpiX = 0, dpiY = 0, pageSize = 0, orientation = 0;
    QSizeF pageSizeF;
    in >> dpiX >> dpiY >> pageSize >> orientation >> pageSizeF;
    // A header cut short or damaged would leave a page without a usable size.
    if (in.status() != QDataStream::Ok || !isPageSize(pageSize) || !isOrientation(orientation) ||
        !qIsFinite(pageSizeF.width()) || !qIsFinite(pageSizeF.height()))
        throw tr("错误的文件格式");
    m_dpiX = dpiX;
    m_dpiY = dpiY;
    m_pageSize = QPageSize::PageSizeId(pageSize);
    m_orientation = QPageLayout::Orientation(orientation);
    m_pageSizeF = pageSizeF;
    updateSceneRect();
}

bool Report::load(QDataStream& in)
{
    try {
        readHeader(in);
        // A broken payload loses every item but still loads the page.
        QList<ReportItem*> items;
        loadItems(in, items);
        for (ReportItem* item : std::as_const(items))
            addItem(item->graphicsItem());
        return true;
    } catch (const QString& message) {
        m_errorString = message;
        return false;
    } catch (const std::bad_alloc&) {
        // A damaged count inside a payload asked for more memory than there is.
        m_errorString = tr("错误的文件格式");
        return false;
    }
}

bool Report::saveItems(QDataStream& out, const QList<ReportItem*>& items) const
{
    out << qint32(items.size());
    for (ReportItem* item : items) {
        if (!saveItem(out, item))
            return false;
    }
    return true;
}

// Items read before a failure are deleted with the list: nothing else holds them.
bool Report::loadItems(QDataStream& in, QList<ReportItem*>& items) const
{
    items.clear();
    qint32 count = 0;
    in >> count;
    if (count <= 0)
        return true;
    TemplateLimits::checkItems(count);
    const TemplateLimits::Scope budget; // bounds every picture, cell and text of the list together
    QList<ReportItem*> read;
    ReportItem* item = nullptr;
    try {
        for (qint32 i = 0; i < count; ++i) {
            const bool ok = loadItem(in, item);
            read.append(item);
            item = nullptr;
            if (!ok) {
                qDeleteAll(read);
                return false;
            }
        }
    } catch (...) {
        delete item; // made, but its payload could not be read
        qDeleteAll(read);
        throw;
    }
    items = read;
    return true;
}

bool Report::saveItem(QDataStream& out, ReportItem* item) const
{
    if (!item)
        return false;
    const QGraphicsItem* g = item->graphicsItem();
    out << item->key() << g->pos() << g->transform();
    item->save(out);
    return out.status() == QDataStream::Ok;
}

bool Report::loadItem(QDataStream& in, ReportItem*& item) const
{
    QString key;
    QPointF pos;
    QTransform transform;
    in >> key >> pos >> transform;
    payload::requireFinite(in, {pos.x(), pos.y(), transform.m11(), transform.m12(), transform.m13(),
                                transform.m21(), transform.m22(), transform.m23(), transform.m31(),
                                transform.m32(), transform.m33()});
    item = m_factory ? m_factory->create(key) : nullptr;
    if (!item)
        throw ReportItem::tr("无法创建 %1 对象").arg(key);
    item->setKey(key);
    item->load(in);
    // The frame wins over anything the payload set.
    QGraphicsItem* g = item->graphicsItem();
    g->setPos(pos);
    g->setTransform(transform);
    return in.status() == QDataStream::Ok;
}

} // namespace coagulation
