// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_app_service/appserviceexport.h"

namespace Vela::Services {

/// Hears of the user's account from the part of a host that logs users in; nothing in the library
/// calls it. All operations are called on the main thread and do nothing by default.
class LUMO_APP_SERVICE_EXPORT CloudServiceProtocol
{
public:
    virtual ~CloudServiceProtocol();

    /// The user logged in.
    virtual void onUserLogIn();
    /// The user logged out.
    virtual void onUserLogOut();
    /// A login was refused or could not be tried.
    virtual void onUserLogInFailed();
};

} // namespace Vela::Services
