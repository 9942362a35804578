// Text calls of the platform layer. Case folding is ASCII only and bytes are unsigned; nothing
// here asks the locale.
#pragma once

#include <cstdint>

#include "host/wire.h"

inline constexpr int kFormatTextSize = 1024;  // what wsprintfA writes at most, with the zero
inline constexpr std::uint32_t kTempPathSize = 1025;  // the buffer handed to GetTempPathA
inline constexpr std::uint32_t kCodePageAnsi = 0;     // the system default: Windows Latin 1
inline constexpr std::uint32_t kCodePageUtf8 = 65001;

extern "C" {

// Case-blind comparison, 0 when equal; null counts as empty.
EGFHOST_API int _wu_stricmp(const char* left, const char* right);

// Upper-cases in place and returns its argument.
EGFHOST_API char* _wu_strupr(char* text);

// Renders an integer; returns text. Radix 2 to 36; a negative value has a sign in radix 10 alone.
EGFHOST_API char* wu_itoa(int value, char* text, int radix);

// Formats without floating-point fields; returns the length. text holds kFormatTextSize bytes.
EGFHOST_API int wsprintfA(char* text, const char* format, ...)
    __attribute__((__format__(__printf__, 2, 3)));

// 16-bit units for bytes of a code page, and back. A source length of -1 means up to and with the
// zero; a target size of 0 asks for the length needed. 0 on failure. What a code page cannot
// express becomes the default character ("?" when null).
EGFHOST_API int MultiByteToWideChar(std::uint32_t codePage, std::uint32_t flags, const char* source,
                                    int sourceLength, char16_t* target, int targetSize);
EGFHOST_API int WideCharToMultiByte(std::uint32_t codePage, std::uint32_t flags,
                                    const char16_t* source, int sourceLength, char* target,
                                    int targetSize, const char* defaultChar, int* usedDefaultChar);

// The temporary directory with its last "/"; returns its length, or the size needed.
EGFHOST_API std::uint32_t GetTempPathA(std::uint32_t size, char* text);

}  // extern "C"
