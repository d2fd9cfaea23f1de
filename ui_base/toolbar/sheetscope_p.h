// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaObject>
#include <QSet>
#include <QString>

class QWidget;

namespace Vela::UiBase::Internal {

/// What a style sheet asks of a widget of a certain class beside its class and its state.
struct SSheetScope
{
    /// Object names for which it has rules of their own.
    QSet<QString> names;
    /// Whether widgets without such a name are all alike to it. If not, it looks at their surroundings
    /// or at their properties, sets properties, or cannot be told.
    bool isCommon = true;
};

/// Looks through @p sheet for rules that may apply to widgets of @p ofClass. When in doubt widgets are
/// not alike.
SSheetScope scopeOfSheet(const QString &sheet, const QMetaObject &ofClass);

/// Whether the style sheets of the application and of @p button itself treat it as any other button
/// of its class with the same sheet of its own, and no widget around it has a sheet.
bool isStyledByClass(const QWidget &button);

} // namespace Vela::UiBase::Internal
