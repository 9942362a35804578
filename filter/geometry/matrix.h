// 3 by 3 matrices in row order that act on column vectors: x' = m[0][0] x + m[0][1] y + m[0][2].
#pragma once

namespace egfsvg {

using MatrixRows = double[3][3];

inline constexpr MatrixRows kIdentityRows{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};

/// The upper two rows of a matrix whose third is (0, 0, 1), as all functions of a transform list
/// are and so their products. It stands in columns, so that both rows are computed at once; the
/// numbers are in the order of SVG's matrix().
using PlaneColumns = double[3][2];

inline constexpr PlaneColumns kIdentityPlane{{1.0, 0.0}, {0.0, 1.0}, {0.0, 0.0}};

void copyMatrix(const MatrixRows& from, MatrixRows& to);

/// left becomes left * right.
void multiplyMatrix(MatrixRows& left, const MatrixRows& right);

/// The identity times a matrix, to the bit: zeros lose their sign, and what is not finite spreads.
void multiplyIdentity(const MatrixRows& right, MatrixRows& product);

/// left becomes left * right. As long as all numbers are finite, it is the product of the whole
/// matrices to the bit: even a zero takes its sign from all three products.
[[gnu::always_inline]] inline void multiplyPlane(PlaneColumns& left, const PlaneColumns& right) {
  const PlaneColumns a{
      {left[0][0], left[0][1]}, {left[1][0], left[1][1]}, {left[2][0], left[2][1]}};
  for (int row = 0; row < 2; ++row) {
    left[0][row] = a[0][row] * right[0][0] + a[1][row] * right[0][1] + a[2][row] * 0.0;
  }
  for (int row = 0; row < 2; ++row) {
    left[1][row] = a[0][row] * right[1][0] + a[1][row] * right[1][1] + a[2][row] * 0.0;
  }
  for (int row = 0; row < 2; ++row) {
    left[2][row] = a[0][row] * right[2][0] + a[1][row] * right[2][1] + a[2][row] * 1.0;
  }
}

/// Whether no number is an infinity or a NaN. Once one of them is in a product, the product stays
/// so.
bool isFinite(const PlaneColumns& plane);

/// The whole matrix.
void setMatrix(const PlaneColumns& plane, MatrixRows& whole);

/// The same of a plane whose numbers are all finite: its zeros lose their sign.
inline void multiplyIdentity(const PlaneColumns& finite, MatrixRows& product) {
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column) product[row][column] = finite[column][row] + 0.0;
  }
  product[2][0] = 0.0;
  product[2][1] = 0.0;
  product[2][2] = 1.0;
}

/// A matrix as shear, then scale, then rotation in radians.
struct Decomposition {
  double shear;
  double scaleX;
  double scaleY;
  double rotation;
};

/// False, with all parts 0, for a singular matrix. A mirror comes out as half a turn and a negative
/// scaleX; scaleY is never negative. A shear below a millionth counts as none.
bool decomposeMatrix(const MatrixRows& matrix, Decomposition* parts);

}  // namespace egfsvg
