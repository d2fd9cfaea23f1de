// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"

#include <orrin_mesh_kernel/IService>

class QString;

namespace Vela::UiBase {

/// A loaded application module as its host sees it: a service with a name. The host owns it, calls
/// Initialize() once before anything else and Terminate() once at the end, on the main thread.
///
/// Derive from TabbedApp for a module that shows one view, and from CommandApp or VCCommandApp for
/// one that brings commands.
class LUMO_UI_BASE_EXPORT IApp : public Orrin::Core::IService
{
public:
    IApp();
    IApp(const IApp &other);
    IApp &operator=(const IApp &other) = default;
    ~IApp() override;

    Orrin::Core::ERcmStatus Initialize() override = 0;
    /// Name of the module for its users.
    virtual QString Name() const = 0;
};

} // namespace Vela::UiBase
