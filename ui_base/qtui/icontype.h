// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>

namespace Vela::UiBase {

/// The kind of file that an icon is made of. The values are what an action's "icon_type" property
/// holds.
enum class EIconType : int {
    IconPng = 0, ///< a bitmap in the size it was drawn in
    IconSvg = 1  ///< a drawing that is rendered at the size asked for
};

} // namespace Vela::UiBase

Q_DECLARE_METATYPE(Vela::UiBase::EIconType)
