// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "toolbar/commandcards.h"

#include "language.h"
#include "toolbar/commandcard.h"

#include <ui_base/CommandBase>
#include <ui_base/ToolButton>
#include <ui_base/TooltipObject>

#include <QCoreApplication>
#include <QMouseEvent>
#include <QShortcut>

#include <algorithm>

namespace Workbench {

using namespace Vela::UiBase;

CommandCards::CommandCards(QWidget *window)
    : QObject(window)
{
    connect(new QShortcut(Qt::Key_F1, window), &QShortcut::activated, this,
            &CommandCards::toggleDetails);
}

void CommandCards::explain(const CommandBase &command, EDirection side)
{
    ToolButton *const button = command.toolButton();
    if (!button)
        return;
    m_buttons.emplace_back(button);
    inEveryLanguage(*button, [button, asked = QPointer<const CommandBase>(&command), side] {
        if (asked)
            explainByCard(*button, *asked, side);
    });
}

ToolButton *CommandCards::explainedButton() const
{
    const auto found = std::find_if(m_buttons.begin(), m_buttons.end(), [](const auto &button) {
        return button && button->GetTooltipObject()->IsVisible();
    });
    return found == m_buttons.end() ? nullptr : found->data();
}

void CommandCards::setEnabled(bool enabled)
{
    for (const auto &button : m_buttons) {
        if (button)
            button->GetTooltipObject()->SetEnableTooltip(enabled);
    }
}

/// The card never has the focus, so the window takes the key that the card promises help for. It
/// does what a click on the card does.
void CommandCards::toggleDetails()
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
