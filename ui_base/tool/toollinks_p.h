// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QObject;

namespace Vela::UiBase {
class BaseView;
} // namespace Vela::UiBase

/// What tools need of the views above them, which they know by name only. Defined beside the views.
namespace Vela::UiBase::Internal {

/// @param view may be null, and under construction
QObject *objectOf(BaseView *view);

} // namespace Vela::UiBase::Internal
