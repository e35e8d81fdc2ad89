#include "io/text_file.h"

#include <cerrno>
#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

#include <KurvGraph/fault.h>
#include <KurvGraph/graph_file_fields.h>

namespace kurv {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBufferSize = std::size_t{1} << 16;

std::string_view without_return(std::string_view line) {
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

String resolve_links(const String& path) {
  std::error_code error;
  const fs::path target = fs::canonical(path, error);
  return error ? path : target.string();
}

// Empties an existing file and opens it. Where it can be read, it is opened without the permission
// to create a file, which some folders refuse for another user's file.
File open_over(const String& path) {
  File file = open_file(path, "r+b");
  if (!file) return open_file(path, "wb");
  std::error_code error;
  fs::resize_file(path, 0, error);
  if (error) throw fault_of_error(error.value(), FaultKind::kPathFileAccessError);
  return file;
}

}  // namespace

InputFile::InputFile(const String& path) : m_file(open_file(path, "rb")) {
  if (!m_file) throw open_fault(path);
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) throw Fault(FaultKind::kPathFileAccessError);
}

bool InputFile::fill() {
  m_block.resize(kBufferSize);
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

OutputFile::OutputFile(const String& path, IsTruncated is_truncated)
    : m_path(resolve_links(path)), m_kept(m_path, is_truncated) {
  if (m_kept.is_copied()) {
    m_file = open_file(m_path, "r+b");
  } else {
    m_file = m_kept.is_in_place() ? open_over(m_path) : open_file(m_path, "wb");
  }
  if (!m_file) {
    const Fault fault = errno == ENOENT ? Fault(FaultKind::kPathNotFound) : open_fault(m_path);
    m_kept.restore();
    throw fault;
  }
  m_kept.copy_permissions();
}

// Bytes are left only where a fault is being thrown already. An error here would hide it, so it is
// ignored.
OutputFile::~OutputFile() {
  if (m_file) m_written += std::fwrite(m_buffer.data(), 1, m_buffer.size(), m_file.get());
  m_file.reset();
  try {
    m_kept.put_back(m_written);
  } catch (const std::exception&) {  // the copy stays
  }
}

void OutputFile::write(std::string_view bytes) {
  m_buffer += bytes;
  if (m_buffer.size() >= kBufferSize) flush();
}

void OutputFile::flush() {
  const String block = std::exchange(m_buffer, {});
  const std::size_t count = std::fwrite(block.data(), 1, block.size(), m_file.get());
  m_written += count;
  if (count != block.size()) throw transfer_fault();
}

void OutputFile::close() {
  flush();
  // Some file systems report a full disk only here.
  if (std::fclose(m_file.release()) != 0) throw transfer_fault();
  if (m_kept.is_copied()) {
    std::error_code error;
    fs::resize_file(m_path, m_written, error);
    if (error) throw fault_of_error(error.value(), FaultKind::kDeviceIoError);
  }
  m_kept.remove();
}

}  // namespace kurv
