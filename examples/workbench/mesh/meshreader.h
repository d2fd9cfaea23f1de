// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>

namespace Workbench {

/// What came out of reading a file: a mesh that holds faces, or a sentence that says why there is
/// none.
struct ReadResult
{
    Mesh mesh;
    QString error; ///< names the file and the reason; empty when the mesh is there
};

/// Reads triangle meshes from files. Any thread.
class MeshReader
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::MeshReader)

public:
    /// Reads the file at @p path. All objects of the file become one mesh, polygons become
    /// triangles, and corners at the same place become one vertex, so that the surface is connected
    /// whatever the format says. Lines, points and faces that use a vertex twice are left out.
    static ReadResult read(const QString &path);

    /// The name endings of the formats that can be read, in lower case, without a dot.
    static QStringList suffixes();

private:
    static QString obstacle(const QString &path);
    static QString damage(const QString &path, const QString &importerText);
    static QString unreadable(const QString &path, const QString &reason);
};

} // namespace Workbench
