#include "templatecheck.h"

#include "itemfactory.h"
#include "report.h"
#include "reportitembase.h"
#include "templatelimits_p.h"

#include <QDataStream>
#include <QFile>

#include <new>

namespace coagulation {

TemplateCheck::TemplateCheck(ItemFactory* factory) : m_factory(factory) {}

bool TemplateCheck::fail(const QString& message)
{
    m_errorString = message;
    return false;
}

bool TemplateCheck::check(const QString& fileName)
{
    m_errorString.clear();
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return fail(file.exists() ? tr("无法读取文件") : tr("文件不存在"));
    QDataStream in(&file);
    // The page only carries the header and the factory; items are deleted as soon as read.
    Report page(m_factory ? m_factory->profile() : nullptr, m_factory);
    qint32 count = 0;
    try {
        page.readHeader(in);
        in >> count;
        if (in.status() == QDataStream::Ok && count > 0)
            TemplateLimits::checkItems(count);
    } catch (const QString& message) {
        return fail(message);
    }
    if (page.dpiX() <= 0 || page.dpiY() <= 0)
        return fail(tr("分辨率无效: %1 x %2 dpi").arg(page.dpiX()).arg(page.dpiY()));
    const QSizeF size = page.pageSizeF();
    if (!(size.width() > 0) || !(size.height() > 0))
        return fail(tr("纸张尺寸无效: %1 x %2 mm").arg(size.width()).arg(size.height()));
    if (in.status() != QDataStream::Ok)
        return fail(tr("文件在项目数之前结束"));
    if (count < 0)
        return fail(tr("项目数无效: %1").arg(count));

    const TemplateLimits::Scope budget; // the same bounds as loading the whole template
    for (qint32 i = 0; i < count; ++i) {
        ReportItem* item = nullptr;
        QString error;
        try {
            if (page.loadItem(in, item)) {
                delete item;
                continue;
            }
        } catch (const QString& message) {
            error = message;
        } catch (const std::bad_alloc&) {
            error = tr("内容已损坏");
        }
        const QString key = item ? item->key() : QString();
        delete item;
        // A stream that ran dry was cut short, unless a payload reader (an image) swallowed the rest.
        if (in.status() == QDataStream::ReadPastEnd || in.atEnd())
            return fail(key.isEmpty() ? tr("文件在第 %1 个项目处被截断 (共 %2 个项目)").arg(i + 1).arg(count)
                                      : tr("文件在第 %1 个项目 (%2) 中结束, 或该项目已损坏 (共 %3 个项目)")
                                            .arg(i + 1)
                                            .arg(key)
                                            .arg(count));
        if (!error.isEmpty())
            return fail(key.isEmpty() ? tr("第 %1 个项目: %2").arg(i + 1).arg(error)
                                      : tr("第 %1 个项目 (%2): %3").arg(i + 1).arg(key, error));
        return fail(tr("第 %1 个项目 (%2) 的内容已损坏").arg(i + 1).arg(key));
    }
    if (!in.atEnd())
        return fail(tr("最后一个项目之后还有 %1 字节多余的数据").arg(file.size() - file.pos()));
    return true;
}

} // namespace coagulation
