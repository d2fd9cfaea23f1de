// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "view/facepicker.h"

#include "mesh/parallel.h"
#include "view/camerarig.h"

namespace Workbench {

void FacePicker::setMesh(const Mesh &mesh)
{
    m_mesh = mesh;
    m_tree.reset();
}

int FacePicker::faceAt(const CameraRig &rig, const QPointF &position)
{
    return rig.viewport().isEmpty() ? -1 : tree().firstHit(rig.rayAt(position)).face;
}

QVector<int> FacePicker::facesIn(const CameraRig &rig, const QRectF &area)
{
    if (rig.viewport().isEmpty() || m_mesh.isEmpty())
        return {};
    const QMatrix4x4 toPicture = rig.toPicture();
    const FaceTree &faces = tree();
    std::vector<char> isSeen(std::size_t(m_mesh.faces.size()), 0);
    forEachIndex(m_mesh.faces.size(), Cancellation(), [&](int index) {
        const QVector3D center = centerOf(m_mesh, m_mesh.faces.at(index));
        const QPointF place = toPicture.map(center).toPointF();
        const bool isInside = area.contains(place);
        isSeen[std::size_t(index)] =
            isInside && faces.firstHit(rig.rayAt(place)).face == index ? 1 : 0;
    });

    QVector<int> seen;
    for (int index = 0; index < m_mesh.faces.size(); ++index) {
        if (isSeen[std::size_t(index)])
            seen.append(index);
    }
    return seen;
}

const FaceTree &FacePicker::tree()
{
    if (!m_tree)
        m_tree = std::make_unique<FaceTree>(m_mesh);
    return *m_tree;
}

} // namespace Workbench
