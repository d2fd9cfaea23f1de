// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/cmdmgr.h"

#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/command/commandindex_p.h"
#include "ui_base/command/commandroll_p.h"
#include "ui_base/command/commandsnapshot_p.h"

#include <tessel/dispatch.h>

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <vector>

namespace Vela::UiBase {
namespace {

/// The command as long as somebody owns it, without adopting it.
std::shared_ptr<CommandBase> ownedPointer(CommandBase *command)
{
    return {command->weak_from_this().lock(), command};
}

CommandState presentState(const CommandBase &command)
{
    return {command.isEnabled(), command.isChecked()};
}

/// The commands that @p command holds if it is a group, else null.
const CommandBag *childrenOf(const CommandBase *command)
{
    const auto *const group = qobject_cast<const CommandGroup *>(command);
    return group ? &group->commandBag() : nullptr;
}

/// The entries that @p write makes for the commands of @p bag and for those of the groups among them.
template<typename Write>
CommandContext contextOf(const CommandBag &bag, const Write &write)
{
    CommandContext context;
    for (const auto &[id, command] : bag) {
        if (!command)
            continue;
        write(context, *command);
        if (const CommandBag *const children = childrenOf(command.get()))
            context |= contextOf(*children, write);
    }
    return context;
}

/// Calls @p visit on the groups of @p bag first and then on its other commands. It may change the bag.
template<typename Visit>
void forGroupsFirst(const CommandBag &bag, const Visit &visit)
{
    std::vector<std::shared_ptr<CommandBase>> others;
    for (std::size_t i = 0; i < bag.size(); ++i) {
        const std::shared_ptr<CommandBase> command = bag[i].second;
        if (childrenOf(command.get()))
            visit(*command);
        else if (command)
            others.push_back(command);
    }
    for (const std::shared_ptr<CommandBase> &command : others)
        visit(*command);
}

void writePresentState(CommandContext &context, const CommandBase &command)
{
    context.overwrite(command.commandId(), presentState(command));
}

void writeActiveState(CommandContext &context, const CommandBase &command)
{
    if (command.isChecked())
        context.overwrite(command.commandId(), {State::Keep, State::On});
}

/// Sets a flag and puts back what it was, so that nested walks and exceptions leave it right.
class FlagGuard
{
public:
    explicit FlagGuard(std::atomic<bool> &flag)
        : m_flag(flag)
        , m_before(flag.exchange(true))
    { }
    ~FlagGuard() { m_flag = m_before; }

    FlagGuard(const FlagGuard &) = delete;
    FlagGuard &operator=(const FlagGuard &) = delete;

private:
    std::atomic<bool> &m_flag;
    const bool m_before;
};

} // namespace

class CmdMgr::CmdMgrImpl
{
public:
    explicit CmdMgrImpl(CmdMgr *manager)
        : q(manager)
    { }
    virtual ~CmdMgrImpl() = default;

    /// This manager as long as somebody owns it, without adopting it.
    std::shared_ptr<CmdMgr> self() const { return {q->weak_from_this().lock(), q}; }

    template<typename Work>
    void post(const Work &work);
    template<typename Read>
    CommandContext query(const Read &read) const;
    template<typename Write>
    CommandContext queryBag(const CommandBag *bag, const Write &write) const;

    bool holds(const CommandBase *command) const;
    std::shared_ptr<CommandBase> take(CommandBase *command);
    std::shared_ptr<CommandBase> takeGroup(CommandGroup *group);
    bool removeRenamed(const CommandBase *command);
    void removeFromGroups(const QString &id);
    void stopListening(CommandBase *command);
    void listen(CommandBase *command);
    /// @param context must not change or end during the walk
    void applyContext(const CommandContext &context);
    CommandContext presentContext();
    CommandContext contextToRemember();
    void putBack(const CommandContext &context);
    const std::shared_ptr<const CommandRoll> &presentRoll();
    std::shared_ptr<CommandIndex> presentIndex();
    void forget();

    CmdMgr *const q;
    std::atomic<bool> applyingContext {false};
    QVector<CommandContext> contextStack;
    CommandContext lastPopped; // empty when no pop waits to be applied
    int waitingPops = 0;
    CommandBag rootBag;

