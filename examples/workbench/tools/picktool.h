// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tools/selectiontool.h"

#include <QPointer>

class QAction;

namespace Workbench {

/// Selects the face that is clicked, or nothing with a click on the background. Escape ends it.
class PickTool : public SelectionTool
{
public:
    /// @param command what pushed the tool and takes it away again when it is unchecked; may be null
    PickTool(Vela::UiBase::BaseView *view, SelectionScene scene, QAction *command);

    bool mouseRelease(QMouseEvent *event) override;
    bool keyPress(QKeyEvent *event) override;

private:
    const QPointer<QAction> m_command;
};

} // namespace Workbench
