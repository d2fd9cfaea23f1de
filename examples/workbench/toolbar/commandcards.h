// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/EDirection>

#include <QObject>
#include <QPointer>

#include <vector>

namespace Vela::UiBase {
class CommandBase;
class ToolButton;
} // namespace Vela::UiBase

namespace Workbench {

/// The cards by which the buttons of a window explain their commands. F1 opens the one that is up.
class CommandCards : public QObject
{
    Q_OBJECT

public:
    /// @param window owns the cards and takes the key
    explicit CommandCards(QWidget *window);

    /// Gives the button of @p command, if it has one, a card at this side of it.
    void explain(const Vela::UiBase::CommandBase &command, Vela::UiBase::EDirection side);

    /// The button whose card is up; null when none is.
    Vela::UiBase::ToolButton *explainedButton() const;

    /// Whether cards come up.
    void setEnabled(bool enabled);

private:
    void toggleDetails();

    std::vector<QPointer<Vela::UiBase::ToolButton>> m_buttons;
};

} // namespace Workbench
