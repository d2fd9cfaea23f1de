// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/commandgroup.h"

#include "ui_base/command/childactions_p.h"
#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandcontext.h"
#include "ui_base/qtui/qtuitoolkit.h"
#include "ui_base/toolbar/toolbar.h"
#include "ui_base/toolbar/toolbutton.h"

#include <QActionGroup>
#include <QHash>
#include <QPointer>

#include <algorithm>

namespace Vela::UiBase {

class CommandGroupImpl
{
public:
    virtual ~CommandGroupImpl() = default;

    void initialize(CommandGroup *group);
    bool hasEnabledCommand();

    QPointer<ToolBar> toolbar;
    QPointer<ToolButton> toolButton;
    // A child of the group that made it, so it can go before a group that shares this object.
    QPointer<QActionGroup> actionGroup;
    CommandBag commandBag;
    QHash<QString, int> commandRanks;
    bool virtualGroup = false;
    bool grid = true;
    int gridSize = 2;
    std::size_t lastEnabled = 0;
};

namespace {

/// Calls @p visit on each child, which may change the bag. A child that is being visited stays alive.
template<typename Visit>
void forEachChild(const std::shared_ptr<CommandGroupImpl> &shared, const Visit &visit)
{
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): a visit may end the group.
    const std::shared_ptr<CommandGroupImpl> impl = shared;
    for (std::size_t i = 0; i < impl->commandBag.size(); ++i) {
        if (const std::shared_ptr<CommandBase> child = impl->commandBag[i].second)
            visit(*child);
    }
}

/// Whether @p command is @p group or, at any depth, holds it.
bool isOrHolds(const CommandBase *command, const CommandGroup *group)
{
    if (command == group)
        return true;
    const auto *const holder = qobject_cast<const CommandGroup *>(command);
    if (!holder)
        return false;
    const CommandBag &children = holder->commandBag();
    return std::any_of(children.begin(), children.end(),
                       [group](const auto &entry) { return isOrHolds(entry.second.get(), group); });
}

} // namespace

void CommandGroupImpl::initialize(CommandGroup *group)
{
    group->setAttached(false);
    group->setCheckable(true);
    group->setExecutionQoS(Tessel::EQualityOfService::Main);
    actionGroup = new QActionGroup(group);
}

/// Starts at the child that was enabled last time, which makes the changes of many children cheap.
bool CommandGroupImpl::hasEnabledCommand()
{
    const auto isEnabled = [](const auto &entry) {
        return entry.second && entry.second->isEnabled();
    };
    const auto first = commandBag.cbegin();
    const auto start = first + std::ptrdiff_t(std::min(lastEnabled, commandBag.size()));
    auto found = std::find_if(start, commandBag.cend(), isEnabled);
    if (found == commandBag.cend()) {
        found = std::find_if(first, start, isEnabled);
        if (found == start)
            return false;
    }
    lastEnabled = std::size_t(found - first);
    return true;
}

CommandGroup::CommandGroup(const QString &icon, const QString &toolTip, const QString &name)
    : CommandBase(nullptr)
    , d(std::make_shared<CommandGroupImpl>())
{
    setIcon(QtUiToolkit::Instance().CreateIcon(icon));
    setToolTip(toolTip);
    setObjectName(name);
    d->initialize(this);
}

CommandGroup::~CommandGroup()
{
    forEachChild(d, [this](CommandBase &child) {
        if (child.commandGroup() == this)
            child.setCommandGroup(nullptr);
    });
}

const QString CommandGroup::className()
{
    static const QString name = QString::fromUtf8(staticMetaObject.className());
    return name;
}

const QString CommandGroup::commandId() const
{
    return className() + objectName();
}

CommandGroup *CommandGroup::WrapSingleCmdIntoVirtualCmdGroup(CommandBase *command, int rank,
                                                             const QString &name,
                                                             const QString &baseGroupName)
{
    if (!command)
        return nullptr;
    auto *const group = new CommandGroup(QString(), QString(), name);
    group->setBaseGroupName(baseGroupName);
    group->setVirtualGroup(true);
    command->setBaseGroupName(baseGroupName);
    group->addCommand(command, rank);
    return group;
}

const CommandBag &CommandGroup::commandBag() const
{
    return d->commandBag;
}

CommandBag &CommandGroup::commandBag()
{
    return d->commandBag;
}

CommandBase *CommandGroup::addCommand(const std::shared_ptr<CommandBase> &command, int rank)
{
    // Groups that held each other would never be searched through, and never die.
    if (!command || isOrHolds(command.get(), this))
        return nullptr;
    // The action announces its new group, and what that sets off can let go of the group.
    const auto owner = weak_from_this().lock();
    const QString id = command->commandId();
    CommandBase *const child = command.get();
    if (d->commandBag.hasCommand(id) || !d->commandBag.addCommand(command))
        return nullptr;
    d->commandRanks[id] = rank;
    if (d->actionGroup)
        Internal::addToGroup(d->actionGroup, child);
    if (d->toolButton && isCheckable())
        d->toolButton->setIcon(child->icon());
    connect(child, &CommandBase::toBeTriggered, this, &CommandGroup::onChildToBeTriggered,
            Qt::DirectConnection);
    connect(child, &CommandBase::toBeToggled, this, &CommandGroup::onChildToBeTriggered,
            Qt::DirectConnection);
    connect(child, &QAction::triggered, this, &CommandGroup::onChildTriggered,
            Qt::DirectConnection);
    connect(child, &QAction::toggled, this, &CommandGroup::onChildTriggered, Qt::DirectConnection);
    connect(child, &QAction::changed, this, &CommandGroup::onChildChanged, Qt::DirectConnection);
    child->setCommandGroup(this);
    return child;
}

