// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "lumo_app_service/appserviceexport.h"

#include <Qt>

class QPoint;
class QSize;

namespace Vela::Services {

/// Hears what happens to the application's main window, after
/// ApplicationService::addAppStateDelegate(). All operations are called on the main thread and do
/// nothing by default.
class LUMO_APP_SERVICE_EXPORT ApplicationStateProtocol
{
public:
    virtual ~ApplicationStateProtocol();

    /// The main window moved. @p position is the new place of its upper left corner without the
    /// frame, in global coordinates and logical pixels.
    virtual void appMoved(const QPoint &position);
    /// The main window has the new size @p size, without the frame, in logical pixels.
    virtual void appResized(const QSize &size);
    /// The main window was minimised, maximised, restored or the like; @p newState is its state
    /// when the event came.
    virtual void appWindowStateChanged(const Qt::WindowStates &oldState,
                                       const Qt::WindowStates &newState);
};

} // namespace Vela::Services
