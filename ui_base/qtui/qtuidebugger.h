// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <QObject>

namespace Vela::UiBase {

/// Tells a developer what stands under the mouse, which is the way to the class and object name
/// that a style sheet or a test needs. Connect the slot to an action with a shortcut, since a click
/// would move the mouse.
class LUMO_UI_BASE_EXPORT QtUiDebugger : public QObject
{
    Q_OBJECT

public:
    explicit QtUiDebugger(QObject *parent = nullptr);
    ~QtUiDebugger() override;

public Q_SLOTS:
    /// Shows class and object name of the widget under the mouse, and of its parent if it has one,
    /// in a modal message box; returns when the box is closed. Does nothing when no widget of this
    /// application is there.
    virtual void DumpWidgetUnderMouse();

private:
    Q_DISABLE_COPY(QtUiDebugger)
};

} // namespace Vela::UiBase
