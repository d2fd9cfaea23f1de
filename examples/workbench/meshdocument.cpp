// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "meshdocument.h"

namespace Workbench {

void MeshDocument::open(const QString &filePath, const Mesh &mesh)
{
    m_filePath = filePath;
    m_mesh = mesh;
    announceChange();
    Q_EMIT opened();
}

bool MeshDocument::replaceMesh(const Mesh &mesh, int basedOn)
{
    if (basedOn != m_revision)
        return false;
    m_mesh = mesh;
    announceChange();
    return true;
}

void MeshDocument::flipNormals()
{
    Workbench::flipNormals(m_mesh);
    announceChange();
}

void MeshDocument::reportProblem(const QString &text)
{
    Q_EMIT problemReported(text);
}

void MeshDocument::announceChange()
{
    ++m_revision;
    Q_EMIT meshChanged();
}

} // namespace Workbench