    // What the last walk over the commands found, as long as the next would find the same.
    std::shared_ptr<const CommandRoll> roll;
    std::shared_ptr<CommandIndex> index;
    CommandSnapshot snapshot;
};

/// Runs @p work on the main queue unless the manager has died by then.
template<typename Work>
void CmdMgr::CmdMgrImpl::post(const Work &work)
{
    const std::weak_ptr<CmdMgr> weak = self();
    const auto posted = [weak, work] {
        if (const std::shared_ptr<CmdMgr> manager = weak.lock())
            work(*manager->d);
    };
    Tessel::dispatchAsync(posted, Tessel::EQualityOfService::Main);
}

/// Reads live state on the main thread, unless a context is being applied.
template<typename Read>
CommandContext CmdMgr::CmdMgrImpl::query(const Read &read) const
{
    CommandContext context;
    if (!applyingContext)
        Tessel::dispatchSync([&] { context = read(); }, Tessel::EQualityOfService::Main);
    return context;
}

template<typename Write>
CommandContext CmdMgr::CmdMgrImpl::queryBag(const CommandBag *bag, const Write &write) const
{
    if (!bag)
        return query([&] { return contextOf(rootBag, write); });
    // Keeps the commands alive while another thread waits for its turn.
    const CommandBag copy(*bag);
    return query([&] { return contextOf(copy, write); });
}

/// Whether the command is at the top level. Looks from the back, where the latest one is.
bool CmdMgr::CmdMgrImpl::holds(const CommandBase *command) const
{
    return std::any_of(rootBag.rbegin(), rootBag.rend(),
                       [command](const auto &entry) { return entry.second.get() == command; });
}

/// Puts the command where it belongs. @return what holds it now, or null when it was refused
std::shared_ptr<CommandBase> CmdMgr::CmdMgrImpl::take(CommandBase *command)
{
    if (auto *const group = qobject_cast<CommandGroup *>(command))
        return takeGroup(group);
    return rootBag.addCommand(command) ? ownedPointer(command) : nullptr;
}

std::shared_ptr<CommandBase> CmdMgr::CmdMgrImpl::takeGroup(CommandGroup *group)
{
    auto *const held = qobject_cast<CommandGroup *>(rootBag.getCommand(group->commandId()));
    if (held == group)
        return nullptr;
    if (held) {
        // The actions tell of their new group, and what that sets off can remove it.
        std::shared_ptr<CommandBase> result = ownedPointer(held);
        held->absorbCommandGroup(group);
        return result;
    }
    const CommandBag topLevel(rootBag);
    for (const auto &[id, command] : topLevel) {
        if (command && group->hasCommand(id)) {
            stopListening(command.get());
            command->setAddedToCmdsVC(false);
            rootBag.removeCommand(id);
        }
    }
    return rootBag.addCommand(group) ? ownedPointer(group) : nullptr;
}

/// Removes a command that stands at the top level under an id that it had before.
bool CmdMgr::CmdMgrImpl::removeRenamed(const CommandBase *command)
{
    const auto isCommand = [command](const auto &entry) { return entry.second.get() == command; };
    const auto found = std::find_if(rootBag.begin(), rootBag.end(), isCommand);
    return found != rootBag.end() && rootBag.removeCommand(QString(found->first));
}

void CmdMgr::CmdMgrImpl::removeFromGroups(const QString &id)
{
    for (const auto &[groupId, command] : rootBag) {
        auto *const group = qobject_cast<CommandGroup *>(command.get());
        if (!group || !group->hasCommand(id))
            continue;
        const std::shared_ptr<CommandBase> keptAlive = command;
        group->removeCommand(id);
        if (group->commandBag().empty())
            q->removeCommand(group);
        return;
    }
}

void CmdMgr::CmdMgrImpl::stopListening(CommandBase *command)
{
    command->removeObserver(std::shared_ptr<CommandStateProtocol>(self()));
}

void CmdMgr::CmdMgrImpl::listen(CommandBase *command)
{
    // A command can come by way of a group that was heard already; it is to be heard once.
    stopListening(command);
    command->addObserver(std::shared_ptr<CommandStateProtocol>(self()), false);
}

void CmdMgr::CmdMgrImpl::applyContext(const CommandContext &context)
{
    const FlagGuard applying(applyingContext);
    // Groups at once and the others after them: so the entry of a child has the last word over what
    // the state of its group did to it.
    std::vector<std::pair<std::shared_ptr<CommandBase>, CommandState>> pending;
    std::vector<CommandIndex::Found> found;
    std::shared_ptr<CommandIndex> commands = presentIndex();
    unsigned generation = CommandIndex::generation();
    const QMap<QString, CommandState> &entries = context.get();
    pending.reserve(static_cast<std::size_t>(entries.size()));
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry) {
        if (generation != CommandIndex::generation()) {
            commands = presentIndex();
            generation = CommandIndex::generation();
        }
        found.clear();
        commands->find(entry.key(), found);
        for (auto &[command, isGroup] : found) {
            if (isGroup)
                command->setCommandState(entry.value());
            else
                pending.emplace_back(std::move(command), entry.value());
        }
    }
    for (const auto &[command, state] : pending)
        command->setCommandState(state);
}

