// Temporary files. They are removed when their owner goes and when a signal ends the tool.
#pragma once

#include <string>
#include <string_view>

namespace egfsvg {

class TemporaryFile {
 public:
  // In the folder of a file that it is to become. Throws a Failure (73).
  static TemporaryFile beside(const std::string& target);
  // In the folder for temporary files, the name ending as told. Throws a Failure (74).
  static TemporaryFile scratch(const std::string& suffix);

  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  TemporaryFile(TemporaryFile&& other) noexcept;
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile();

  const std::string& path() const { return path_; }
  int descriptor() const { return descriptor_; }

  // False with errno when the bytes cannot be kept.
  bool write(std::string_view bytes);

  // False with errno when what was written could not be kept.
  bool close();

  // Gives the file its name and the permissions of an ordinary new file. False with errno.
  bool renameTo(const std::string& target);

 private:
  TemporaryFile(std::string path, int descriptor);

  std::string path_;  // empty once it is renamed
  int descriptor_;    // -1 once it is closed
  int slot_;          // place in the list of what a signal removes
};

// Ends the tool on SIGINT, SIGTERM, SIGHUP and SIGPIPE as ever, temporaries removed.
void removeTemporariesOnSignals();

// In a child process: the parent's temporaries are the parent's.
void forgetTemporaries();

}  // namespace egfsvg
