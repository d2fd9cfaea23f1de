// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/appearance.h"
#include "view/camera.h"

#include <QRect>
#include <QSize>

namespace Workbench {

/// What a frame shows besides the mesh itself. Sizes are in the pixels of the framebuffer.
struct Drawing
{
    Camera camera;
    Appearance appearance;
    QSize pixels;
    float ratio = 1.0F; ///< pixels of the framebuffer for one logical pixel
    QRect band;         ///< the rubber band, in logical pixels; empty for none

    float aspect() const { return float(pixels.width()) / float(pixels.height()); }
};

} // namespace Workbench
