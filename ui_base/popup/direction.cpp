// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/direction.h"

#include "ui_base/qtui/enumproperty_p.h"

namespace Vela::UiBase {

EDirection DirectionProperty(const QObject *object, const char *name)
{
    const auto direction = Internal::enumProperty<EDirection>(object, name);
    return object ? direction : EDirection::NoDirection;
}

} // namespace Vela::UiBase
