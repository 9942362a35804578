// UTF-8 by bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace egfsvg {

// Bytes of the well-formed character that text begins with; 0 when it begins with none. Overlong
// forms, surrogates and what lies beyond U+10FFFF are not well-formed.
std::size_t utf8Length(std::string_view text);

// The text as a terminal may be given it: each byte of a control character, and each that is no
// UTF-8, stands as "\xNN".
std::string printableText(std::string_view text);

}  // namespace egfsvg
