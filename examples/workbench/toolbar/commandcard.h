// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <ui_base/EDirection>

namespace Vela::UiBase {
class CommandBase;
class ToolButton;
} // namespace Vela::UiBase

namespace Workbench {

/// Has @p button explain its command by a card instead of a line of text: what the command is
/// called, what it does, and a picture of that. The card is made when it is first needed, in the
/// language of then; a second call has it made again.
/// @param side where it stands beside the button
void explainByCard(Vela::UiBase::ToolButton &button, const Vela::UiBase::CommandBase &command,
                   Vela::UiBase::EDirection side);

} // namespace Workbench
