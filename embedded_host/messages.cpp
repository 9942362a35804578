#include "host/messages.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <utility>

#include "embedded_host/bounded_text.h"
#include "embedded_host/fault.h"
#include "embedded_host/handles.h"
#include "embedded_host/host_messages.h"
#include "host/diagnostics.h"

namespace egfhost {

namespace {

struct TextRow {
  int number;
  const char* text;
};

// Our own words behind the numbers; "%s" stands for the message's text.
constexpr TextRow kMessageTexts[] = {
    {kMessageFileUnreadable, "file \"%s\" could not be read"},
    {kMessageOutOfMemory, "there is not enough memory"},
    {kMessageUnsupportedObject, "an object of the kind \"%s\" cannot be stored in this format"},
    {kMessageNoOpenContainer, "an element stands outside the drawing and was left out"},
};

constexpr TextRow kStringTexts[] = {
    {kStringNoticeDetails, "The message list says which."},
    {kStringWriterNotice, "Some objects cannot be stored in this format and were left out."},
    {kStringReaderNotice, "Some elements could not be read and were left out."},
};

const char* textOf(const TextRow* begin, const TextRow* end, int number) {
  const TextRow* const row =
      std::find_if(begin, end, [number](const TextRow& each) { return each.number == number; });
  return row == end ? nullptr : row->text;
}

// More messages than this are counted, but not kept.
constexpr std::size_t kMessagesKept = 100000;

// All that messages keep.
struct MessageState {
  std::vector<Message> recorded;
  std::uint64_t total = 0;
  MessageListener listener;
  std::uint32_t modeWord = 0;
};

MessageState& state() {
  static MessageState messages;
  return messages;
}

}  // namespace

void recordMessage(Message message) {
  MessageState& messages = state();
  ++messages.total;
  if (messages.listener) messages.listener(message);
  if (messages.recorded.size() < kMessagesKept) messages.recorded.push_back(std::move(message));
}

std::string messageText(int number, std::string_view argument) {
  const egfsvg::DiagnosticRow* const row = egfsvg::diagnosticRow(number);
  const char* const pattern =
      row != nullptr ? row->text
                     : textOf(std::begin(kMessageTexts), std::end(kMessageTexts), number);
  if (pattern == nullptr) return "message " + std::to_string(number);
  std::string text = pattern;
  const std::size_t place = text.find("%s");
  if (place != std::string::npos) text.replace(place, 2, argument);
  return text;
}

DiagnosticText splitDiagnosticText(std::string_view text) {
  const std::size_t blank = text.find(' ');
  DiagnosticText parts{egfsvg::kNoSourceOffset, text};
  if (blank == std::string_view::npos) return parts;
  parts.subject = text.substr(blank + 1);
  std::from_chars(text.data(), text.data() + blank, parts.offset);
  return parts;
}

const std::vector<Message>& recordedMessages() { return state().recorded; }

std::uint64_t messageCount() { return state().total; }

std::size_t countMessages(int number) {
  const std::vector<Message>& all = state().recorded;
  return static_cast<std::size_t>(std::count_if(
      all.begin(), all.end(), [number](const Message& each) { return each.number == number; }));
}

void clearMessages() {
  state().recorded.clear();
  state().total = 0;
}

void setMessageListener(MessageListener listener) { state().listener = std::move(listener); }

void setModeWord(std::uint32_t word) { state().modeWord = word; }

}  // namespace egfhost

int MSG_LogMsg_Named(int severity, int number, const char* text, int, const char* file, int line) {
  using namespace egfhost;
  if (faultFails(FaultCall::MSG_LogMsg_Named)) return -1;
  return hostCall(-1, [&] {
    recordMessage(
        {MessageKind::kLogged, severity, number, textOrEmpty(text), textOrEmpty(file), line});
    return 0;
  });
}

int MSG_LoadStringEx(int, int number, char* text, int size) {
  using namespace egfhost;
  if (text == nullptr || size <= 0) return 0;
  text[0] = '\0';
  if (faultFails(FaultCall::MSG_LoadStringEx)) return 0;
  const char* const found = textOf(std::begin(kStringTexts), std::end(kStringTexts), number);
  if (found == nullptr) return 0;
  return static_cast<int>(copyText(text, static_cast<std::size_t>(size), found).length);
}

int MSG_DispInfo(int number, int severityWord, const char* text, int) {
  using namespace egfhost;
  if (faultFails(FaultCall::MSG_DispInfo)) return -1;
  return hostCall(-1, [&] {
    recordMessage({MessageKind::kShown, severityWord, number, textOrEmpty(text), {}, 0});
    return 0;
  });
}

int MSG_GetCurMode() { return static_cast<int>(egfhost::state().modeWord); }
