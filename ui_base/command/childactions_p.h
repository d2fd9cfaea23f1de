// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QAction;
class QActionGroup;

/// Ways to fill a QActionGroup so that its cost for a change of an action does not grow with the number
/// of its actions.
///
/// After each change of an action a QActionGroup asks which one it was that sent the signal, and
/// QObject looks for that among all connections of the group: disabling a thousand actions one by one
/// takes a million steps. Most changes are none of the check mark and nothing to the group. Actions that
/// come in here let it know of those only that matter to it; in all else it behaves as ever.
namespace Vela::UiBase::Internal {

/// As QActionGroup::addAction(). @param group not null @param action not null
void addToGroup(QActionGroup *group, QAction *action);
/// As QActionGroup::removeAction(). @param group not null @param action not null
void removeFromGroup(QActionGroup *group, QAction *action);

} // namespace Vela::UiBase::Internal
