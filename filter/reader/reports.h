// What the reader tells about things it leaves out, where the host asks for it.
#pragma once

#include "host/diagnostics.h"
#include "reader/svg_handlerreader.h"

namespace egfsvg {

inline constexpr std::size_t kElementNameSize = 20;

/// The lower-case name of a tag, for messages; "" for none.
const char* elementName(int tag, char (&text)[kElementNameSize]);

/// Logs a thing that was left out, at the reader's position. Costs a test when nobody asks.
inline void report(const CHandlerReader& reader, Diagnostic diagnostic, const char* subject,
                   const char* file, int line) {
  if (!reader.state.reporting) return;
  ++reader.state.reports;
  logDiagnostic(diagnostic, static_cast<std::uint32_t>(reader.buffer.fileIndex), subject, file,
                line);
}

/// The same about an element, by its tag.
void reportElement(const CHandlerReader& reader, Diagnostic diagnostic, int tag, const char* file,
                   int line);

/// Logs a limit that was hit: always.
inline void reportLimit(const CHandlerReader& reader, Diagnostic diagnostic, const char* subject,
                        const char* file, int line) {
  logDiagnostic(diagnostic, static_cast<std::uint32_t>(reader.buffer.fileIndex), subject, file,
                line);
}

}  // namespace egfsvg
