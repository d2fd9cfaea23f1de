// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/toolbar/toolbutton.h"

namespace Vela::UiBase {

ToolButton::ToolButton(QWidget *parent)
    : QToolButton(parent)
{ }

ToolButton::~ToolButton() = default;

} // namespace Vela::UiBase
