// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"
#include "ui_base/viewcontroller/commandapp.h"

namespace Vela::UiBase {

/// An application module that brings commands together with the view that they work in.
class LUMO_UI_BASE_EXPORT VCCommandApp : public CommandApp
{
public:
    VCCommandApp();
    ~VCCommandApp() override;

    /// The controller that the module's commands work for; null as long as there is none. It stays
    /// the module's.
    virtual CmdsViewController *getCommandsVC() const = 0;
};

} // namespace Vela::UiBase
