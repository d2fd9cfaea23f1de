// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "ui_base/popup/direction.h"

#include "ui_base/qtui/enumproperty_p.h"

namespace Vela::UiBase {

EDirection DirectionProperty(const QObject *object, const char *name)
{
    return Internal::enumProperty<EDirection>(object, name);
}

} // namespace Vela::UiBase
