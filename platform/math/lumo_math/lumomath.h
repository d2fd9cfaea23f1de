// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>

/// Tolerant comparisons of real numbers. Header only, without state, usable from any thread.
///
/// The tolerance is an absolute one, in the unit of the values: choose it for their size, or compare
/// a ratio.
namespace LumoMath {

/// Whether @p a and @p b are the same or differ by no more than @p tolerance, the difference taken
/// in double precision.
///
/// A NaN equals nothing, itself included. Infinities of one sign are the same; an infinity differs
/// from all else by more than any finite tolerance. With a tolerance that is negative or NaN only
/// what is the same is equal; with an infinite one all is equal that is no NaN.
inline bool equals(double a, double b, double tolerance) noexcept
{
    return a == b || std::abs(a - b) <= tolerance;
}

/// Whether @p value equals 0 within @p tolerance, as equals() tells it.
inline bool zero(double value, double tolerance) noexcept
{
    return equals(value, 0.0, tolerance);
}

} // namespace LumoMath
