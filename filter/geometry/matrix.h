// 3 by 3 matrices in row order that act on column vectors: x' = m[0][0] x + m[0][1] y + m[0][2].
#pragma once

namespace egfsvg {

using MatrixRows = double[3][3];

inline constexpr MatrixRows kIdentityRows{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};

/// The upper two rows of a matrix whose third row is (0, 0, 1), as all functions of a transform
/// list are and so their products.
using PlaneRows = double[2][3];

inline constexpr PlaneRows kIdentityPlane{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}};

void copyMatrix(const MatrixRows& from, MatrixRows& to);

/// left becomes left * right.
void multiplyMatrix(MatrixRows& left, const MatrixRows& right);

/// The identity times a matrix, to the bit: zeros lose their sign, and what is not finite spreads.
void multiplyIdentity(const MatrixRows& right, MatrixRows& product);

/// A product of upper rows. As long as all numbers are finite, it is that of the whole matrices
/// to the bit: even a zero takes its sign from all three products.
[[gnu::always_inline]] inline void multiplyPlane(PlaneRows& left, const PlaneRows& right) {
  for (double(&row)[3] : left) {
    const double a = row[0];
    const double b = row[1];
    const double c = row[2];
    row[0] = a * right[0][0] + b * right[1][0] + c * 0.0;
    row[1] = a * right[0][1] + b * right[1][1] + c * 0.0;
    row[2] = a * right[0][2] + b * right[1][2] + c * 1.0;
  }
}

/// Whether no number of the rows is an infinity or a NaN. Once one of them is in a product, the
/// product stays so.
bool isFinite(const PlaneRows& rows);

/// The whole matrix of the rows.
void setMatrix(const PlaneRows& rows, MatrixRows& whole);

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
