// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

// How actions and commands become buttons of a tool bar, and how they leave it.

#include "ui_base/toolbar/toolbar.h"

#include "ui_base/toolbar/toolbar_p.h"

#include "ui_base/command/commandbag.h"
#include "ui_base/command/commandbase.h"
#include "ui_base/command/commandgroup.h"
#include "ui_base/command/flyoutcommand.h"
#include "ui_base/qtui/mouseeventclone_p.h"
#include "ui_base/qtui/qtuitoolkit.h"
#include "ui_base/qtui/tooltip/tooltipmanager.h"
#include "ui_base/toolbar/buttonline_p.h"
#include "ui_base/toolbar/toolbutton_p.h"
#include "ui_base/toolbar/toolbuttonwithwidgetmenu.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QMouseEvent>

#include <algorithm>

namespace Vela::UiBase {
namespace {

const QByteArray &commandIdProperty()
{
    static const QByteArray name = ToolButton::COMMANDID_PROPERTY.toLatin1();
    return name;
}

QString commandIdOn(const ToolButton &button)
{
    return button.property(commandIdProperty().constData()).toString();
}

// A copy of what a button was told is no click on what the bar stands on.
void endHere(QMouseEvent &event)
{
    if (!event.spontaneous())
        event.accept();
}

} // namespace

ToolButton *ToolBar::AddAction(QAction *action, const QString &groupName, int rank,
                               bool useTooltipDefaults, bool useMenuDefaults)
{
    Q_D(ToolBar);
    if (!action)
        return nullptr;
    QtUiToolkit::Instance().UpdateIconSize(action, d->iconSize);
    QWidget *const parent = d->parentForNewButton(groupName);
    // Whoever hears of the new layout may remove the button, or delete the bar.
    QPointer<ToolButton> button;
    {
        const Internal::ButtonLine::SettingUp guard(Internal::ButtonLine::of(parent));
        button = new ToolButton(action, this, parent);
    }
    OnButtonCreated(button, groupName, useTooltipDefaults, useMenuDefaults, rank);
    return button;
}

void ToolBar::OnButtonCreated(ToolButton *button, const QString &groupName, bool useTooltipDefaults,
                              bool useMenuDefaults, int rank)
{
    Q_D(ToolBar);
    {
        const Internal::ButtonLine::SettingUp guard(
            Internal::ButtonLine::of(button->parentWidget()));
        connect(button, &ToolButton::ToolButtonClicked, this, &ToolBar::OnToolButtonClicked);
        button->setToolButtonStyle(d->toolButtonStyle);
        button->installEventFilter(this);
        if (!button->dynamicPropertyNames().isEmpty())
            d->noteProperty(button);
        if (useTooltipDefaults)
            button->SetTooltipParameters(d->defaultTooltip.arrow, d->defaultTooltip.direction,
                                         d->defaultTooltip.offset, d->defaultTooltip.align,
                                         d->defaultTooltip.additionalOffset);
        if (useMenuDefaults)
            d->applyMenuDefaults(button);
        d->applySizes(button);
        const QList<QAction *> actions = button->actions();
        auto *const command =
            actions.size() == 1 ? qobject_cast<CommandBase *>(actions.first()) : nullptr;
        if (command)
            d->setCommandId(*button, command->commandId());
    }
    d->AddButtonToLayout(button, groupName, rank);
}

// A bar without sizes takes them from the first icon that it is given.
void ToolBarPrivate::applySizes(ToolButton *button)
{
    Q_Q(ToolBar);
    if (iconSize == QSize(0, 0) && button->Action() && !button->Action()->icon().isNull())
        iconSize = button->Action()->icon().actualSize(QSize(256, 256), QIcon::Normal, QIcon::Off);
    const QSize icon = iconSize == QSize(0, 0) ? button->iconSize() : iconSize;
    button->setIconSize(icon);
    if (buttonSize == QSize(0, 0)) {
        const int difference = q->ButtonIconSizeDiff();
        buttonSize = icon + QSize(difference, difference);
    }
    button->setFixedSize(buttonSize);
    button->updateGeometry();
}

ToolButton *ToolBar::AddSingleCommand(CommandBase *command, CommandGroup *group)
{
    Q_D(ToolBar);
    if (!command || qobject_cast<CommandGroup *>(command))
        return nullptr;
    const QString id = command->commandId();
    if (ToolButton *const existing = d->buttonOfCommand(id, false))
        return existing;
    const int rank = group ? group->getCommandRank(id) : 0;
    const QPointer<ToolButton> button = d->addCommandButton(command, rank);
    if (!button)
        return nullptr;
    command->setToolButton(button);
    button->setCheckable(command->isCheckable());
    if (command->isCheckable()) {
        button->OnToggled(command->isChecked());
        button->setChecked(command->isChecked());
    }
    if (!command->objectName().isEmpty())
        button->setObjectName(command->objectName());
    return button;
}

ToolButton *ToolBarPrivate::addCommandButton(CommandBase *command, int rank)
{
    Q_Q(ToolBar);
    const QString group = command->baseGroupName();
    if (const auto *const flyoutCommand = qobject_cast<FlyoutCommand *>(command))
        return q->AddAction(command, flyoutCommand->simpleFlyout(), group, rank);
    return q->AddAction(command, group, rank);
}

// The bar hears of the property as of any other's change, and to read it back takes as long as to
// set it.
void ToolBarPrivate::setCommandId(ToolButton &button, const QString &id)
{
    noteCommandId(&button, id);
    const QPointer<ToolBar> self(q_ptr);
    notedBefore = &button;
    button.setProperty(commandIdProperty().constData(), id);
    if (self)
        notedBefore = nullptr;
}

void ToolBarPrivate::noteProperty(ToolButton *button)
{
    // Once: who hears of the change before the bar may have changed it again.
    if (button && button == notedBefore)
        notedBefore = nullptr;
    else if (button)
        noteCommandId(button, commandIdOn(*button));
}

void ToolBarPrivate::noteCommandId(ToolButton *button, const QString &id)
{
    if (id == commandIdOf.value(button))
        return;
    forgetCommandId(button);
    if (id.isEmpty())
        return;
    commandIdOf.insert(button, id);
    buttonsOfId.insert(id, button);
}

// A button that has been removed may live on, with its id.
ToolButton *ToolBarPrivate::firstOf(const QList<ToolButton *> &wanted) const
{
    if (wanted.isEmpty())
        return nullptr;
    for (const QList<ToolButton *> &buttons : buttonsByGroup) {
        const auto found = std::find_if(buttons.cbegin(), buttons.cend(), [&](ToolButton *button) {
            return wanted.contains(button);
        });
        if (found != buttons.cend())
            return *found;
    }
    return nullptr;
}

ToolButton *ToolBarPrivate::buttonOfCommand(const QString &commandId, bool includeSubMenus) const
{
    if (!includeSubMenus || !mayHaveMenus)
        return firstOf(buttonsOfId.values(commandId));
    for (ToolButton *const button : CollectButtons<ToolButton>(true)) {
        const ToolBar *const bar = button->d_func()->toolBar;
        if (bar && bar->d_func()->commandIdOf.value(button) == commandId)
            return button;
    }
    return nullptr;
}

// Kept alive while they are walked: what adding or removing one runs may change the bag.
std::vector<std::shared_ptr<CommandBase>> ToolBarPrivate::commandsOf(const CommandGroup &group)
{
    std::vector<std::shared_ptr<CommandBase>> commands;
    for (const auto &[id, command] : group.commandBag()) {
        if (command)
            commands.push_back(command);
    }
    return commands;
}

bool ToolBar::RemoveCommand(CommandBase *command)
{
    auto *const group = qobject_cast<CommandGroup *>(command);
    if (!group)
        return RemoveSingleCommand(command);
    const QPointer<ToolBar> self(this);
    bool isRemoved = true;
    for (const auto &child : ToolBarPrivate::commandsOf(*group))
        isRemoved = self && RemoveCommand(child.get()) && isRemoved;
    return isRemoved;
}

bool ToolBar::RemoveSingleCommand(CommandBase *command)
{
    if (!command || qobject_cast<CommandGroup *>(command))
        return false;
    const ToolBarPrivate *const base = GetBaseToolBar()->d_func();
    const ToolButton *const button = base->buttonOfCommand(command->commandId(), true);
    ToolBar *const owner = button ? button->d_func()->toolBar.data() : nullptr;
    return owner && owner->RemoveButton(command);
}

bool ToolBar::RemoveButton(QAction *action)
{
    Q_D(ToolBar);
    ToolButton *const button = action ? d->buttonOfAction(action) : nullptr;
    if (button)
        d->removeButton(button);
    return button;
}

ToolButton *ToolBarPrivate::buttonOfAction(QAction *action) const
{
    const auto *const command = qobject_cast<CommandBase *>(action);
    QList<ToolButton *> wanted =
        command ? buttonsOfId.values(command->commandId()) : QList<ToolButton *>();
    for (QWidget *const widget : action->associatedWidgets()) {
        if (auto *const button = qobject_cast<ToolButton *>(widget))
            wanted << button;
    }
    return firstOf(wanted);
}

void ToolBarPrivate::takeFromLayout(ToolButton *button, QWidget *panel)
{
    if (auto *const line = Internal::ButtonLine::of(panel))
        line->removeButton(button);
    else
        panel->layout()->removeWidget(button);
}

QString ToolBarPrivate::groupOf(ToolButton *button) const
{
    for (auto it = buttonsByGroup.cbegin(); it != buttonsByGroup.cend(); ++it) {
        if (it->contains(button))
            return it.key();
    }
    return {};
}

void ToolBarPrivate::removeButton(ToolButton *button)
{
    Q_Q(ToolBar);
    const QString groupName = groupOf(button);
    TooltipManager::GetInstance().RemoveTooltip(button->GetTooltipObject());
    const QPointer<ToolBar> self(q);
    const QPointer<ToolButton> leaving(button);
    closeMenuOf(button);
    if (!self)
        return;
    QWidget *const panel = panels.value(groupName);
    if (leaving && panel && panel->layout())
        takeFromLayout(leaving, panel);
    if (buttonsByGroup.value(groupName).size() > 1) {
        buttonsByGroup[groupName].removeAll(button);
    } else {
        buttonsByGroup.remove(groupName);
        panels.remove(groupName);
        panelPaths.remove(panel);
        if (mainLayout)
            mainLayout->removeWidget(panel);
        delete panel;
    }
    if (leaving)
        forgetCommandId(leaving);
    q->AdjustToolBarSize(false);
    Q_EMIT q->LayoutChanged();
}

void ToolBar::AddCallbackHandler(ToolButton::IToolButtonCallbackHandler *handler, QAction *action)
{
    Q_D(ToolBar);
    for (ToolButton *const button : d->CollectButtons<ToolButton>()) {
        if (!button->IsActionAssociated(action))
            continue;
        button->SetCallbackHandler(action, handler);
        return;
    }
}

void ToolBar::EnableActions()
{
    Q_D(ToolBar);
    d->forEachButton([](ToolButton &button) { button.EnableActions(); });
}

ToolButton *ToolBar::FindOneButton(const QString &text, bool includeSubMenus) const
{
    Q_D(const ToolBar);
    const QList<ToolButton *> buttons = d->CollectButtons<ToolButton>(includeSubMenus);
    const auto found = std::find_if(buttons.begin(), buttons.end(),
                                    [&text](const auto *button) { return button->text() == text; });
    return found == buttons.end() ? nullptr : *found;
}

void ToolBar::AddExclusiveGroupButton(const QString &group, QToolButton *button)
{
    Q_D(ToolBar);
    if (button && !d->exclusiveGroups[group].contains(button))
        d->exclusiveGroups[group] << button;
}

void ToolBar::SetLocked(bool locked)
{
    Q_D(ToolBar);
    d->forEachButton([locked](ToolButton &button) { button.SetLocked(locked); });
}

// All groups, also those that the button is not in.
void ToolBar::OnButtonClickCheckExclusiveGroups(ToolButton *clicked)
{
    Q_D(ToolBar);
    const QPointer<ToolBar> self(this);
    const auto groups = d->exclusiveGroups;
    for (const auto &buttons : groups) {
        for (const QPointer<QToolButton> &button : buttons) {
            if (self && button && button->isCheckable())
                button->setChecked(button == clicked);
        }
    }
}

QWidget *ToolBar::getRefParent() const
{
    Q_D(const ToolBar);
    return d->refParent;
}

void ToolBar::PassMouseEvent(QMouseEvent *event)
{
    Q_D(ToolBar);
    const ToolButton *const button = d->parentButton;
    ToolBar *const owner = button ? button->d_func()->toolBar.data() : nullptr;
    ToolBar *const target = owner && owner != this ? owner->GetBaseToolBar() : this;
    if (target != this)
        QCoreApplication::postEvent(target, Internal::mouseEventFor(*target, *event).release());
}

void ToolBar::mousePressEvent(QMouseEvent *event)
{
    PassMouseEvent(event);
    QWidget::mousePressEvent(event);
    endHere(*event);
}

void ToolBar::mouseReleaseEvent(QMouseEvent *event)
{
    PassMouseEvent(event);
    QWidget::mouseReleaseEvent(event);
    endHere(*event);
}

void ToolBar::mouseMoveEvent(QMouseEvent *event)
{
    PassMouseEvent(event);
    QWidget::mouseMoveEvent(event);
    endHere(*event);
}

void ToolBar::enterEvent(QEvent *event)
{
    EnableActions();
    QWidget::enterEvent(event);
}

} // namespace Vela::UiBase
