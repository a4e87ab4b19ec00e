#include "geometrypanel.h"

#include "itembox.h"
#include "reporteditor.h"

#include <report.h>
#include <reportitembase.h>

#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLabel>

namespace coagulation {

GeometryPanel::GeometryPanel(ReportEditor* editor, QWidget* parent)
    : QWidget(parent), m_editor(editor), m_x(new QDoubleSpinBox), m_y(new QDoubleSpinBox),
      m_width(new QDoubleSpinBox), m_height(new QDoubleSpinBox)
{
    auto* form = new QFormLayout(this);
    form->addRow(tr("左 (X):"), m_x);
    form->addRow(tr("上 (Y):"), m_y);
    form->addRow(tr("宽度:"), m_width);
    form->addRow(tr("高度:"), m_height);
    for (QDoubleSpinBox* box : {m_x, m_y, m_width, m_height}) {
        box->setDecimals(1);
        box->setRange(-2000, 2000);
        box->setSuffix(tr(" 毫米"));
        box->setKeyboardTracking(false);
    }
    connect(m_x, &QDoubleSpinBox::valueChanged, this, &GeometryPanel::positionEdited);
    connect(m_y, &QDoubleSpinBox::valueChanged, this, &GeometryPanel::positionEdited);
    connect(m_width, &QDoubleSpinBox::valueChanged, this, &GeometryPanel::sizeEdited);
    connect(m_height, &QDoubleSpinBox::valueChanged, this, &GeometryPanel::sizeEdited);
    refresh();
}

double GeometryPanel::unitsPerMmX() const
{
    return m_editor->report() ? m_editor->report()->dpiX() / 25.4 : 96 / 25.4;
}

double GeometryPanel::unitsPerMmY() const
{
    return m_editor->report() ? m_editor->report()->dpiY() / 25.4 : 96 / 25.4;
}

void GeometryPanel::refresh()
{
    ReportItem* item = m_editor->currentItem();
    const QSignalBlocker bx(m_x), by(m_y), bw(m_width), bh(m_height);
    for (QDoubleSpinBox* box : {m_x, m_y})
        box->setEnabled(item);
    // Only items shaped by two points can be sized by numbers; others are scaled by handles.
    const bool sizable = item && ItemBox::isSizedByGeometry(item);
    m_width->setEnabled(sizable);
    m_height->setEnabled(sizable);
    if (!item) {
        for (QDoubleSpinBox* box : {m_x, m_y, m_width, m_height})
            box->setValue(0);
        return;
    }
    const QPointF pos = item->graphicsItem()->pos();
    m_x->setValue(pos.x() / unitsPerMmX());
    m_y->setValue(pos.y() / unitsPerMmY());
    const QRectF span = ItemBox::rect(item);
    m_width->setValue(sizable ? span.width() / unitsPerMmX() : 0);
    m_height->setValue(sizable ? span.height() / unitsPerMmY() : 0);
}

void GeometryPanel::positionEdited()
{
    ReportItem* item = m_editor->currentItem();
    if (!item)
        return;
    const QPointF target(m_x->value() * unitsPerMmX(), m_y->value() * unitsPerMmY());
    m_editor->moveSelection(target - item->graphicsItem()->pos());
}

void GeometryPanel::sizeEdited()
{
    ReportItem* item = m_editor->currentItem();
    if (!item || !ItemBox::isSizedByGeometry(item))
        return;
    m_editor->setGeometry(
        item, ItemBox::resized(item, m_width->value() * unitsPerMmX(), m_height->value() * unitsPerMmY()));
}

} // namespace coagulation
