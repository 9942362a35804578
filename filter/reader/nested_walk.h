// A walk over tags inside the enumeration: what a reference names, or the children of a switch. It
// opens and closes containers of its own and leaves those around it alone.
#pragma once

#include "reader/delivery.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

class NestedWalk {
 public:
  NestedWalk(const Delivery& delivery, _svg_common* parent);
  ~NestedWalk();
  NestedWalk(const NestedWalk&) = delete;
  NestedWalk& operator=(const NestedWalk&) = delete;

 protected:
  CHandlerReader& reader() const { return delivery_.reader(); }
  /// True while a container of this walk is open.
  bool isInside() const { return opened_ > 0 && (svgDepth_ > 0 || groupDepth_ > 0); }
  /// True inside a container that was not sent, so that nothing in it is.
  bool isSilent() const { return silentFrom_ > 0; }

  /// Opens what stands at the tag. With `tested`, it is sent when its tests pass, which is then
  /// told.
  void openSvg(bool* tested = nullptr);
  void openGroup(bool* tested = nullptr);
  /// kTagEndSvg, also for a symbol, or kTagEndGroup.
  void close(int closer);
  /// Draws a `use`, as above.
  void drawUse(bool* tested = nullptr);
  /// Closes what is still open, as far as the callback wants to hear it.
  void closeAll();
  void stopQuietly();

  Delivery delivery_;
  int keepGoing_;
  int tag_;
  int tagIndex_ = 0;
  bool tagIsGiven_ = false;  // the work of a tag has given the next one
  _svg_common* parent_;      // top of the chain of open containers

 private:
  /// Takes an opened container in; true when it is to be sent.
  bool enter(_svg_common* opened, const _svg_ta& tests, bool* tested);

  int opened_ = 0;      // records of this walk that are open, the last of them the parent
  int silentFrom_ = 0;  // their number where the one opened that is not sent; 0 for none
  int svgDepth_ = 0;    // counted by tags
  int groupDepth_ = 0;
  const std::uint32_t nesting_;
};

}  // namespace egfsvg
