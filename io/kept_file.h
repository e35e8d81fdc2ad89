// The older file that a new one replaces, kept until the new one is complete.
#pragma once

#include <cstdint>

#include <KurvGraph/values.h>

namespace kurv {

using IsTruncated = bool (*)(const String& path);

// Moves the file to NAME~ beside it. Where there is something of that name already, which is never
// overwritten, it takes NAME~2 or another free name. Where the folder does not let the file be
// moved, a copy for this user alone is made in the folder for temporary files, from which a write
// that fails puts the older content back; a file that can be neither moved nor read is not kept,
// because there is no way to it.
//
// This process remembers what it keeps until the new file is complete. A next write to the same
// path goes over the incomplete file and still keeps the complete one.
class KeptFile {
 public:
  // Keeps nothing where there is no regular file. Throws for one that cannot be written, and where
  // the copy fails, a FileFault with the folder for temporary files; the file is then as it was.
  KeptFile(const String& path, IsTruncated is_truncated);

  // Whether the older file is still at its path, where the new one has to be written over it.
  bool is_in_place() const { return m_state == State::kInPlace || is_copied(); }
  // The same where put_back() can undo it, as long as nothing after the new bytes is cut off.
  bool is_copied() const { return m_state == State::kCopied; }
  // Whoever could not read the older file must not be able to read the new one.
  void copy_permissions() const;
  // Undoes it, because the new file could not be opened.
  void restore();
  // Undoes a write of so many bytes that has failed, where is_copied(). Where that fails too, the
  // file is cut to these bytes, and the copy stays.
  void put_back(std::uintmax_t written);
  // The new file is complete.
  void remove();

 private:
  enum class State { kNone, kMoved, kInPlace, kCopied };

  bool take_earlier(IsTruncated is_truncated);
  bool move();
  void copy();
  void remember() const;

  String m_path;
  String m_kept;  // where the older file or its copy is, empty when there is none
  State m_state = State::kNone;
};

}  // namespace kurv
