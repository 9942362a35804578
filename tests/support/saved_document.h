// A document with a drawing, saved whole to a text.
#pragma once

#include <string>

#include "dyna/svgdyna.h"
#include "embedded_host/host.h"
#include "tests/support/egf_builder.h"

namespace egfsvg::test {

// A document and a view on it, both gone at the end.
class SavedDocument {
 public:
  explicit SavedDocument(double dotsPerInch = 96.0);
  ~SavedDocument();
  SavedDocument(const SavedDocument&) = delete;
  SavedDocument& operator=(const SavedDocument&) = delete;

  HostHandle document() const { return document_; }
  HostHandle view() const { return view_; }

  // Makes the tree the document's drawing.
  void take(TreeBuilder& tree);
  // Reads a drawing into the document; the result of the read.
  std::int32_t read(const std::string& svg);

  // Saves; `written` is what the output holds afterwards, nothing when it was discarded.
  std::int32_t save(std::string* written, int compress = 0) const;
  // The text of a good save.
  std::string text() const;
  // References on the drawing's tree block.
  std::uint32_t treeReferences() const;

 private:
  HostHandle document_;
  HostHandle view_;
};

// The text of a gzip file, several members too; throws std::runtime_error for damage.
std::string unpacked(const std::string& bytes);

// The lines of a text without their line ends.
std::vector<std::string> linesOf(const std::string& text);

// The lines that stand for elements: those between the line of the outermost svg and the one of
// defs, both left out.
std::vector<std::string> elementLines(const std::string& text);

}  // namespace egfsvg::test
