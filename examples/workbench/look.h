// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QApplication;

namespace Workbench {

/// Which colours the program has.
enum class ELook {
    Light,
    Dark
};

/// Gives @p application the font and the colours that the library's widgets are drawn for, on every
/// desktop the same. Comes before the first widget.
void applyLook(QApplication &application, ELook look);

} // namespace Workbench
