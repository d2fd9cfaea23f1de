// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandBase>

#include <memory>

namespace Workbench {

class MeshDocument;

/// What can be done with the selected faces.
enum class ESelectionChange {
    Grow,   ///< joins the faces around them
    Invert, ///< selects the others instead
    Clear,  ///< selects nothing
    Delete  ///< takes them out of the mesh
};

/// Works on the selected faces, in place on the main thread. There is one command for each change;
/// they are on the screen as long as something is selected.
class SelectionCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT

public:
    SelectionCommand(ESelectionChange change, std::shared_ptr<MeshDocument> document);

    /// The class with the name of the change, since several commands have the same class.
    const QString commandId() const override;

    bool onExecuteAsync(bool checked) override;

private:
    bool deleteFaces();

    const ESelectionChange m_change;
    const std::shared_ptr<MeshDocument> m_document;
};

} // namespace Workbench
