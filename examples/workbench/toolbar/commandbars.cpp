// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "toolbar/commandbars.h"

#include "commands/barscommand.h"
#include "commandset.h"
#include "meshdocument.h"
#include "toolbar/commandcards.h"
#include "toolbar/editingpanel.h"
#include "toolbar/viewingbar.h"
#include "view/viewpane.h"

#include <ui_base/CommandBag>
#include <ui_base/CommandGroup>
#include <ui_base/ToolbarManager>

#include <QEvent>

namespace Workbench {

using namespace Vela::UiBase;

CommandBars::CommandBars(const CommandSet &commands, const std::shared_ptr<MeshDocument> &document,
                         ViewPane *pane, QWidget *parent)
    : QObject(parent)
    , m_document(document)
    , m_panel(std::make_unique<EditingPanel>(commands, pane))
    , m_strip(new ViewingBar(commands, parent))
    , m_cards(new CommandCards(parent))
    , m_commands(std::make_unique<const CommandSet>(commands))
{
    explainAll(commands);
    m_groupStates.addObserver(&m_strip->rows());
    pane->installEventFilter(this);
    connect(document.get(), &MeshDocument::selectionChanged, this, &CommandBars::followSelection);
    connect(commands.bars.get(), &QAction::toggled, this, &CommandBars::slide);
}

CommandBars::~CommandBars() = default;

void CommandBars::explainAll(const CommandSet &commands)
{
    for (const CommandGroup *group :
         {commands.files.get(), commands.flyouts.get(), commands.editing.get()}) {
        for (const auto &[id, command] : group->commandBag())
            m_cards->explain(*command, EDirection::Right);
    }
    for (const CommandGroup *group : {commands.display.get(), commands.drawn.get(),
                                      commands.watching.get(), commands.selection.get()}) {
        for (const auto &[id, command] : group->commandBag())
            m_cards->explain(*command, EDirection::Top);
    }
}

ToolButton *CommandBars::explainedButton() const
{
    return m_cards->explainedButton();
}

void CommandBars::setCardsEnabled(bool enabled)
{
    m_cards->setEnabled(enabled);
}

void CommandBars::followSelection()
{
    const bool isActive = !m_document->selection().isEmpty() && m_commands->bars->isChecked();
    if (isActive == m_isRowActive)
        return;
    m_isRowActive = isActive;
    m_groupStates.broadcast(isActive ? &DynamicCommandGroupStateProtocol::commandGroupBegan
                                     : &DynamicCommandGroupStateProtocol::commandGroupEnded,
                            m_commands->selection.get());
}

// What floats over a widget does not come with it, and only over a window that is on the screen.
bool CommandBars::eventFilter(QObject *watched, QEvent *event)
{
    const auto showPanel = [this] {
        if (m_commands->bars->isChecked())
            m_panel->ShowMe();
    };
    if (event->type() == QEvent::Show)
        QMetaObject::invokeMethod(this, showPanel, Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

void CommandBars::slide(bool in)
{
    followSelection();
    m_strip->slide(in);
    if (in)
        m_panel->ShowAnimated();
    else
        m_panel->HideAnimated();
}

} // namespace Workbench
