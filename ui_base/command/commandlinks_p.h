// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QObject;
class QWidget;

namespace Vela::UiBase {
class BaseView;
class CmdMgr;
class CmdsViewController;
class ToolButton;
} // namespace Vela::UiBase

/// What commands need of the classes above them, which they know by name only. Defined beside those
/// classes.
namespace Vela::UiBase::Internal {

/// @param controller not null; may be under construction
QObject *objectOf(CmdsViewController *controller);
/// @param controller not null
CmdMgr *managerOf(CmdsViewController *controller);
/// The controller's view, or null when that has gone. @param controller not null
BaseView *viewOf(const CmdsViewController *controller);
/// The view's widget, or null when that has gone. @param view not null
QWidget *widgetOf(const BaseView *view);

/// @param button not null
QObject *objectOf(ToolButton *button);

} // namespace Vela::UiBase::Internal
