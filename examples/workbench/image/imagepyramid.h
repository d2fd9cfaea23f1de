// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QVector>

namespace Workbench {

/// An image together with smaller copies of itself, each half as wide and high as the one before,
/// so that it can be drawn at any scale for the price of the pixels that are seen. A value; copies
/// share the pixels.
class ImagePyramid
{
public:
    ImagePyramid() = default;

    /// Makes the copies of @p image, which takes a moment for a large one. Any thread.
    explicit ImagePyramid(const QImage &image);

    bool isNull() const { return m_levels.isEmpty(); }
    /// The size of the image in its own pixels.
    QSize size() const { return isNull() ? QSize() : m_levels.first().size(); }
    bool hasAlphaChannel() const { return !isNull() && m_levels.first().hasAlphaChannel(); }

    /// The smallest copy that has at least as many pixels as the image drawn with @p scale; a null
    /// image when there is none.
    QImage level(double scale) const;

private:
    QVector<QImage> m_levels; // from the image down
};

} // namespace Workbench
