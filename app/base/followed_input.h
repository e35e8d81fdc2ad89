// Bytes that another program goes on writing: standard input, a pipe, or a file that grows.
#pragma once

#include <cstdint>
#include <string>

namespace kurv::app {

// Reading never waits.
class FollowedInput {
 public:
  enum class Event {
    kNothing,    // nothing has come
    kBytes,      // more may be there already
    kEnd,        // of a pipe; a file has none
    kTruncated,  // the file has become shorter; it is read from its beginning
    kReplaced,   // another file has its name now, which is read from its beginning
    kGone,       // no file has the name any more, for the first time
  };

  // "-" is standard input. Throws UserError where there is no such file.
  explicit FollowedInput(const std::string& path);
  // Standard input is closed, too, so that its writer gets to know it.
  ~FollowedInput();
  FollowedInput(const FollowedInput&) = delete;
  FollowedInput& operator=(const FollowedInput&) = delete;

  // Whether it has to be asked from time to time; otherwise the descriptor becomes readable.
  bool is_file() const { return m_is_file; }
  int descriptor() const { return m_descriptor; }

  // At most a piece of what is there. Throws UserError where it cannot be read.
  Event read(std::string& bytes);

 private:
  Event read_pipe(std::string& bytes);
  Event read_file(std::string& bytes);
  Event check_name();
  bool read_piece(std::string& bytes);

  std::string m_path;
  std::string m_name;  // in messages
  int m_descriptor = -1;
  bool m_is_file = false;
  bool m_is_gone = false;
  std::int64_t m_offset = 0;
};

}  // namespace kurv::app
