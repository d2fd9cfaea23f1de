// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "lumo_app_service/applicationstateprotocol.h"
#include "lumo_app_service/cloudserviceprotocol.h"
#include "lumo_app_service/iappmanager.h"
#include "lumo_app_service/shutdownprotocol.h"

namespace Vela::Services {

ApplicationStateProtocol::~ApplicationStateProtocol() = default;
void ApplicationStateProtocol::appMoved(const QPoint &) { }
void ApplicationStateProtocol::appResized(const QSize &) { }
void ApplicationStateProtocol::appWindowStateChanged(const Qt::WindowStates &,
                                                     const Qt::WindowStates &)
{ }

ShutdownProtocol::~ShutdownProtocol() = default;
bool ShutdownProtocol::canShutdown()
{
    return true;
}

CloudServiceProtocol::~CloudServiceProtocol() = default;
void CloudServiceProtocol::onUserLogIn() { }
void CloudServiceProtocol::onUserLogOut() { }
void CloudServiceProtocol::onUserLogInFailed() { }

IAppManager::~IAppManager() = default;
void IAppManager::Initialize() { }
void IAppManager::Terminate() { }
QString IAppManager::applicationName() const
{
    return {};
}

} // namespace Vela::Services
