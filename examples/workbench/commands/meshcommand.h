// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/backgroundcommand.h"
#include "mesh/mesh.h"

namespace Workbench {

class MeshDocument;

/// A command that works out a new mesh from the one that is open, in the background.
///
/// The work starts from a snapshot. When the document was changed before it is done, its result is
/// dropped. That does not happen by the user's edits: an execution context holds all commands with
/// the tag of edits disabled during a run. Opening another file cancels it. Begin and end are told
/// in the notification of the view.
class MeshCommand : public BackgroundCommand
{
    Q_OBJECT

public:
    /// The tag of the commands that change the mesh.
    static QString editTag();

protected:
    explicit MeshCommand(std::shared_ptr<MeshDocument> document);

    MeshDocument &document() const { return *m_document; }

    /// The new mesh. Runs on a worker, so it must not use anything of this object; a captured copy
    /// of what it needs is what an Operation is for.
    using Operation = std::function<Mesh(const Mesh &mesh, const Cancellation &cancellation)>;
    virtual Operation operation() const = 0;

    Work prepare() override;
    Vela::UiBase::CommandContext getExecutionCommandContext() const override;
    void handleOutOfMemory() override;

private:
    const std::shared_ptr<MeshDocument> m_document;
};

} // namespace Workbench
