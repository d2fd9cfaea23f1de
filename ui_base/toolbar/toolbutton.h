// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QToolButton>

namespace Vela::UiBase {

/// The button by which tool bars, action panels and tool panels show a command. A command knows the
/// button that shows it by CommandBase::toolButton(). Main thread only.
class LUMO_UI_BASE_EXPORT ToolButton : public QToolButton
{
    Q_OBJECT

public:
    /// A bare button without an action.
    /// @param parent owner of the button, may be null
    explicit ToolButton(QWidget *parent);
    ~ToolButton() override;

private:
    Q_DISABLE_COPY(ToolButton)
};

} // namespace Vela::UiBase
