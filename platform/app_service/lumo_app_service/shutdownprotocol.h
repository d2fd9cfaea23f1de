// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_app_service/appserviceexport.h"

namespace Vela::Services {

/// Is asked before the application shuts down, after ApplicationService::addShutdownDelegate().
class LUMO_APP_SERVICE_EXPORT ShutdownProtocol
{
public:
    virtual ~ShutdownProtocol();

    /// Whether the application may shut down now; false keeps it running. True by default. Called
    /// on the main thread; it may show a dialog and wait for its answer.
    virtual bool canShutdown();
};

} // namespace Vela::Services
