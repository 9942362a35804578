// write_bench [google-benchmark options]: writes drawings of many objects in two ways, interleaved
// in one run. Times are the processor's.
//   write     the whole drawing of a document, through the module
//   snprintf  the same element lines, printed with snprintf and put to the same kind of stream
#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/bench_program.h"
#include "bench/shapes.h"
#include "bench/svg_module.h"
#include "embedded_host/host_documents.h"
#include "embedded_host/host_files.h"

namespace egfsvg::bench {
namespace {

constexpr int kRepetitions = 5;
constexpr double kLeastSeconds = 0.05;  // of one repetition

struct Size {
  const char* name;
  std::size_t objects;
};
constexpr Size kSizes[] = {{"10k", 10'000}, {"100k", 100'000}};

/// A drawing of so many shapes, in a document and as they are.
class Drawing {
 public:
  Drawing(const Family& family, const Size& size)
      : name_(std::string(family.name) + "/" + size.name),
        shapes_(makeShapes(family, size.objects)),
        document_(egfhost::createDocument()),
        view_(egfhost::createView(document_)) {
    giveTo(document_, shapes_);
  }
  ~Drawing() {
    egfhost::destroyView(view_);
    egfhost::destroyDocument(document_);
  }
  Drawing(const Drawing&) = delete;
  Drawing& operator=(const Drawing&) = delete;

  const std::string& name() const { return name_; }
  std::size_t count() const { return shapes_.size(); }

  void write(const SvgModule& module, std::string& bytes) const {
    const HostHandle output = egfhost::openMemoryOutput("out.svg", &bytes);
    const std::int32_t result = module.writeFile(view_, output, 0);
    if (FLR_Close(output) != 0 || result != 0) throw std::runtime_error("not written: " + name_);
  }
  void print(std::string& bytes) const {
    const HostHandle output = egfhost::openMemoryOutput("out.svg", &bytes);
    printShapes(shapes_, output);
    if (FLR_Close(output) != 0) throw std::runtime_error("not printed: " + name_);
  }

 private:
  std::string name_;
  std::vector<Shape> shapes_;
  HostHandle document_;
  HostHandle view_;
};

/// The lines of the elements: behind the line of the svg and before that of the definitions.
std::string_view elementLines(std::string_view text) {
  const std::size_t start = text.find('\n', text.find("<svg")) + 1;
  return text.substr(start, text.find("   <defs>") - start);
}

/// Both ways give the same lines, or there is nothing to compare.
void compareLines(const SvgModule& module, const Drawing& drawing) {
  std::string written;
  std::string printed;
  drawing.write(module, written);
  drawing.print(printed);
  if (elementLines(written) != printed) {
    throw std::runtime_error("the lines of " + drawing.name() + " differ");
  }
}

void report(benchmark::State& state, const Drawing& drawing, double bytes) {
  using benchmark::Counter;
  constexpr auto kRate = Counter::kIsIterationInvariantRate;
  state.counters["bytes"] = bytes;
  state.counters["MB/s"] = Counter(bytes / 1e6, kRate);
  state.counters["elements/s"] = Counter(static_cast<double>(drawing.count()), kRate);
}

using Way = std::function<void(const Drawing&, std::string& bytes)>;

void add(const char* name, std::shared_ptr<Drawing> drawing, Way way) {
  auto body = [drawing, way](benchmark::State& state) {
    std::string bytes;
    try {
      way(*drawing, bytes);  // the room for the text is there afterwards
      for (auto turn : state) {
        static_cast<void>(turn);
        bytes.clear();
        way(*drawing, bytes);
      }
    } catch (const std::exception& failure) {
      state.SkipWithError(failure.what());
    }
    report(state, *drawing, static_cast<double>(elementLines(bytes).size()));
  };
  benchmark::RegisterBenchmark((std::string(name) + "/" + drawing->name()).c_str(), body)
      ->Unit(benchmark::kMillisecond)
      ->Repetitions(kRepetitions)
      ->ReportAggregatesOnly()
      ->MinTime(kLeastSeconds);
}

void addDrawing(const SvgModule& module, std::shared_ptr<Drawing> drawing) {
  add("write", drawing, [&module, same = false](const Drawing& shapes, std::string& bytes) mutable {
    if (!same) compareLines(module, shapes);
    same = true;
    shapes.write(module, bytes);
  });
  add("snprintf", drawing, [](const Drawing& shapes, std::string& bytes) { shapes.print(bytes); });
}

int run(int argc, char** argv) {
  if (!takeBenchmarkOptions({argv, argv + argc})) return 2;
  const SvgModule module(SVG_MODULE_PATH);
  for (const Family& family : families()) {
    for (const Size& size : kSizes) addDrawing(module, std::make_shared<Drawing>(family, size));
  }
  measureRegistered();
  return 0;
}

}  // namespace
}  // namespace egfsvg::bench

int main(int argc, char** argv) {
  return egfsvg::bench::runProgram("write_bench", egfsvg::bench::run, argc, argv);
}
