// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/backgroundcommand.h"

#include <QString>

namespace Workbench {

class MeshDocument;

/// Writes the mesh to a file that the user chooses, in the background. When that does not work the
/// document is told as a problem.
class SaveCommand : public BackgroundCommand
{
    Q_OBJECT
    COMMAND_ID

public:
    /// Asks the user for a file; an empty path means that he changed his mind.
    using Chooser = std::function<QString()>;

    SaveCommand(std::shared_ptr<MeshDocument> document, Chooser chooser);

    /// Asks for a file and writes it within the call, for one who can't go on before.
    /// @return whether the mesh is in a file now
    bool saveNow();

protected:
    Work prepare() override;
    void handleOutOfMemory() override;

private:
    const std::shared_ptr<MeshDocument> m_document;
    const Chooser m_chooser;
};

} // namespace Workbench
