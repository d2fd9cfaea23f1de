// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/ivcapp.h"

namespace Vela::UiBase {

IVCApp::IVCApp() = default;

IVCApp::IVCApp(const IVCApp &other) = default;

IVCApp::~IVCApp() = default;

} // namespace Vela::UiBase
