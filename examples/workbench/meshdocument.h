// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <QObject>
#include <QString>

namespace Workbench {

/// The mesh that is open, the file it came from, and everybody's way to change it.
///
/// It belongs to the main thread. A background job gets a snapshot() and comes back on the main
/// thread with replaceMesh().
class MeshDocument : public QObject
{
    Q_OBJECT

public:
    /// The mesh as it was at one moment, and a number that tells that moment from others.
    struct Snapshot
    {
        Mesh mesh;
        int revision = 0;
    };

    MeshDocument() = default;

    bool isEmpty() const { return m_mesh.isEmpty(); }
    const Mesh &mesh() const { return m_mesh; }
    const QString &filePath() const { return m_filePath; }

    /// The mesh as it was read from the file.
    const Mesh &originalMesh() const { return m_original; }

    /// Whether the mesh has changes that no file holds and that the user has not given up.
    bool isModified() const { return m_revision != m_keptRevision; }

    /// The indices of the selected faces, in ascending order.
    const QVector<int> &selection() const { return m_selection; }

    /// Free of cost: the arrays are shared until one side is changed.
    Snapshot snapshot() const { return {m_mesh, m_revision}; }

    /// Lets @p mesh, which was read from @p filePath, take the place of what was open. Emits
    /// meshChanged() and then opened().
    void open(const QString &filePath, const Mesh &mesh);

    /// Takes over @p mesh, which was worked out from the snapshot @p basedOn, and emits
    /// meshChanged().
    /// @return false, with nothing changed, when the document was changed since that snapshot: the
    /// user sees the latest of what he did, never an older mesh that comes late
    bool replaceMesh(const Mesh &mesh, int basedOn);

    /// Takes note that the file at @p path holds the mesh as it was at @p revision, and shows that
    /// file as the open one from now on. Emits saved().
    void noteSaved(const QString &path, int revision);

    /// The user does without the changes: the document counts as unmodified until the next one.
    void giveUpChanges();

    /// Selects @p faces, which are indices of the mesh in ascending order, instead of those of
    /// before. Every change of the mesh leaves nothing selected. Emits selectionChanged().
    void select(const QVector<int> &faces);

    /// Turns the mesh inside out in place and emits meshChanged().
    void flipNormals();

    /// Tells the user in the sentence @p text that something did not work; what is open stays open.
    void reportProblem(const QString &text);

Q_SIGNALS:
    void meshChanged();
    void selectionChanged();
    void opened();
    void saved();
    void problemReported(const QString &text);

private:
    void announceChange();

    Mesh m_mesh;
    Mesh m_original;
    QString m_filePath;
    QVector<int> m_selection;
    int m_revision = 0;
    int m_keptRevision = 0;
};

} // namespace Workbench
