// From user space to the page: the map of one element, its transform list as a matrix.

#include <cmath>

#include "adapter_reader/owners.h"
#include "adapter_reader/pixel_scale.h"
#include "geometry/angles.h"
#include "geometry/matrix.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

/// A coordinate of a function that takes its axis from its place.
double pixelsAlong(const PixelScale& scale, AxisCode axis, const _svg_value& value) {
  return scale.pixels({value.unit, value.value, axis});
}

void translate(double x, double y, MatrixRows& running) {
  multiplyMatrix(running, {{1.0, 0.0, x}, {0.0, 1.0, y}, {0.0, 0.0, 1.0}});
}

void applyRotate(const PixelScale& scale, const _svg_value* args, MatrixRows& running) {
  const double x = pixelsAlong(scale, kAxisWidth, args[1]);
  const double y = pixelsAlong(scale, kAxisHeight, args[2]);
  const double angle = radiansOf(args[0].value);
  const double c = std::cos(angle);
  const double s = std::sin(angle);
  translate(x, y, running);
  multiplyMatrix(running, {{c, -s, 0.0}, {s, c, 0.0}, {0.0, 0.0, 1.0}});
  translate(-x, -y, running);
}

void applySkewX(const PixelScale&, const _svg_value* args, MatrixRows& running) {
  const double slope = std::tan(radiansOf(args[0].value));
  multiplyMatrix(running, {{1.0, slope, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}});
}

void applySkewY(const PixelScale&, const _svg_value* args, MatrixRows& running) {
  const double slope = std::tan(radiansOf(args[0].value));
  multiplyMatrix(running, {{1.0, 0.0, 0.0}, {slope, 1.0, 0.0}, {0.0, 0.0, 1.0}});
}

void applyMatrix(const PixelScale& scale, const _svg_value* args, MatrixRows& running) {
  multiplyMatrix(running, {{args[0].value, args[2].value, scale.pixels(args[4])},
                           {args[1].value, args[3].value, scale.pixels(args[5])},
                           {0.0, 0.0, 1.0}});
}

void applyTranslate(const PixelScale& scale, const _svg_value* args, MatrixRows& running) {
  translate(pixelsAlong(scale, kAxisWidth, args[0]), pixelsAlong(scale, kAxisHeight, args[1]),
            running);
}

void applyScale(const PixelScale&, const _svg_value* args, MatrixRows& running) {
  multiplyMatrix(running, {{args[0].value, 0.0, 0.0}, {0.0, args[1].value, 0.0}, {0.0, 0.0, 1.0}});
}

struct TransformRow {
  TransformKind kind;
  std::int32_t argCount;  // arguments that the function reads
  void (*apply)(const PixelScale& scale, const _svg_value* args, MatrixRows& running);
};

constexpr TransformRow kTransformRows[] = {
    {kRotate, 3, applyRotate}, {kSkewX, 1, applySkewX},         {kSkewY, 1, applySkewY},
    {kMatrix, 6, applyMatrix}, {kTranslate, 2, applyTranslate}, {kScale, 2, applyScale},
};

/// Multiplies one entry in. An unknown kind, or one without its arguments, changes nothing.
void applyEntry(const PixelScale& scale, const transformEntry& entry, MatrixRows& running) {
  for (const TransformRow& row : kTransformRows) {
    if (row.kind != entry.kind) continue;
    if (entry.args != nullptr && entry.argCount >= row.argCount) {
      row.apply(scale, entry.args, running);
    }
    return;
  }
}

struct MapRelease {
  void operator()(_viewPortMap* map) const {
    RMM_Free(map->userSpace);
    RMM_Free(map->viewBox);
    RMM_Free(map);
  }
};

