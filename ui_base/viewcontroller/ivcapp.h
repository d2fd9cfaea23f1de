// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/uibaseexport.h"
#include "ui_base/viewcontroller/iapp.h"

namespace Vela::UiBase {

class BaseViewController;

/// An application module that has a view.
class LUMO_UI_BASE_EXPORT IVCApp : public IApp
{
public:
    IVCApp();
    IVCApp(const IVCApp &other);
    IVCApp &operator=(const IVCApp &other) = default;
    ~IVCApp() override;

    /// The controller of the module's view; null as long as it has made none. It stays the
    /// module's.
    virtual BaseViewController *getVC() const = 0;
};

} // namespace Vela::UiBase
