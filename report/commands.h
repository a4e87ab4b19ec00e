#pragma once

#include "report_global.h"

#include <QBrush>
#include <QList>
#include <QMap>
#include <QPageLayout>
#include <QPageSize>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QTransform>
#include <QUndoCommand>

class QGraphicsItem;

namespace coagulation {

class Report;
class ReportItem;
class ReportTextItem;

// A command that swaps its stored state with its target's, so one operation serves
// undo and redo. Commands that record the old state start applied.
class REPORT_EXPORT ToggleCommand : public QUndoCommand
{
public:
    explicit ToggleCommand(bool applied, QUndoCommand* parent = nullptr);
    void undo() override;
    void redo() override;
    bool isApplied() const { return applied; }

protected:
    virtual void toggle() = 0;

private:
    bool applied;
};

// Adds an item to the report on redo; owns it while it is outside the scene.
class REPORT_EXPORT NewCommand : public QUndoCommand
{
public:
    NewCommand(Report* report, ReportItem* item, QUndoCommand* parent = nullptr);
    ~NewCommand() override;
    int id() const override { return 1; }
    void undo() override;
    void redo() override;

private:
    ReportItem* item;
    Report* report; // set while this command owns the item
};

// Removes an item from its report on redo; owns it while it is outside the scene.
class REPORT_EXPORT DeleteCommand : public QUndoCommand
{
public:
    explicit DeleteCommand(ReportItem* item, QUndoCommand* parent = nullptr);
    ~DeleteCommand() override;
    int id() const override { return 2; }
    void undo() override;
    void redo() override;

private:
    ReportItem* item;
    Report* report = nullptr; // set while this command owns the item
};

class REPORT_EXPORT TransformCommand : public ToggleCommand
{
public:
    explicit TransformCommand(const QList<QGraphicsItem*>& items, QUndoCommand* parent = nullptr);
    int id() const override { return 3; }

protected:
    void toggle() override;

private:
    QList<QGraphicsItem*> items;
    QList<QPointF> positions;
    QList<QTransform> transforms;
};

class REPORT_EXPORT GeometryCommand : public ToggleCommand
{
public:
    explicit GeometryCommand(ReportItem* item, QUndoCommand* parent = nullptr);
    int id() const override { return 4; }

protected:
    void toggle() override;

private:
    ReportItem* item;
    QPolygonF geometry;
    QPointF position;
};

class REPORT_EXPORT PositionCommand : public ToggleCommand
{
public:
    explicit PositionCommand(const QList<QGraphicsItem*>& items, QUndoCommand* parent = nullptr);
    int id() const override { return 5; }
    bool mergeWith(const QUndoCommand* other) override;
    QList<QGraphicsItem*> itemList() const { return items; }

protected:
    void toggle() override;

private:
    QList<QGraphicsItem*> items;
    QMap<QGraphicsItem*, QPointF> positions;
};

class REPORT_EXPORT SetupPageCommand : public ToggleCommand
{
public:
    SetupPageCommand(Report* report, QPageSize::PageSizeId pageSize, QPageLayout::Orientation orientation,
                     const QSizeF& customSize, QUndoCommand* parent = nullptr);
    int id() const override { return 6; }
    bool mergeWith(const QUndoCommand*) override { return false; }

protected:
    void toggle() override;

private:
    Report* report;
    QPageSize::PageSizeId pageSize;
    QPageLayout::Orientation orientation;
    QSizeF customSize;
};

// Base of the commands that change one style property of one item.
class REPORT_EXPORT ItemPropertyCommand : public ToggleCommand
{
public:
    explicit ItemPropertyCommand(ReportItem* item, QUndoCommand* parent = nullptr);

protected:
    void toggle() final;
    // Write the stored value to the item and keep the value it had.
    virtual void swap() = 0;
    ReportItem* item;
};

class REPORT_EXPORT FontFamilyCommand : public ItemPropertyCommand
{
public:
    FontFamilyCommand(ReportItem* item, const QString& family, QUndoCommand* parent = nullptr);
    int id() const override { return 7; }

protected:
    void swap() override;

private:
    QString family;
};

class REPORT_EXPORT FontBoldCommand : public ItemPropertyCommand
{
public:
    FontBoldCommand(ReportItem* item, bool bold, QUndoCommand* parent = nullptr);
    int id() const override { return 8; }

protected:
    void swap() override;

private:
    bool bold;
};

class REPORT_EXPORT FontItalicCommand : public ItemPropertyCommand
{
public:
    FontItalicCommand(ReportItem* item, bool italic, QUndoCommand* parent = nullptr);
    int id() const override { return 9; }

protected:
    void swap() override;

private:
    bool italic;
};

class REPORT_EXPORT FontUnderlineCommand : public ItemPropertyCommand
{
public:
    FontUnderlineCommand(ReportItem* item, bool underline, QUndoCommand* parent = nullptr);
    int id() const override { return 10; }

protected:
    void swap() override;

private:
    bool underline;
};

class REPORT_EXPORT TextAlignmentCommand : public ItemPropertyCommand
{
public:
    TextAlignmentCommand(ReportItem* item, Qt::Alignment alignment, QUndoCommand* parent = nullptr);
    int id() const override { return 11; }

protected:
    void swap() override;

private:
    Qt::Alignment alignment;
};

class REPORT_EXPORT PenCommand : public ItemPropertyCommand
{
public:
    PenCommand(ReportItem* item, const QPen& pen, QUndoCommand* parent = nullptr);
    int id() const override { return 12; }

protected:
    void swap() override;

private:
    QPen pen;
};

class REPORT_EXPORT BrushCommand : public ItemPropertyCommand
{
public:
    BrushCommand(ReportItem* item, const QBrush& brush, QUndoCommand* parent = nullptr);
    int id() const override { return 12; }

protected:
    void swap() override;

private:
    QBrush brush;
};

class REPORT_EXPORT FontSizeCommand : public ItemPropertyCommand
{
public:
    FontSizeCommand(ReportItem* item, int pixelSize, QUndoCommand* parent = nullptr);
    int id() const override { return 8; }

protected:
    void swap() override;

private:
    int size;
    double pointSize = -1;
};

// Records a text item's plain text before an edit; pushed after the edit.
class REPORT_EXPORT TextCommand : public ToggleCommand
{
public:
    TextCommand(ReportTextItem* item, bool merge, QUndoCommand* parent = nullptr);
    int id() const override { return 13; }
    bool mergeWith(const QUndoCommand* other) override;
    bool isTextChanged() const;

protected:
    void toggle() override;

private:
    ReportTextItem* item;
    QString text;
    bool merge;
};

} // namespace coagulation
