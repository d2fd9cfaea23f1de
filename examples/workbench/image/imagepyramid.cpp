// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "image/imagepyramid.h"

#include <QtMath>

namespace Workbench {
namespace {

constexpr int smallestSide = 256; // less is drawn in no time

/// The formats that are painted without being converted.
QImage readyToPaint(const QImage &image)
{
    return image.convertToFormat(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                         : QImage::Format_RGB32);
}

QSize halfOf(const QSize &size)
{
    return {qMax(1, size.width() / 2), qMax(1, size.height() / 2)};
}

} // namespace

ImagePyramid::ImagePyramid(const QImage &image)
{
    QImage level = readyToPaint(image);
    while (!level.isNull()) {
        m_levels.append(level);
        if (qMax(level.width(), level.height()) <= smallestSide)
            return;
        level = level.scaled(halfOf(level.size()), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
}

QImage ImagePyramid::level(double scale) const
{
    if (isNull())
        return {};
    const int halvings = scale < 1.0 ? int(std::floor(-std::log2(scale))) : 0;
    return m_levels.at(qBound(0, halvings, m_levels.size() - 1));
}

} // namespace Workbench