/// The states of all commands at this moment.
CommandContext CmdMgr::CmdMgrImpl::presentContext()
{
    const std::shared_ptr<const CommandRoll> present = presentRoll();
    if (!snapshot.refresh(present))
        snapshot.remember(present, contextOf(rootBag, writePresentState));
    return snapshot.context();
}

/// The states that the commands have when a context that is pushed now is applied: a pop that waits
/// has put its own back by then.
CommandContext CmdMgr::CmdMgrImpl::contextToRemember()
{
    CommandContext context = q->currentContext(nullptr);
    const QMap<QString, CommandState> &popped = lastPopped.get();
    for (auto entry = popped.cbegin(); entry != popped.cend(); ++entry) {
        if (context.get().contains(entry.key()))
            context.update(entry.key(), entry.value());
    }
    return context;
}

void CmdMgr::CmdMgrImpl::putBack(const CommandContext &context)
{
    if (--waitingPops == 0)
        lastPopped = {};
    applyContext(context);
}

const std::shared_ptr<const CommandRoll> &CmdMgr::CmdMgrImpl::presentRoll()
{
    if (!roll || !roll->describes(rootBag))
        roll = std::make_shared<const CommandRoll>(rootBag);
    return roll;
}

/// Shared with the caller, since a walk inside its walk may make another.
std::shared_ptr<CommandIndex> CmdMgr::CmdMgrImpl::presentIndex()
{
    const std::shared_ptr<const CommandRoll> &present = presentRoll();
    if (!index || index->roll() != present)
        index = std::make_shared<CommandIndex>(present);
    return index;
}

/// Gives back the memory of what was found, which a command that leaves would occupy until the next walk.
void CmdMgr::CmdMgrImpl::forget()
{
    roll.reset();
    index.reset();
    snapshot.clear();
}

CmdMgr::CmdMgr()
    : d(std::make_unique<CmdMgrImpl>(this))
{ }

CmdMgr::~CmdMgr() = default;

CommandBase *CmdMgr::addCommand(CommandBase *command)
{
    if (!command)
        return nullptr;
    if (command->commandId().isEmpty())
        throw std::runtime_error("A command id must be defined (with the COMMAND_ID macro)!");
    // Observers may let go of this manager, and take the command out again.
    const std::shared_ptr<CmdMgr> self = d->self();
    const auto owner = command->weak_from_this().lock();
    const std::shared_ptr<CommandBase> result = d->take(command);
    command->setAddedToCmdsVC(true);
    broadcast(&CmdMgrProtocol::commandAdded, this, result.get());
    if (!result || !d->holds(result.get()))
        return nullptr;
    d->listen(result.get());
    return result.get();
}

bool CmdMgr::removeCommand(CommandBase *command)
{
    if (!command)
        return false;
    const std::shared_ptr<CmdMgr> self = d->self();
    const auto owner = command->weak_from_this().lock();
    const QString id = command->commandId();
    d->stopListening(command);
    broadcast(&CmdMgrProtocol::commandRemoved, this, id);
    command->setAddedToCmdsVC(false);
    d->forget();
    if (!d->rootBag.removeCommand(id) && !d->removeRenamed(command))
        d->removeFromGroups(id);
    letGoOf(command);
    return true;
}

bool CmdMgr::removeCommand(const QString &id)
{
    return removeCommand(findCommand(id));
}

void CmdMgr::letGoOf(CommandBase *) { }

void CmdMgr::removeAllCommands()
{
    const std::shared_ptr<CmdMgr> self = d->self();
    const CommandBag &present = d->rootBag;
    const CommandBag commands(present);
    for (const auto &entry : commands) {
        // One that an observer has removed meanwhile is announced already.
        if (std::find(present.begin(), present.end(), entry) != present.end())
            removeCommand(entry.second.get());
    }
}

CommandBase *CmdMgr::findCommand(const QString &id) const
{
    for (const auto &[ownId, command] : d->rootBag) {
        if (command && command->hasCommand(id))
            return command->getCommand(id);
    }
    return nullptr;
}

QVector<CommandBase *> CmdMgr::findCommands(const QString &tag, CommandBag *bag) const
{
    QVector<CommandBase *> found;
    for (const auto &[id, command] : bag ? *bag : d->rootBag) {
        if (!command)
            continue;
        if (command->hasTag(tag))
            found.append(command.get());
        if (auto *const group = qobject_cast<CommandGroup *>(command.get()))
            found += findCommands(tag, &group->commandBag());
    }
    return found;
}

const CommandBag &CmdMgr::commandBag() const
{
    return d->rootBag;
}

