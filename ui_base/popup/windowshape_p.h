// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRegion>

#include <functional>

class QWidget;

namespace Vela::UiBase::Internal {

/// Whether translucent windows are blended with what lies below them. On X11 a compositor does that,
/// which may come and go; without one all that is transparent in a window is black.
bool areWindowsBlended();

/// The shape of a translucent window: it ends at its outline where nothing blends it, and is whole
/// where it can be blended.
class WindowShape
{
public:
    /// Brings the shape up to date. Nothing for a widget that is no translucent window of its own
    /// and stands in no FloatingLayer, and for a window that was given another mask.
    /// @param shown a window, or what stands in a layer
    /// @param seen tells what is seen of it, in its coordinates; only asked where that counts
    void follow(QWidget &shown, const std::function<QRegion()> &seen);

private:
    QRegion m_mask;
};

} // namespace Vela::UiBase::Internal
