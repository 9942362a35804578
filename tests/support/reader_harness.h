// A reader over a text, and what a read of it hands to its callback.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "embedded_host/host_files.h"
#include "frame/entry_records.h"
#include "frame/result_codes.h"
#include "host/files.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg::test {

/// A host stream over a text.
class TextSource {
 public:
  explicit TextSource(std::string text, std::string name = "drawing.svg")
      : stream_(egfhost::openMemory(std::move(name), std::move(text))) {}
  ~TextSource() { FLR_Close(stream_); }
  TextSource(const TextSource&) = delete;
  TextSource& operator=(const TextSource&) = delete;

  HostHandle stream() const { return stream_; }

 private:
  HostHandle stream_;
};

/// A reader that stands at the start of a text.
struct TextReader {
  explicit TextReader(std::string text) : source(std::move(text)) {
    reader.buffer.setFileHandle(source.stream());
  }
  CHandlerReader* operator->() { return &reader; }
  CHandlerReader& operator*() { return reader; }

  TextSource source;
  CHandlerReader reader;
};

/// What looks at an object during the callback; its result is the callback's.
using Look = std::function<std::int32_t(_handlerObject&)>;

/// The types that a read handed over, in order, and its result.
struct ReadOutcome {
  std::vector<int> types;
  int result = 0;

  bool operator==(const ReadOutcome&) const = default;
};

inline void PrintTo(const ReadOutcome& outcome, std::ostream* out) {
  *out << testing::PrintToString(outcome.types) << "; " << outcome.result;
}

/// Receives the objects of reads, which do not overlap.
class Receiver {
 public:
  explicit Receiver(Look look) : look_(std::move(look)) {}

  static std::int32_t receive(_handlerObject* object) {
    auto* self = static_cast<Receiver*>(object->owner);
    self->types.push_back(object->type);
    return self->look_ ? self->look_(*object) : std::int32_t{kGoOn};
  }

  std::vector<int> types;

 private:
  Look look_;
};

/// One read of a source by a given reader.
inline ReadOutcome readWith(CHandlerReader& reader, HostHandle source,
                            const std::string& pageName = "Page 1", Look look = {}) {
  Receiver receiver(std::move(look));
  _handlerEnumData record{};
  record.source = source;
  pageName.copy(record.pageName, sizeof record.pageName - 1);
  record.owner = &receiver;
  record.callback = &Receiver::receive;
  QV_FILEID file{};
  std::strcpy(file.baseName, "drawing.svg");
  const int result = reader.EnumerateData(&record, &file);
  return {std::move(receiver.types), result};
}

/// One read of a text by a new reader.
inline ReadOutcome readText(std::string text, const std::string& pageName = "Page 1",
                            Look look = {}) {
  TextSource source(std::move(text));
  CHandlerReader reader;
  return readWith(reader, source.stream(), pageName, std::move(look));
}

/// A copy of the `number`-th record (from 0) that a read hands over with that type; the strings
/// that it points to are gone. A failure when there is none.
template <class Record>
Record nthRecord(const std::string& text, int type, int number = 0) {
  Record found{};
  int seen = 0;
  readText(text, "Page 1", [&](_handlerObject& object) {
    if (object.type == type && seen++ == number) found = *object.payload<Record>();
    return std::int32_t{kGoOn};
  });
  EXPECT_GT(seen, number) << "no object of type " << type << " in " << text;
  return found;
}

/// Runs a look at each record of that type while it is alive.
template <class Record, class LookAt>
void lookAtEach(const std::string& text, int type, LookAt lookAt) {
  int seen = 0;
  readText(text, "Page 1", [&](_handlerObject& object) {
    if (object.type == type) {
      ++seen;
      lookAt(*object.payload<Record>());
    }
    return std::int32_t{kGoOn};
  });
  EXPECT_GT(seen, 0) << "no object of type " << type << " in " << text;
}

}  // namespace egfsvg::test
