// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandbase.h"

#include "ui_base/command/cmdmgr.h"
#include "ui_base/command/commandcontext.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/command/commandlinks_p.h"
#include "ui_base/command/waypointtexts_p.h"
#include "ui_base/qtui/qtuitoolkit.h"

#include <lumo_app_service/ApplicationService>
#include <lumo_common_res/String>
#include <orrin_mesh_kernel/Kernel>

#include <QPointer>
#include <QVector>
#include <QWidget>

#include <atomic>
#include <limits>

namespace Vela::UiBase {
namespace {

void writeWaypoint(const wchar_t *text)
{
    Services::ApplicationService::GetInstance().Kernel().ProfilerWaypoint(text);
}

void enableWorkspaceSwitching(bool enable)
{
    Services::ApplicationService::GetInstance().EnableWorkspaceSwitching(enable);
}

/// One run in the background, shared by the work and the finishing step.
struct BackgroundRun
{
    CommandBase *command;
    std::shared_ptr<Tessel::SharedObjectInternal> owner;
    const WaypointTexts *texts;
    bool checked;
    bool pushedContext;
};

} // namespace

class CommandBaseImpl
{
public:
    CommandBaseImpl(CommandBase *command, CmdsViewController *controller)
        : q(command)
        , baseGroupName(Resource::String::COMMAND_DEFAULT_GROUP)
    {
        setController(controller);
    }

    void setController(CmdsViewController *controller);
    const WaypointTexts &waypointTexts();
    void announceBegin(const WaypointTexts &texts, bool checked);
    void announceEnd(const WaypointTexts &texts, bool checked);
    bool runInPlace(const WaypointTexts &texts, bool checked);
    bool runInBackground(BackgroundRun run);
    bool pushExecutionContext();

    static bool differs(bool fact, const State &wanted)
    {
        return wanted != State::Keep && fact != (wanted == State::On);
    }

    static void work(std::shared_ptr<BackgroundRun> run);
    static void finish(BackgroundRun &run);

