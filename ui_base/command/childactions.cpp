// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/command/childactions_p.h"

#include "ui_base/command/commandbase.h"

#include <QAction>
#include <QActionGroup>
#include <QMetaMethod>

#include <memory>

namespace Vela::UiBase::Internal {
namespace {

/// The slot of the group that hears changes. It is private, so it is looked for by name; a Qt that
/// has it under another name keeps its connections.
const QMetaMethod &slotForChanges()
{
    static const QMetaObject &meta = QActionGroup::staticMetaObject;
    static const QMetaMethod slot = meta.method(meta.indexOfSlot("_q_actionChanged()"));
    return slot;
}

std::shared_ptr<const void> ownerOf(const QActionGroup &group)
{
    auto *const owner = qobject_cast<CommandBase *>(group.parent());
    return owner ? owner->weak_from_this().lock() : nullptr;
}

// By the indices: to compare the signatures each time takes as long as the rest.
bool disconnectFromSlot(QActionGroup *group, QAction *action)
{
    static const int signal = QMetaMethod::fromSignal(&QAction::changed).methodIndex();
    const int slot = slotForChanges().methodIndex();
    return slot >= 0 && QMetaObject::disconnect(action, signal, group, slot);
}

} // namespace

void addToGroup(QActionGroup *group, QAction *action)
{
    group->addAction(action);
    if (!disconnectFromSlot(group, action))
        return;
    // In a direct connection of the group, the group finds the sender.
    const auto hear = [group, action] {
        const bool isKnown = action->isChecked() == (action == group->checkedAction());
        if (isKnown || action->actionGroup() != group)
            return;
        // The sibling that this unchecks can let go of the commands in its run.
        const auto owner = ownerOf(*group);
        slotForChanges().invoke(group, Qt::DirectConnection);
    };
    QObject::connect(action, &QAction::changed, group, hear, Qt::DirectConnection);
}

void removeFromGroup(QActionGroup *group, QAction *action)
{
    group->removeAction(action);
    QObject::disconnect(action, &QAction::changed, group, nullptr);
}

} // namespace Vela::UiBase::Internal
