// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/viewcontroller/commandapp.h"

namespace Vela::UiBase {

CommandApp::CommandApp() = default;

CommandApp::~CommandApp() = default;

Orrin::Core::ERcmStatus CommandApp::Initialize()
{
    return Orrin::Core::eRcmSuccess;
}

void CommandApp::Terminate() { }

} // namespace Vela::UiBase
