#pragma once

#include "generalcreator.h"

class QWidget;

namespace coagulation {

// The pointer: creates nothing and lets the view select by rubber band.
class REPORT_EXPORT ArrowCreator : public GeneralCreator
{
    Q_OBJECT
public:
    // The parent is deliberately not taken: the item factory adopts the tool when registering it.
    explicit ArrowCreator(QObject* parent = nullptr);

    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override { return nullptr; }

public Q_SLOTS:
    void enter(QGraphicsView* view) override;
    // Only switches rubber-band selection off; the tool stays attached to the view.
    void leave() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

class REPORT_EXPORT LineCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit LineCreator(QObject* parent = nullptr);
    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

class REPORT_EXPORT RectCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit RectCreator(QObject* parent = nullptr);
    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

// Makes an editable text that is ready for typing as soon as it is in the scene.
class REPORT_EXPORT TextCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit TextCreator(QObject* parent = nullptr);
    TextCreator(const QString& group, QObject* parent = nullptr);
    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;
};

// Asks for a picture file as soon as it is entered and commits the picture at its physical size.
class REPORT_EXPORT ImageCreator : public GeneralRectCreator
{
    Q_OBJECT
public:
    explicit ImageCreator(QObject* parent = nullptr);
    QList<QString> keys() const override;
    QString name() const override;
    ReportItem* create() override;

    // "All formats" over every image format this installation reads.
    static QString fileFilter();

public Q_SLOTS:
    void enter(QGraphicsView* view) override;
};

} // namespace coagulation
