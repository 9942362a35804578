// The records that cross the module's surface and between its two layers. Plain, filled by the
// caller, dead when the call returns. The first field of each is the handle of the object behind
// the layer (a cage offset), written by the Open call.
#pragma once

#include <cstdint>

#include "host/wire.h"

namespace egfsvg {

inline constexpr int kRecordTextSize = 600;
inline constexpr int kQueryWords = 259;

/// Record types of the serialiser beyond the tag codes of elements.
enum WriteType : std::int32_t {
  kWriteHeader = 1,  // an _objectStream
  kWriteEnd = 2,     // writes nothing
  kWriteGradient = 29,
  kWriteRule = 37,  // of the style sheet
  kWriteScript = 39,
  kWriteEndDoctype = 1017,
  kWriteEndScript = 1018,
};

}  // namespace egfsvg

struct _handlerObject;

/// Receives each finished element: 1 goes on, 0 stops quietly, anything else is returned.
using HandlerCallback = std::int32_t (*)(_handlerObject*);

struct _adapterOpenReader {
  HostHandle reader;  // out
  HostHandle source;
};
using _handlerOpenReader = _adapterOpenReader;

struct _adapterOpenWriter {
  HostHandle writer;  // out
  HostHandle target;
};
using _handlerOpenWriter = _adapterOpenWriter;

struct _adapterPreprocess {
  HostHandle reader;
  HostHandle source;
};

struct _handlerPreprocess {
  HostHandle reader;
  char text[egfsvg::kRecordTextSize];  // out: decimal dots per inch, or empty
  HostHandle source;
};

/// `property`, `kind` and `value` head the 259 words of the query body.
struct _adapterQuery {
  HostHandle reader;
  HostHandle source;
  std::int32_t property;
  std::int32_t kind;
  std::int32_t value;
  std::int32_t rest[egfsvg::kQueryWords - 3];
};
using _handlerQuery = _adapterQuery;

struct _adapterReadData {
  HostHandle reader;
  HostHandle source;
  char pageName[egfsvg::kRecordTextSize];
  std::int32_t pageIndex;  // from 0
  HostHandle container;    // the page block that takes the page's objects
  HostHandle view;
};

struct _handlerEnumData {
  HostHandle reader;
  HostHandle source;
  char pageName[egfsvg::kRecordTextSize];
  void* owner;  // handed back in each _handlerObject
  HandlerCallback callback;
};

/// One element on its way to the callback. The element record follows at `payload()`, by value.
struct alignas(8) _handlerObject {
  void* owner;
  std::int32_t type;  // tag code, or 1000 and 1001 for closers
  std::int32_t size;  // of the payload record; the constant 4 for type 3

  template <class Record>
  Record* payload() {
    return reinterpret_cast<Record*>(this + 1);
  }
};

struct _adapterUnloadData {
  HostHandle reader;
  std::int32_t pageIndex;
};

/// What the two Close calls of each layer take: any record that starts with the handle.
struct _adapterCloseReader {
  HostHandle reader;
};
using _handlerCloseReader = _adapterCloseReader;

struct _adapterCloseWriter {
  HostHandle writer;
};
using _handlerCloseWriter = _adapterCloseWriter;

struct _adapterWriteData {
  HostHandle writer;
  HostHandle stream;
  char comment[egfsvg::kRecordTextSize];
  std::int32_t writeFlag;
  HostHandle objectTree;
};

/// The record of a header: one word, then the comment text.
struct _objectStream {
  std::int32_t reserved;
  char comment[egfsvg::kRecordTextSize];
};

/// One element on its way to the serialiser, record behind the envelope.
struct alignas(8) _handlerWriteObject {
  HostHandle handler;
  HostHandle stream;
  std::int32_t type;
  std::int32_t size;

  template <class Record>
  Record* payload() {
    return reinterpret_cast<Record*>(this + 1);
  }
};
