// read_bench FOLDER [--peer COMMAND] [google-benchmark options]: reads the drawings of
// make_drawings.py in up to three ways, interleaved in one run.
//   records  the reader alone: element records to a callback that does nothing
//   full     bytes to host objects: open, read the page, close, destroy the document
//   peer     another program, when one is given (bench/peer.h)
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/bench_program.h"
#include "bench/peer.h"
#include "bench/svg_module.h"
#include "embedded_host/host_documents.h"
#include "embedded_host/host_files.h"
#include "embedded_host/host_memory.h"

namespace egfsvg::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kRepetitions = 5;
constexpr double kLeastSeconds = 0.05;  // of one repetition

// Counts what the callback was given.
struct Tally {
  std::int64_t records = 0;
};

std::int32_t countRecord(_handlerObject* object) {
  ++static_cast<Tally*>(object->owner)->records;
  return 1;
}

HostHandle openSource(const std::string& path) {
  const HostHandle stream = egfhost::openFile(path);
  if (stream == 0) throw std::runtime_error("can't open " + path);
  return stream;
}

void require(std::int32_t result, const char* call) {
  if (result < 0) throw std::runtime_error(std::string(call) + " gave " + std::to_string(result));
}

std::int64_t readRecords(const SvgModule& module, const std::string& path) {
  const HostHandle source = openSource(path);
  _handlerOpenReader opened = {0, source};
  require(module.openHandler(&opened), "SVGH_OpenReader");
  Tally tally;
  _handlerEnumData read = {};
  read.reader = opened.reader;
  read.source = source;
  std::strcpy(read.pageName, "Page 1");
  read.owner = &tally;
  read.callback = countRecord;
  QV_FILEID file = {};
  require(module.enumerate(&read, &file), "SVGH_EnumerateData");
  _handlerCloseReader closed = {opened.reader};
  require(module.closeHandler(&closed), "SVGH_CloseReader");
  FLR_Close(source);
  return tally.records;
}

void readWhole(const SvgModule& module, const std::string& path) {
  const HostHandle document = egfhost::createDocument();
  const HostHandle view = egfhost::createView(document);
  const HostHandle page = egfhost::createPage(document);
  const HostHandle source = openSource(path);
  _adapterOpenReader opened = {0, source};
  require(module.openAdapter(&opened), "SVGA_OpenReader");
  _adapterPreprocess preprocessed = {opened.reader, source};
  require(module.preprocess(&preprocessed), "SVGA_PreprocessSource");
  _adapterReadData read = {};
  read.reader = opened.reader;
  read.source = source;
  read.container = page;
  read.view = view;
  QV_FILEID file = {};
  require(module.readData(&read, &file), "SVGA_ReadData");
  _adapterUnloadData unloaded = {opened.reader, 0};
  require(module.unloadData(&unloaded), "SVGA_UnloadData");
  _adapterCloseReader closed = {opened.reader};
  require(module.closeAdapter(&closed), "SVGA_CloseReader");
  FLR_Close(source);
  egfhost::destroyView(view);
  egfhost::destroyDocument(document);
}

struct Drawing {
  std::string path;
  std::string name;  // family/size
  double bytes;
};

// family_size.svg of a folder.
std::vector<Drawing> findDrawings(const std::string& folder) {
  std::vector<Drawing> drawings;
  for (const auto& entry : fs::directory_iterator(folder)) {
    if (entry.path().extension() != ".svg") continue;
    std::string name = entry.path().stem().string();
    std::replace(name.begin(), name.end(), '_', '/');
    drawings.push_back({entry.path().string(), name, static_cast<double>(entry.file_size())});
  }
  const auto before = [](const Drawing& a, const Drawing& b) { return a.path < b.path; };
  std::sort(drawings.begin(), drawings.end(), before);
  return drawings;
}

// What is counted beside the time. Peak memory is the host's, above the state before the read.
void report(benchmark::State& state, const Drawing& drawing, std::int64_t records,
            std::uint64_t before) {
  const double peak = static_cast<double>(egfhost::memoryCounters().peakBytes - before);
  state.counters["bytes"] = drawing.bytes;
  state.counters["records"] = static_cast<double>(records);
  state.counters["peakBytes"] = peak;
  state.counters["MB/s"] =
      benchmark::Counter(drawing.bytes / 1e6, benchmark::Counter::kIsIterationInvariantRate);
}

template <class Body>
void measure(benchmark::State& state, const Drawing& drawing, Body body) {
  const std::uint64_t before = egfhost::memoryCounters().liveBytes;
  egfhost::resetMemoryPeak();
  std::int64_t records = 0;
  try {
    for (auto turn : state) {
      static_cast<void>(turn);
      records = body();
    }
  } catch (const std::exception& failure) {
    state.SkipWithError(failure.what());
  }
  report(state, drawing, records, before);
}

void add(const std::string& way, const Drawing& drawing, bool manualTime,
         std::function<void(benchmark::State&)> body) {
  auto* added = benchmark::RegisterBenchmark((way + "/" + drawing.name).c_str(), std::move(body));
  added->Unit(benchmark::kMillisecond)->Repetitions(kRepetitions)->ReportAggregatesOnly();
  if (manualTime) {
    added->UseManualTime()->Iterations(1);
  } else {
    added->UseRealTime()->MinTime(kLeastSeconds);
  }
}

void addDrawing(const SvgModule& module, const Drawing& drawing, const std::string& peer) {
  add("records", drawing, false, [&module, drawing](benchmark::State& state) {
    measure(state, drawing, [&] { return readRecords(module, drawing.path); });
  });
  add("full", drawing, false, [&module, drawing](benchmark::State& state) {
    measure(state, drawing, [&] {
      readWhole(module, drawing.path);
      return std::int64_t{0};
    });
  });
  if (peer.empty()) return;
  add("peer", drawing, true, [drawing, peer](benchmark::State& state) {
    measure(state, drawing, [&] {
      state.SetIterationTime(peerSeconds(peer, drawing.path));
      return std::int64_t{0};
    });
  });
}

// Takes `--peer COMMAND` and the folder out of the arguments.
struct Options {
  std::string folder;
  std::string peer;
};
Options takeOptions(std::vector<char*>& arguments) {
  Options options;
  for (std::size_t i = 1; i < arguments.size();) {
    const std::string word = arguments[i];
    std::size_t used = 0;
    if (word == "--peer" && i + 1 < arguments.size()) {
      options.peer = arguments[i + 1];
      used = 2;
    } else if (word.rfind("--", 0) != 0) {
      options.folder = word;
      used = 1;
    }
    if (used == 0) ++i;
    const auto at = arguments.begin() + static_cast<std::ptrdiff_t>(i);
    arguments.erase(at, at + static_cast<std::ptrdiff_t>(used));
  }
  return options;
}

int run(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  const Options options = takeOptions(arguments);
  if (!takeBenchmarkOptions(arguments) || options.folder.empty()) {
    std::fprintf(stderr, "usage: read_bench FOLDER [--peer COMMAND] [--benchmark_...]\n");
    return 2;
  }
  const SvgModule module(SVG_MODULE_PATH);
  for (const Drawing& drawing : findDrawings(options.folder)) {
    addDrawing(module, drawing, options.peer);
  }
  measureRegistered();
  return 0;
}

}  // namespace
}  // namespace egfsvg::bench

int main(int argc, char** argv) {
  return egfsvg::bench::runProgram("read_bench", egfsvg::bench::run, argc, argv);
}
