// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

namespace Vela::UiBase {

/// Prepares the library for the application: registers its resources and metatypes, and gives the
/// application the style sheet ":/qss/libuitoolkit.css" when it has none of its own.
///
/// A host calls it once, after its QApplication was made and before its first widget. A second call
/// for the same application does nothing, and so does a call without a QApplication. Under a native
/// Wayland platform a warning tells that popups cannot be placed there. Main thread only.
LUMO_UI_BASE_EXPORT void StartUp();

} // namespace Vela::UiBase
