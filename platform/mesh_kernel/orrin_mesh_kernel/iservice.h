// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "orrin_mesh_kernel/kernel.h"
#include "orrin_mesh_kernel/meshkernelexport.h"

namespace Orrin::Core {

/// A service that a host starts and stops. The host owns it.
class ORRIN_MESH_KERNEL_EXPORT IService
{
public:
    IService() = default;
    virtual ~IService();

    /// Makes the service ready. Called once before anything else is asked of it.
    virtual ERcmStatus Initialize() = 0;

    /// Ends the service. Called once, after the last use.
    virtual void Terminate() = 0;
};

} // namespace Orrin::Core
