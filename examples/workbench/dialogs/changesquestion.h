// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QString;
class QWidget;

namespace Workbench {

/// What shall become of changes that no file holds.
enum class EChanges {
    Save,
    Discard,
    Keep ///< the user goes on with them, or the window has died
};

/// Asks the user, in a dialog over @p window, what shall become of his changes to @p fileName. Its
/// buttons are Cancel, Discard and Save As; what closes it otherwise keeps the changes.
EChanges askAboutChanges(QWidget *window, const QString &fileName);

} // namespace Workbench
