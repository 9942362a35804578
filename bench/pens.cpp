#include "bench/pens.h"

#include <vector>

namespace egfsvg::bench {
namespace {

std::vector<test::AreaPen> makeAreaPens() {
  std::vector<test::AreaPen> pens(kPens);
  for (std::size_t i = 0; i < kPens; ++i) {
    pens[i].width = 1.5 + static_cast<double>(i) / 16.0;
    pens[i].stroke = static_cast<std::uint32_t>(0x010203 * (i + 1));
    pens[i].fill = static_cast<std::uint32_t>(0x030105 * (i + 1));
    pens[i].joinStyle = kJoinRound;
  }
  return pens;
}

std::vector<test::LinePen> makeLinePens() {
  std::vector<test::LinePen> pens(kPens);
  for (std::size_t i = 0; i < kPens; ++i) {
    pens[i].width = areaPen(i).width;
    pens[i].stroke = areaPen(i).stroke;
  }
  return pens;
}

}  // namespace

const test::AreaPen& areaPen(std::size_t number) {
  static const std::vector<test::AreaPen> pens = makeAreaPens();
  return pens[number];
}

const test::LinePen& linePen(std::size_t number) {
  static const std::vector<test::LinePen> pens = makeLinePens();
  return pens[number];
}

}  // namespace egfsvg::bench
