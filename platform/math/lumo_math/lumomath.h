// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>

/// Tolerant comparisons of real numbers. Header only, any thread, no state.
namespace LumoMath {

/// Whether @p a and @p b differ by no more than @p tolerance. A NaN equals nothing, two infinities
/// of one sign are equal.
inline bool equals(double a, double b, double tolerance)
{
    return a == b || std::abs(a - b) <= tolerance;
}

/// Whether @p value is no further from zero than @p tolerance. False for a NaN.
inline bool zero(double value, double tolerance)
{
    return std::abs(value) <= tolerance;
}

} // namespace LumoMath
