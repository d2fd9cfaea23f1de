// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/iapp.h"

namespace Vela::UiBase {

IApp::IApp() = default;

IApp::IApp(const IApp &other) = default;

IApp::~IApp() = default;

} // namespace Vela::UiBase
