// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QVector>

#include <functional>

/// A mesh over a square grid: one height per vertex. A value that shares its heights, so a copy is a
/// snapshot for a worker.
struct Relief
{
    int side = 0;
    QVector<float> heights;

    float at(int x, int y) const { return heights[y * side + x]; }
};

/// How a relief is smoothed: each pass pulls every vertex towards the mean of its neighbours.
struct SmoothSettings
{
    int passes = 60;
    bool keepsRim = true;    ///< vertices at the rim stay where they are
    bool keepsVolume = true; ///< each pass pushes back a little further than it pulled
};

/// Hills with the noise of a scan.
Relief scannedRelief(int side, quint32 seed);

/// A smoother relief.
/// @param progress called with the share done, 0 to 1, before each pass; false stops the work
/// @return an empty relief when @p progress stopped the work
Relief smoothed(const Relief &relief, const SmoothSettings &settings,
                const std::function<bool(double share)> &progress);

/// The relief lit from the upper left, one pixel per vertex.
QImage shaded(const Relief &relief);
