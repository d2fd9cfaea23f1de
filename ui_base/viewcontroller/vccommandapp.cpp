// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/vccommandapp.h"

namespace Vela::UiBase {

VCCommandApp::VCCommandApp() = default;

VCCommandApp::~VCCommandApp() = default;

} // namespace Vela::UiBase
