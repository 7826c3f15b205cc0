#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

#include "math/matrix4.h"
#include "math/plane_angles.h"
#include "math/scalar.h"

namespace pv {
namespace {

using Limits = std::numeric_limits<float>;
using Rows = std::array<std::array<double, 4>, 4>;

/// Distance in representable values; the signs must agree unless both are 0.
std::int64_t ulps(float a, float b) {
  const auto order = [](float f) {
    const auto bits = std::bit_cast<std::int32_t>(f);
    return bits < 0 ? -std::int64_t{bits & 0x7FFFFFFF} : std::int64_t{bits};
  };
  return std::abs(order(a) - order(b));
}

Rows product(const Rows& a, const Rows& b) {
  Rows result{};
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t j = 0; j < 4; ++j) {
      for (std::size_t k = 0; k < 4; ++k) {
        result[i][j] += a[i][k] * b[k][j];
      }
    }
  }
  return result;
}

Rows turnX(double a) {
  const double s = std::sin(a);
  const double c = std::cos(a);
  return {{{1, 0, 0, 0}, {0, c, s, 0}, {0, -s, c, 0}, {0, 0, 0, 1}}};
}

Rows turnY(double a) {
  const double s = std::sin(a);
  const double c = std::cos(a);
  return {{{c, 0, -s, 0}, {0, 1, 0, 0}, {s, 0, c, 0}, {0, 0, 0, 1}}};
}

