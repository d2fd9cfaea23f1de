// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "toolbar/commandbar.h"

#include "commandset.h"
#include "flyouts/panelcommand.h"
#include "toolbar/commandcard.h"

#include <ui_base/CommandBag>
#include <ui_base/CommandBase>
#include <ui_base/CommandGroup>
#include <ui_base/FlyoutBase>
#include <ui_base/ToolBar>
#include <ui_base/ToolButton>
#include <ui_base/ToolButtonWithWidgetMenu>
#include <ui_base/TooltipObject>

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QShortcut>

#include <algorithm>

// The resources stand in a static library, from which the linker takes only what is asked for.
static void initResources()
{
    Q_INIT_RESOURCE(toolbar);
}

namespace Workbench {

using namespace Vela::UiBase;

CommandBar::CommandBar(const CommandSet &commands, QWidget *parent)
    : QWidget(parent)
    , m_bar(new ToolBar(this, Qt::TopToolBarArea))
{
    initResources();
    m_bar->SetTooltipGroup(QStringLiteral("command bar"));
    m_bar->SetBackColor(Qt::transparent);
    openPanelsBeneath();
    for (CommandGroup *group : commands.groups())
        addGroup(*group);
    addGroup(*commands.flyouts);
    m_bar->AdjustToolBarSize(true);
    // The bar takes the size of its contents when it is shown, which is too late for a layout.
    m_bar->setFixedSize(m_bar->childrenRect().size());

    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(6, 4, 6, 4);
    row->addWidget(m_bar);
    row->addStretch();
    connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this,
            &CommandBar::toggleDetails);
}

void CommandBar::addGroup(CommandGroup &group)
{
    for (const auto &[id, command] : group.commandBag()) {
        ToolButton *const button = addButton(command.get(), group, group.getCommandRank(id));
        command->setToolButton(button);
        explainByCard(*button, *command);
    }
}

ToolButton *CommandBar::addButton(CommandBase *command, const CommandGroup &group, int rank)
{
    auto *const panelCommand = qobject_cast<PanelCommand *>(command);
    if (!panelCommand)
        return m_bar->AddAction(command, group.commandId(), rank);
    ToolButton *const button =
        m_bar->AddAction(command, panelCommand->flyout(), group.commandId(), rank);
    // Whatever closes a panel, the bar tells of it.
    connect(m_bar, &ToolBar::ButtonMenuVisibilityChange, panelCommand,
            [panelCommand, button](const ToolButton *of, bool isVisible) {
                if (of == button && !isVisible)
                    panelCommand->onFinalize();
            });
    return button;
}

void CommandBar::openPanelsBeneath()
{
    ArrowedWindow::SArrowParam arrow;
    arrow.position = EArrowPosition::Top;
    arrow.length = 10;
    m_bar->SetButtonDefaultMenuParameters(true, arrow, 2, EDirection::Bottom,
                                          EWidgetsAlign::AlignStart, QPoint());
}

ToolButton *CommandBar::explainedButton() const
{
    const QList<ToolButton *> buttons = m_bar->findChildren<ToolButton *>();
    const auto found = std::find_if(buttons.begin(), buttons.end(), [](const ToolButton *button) {
        return button->GetTooltipObject()->IsVisible();
    });
    return found == buttons.end() ? nullptr : *found;
}

void CommandBar::setCardsEnabled(bool enabled)
{
    const QList<ToolButton *> buttons = m_bar->findChildren<ToolButton *>();
    for (ToolButton *button : buttons)
        button->GetTooltipObject()->SetEnableTooltip(enabled);
}

/// The card never has the focus, so the window takes the key that the card promises help for. It
/// does what a click on the card does.
void CommandBar::toggleDetails()
{
    const ToolButton *const button = explainedButton();
    QWidget *const card = button ? button->GetTooltipObject()->TooltipControl() : nullptr;
    if (!card)
        return;
    QMouseEvent press(QEvent::MouseButtonPress, card->rect().center(), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(card, &press);
}

} // namespace Workbench
