// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ui_base/qtui/tooltip/tooltipmanager.h"

#include <QList>
#include <QMap>

namespace Vela::UiBase {

/// The state of a TooltipManager.
class LUMO_UI_BASE_EXPORT TooltipManagerPrivate
{
public:
    TooltipManagerPrivate();
    virtual ~TooltipManagerPrivate();

    /// The first group with a name that @p tooltip is in; empty when there is none.
    QString namedGroupOf(ATooltipObject *tooltip) const;
    /// Takes a tooltip that dies out of all groups and walks. Only the pointer is looked at.
    void drop(ATooltipObject *tooltip);

    /// Members in order of registration, not owned.
    QMap<QString, QList<ATooltipObject *>> groups;
    /// The walks over a copy of a group that are under way, the innermost one last. A tooltip that
    /// dies becomes null in them.
    QList<QList<ATooltipObject *> *> walks;

private:
    Q_DISABLE_COPY(TooltipManagerPrivate)
};

} // namespace Vela::UiBase