Rows turnZ(double a) {
  const double s = std::sin(a);
  const double c = std::cos(a);
  return {{{c, s, 0, 0}, {-s, c, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
}

void expectNear(const Matrix4& actual, const Rows& wanted, const char* what) {
  for (std::size_t i = 0; i < 4; ++i) {
    for (std::size_t j = 0; j < 4; ++j) {
      EXPECT_NEAR(static_cast<double>(actual.m[i][j]), wanted[i][j], 5e-7)
          << what << " row " << i << " column " << j;
    }
  }
}

float dot(Vec3 a, Vec3 b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

TEST(SinCos, IsWithinOneUlpOfTheExactValue) {
  std::mt19937 engine(1);
  std::vector<float> angles{0.0F, -0.0F, Limits::denorm_min(), Limits::min(), 1e-4F, -1e-4F};
  for (int degrees = -720; degrees <= 720; ++degrees) {
    const float angle = toRadians(static_cast<float>(degrees));
    angles.insert(angles.end(), {angle, std::nextafter(angle, 1e9F), std::nextafter(angle, -1e9F)});
  }
  for (int i = 0; i < 100'000; ++i) {
    const float fraction = static_cast<float>(engine()) / 4294967296.0F - 0.5F;
    angles.push_back(std::ldexp(fraction, i % 45 - 25));
  }
  for (const float angle : angles) {
    const auto [s, c] = sinCos(angle);
    const auto exact = static_cast<double>(angle);
    ASSERT_LE(ulps(s, static_cast<float>(std::sin(exact))), 1) << "sine of " << angle;
    ASSERT_LE(ulps(c, static_cast<float>(std::cos(exact))), 1) << "cosine of " << angle;
  }
  EXPECT_EQ(sinCos(0.0F).sin, 0.0F);
  EXPECT_EQ(sinCos(0.0F).cos, 1.0F);
  // A full turn in degrees does not come out as exactly nothing.
  EXPECT_NE(sinCos(toRadians(360.0F)).sin, 0.0F);
  EXPECT_EQ(sinCos(toRadians(360.0F)).cos, 1.0F);
}

TEST(SinCos, HugeAnglesStayOnTheCircleAndNonNumbersGiveNaN) {
  for (const float angle : {1.0e6F, 999'999.9F, -3.0e7F, 1.0e12F, 1.0e30F, -Limits::max()}) {
    const auto [s, c] = sinCos(angle);
    EXPECT_NEAR(s * s + c * c, 1.0F, 1e-6F) << angle;
    EXPECT_EQ(sinCos(-angle).sin, -s) << angle;
    EXPECT_EQ(sinCos(-angle).cos, c) << angle;
  }
  EXPECT_NEAR(sinCos(-3.0e7F).sin, static_cast<float>(std::sin(-3.0e7)), 1e-6F);
  for (const float angle : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
    EXPECT_TRUE(std::isnan(sinCos(angle).sin));
    EXPECT_TRUE(std::isnan(sinCos(angle).cos));
  }
}

TEST(PlaneAngles, AreAsGoodAsTheLibrarys) {
  std::mt19937 random(5);
  const auto number = [&random] { return (static_cast<double>(random()) - 2147483648.0) / 1e8; };
  for (int i = 0; i < 100'000; ++i) {
    const double x = number();
    const double y = i % 10 == 0 ? 0.0 : number() * (i % 3 == 0 ? 1e-9 : 1.0);
    ASSERT_NEAR(planeTurn(x).sin, std::sin(x), 1e-15) << x;
    ASSERT_NEAR(planeTurn(x).cos, std::cos(x), 1e-15) << x;
    ASSERT_NEAR(planeAngle(y, x), std::atan2(y, x), 2e-15) << y << ' ' << x;
    ASSERT_NEAR(planeAngle(x, y), std::atan2(x, y), 2e-15) << x << ' ' << y;
  }
  EXPECT_EQ(planeAngle(0, 0), 0.0);
  EXPECT_EQ(planeAngle(-0.0, -1), std::atan2(-0.0, -1.0));
  EXPECT_EQ(planeTurn(0).cos, 1.0);
  EXPECT_LT(std::abs(planeTurn(1.5707963267948966).cos), 1e-16);
  EXPECT_NEAR(planeTurn(1e9).sin, std::sin(1e9), 1e-6);
  for (const double bad : {std::nan(""), -HUGE_VAL}) {
    EXPECT_TRUE(std::isnan(planeTurn(bad).sin) && std::isnan(planeTurn(bad).cos));
  }
}

TEST(Truncate, GoesTowardZeroAndSaturates) {
  EXPECT_EQ(truncate(-1.99F), -1);
  EXPECT_EQ(truncate(0.99F), 0);
  EXPECT_EQ(truncate(2147483520.0F), 2147483520);
  EXPECT_EQ(truncate(2147483648.0F), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(truncate(-Limits::infinity()), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(truncate(Limits::quiet_NaN()), 0);
}

TEST(Matrix4, RotationsAndTheirProducts) {
  for (const double yaw : {0.0, 0.7, -2.5, 6.28}) {
    for (const double pitch : {0.0, 1.1, -0.4}) {
      for (const double roll : {0.0, -1.9, 3.0}) {
        const auto [y, p, r] = std::array{static_cast<float>(yaw), static_cast<float>(pitch),
                                          static_cast<float>(roll)};
        expectNear(D3DXMatrixRotationX(p), turnX(pitch), "x");
        expectNear(D3DXMatrixRotationY(y), turnY(yaw), "y");
        expectNear(D3DXMatrixRotationZ(r), turnZ(roll), "z");
        expectNear(D3DXMatrixRotationYawPitchRoll(y, p, r),
                   product(product(turnZ(roll), turnX(pitch)), turnY(yaw)), "yaw, pitch, roll");
        expectNear(D3DXMatrixMultiply(D3DXMatrixRotationX(p), D3DXMatrixRotationZ(r)),
                   product(turnX(pitch), turnZ(roll)), "x, then z");
      }
    }
  }
}

TEST(Matrix4, TransformsRowsAndAppliesTheFirstFactorFirst) {
  Matrix4 m = D3DXMatrixScaling(2, 3, 4);
  m.m[3] = {10, 20, 30, 1};
  m.m[1][0] = 100;  // y feeds x
  EXPECT_EQ(D3DXVec3Transform({1, 1, 1}, m), (Vec3{112, 23, 34}));
  // A quarter turn about z takes +x to +y; the scaling before it acts on x.
  const Matrix4 turn = D3DXMatrixRotationZ(toRadians(90.0F));
  const Vec3 p = D3DXVec3Transform({1, 0, 0}, D3DXMatrixMultiply(D3DXMatrixScaling(5, 1, 1), turn));
  EXPECT_NEAR(p.x, 0.0F, 1e-6F);
  EXPECT_NEAR(p.y, 5.0F, 1e-6F);
}

TEST(Matrix4, LookAtPutsTheTargetAheadAndKeepsLengths) {
  const Vec3 target{0.5F, -1.0F, 2.0F};
  for (const Vec3 eye : {Vec3{0, 0, 5}, Vec3{-3, 2, 1}, Vec3{1, -4, -2}}) {
    const Matrix4 view = D3DXMatrixLookAtLH(eye, target, {0, 1, 0});
    const Vec3 way = target - eye;
    const Vec3 ahead = D3DXVec3Transform(target, view);
    EXPECT_NEAR(ahead.x, 0.0F, 1e-6F);
    EXPECT_NEAR(ahead.y, 0.0F, 1e-6F);
    EXPECT_NEAR(ahead.z, std::sqrt(dot(way, way)), 2e-6F);
    const Vec3 atEye = D3DXVec3Transform(eye, view);
    EXPECT_NEAR(dot(atEye, atEye), 0.0F, 1e-10F);
    // Up stays in the picture's upright plane and points upwards.
    const Vec3 up = D3DXVec3Transform(eye + Vec3{0, 1, 0}, view);
    EXPECT_NEAR(up.x, 0.0F, 1e-6F);
    EXPECT_GT(up.y, 0.0F);
    EXPECT_NEAR(dot(up, up), 1.0F, 1e-5F);
  }
  // Left-handed: looking along +z with y up, +x is to the right.
  const Matrix4 view = D3DXMatrixLookAtLH({0, 0, -1}, {0, 0, 0}, {0, 1, 0});
  EXPECT_EQ(D3DXVec3Transform({1, 2, 3}, view), (Vec3{1, 2, 4}));
}

}  // namespace
}  // namespace pv