/// A zeroed map with its parts: the adapter's own block, or a new one while that is out.
_viewPortMap* takeMap(MapBlock& block) {
  if (!block.inUse) {
    block.inUse = true;
    block.userSpace = {};
    block.viewBox = {};
    block.map = {};
    block.map.userSpace = &block.userSpace;
    block.map.viewBox = &block.viewBox;
    return &block.map;
  }
  std::unique_ptr<_viewPortMap, MapRelease> map(allocateZeroed<_viewPortMap>(RMM_SITE));
  if (!map) return nullptr;
  map->userSpace = allocateZeroed<_userSpace>(RMM_SITE);
  map->viewBox = allocateZeroed<_viewBox>(RMM_SITE);
  return map->userSpace != nullptr && map->viewBox != nullptr ? map.release() : nullptr;
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

_viewPortMap* CAdapterReader::_findMapMatrix(_svg_common* element, _svg_viewbox* box,
                                             _svg_pa_viewports* ports) {
  _viewPortMap* found = takeMap(state.mapBlock);
  if (found == nullptr) return nullptr;
  found->viewport = ports;
  found->viewBox->box = box;
  found->userSpace->transforms = element->transforms;
  found->userSpace->transformCount = element->transformCount;
  _svgViewPortMatrix(found);
  _svgViewBoxMatrix(found->viewBox);
  _svgUserSpaceMatrix(found->userSpace);
  if (element->transformCount <= 0) return found;  // a product with the identity changes nothing
  MultMatrix(&found->matrix, &found->viewBox->matrix);
  MultMatrix(&found->matrix, &found->userSpace->matrix);
  return found;
}

void CAdapterReader::_freeMapMatrix(_viewPortMap* done) {
  if (done == nullptr) return;
  if (done == &state.mapBlock.map) {
    state.mapBlock.inUse = false;
  } else {
    MapRelease()(done);
  }
}

void CAdapterReader::_transformPoint(_mpl_spacept_tag* point, _viewPortMap* by) {
  const MatrixRows& m = by->matrix.m;
  const double x = static_cast<double>(point->x);
  const double y = static_cast<double>(point->y);
  *point = {static_cast<float>(x * m[0][0] + y * m[0][1] + m[0][2] * kSpaceUnits),
            static_cast<float>(x * m[1][0] + y * m[1][1] + m[1][2] * kSpaceUnits)};
}

void CAdapterReader::InitMatrix(_transformMatrix& matrix) { matrix = {}; }

void CAdapterReader::MultMatrix(_transformMatrix* a, _transformMatrix* b) {
  multiplyMatrix(a->m, b->m);
}

/// Kept: a viewport that is named leaves the matrix zero; no caller names one.
void CAdapterReader::_svgViewPortMatrix(_viewPortMap* target) {
  InitMatrix(target->matrix);
  if (target->viewport == nullptr) copyMatrix(kIdentityRows, target->matrix.m);
}

/// Kept: a view box is not fitted to its viewport.
void CAdapterReader::_svgViewBoxMatrix(_viewBox* box) { copyMatrix(kIdentityRows, box->matrix.m); }

void CAdapterReader::_svgUserSpaceMatrix(_userSpace* space) {
  MatrixRows& running = space->matrix.m;
  if (space->transformCount <= 0 || space->transforms == nullptr) {
    copyMatrix(kIdentityRows, running);
    return;
  }
  const PixelScale scale(*this);
  const std::int32_t known =
      state.transforms.match({scale.resolution(), viewportWidth, viewportHeight}, space->transforms,
                             space->transformCount, running);
  for (std::int32_t i = known; i < space->transformCount; ++i) {
    applyEntry(scale, space->transforms[i], running);
    state.transforms.keep(space->transforms[i], i, running);
  }
}

int CAdapterReader::svg_DecomposeMatrix(double (*matrix)[3], double* shear, double* scaleX,
                                        double* scaleY, double* rotation) {
  MatrixRows rows;
  for (int i = 0; i < 3; ++i) {
    for (int k = 0; k < 3; ++k) rows[i][k] = matrix[i][k];
  }
  Decomposition parts;
  const bool regular = decomposeMatrix(rows, &parts);
  *shear = parts.shear;
  *scaleX = parts.scaleX;
  *scaleY = parts.scaleY;
  *rotation = parts.rotation;
  return regular ? 0 : -1;
}
