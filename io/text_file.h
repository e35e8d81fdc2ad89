// Reading and writing files of lines. Errors of the platform are thrown as the faults of
// platform_file.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <KurvGraph/values.h>

#include "io/kept_file.h"
#include "io/platform_file.h"

namespace kurv {

// A file that is read line by line, so that it never has to fit into memory, and reading an endless
// one fails at the first line that makes no sense.
class InputFile {
 public:
  explicit InputFile(const String& path);

  // The bytes of the next line without its end, CR LF or LF, which the last line may lack; nothing
  // at the end of the file. Valid until the next call. Throws kOutOfMemory for a line longer than
  // kMaxGraphFileLine.
  std::optional<std::string_view> next_line();
  // The same where a line has to be there: throws kInputPastEnd at the end.
  std::string_view line();
  // Whether the last line read had an end.
  bool line_was_ended() const { return m_line_was_ended; }

 private:
  bool fill();

  File m_file;
  String m_block;
  std::string_view m_unread;  // of the block
  String m_line;              // one that crosses the end of a block
  bool m_line_was_ended = false;
};

// A file that replaces an older one, which is kept until close(), see kept_file.h. Where close() is
// never reached, the incomplete file and the older one both stay; an older one that could not be
// moved, and of which there is a copy, has its old content again. A link is followed, not replaced;
// a device is written directly, and a pipe is refused.
class OutputFile {
 public:
  // `is_truncated` finds that `path` was left incomplete by an earlier write: the complete file
  // that was kept then stays the one that is kept.
  OutputFile(const String& path, IsTruncated is_truncated);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void write(std::string_view bytes);
  // Call once, after the last write().
  void close();

 private:
  void flush();

  String m_path;
  KeptFile m_kept;
  File m_file;
  String m_buffer;
  std::uintmax_t m_written = 0;  // bytes
};

}  // namespace kurv
