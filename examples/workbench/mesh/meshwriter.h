// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "mesh/mesh.h"

#include <QCoreApplication>
#include <QString>

namespace Workbench {

/// Writes triangle meshes to files in the OBJ format. Any thread.
class MeshWriter
{
    Q_DECLARE_TR_FUNCTIONS(Workbench::MeshWriter)

public:
    /// Writes @p mesh to the file at @p path, all of it or nothing: what was there before stays
    /// when something goes wrong.
    /// @return a sentence that says why it did not work; empty when it did
    static QString write(const QString &path, const Mesh &mesh);
};

} // namespace Workbench
