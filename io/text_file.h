// Files of lines. What the platform refuses becomes a run-time error: file or path not found,
// permission denied, path/file access error, disk full, device I/O error.
#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string_view>

#include <KurvGraph/values.h>

namespace kurv {

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// A file that is read line by line, so that an endless one fails where its lines stop making sense
// and never has to fit into memory.
class InputFile {
 public:
  explicit InputFile(const String& path);

  // The bytes of the next line without its end, CR LF or LF, which the last line may lack; nothing
  // at the end of the file. Valid until the next call. Throws kOutOfMemory for a line that no
  // graph could need.
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
  String m_line;              // one that did not lie in one block
  bool m_line_was_ended = false;
};

// A file that takes the place of an older one, which stays beside it as NAME~ until close(). Where
// close() is never reached, what was written until then stays, and so does the older file. A link
// keeps pointing to where it points; a device is written as it is, and a
// pipe is refused.
class OutputFile {
 public:
  // What `is_torn` says to be left by a write that failed does not take the place of the good NAME~
  // that was kept then.
  OutputFile(const String& path, bool (*is_torn)(const String& path));
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void write(std::string_view bytes);
  // Call once, behind the last write().
  void close();

 private:
  void flush();

  String m_kept;  // where the older file is, empty when there was none
  File m_file;
  String m_buffer;
};

}  // namespace kurv
