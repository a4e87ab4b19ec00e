#pragma once

#include "pickmachine.h"
#include "report.h"
#include "report_global.h"

#include <QGraphicsView>
#include <QIcon>
#include <QObject>
#include <QPointer>
#include <QPolygonF>
#include <QStringList>

class QEvent;

namespace coagulation {

class ReportItem;

// Base of the designer's creation tools. Entered on a view, the tool filters the scene's mouse
// events through its pick machine, builds the new item from the snapped points and commits it
// as one undoable creation.
class REPORT_EXPORT ReportItemCreator : public QObject
{
    Q_OBJECT
public:
    enum SelectionMode { ClickPointSelection = 0, DragRectSelection = 1 };

    explicit ReportItemCreator(SelectionMode mode, QObject* parent = nullptr);
    ~ReportItemCreator() override;

    virtual QList<QString> keys() const = 0;
    virtual QString name() const = 0;
    virtual QString group() const = 0;
    virtual QIcon icon() const = 0;
    // A new item owned by the caller, or null when the tool creates nothing.
    virtual ReportItem* create() = 0;

    Report* report() const { return m_report; }
    QGraphicsView* view() const { return m_view; }
    ReportItem* reportItem() const { return m_item; }
    SelectionMode selectionMode() const { return m_mode; }

Q_SIGNALS:
    void created(coagulation::ReportItem* item);
    void finished(coagulation::ReportItem* item);

public Q_SLOTS:
    virtual void enter(QGraphicsView* view);
    virtual void leave();
    void prepare(coagulation::ReportItem* item);
    void accept();
    void reject();
    void finish();

protected:
    // Whether a finished pick is kept.
    virtual bool accept(const QPolygonF& selection) const;
    virtual void snapGrid(QPointF& point, Qt::KeyboardModifiers modifiers);
    virtual void snapAngle(QPointF& point, const QPointF& anchor, Qt::KeyboardModifiers modifiers);
    bool eventFilter(QObject* watched, QEvent* event) override;

    bool isActive() const { return m_active; }
    QPolygonF selection() const { return m_selection; }
    PickMachine* machine() const { return m_machine; }
    void begin();
    void append(const QPointF& point);
    void move(const QPointF& point);
    bool end(bool ok);
    void reset();
    bool transition(const QEvent* event);

private:
    void applySelection();

    QPointer<Report> m_report;
    QPointer<QGraphicsView> m_view;
    ReportItem* m_item = nullptr; // pending; always in m_report's scene

    QPolygonF m_selection;
    SelectionMode m_mode;
    PickMachine* m_machine = nullptr;
    bool m_active = false;
};

} // namespace coagulation
