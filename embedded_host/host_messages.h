// Messages as the tool and the tests see them: recorded, told to a listener, put into words.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/messages.h"

namespace egfhost {

enum class MessageKind : std::uint8_t {
  kLogged,  // MSG_LogMsg_Named
  kShown,   // MSG_DispInfo
  kNotice   // MessageBoxA; text is what the box says, number is 0
};

struct Message {
  MessageKind kind;
  int severity;
  int number;
  std::string text;  // the argument, not put into words
  std::string file;  // of the caller, empty unless logged
  int line;
};

using MessageListener = std::function<void(const Message&)>;

// Called for each message before it is recorded; empty for none.
EGFHOST_API void setMessageListener(MessageListener listener);

// The messages since the start or the last clearMessages; the first 100,000 of them are kept.
EGFHOST_API const std::vector<Message>& recordedMessages();
EGFHOST_API std::uint64_t messageCount();           // of all, kept or not
EGFHOST_API std::size_t countMessages(int number);  // of the kept ones
EGFHOST_API void clearMessages();

// Records a message of the host's own.
EGFHOST_API void recordMessage(Message message);

// A message in words. For a diagnostic the argument is its subject alone.
EGFHOST_API std::string messageText(int number, std::string_view argument);

// The parts of a diagnostic's text.
struct DiagnosticText {
  std::uint32_t offset;      // in the source, egfsvg::kNoSourceOffset for none
  std::string_view subject;  // points into the text
};
EGFHOST_API DiagnosticText splitDiagnosticText(std::string_view text);

// What MSG_GetCurMode returns; 0 at the start.
EGFHOST_API void setModeWord(std::uint32_t word);

}  // namespace egfhost
