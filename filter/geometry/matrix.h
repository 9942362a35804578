// 3 by 3 matrices in row order that act on column vectors: x' = m[0][0] x + m[0][1] y + m[0][2].
#pragma once

namespace egfsvg {

using MatrixRows = double[3][3];

inline constexpr MatrixRows kIdentityRows{{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}};

void copyMatrix(const MatrixRows& from, MatrixRows& to);

/// left becomes left * right.
void multiplyMatrix(MatrixRows& left, const MatrixRows& right);

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
