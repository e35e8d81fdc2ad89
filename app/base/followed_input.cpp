#include "app/base/followed_input.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <utility>

#include "app/base/read_file.h"
#include "app/base/user_error.h"

namespace kurv::app {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 18;
constexpr std::string_view kStandardInputPath = "-";

}  // namespace

// A pipe that nobody writes to yet is opened without waiting for its writer.
FollowedInput::FollowedInput(const std::string& path)
    : m_path(path), m_name(path == kStandardInputPath ? "standard input" : path) {
  struct stat about {};
  if (path == kStandardInputPath) {
    m_descriptor = STDIN_FILENO;
    if (::fstat(m_descriptor, &about) != 0) throw unreadable(m_name, errno);
    return;
  }
  m_descriptor = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (m_descriptor < 0 || ::fstat(m_descriptor, &about) != 0) throw unreadable(path, errno);
  if (S_ISDIR(about.st_mode)) {
    ::close(m_descriptor);
    throw UserError(path + " is a directory; name a table file instead.");
  }
  m_is_file = S_ISREG(about.st_mode);
}

// The number of standard input stays taken, so that no file that is opened later gets it.
FollowedInput::~FollowedInput() {
  if (m_descriptor != STDIN_FILENO) {
    ::close(m_descriptor);
    return;
  }
  const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  if (nothing < 0) return;
  ::dup2(nothing, STDIN_FILENO);
  ::close(nothing);
}

FollowedInput::Event FollowedInput::read(std::string& bytes) {
  return m_is_file ? read_file(bytes) : read_pipe(bytes);
}

// False at the end.
bool FollowedInput::read_piece(std::string& bytes) {
  bytes.resize(kPiece);
  const ssize_t size = ::read(m_descriptor, bytes.data(), bytes.size());
  const int error = errno;
  bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
  if (size < 0 && error != EINTR && error != EAGAIN) throw unreadable(m_name, error);
  return size != 0;
}

FollowedInput::Event FollowedInput::read_pipe(std::string& bytes) {
  bytes.clear();
  pollfd ready{m_descriptor, POLLIN, 0};
  if (::poll(&ready, 1, 0) <= 0 || ready.revents == 0) return Event::kNothing;
  if (!read_piece(bytes)) return Event::kEnd;
  return bytes.empty() ? Event::kNothing : Event::kBytes;
}

FollowedInput::Event FollowedInput::read_file(std::string& bytes) {
  bytes.clear();
  struct stat about {};
  if (::fstat(m_descriptor, &about) == 0 && about.st_size < m_offset) {
    if (::lseek(m_descriptor, 0, SEEK_SET) < 0) throw unreadable(m_name, errno);
    m_offset = 0;
    return Event::kTruncated;
  }
  read_piece(bytes);
  m_offset += static_cast<std::int64_t>(bytes.size());
  return bytes.empty() ? check_name() : Event::kBytes;
}

// Whether the name still is that of the file that is open.
FollowedInput::Event FollowedInput::check_name() {
  struct stat own {};
  struct stat named {};
  if (::fstat(m_descriptor, &own) != 0) return Event::kNothing;
  const int next = ::open(m_path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
  if (next < 0) return std::exchange(m_is_gone, true) ? Event::kNothing : Event::kGone;
  const bool is_same =
      ::fstat(next, &named) == 0 && own.st_dev == named.st_dev && own.st_ino == named.st_ino;
  if (is_same || !S_ISREG(named.st_mode)) {
    ::close(next);
    return Event::kNothing;
  }
  ::close(m_descriptor);
  m_descriptor = next;
  m_offset = 0;
  m_is_gone = false;
  return Event::kReplaced;
}

}  // namespace kurv::app
