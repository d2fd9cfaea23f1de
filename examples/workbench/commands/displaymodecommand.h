// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/scenecommand.h"
#include "view/appearance.h"

namespace Workbench {

/// Draws the surface in one of the display modes. There is one command for each; they stand in an
/// exclusive group.
class DisplayModeCommand : public SceneCommand
{
    Q_OBJECT

public:
    explicit DisplayModeCommand(EDisplayMode mode);

    /// The class with the name of the mode, since several commands have the same class.
    const QString commandId() const override;

    EDisplayMode mode() const { return m_mode; }

protected:
    void apply(MeshViewController &controller, bool checked) override;

private:
    const EDisplayMode m_mode;
};

} // namespace Workbench
