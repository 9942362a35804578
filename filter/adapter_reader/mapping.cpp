// From user space to the page: the map of one element, its transform list as a matrix.

#include "adapter_reader/owners.h"
#include "adapter_reader/pixel_scale.h"
#include "adapter_reader/point_map.h"
#include "adapter_reader/transform_list.h"
#include "geometry/matrix.h"
#include "model/rmm_allocator.h"

namespace egfsvg {
namespace {

struct MapRelease {
  void operator()(_viewPortMap* map) const {
    RMM_Free(map->userSpace);
    RMM_Free(map->viewBox);
    RMM_Free(map);
  }
};

/// The adapter's own block, or a new map with its parts while that is out. Matrices are not set.
_viewPortMap* takeMap(MapBlock& block) {
  if (!block.inUse) {
    block.inUse = true;
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

TransformScene sceneOf(const CAdapterReader& adapter, double resolution) {
  return {resolution, adapter.viewportWidth, adapter.viewportHeight};
}

/// Whether the own block's matrices are those of the element's list.
bool keepsMatricesOf(CAdapterReader& adapter, const _svg_common& element) {
  const ResolutionAtHand& resolution = adapter.state.resolution;
  const ListStamp kept = adapter.state.mapBlock.matricesOf;
  return kept != ListStamp::kNone && resolution.isKnown() &&
         kept == adapter.state.transforms.stampOf(sceneOf(adapter, resolution.pixelsPerInch),
                                                  element.transforms, element.transformCount);
}

/// The product of viewport, view box and user space.
void multiplyParts(CAdapterReader& adapter, _viewPortMap& map) {
  const bool hasList = map.userSpace->transformCount > 0;
  if (map.viewport == nullptr && hasList) {  // both matrices before the list's are the identity
    multiplyIdentity(map.userSpace->matrix.m, map.matrix.m);
    return;
  }
  adapter._svgViewPortMatrix(&map);
  if (!hasList) return;
  adapter.MultMatrix(&map.matrix, &map.viewBox->matrix);
  adapter.MultMatrix(&map.matrix, &map.userSpace->matrix);
}

void setParts(_viewPortMap& map, const _svg_common& element, _svg_viewbox* box,
              _svg_pa_viewports* ports) {
  map.viewport = ports;
  map.viewBox->box = box;
  map.userSpace->transforms = element.transforms;
  map.userSpace->transformCount = element.transformCount;
}

/// A map whose matrices are computed part by part; null when memory ran out.
[[gnu::noinline]] _viewPortMap* computeMap(CAdapterReader& adapter, const _svg_common& element,
                                           _svg_viewbox* box, _svg_pa_viewports* ports) {
  _viewPortMap* found = takeMap(adapter.state.mapBlock);
  if (found == nullptr) return nullptr;
  setParts(*found, element, box, ports);
  adapter._svgViewBoxMatrix(found->viewBox);
  adapter._svgUserSpaceMatrix(found->userSpace);
  multiplyParts(adapter, *found);
  if (found == &adapter.state.mapBlock.map) adapter.state.mapBlock.matricesOf = ListStamp::kNone;
  return found;
}

/// The product of a whole list whose numbers are not all finite.
[[gnu::noinline, gnu::cold]] void multiplyList(const PixelScale& scale, const _userSpace& space,
                                               _transformMatrix& product) {
  copyMatrix(kIdentityRows, product.m);
  for (std::int32_t i = 0; i < space.transformCount; ++i) {
    multiplyEntry(scale, space.transforms[i], product.m);
  }
}

/// The product along a list, from what is kept of the list before. False when a number is not
/// finite.
bool productOf(CAdapterReader& adapter, const PixelScale& scale, const _userSpace& space,
               PlaneColumns& product) {
  TransformCache& kept = adapter.state.transforms;
  const std::int32_t count = space.transformCount;
  const std::int32_t known =
      kept.match(sceneOf(adapter, scale.resolution()), space.transforms, count, product);
  for (std::int32_t i = known; i < count; ++i) {
    multiplyEntry(scale, space.transforms[i], product);
    kept.keep(space.transforms[i], i, product);
  }
  return isFinite(product);
}

/// The own block's matrices for the element at hand, whose viewport is not named: the identity, or
/// those of its list. Viewport and view box have no share in them.
[[gnu::noinline]] void computeOwnMatrices(CAdapterReader& adapter) {
  MapBlock& block = adapter.state.mapBlock;
  const _userSpace& space = block.userSpace;
  block.matricesOf = ListStamp::kNone;
  if (space.transformCount <= 0 || space.transforms == nullptr) {
    if (space.transformCount <= 0) block.matricesOf = ListStamp::kEmpty;
    copyMatrix(kIdentityRows, block.userSpace.matrix.m);
    copyMatrix(kIdentityRows, block.map.matrix.m);
    return;
  }
  const PixelScale scale(adapter);
  PlaneColumns product;
  if (productOf(adapter, scale, space, product)) [[likely]] {
    setMatrix(product, block.userSpace.matrix.m);
    multiplyIdentity(product, block.map.matrix.m);
  } else {
    multiplyList(scale, space, block.userSpace.matrix);
    multiplyIdentity(block.userSpace.matrix.m, block.map.matrix.m);
  }
  block.matricesOf = adapter.state.transforms.stampOfLast(space.transformCount);
}

}  // namespace
}  // namespace egfsvg

using namespace egfsvg;

/// The own block keeps its matrices for the next element, which mostly has the same transform list.
_viewPortMap* CAdapterReader::_findMapMatrix(_svg_common* element, _svg_viewbox* box,
                                             _svg_pa_viewports* ports) {
  MapBlock& block = state.mapBlock;
  if (block.inUse || ports != nullptr) [[unlikely]]
    return computeMap(*this, *element, box, ports);
  const bool kept = keepsMatricesOf(*this, *element);
  _viewPortMap* own = takeMap(block);
  setParts(*own, *element, box, nullptr);
  if (!kept) computeOwnMatrices(*this);
  return own;
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
  *point = PointMap(by->matrix)(*point);
}

void CAdapterReader::InitMatrix(_transformMatrix& matrix) { matrix = {}; }

void CAdapterReader::MultMatrix(_transformMatrix* a, _transformMatrix* b) {
  if (a == &state.mapBlock.map.matrix) state.mapBlock.matricesOf = ListStamp::kNone;
  multiplyMatrix(a->m, b->m);
}

/// Kept: a viewport that is named leaves the matrix zero; no caller names one.
void CAdapterReader::_svgViewPortMatrix(_viewPortMap* target) {
  if (target->viewport == nullptr) {
    copyMatrix(kIdentityRows, target->matrix.m);
  } else {
    InitMatrix(target->matrix);
  }
}

/// Kept: a view box is not fitted to its viewport.
void CAdapterReader::_svgViewBoxMatrix(_viewBox* box) { copyMatrix(kIdentityRows, box->matrix.m); }

void CAdapterReader::_svgUserSpaceMatrix(_userSpace* space) {
  if (space->transformCount <= 0 || space->transforms == nullptr) {
    copyMatrix(kIdentityRows, space->matrix.m);
    return;
  }
  const PixelScale scale(*this);
  PlaneColumns product;
  if (productOf(*this, scale, *space, product)) {
    setMatrix(product, space->matrix.m);
  } else {
    multiplyList(scale, *space, space->matrix);
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
