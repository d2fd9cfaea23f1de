// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QWidget;

namespace Vela::UiBase {
class FlyoutBase;
}

namespace Workbench {

/// Has @p companion float over the view that @p flyout floats over, from the first opening of the
/// flyout on. It goes when the flyout goes for good.
/// @param companion a hidden child of the flyout
void floatBeside(Vela::UiBase::FlyoutBase &flyout, QWidget *companion);

} // namespace Workbench
