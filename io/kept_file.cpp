#include "io/kept_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <system_error>

#include <KurvGraph/file_fault.h>
#include <KurvGraph/text.h>

#include "io/platform_file.h"

namespace kurv {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kCopyBlock = std::size_t{1} << 16;
constexpr std::size_t kMaxName = 255;  // bytes

// A file as it was when this process kept it: one of the same name that differs is another's.
struct Earlier {
  String kept;
  fs::file_time_type time;
  std::uintmax_t size = 0;

  friend bool operator==(const Earlier&, const Earlier&) = default;
};

// The older files of writes that were not completed, by the path that was written.
struct Memory {
  std::mutex mutex;
  std::map<String, Earlier> files;
};

Memory& memory() {
  static Memory instance;
  return instance;
}

Earlier describe(const String& kept) {
  std::error_code ignored;
  return {kept, fs::last_write_time(kept, ignored), fs::file_size(kept, ignored)};
}

void forget(const String& path) {
  const std::lock_guard lock(memory().mutex);
  memory().files.erase(path);
}

// The file that was kept for this path, empty where there is none or where it has been changed.
String kept_earlier(const String& path) {
  const std::lock_guard lock(memory().mutex);
  const auto found = memory().files.find(path);
  if (found == memory().files.end()) return {};
  if (describe(found->second.kept) == found->second) return found->second.kept;
  memory().files.erase(found);
  return {};
}

// Neither creates nor changes it.
bool can_be_written(const String& path) {
  if (open_file(path, "r+b")) return true;
  // It exists, and may be one that cannot be read.
  return errno == EACCES && open_file(path, "ab");
}

// The file's name with the suffix, for which its last characters are cut off where it is too long.
String name_with(const fs::path& path, std::string_view suffix) {
  String name = path.filename().string();
  std::size_t end = std::min(name.size(), kMaxName - suffix.size());
  while (end > 0 && end < name.size() && is_utf8_continuation(name[end])) --end;
  name.resize(end);
  return name.append(suffix);
}

String free_name(const fs::path& path) {
  const fs::path folder = path.parent_path();
  fs::path name = folder / name_with(path, "~");
  std::error_code ignored;
  for (int number = 2; fs::exists(fs::symlink_status(name, ignored)); ++number) {
    name = folder / name_with(path, '~' + std::to_string(number));
  }
  return name.string();
}

// As fs::temp_directory_path() chooses it, also where there is no such folder.
String temporary_folder() {
  for (const char* variable : {"TMPDIR", "TMP", "TEMP", "TEMPDIR"}) {
    if (const char* folder = std::getenv(variable)) return folder;
  }
  return "/tmp";
}

FileFault fault_of_temporary_folder(const Fault& fault) {
  return {fault.kind(), temporary_folder()};
}

// Returns whether it succeeded; otherwise errno is set.
bool transfer(std::FILE* from, std::FILE* to) {
  String block(kCopyBlock, '\0');
  std::size_t size = 0;
  do {
    size = std::fread(block.data(), 1, block.size(), from);
    if (std::ferror(from) != 0) return false;
    if (std::fwrite(block.data(), 1, size, to) != size) return false;
  } while (size > 0);
  return std::fflush(to) == 0;
}

}  // namespace

KeptFile::KeptFile(const String& path, IsTruncated is_truncated) : m_path(path) {
  if (!can_be_written(path)) {
    if (errno == ENOENT) return;
    throw open_fault(path);
  }
  std::error_code ignored;
  if (!fs::is_regular_file(path, ignored)) return;
  if (take_earlier(is_truncated)) return;
  if (!move()) copy();
}

bool KeptFile::take_earlier(IsTruncated is_truncated) {
  const String earlier = kept_earlier(m_path);
  if (earlier.empty()) return false;
  // Where it cannot be read, it may be complete, or not.
  if (!open_file(m_path, "rb")) return false;
  if (!is_truncated(m_path)) {
    // The file is complete, so what was kept before it is needed no more.
    std::error_code ignored;
    fs::remove(earlier, ignored);
    return false;
  }
  m_kept = earlier;
  m_state = State::kInPlace;
  return true;
}

bool KeptFile::move() {
  std::error_code error;
  const String kept = free_name(m_path);
  fs::rename(m_path, kept, error);
  if (error) return false;
  m_kept = kept;
  m_state = State::kMoved;
  remember();
  return true;
}

void KeptFile::copy() {
  m_state = State::kInPlace;
  const File from = open_file(m_path, "rb");
  if (!from) return;
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  if (error) {
    throw fault_of_temporary_folder(fault_of_error(error.value(), FaultKind::kPathFileAccessError));
  }
  String name = (folder / name_with(m_path, "~XXXXXX")).string();
  const int descriptor = mkstemp(name.data());
  if (descriptor < 0) throw fault_of_temporary_folder(open_fault(name));
  const File to(fdopen(descriptor, "wb"));
  if (!to) throw fault_of_temporary_folder(open_fault(name));
  if (!transfer(from.get(), to.get())) {
    const Fault fault = transfer_fault();
    fs::remove(name, error);
    if (std::ferror(from.get()) != 0) throw fault;
    throw fault_of_temporary_folder(fault);
  }
  m_kept = name;
  m_state = State::kCopied;
  remember();
}

void KeptFile::remember() const {
  const std::lock_guard lock(memory().mutex);
  memory().files[m_path] = describe(m_kept);
}

void KeptFile::copy_permissions() const {
  std::error_code ignored;
  if (m_state != State::kMoved) return;
  fs::permissions(m_path, fs::status(m_kept, ignored).permissions(), ignored);
}

void KeptFile::restore() {
  if (is_copied()) remove();
  if (m_state != State::kMoved) return;
  std::error_code ignored;
  fs::rename(m_kept, m_path, ignored);
  forget(m_path);
}

void KeptFile::put_back(std::uintmax_t written) {
  if (!is_copied()) return;
  std::error_code error;
  const std::uintmax_t size = fs::file_size(m_kept, error);
  if (!error) {
    const File from(std::fopen(m_kept.c_str(), "rb"));
    const File to(std::fopen(m_path.c_str(), "r+b"));
    if (from && to && transfer(from.get(), to.get())) {
      fs::resize_file(m_path, size, error);
    } else {
      error = std::make_error_code(std::errc::io_error);
    }
  }
  if (!error) return remove();
  fs::resize_file(m_path, written, error);
}

void KeptFile::remove() {
  if (m_kept.empty()) return;
  std::error_code ignored;
  fs::remove(m_kept, ignored);
  forget(m_path);
  m_state = State::kNone;
}

}  // namespace kurv
