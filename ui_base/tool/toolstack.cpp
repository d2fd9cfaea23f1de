// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/tool/toolstack.h"

#include "ui_base/tool/interactivetool.h"

#include <QMouseEvent>
#include <QScopeGuard>

#include <tbb/concurrent_unordered_map.h>
#include <tbb/parallel_for_each.h>
#include <tbb/task_arena.h>

#include <algorithm>
#include <atomic>
#include <stack>
#include <utility>
#include <vector>

namespace Vela::UiBase {
namespace {

using ToolPtr = std::shared_ptr<InteractiveTool>;

/// A stack that can also be looked through, and from whose middle a tool can be taken.
class Tools : public std::stack<ToolPtr>
{
public:
    auto begin() const { return c.begin(); }
    auto end() const { return c.end(); }

    /// Takes out the uppermost entry of @p tool. @return whether there was one
    bool remove(const ToolPtr &tool)
    {
        const auto found = std::find(c.rbegin(), c.rend(), tool);
        if (found == c.rend())
            return false;
        c.erase(std::prev(found.base()));
        return true;
    }
};

using ToolMap = tbb::concurrent_unordered_map<EToolActivationButton, Tools>;

/// Holds tools that are taken off a stack for a while, and puts them back in its end.
class TakenOff
{
public:
    explicit TakenOff(Tools &tools)
        : m_from(tools)
    { }
    ~TakenOff()
    {
        for (; !m_taken.empty(); m_taken.pop())
            m_from.push(std::move(m_taken.top()));
    }

    InteractiveTool *take()
    {
        m_taken.push(std::move(m_from.top()));
        m_from.pop();
        return m_taken.top().get();
    }

    TakenOff(const TakenOff &) = delete;
    TakenOff &operator=(const TakenOff &) = delete;

private:
    Tools &m_from;
    Tools m_taken;
};

/// Stands in where there is no tool. All stacks share one, so nothing may bring it to life.
class EmptyTool : public InteractiveTool
{
public:
    EmptyTool()
        : InteractiveTool(nullptr)
    { }
    void activate() override { }
};

const ToolPtr &emptyTool()
{
    static const ToolPtr tool = std::make_shared<EmptyTool>();
    return tool;
}

void cycle(InteractiveTool &tool)
{
    if (tool.isActive()) {
        tool.deactivate();
        tool.activate();
    } else if (tool.isSuspended()) {
        tool.resume();
        tool.deactivate();
        tool.activate();
        tool.suspend();
    }
}

void cycleAll(Tools &tools)
{
    TakenOff takenOff(tools);
    while (!tools.empty())
        cycle(*takenOff.take());
}

} // namespace

class ToolStackPrivate
{
public:
    /// The stack of @p button, or null: looking for it does not make it.
    Tools *find(EToolActivationButton button);
    /// The top of that stack, or null.
    ToolPtr top(EToolActivationButton button);
    void suspendTop(EToolActivationButton button);
    /// On how many places of all stacks @p tool is.
    std::ptrdiff_t places(const ToolPtr &tool) const;
    bool hasToolInTwoPlaces() const;
    void cycleStacks();

