#pragma once
// Runs a program of the build (contavia-cli) as a user would: its arguments, standard input
// from /dev/null (no terminal), and its exit status, standard output and standard error.

#include <string>
#include <vector>

namespace contavia::test {

struct ProgramResult {
  int exitCode = -1;  // -1 when the program did not end normally
  std::string out;
  std::string err;
};

// `environment` entries ("NAME=value") are added to the test's own environment, from which
// CONTAVIA_OGGI is taken out so that no run depends on how the tests were started.
ProgramResult runProgram(const std::string& program, const std::vector<std::string>& args,
                         const std::vector<std::string>& environment = {});

}  // namespace contavia::test
