// Crystal geometry in 64 bits by vectors and matrices, a road of its own beside the formulas under
// test.
#pragma once

#include <array>
#include <cmath>

namespace dorvane {

using Vector3 = std::array<double, 3>;
// a, b, c (angstrom), alpha, beta, gamma (degrees).
using Cell6 = std::array<double, 6>;
// Factors of h^2, k^2, l^2, kl, hl, hk in 1/d^2.
using Metric6 = std::array<double, 6>;

inline double Dot(const Vector3& u, const Vector3& v) {
  return u[0] * v[0] + u[1] * v[1] + u[2] * v[2];
}

inline Vector3 Cross(const Vector3& u, const Vector3& v) {
  return {u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]};
}

struct Axes3 {
  Vector3 a, b, c;
};

inline Axes3 AxesOf(const Cell6& cell) {
  const auto radians = [](double degrees) { return degrees * std::acos(-1.0) / 180; };
  const double ca = std::cos(radians(cell[3])), cb = std::cos(radians(cell[4]));
  const double cg = std::cos(radians(cell[5])), sg = std::sin(radians(cell[5]));
  const double y = (ca - cb * cg) / sg;
  return {{cell[0], 0, 0},
          {cell[1] * cg, cell[1] * sg, 0},
          {cell[2] * cb, cell[2] * y, cell[2] * std::sqrt(1 - cb * cb - y * y)}};
}

inline double VolumeOf(const Cell6& cell) {
  const Axes3 axes = AxesOf(cell);
  return Dot(axes.a, Cross(axes.b, axes.c));
}

// Distance of the planes hkl: V / |h b x c + k c x a + l a x b|.
inline double PlaneDistance(const Cell6& cell, int h, int k, int l) {
  const Axes3 axes = AxesOf(cell);
  const Vector3 bc = Cross(axes.b, axes.c), ca = Cross(axes.c, axes.a), ab = Cross(axes.a, axes.b);
  Vector3 normal{};
  for (std::size_t i = 0; i < 3; ++i) normal[i] = h * bc[i] + k * ca[i] + l * ab[i];
  return VolumeOf(cell) / std::sqrt(Dot(normal, normal));
}

// The direct cell and its volume from the metric of the reciprocal one, by Cramer's rule.
inline std::array<double, 7> DirectFromMetric(const Metric6& m) {
  const Vector3 r1{m[0], m[5] / 2, m[4] / 2};
  const Vector3 r2{m[5] / 2, m[1], m[3] / 2};
  const Vector3 r3{m[4] / 2, m[3] / 2, m[2]};
  const double determinant = Dot(r1, Cross(r2, r3));
  const Vector3 c1 = Cross(r2, r3), c2 = Cross(r3, r1), c3 = Cross(r1, r2);
  const double a = std::sqrt(c1[0] / determinant);
  const double b = std::sqrt(c2[1] / determinant);
  const double c = std::sqrt(c3[2] / determinant);
  const auto degrees = [](double cosine) { return std::acos(cosine) * 180 / std::acos(-1.0); };
  return {a,
          b,
          c,
          degrees(c2[2] / determinant / (b * c)),
          degrees(c1[2] / determinant / (a * c)),
          degrees(c1[1] / determinant / (a * b)),
          1 / std::sqrt(determinant)};
}

// Metric of the reciprocal cell of a direct one: products of the reciprocal axes.
inline Metric6 MetricOf(const Cell6& cell) {
  const Axes3 axes = AxesOf(cell);
  const double volume = VolumeOf(cell);
  Vector3 as = Cross(axes.b, axes.c), bs = Cross(axes.c, axes.a), cs = Cross(axes.a, axes.b);
  for (std::size_t i = 0; i < 3; ++i) as[i] /= volume, bs[i] /= volume, cs[i] /= volume;
  return {Dot(as, as), Dot(bs, bs), Dot(cs, cs), 2 * Dot(bs, cs), 2 * Dot(as, cs), 2 * Dot(as, bs)};
}

}  // namespace dorvane
