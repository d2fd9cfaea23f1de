// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include "relief.h"

#include <QRandomGenerator>
#include <QtMath>

#include <algorithm>

namespace {

/// Moves every vertex by @p factor of the way to the mean of its four neighbours.
void moveToMean(Relief &relief, float factor, bool keepsRim)
{
    const Relief source = relief;
    const int last = relief.side - 1;
    float *target = relief.heights.data();
    for (int y = 0; y <= last; ++y) {
        for (int x = 0; x <= last; ++x, ++target) {
            const bool isOnRim = x == 0 || y == 0 || x == last || y == last;
            if (keepsRim && isOnRim)
                continue;
            const float mean =
                (source.at(std::max(x - 1, 0), y) + source.at(std::min(x + 1, last), y)
                 + source.at(x, std::max(y - 1, 0)) + source.at(x, std::min(y + 1, last)))
                / 4.0F;
            *target += factor * (mean - *target);
        }
    }
}

float hill(float x, float y)
{
    return float(std::sin(x * 5.0F) * std::cos(y * 4.0F + x) + 0.5F * std::sin(y * 9.0F));
}

} // namespace

Relief scannedRelief(int side, quint32 seed)
{
    QRandomGenerator random(seed);
    Relief relief {side, QVector<float>(side * side)};
    float *height = relief.heights.data();
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x, ++height) {
            const float noise = float(random.generateDouble()) - 0.5F;
            *height = 60.0F * hill(float(x) / float(side), float(y) / float(side)) + 0.9F * noise;
        }
    }
    return relief;
}

Relief smoothed(const Relief &relief, const SmoothSettings &settings,
                const std::function<bool(double share)> &progress)
{
    constexpr float pull = 0.5F;
    constexpr float push = 0.53F;
    Relief result = relief;
    for (int pass = 0; pass < settings.passes; ++pass) {
        if (!progress(double(pass) / settings.passes))
            return {};
        moveToMean(result, pull, settings.keepsRim);
        if (settings.keepsVolume)
            moveToMean(result, -push, settings.keepsRim);
    }
    return result;
}

QImage shaded(const Relief &relief)
{
    QImage image(relief.side, relief.side, QImage::Format_RGB32);
    const int last = relief.side - 1;
    for (int y = 0; y <= last; ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x <= last; ++x) {
            const float slopeX = relief.at(std::min(x + 1, last), y) - relief.at(x, y);
            const float slopeY = relief.at(x, std::min(y + 1, last)) - relief.at(x, y);
            const float length = std::sqrt(slopeX * slopeX + slopeY * slopeY + 1.0F);
            const float light = (0.5F * slopeX + 0.5F * slopeY + 0.7F) / length;
            const int grey = qBound(25, int(40.0F + 190.0F * light), 255);
            line[x] = qRgb(grey, grey, std::min(grey + 12, 255));
        }
    }
    return image;
}
