// SPDX-FileCopyrightText: 2026 The lumo_ui_base authors
// SPDX-License-Identifier: MIT

#include <lumo_math/LumoMath>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

using Limits = std::numeric_limits<double>;

constexpr double infinity = Limits::infinity();
constexpr double notANumber = Limits::quiet_NaN();
constexpr double tolerance = 0.00001;

static_assert(noexcept(LumoMath::equals(1.0, 1.0, tolerance)));
static_assert(noexcept(LumoMath::zero(1.0, tolerance)));

struct Comparison
{
    const char *name;
    double a;
    double b;
    double tolerance;
    bool areEqual;
};

const Comparison comparisons[] = {
    {"same", 1.5, 1.5, tolerance, true},
    {"within", 1.0, 1.000009, tolerance, true},
    {"beyond", 1.0, 1.000011, tolerance, false},
    {"onTheBorder", 1.0, 1.25, 0.25, true},
    {"justBeyondTheBorder", 1.0, 1.25, 0.2499999, false},
    {"acrossZero", -0.000004, 0.000004, tolerance, true},
    {"absoluteForLargeValues", 1e12, 1e12 + 1.0, tolerance, false},
    {"signedZeros", 0.0, -0.0, 0.0, true},
    {"noTolerance", 1.0, 1.0 + Limits::epsilon(), 0.0, false},
    {"negativeToleranceAndSame", 2.0, 2.0, -1.0, true},
    {"negativeToleranceAndDifferent", 2.0, 2.1, -1.0, false},
    {"nanToleranceAndSame", 2.0, 2.0, notANumber, true},
    {"nanToleranceAndDifferent", 2.0, 2.1, notANumber, false},
    {"nanAndNumber", notANumber, 1.0, infinity, false},
    {"nanAndNan", notANumber, notANumber, infinity, false},
    {"nanAndInfinity", notANumber, infinity, infinity, false},
    {"sameInfinity", infinity, infinity, tolerance, true},
    {"sameNegativeInfinity", -infinity, -infinity, 0.0, true},
    {"oppositeInfinities", infinity, -infinity, 1e300, false},
    {"infinityAndNumber", infinity, 1e308, 1e308, false},
    {"infiniteToleranceAndNumbers", -1e308, 1e308, infinity, true},
    {"infiniteToleranceAndInfinities", infinity, -infinity, infinity, true},
    {"differenceOverflows", -1e308, 1e308, 1e308, false},
    {"smallestNumbers", Limits::denorm_min(), 0.0, 0.0, false},
};

class LumoMathEquals : public ::testing::TestWithParam<Comparison>
{ };

std::string nameOf(const ::testing::TestParamInfo<Comparison> &info)
{
    return info.param.name;
}

} // namespace

TEST_P(LumoMathEquals, givesTheSameBothWaysRound)
{
    const Comparison &row = GetParam();
    EXPECT_EQ(LumoMath::equals(row.a, row.b, row.tolerance), row.areEqual);
    EXPECT_EQ(LumoMath::equals(row.b, row.a, row.tolerance), row.areEqual);
}

INSTANTIATE_TEST_SUITE_P(Rows, LumoMathEquals, ::testing::ValuesIn(comparisons), nameOf);

TEST(LumoMathZero, agreesWithEqualsToZero)
{
    const double values[] = {0.0,       -0.0,  0.000009,   -0.000009, 0.000011,
                             -0.000011, 1e308, notANumber, infinity,  -infinity};
    for (const double value : values) {
        for (const double with : {0.0, tolerance, -1.0, notANumber, infinity})
            EXPECT_EQ(LumoMath::zero(value, with), LumoMath::equals(value, 0.0, with))
                << value << " with " << with;
    }
}

TEST(LumoMathZero, holdsWithinTheTolerance)
{
    EXPECT_TRUE(LumoMath::zero(0.0, tolerance));
    EXPECT_TRUE(LumoMath::zero(-0.0, 0.0));
    EXPECT_TRUE(LumoMath::zero(0.00001, tolerance));
    EXPECT_TRUE(LumoMath::zero(-0.00001, tolerance));
    EXPECT_FALSE(LumoMath::zero(0.000011, tolerance));
    EXPECT_FALSE(LumoMath::zero(-0.000011, tolerance));
    EXPECT_TRUE(LumoMath::zero(0.0, -1.0));
    EXPECT_FALSE(LumoMath::zero(0.5, -1.0));
    EXPECT_FALSE(LumoMath::zero(notANumber, infinity));
    EXPECT_FALSE(LumoMath::zero(infinity, 1e308));
    EXPECT_FALSE(LumoMath::zero(-infinity, 1e308));
}
