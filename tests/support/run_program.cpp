#include "tests/support/run_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>

#include <cstring>

#include "tests/support/temp_folder.h"

extern char** environ;

namespace contavia::test {
namespace {

std::string asText(const Bytes& bytes) { return std::string(bytes.begin(), bytes.end()); }

}  // namespace

ProgramResult runProgram(const std::string& program, const std::vector<std::string>& args,
                         const std::vector<std::string>& environment) {
  const TempFolder outputs;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 1, outputs.file("out").c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0644);
  posix_spawn_file_actions_addopen(&actions, 2, outputs.file("err").c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0644);

  std::vector<std::string> argv = {program};
  argv.insert(argv.end(), args.begin(), args.end());
  std::vector<std::string> envp = environment;
  for (char** e = environ; *e != nullptr; ++e) {
    if (std::strncmp(*e, "CONTAVIA_OGGI=", 14) != 0) {
      envp.emplace_back(*e);
    }
  }
  auto pointers = [](std::vector<std::string>& texts) {
    std::vector<char*> out;
    for (std::string& t : texts) {
      out.push_back(t.data());
    }
    out.push_back(nullptr);
    return out;
  };
  std::vector<char*> argvPointers = pointers(argv);
  std::vector<char*> envPointers = pointers(envp);

  ProgramResult result;
  pid_t pid = 0;
  const int rc = posix_spawn(&pid, program.c_str(), &actions, nullptr, argvPointers.data(),
                             envPointers.data());
  posix_spawn_file_actions_destroy(&actions);
  if (rc != 0) {
    result.err = "posix_spawn: " + std::string(std::strerror(rc));
    return result;
  }
  int status = 0;
  if (::waitpid(pid, &status, 0) == pid && WIFEXITED(status)) {
    result.exitCode = WEXITSTATUS(status);
  }
  result.out = asText(outputs.read("out"));
  result.err = asText(outputs.read("err"));
  return result;
}

}  // namespace contavia::test
