// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

class QImage;

namespace Workbench {

/// How much of @p one looks different in @p other, from 0 for equal pictures to 1. Differences that
/// no eye sees do not count. Pictures of different sizes are altogether different.
double changedShare(const QImage &one, const QImage &other);

/// How much lighter the top of @p picture is than its bottom, from -1 to 1.
double topLight(const QImage &picture);

} // namespace Workbench
