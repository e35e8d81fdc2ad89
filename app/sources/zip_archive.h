// The members of a zip archive in memory.
#pragma once

#include <QIODevice>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

struct zip;

namespace kurv::app {

class UserError;

// The error for a file whose contents are wrong; `what` says in which way.
UserError damaged_file(const std::string& path, const std::string& what);
UserError protected_file(const std::string& path);

// Members are decompressed while they are read. All of them together may give forty times the size
// of the archive and 100 MB more, which stops zip bombs.
class ZipArchive {
 public:
  // `bytes` are used as long as the archive is. Messages begin with `path`. Throws UserError when
  // the bytes are no archive that can be read.
  ZipArchive(std::string_view bytes, std::string path);
  ~ZipArchive();
  ZipArchive(const ZipArchive&) = delete;
  ZipArchive& operator=(const ZipArchive&) = delete;

  const std::string& path() const { return m_path; }

  // Names match in any letter case.
  bool has(const std::string& name) const;

  // A stream of the bytes of a member; the archive must outlive it. Throws UserError when there is
  // none of that name or when it needs a password. After a failed read() the error is thrown by
  // throw_failure().
  std::unique_ptr<QIODevice> open(const std::string& name);

  // Throws UserError when a member could not be read to its end.
  void throw_failure() const;

 private:
  class Member;

  std::string m_path;
  zip* m_zip = nullptr;
  std::uint64_t m_budget;
  std::string m_failure;
};

}  // namespace kurv::app
