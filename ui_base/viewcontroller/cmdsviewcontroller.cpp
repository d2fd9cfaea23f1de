// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/cmdsviewcontroller.h"

#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/tool/interactivetool.h"
#include "ui_base/viewcontroller/baseview.h"

#include <lumo_app_service/ApplicationService>
#include <lumo_app_service/IAppManager>
#include <lumo_common_res/String>

#include <QActionGroup>
#include <QCursor>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QVector>

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

namespace Vela::UiBase {
namespace {

constexpr int NotificationTime = 3000; // milliseconds

/// Calls @p visit on each command of @p bag and of the groups in it.
template<typename Visit>
void forEachCommand(const CommandBag &bag, const Visit &visit)
{
    for (const auto &[id, command] : bag) {
        if (!command)
            continue;
        visit(*command);
        if (const auto *const group = qobject_cast<const CommandGroup *>(command.get()))
            forEachCommand(group->commandBag(), visit);
    }
}

void forgetController(const CommandBag &bag)
{
    forEachCommand(bag, [](CommandBase &command) { command.setViewController(nullptr); });
}

/// A run that has put the busy cursor on the application. The manager hears of its end, or the run
/// itself when the manager does not hold the command, such as one that was removed meanwhile.
class BusyRun : public CommandStateProtocol
{
public:
    BusyRun(CmdsViewController *controller, const CommandBase *command)
        : m_controller(controller)
        , m_owner(controller->weak_from_this())
        , m_command(command)
    { }

    bool isOf(const CommandBase *command) const { return m_command == command; }
    void commandEndedExecuting(CommandBase *command, bool checked) override
    {
        // A group shares its observers with its children.
        const auto living = isOf(command) ? m_owner.lock() : nullptr;
        if (living)
            m_controller->commandEndedExecuting(command, checked);
    }

    bool hearsItsEnd = false;

private:
    CmdsViewController *const m_controller;
    const std::weak_ptr<Tessel::SharedObjectInternal> m_owner;
    const CommandBase *const m_command; // only compared
};

/// The title of a group, which follows the language until somebody else gives the group another one.
struct STitle
{
    std::shared_ptr<CommandGroup> group;
    Resource::TranslatedText text;
    QString ours;
};

std::vector<std::shared_ptr<CommandBase>> adopted(const QList<CommandBase *> &commands)
{
    std::vector<std::shared_ptr<CommandBase>> result;
    for (CommandBase *const command : commands) {
        if (command)
            result.push_back(command->shared_from_this());
    }
    return result;
}

EToolActivationButton highestButton(Qt::MouseButtons buttons)
{
    if (buttons.testFlag(Qt::RightButton))
        return eToolButtonRight;
    return buttons.testFlag(Qt::MiddleButton) ? eToolButtonMiddle : eToolButtonLeft;
}

} // namespace

class CmdsViewControllerPrivate
{
public:
    explicit CmdsViewControllerPrivate(CmdsViewController *controller)
        : q(controller)
    { }
    ~CmdsViewControllerPrivate() { endBusyCursors(); }

    void makeGroups();
    std::shared_ptr<CommandGroup> makeGroup(const Resource::TranslatedText &text,
                                            const QString &name);
    void translateTitles();
    bool isLeftTop(const InteractiveTool *tool) const;
    void pushCursor(const QCursor &cursor);
    void popCursor();
    void add(CommandBase *command);
    void beginBusyCursor(CommandBase *command);
    void endBusyCursor(CommandBase *command);
    void endBusyCursors();
    void hearEndOf(CommandBase &command);
    std::vector<std::shared_ptr<BusyRun>>::iterator busyRunOf(const CommandBase *command);

    /// Offers the event to the running command. @return whether that consumed it
    template<typename Event>
    bool offer(bool (ViewResponder::*operation)(Event *), Event *event) const
    {
        const std::shared_ptr<CommandBase> command = q->runningCommand();
        auto *const responder = dynamic_cast<ViewResponder *>(command.get());
        return responder && (responder->*operation)(event);
    }

