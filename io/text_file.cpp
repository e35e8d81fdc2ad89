#include "io/text_file.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include <KurvGraph/fault.h>
#include <KurvGraph/graph_file_fields.h>

namespace kurv {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBlock = std::size_t{1} << 16;

Fault fault_of(int error, FaultKind otherwise) {
  switch (error) {
    case ENOENT:
      return Fault(FaultKind::kFileNotFound);
    case ENOTDIR:
      return Fault(FaultKind::kPathNotFound);
    case EACCES:
    case EPERM:
    case EROFS:
      return Fault(FaultKind::kPermissionDenied);
    case EISDIR:
      return Fault(FaultKind::kPathFileAccessError);
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return Fault(FaultKind::kDiskFull);
    case ENOMEM:
      return Fault(FaultKind::kOutOfMemory);
    default:
      return Fault(otherwise);
  }
}

Fault transfer_fault() {
  return fault_of(errno, FaultKind::kDeviceIoError);
}

// Where a file does not exist, its folder may not exist either, which is another fault.
Fault open_fault(const String& path) {
  const int error = errno;
  const fs::path folder = fs::path(path).parent_path();
  std::error_code ignored;
  if (error == ENOENT && !folder.empty() && !fs::exists(folder, ignored)) {
    return Fault(FaultKind::kPathNotFound);
  }
  return fault_of(error, FaultKind::kPathFileAccessError);
}

// No stream buffer: the blocks here are large, and an error has to be reported by the call that
// causes it.
File open(const String& path, const char* mode) {
  // The platform would cut the name off there and open another file.
  if (path.find('\0') != path.npos) throw Fault(FaultKind::kPathFileAccessError);
  // Opening a pipe blocks until its other end is opened, which may never happen.
  std::error_code ignored;
  if (fs::is_fifo(path, ignored)) throw Fault(FaultKind::kPathFileAccessError);
  File file(std::fopen(path.c_str(), mode));
  if (file) std::setvbuf(file.get(), nullptr, _IONBF, 0);
  return file;
}

std::string_view without_return(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

String resolve_links(const String& path) {
  std::error_code error;
  const fs::path target = fs::canonical(path, error);
  return error ? path : target.string();
}

// Renames an existing file to NAME~ before it is replaced, and returns that name; an empty one when
// there is no such file. A write-protected file is refused here, because renaming takes no
// permission to write the file.
String keep_old_file(const String& path, bool (*is_truncated)(const String& path)) {
  if (!open(path, "r+b")) {
    if (errno == ENOENT) return {};
    throw open_fault(path);
  }
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return {};
  String kept = path + "~";
  if (fs::exists(kept, error) && is_truncated(path)) return kept;
  fs::rename(path, kept, error);
  if (error) throw fault_of(error.value(), FaultKind::kPathFileAccessError);
  return kept;
}

}  // namespace

InputFile::InputFile(const String& path) : m_file(open(path, "rb")) {
  if (!m_file) throw open_fault(path);
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) throw Fault(FaultKind::kPathFileAccessError);
}

bool InputFile::fill() {
  m_block.resize(kBlock);
  m_block.resize(std::fread(m_block.data(), 1, m_block.size(), m_file.get()));
  m_unread = m_block;
  if (std::ferror(m_file.get()) != 0) throw transfer_fault();
  return !m_block.empty();
}

std::optional<std::string_view> InputFile::next_line() {
  m_line.clear();
  while (!m_unread.empty() || fill()) {
    const std::size_t end = m_unread.find('\n');
    const std::string_view part = m_unread.substr(0, end);
    m_line_was_ended = end != m_unread.npos;
    m_unread.remove_prefix(m_line_was_ended ? end + 1 : part.size());
    if (m_line_was_ended && m_line.empty()) return without_return(part);
    if (m_line.size() + part.size() > kMaxGraphFileLine) throw Fault(FaultKind::kOutOfMemory);
    m_line += part;
    if (m_line_was_ended) return without_return(m_line);
  }
  if (m_line.empty()) return std::nullopt;
  return without_return(m_line);
}

std::string_view InputFile::line() {
  const std::optional<std::string_view> next = next_line();
  if (!next) throw Fault(FaultKind::kInputPastEnd);
  return *next;
}

OutputFile::OutputFile(const String& path, bool (*is_truncated)(const String& path)) {
  const String target = resolve_links(path);
  m_kept = keep_old_file(target, is_truncated);
  m_file = open(target, "wb");
  std::error_code ignored;
  if (!m_file) {
    const Fault fault = errno == ENOENT ? Fault(FaultKind::kPathNotFound) : open_fault(target);
    if (!m_kept.empty()) fs::rename(m_kept, target, ignored);
    throw fault;
  }
  if (m_kept.empty()) return;
  // A user who could not read the older file must not be able to read the new one.
  fs::permissions(target, fs::status(m_kept, ignored).permissions(), ignored);
}

// Bytes are left only where a fault is being thrown already. An error here would hide it, so it is
// ignored.
OutputFile::~OutputFile() {
  if (m_file) std::fwrite(m_buffer.data(), 1, m_buffer.size(), m_file.get());
}

void OutputFile::write(std::string_view bytes) {
  m_buffer += bytes;
  if (m_buffer.size() >= kBlock) flush();
}

void OutputFile::flush() {
  const String block = std::exchange(m_buffer, {});
  if (std::fwrite(block.data(), 1, block.size(), m_file.get()) != block.size()) {
    throw transfer_fault();
  }
}

void OutputFile::close() {
  flush();
  // Some file systems report a full disk only here.
  if (std::fclose(m_file.release()) != 0) throw transfer_fault();
  std::error_code ignored;
  if (!m_kept.empty()) fs::remove(m_kept, ignored);
}

}  // namespace kurv
