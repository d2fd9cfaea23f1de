// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "orrin_mesh_kernel/iservice.h"

namespace Orrin::Core {

IService::~IService() = default;

} // namespace Orrin::Core
