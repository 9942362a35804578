// Style tables for the tests of the cascade.
#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "attribute_support.h"
#include "model/name_tables.h"
#include "model/rmm_allocator.h"

inline bool operator==(const _svg_color& a, const _svg_color& b) {
  return a.red == b.red && a.green == b.green && a.blue == b.blue && a.colorExtra == b.colorExtra;
}
inline std::ostream& operator<<(std::ostream& out, const _svg_color& color) {
  return out << "(" << color.red << ", " << color.green << ", " << color.blue << ")";
}

namespace egfsvg::test {

// A reader whose style table is filled by hand; what it holds goes with it.
struct StyledReader {
  ~StyledReader() {
    for (std::int32_t i = 0; i < reader.styles.count; ++i) {
      DestroyAttElements(reader.styles.entries[i].value);
    }
    reader.styles.clear();
  }

  // Declarations by their attribute names, in order.
  void rule(const char* key, std::initializer_list<std::pair<const char*, const char*>> pairs) {
    AttNode* first = nullptr;
    AttNode** end = &first;
    for (const auto& [name, value] : pairs) {
      auto* node = static_cast<AttNode*>(RMM_CallocName(1, sizeof(AttNode), RMM_SITE));
      node->code = GetAttType(name);
      std::strncpy(node->name, name, kAttribNameSize - 1);
      node->value = duplicateText(value, RMM_SITE);
      node->valueLength = static_cast<std::int32_t>(std::strlen(value)) + 1;
      *end = node;
      end = &node->next;
    }
    reader.styles.insert(duplicateText(key, RMM_SITE), first);
  }
  // A rule that sets the fill.
  void fill(const std::string& key, const char* color) { rule(key.c_str(), {{"fill", color}}); }

  CHandlerReader reader;
};

inline const _svg_color kUnset{255, 255, 255, 0};  // what no rule has touched
inline const _svg_color kRed{255, 0, 0, 0};
inline const _svg_color kGreen{0, 128, 0, 0};
inline const _svg_color kBlue{0, 0, 255, 0};

}  // namespace egfsvg::test
