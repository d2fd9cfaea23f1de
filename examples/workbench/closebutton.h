// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

class QToolButton;
class QWidget;

namespace Workbench {

/// A small flat button with a cross. @p text tells its tool tip, which is its name for
/// assistive tools, too.
QToolButton *makeCloseButton(const std::function<QString()> &text, QWidget *parent);

} // namespace Workbench
