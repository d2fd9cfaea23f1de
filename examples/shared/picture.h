// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QString;
class QWidget;

/// Saves a picture of @p window to @p file, with the popups, menus and panels over it: they are
/// windows of their own, which a plain picture of the window lacks.
/// @return whether the file was written
bool savePicture(QWidget &window, const QString &file);
