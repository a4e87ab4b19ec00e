#pragma once

#include "kvcore_global.h"
#include "maintenancemanager.h"

#include <QTableView>

class QAbstractButton;

namespace coagulation {

// A read-only table of maintenance records whose top-left corner names the record type
// ("日保养"...). It sizes its rows and columns to the contents whenever its model is reset; the
// last column (the remarks) is at most remarkWidth() wide, its texts wrap within it.
class KVCORE_EXPORT MaintenanceTableView : public QTableView
{
    Q_OBJECT
public:
    explicit MaintenanceTableView(MaintenanceManager::RecordType recordType, QWidget* parent = nullptr);

    QString title() const { return m_title; }
    void setTitle(MaintenanceManager::RecordType recordType);

    void setModel(QAbstractItemModel* model) override;

    // Room for 30 Chinese characters in the view's font.
    int remarkWidth() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void fitContents();

private:
    QString m_title;
    QAbstractButton* m_cornerButton;
};

} // namespace coagulation
