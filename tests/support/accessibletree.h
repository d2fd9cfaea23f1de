// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

class QWidget;

namespace Lumo::Test {

/// The controls without a name in the accessible tree below a window, on the screen or not but
/// without what was hidden in it, each told by the path of class and object names that leads to it. Controls are what a user works: buttons,
/// entries of menus, fields, sliders, lists and tabs. A field may be named by a label beside it.
QStringList namelessControls(QWidget &window);

/// The controls below a window whose role, state or value are not what they show: checkable ones
/// that do not say so, disabled ones, values of sliders and spin boxes, buttons that offer nothing
/// to be done. Each is told by its path and by what is wrong.
QStringList misreadControls(QWidget &window);

/// The names of what is found below a window more than once with the same key after Alt, or for a
/// menu with the same letter. Hidden and disabled ones do not count.
QStringList sharedMnemonics(QWidget &window);

/// How many controls the accessible tree below a window has, so that a test can tell that the walk
/// has seen them.
int controlCount(QWidget &window);

} // namespace Lumo::Test
