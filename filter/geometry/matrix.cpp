#include "geometry/matrix.h"

#include <cmath>
#include <cstring>

#include "geometry/angles.h"

namespace egfsvg {
namespace {

constexpr double kSingular = 1e-20;
constexpr double kNoShear = 1e-6;

}  // namespace

void copyMatrix(const MatrixRows& from, MatrixRows& to) { std::memcpy(to, from, sizeof to); }

void multiplyMatrix(MatrixRows& left, const MatrixRows& right) {
  for (double(&row)[3] : left) {
    const double a = row[0];
    const double b = row[1];
    const double c = row[2];
    for (int k = 0; k < 3; ++k) row[k] = a * right[0][k] + b * right[1][k] + c * right[2][k];
  }
}

void multiplyIdentity(const MatrixRows& right, MatrixRows& product) {
  for (int k = 0; k < 3; ++k) {
    const double zeros[3] = {right[0][k] * 0.0, right[1][k] * 0.0, right[2][k] * 0.0};
    product[0][k] = right[0][k] + zeros[1] + zeros[2];
    product[1][k] = zeros[0] + right[1][k] + zeros[2];
    product[2][k] = zeros[0] + zeros[1] + right[2][k];
  }
}

bool isFinite(const PlaneColumns& plane) {
  double zeros[2] = {0.0, 0.0};
  for (const double(&column)[2] : plane) {
    for (int row = 0; row < 2; ++row) zeros[row] += column[row] * 0.0;
  }
  return zeros[0] + zeros[1] == 0.0;
}

void setMatrix(const PlaneColumns& plane, MatrixRows& whole) {
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column) whole[row][column] = plane[column][row];
  }
  whole[2][0] = 0.0;
  whole[2][1] = 0.0;
  whole[2][2] = 1.0;
}

bool decomposeMatrix(const MatrixRows& m, Decomposition* parts) {
  const double determinant = m[0][0] * m[1][1] - m[1][0] * m[0][1];
  if (std::fabs(determinant) < kSingular) {
    *parts = {};
    return false;
  }
  if (m[0][1] == 0.0 && m[1][0] == 0.0 && m[0][0] > 0.0 && m[1][1] > 0.0) {
    *parts = {0.0, m[0][0], m[1][1], 0.0};  // what follows gives the same, at the cost of an atan2
    return true;
  }
  const double rotation = std::atan2(m[1][0], m[0][0]);
  const double c = std::cos(rotation);
  const double s = std::sin(rotation);
  *parts = {(m[1][1] * m[1][0] + m[0][1] * m[0][0]) / determinant, c * m[0][0] + s * m[1][0],
            c * m[1][1] - s * m[0][1], rotation};
  if (parts->shear > -kNoShear && parts->shear < kNoShear) parts->shear = 0.0;
  if (parts->scaleY < 0.0) {
    parts->rotation += kAdapterPi;
    parts->scaleX = -parts->scaleX;
    parts->scaleY = -parts->scaleY;
  }
  return true;
}

}  // namespace egfsvg
