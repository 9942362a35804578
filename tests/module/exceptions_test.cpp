// Exceptions of the host on their way through the module, at every depth.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

#include "embedded_host/host.h"
#include "tests/module/guards.h"
#include "tests/module/loaded_module.h"

namespace egfsvg::test {
namespace {

constexpr std::int32_t kCaught = -5201;

constexpr const char* kSvg =
    "<!-- User agent resolution:120 dpi -->"
    "<svg id=\"s\" width=\"100\" height=\"50\" viewBox=\"0 0 100 50\">"
    "<style type=\"text/css\"><![CDATA[ rect{fill:red} ]]></style>"
    "<g id=\"Page_1\" stroke=\"blue\"><rect x=\"1\" width=\"30\" height=\"20\" rx=\"3\"/>"
    "<circle r=\"7\" fill=\"#123456\"/><ellipse rx=\"7\" ry=\"3\" transform=\"rotate(20)\"/>"
    "<line x2=\"40\" stroke-dasharray=\"5 3\"/><polygon points=\"1,1 9,1 9,9\"/></g></svg>";

constexpr const char* kNoContainer = "<rect x=\"1\" width=\"3\" height=\"3\"/>";

// A module state of the caller's own, which every call must put back.
class CallerState {
 public:
  CallerState() : before_(AfxSetModuleState(&mine_)) {}
  ~CallerState() {
    EXPECT_EQ(AfxGetModuleState(), &mine_);
    AfxSetModuleState(before_);
  }

 private:
  AFX_MODULE_STATE mine_{"caller", 1};
  AFX_MODULE_STATE* before_;
};

struct WalkCodes {
  std::int32_t open = 0, query = 0, preprocess = 0, read = 0, close = 0;

  bool has(std::int32_t code) const {
    return std::ranges::count(
               std::initializer_list<std::int32_t>{open, query, preprocess, read, close}, code) !=
           0;
  }
};

WalkCodes walk(const Drawing& drawing) {
  WalkCodes codes;
  _adapterOpenReader open = drawing.opening();
  codes.open = module().SVGA_OpenReader(&open);
  if (codes.open != 0) {
    EXPECT_EQ(open.reader, 0U);
    return codes;
  }
  _adapterQuery query{};
  query.reader = open.reader;
  query.source = drawing.source();
  query.property = 3;
  codes.query = module().SVGA_QueryProperty(&query);
  _adapterPreprocess preprocess{open.reader, drawing.source()};
  codes.preprocess = module().SVGA_PreprocessSource(&preprocess);
  _adapterReadData read = drawing.reading(open.reader);
  codes.read = module().SVGA_ReadData(&read, nullptr);
  _adapterCloseReader close{open.reader};
  codes.close = module().SVGA_CloseReader(&close);
  return codes;
}

struct FaultCall {
  const char* name;
  bool mayThrow;
};
constexpr FaultCall kFaultCalls[] = {
#define EGFHOST_FAULT_CALL(name, mayThrow) {#name, mayThrow},
#include "embedded_host/fault_calls.def"
#undef EGFHOST_FAULT_CALL
};

// Throws at the n-th call of that name during a whole walk.
void expectCaught(const char* call, std::uint64_t n) {
  SCOPED_TRACE(std::string(call) + " call " + std::to_string(n));
  const auto blocks = egfhost::memoryCounters().liveBlocks;
  const auto before = egfhost::exceptionCounts();
  {
    const Drawing drawing(kSvg);
    const CallerState state;
    ASSERT_TRUE(egfhost::throwAt(call, n));
    const WalkCodes codes = walk(drawing);
    EXPECT_EQ(egfhost::faultsStruck(), 1U);
    EXPECT_TRUE(codes.has(kCaught));
    EXPECT_EQ(codes.close, 0);
    egfhost::clearFaults();
  }
  const auto after = egfhost::exceptionCounts();
  EXPECT_EQ(after.made, before.made + 1);
  EXPECT_EQ(after.deleted, before.deleted + 1);
  EXPECT_EQ(egfhost::memoryCounters().liveBlocks, blocks);
}

TEST(Exceptions, EveryHostCallOfAReadMayThrow) {
  int throwing = 0;
  for (const FaultCall& call : kFaultCalls) {
    if (!call.mayThrow) continue;
    std::uint64_t calls = 0;
    {
      const Drawing drawing(kSvg);
      egfhost::countCalls();
      const WalkCodes codes = walk(drawing);
      EXPECT_EQ(codes.open | codes.query | codes.preprocess | codes.read | codes.close, 0);
      calls = egfhost::callCount(call.name);
      egfhost::clearFaults();
    }
    throwing += calls != 0 ? 1 : 0;
    for (std::uint64_t n = 1; n <= std::min<std::uint64_t>(calls, 20); ++n) {
      expectCaught(call.name, n);
    }
    if (calls > 20) expectCaught(call.name, calls);
  }
  EXPECT_GE(throwing, 5);
}

TEST(Exceptions, InTheCallbackItBecomesAFailingResult) {
  const Drawing drawing(kSvg);
  const CallerState state;
  OpenReader reader(drawing);
  egfhost::clearGaugeCounts();
  ASSERT_TRUE(egfhost::throwAt("EEL_AllocObject", 1));
  _adapterReadData read = drawing.reading(reader.handle());
  EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), kCaught);
  EXPECT_EQ(egfhost::faultsStruck(), 1U);
  egfhost::clearFaults();
  const auto gauge = egfhost::gaugeCounts();
  EXPECT_EQ(gauge.hits, 101U);  // the read cleaned up: the bar is full and closed
  EXPECT_EQ(gauge.levelEnds, 1U);
  EXPECT_EQ(gauge.ends, 1U);
  EXPECT_EQ(reader.close(), 0);
}

