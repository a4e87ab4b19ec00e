#pragma once

#include <QHash>
#include <QPointer>

#include <QWidget>
#include <reportitemcreator.h>

class QAbstractButton;
class QButtonGroup;
class QGraphicsView;
class QToolBox;

namespace coagulation {

class ReportItem;
class ReportItemCreator;

// The creation tools, grouped as their creators say. Exactly one tool is active on the view:
// activating one leaves the previous; when a tool has finished, the pointer comes back.
class ToolPalette : public QWidget
{
    Q_OBJECT
public:
    explicit ToolPalette(QWidget* parent = nullptr);
    ~ToolPalette() override;

    void setCreators(const QList<ReportItemCreator*>& creators);
    QList<ReportItemCreator*> creators() const { return m_creators; }
    // The tool that selects (key "Pointer"), or null.
    ReportItemCreator* pointer() const;
    ReportItemCreator* creator(const QString& key) const;
    ReportItemCreator* current() const { return m_current; }
    QAbstractButton* button(ReportItemCreator* creator) const { return m_buttons.value(creator); }

    // The view the tools work on; the current tool is left on the old view and entered on the new.
    void setView(QGraphicsView* view);

public Q_SLOTS:
    void activate(coagulation::ReportItemCreator* creator);
    void activatePointer();

Q_SIGNALS:
    void activated(coagulation::ReportItemCreator* creator);

private Q_SLOTS:
    void toolFinished();

private:
    QToolBox* m_box;
    QButtonGroup* m_group;
    QList<ReportItemCreator*> m_creators;
    QHash<ReportItemCreator*, QAbstractButton*> m_buttons;
    QPointer<ReportItemCreator> m_current;
    QPointer<QGraphicsView> m_view;
};

} // namespace coagulation
