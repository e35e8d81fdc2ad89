#include "app/base/read_file.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "app/base/user_error.h"

namespace kurv::app {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMaxFileSize = std::size_t{2} << 30;
constexpr std::size_t kBlockSize = std::size_t{1} << 20;

struct Close {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

UserError too_large(const std::string& path) {
  return UserError(path + " is larger than 2 GiB; cut it into smaller files first.");
}

File open(const std::string& path, const std::string& kind) {
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) {
    throw UserError(path + " is a directory; name a " + kind + " file instead.");
  }
  File file(std::fopen(path.c_str(), "rb"));
  if (!file) throw unreadable(path, errno);
  return file;
}

void append_rest(std::string& bytes, std::FILE* file, const std::string& name,
                 const std::function<void(std::string_view)>& check_block) {
  std::vector<char> block(kBlockSize);
  while (const std::size_t length = std::fread(block.data(), 1, block.size(), file)) {
    check_block({block.data(), length});
    if (bytes.size() + length > kMaxFileSize) throw too_large(name);
    bytes.append(block.data(), length);
  }
  if (std::ferror(file) != 0) throw unreadable(name, errno);
}

}  // namespace

UserError unreadable(const std::string& path, int error) {
  const char* advice = "check the disk that it is on";
  if (error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG) advice = "check the name";
  if (error == EACCES || error == EPERM) advice = "check its permissions";
  return UserError(path + " cannot be read: " + std::generic_category().message(error) + "; " +
                   advice + ".");
}

std::string read_file(const std::string& path, const std::string& kind,
                      const std::function<void(std::string_view)>& check_block) {
  const File file = open(path, kind);
  std::string bytes;
  std::error_code unknown_size;
  const std::uintmax_t size = fs::file_size(path, unknown_size);
  if (!unknown_size && size > kMaxFileSize) throw too_large(path);
  if (!unknown_size) bytes.reserve(size);
  append_rest(bytes, file.get(), path, check_block);
  return bytes;
}

std::string read_standard_input(const std::function<void(std::string_view)>& check_block) {
  std::string bytes;
  append_rest(bytes, stdin, "standard input", check_block);
  return bytes;
}

std::string read_graph_file_bytes(const std::string& path) {
  return read_file(path, "graph", [](std::string_view) {});
}

}  // namespace kurv::app