CommandBag &CmdMgr::commandBag()
{
    return d->rootBag;
}

std::shared_ptr<CommandBase> CmdMgr::runningCommand() const
{
    return m_runningCommand.lock();
}

CommandContext CmdMgr::defaultContext(CommandBag *bag) const
{
    return contextOf(bag ? *bag : d->rootBag, [](CommandContext &context, CommandBase &command) {
        context.overwrite(command.commandId(), command.defaultCommandState());
    });
}

CommandContext CmdMgr::currentContext(CommandBag *bag) const
{
    if (!bag)
        return d->query([this] { return d->presentContext(); });
    return d->queryBag(bag, writePresentState);
}

CommandContext CmdMgr::currentContext(const CommandContext &context) const
{
    return d->query([&] {
        CommandContext present;
        for (const QString &id : context.get().keys()) {
            const CommandBase *const command = findCommand(id);
            if (!command)
                continue;
            present.overwrite(id, presentState(*command));
            if (const CommandBag *const children = childrenOf(command))
                present |= contextOf(*children, writePresentState);
        }
        return present;
    });
}

CommandContext CmdMgr::currentContext(const QString &tag) const
{
    return d->query([&] {
        CommandContext present;
        for (const CommandBase *const command : findCommands(tag))
            writePresentState(present, *command);
        return present;
    });
}

CommandContext CmdMgr::currentActiveContext(CommandBag *bag) const
{
    return d->queryBag(bag, writeActiveState);
}

CommandContext CmdMgr::currentActiveContext(const QString &tag) const
{
    return d->query([&] {
        CommandContext active;
        for (const CommandBase *const command : findCommands(tag)) {
            if (command->isChecked())
                writePresentState(active, *command);
        }
        return active;
    });
}

CommandContext CmdMgr::disabledContext(CommandBag *bag) const
{
    return contextOf(bag ? *bag : d->rootBag, [](CommandContext &context, CommandBase &command) {
        context.overwrite(command.commandId(), {State::Off, State::Keep});
    });
}

CommandContext CmdMgr::disabledContext(const QString &tag) const
{
    CommandContext context = currentContext(tag);
    context.overwrite({State::Off, State::Keep});
    return context;
}

CommandContext CmdMgr::inactiveContext(CommandBag *bag) const
{
    return contextOf(bag ? *bag : d->rootBag, [](CommandContext &context, CommandBase &command) {
        context.overwrite(command.commandId(), {State::Keep, State::Off});
    });
}

CommandContext CmdMgr::inactiveContext(const QString &tag) const
{
    CommandContext context = currentContext(tag);
    context.overwrite({State::Keep, State::Off});
    return context;
}

void CmdMgr::setContext(CommandContext context)
{
    d->post([context = std::move(context)](CmdMgrImpl &impl) { impl.applyContext(context); });
}

void CmdMgr::applyContext(const CommandContext &context)
{
    const std::shared_ptr<CmdMgr> self = d->self();
    // Of a copy, since what the walk sets off may change the argument.
    d->applyContext(CommandContext(context));
}

void CmdMgr::pushContext(CommandContext context)
{
    d->contextStack.append(d->contextToRemember());
    if (!d->applyingContext)
        setContext(std::move(context));
}

void CmdMgr::popContext()
{
    if (d->contextStack.isEmpty())
        return;
    d->lastPopped = d->contextStack.takeLast();
    ++d->waitingPops;
    d->post([context = d->lastPopped](CmdMgrImpl &impl) { impl.putBack(context); });
}

void CmdMgr::resetContext()
{
    d->contextStack.clear();
    setContext(defaultContext(nullptr));
}

void CmdMgr::updateContextInStack(const QString &id, const CommandState &state)
{
    if (id.isEmpty())
        return;
    for (CommandContext &context : d->contextStack) {
        if (!context.get().contains(id))
            return;
        context.update(id, state);
    }
}

void CmdMgr::saveContext()
{
    d->post([](CmdMgrImpl &impl) {
        forGroupsFirst(impl.rootBag, [](CommandBase &command) { command.saveCommandState(); });
    });
}

void CmdMgr::restoreContext()
{
    d->post([](CmdMgrImpl &impl) {
        forGroupsFirst(impl.rootBag, [](CommandBase &command) { command.restoreCommandState(); });
    });
}

void CmdMgr::commandBegan(CommandBase *command)
{
    if (command)
        m_runningCommand = std::shared_ptr<CommandBase>(command->weak_from_this().lock(), command);
}

void CmdMgr::commandEnded(CommandBase *)
{
    m_runningCommand.reset();
}

} // namespace Vela::UiBase
