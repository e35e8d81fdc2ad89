// An error that the user can correct: one sentence, and the exit status.
#pragma once

#include <stdexcept>
#include <string>

namespace kurv::app {

// An error in the data, a file or the graph.
inline constexpr int kFailure = 1;
// The command line itself cannot be understood.
inline constexpr int kUsageFailure = 2;

class UserError : public std::runtime_error {
 public:
  explicit UserError(const std::string& sentence, int exit_status = kFailure)
      : std::runtime_error(sentence), m_exit_status(exit_status) {}

  int exit_status() const { return m_exit_status; }

 private:
  int m_exit_status;
};

}  // namespace kurv::app
