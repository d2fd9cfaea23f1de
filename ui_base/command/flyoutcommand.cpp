// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/flyoutcommand.h"

#include "ui_base/command/cmdmgr.h"
#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandcontext.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/command/commandlinks_p.h"
#include "ui_base/qtui/panel/flyoutbase.h"
#include "ui_base/toolbar/toolbutton.h"

#include <lumo_common_res/String>

#include <QActionGroup>
#include <QEvent>
#include <QKeySequence>
#include <QMetaObject>
#include <QWidget>

#include <algorithm>

namespace Vela::UiBase {
namespace {

/// The manager of the command's controller, or null.
CmdMgr *managerOf(const CommandBase &command)
{
    CmdsViewController *const controller = command.getViewController();
    return controller ? Internal::managerOf(controller) : nullptr;
}

/// What a cycle through @p bag toggles next; null for an empty bag.
std::shared_ptr<CommandBase> nextInCycle(const CommandBag &bag)
{
    if (bag.empty())
        return nullptr;
    const auto isChecked = [](const auto &entry) {
        return entry.second && entry.second->isChecked();
    };
    const auto checked = std::find_if(bag.begin(), bag.end(), isChecked);
    const auto behind = checked == bag.end() ? bag.begin() : std::next(checked);
    const auto start = behind == bag.end() ? bag.begin() : behind;

    const auto isEnabled = [](const auto &entry) {
        return entry.second && entry.second->isEnabled();
    };
    auto next = std::find_if(start, bag.end(), isEnabled);
    if (next == bag.end())
        next = std::find_if(bag.begin(), start, isEnabled);
    return next->second;
}

} // namespace

class FlyoutCommandPrivate
{
public:
    explicit FlyoutCommandPrivate(QWidget *widget)
        : flyoutWidget(widget)
    { }

