// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QWidget;

namespace Lumo::Test {

/// The controls without a name in the accessible tree below a window, visible or not, each told by
/// the path of class and object names that leads to it. Controls are what a user works: buttons,
/// entries of menus, fields, sliders, lists and tabs.
QStringList namelessControls(QWidget &window);

/// How many controls the accessible tree below a window has, so that a test can tell that the walk
/// has seen them.
int controlCount(QWidget &window);

} // namespace Lumo::Test
