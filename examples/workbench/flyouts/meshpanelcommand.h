// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "flyouts/panelcommand.h"
#include "meshdocument.h"

#include <functional>
#include <memory>

namespace Workbench {

class Cancellation;
class SettingsPanel;

/// A command that works out a new mesh in the background with the settings of its panel, as often as
/// the user applies them. The panel is busy meanwhile; Escape, or the apply button, which reads as
/// cancel then, stops the work. Reset brings back the mesh of when the panel was opened.
///
/// While the panel is open the edits without a panel wait. The work starts from a snapshot; when the
/// document was changed before it is done, its result is dropped.
class MeshPanelCommand : public PanelCommand
{
    Q_OBJECT

public:
    /// Whether work was begun whose result is not taken over yet.
    bool isRunning() const;
    /// Whether the present or else the latest work was stopped.
    bool wasCancelled() const;
    /// Stops the work, if there is any; its result is dropped.
    void cancel();

    void onFinalize() override;
    void onReset() override;
    bool onBeforeExecute() override;
    bool onExecute(bool checked = false) override;
    bool onExecuteAsync(bool checked) override;
    Vela::UiBase::CommandContext getBeginCommandContext() const override;

protected:
    /// @param settings the main panel, of which the flyout becomes the owner
    /// @param details the advanced panel, likewise; may be null
    MeshPanelCommand(SettingsPanel *settings, SettingsPanel *details,
                     std::shared_ptr<MeshDocument> document);

    /// What is to be done with the settings of this moment. Runs on a worker, so it must use nothing
    /// of this object.
    using Operation = std::function<Mesh(const Mesh &mesh, const Cancellation &cancellation)>;
    virtual Operation operation() const = 0;

    MeshDocument &document() const { return *m_document; }

    Vela::UiBase::CommandContext getExecutionCommandContext() const override;
    /// Stops the work; without any, closes the panel.
    void onESCKeyReleased() override;

private:
    struct Run;

    void takeOver(const Run &run, const Mesh &result);
    void endRun();

    const std::shared_ptr<MeshDocument> m_document;
    Mesh m_atBegin;
    std::shared_ptr<Run> m_run;
};

} // namespace Workbench