    ToolMap m_tools;
    std::atomic<bool> isResetting {false};
};

Tools *ToolStackPrivate::find(EToolActivationButton button)
{
    const auto entry = m_tools.find(button);
    return entry == m_tools.end() ? nullptr : &entry->second;
}

ToolPtr ToolStackPrivate::top(EToolActivationButton button)
{
    if (isResetting)
        return nullptr;
    const Tools *const tools = find(button);
    return tools && !tools->empty() ? tools->top() : nullptr;
}

// The suspended tool may pop itself or push another in its callback. Then the tool that came on top
// by that is the one to suspend; the count ends it for observers that push a new one every time.
void ToolStackPrivate::suspendTop(EToolActivationButton button)
{
    ToolPtr tool = top(button);
    for (std::size_t retries = tool ? find(button)->size() : 0; tool; --retries) {
        tool->suspend();
        const ToolPtr next = top(button);
        if (next == tool || retries == 0)
            return;
        tool = next;
    }
}

std::ptrdiff_t ToolStackPrivate::places(const ToolPtr &tool) const
{
    std::ptrdiff_t sum = 0;
    for (const auto &[button, tools] : m_tools)
        sum += std::count(tools.begin(), tools.end(), tool);
    return sum;
}

bool ToolStackPrivate::hasToolInTwoPlaces() const
{
    std::vector<const InteractiveTool *> all;
    for (const auto &[button, tools] : m_tools) {
        for (const ToolPtr &tool : tools)
            all.push_back(tool.get());
    }
    std::sort(all.begin(), all.end());
    return std::adjacent_find(all.begin(), all.end()) != all.end();
}

// Waking a worker costs as much as a short cycle, so it has to have a stack of its own to work on.
// In isolation this thread, while it waits, takes up no other task of the application.
void ToolStackPrivate::cycleStacks()
{
    const auto hasTools = [](const auto &entry) { return !entry.second.empty(); };
    const auto cycleEntry = [](auto &entry) { cycleAll(entry.second); };
    const bool isWorthWaking = std::count_if(m_tools.begin(), m_tools.end(), hasTools) > 1;
    if (!isWorthWaking || hasToolInTwoPlaces()) {
        std::for_each(m_tools.begin(), m_tools.end(), cycleEntry);
        return;
    }
    tbb::this_task_arena::isolate([&] {
        tbb::task_group_context context;
        tbb::parallel_for_each(m_tools.begin(), m_tools.end(), cycleEntry, context);
    });
}

ToolStack::ToolStack()
    : d(std::make_unique<ToolStackPrivate>())
{ }

ToolStack::~ToolStack()
{
    ToolStack::clearTools();
}

void ToolStack::toolBeganOperating(InteractiveTool *tool)
{
    const ToolPtr left = d->top(eToolButtonLeft);
    if (tool && left && left.get() != tool)
        left->suspend();
}

void ToolStack::toolEndedOperating(InteractiveTool *tool)
{
    const ToolPtr left = d->top(eToolButtonLeft);
    if (tool && left && left.get() != tool)
        left->resume();
}

// Tools that die may ask the stack in their end, so the map is empty before the first one goes.
void ToolStack::clearTools()
{
    if (d->isResetting)
        return;
    ToolMap cleared;
    cleared.swap(d->m_tools);
}

// The copy keeps the tool alive when its callback takes it off again.
// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is what others override.
void ToolStack::pushTool(EToolActivationButton button, std::shared_ptr<InteractiveTool> tool)
{
    if (!tool || tool == emptyTool() || d->isResetting)
        return;
    const std::shared_ptr<ToolStateProtocol> self = shared_from_this();
    d->suspendTop(button);
    d->m_tools[button].push(tool);
    tool->setDelegate(self, false);
    tool->activate();
}

std::shared_ptr<InteractiveTool> ToolStack::popTool(EToolActivationButton button)
{
    const auto keptAlive = weak_from_this().lock();
    ToolPtr tool = d->top(button);
    if (!tool)
        return nullptr;
    const std::ptrdiff_t otherPlaces = d->places(tool) - 1;
    tool->deactivate();
    // The tool may have popped itself in its callback; then the rest is done already.
    Tools *const tools = d->find(button);
    if (!tools || !tools->remove(tool))
        return tool;
    if (const ToolPtr below = d->top(button))
        below->resume();
    const bool wasPushedAgain = d->places(tool) > otherPlaces;
    if (!wasPushedAgain)
        tool->setDelegate(std::shared_ptr<ToolStateProtocol>(), false);
    return tool;
}

std::shared_ptr<InteractiveTool> ToolStack::getTool(EToolActivationButton button)
{
    if (ToolPtr tool = d->top(button))
        return tool;
    return emptyTool();
}

std::shared_ptr<InteractiveTool> ToolStack::getOperatingTool() const
{
    if (d->isResetting)
        return nullptr;
    for (const auto &[button, tools] : d->m_tools) {
        if (!tools.empty() && tools.top()->isOperating())
            return tools.top();
    }
    return nullptr;
}

bool ToolStack::isEmpty(EToolActivationButton button)
{
    return d->isResetting || d->m_tools[button].empty();
}

void ToolStack::resetTools()
{
    const auto keptAlive = weak_from_this().lock();
    if (d->isResetting.exchange(true))
        return;
    const auto ended = qScopeGuard([this] { d->isResetting = false; });
    d->cycleStacks();
}

bool ToolStack::isResetting() const
{
    return d->isResetting;
}

} // namespace Vela::UiBase
