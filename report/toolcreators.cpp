#include "toolcreators.h"

#include "drawingitems.h"

#include <QFileDialog>
#include <QImageReader>
#include <QPixmap>

namespace coagulation {

// --- ArrowCreator ---------------------------------------------------------------------------

ArrowCreator::ArrowCreator(QObject*)
    : GeneralCreator(QStringLiteral("toolArrow"), DragRectSelection, QString(), nullptr)
{}

QList<QString> ArrowCreator::keys() const
{
    return {QStringLiteral("Pointer"), QStringLiteral("指针")};
}

QString ArrowCreator::name() const
{
    return tr("指针");
}

void ArrowCreator::enter(QGraphicsView* view)
{
    GeneralCreator::enter(view);
    if (view)
        view->setDragMode(QGraphicsView::RubberBandDrag);
}

void ArrowCreator::leave()
{
    if (QGraphicsView* v = view())
        v->setDragMode(QGraphicsView::NoDrag);
}

// The scene's own selection handles the mouse.
bool ArrowCreator::eventFilter(QObject*, QEvent*)
{
    return false;
}

// --- LineCreator ----------------------------------------------------------------------------

LineCreator::LineCreator(QObject* parent) : GeneralRectCreator(QStringLiteral("toolLine"), parent) {}

QList<QString> LineCreator::keys() const
{
    return {QStringLiteral("Line"), QStringLiteral("直线")};
}

QString LineCreator::name() const
{
    return tr("直线");
}

ReportItem* LineCreator::create()
{
    return new ReportLineItem;
}

// --- RectCreator ----------------------------------------------------------------------------

RectCreator::RectCreator(QObject* parent) : GeneralRectCreator(QStringLiteral("toolRect"), parent) {}

QList<QString> RectCreator::keys() const
{
    return {QStringLiteral("Rect"), QStringLiteral("矩形")};
}

QString RectCreator::name() const
{
    return tr("矩形");
}

ReportItem* RectCreator::create()
{
    return new ReportRectItem;
}

// --- TextCreator ----------------------------------------------------------------------------

TextCreator::TextCreator(QObject* parent) : TextCreator(QString(), parent) {}

TextCreator::TextCreator(const QString& group, QObject* parent)
    : GeneralRectCreator(QStringLiteral("toolText"), group, parent)
{}

QList<QString> TextCreator::keys() const
{
    return {QStringLiteral("Text"), QStringLiteral("文本")};
}

QString TextCreator::name() const
{
    return tr("文本");
}

ReportItem* TextCreator::create()
{
    auto* item = new ReportTextItem(true);
    const bool focusable = item->flags() & QGraphicsItem::ItemIsFocusable;
    if (focusable)
        item->setTextInteractionFlags(Qt::TextEditorInteraction);
    // Without a scene this marks the item to take focus as soon as it is added to one.
    if (focusable && !item->hasFocus())
        item->setFocus(Qt::OtherFocusReason);
    return item;
}

// --- ImageCreator ---------------------------------------------------------------------------

ImageCreator::ImageCreator(QObject* parent) : GeneralRectCreator(QStringLiteral("toolImage"), parent) {}

QList<QString> ImageCreator::keys() const
{
    return {QStringLiteral("Image"), QStringLiteral("图像")};
}

QString ImageCreator::name() const
{
    return tr("图像");
}

ReportItem* ImageCreator::create()
{
    return new ReportImageItem;
}

QString ImageCreator::fileFilter()
{
    QStringList patterns;
    const QList<QByteArray> formats = QImageReader::supportedImageFormats();
    for (const QByteArray& format : formats)
        patterns.append(QStringLiteral("*.") + QString::fromLatin1(format));
    return tr("所有格式(%1);;所有文件(*.*)").arg(patterns.join(QLatin1Char(';')));
}

void ImageCreator::enter(QGraphicsView* view)
{
    GeneralRectCreator::enter(view);
    const QString filter = fileFilter();
    QWidget* parent = view ? view->window() : nullptr;
    const QString fileName = QFileDialog::getOpenFileName(parent, QString(), QString(), filter);
    // Cancelled, or nowhere to put the picture.
    if (fileName.isEmpty() || !report()) {
        finish();
        return;
    }
    auto* item = new ReportImageItem;
    prepare(item);
    const QPixmap pixmap(fileName);
    item->setPixmap(pixmap);
    // One pixmap pixel covers its physical size; a file that gave no picture keeps the identity.
    if (!pixmap.isNull())
        item->setTransform(QTransform::fromScale(double(pixmap.widthMM()) / pixmap.width(),
                                                 double(pixmap.heightMM()) / pixmap.height()),
                           true);
    accept();
}

} // namespace coagulation
