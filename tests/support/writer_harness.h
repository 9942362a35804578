// The serialiser alone: records in, the lines of FLR_PutLine out.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "embedded_host/host_files.h"
#include "frame/entry_records.h"
#include "writer/svg_handlerwriter.h"

namespace egfsvg::test {

/// Writes records of one type each and keeps the lines.
class WriterHarness {
 public:
  WriterHarness() : stream_(egfhost::openMemoryOutput("out.svg", &bytes_)) {
    egfhost::setLineHook([this](std::string_view line) -> std::optional<int> {
      lines.emplace_back(line);
      return answer;
    });
  }
  ~WriterHarness() {
    egfhost::setLineHook({});
    FLR_Close(stream_);
  }
  WriterHarness(const WriterHarness&) = delete;
  WriterHarness& operator=(const WriterHarness&) = delete;

  template <class Record>
  int write(std::int32_t type, const Record& record) {
    std::vector<std::uint64_t> envelope((sizeof(_handlerWriteObject) + sizeof(Record)) / 8 + 1);
    auto* object = reinterpret_cast<_handlerWriteObject*>(envelope.data());
    object->stream = stream_;
    object->type = type;
    object->size = static_cast<std::int32_t>(sizeof(Record));
    std::memcpy(object->payload<char>(), &record, sizeof(Record));
    return writer_.WriteObject(object);
  }
  int write(std::int32_t type) { return write(type, 0); }

  /// The lines so far, joined by "|".
  std::string text() const {
    std::string all;
    for (const std::string& line : lines) all += (all.empty() ? "" : "|") + line;
    return all;
  }

  std::vector<std::string> lines;
  std::optional<int> answer;  // what FLR_PutLine returns, when set

 private:
  std::string bytes_;
  HostHandle stream_;
  CHandlerWriter writer_;
};

}  // namespace egfsvg::test
