// A drawing and the lines that it is written as: the entry points of the writer over a tree of
// objects, called as the whole-file layer calls them.
#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "adapter_writer/svg_adapterwriter.h"
#include "embedded_host/host_documents.h"
#include "embedded_host/host_files.h"
#include "frame/svghinterface.h"
#include "tests/support/egf_builder.h"

namespace egfsvg::test {

using Lines = std::vector<std::string>;

/// The lines between the first that starts with `from` and the next that starts with `to`.
inline Lines linesBetween(const Lines& lines, std::string_view from, std::string_view to) {
  const auto starts = [](std::string_view start) {
    return [start](std::string_view line) { return line.substr(0, start.size()) == start; };
  };
  auto first = std::find_if(lines.begin(), lines.end(), starts(from));
  if (first == lines.end()) return {};
  ++first;
  return {first, std::find_if(first, lines.end(), starts(to))};
}

/// A writer that is open, with its document told, until its scope ends.
class OpenWriter {
 public:
  OpenWriter(HostHandle stream, HostHandle document) : stream_(stream) {
    _adapterOpenWriter open{0, stream};
    if (SVGA_OpenWriter(&open) != 0) throw std::runtime_error("no writer for a test");
    writer_ = open.writer;
    attachWriter(writer_, document, ISL_GetViewProperty(document, 0, kViewMap));
  }
  ~OpenWriter() {
    _adapterCloseWriter close{writer_};
    SVGA_CloseWriter(&close);
  }
  OpenWriter(const OpenWriter&) = delete;
  OpenWriter& operator=(const OpenWriter&) = delete;

  CAdapterWriter& operator*() const { return *at<CAdapterWriter>(writer_); }
  CAdapterWriter* operator->() const { return at<CAdapterWriter>(writer_); }

  _adapterWriteData request(HostHandle tree, std::string_view comment = {}) const {
    _adapterWriteData data{writer_, stream_, {}, 1, tree};
    comment.copy(data.comment, sizeof data.comment - 1);
    return data;
  }
  int write(HostHandle tree, std::string_view comment = {}) {
    _adapterWriteData data = request(tree, comment);
    return SVGA_WriteData(&data, FLR_GetStorage(stream_));
  }

 private:
  HostHandle stream_;
  HostHandle writer_ = 0;
};

class DrawingWriter {
 public:
  /// Pixels per inch of the view; y is as x when it is 0.
  explicit DrawingWriter(double x = 96.0, double y = 0.0)
      : document_(egfhost::createDocument()),
        stream_(egfhost::openMemoryOutput("drawing.svg", &bytes_)) {
    MPL_SetResolution(x, y == 0.0 ? x : y, 1, 0, ISL_GetViewProperty(document_, 0, kViewMap));
    egfhost::setLineHook([this](std::string_view line) { return keep(line); });
  }
  ~DrawingWriter() {
    egfhost::setLineHook({});
    FLR_Close(stream_);
    egfhost::destroyDocument(document_);
  }
  DrawingWriter(const DrawingWriter&) = delete;
  DrawingWriter& operator=(const DrawingWriter&) = delete;

  HostHandle document() const { return document_; }
  HostHandle stream() const { return stream_; }

  /// Writes the tree with a writer of its own and keeps the lines; returns the code.
  int write(std::string_view comment = {}) {
    lines.clear();
    OpenWriter writer(stream_, document_);
    return writer.write(tree.handle(), comment);
  }

  /// Of the objects, of the gradients, of the style sheet.
  Lines body() const { return linesBetween(lines, "<svg", "   <defs>"); }
  Lines gradients() const { return linesBetween(lines, "   <defs>", "       <style"); }
  Lines rules() const { return linesBetween(lines, "       <style", "       ]]></style>"); }
  /// The line that opens the outermost svg.
  std::string root() const {
    const Lines from = linesBetween(lines, "]>", "\n");
    return from.empty() ? std::string() : from.front();
  }

  TreeBuilder tree;
  Lines lines;
  /// Asked for each line before it is written: a value is what FLR_PutLine returns instead. Lines
  /// that fail are not kept.
  std::function<std::optional<int>(std::string_view line)> answer;

 private:
  std::optional<int> keep(std::string_view line) {
    const std::optional<int> result = answer ? answer(line) : std::nullopt;
    if (!result || *result != -1) lines.emplace_back(line);
    return result;
  }

  HostHandle document_;
  std::string bytes_;
  HostHandle stream_;
};

}  // namespace egfsvg::test