    CmdsViewController *const q;
    QVector<QCursor> cursorStack;
    std::shared_ptr<CommandGroup> actionPanelGroup;
    std::shared_ptr<CommandGroup> toolPanelGroup;
    std::shared_ptr<CommandGroup> dynamicToolPanelGroup;
    std::vector<STitle> titles;
    std::vector<std::shared_ptr<BusyRun>> busyRuns;
};

std::shared_ptr<CommandGroup> CmdsViewControllerPrivate::makeGroup(
    const Resource::TranslatedText &text, const QString &name)
{
    titles.push_back({std::make_shared<CommandGroup>(QString(), text, name), text, text});
    return titles.back().group;
}

void CmdsViewControllerPrivate::makeGroups()
{
    using namespace Resource::String;
    actionPanelGroup = makeGroup(ACTIONS_GROUP_TEXT, COMMAND_ACTIONPANEL_GROUP_ID);
    toolPanelGroup = makeGroup(TOOLS_GROUP_TEXT, COMMAND_TOOLPANEL_GROUP_ID);
    dynamicToolPanelGroup = makeGroup(DYNAMIC_TOOLS_GROUP_TEXT, COMMAND_DYNAMIC_TOOLPANEL_GROUP_ID);
    toolPanelGroup->groupActionGroup()->setExclusive(false);
}

void CmdsViewControllerPrivate::translateTitles()
{
    for (STitle &title : titles) {
        const QString before = std::exchange(title.ours, title.text.toString());
        if (title.group->toolTip() == before)
            title.group->setToolTip(title.ours);
    }
}

/// False while a reset runs: then the callback is on any thread, and the tool off its stack.
bool CmdsViewControllerPrivate::isLeftTop(const InteractiveTool *tool) const
{
    return tool && q->getTool(eToolButtonLeft).get() == tool;
}

void CmdsViewControllerPrivate::pushCursor(const QCursor &cursor)
{
    BaseView *const view = q->getView();
    if (!view)
        return;
    cursorStack.append(view->getCursor());
    view->setCursor(cursor);
}

void CmdsViewControllerPrivate::popCursor()
{
    const QCursor before = cursorStack.isEmpty() ? QCursor() : cursorStack.takeLast();
    if (BaseView *const view = q->getView())
        view->setCursor(before);
}

void CmdsViewControllerPrivate::add(CommandBase *command)
{
    try {
        q->addCommand(command);
    } catch (const std::runtime_error &error) {
        qWarning("CmdsViewController: a command was not added: %s", error.what());
    }
}

std::vector<std::shared_ptr<BusyRun>>::iterator CmdsViewControllerPrivate::busyRunOf(
    const CommandBase *command)
{
    return std::find_if(busyRuns.begin(), busyRuns.end(),
                        [command](const auto &run) { return run->isOf(command); });
}

void CmdsViewControllerPrivate::beginBusyCursor(CommandBase *command)
{
    QGuiApplication::setOverrideCursor(Qt::BusyCursor);
    busyRuns.push_back(std::make_shared<BusyRun>(q, command));
    if (!command->addedToCmdsVC())
        hearEndOf(*command);
}

void CmdsViewControllerPrivate::endBusyCursor(CommandBase *command)
{
    const auto run = busyRunOf(command);
    if (run == busyRuns.end())
        return;
    const bool heardItsEnd = (*run)->hearsItsEnd;
    busyRuns.erase(run);
    QGuiApplication::restoreOverrideCursor();
    if (heardItsEnd)
        hearEndOf(*command);
}

void CmdsViewControllerPrivate::endBusyCursors()
{
    for (; !busyRuns.empty(); busyRuns.pop_back())
        QGuiApplication::restoreOverrideCursor();
}

/// Lets the first run of the command hear of its end; when runs overlap, each end is one of them.
void CmdsViewControllerPrivate::hearEndOf(CommandBase &command)
{
    const auto run = busyRunOf(&command);
    if (run != busyRuns.end() && !std::exchange((*run)->hearsItsEnd, true))
        command.addObserver(*run, false);
}

CmdsViewController::CmdsViewController()
    : d(std::make_unique<CmdsViewControllerPrivate>(this))
{ }

CmdsViewController::CmdsViewController(BaseView *view)
    : BaseViewController(view)
    , d(std::make_unique<CmdsViewControllerPrivate>(this))
{
    if (view)
        d->makeGroups();
}

CmdsViewController::~CmdsViewController()
{
    forgetController(commandBag());
    for (const CommandGroup *const group :
         {ActionPanelGroup(), ToolPanelGroup(), DynamicToolPanelGroup()}) {
        if (group)
            forgetController(group->commandBag());
    }
}

std::shared_ptr<CmdsViewController> CmdsViewController::shared_from_this()
{
    if (const auto owner = BaseViewController::shared_from_this())
        return {owner, this};
    return nullptr;
}

CommandGroup *CmdsViewController::ActionPanelGroup() const
{
    return d->actionPanelGroup.get();
}

CommandGroup *CmdsViewController::ToolPanelGroup() const
{
    return d->toolPanelGroup.get();
}

CommandGroup *CmdsViewController::DynamicToolPanelGroup() const
{
    return d->dynamicToolPanelGroup.get();
}

/// The tool of the pressed button, after the operation of any other tool has ended.
std::shared_ptr<InteractiveTool> CmdsViewController::handOver(Qt::MouseButton button)
{
    const std::shared_ptr<InteractiveTool> operating = getOperatingTool();
    std::shared_ptr<InteractiveTool> tool = getTool(static_cast<EToolActivationButton>(button));
    if (operating && operating != tool)
        operating->endOperation();
    return tool;
}

bool CmdsViewController::mousePress(QMouseEvent *event)
{
    if (!event)
        return false;
    if (d->offer(&ViewResponder::mousePress, event))
        return true;
    const std::shared_ptr<InteractiveTool> tool = handOver(event->button());
    if (event->button() != Qt::RightButton)
        return tool->mousePress(event);
    m_pendingRightPress = std::make_unique<QMouseEvent>(*event);
    return false;
}

bool CmdsViewController::mouseMove(QMouseEvent *event)
{
    if (!event)
        return false;
    if (d->offer(&ViewResponder::mouseMove, event))
        return true;
    if (const std::shared_ptr<InteractiveTool> operating = getOperatingTool())
        return operating->mouseMove(event);
    const EToolActivationButton button = highestButton(event->buttons());
    const std::shared_ptr<InteractiveTool> tool = getTool(button);
    if (button == eToolButtonRight && m_pendingRightPress) {
        const std::unique_ptr<QMouseEvent> press = std::move(m_pendingRightPress);
        tool->mousePress(press.get());
    }
    return tool->mouseMove(event);
}

bool CmdsViewController::mouseRelease(QMouseEvent *event)
{
    if (d->offer(&ViewResponder::mouseRelease, event))
        return true;
    m_pendingRightPress.reset();
    const std::shared_ptr<InteractiveTool> operating = getOperatingTool();
    return operating && operating->mouseRelease(event);
}

bool CmdsViewController::mouseDoubleClick(QMouseEvent *event)
{
    if (!event)
        return false;
    if (d->offer(&ViewResponder::mouseDoubleClick, event))
        return true;
    return handOver(event->button())->mouseDoubleClick(event);
}

bool CmdsViewController::mouseWheel(QWheelEvent *event)
{
    if (d->offer(&ViewResponder::mouseWheel, event))
        return true;
    const std::shared_ptr<InteractiveTool> wheelTool = getTool(eToolButtonNone);
    const std::shared_ptr<InteractiveTool> leftTool = getTool(eToolButtonLeft);
    const std::shared_ptr<InteractiveTool> operating = getOperatingTool();
    if (operating && operating != wheelTool)
        return false;
    return leftTool->mouseWheel(event) || wheelTool->mouseWheel(event);
}

bool CmdsViewController::mouseEnter(QEvent *event)
{
    return d->offer(&ViewResponder::mouseEnter, event);
}

bool CmdsViewController::mouseLeave(QEvent *event)
{
    return d->offer(&ViewResponder::mouseLeave, event);
}

bool CmdsViewController::mouseDragEnter(QDragEnterEvent *event)
{
    return d->offer(&ViewResponder::mouseDragEnter, event);
}

bool CmdsViewController::mouseDragLeave(QDragLeaveEvent *event)
{
    return d->offer(&ViewResponder::mouseDragLeave, event);
}

bool CmdsViewController::mouseDragMove(QDragMoveEvent *event)
{
    return d->offer(&ViewResponder::mouseDragMove, event);
}

bool CmdsViewController::mouseDrop(QDropEvent *event)
{
    return d->offer(&ViewResponder::mouseDrop, event);
}

bool CmdsViewController::keyPress(QKeyEvent *event)
{
    return d->offer(&ViewResponder::keyPress, event) || getTool(eToolButtonLeft)->keyPress(event);
}

bool CmdsViewController::keyRelease(QKeyEvent *event)
{
    return d->offer(&ViewResponder::keyRelease, event)
        || getTool(eToolButtonLeft)->keyRelease(event);
}

void CmdsViewController::toolActivated(InteractiveTool *tool)
{
    if (d->isLeftTop(tool))
        d->pushCursor(tool->getIdleCursor());
}

void CmdsViewController::toolDeactivated(InteractiveTool *tool)
{
    if (d->isLeftTop(tool))
        d->popCursor();
}

void CmdsViewController::toolBeganOperating(InteractiveTool *tool)
{
    if (isResetting() || !tool)
        return;
    // What the hand-over sets off can end the tool.
    const QCursor cursor = tool->getOperatingCursor();
    ToolStack::toolBeganOperating(tool);
    d->pushCursor(cursor);
}

void CmdsViewController::toolEndedOperating(InteractiveTool *tool)
{
    if (isResetting())
        return;
    d->popCursor();
    ToolStack::toolEndedOperating(tool);
}

void CmdsViewController::toolSuspended(InteractiveTool *tool)
{
    toolDeactivated(tool);
}

void CmdsViewController::toolResumed(InteractiveTool *tool)
{
    toolActivated(tool);
}

void CmdsViewController::toolCursorChange(InteractiveTool *tool)
{
    if (tool && !isResetting() && getView())
        getView()->setCursor(tool->getOperatingCursor());
}

void CmdsViewController::viewDidLoad()
{
    BaseViewController::viewDidLoad();
    Services::IAppManager *const manager =
        Services::ApplicationService::GetInstance().GetAppManager();
    if (!manager)
        return;
    // All are held before the first is added: observers may make the application let go of them, and
    // close the view. Those that are refused or left then end here, unless somebody owns them.
    const std::vector<std::shared_ptr<CommandBase>> commands = adopted(manager->commands(this));
    for (const std::shared_ptr<CommandBase> &command : commands) {
        if (isLoaded())
            d->add(command.get());
    }
}

bool CmdsViewController::viewWillClose()
{
    const auto self = weak_from_this().lock();
    applyContext(inactiveContext(nullptr));
    removeAllCommands();
    // The end of a run that goes on in the background is not heard any more.
    if (!d->busyRuns.empty())
        hideNotification();
    d->endBusyCursors();
    return BaseViewController::viewWillClose();
}

void CmdsViewController::commandBeganExecuting(CommandBase *command, bool)
{
    if (!command || !command->isExecutionNotificationEnabled())
        return;
    d->beginBusyCursor(command);
    const QString message =
        command->getExecutionNotificationMessage(CommandBase::ENotification::ExecutionBegan);
    if (!message.isEmpty())
        showNotification(message, eNotificationPulse, NotificationTime, false, nullptr, nullptr);
}

void CmdsViewController::commandEndedExecuting(CommandBase *command, bool)
{
    if (command)
        d->endBusyCursor(command);
    if (!command || !command->isExecutionNotificationEnabled())
        return;
    const auto messageOf = [command](CommandBase::ENotification notification) {
        return command->getExecutionNotificationMessage(notification);
    };
    const bool hadBeginMessage = !messageOf(CommandBase::ENotification::ExecutionBegan).isEmpty();
    const QString message = messageOf(CommandBase::ENotification::ExecutionEnded);
    const auto fade = hadBeginMessage ? eNotificationFadeOutOnly : eNotificationFadeInOut;
    if (!message.isEmpty())
        showNotification(message, fade, NotificationTime, false, nullptr, nullptr);
    else if (hadBeginMessage)
        hideNotification();
}

bool CmdsViewController::event(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        d->translateTitles();
    return BaseViewController::event(event);
}

void CmdsViewController::letGoOf(CommandBase *command)
{
    const std::shared_ptr<CommandBase> running = runningCommand();
    if (running && command->getCommand(running->commandId()) == running.get())
        commandEnded(running.get());
    d->hearEndOf(*command);
    if (const auto *const group = qobject_cast<const CommandGroup *>(command))
        forEachCommand(group->commandBag(), [this](CommandBase &child) { d->hearEndOf(child); });
}

} // namespace Vela::UiBase
