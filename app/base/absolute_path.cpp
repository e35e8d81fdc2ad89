#include "app/base/absolute_path.h"

#include <filesystem>

namespace kurv::app {

std::string absolute_path(const std::string& path) {
  std::error_code error;
  const std::filesystem::path result = std::filesystem::absolute(path, error);
  return error ? path : result.lexically_normal().string();
}

}  // namespace kurv::app
