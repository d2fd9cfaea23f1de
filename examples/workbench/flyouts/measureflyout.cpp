// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/measureflyout.h"

#include "flyouts/settingspanel.h"
#include "flyouts/sidepanel.h"
#include "language.h"
#include "mesh/measures.h"
#include "meshdocument.h"

#include <ui_base/FlyoutBase>
#include <ui_base/QtUiToolkit>

#include <QFormLayout>
#include <QKeySequence>
#include <QLabel>
#include <QLocale>
#include <QToolButton>

#include <cmath>
#include <utility>

namespace Workbench {

using Vela::UiBase::QtUiToolkit;

namespace {

QString number(double value)
{
    return QLocale().toString(value, 'g', 5);
}

QFormLayout *makeRows(QWidget *table, const QMargins &margins)
{
    auto *const rows = new QFormLayout(table);
    rows->setContentsMargins(margins);
    return rows;
}

QLabel *addRow(QFormLayout *rows, const std::function<QString()> &name)
{
    auto *const value = new QLabel;
    auto *const label = new QLabel;
    inEveryLanguage(*label, [label, name] { label->setText(name()); });
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    rows->addRow(label, value);
    return value;
}

} // namespace

MeasureFlyout::MeasureFlyout(std::shared_ptr<MeshDocument> document)
    : MeasureFlyout(std::move(document), new QWidget)
{ }

MeasureFlyout::MeasureFlyout(std::shared_ptr<MeshDocument> document, QWidget *table)
    : PanelCommand(QtUiToolkit::Instance().CreateFlyout(
        nullptr, QString(), table, tr("Figures of the faces"), true, false, false, false, nullptr))
    , m_document(std::move(document))
{
    QFormLayout *const rows = makeRows(table, SettingsPanel::margins());
    table->setMinimumWidth(260);
    m_size = addRow(rows, [] { return tr("Size"); });
    m_area = addRow(rows, [] { return tr("Area"); });
    m_volume = addRow(rows, [] { return tr("Volume"); });
    m_selected = addRow(rows, [] { return tr("Selected"); });
    addFacesPanel();
    inEveryLanguage(*this, [this] { speak(); });
    setObjectName(QStringLiteral("measure_flyout"));
    setShortcut(QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_U));
    setDrawing(QStringLiteral("cmd_measure_flyout"));
    connect(m_document.get(), &MeshDocument::meshChanged, this, &MeasureFlyout::showMesh);
    connect(m_document.get(), &MeshDocument::selectionChanged, this, &MeasureFlyout::showSelection);
}

void MeasureFlyout::speak()
{
    setTitle(tr("Measure"));
    setText(tr("Measure"));
    setToolTip(tr("Tell the sizes of the mesh"));
    setWhatsThis(
        tr("Opens a panel with the size, the area and the volume of the mesh, in the units of "
           "its file, and with the area of the faces that are selected."));
    if (m_facesPanel)
        m_facesPanel->setTitle(tr("Faces"));
    showMesh();
}

void MeasureFlyout::addFacesPanel()
{
    auto *const table = new QWidget;
    table->setMinimumWidth(180);
    QFormLayout *const rows = makeRows(table, QMargins());
    m_shortest = addRow(rows, [] { return tr("Shortest edge"); });
    m_longest = addRow(rows, [] { return tr("Longest edge"); });
    m_mean = addRow(rows, [] { return tr("Mean edge"); });
    m_sharpest = addRow(rows, [] { return tr("Sharpest corner"); });
    m_facesPanel = new SidePanel(*flyout(), table);
    auto *const sign = flyout()->findChild<QToolButton *>(QStringLiteral("ibutton"));
    connect(sign, &QToolButton::clicked, m_facesPanel, &SidePanel::toggle);
    connect(m_facesPanel, &SidePanel::aboutToOpen, this, &MeasureFlyout::showFaces);
}

SidePanel *MeasureFlyout::facesPanel() const
{
    return m_facesPanel;
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
    if (m_facesPanel && m_facesPanel->isVisible())
        showFaces();
}

void MeasureFlyout::showFaces()
{
    const SideLengths lengths = sideLengthsOf(m_document->mesh());
    m_shortest->setText(number(lengths.shortest));
    m_longest->setText(number(lengths.longest));
    m_mean->setText(number(lengths.mean));
    m_sharpest->setText(
        tr("%1°").arg(QLocale().toString(sharpestCornerOf(m_document->mesh()), 'f', 1)));
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
