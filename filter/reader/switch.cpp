// The children of a switch are read one by one; the first whose tests pass is sent.
#include "frame/result_codes.h"
#include "reader/attribute_loop.h"
#include "reader/nested_walk.h"
#include "reader/reports.h"
#include "reader/svg_handlerreader.h"
#include "reader/tag_table.h"

using namespace egfsvg;  // NOLINT: tag codes all over

namespace {

constexpr std::uint32_t kMaxNestedSwitches = 64;

/// Past a switch and those in it.
void passSwitch(CHandlerReader& reader) {
  for (int depth = 1; depth > 0;) {
    int index = 0;
    const int tag = reader.GetNextTag(&index);
    if (tag == kTagEnd) return;
    if (tag == kTagEndSwitch) --depth;
    if (tag == kTagSwitch) ++depth;
  }
}

class SwitchWalk : public NestedWalk {
 public:
  SwitchWalk(const Delivery& delivery, _svg_common* owner) : NestedWalk(delivery, owner) {
    ++reader().state.switchDepth;
  }
  ~SwitchWalk() { --reader().state.switchDepth; }

  int run() {
    for (;;) {
      tag_ = reader().GetNextTag(&tagIndex_);
      do {
        if (tag_ == kTagEnd || tag_ == kTagEndSwitch) return finish();
        tagIsGiven_ = false;
        if (const Work work = works().find(tag_)) (this->*work)();
        if (reader().state.outOfMemory) return kOutOfMemory;
        ++reader().secondPassTags;
        if (keepGoing_ != kGoOn) return finish();
      } while (tagIsGiven_);
      if (!isInside() && chosen_) return finish();
    }
  }

 private:
  using Work = void (SwitchWalk::*)();

  int finish() {
    closeAll();
    const int result = nestedResult(keepGoing_);
    if (result == kOk && tag_ != kTagEnd && tag_ != kTagEndSwitch) passTo(reader(), kTagEndSwitch);
    return result;
  }

  /// Children of the switch itself are tested; what stands inside the chosen one is not.
  bool* tested() { return isInside() ? nullptr : &chosen_; }

  void leaf() {
    if (isSilent()) return;
    const LeafKind& kind = *leafKind(tag_);
    keepGoing_ = isInside() ? delivery_.sendLeaf(kind, parent_)
                            : delivery_.sendIfPassing(kind, parent_, chosen_);
  }
  void svg() { openSvg(tested()); }
  void group() { openGroup(tested()); }
  void link() {
    if (!isSilent()) keepGoing_ = delivery_.sendLink(parent_, tested());
  }
  void use() {
    if (!isSilent()) drawUse(tested());
  }
  void define() { reader().EnumerateTemplateData(parent_, tagIndex_, tag_); }
  void endSvg() { close(kTagEndSvg); }
  void endGroup() { close(kTagEndGroup); }

  void comment() {
    if (reader().FindCommentEnd() == 0) return;
    reportElement(reader(), Diagnostic::kSyntaxError, kTagComment, RMM_SITE);
    reader().state.stopped = true;
    stopQuietly();
  }

  void choose() {
    _svg_switch* record = nullptr;
    _svg_common* opened = reader().ParseSwitchTagData(parent_, &record);
    if (record == nullptr) return;
    bool passes = true;
    if (bool* test = tested()) passes = *test = reader()._evaluateTestAtt(record->ta) != 0;
    if (isSilent() || !passes) return passSwitch(reader());
    const int result =
        reader().EnumerateSwitchTagData(delivery_.record(), opened, delivery_.file());
    if (result != kOk) keepGoing_ = result;
    if (reader().state.stopped) stopQuietly();
  }

  static const TagTable<Work>& works() {
    using Self = SwitchWalk;
    static constexpr TagRow<Work> kRows[] = {
        {kTagPath, &Self::leaf},     {kTagRect, &Self::leaf},      {kTagCircle, &Self::leaf},
        {kTagEllipse, &Self::leaf},  {kTagLine, &Self::leaf},      {kTagPolyline, &Self::leaf},
        {kTagPolygon, &Self::leaf},  {kTagImage, &Self::leaf},     {kTagSvg, &Self::svg},
        {kTagGroup, &Self::group},   {kTagLink, &Self::link},      {kTagUse, &Self::use},
        {kTagDefs, &Self::define},   {kTagEntity, &Self::define},  {kTagSymbol, &Self::define},
        {kTagMarker, &Self::define}, {kTagPattern, &Self::define}, {kTagComment, &Self::comment},
        {kTagSwitch, &Self::choose}, {kTagEndSvg, &Self::endSvg},  {kTagEndGroup, &Self::endGroup},
    };
    static constexpr TagTable<Work> kTable(kRows);
    return kTable;
  }

  bool chosen_ = false;
};

}  // namespace

/// Inside a switch whose attributes are read, up to its end. `parent` is its record.
int CHandlerReader::EnumerateSwitchTagData(_handlerEnumData* record, _svg_common* parent,
                                           QV_FILEID* file) {
  if (state.switchDepth >= kMaxNestedSwitches) {
    reportLimit(*this, Diagnostic::kNestingLimit, "switch", RMM_SITE);
    passSwitch(*this);
    return kOk;
  }
  return SwitchWalk(Delivery(*this, record, file), parent).run();
}

int CHandlerReader::_evaluateTestAtt(_svg_ta ta) {
  return ta.requiredFeatures.passes * ta.requiredExtensions.passes * ta.systemLanguage.passes;
}
