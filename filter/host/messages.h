// Messages: what is logged and what the user is shown. The texts live in the host.
#pragma once

#include "host/wire.h"

// Message numbers. The diagnostics of host/diagnostics.h follow from 60000 on.
enum MessageNumber : int {
  kMessageFileUnreadable = 1108,      // text: the file's name
  kMessageOutOfMemory = 1273,         // no text
  kMessageUnsupportedObject = 33984,  // text: the kind's name, or empty
  kMessageNoOpenContainer = 34040     // no text
};

// String numbers. A notice box shows two of them joined by one blank.
enum StringNumber : int {
  kStringNoticeDetails = 2329,
  kStringWriterNotice = 2350,
  kStringReaderNotice = 3614
};

inline constexpr int kMessageSeverity = -1;      // the severity of every logged message
inline constexpr int kMessageStringSize = 256;   // the buffer handed to MSG_LoadStringEx
inline constexpr int kMessageInfoSeverity = 20;  // the word handed to MSG_DispInfo
inline constexpr int kMessageModeSilentBit = 1;  // of MSG_GetCurMode: no message boxes

extern "C" {

// Logs. text may be null.
EGFHOST_API int MSG_LogMsg_Named(int severity, int number, const char* text, int reserved,
                                 const char* file, int line);

// Loads a host string, cut to size - 1 bytes; returns its length, 0 when there is none.
EGFHOST_API int MSG_LoadStringEx(int reserved, int number, char* text, int size);

// Shows an information message with a text argument.
EGFHOST_API int MSG_DispInfo(int number, int severityWord, const char* text, int reserved);

// The host's mode word.
EGFHOST_API int MSG_GetCurMode();

}  // extern "C"
