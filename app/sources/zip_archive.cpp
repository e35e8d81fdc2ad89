#include "app/sources/zip_archive.h"

#include <zip.h>

#include <utility>

#include "app/base/user_error.h"

namespace kurv::app {

namespace {

constexpr std::uint64_t kMaxRatio = 40;
constexpr std::uint64_t kFreeSize = 100'000'000;

}  // namespace

UserError damaged_file(const std::string& path, const std::string& what) {
  return UserError(path + " is damaged: " + what + "; save it again, or as a CSV file.");
}

UserError protected_file(const std::string& path) {
  return UserError(path + " is protected by a password; save it without one.");
}

class ZipArchive::Member final : public QIODevice {
 public:
  Member(ZipArchive& archive, zip_file_t* file) : m_archive(archive), m_file(file) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
  }

  bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* data, qint64 size) override {
    const zip_int64_t length = zip_fread(m_file.get(), data, static_cast<zip_uint64_t>(size));
    if (length < 0)
      return fail(std::string("a part of it cannot be read, ") + zip_file_strerror(m_file.get()));
    const auto count = static_cast<std::uint64_t>(length);
    if (count > m_archive.m_budget) return fail("its contents are suspiciously large");
    m_archive.m_budget -= count;
    return length;
  }
  qint64 writeData(const char*, qint64) override { return -1; }

 private:
  struct CloseFile {
    void operator()(zip_file_t* file) const { zip_fclose(file); }
  };

  qint64 fail(const std::string& what) {
    m_archive.m_failure = what;
    return -1;
  }

  ZipArchive& m_archive;
  std::unique_ptr<zip_file_t, CloseFile> m_file;
};

ZipArchive::ZipArchive(std::string_view bytes, std::string path)
    : m_path(std::move(path)), m_budget(kMaxRatio * bytes.size() + kFreeSize) {
  zip_error_t error;
  zip_error_init(&error);
  zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
  if (source != nullptr) m_zip = zip_open_from_source(source, ZIP_RDONLY, &error);
  if (m_zip == nullptr) {
    const std::string what = zip_error_strerror(&error);
    zip_source_free(source);
    zip_error_fini(&error);
    throw damaged_file(m_path, "it cannot be unpacked, " + what);
  }
  zip_error_fini(&error);
}

ZipArchive::~ZipArchive() {
  zip_discard(m_zip);
}

bool ZipArchive::has(const std::string& name) const {
  return zip_name_locate(m_zip, name.c_str(), ZIP_FL_NOCASE) >= 0;
}

std::unique_ptr<QIODevice> ZipArchive::open(const std::string& name) {
  const zip_int64_t index = zip_name_locate(m_zip, name.c_str(), ZIP_FL_NOCASE);
  if (index < 0) throw damaged_file(m_path, "it has no part " + name);
  zip_file_t* file = zip_fopen_index(m_zip, static_cast<zip_uint64_t>(index), 0);
  if (file == nullptr && zip_error_code_zip(zip_get_error(m_zip)) == ZIP_ER_NOPASSWD) {
    throw protected_file(m_path);
  }
  if (file == nullptr) {
    throw damaged_file(m_path, "its part " + name + " cannot be read, " + zip_strerror(m_zip));
  }
  return std::make_unique<Member>(*this, file);
}

void ZipArchive::throw_failure() const {
  if (!m_failure.empty()) throw damaged_file(m_path, m_failure);
}

}  // namespace kurv::app
