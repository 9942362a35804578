#include "tests/support/tool.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "tests/support/files.h"

namespace egfsvg::test {
namespace {

constexpr int kSignalBase = 128;

class FileActions {
 public:
  FileActions() { posix_spawn_file_actions_init(&actions_); }
  ~FileActions() { posix_spawn_file_actions_destroy(&actions_); }
  FileActions(const FileActions&) = delete;
  FileActions& operator=(const FileActions&) = delete;

  void redirect(int stream, const std::string& path, int flags) {
    posix_spawn_file_actions_addopen(&actions_, stream, path.c_str(), flags, S_IRUSR | S_IWUSR);
  }
  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_;
};

int waitFor(pid_t process) {
  int status = 0;
  while (waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) throw std::runtime_error("waitpid failed");
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : kSignalBase + WTERMSIG(status);
}

}  // namespace

ToolResult runProgram(const std::string& program, const std::vector<std::string>& arguments,
                      std::string_view input) {
  const TempDir folder;
  const std::string in = folder.write("in", input);
  const std::string out = folder.file("out");
  const std::string err = folder.file("err");
  FileActions actions;
  actions.redirect(STDIN_FILENO, in, O_RDONLY);
  actions.redirect(STDOUT_FILENO, out, O_WRONLY | O_CREAT | O_TRUNC);
  actions.redirect(STDERR_FILENO, err, O_WRONLY | O_CREAT | O_TRUNC);

  std::vector<std::string> words = arguments;
  words.insert(words.begin(), program);
  std::vector<char*> argv;
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);

  pid_t process = 0;
  const int error =
      posix_spawn(&process, program.c_str(), actions.get(), nullptr, argv.data(), environ);
  if (error != 0) throw std::runtime_error("can't run " + program + ": " + std::strerror(error));

  ToolResult result;
  result.exitCode = waitFor(process);
  result.out = readFile(out);
  result.err = readFile(err);
  return result;
}

ToolResult runTool(const std::vector<std::string>& arguments, std::string_view input) {
  return runProgram(EGFSVG_TOOL_PATH, arguments, input);
}

}  // namespace egfsvg::test