CommandBase *CommandGroup::addCommand(CommandBase *command, int rank)
{
    // Adopting this group here would end it.
    if (!command || command == this)
        return nullptr;
    return addCommand(command->shared_from_this(), rank);
}

bool CommandGroup::removeCommand(const QString &id)
{
    // What the end of the command sets off can let go of this group.
    const auto owner = weak_from_this().lock();
    int index = 0;
    if (!d->commandBag.hasCommand(id, index))
        return removeFromSubGroup(id);
    // A copy of both: the argument may be the id in the bag.
    const auto [leavingId, child] = CommandBag::value_type(d->commandBag[std::size_t(index)]);
    child->setCommandGroup(nullptr);
    disconnect(child.get(), &CommandBase::toBeTriggered, this, &CommandGroup::onChildToBeTriggered);
    disconnect(child.get(), &CommandBase::toBeToggled, this, &CommandGroup::onChildToBeTriggered);
    disconnect(child.get(), &QAction::triggered, this, &CommandGroup::onChildTriggered);
    disconnect(child.get(), &QAction::toggled, this, &CommandGroup::onChildTriggered);
    disconnect(child.get(), &QAction::changed, this, &CommandGroup::onChildChanged);
    if (d->actionGroup)
        Internal::removeFromGroup(d->actionGroup, child.get());
    const std::shared_ptr<CommandBase> last = d->commandBag.back().second;
    if (d->toolButton && last)
        d->toolButton->setIcon(last->icon());
    d->commandRanks.remove(leavingId);
    return d->commandBag.removeCommand(leavingId);
}

bool CommandGroup::removeFromSubGroup(const QString &id)
{
    for (const auto &[childId, child] : d->commandBag) {
        auto *const group = qobject_cast<CommandGroup *>(child.get());
        if (!group || !group->hasCommand(id))
            continue;
        const std::shared_ptr<CommandBase> keptAlive = child;
        // The id in the bag, since the group may have got another name meanwhile.
        const QString idInTheBag = childId;
        const bool removed = group->removeCommand(id);
        if (group->commandBag().empty())
            removeCommand(idInTheBag);
        return removed;
    }
    return false;
}

bool CommandGroup::hasCommand(const QString &id) const
{
    if (CommandBase::hasCommand(id))
        return true;
    for (const auto &[childId, child] : d->commandBag) {
        if (child && child->hasCommand(id))
            return true;
    }
    return false;
}

CommandBase *CommandGroup::getCommand(const QString &id)
{
    if (CommandBase *const self = CommandBase::getCommand(id))
        return self;
    for (const auto &[childId, child] : d->commandBag) {
        CommandBase *const found = child ? child->getCommand(id) : nullptr;
        if (found)
            return found;
    }
    return nullptr;
}

CommandGroup *CommandGroup::getCommandGroup(const QString &name)
{
    const QString id = className() + name;
    for (const auto &[childId, child] : d->commandBag) {
        CommandBase *const found = child ? child->getCommand(id) : nullptr;
        if (auto *const group = qobject_cast<CommandGroup *>(found))
            return group;
    }
    return nullptr;
}

void CommandGroup::absorbCommandGroup(CommandGroup *other)
{
    if (!other || other == this || other->d == d)
        return;
    const auto owner = weak_from_this().lock();
    const auto otherOwner = other->weak_from_this().lock();
    const CommandBag children(other->commandBag());
    for (const auto &[id, child] : children) {
        if (!child)
            continue;
        if (d->commandBag.hasCommand(other->commandId())) {
            mergeIntoEntry(id, qobject_cast<CommandGroup *>(child.get()));
        } else {
            addCommand(child, other->getCommandRank(id));
            child->setCommandGroup(other);
        }
    }
}

void CommandGroup::mergeIntoEntry(const QString &id, CommandGroup *child)
{
    auto *const entry = qobject_cast<CommandGroup *>(d->commandBag.getCommand(id));
    if (!entry || !child || isOrHolds(child, entry))
        return;
    entry->absorbCommandGroup(child);
    entry->d = child->d;
}

void CommandGroup::setEnabled(bool enabled)
{
    const std::shared_ptr<CommandGroupImpl> impl = d;
    QAction::setEnabled(enabled);
    if (impl->toolButton)
        impl->toolButton->setEnabled(enabled);
}

void CommandGroup::setChecked(bool checked)
{
    // The siblings that this unchecks can let go of the group in their runs.
    const auto owner = weak_from_this().lock();
    const std::shared_ptr<CommandGroupImpl> impl = d;
    QAction::setChecked(checked);
    if (impl->toolButton)
        impl->toolButton->setChecked(checked);
}