    CommandBase *const q;
    CmdsViewController *viewController = nullptr;
    QPointer<QObject> viewControllerGuard;
    QStringList tags;
    QString baseGroupName;
    bool attached = false;
    QStringList attachedCommandGroupNames;
    QPointer<CommandGroup> commandGroup;
    Tessel::EQualityOfService executionQoS = Tessel::EQualityOfService::Main;
    ToolButton *toolButton = nullptr;
    QPointer<QObject> toolButtonGuard;
    bool executionNotificationEnabled = false;
    QVector<QString> executionNotificationMessages;
    std::atomic<const WaypointTexts *> knownTexts {nullptr};
};

void CommandBaseImpl::setController(CmdsViewController *controller)
{
    viewController = controller;
    viewControllerGuard = controller ? Internal::objectOf(controller) : nullptr;
}

const WaypointTexts &CommandBaseImpl::waypointTexts()
{
    const char *const className = q->metaObject()->className();
    const WaypointTexts *known = knownTexts.load(std::memory_order_acquire);
    if (!known || !known->isOfClass(className)) {
        known = &WaypointTexts::ofClass(className);
        knownTexts.store(known, std::memory_order_release);
    }
    return *known;
}

void CommandBaseImpl::announceBegin(const WaypointTexts &texts, bool checked)
{
    writeWaypoint(texts.begin(checked));
    q->broadcast(&CommandStateProtocol::commandBeganExecuting, q, checked);
}

void CommandBaseImpl::announceEnd(const WaypointTexts &texts, bool checked)
{
    writeWaypoint(texts.end(checked));
    q->broadcast(&CommandStateProtocol::commandEndedExecuting, q, checked);
}

bool CommandBaseImpl::runInPlace(const WaypointTexts &texts, bool checked)
{
    const bool result = q->onExecuteAsync(checked);
    announceEnd(texts, checked);
    return result;
}

bool CommandBaseImpl::runInBackground(BackgroundRun run)
{
    run.pushedContext = pushExecutionContext();
    auto shared = std::make_shared<BackgroundRun>(std::move(run));
    return Tessel::dispatchAsync(
        [shared = std::move(shared)]() mutable { work(std::move(shared)); }, q->executionQoS());
}

bool CommandBaseImpl::pushExecutionContext()
{
    const CommandContext context = q->getExecutionCommandContext();
    CmdsViewController *const controller = q->getViewController();
    if (context.get().isEmpty() || !controller)
        return false;
    Internal::managerOf(controller)->pushContext(context);
    return true;
}

void CommandBaseImpl::work(std::shared_ptr<BackgroundRun> run)
{
    Tessel::dispatchAsync([] { enableWorkspaceSwitching(false); }, Tessel::EQualityOfService::Main);
    run->command->onExecuteAsync(run->checked);
    // The worker keeps no hold on the run: whether the finishing step runs or is dropped with the
    // application, the command is let go of on the main thread.
    Tessel::dispatchAsync([run = std::move(run)] { finish(*run); },
                          Tessel::EQualityOfService::Main);
}

void CommandBaseImpl::finish(BackgroundRun &run)
{
    // Taken out of the run: a host's own dispatch library may copy what is posted to it, and then
    // the worker can hold the run, but not the command, for longer than this.
    const auto owner = std::move(run.owner);
    CommandBase *const command = run.command;
    CmdsViewController *const controller = command->getViewController();
    if (run.pushedContext && controller)
        Internal::managerOf(controller)->popContext();
    command->d->announceEnd(*run.texts, run.checked);
    enableWorkspaceSwitching(true);
}

CommandBase::CommandBase(CmdsViewController *viewController)
    : QAction(nullptr)
    , d(std::make_unique<CommandBaseImpl>(this, viewController))
{
    static const int stateType = qRegisterMetaType<CommandState>("Vela::UiBase::CommandState");
    Q_UNUSED(stateType)
    if (QWidget *const widget = getViewQtWidget())
        widget->addAction(this);
    connect(this, &QAction::triggered, this, &CommandBase::onTriggered);
    connect(this, &QAction::toggled, this, &CommandBase::onToggled);
}

CommandBase::~CommandBase()
{
    disconnect(this, nullptr, this, nullptr);
}

void CommandBase::setParent(QObject *) { }

bool CommandBase::hasTag(const QString &tag) const
{
    return commandTags().contains(tag, Qt::CaseInsensitive);
}

QStringList CommandBase::commandTags() const
{
    return d->tags;
}

void CommandBase::addTag(const QString &tag)
{
    if (!d->tags.contains(tag, Qt::CaseSensitive))
        d->tags.append(tag);
}

void CommandBase::removeTag(const QString &tag)
{
    d->tags.removeAll(tag);
}

CommandState CommandBase::defaultCommandState() const
{
    return {State::On, State::Off};
}

CommandState CommandBase::commandState() const
{
    return {isEnabled(), isChecked()};
}

void CommandBase::setCommandState(const CommandState &state)
{
    if (!d->differs(isEnabled(), state.enabled) && !d->differs(isChecked(), state.checked))
        return;
    // What the changes set off can end the argument, and take the command out of its last bag.
    const CommandState wanted = state;
    const auto owner = weak_from_this().lock();
    if (d->differs(isEnabled(), wanted.enabled))
        setEnabled(wanted.enabled);
    if (isCheckable() && d->differs(isChecked(), wanted.checked))
        setChecked(wanted.checked);
}

void CommandBase::saveCommandState() { }

void CommandBase::restoreCommandState() { }

void CommandBase::updateIconSize(const QSize &size)
{
    QtUiToolkit::Instance().UpdateIconSize(this, size);
}

void CommandBase::setViewController(CmdsViewController *viewController)
{
    d->setController(viewController);
}

CmdsViewController *CommandBase::getViewController() const
{
    return d->viewControllerGuard ? d->viewController : nullptr;
}

BaseView *CommandBase::getView() const
{
    const CmdsViewController *const controller = getViewController();
    return controller ? Internal::viewOf(controller) : nullptr;
}

QWidget *CommandBase::getViewQtWidget() const
{
    const BaseView *const view = getView();
    return view ? Internal::widgetOf(view) : nullptr;
}

Tessel::EQualityOfService CommandBase::executionQoS() const
{
    return d->executionQoS;
}

void CommandBase::setExecutionQoS(const Tessel::EQualityOfService &qos)
{
    d->executionQoS = qos;
}

bool CommandBase::isExecutionNotificationEnabled() const
{
    return d->executionNotificationEnabled;
}

void CommandBase::enableExecutionNotification(bool enable)
{
    d->executionNotificationEnabled = enable;
}

const QString CommandBase::getExecutionNotificationMessage(ENotification notification) const
{
    return d->executionNotificationMessages.value(static_cast<int>(notification));
}

void CommandBase::setExecutionNotificationMessage(ENotification notification,
                                                  const QString &message)
{
    const int index = static_cast<int>(notification);
    if (index < 0 || index == std::numeric_limits<int>::max())
        return;
    if (d->executionNotificationMessages.size() <= index)
        d->executionNotificationMessages.resize(index + 1);
    d->executionNotificationMessages[index] = message;
}

bool CommandBase::hasCommand(const QString &id) const
{
    return commandId() == id;
}

CommandBase *CommandBase::getCommand(const QString &id)
{
    return commandId() == id ? this : nullptr;
}

CommandGroup *CommandBase::commandGroup() const
{
    return d->commandGroup;
}

void CommandBase::setCommandGroup(CommandGroup *group)
{
    d->commandGroup = group;
}

ToolButton *CommandBase::toolButton() const
{
    return d->toolButtonGuard ? d->toolButton : nullptr;
}

void CommandBase::setToolButton(ToolButton *button)
{
    d->toolButton = button;
    d->toolButtonGuard = button ? Internal::objectOf(button) : nullptr;
}

const QString CommandBase::baseGroupName() const
{
    return d->baseGroupName;
}

void CommandBase::setBaseGroupName(const QString &name)
{
    d->baseGroupName = name;
}

bool CommandBase::isAttached() const
{
    return d->attached;
}

void CommandBase::setAttached(bool attached)
{
    d->attached = attached;
}

void CommandBase::addAttachedCommandGroupName(const QString &name)
{
    if (!d->attachedCommandGroupNames.contains(name, Qt::CaseSensitive))
        d->attachedCommandGroupNames.append(name);
}

void CommandBase::removeAttachedCommandGroupName(const QString &name)
{
    d->attachedCommandGroupNames.removeAll(name);
}

const QStringList CommandBase::attachedCommandGroupNames() const
{
    return d->attachedCommandGroupNames;
}

QStringList &CommandBase::attachedCommandGroupName() const
{
    return d->attachedCommandGroupNames;
}

void CommandBase::setAddedToCmdsVC(bool added)
{
    m_addedToCmdsVC = added;
}

bool CommandBase::addedToCmdsVC() const
{
    return m_addedToCmdsVC;
}

bool CommandBase::onExecute(bool checked)
{
    // What observers or the work set off can take the command out of its last bag.
    auto owner = weak_from_this().lock();
    const WaypointTexts &texts = d->waypointTexts();
    d->announceBegin(texts, checked);
    if (executionQoS() == Tessel::EQualityOfService::Main)
        return d->runInPlace(texts, checked);
    return d->runInBackground({this, std::move(owner), &texts, checked, false});
}

void CommandBase::onTriggered(bool checked)
{
    if (isCheckable())
        return;
    const auto owner = weak_from_this().lock();
    Q_EMIT toBeTriggered(checked);
    onExecute(checked);
}

void CommandBase::onToggled(bool checked)
{
    if (!isCheckable())
        return;
    const auto owner = weak_from_this().lock();
    Q_EMIT toBeToggled(checked);
    onExecute(checked);
}

CommandContext CommandBase::getExecutionCommandContext() const
{
    return {};
}

void CommandBase::onUserLogIn() { }

void CommandBase::onUserLogOut() { }

} // namespace Vela::UiBase
