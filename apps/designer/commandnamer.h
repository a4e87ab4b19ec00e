#pragma once

#include <QObject>
#include <QPointer>

class QUndoStack;

namespace coagulation {

class ItemFactory;
class ReportItem;
class ReportItemCreator;

// Names the undo steps that the document's tools and handles push without a name ("新建 文本",
// "移动 3 项", "调整大小"), so that the history reads as what the user did.
class CommandNamer : public QObject
{
    Q_OBJECT
public:
    explicit CommandNamer(QObject* parent = nullptr);

    void setStack(QUndoStack* stack);
    void setFactory(const ItemFactory* factory) { m_factory = factory; }
    // Follows a tool so that its new items are named after it.
    void watch(ReportItemCreator* creator);

private:
    void nameLatest();

    QPointer<QUndoStack> m_stack;
    QMetaObject::Connection m_connection;
    const ItemFactory* m_factory = nullptr;
    QString m_createdKind;
};

} // namespace coagulation
