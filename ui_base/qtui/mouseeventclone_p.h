// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

class QMouseEvent;
class QWidget;

namespace Vela::UiBase::Internal {

/// A copy of @p event as @p target would have got it at the same place of the screen.
std::unique_ptr<QMouseEvent> mouseEventFor(const QWidget &target, const QMouseEvent &event);

} // namespace Vela::UiBase::Internal