int CommandGroup::getCommandRank(const QString &id)
{
    return d->commandRanks.value(id, 0);
}

void CommandGroup::setCommandRank(const QString &id, int rank)
{
    d->commandRanks[id] = rank;
}

bool CommandGroup::isVirtualGroup() const
{
    return d->virtualGroup;
}

void CommandGroup::setVirtualGroup(bool isVirtual)
{
    d->virtualGroup = isVirtual;
}

CommandContext CommandGroup::commandContext()
{
    CommandContext context;
    context.overwrite(commandId(), CommandBase::commandState());
    forEachChild(d, [&context](const CommandBase &child) {
        context.overwrite(child.commandId(), child.commandState());
    });
    return context;
}

int CommandGroup::gridSize() const
{
    return d->gridSize;
}

void CommandGroup::setGridSize(int size)
{
    d->gridSize = size;
}

bool CommandGroup::isGrid() const
{
    return d->grid;
}

void CommandGroup::setGrid(bool grid)
{
    d->grid = grid;
}

QActionGroup *CommandGroup::groupActionGroup() const
{
    return d->actionGroup;
}

ToolBar *CommandGroup::toolbar() const
{
    return d->toolbar;
}

void CommandGroup::setToolbar(ToolBar *toolbar)
{
    d->toolbar = toolbar;
}

ToolButton *CommandGroup::toolButton() const
{
    return d->toolButton;
}

void CommandGroup::setToolButton(ToolButton *button)
{
    d->toolButton = button;
    if (!button)
        return;
    button->SetHideMenuWhenUnchecked(true);
    button->setCheckable(isCheckable());
}

void CommandGroup::listenToTrigger(CommandGroup *other, const char *slot)
{
    // By name: the caller says which slot it is to be.
    if (other && slot)
        connect(other, SIGNAL(childToBeTriggered(bool)), this, slot, Qt::DirectConnection);
}

void CommandGroup::setCommandState(const CommandState &state)
{
    const auto owner = weak_from_this().lock();
    const bool enablesChildren = state.enabled;
    CommandBase::setCommandState(state);
    forEachChild(
        d, [enablesChildren](CommandBase &child) { child.QAction::setEnabled(enablesChildren); });
}

void CommandGroup::saveCommandState()
{
    CommandBase::saveCommandState();
    forEachChild(d, [](CommandBase &child) { child.saveCommandState(); });
}

void CommandGroup::restoreCommandState()
{
    CommandBase::restoreCommandState();
    forEachChild(d, [](CommandBase &child) { child.restoreCommandState(); });
}

void CommandGroup::setAddedToCmdsVC(bool added)
{
    CommandBase::setAddedToCmdsVC(added);
    forEachChild(d, [added](CommandBase &child) { child.setAddedToCmdsVC(added); });
}

void CommandGroup::addAttachedCommandGroupName(const QString &name)
{
    forEachChild(d, [&name](CommandBase &child) {
        if (!qobject_cast<CommandGroup *>(&child))
            child.addAttachedCommandGroupName(name);
    });
}

void CommandGroup::removeAttachedCommandGroupName(const QString &name)
{
    forEachChild(d, [&name](CommandBase &child) {
        if (!qobject_cast<CommandGroup *>(&child))
            child.removeAttachedCommandGroupName(name);
    });
}

void CommandGroup::addObserver(CommandStateProtocol *observer)
{
    CommandBase::addObserver(observer);
    forEachChild(d, [observer](CommandBase &child) { child.addObserver(observer); });
}

void CommandGroup::addObserver(const std::shared_ptr<CommandStateProtocol> &observer, bool)
{
    CommandBase::addObserver(observer, false);
    forEachChild(d, [&observer](CommandBase &child) { child.addObserver(observer, false); });
}

void CommandGroup::removeObserver(CommandStateProtocol *observer)
{
    CommandBase::removeObserver(observer);
    forEachChild(d, [observer](CommandBase &child) { child.removeObserver(observer); });
}

void CommandGroup::removeObserver(const std::shared_ptr<CommandStateProtocol> &observer)
{
    CommandBase::removeObserver(observer);
    forEachChild(d, [&observer](CommandBase &child) { child.removeObserver(observer); });
}

bool CommandGroup::onExecute(bool checked)
{
    return onExecuteAsync(checked);
}

bool CommandGroup::onExecuteAsync(bool)
{
    return true;
}

void CommandGroup::uncheckChildren(bool)
{
    const auto owner = weak_from_this().lock();
    forEachChild(d, [](CommandBase &child) {
        if (child.isCheckable() && child.isChecked())
            child.toggle();
    });
    if (isCheckable() && isChecked())
        setChecked(false);
}

void CommandGroup::onChildTriggered(bool checked)
{
    if (isCheckable())
        setChecked(checked);
}

void CommandGroup::onChildToBeTriggered(bool checked)
{
    if (checked)
        Q_EMIT childToBeTriggered(checked);
}

void CommandGroup::onChildChanged()
{
    setEnabled(d->hasEnabledCommand());
}

} // namespace Vela::UiBase
