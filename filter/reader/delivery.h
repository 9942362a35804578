// What the walks of the second pass send, each form in one place.
#pragma once

#include "reader/envelope.h"
#include "reader/leaf_kinds.h"
#include "reader/release.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

/// Results are those of the callback: kGoOn, or how the enumeration ends. Syntax errors and a lack
/// of memory (which the reader knows) end it quietly.
class Delivery {
 public:
  Delivery(CHandlerReader& reader, _handlerEnumData* record, QV_FILEID* file)
      : reader_(reader), record_(record), file_(file) {}

  /// A leaf: made, parsed, sent and destroyed.
  int sendLeaf(const LeafKind& kind, _svg_common* parent);
  /// A leaf of a switch: sent when its tests pass, which `passes` then says.
  int sendIfPassing(const LeafKind& kind, _svg_common* parent, bool& passes);
  /// A leaf that is sent also when it could not be read to its end.
  int sendEvenBroken(const LeafKind& kind, _svg_common* parent);
  /// An svg that has opened: a plain copy of its record.
  int sendSvg(const _svg_svg& svg);
  /// A group that has opened, of which defaults alone are told.
  int sendGroup();
  /// A markup group, which ends with its member.
  int sendMarkup(Owned<_svg_group> group);
  /// An `a` with its children. With `tested`, only when its tests pass, which it then says.
  int sendLink(_svg_common* parent, bool* tested = nullptr);
  /// kTagEndSvg or kTagEndGroup.
  int sendCloser(int type);
  /// Any other object.
  int send(Envelope& envelope);

  /// What a `use` names, drawn in its place: kOk, or how the enumeration ends.
  int drawTarget(_svg_group& use);

  CHandlerReader& reader() const { return reader_; }
  _handlerEnumData* record() const { return record_; }
  QV_FILEID* file() const { return file_; }

 private:
  enum class Broken { kDropped, kSent };
  int sendParsed(const LeafKind& kind, _svg_common* parent, bool* tested, Broken broken);
  int call(Envelope& envelope);

  CHandlerReader& reader_;
  _handlerEnumData* record_;
  QV_FILEID* file_;
};

/// True when the tag that stands at `index`, whose attributes are read, closes itself.
bool isTagClosed(CHandlerReader& reader, int index);

/// On to a closing tag, past everything.
void passTo(CHandlerReader& reader, int closer);

/// The result of a walk inside another: plain success and a quiet stop are kOk.
int nestedResult(int keepGoing);

}  // namespace egfsvg
