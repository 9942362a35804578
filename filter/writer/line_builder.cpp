#include "writer/line_builder.h"

#include "host/files.h"

namespace egfsvg {

int LineBuilder::put(HostHandle stream) {
  char* end = room(0);
  if (failed_) return -1;
  *end = '\0';
  return FLR_PutLine(text_.data(), stream);
}

}  // namespace egfsvg
