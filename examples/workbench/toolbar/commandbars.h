// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <core/Broadcaster>
#include <ui_base/DynamicCommandGroupStateProtocol>

#include <QObject>

#include <memory>

namespace Vela::UiBase {
class ToolButton;
} // namespace Vela::UiBase

namespace Workbench {

class CommandCards;
class EditingPanel;
class MeshDocument;
class ViewingBar;
class ViewPane;
struct CommandSet;

/// The bars around a view: the panel of files and edits at its left and the strip below it. The row
/// for selected faces is active as long as there are some and the bars are shown.
class CommandBars : public QObject
{
    Q_OBJECT

public:
    /// @param pane the place of the view; the panel floats over it
    /// @param parent a widget, which owns the strip until a layout takes it and has the key for cards
    CommandBars(const CommandSet &commands, const std::shared_ptr<MeshDocument> &document,
                ViewPane *pane, QWidget *parent);
    ~CommandBars() override;

    EditingPanel &panel() const { return *m_panel; }
    ViewingBar &strip() const { return *m_strip; }

    /// The button whose card is up; null when none is.
    Vela::UiBase::ToolButton *explainedButton() const;
    void setCardsEnabled(bool enabled);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void explainAll(const CommandSet &commands);
    void followSelection();
    void slide(bool in);

    const std::shared_ptr<MeshDocument> m_document;
    const std::unique_ptr<EditingPanel> m_panel; // a floating widget belongs to who floated it
    ViewingBar *const m_strip;
    CommandCards *const m_cards;
    const std::unique_ptr<const CommandSet> m_commands;
    Tessel::Broadcaster<Vela::UiBase::DynamicCommandGroupStateProtocol> m_groupStates;
    bool m_isRowActive = false;
};

} // namespace Workbench