TEST(Exceptions, InTheLowerLayerItEndsThere) {
  const Drawing drawing(kSvg);
  _handlerOpenReader open{0, drawing.source()};
  ASSERT_EQ(module().SVGH_OpenReader(&open), 0);
  const CallerState state;
  ASSERT_TRUE(egfhost::throwAt("FLR_Read", 1));
  _handlerPreprocess preprocess{};
  preprocess.reader = open.reader;
  preprocess.source = drawing.source();
  EXPECT_EQ(module().SVGH_PreprocessSource(&preprocess), kCaught);
  egfhost::clearFaults();
  _handlerCloseReader close{open.reader};
  EXPECT_EQ(module().SVGH_CloseReader(&close), 0);
}

// The listener runs inside the host's log call, inside the callback, inside both layers.
class Listening {
 public:
  explicit Listening(egfhost::MessageListener listener) {
    egfhost::setMessageListener(std::move(listener));
  }
  ~Listening() { egfhost::setMessageListener({}); }
};

TEST(Exceptions, ThreeGuardsAreOpenInTheCallback) {
  const Drawing drawing(kNoContainer);
  OpenReader reader(drawing);
  const CallerState state;
  _adapterReadData read = drawing.reading(reader.handle());
  const unsigned before = moduleStateChanges();
  unsigned inside = 0;
  AFX_MODULE_STATE* current = nullptr;
  {
    const Listening listening([&](const egfhost::Message& message) {
      if (message.kind != egfhost::MessageKind::kLogged) return;  // the box comes first
      EXPECT_EQ(message.number, 34040);
      inside = moduleStateChanges() - before;
      current = AfxGetModuleState();
    });
    EXPECT_EQ(module().SVGA_ReadData(&read, nullptr), 0);
  }
  EXPECT_EQ(inside, 3U);
  EXPECT_EQ(current, AfxGetStaticModuleState());
  EXPECT_EQ(moduleStateChanges() - before, 6U);  // each guard closed what it opened
}

// An exception that the module knows nothing of.
struct HostsOwn {};

TEST(Exceptions, OfOtherTypesPassWithTheStatePutBack) {
  const Drawing drawing(kNoContainer);
  const CallerState state;
  OpenReader reader(drawing);
  _adapterReadData read = drawing.reading(reader.handle());
  const unsigned before = moduleStateChanges();
  {
    const Listening listening([](const egfhost::Message&) { throw HostsOwn(); });
    EXPECT_THROW(module().SVGA_ReadData(&read, nullptr), HostsOwn);
  }
  EXPECT_EQ(moduleStateChanges() - before, 6U);
  EXPECT_EQ(reader.close(), 0);
}

TEST(Exceptions, AFrameworkExceptionFromTheCallersOwnCallback) {
  const Drawing drawing(kSvg);
  const CallerState state;
  _handlerOpenReader open{0, drawing.source()};
  ASSERT_EQ(module().SVGH_OpenReader(&open), 0);
  int owner = 0;
  _handlerEnumData record{};
  record.reader = open.reader;
  record.source = drawing.source();
  record.pageName[0] = 'P';
  record.owner = &owner;
  record.callback = [](_handlerObject*) -> std::int32_t { throw new CException; };
  EXPECT_EQ(module().SVGH_EnumerateData(&record, nullptr), kCaught);
  _handlerCloseReader close{open.reader};
  EXPECT_EQ(module().SVGH_CloseReader(&close), 0);
}

}  // namespace
}  // namespace egfsvg::test
