// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/measureflyout.h"

#include "mesh/measures.h"
#include "meshdocument.h"

#include <ui_base/FlyoutBase>
#include <ui_base/QtUiToolkit>

#include <QFormLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLocale>

#include <cmath>
#include <utility>

namespace Workbench {

using Vela::UiBase::QtUiToolkit;

namespace {

QString number(double value)
{
    return QLocale().toString(value, 'g', 5);
}

} // namespace

MeasureFlyout::MeasureFlyout(std::shared_ptr<MeshDocument> document)
    : MeasureFlyout(std::move(document), new QWidget)
{ }

MeasureFlyout::MeasureFlyout(std::shared_ptr<MeshDocument> document, QWidget *table)
    : PanelCommand(QtUiToolkit::Instance().CreateFlyout(tr("Measure"), table, nullptr, true, false,
                                                        false, false, nullptr))
    , m_document(std::move(document))
    , m_table(table)
{
    auto *const rows = new QFormLayout(m_table);
    rows->setContentsMargins(0, 0, 0, 0);
    m_table->setMinimumWidth(260);
    m_size = addRow(tr("Size"));
    m_area = addRow(tr("Area"));
    m_volume = addRow(tr("Volume"));
    m_selected = addRow(tr("Selected"));
    setText(tr("Measure"));
    setToolTip(tr("Tell the sizes of the mesh"));
    setWhatsThis(
        tr("Opens a panel with the size, the area and the volume of the mesh, in the units of "
           "its file, and with the area of the faces that are selected."));
    setObjectName(QStringLiteral("measure_flyout"));
    setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_U));
    setDrawing(QStringLiteral("cmd_measure_flyout"));
    connect(m_document.get(), &MeshDocument::meshChanged, this, &MeasureFlyout::showMesh);
    connect(m_document.get(), &MeshDocument::selectionChanged, this, &MeasureFlyout::showSelection);
}

QLabel *MeasureFlyout::addRow(const QString &name)
{
    auto *const value = new QLabel;
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    static_cast<QFormLayout *>(m_table->layout())->addRow(name, value);
    return value;
}

void MeasureFlyout::onBegin()
{
    PanelCommand::onBegin();
    showMesh();
}

bool MeasureFlyout::onExecuteAsync(bool)
{
    return true;
}

void MeasureFlyout::showMesh()
{
    if (!isActive() || !flyout())
        return;
    const Mesh &mesh = m_document->mesh();
    const Bounds bounds = boundsOf(mesh);
    const QVector3D size = bounds.highest - bounds.lowest;
    m_size->setText(
        tr("%1 × %2 × %3")
            .arg(number(double(size.x())), number(double(size.y())), number(double(size.z()))));
    m_area->setText(number(areaOf(mesh)));
    m_volume->setText(number(std::abs(volumeOf(mesh))));
    showSelection();
}

void MeasureFlyout::showSelection()
{
    if (!isActive() || !flyout())
        return;
    const QVector<int> &faces = m_document->selection();
    const double area = areaOf(m_document->mesh(), faces);
    m_selected->setText(
        tr("faces: %1, area: %2").arg(QLocale().toString(faces.size()), number(area)));
}

} // namespace Workbench
