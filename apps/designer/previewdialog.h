#pragma once

#include "previewdata.h"

#include <kvcore/reporttype.h>

#include <QDialog>

class QComboBox;
class QDateEdit;
class QListWidget;

namespace coagulation {

// Asks what a preview shows: patients, QC reagents and a date range, or a maintenance month,
// with the latest chosen when it opens.
class PreviewDialog : public QDialog
{
    Q_OBJECT
public:
    PreviewDialog(kv::ReportType type, const PreviewData& data, const PreviewChoice& choice,
                  QWidget* parent = nullptr);

    PreviewChoice choice() const;
    QListWidget* list() const { return m_list; }
    QComboBox* monthBox() const { return m_month; }
    QDateEdit* fromEdit() const { return m_from; }
    QDateEdit* toEdit() const { return m_to; }

private:
    QList<qint64> chosenIds() const;

    kv::ReportType m_type;
    QListWidget* m_list = nullptr;
    QComboBox* m_month = nullptr;
    QDateEdit* m_from = nullptr;
    QDateEdit* m_to = nullptr;
};

} // namespace coagulation
