// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/CommandBase>

namespace Workbench {

class MeshViewController;

/// A checkable command that changes what the view of its controller shows or how it reacts.
///
/// A background run holds a snapshot of all commands and puts it back at its end. What the user
/// checks meanwhile is written into that snapshot, so that it lasts.
class SceneCommand : public Vela::UiBase::CommandBase
{
    Q_OBJECT

public:
    bool onExecuteAsync(bool checked) override;

protected:
    SceneCommand();

    /// Does what the check mark says in the view of @p controller.
    virtual void apply(MeshViewController &controller, bool checked) = 0;
};

} // namespace Workbench
