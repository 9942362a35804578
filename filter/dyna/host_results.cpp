#include "dyna/host_results.h"

#include "frame/result_codes.h"

namespace egfsvg {
namespace {

/// Results of the host.
enum HostResult : std::int32_t {
  kHostGood = 0,
  kHostException = -6408,
  kHostRefused = 1,
  kHostNoMemory = 2,
  kHostNothingThere = 8,
  kHostEnded = 4096,
  kHostFailed = -1,
};

/// Codes that the filter itself no longer gives; hosts know them still.
constexpr std::int32_t kFormerWriteFault = -5204;
constexpr std::int32_t kFormerEnd = -5215;

struct ResultRow {
  std::int32_t code;
  HostResult result;
};

constexpr ResultRow kResults[] = {
    {kOk, kHostGood},
    {kExceptionCaught, kHostException},
    {kMissingField, kHostRefused},
    {kOutOfMemory, kHostNoMemory},
    {kFormerWriteFault, kHostRefused},
    {kUnknownWriteType, kHostRefused},
    {kLineNotWritten, kHostRefused},
    {kFormerEnd, kHostEnded},
    {kNothingToRead, kHostNothingThere},
    {kNoHandler, kHostRefused},
};

}  // namespace

std::int32_t hostResult(std::int32_t code) {
  for (const ResultRow& row : kResults) {
    if (row.code == code) return row.result;
  }
  return kHostFailed;
}

}  // namespace egfsvg
