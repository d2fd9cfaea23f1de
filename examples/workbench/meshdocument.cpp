// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "meshdocument.h"

namespace Workbench {

void MeshDocument::open(const QString &filePath, const Mesh &mesh)
{
    m_filePath = filePath;
    m_mesh = mesh;
    m_original = mesh;
    m_keptRevision = m_revision + 1; // the change that is announced now
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

void MeshDocument::noteSaved(const QString &path, int revision)
{
    m_filePath = path;
    m_keptRevision = revision;
    Q_EMIT saved();
}

void MeshDocument::giveUpChanges()
{
    m_keptRevision = m_revision;
}

void MeshDocument::select(const QVector<int> &faces)
{
    if (faces == m_selection)
        return;
    m_selection = faces;
    Q_EMIT selectionChanged();
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
    const bool hadSelection = !m_selection.isEmpty();
    m_selection.clear();
    Q_EMIT meshChanged();
    if (hadSelection)
        Q_EMIT selectionChanged();
}

} // namespace Workbench
