// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/facetree.h"

#include <QPointF>
#include <QRectF>

#include <memory>

namespace Workbench {

class CameraRig;

/// Answers which faces of a mesh the user sees at a place of the picture. It works without any
/// picture, so also without OpenGL.
class FacePicker
{
public:
    /// The mesh that is shown from now on. What is needed to search it is made with the first
    /// question.
    void setMesh(const Mesh &mesh);

    /// The face at @p position; -1 for the background.
    int faceAt(const CameraRig &rig, const QPointF &position);

    /// The faces whose middle is seen inside @p area, in ascending order. Uses all cores.
    QVector<int> facesIn(const CameraRig &rig, const QRectF &area);

private:
    const FaceTree &tree();

    Mesh m_mesh;
    std::unique_ptr<FaceTree> m_tree;
};

} // namespace Workbench
