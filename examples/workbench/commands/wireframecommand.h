// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandBase>

#include <QPointer>

namespace Workbench {

class MeshView;

/// Draws the edges of the mesh on its surface as long as it is checked.
class WireframeCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT
    COMMAND_ID

public:
    /// @param view not owned; once it has gone the command does nothing
    explicit WireframeCommand(MeshView *view);

    bool onExecuteAsync(bool checked) override;

private:
    const QPointer<MeshView> m_view;
};

} // namespace Workbench
