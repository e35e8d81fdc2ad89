// Runs an example as a process.
#pragma once

#include <sys/wait.h>

#include <cstdio>
#include <string>

namespace kurv::test {

struct Ended {
  int status;
  std::string output;  // standard output and error
};

inline Ended run(const std::string& command) {
  std::FILE* const pipe = popen(("{ " + command + "; } 2>&1").c_str(), "r");
  std::string output;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) output += static_cast<char>(c);
  const int status = pclose(pipe);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output};
}

}  // namespace kurv::test
