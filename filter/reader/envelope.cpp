#include "reader/envelope.h"

#include <algorithm>

#include "model/lifecycle.h"

namespace egfsvg {

namespace {

constexpr std::size_t kLargestRecord =
    std::max({sizeof(_svg_svg), sizeof(_svg_a), sizeof(_svg_group), sizeof(_svg_text),
              sizeof(_svg_path), sizeof(_svg_polygon), sizeof(_svg_image), sizeof(_svg_line),
              sizeof(_svg_markup_crossout), sizeof(_svg_markup_diamond)});
constexpr std::int32_t kEnvelopeSize = sizeof(_handlerObject) + kLargestRecord;

}  // namespace

Envelope::Envelope(CHandlerReader& reader, void* owner, int type, std::size_t size, int ownedAs)
    : reader_(reader), block_(reader.state.objects.take(kEnvelopeSize)), ownedAs_(ownedAs) {
  if (!isReady()) {
    reader.state.outOfMemory = true;
    return;
  }
  object()->owner = owner;
  object()->type = type;
  object()->size = static_cast<std::int32_t>(size);
}

Envelope::~Envelope() {
  if (filled_) svg_DestroyObjectAtt(payload<char>(), ownedAs_);
  reader_.state.objects.giveBack(block_);
}

}  // namespace egfsvg