    const QPointer<QWidget> flyoutWidget;
    bool isActive = false;
    bool wasChecked = false;
    int contextsPushed = 0;
    unsigned begins = 0;
    unsigned ends = 0;
};

FlyoutCommand::FlyoutCommand(QWidget *flyoutWidget, CmdsViewController *controller)
    : CommandBase(controller)
    , d(std::make_unique<FlyoutCommandPrivate>(flyoutWidget))
{
    enableExecutionNotification(true);
    setExecutionQoS(Tessel::EQualityOfService::UserInitiated);
    if (auto *const panel = qobject_cast<FlyoutBase *>(flyoutWidget))
        followFlyout(panel);
}

FlyoutCommand::~FlyoutCommand() = default;

void FlyoutCommand::followFlyout(FlyoutBase *panel)
{
    // Its key works in the panel too, which may stand in a window of its own.
    panel->addAction(this);
    connect(panel, &FlyoutBase::ApplyChanges, this, [this] { onExecute(); });
    connect(panel, &FlyoutBase::CloseFlyout, this, &FlyoutCommand::onFinalize);
    connect(panel, &FlyoutBase::ESCKeyReleased, this, &FlyoutCommand::onESCKeyReleased);
    if (!panel->IsResetButtonVisible())
        return;
    // By name, since the host's panel has the signal only if it wants to hear of the reset.
    QWidget *const mainPanel = panel->MainPanel();
    if (mainPanel && mainPanel->metaObject()->indexOfSignal("ResetValues()") >= 0)
        connect(panel, SIGNAL(ResetValues()), mainPanel, SIGNAL(ResetValues()));
    connect(panel, &FlyoutBase::ResetValues, this, &FlyoutCommand::onReset);
}

FlyoutBase *FlyoutCommand::flyout() const
{
    return qobject_cast<FlyoutBase *>(d->flyoutWidget.data());
}

QWidget *FlyoutCommand::simpleFlyout() const
{
    return d->flyoutWidget;
}

bool FlyoutCommand::isSimpleFlyout() const
{
    return !qobject_cast<FlyoutBase *>(d->flyoutWidget.data());
}

bool FlyoutCommand::isActive() const
{
    return d->isActive;
}

void FlyoutCommand::setIsActive(bool active)
{
    d->isActive = active;
}

void FlyoutCommand::onBegin()
{
    ++d->begins;
    CmdMgr *const manager = managerOf(*this);
    if (manager && !isSimpleFlyout()) {
        manager->pushContext(getBeginCommandContext());
        ++d->contextsPushed;
    }
    const QPointer<FlyoutCommand> self(this);
    broadcast(&CommandStateProtocol::commandBegan, this);
    if (self)
        turnPanelLater(true);
}

/// Has the button show or hide the panel when the begin or the end was not its own doing. A click
/// from code, as assistive tools make it, has done so by then, and must not be undone by another.
void FlyoutCommand::turnPanelLater(bool visible)
{
    FlyoutBase *const panel = flyout();
    auto *const button = panel ? qobject_cast<ToolButton *>(panel->ToolButton()) : nullptr;
    if (!button || button->ClickedHandlerRequested())
        return;
    const auto turnsBack = [this, visible] { return visible ? d->ends : d->begins; };
    const auto click = [self = QPointer<FlyoutCommand>(this), panel = QPointer<FlyoutBase>(panel),
                        button, visible, turnsBack, before = turnsBack()] {
        if (self && panel && turnsBack() == before && panel->isVisible() != visible)
            QMetaObject::invokeMethod(button, "OnClicked", Qt::DirectConnection,
                                      Q_ARG(bool, false));
    };
    QMetaObject::invokeMethod(button, click, Qt::QueuedConnection);
}

void FlyoutCommand::onFinalize()
{
    ++d->ends;
    // A panel that has died counts as a simple one, but its context was pushed.
    const bool hasContext = !isSimpleFlyout() || d->contextsPushed > 0;
    d->contextsPushed = std::max(d->contextsPushed - 1, 0);
    CmdMgr *const manager = managerOf(*this);
    if (manager && hasContext) {
        writeChoiceIntoStack();
        manager->popContext();
    }
    broadcast(&CommandStateProtocol::commandEnded, this);
}

/// Keeps the pop of a context from beginning or ending this command: the state that it puts back
/// was remembered while the check mark was another one.
void FlyoutCommand::writeCheckMarkIntoStack()
{
    CmdMgr *const manager = managerOf(*this);
    if (manager && isCheckable())
        manager->updateContextInStack(commandId(), {State::Keep, isChecked()});
}

/// Keeps the pop from undoing what ended this command: that a sibling in its exclusive group was
/// checked.
void FlyoutCommand::writeChoiceIntoStack()
{
    CmdMgr *const manager = managerOf(*this);
    const QActionGroup *const group = actionGroup();
    if (!manager || !group || !group->isExclusive())
        return;
    const QList<QAction *> actions = group->actions();
    for (const QAction *const action : actions) {
        const auto *const sibling = qobject_cast<const CommandBase *>(action);
        if (sibling && sibling->isCheckable())
            manager->updateContextInStack(sibling->commandId(),
                                          {State::Keep, sibling->isChecked()});
    }
}

void FlyoutCommand::onReset() { }

void FlyoutCommand::onExitCommand()
{
    QWidget *const widget = simpleFlyout();
    if (!widget || !isActive() || !widget->isVisible())
        return;
    if (FlyoutBase *const panel = flyout()) {
        panel->CloseMe();
        return;
    }
    const QPointer<FlyoutCommand> self(this);
    widget->setVisible(false);
    if (self)
        onFinalize();
}

void FlyoutCommand::onESCKeyReleased() { }

CommandContext FlyoutCommand::getBeginCommandContext() const
{
    return {};
}

bool FlyoutCommand::onBeforeExecute()
{
    return true;
}

QStringList FlyoutCommand::commandTags() const
{
    return CommandBase::commandTags() << Resource::String::TAG_FLYOUT;
}

bool FlyoutCommand::onExecute(bool checked)
{
    // What the derived class sets off can take the command out of its last bag.
    const auto owner = weak_from_this().lock();
    const QPointer<FlyoutCommand> self(this);
    return onBeforeExecute() && self && CommandBase::onExecute(checked);
}

bool FlyoutCommand::event(QEvent *e)
{
    if (e->type() == QEvent::ActionChanged) {
        if (FlyoutBase *const panel = flyout())
            panel->setEnabled(isEnabled());
        // Before a group hears of the change, which ends the sibling that was open: what that puts
        // back must not uncheck this one again.
        if (d->wasChecked != isChecked()) {
            d->wasChecked = isChecked();
            writeCheckMarkIntoStack();
        }
    }
    return CommandBase::event(e);
}

void FlyoutCommand::onTriggered(bool checked)
{
    if (isCheckable())
        return;
    const auto owner = weak_from_this().lock();
    const QPointer<FlyoutCommand> self(this);
    Q_EMIT toBeTriggered(checked);
    if (self)
        onBegin();
}

void FlyoutCommand::onToggled(bool checked)
{
    if (!isCheckable())
        return;
    const auto owner = weak_from_this().lock();
    const QPointer<FlyoutCommand> self(this);
    Q_EMIT toBeToggled(checked);
    if (!self)
        return;
    if (checked) {
        onBegin();
        return;
    }
    onFinalize();
    if (self)
        turnPanelLater(false);
}

CycleCheckableCommand::CycleCheckableCommand(CmdsViewController *controller,
                                             const QKeySequence &shortcut, CommandGroup *group)
    : CommandBase(controller)
    , m_cycleGroup(group)
{
    setCheckable(false);
    setShortcut(shortcut);
    // Those who hold the command know it by its id.
    if (group)
        connect(group, &QObject::destroyed, this,
                [this](const QObject *dead) { m_nameOfDeadGroup = dead->objectName(); });
}

QString CycleCheckableCommand::className()
{
    static const QString name = QString::fromUtf8(staticMetaObject.className());
    return name;
}

const QString CycleCheckableCommand::commandId() const
{
    return className() + (m_cycleGroup ? m_cycleGroup->objectName() : m_nameOfDeadGroup);
}

bool CycleCheckableCommand::onExecuteAsync(bool)
{
    if (!m_cycleGroup || !m_cycleGroup->isEnabled())
        return false;
    // Held, since the toggle runs it, which can take it out of the bag.
    const std::shared_ptr<CommandBase> next = nextInCycle(m_cycleGroup->commandBag());
    if (!next)
        return false;
    next->toggle();
    return true;
}

} // namespace Vela::UiBase
