// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/qtui/iiconprovider.h"

namespace Vela::UiBase {

IIconProvider::~IIconProvider() = default;

} // namespace Vela::UiBase
