// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QSize;
class QWidget;

namespace Vela::UiBase::Internal {

/// Lets a window manager on X11 give a window all of its size. Where logical pixels are no whole
/// number of the screen's, Qt asks for windows that grow in steps of several pixels of the screen, and
/// the window manager takes off what is left of the last step, and with it the edge of the content.
/// Nothing before there is a native window, so that it is called again in the event of showing.
/// @param window a window that has just as much room as its content
/// @param size the size that it is about to get, in logical pixels
void claimSize(QWidget &window, const QSize &size);

} // namespace Vela::UiBase::Internal
