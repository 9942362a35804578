// egfsvg info: what is in a drawing, in words or as JSON.
#include <charconv>
#include <string>

#include "cli/commands.h"
#include "cli/facts.h"
#include "cli/json_writer.h"
#include "cli/output_file.h"
#include "cli/run.h"
#include "cli/settings.h"
#include "cli/utf8.h"

namespace egfsvg {
namespace {

// Kinds of left-out things that are listed; the rest is counted.
constexpr std::size_t kMostListed = 20;

std::string inDigits(double number) {
  char room[32];
  return {room, std::to_chars(room, room + sizeof room, number).ptr};
}

std::string sizeOf(const PageFacts& page) {
  return inDigits(page.width) + " x " + inDigits(page.height);
}

// "12 box, 3 path", or "none".
template <class Counts>
std::string listOf(const Counts& counts) {
  std::string list;
  for (const auto& [kind, count] : counts) {
    if (count == 0) continue;
    list += (list.empty() ? "" : ", ") + std::to_string(count) + " " + kind;
  }
  return list.empty() ? "none" : list;
}

std::string inWords(const DrawingFacts& facts) {
  std::string text = facts.file + "\n";
  text += "  source      " + std::to_string(facts.bytes) + " bytes" +
          (facts.compressed ? ", compressed (gzip)" : ", not compressed") + "\n";
  text += "  resolution  " + inDigits(facts.resolution) + " dpi";
  text += facts.comment.empty() ? "\n" : " (the file names " + printableText(facts.comment) + ")\n";
  text += "  pages       " + std::to_string(facts.pages.size()) + "\n";
  for (const PageFacts& page : facts.pages) {
    text += "  " + printableText(page.name) + "      " + sizeOf(page) + " pixels; " +
            listOf(page.objects) + "\n";
  }
  text += "  styles      " + listOf(facts.styles) + "\n";
  text += "  colours     " + std::to_string(facts.colours) + "\n";
  std::size_t listed = 0;
  for (const auto& [what, times] : facts.told) {
    if (listed++ == kMostListed) break;
    text += "  left out    " + printableText(what.second) + " (" + std::to_string(times) + ")\n";
  }
  if (facts.told.size() > kMostListed) {
    text += "  left out    " + std::to_string(facts.told.size() - kMostListed) + " more kinds\n";
  }
  return text;
}

void writePages(JsonWriter& json, const DrawingFacts& facts) {
  json.beginArray();
  for (const PageFacts& page : facts.pages) {
    json.beginObject();
    json.member("name", page.name);
    json.member("width", page.width);
    json.member("height", page.height);
    json.key("objects");
    json.beginObject();
    for (const auto& [kind, count] : page.objects) json.member(kind, count);
    json.endObject();
    json.endObject();
  }
  json.endArray();
}

void writeTold(JsonWriter& json, const Reports::Told& told) {
  json.beginArray();
  for (const auto& [what, times] : told) {
    json.beginObject();
    json.member("number", what.first);
    json.member("text", what.second);
    json.member("count", times);
    json.endObject();
  }
  json.endArray();
}

void writeFacts(JsonWriter& json, const DrawingFacts& facts) {
  json.beginObject();
  json.member("file", facts.file);
  json.member("bytes", facts.bytes);
  json.member("compressed", facts.compressed);
  json.member("resolution", facts.resolution);
  json.key("resolutionComment");
  facts.comment.empty() ? json.null() : json.value(facts.comment);
  json.key("pages");
  writePages(json, facts);
  json.key("styles");
  json.beginObject();
  for (const StyleFacts& style : facts.styles) json.member(style.kind, style.count);
  json.endObject();
  json.member("colours", facts.colours);
  json.key("leftOut");
  writeTold(json, facts.told);
  json.endObject();
}

// Takes the facts of one drawing and hands them on; gives how that went.
template <class Print>
ExitCode tell(const InputName& input, const Options& options, Print print) {
  return guarded(
      [&] {
        Source source(input.path, options);
        print(factsOf(source, options));
        return source.outcome();
      },
      input.path);
}

}  // namespace

ExitCode runInfo(const Options& given) {
  // What was left out stands in the answer, not beside it.
  Options options = given;
  options.quiet = true;
  applySettings(options);
  const auto output = OutputFile::create("-");
  JsonWriter json(*output);
  if (options.json) {
    json.beginObject(JsonLayout::kLines);
    json.key("files");
    json.beginArray(JsonLayout::kLines);
  }
  const std::vector<InputName> inputs = expandInputs(options.inputs);
  ExitCode code = ExitCode::kGood;
  for (const InputName& input : inputs) {
    const ExitCode own = tell(input, options, [&](const DrawingFacts& facts) {
      if (options.json) {
        writeFacts(json, facts);
      } else {
        output->write(inWords(facts));
      }
    });
    if (own != ExitCode::kGood) code = inputs.size() == 1 ? own : ExitCode::kSomeRefused;
  }
  if (options.json) {
    json.endArray();
    json.endObject();
    json.endDocument();
  }
  json.finish();
  output->commit();
  return code;
}

}  // namespace egfsvg
