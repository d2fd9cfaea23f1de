// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "flyouts/meshpanelcommand.h"

#include "commands/meshcommand.h"
#include "flyouts/settingspanel.h"
#include "mesh/cancellation.h"

#include <tessel/dispatch.h>
#include <ui_base/CmdsViewController>
#include <ui_base/CommandContext>
#include <ui_base/FlyoutBase>
#include <ui_base/QtUiToolkit>

#include <new>
#include <utility>

namespace Workbench {

using namespace Vela::UiBase;

/// One run: made on the main thread, read by the worker, ended on the main thread.
struct MeshPanelCommand::Run
{
    MeshDocument::Snapshot snapshot;
    Operation operation;
    Cancellation cancellation;
    bool isOver = false;   // main thread only
    bool hasMemory = true; // written by the worker before it hands over
};

namespace {

FlyoutBase *makePanel(SettingsPanel *settings, SettingsPanel *details)
{
    FlyoutBase *const panel = QtUiToolkit::Instance().CreateFlyout(
        QString(), settings, details, true, false, true, true, nullptr);
    panel->SetToggleApplyButtonEnabled(true);
    if (details) {
        details->useAsDetails();
        QObject::connect(settings, &SettingsPanel::ResetValues, details,
                         &SettingsPanel::ResetValues);
    }
    return panel;
}

} // namespace

MeshPanelCommand::MeshPanelCommand(SettingsPanel *settings, SettingsPanel *details,
                                   std::shared_ptr<MeshDocument> document)
    : PanelCommand(makePanel(settings, details))
    , m_document(std::move(document))
{
    addTag(MeshCommand::editTag());
    connect(flyout(), &FlyoutBase::CancelChanges, this, &MeshPanelCommand::cancel);
}

bool MeshPanelCommand::isRunning() const
{
    return m_run && !m_run->isOver;
}

bool MeshPanelCommand::wasCancelled() const
{
    return m_run && m_run->cancellation.isCancelled();
}

void MeshPanelCommand::cancel()
{
    if (isRunning())
        m_run->cancellation.cancel();
}

CommandContext MeshPanelCommand::getBeginCommandContext() const
{
    CommandContext context;
    const QVector<CommandBase *> edits = getViewController()->findCommands(MeshCommand::editTag());
    for (const CommandBase *const edit : edits) {
        // Another panel may take over from this one.
        if (!qobject_cast<const PanelCommand *>(edit))
            context.overwrite(edit->commandId(), {State::Off, State::Keep});
    }
    return context;
}

CommandContext MeshPanelCommand::getExecutionCommandContext() const
{
    CommandContext context;
    if (!getViewController())
        return context;
    const QVector<CommandBase *> edits = getViewController()->findCommands(MeshCommand::editTag());
    for (const CommandBase *const edit : edits) {
        if (edit != this)
            context.overwrite(edit->commandId(), {State::Off, State::Keep});
    }
    return context;
}

void MeshPanelCommand::onFinalize()
{
    if (isActive())
        cancel();
    PanelCommand::onFinalize();
    m_atBegin = {};
}

void MeshPanelCommand::onReset()
{
    if (!isActive() || isRunning() || m_atBegin.isEmpty())
        return;
    m_document->replaceMesh(m_atBegin, m_document->snapshot().revision);
}

bool MeshPanelCommand::onBeforeExecute()
{
    if (isRunning() || m_document->isEmpty())
        return false;
    if (m_atBegin.isEmpty())
        m_atBegin = m_document->mesh();
    m_run = std::make_shared<Run>();
    m_run->snapshot = m_document->snapshot();
    m_run->operation = operation();
    if (flyout())
        flyout()->OnEnterBusyMode();
    return true;
}

bool MeshPanelCommand::onExecute(bool checked)
{
    if (isRunning())
        return false;
    const bool isAccepted = PanelCommand::onExecute(checked);
    if (!isAccepted && isRunning())
        endRun();
    return isAccepted;
}

bool MeshPanelCommand::onExecuteAsync(bool)
{
    const std::shared_ptr<Run> run = m_run;
    Mesh result;
    try {
        result = run->operation(run->snapshot.mesh, run->cancellation);
    } catch (const std::bad_alloc &) {
        run->hasMemory = false;
    }
    // The library keeps the command alive until it has announced the end, which is posted after this.
    return Tessel::dispatchAsync([this, run, result] { takeOver(*run, result); },
                                 Tessel::EQualityOfService::Main);
}

void MeshPanelCommand::takeOver(const Run &run, const Mesh &result)
{
    const int revision = run.snapshot.revision;
    endRun();
    if (!run.hasMemory)
        m_document->reportProblem(tr("There is not enough memory for \"%1\".").arg(iconText()));
    else if (!run.cancellation.isCancelled() && !result.isEmpty())
        m_document->replaceMesh(result, revision);
}

void MeshPanelCommand::endRun()
{
    m_run->isOver = true;
    m_run->snapshot = {}; // a mesh that nobody else may hold any more
    if (flyout())
        flyout()->OnExitBusyMode();
}

void MeshPanelCommand::onESCKeyReleased()
{
    if (isRunning())
        cancel();
    else
        PanelCommand::onESCKeyReleased();
}

} // namespace Workbench
