// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/tooltip/tooltipmanager.h"

#include "ui_base/qtui/tooltip/tooltipmanager_p.h"

#include "ui_base/popup/floatinglayer.h"
#include "ui_base/qtui/tooltip/atooltipobject.h"
#include "ui_base/qtui/tooltip/atooltipobject_p.h"
#include "ui_base/viewcontroller/baseview.h"

#include <QWidget>

#include <algorithm>
#include <utility>

namespace Vela::UiBase {

TooltipManagerPrivate::TooltipManagerPrivate() = default;

TooltipManagerPrivate::~TooltipManagerPrivate() = default;

QString TooltipManagerPrivate::namedGroupOf(ATooltipObject *tooltip) const
{
    for (auto it = groups.cbegin(); it != groups.cend(); ++it) {
        if (!it.key().isEmpty() && it.value().contains(tooltip))
            return it.key();
    }
    return {};
}

void TooltipManagerPrivate::drop(ATooltipObject *tooltip)
{
    for (QList<ATooltipObject *> &members : groups)
        members.removeAll(tooltip);
    for (QList<ATooltipObject *> *walk : std::as_const(walks))
        std::replace(walk->begin(), walk->end(), tooltip, static_cast<ATooltipObject *>(nullptr));
}

TooltipManager::TooltipManager(QObject *parent)
    : TooltipManager(*new TooltipManagerPrivate, parent)
{ }

TooltipManager::TooltipManager(TooltipManagerPrivate &dd, QObject *parent)
    : QObject(parent)
    , d_ptr(&dd)
{ }

TooltipManager::~TooltipManager() = default;

TooltipManager &TooltipManager::GetInstance()
{
    // Never deleted: tooltips of static storage leave it after all other clean-up.
    static auto *const instance = new TooltipManager(nullptr);
    return *instance;
}

void TooltipManager::AddTooltip(ATooltipObject *tooltip, const QString &group)
{
    Q_D(TooltipManager);
    if (!tooltip)
        return;
    QList<ATooltipObject *> &members = d->groups[group];
    // A bar registers thousands of new tooltips, none of which has to be looked for.
    const bool mayBeMember = tooltip->d_func()->registrations > 0;
    if (mayBeMember && members.contains(tooltip))
        return;
    members.append(tooltip);
    ++tooltip->d_func()->registrations;
    // Tooltips say good-bye to the register of the process only.
    if (this != &GetInstance())
        connect(tooltip, &QObject::destroyed, this, [d, tooltip] { d->drop(tooltip); });
}

void TooltipManager::RemoveTooltip(ATooltipObject *tooltip)
{
    Q_D(TooltipManager);
    const QString group = d->namedGroupOf(tooltip);
    if (group.isEmpty())
        return;
    d->groups[group].removeOne(tooltip);
    --tooltip->d_func()->registrations;
}

void TooltipManager::forget(ATooltipObject *tooltip)
{
    Q_D(TooltipManager);
    const bool isUnknown = tooltip->d_func()->registrations == 0 && d->walks.isEmpty();
    if (!isUnknown)
        d->drop(tooltip);
}

void TooltipManager::HideAllTooltipsInGroupExcept(ATooltipObject *except, const QString &group)
{
    Q_D(TooltipManager);
    const QString name = group.isEmpty() ? d->namedGroupOf(except) : group;
    if (name.isEmpty())
        return;
    QList<ATooltipObject *> others = d->groups.value(name);
    others.removeAll(except);
    d->walks.append(&others);
    for (int i = 0; i < others.size(); ++i) {
        if (ATooltipObject *tooltip = others.at(i))
            tooltip->ForceHideTooltip();
    }
    d->walks.removeLast();
}

QWidget *TooltipManager::getRootViewOfTooltip(ATooltipObject *tooltip)
{
    auto *w = tooltip ? qobject_cast<QWidget *>(tooltip->parent()) : nullptr;
    while (w && !BaseView::getBaseViewOfQtWidget(w)) {
        QWidget *const original = FloatingLayer::getWidgetOriginalParent(w);
        w = original ? original : w->parentWidget();
    }
    return w;
}

} // namespace Vela::UiBase
