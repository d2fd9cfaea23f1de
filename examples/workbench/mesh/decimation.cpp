// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "mesh/decimation.h"

#include "mesh/cancellation.h"

#include <meshoptimizer.h>

#include <QtGlobal>

#include <vector>

namespace Workbench {
namespace {

using Indices = std::vector<quint32>;

static_assert(sizeof(QVector3D) == 3 * sizeof(float), "positions are handed over as they are");

Indices indicesOf(const Mesh &mesh)
{
    Indices indices;
    indices.reserve(std::size_t(mesh.faces.size()) * 3);
    for (const Face &face : mesh.faces)
        indices.insert(indices.end(), face.begin(), face.end());
    return indices;
}

Indices simplified(const Mesh &mesh, const DecimateSettings &settings)
{
    const Indices indices = indicesOf(mesh);
    const double share = qBound(0.0, settings.keptShare, 1.0);
    const auto wanted = std::size_t(double(mesh.faces.size()) * share) * 3;
    Indices result(indices.size());
    result.resize(meshopt_simplify(result.data(), indices.data(), indices.size(),
                                   reinterpret_cast<const float *>(mesh.positions.constData()),
                                   std::size_t(mesh.positions.size()), sizeof(QVector3D), wanted,
                                   float(settings.largestError),
                                   settings.keepsRim ? unsigned(meshopt_SimplifyLockBorder) : 0U));
    return result;
}

/// The mesh of the triangles @p indices, with those of @p positions that they need.
Mesh compact(const QVector<QVector3D> &positions, const Indices &indices)
{
    constexpr quint32 unused = ~quint32(0);
    std::vector<quint32> places(std::size_t(positions.size()), unused);
    Mesh mesh;
    mesh.faces.reserve(int(indices.size() / 3));
    for (std::size_t corner = 0; corner + 2 < indices.size(); corner += 3) {
        Face face {};
        for (std::size_t i = 0; i < face.size(); ++i) {
            const quint32 vertex = indices[corner + i];
            quint32 &place = places[vertex];
            if (place == unused) {
                place = quint32(mesh.positions.size());
                mesh.positions.append(positions.at(int(vertex)));
            }
            face[i] = place;
        }
        mesh.faces.append(face);
    }
    updateNormals(mesh);
    return mesh;
}

} // namespace

Mesh decimated(const Mesh &mesh, const DecimateSettings &settings, const Cancellation &cancellation)
{
    if (mesh.isEmpty() || cancellation.isCancelled())
        return {};
    const Indices indices = simplified(mesh, settings);
    // The simplifier itself can't be stopped.
    return cancellation.isCancelled() ? Mesh() : compact(mesh.positions, indices);
}

} // namespace Workbench
