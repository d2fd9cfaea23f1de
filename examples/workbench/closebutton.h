// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class QToolButton;
class QWidget;

namespace Workbench {

/// A small flat button with a cross. @p text is its tool tip and its name for assistive tools.
QToolButton *makeCloseButton(const QString &text, QWidget *parent);

} // namespace Workbench
