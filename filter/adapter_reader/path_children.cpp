#include "adapter_reader/path_children.h"

namespace egfsvg {

void PathChildren::measure(_egf_obj* child) {
  _mpl_spacerect_tag mer;
  if (EEL_GetObjectMer(child, &mer, 0) != 0) return;
  const _mpl_spacept_tag corners[2] = {{mer.left, mer.top}, {mer.right, mer.bottom}};
  for (const _mpl_spacept_tag& corner : corners) box_.include(&corner);
}

}  // namespace egfsvg
