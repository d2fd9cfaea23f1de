// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QApplication;

/// What every host does before its first widget: gives @p application the light or the dark palette
/// and the style sheet of the library, and starts the library.
void chooseLook(QApplication &application, bool dark);
