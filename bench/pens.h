// The pens of the shapes that are written.
#pragma once

#include <cstddef>

#include "tests/support/egf_builder.h"

namespace egfsvg::bench {

inline constexpr std::size_t kPens = 50;

/// The pens by number, below kPens.
const test::AreaPen& areaPen(std::size_t number);
const test::LinePen& linePen(std::size_t number);

}  // namespace egfsvg::bench
