// Zip archives for the tests, as bytes.
#pragma once

#include <zip.h>

#include <string>
#include <utility>
#include <vector>

namespace kurv::app {

using Members = std::vector<std::pair<std::string, std::string>>;

inline std::string zip_bytes(const Members& members, const char* password = nullptr) {
  zip_source_t* target = zip_source_buffer_create(nullptr, 0, 0, nullptr);
  zip_source_keep(target);
  zip_t* archive = zip_open_from_source(target, ZIP_TRUNCATE, nullptr);
  for (const auto& [name, text] : members) {
    zip_source_t* source = zip_source_buffer(archive, text.data(), text.size(), 0);
    const zip_int64_t index = zip_file_add(archive, name.c_str(), source, 0);
    if (password == nullptr) continue;
    zip_file_set_encryption(archive, static_cast<zip_uint64_t>(index), ZIP_EM_AES_256, password);
  }
  zip_close(archive);
  zip_source_open(target);
  zip_source_seek(target, 0, SEEK_END);
  std::string bytes(static_cast<std::size_t>(zip_source_tell(target)), '\0');
  zip_source_seek(target, 0, SEEK_SET);
  zip_source_read(target, bytes.data(), bytes.size());
  zip_source_close(target);
  zip_source_free(target);
  return bytes;
}

}  // namespace kurv::app
