#include "app/csv/csv_text.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/base/user_error.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class CsvText : public testing::Test {
 protected:
  CsvText() {
    std::string folder = (std::filesystem::temp_directory_path() / "kurv_text_XXXXXX").string();
    m_folder = mkdtemp(folder.data());
  }
  ~CsvText() override { std::filesystem::remove_all(m_folder); }

  std::string path(const std::string& name) const { return (m_folder / name).string(); }

  std::string written(const std::string& bytes) const {
    std::ofstream(path("file"), std::ios::binary) << bytes;
    return path("file");
  }

  static std::string refusal_of(const std::string& path) {
    try {
      read_csv_text(path);
    } catch (const UserError& error) {
      EXPECT_THAT(error.what(), StartsWith(path));
      return error.what();
    }
    return "nothing was refused";
  }

 private:
  std::filesystem::path m_folder;
};

TEST_F(CsvText, ComesWithoutItsByteOrderMark) {
  EXPECT_EQ(read_csv_text(written("\xEF\xBB\xBFx,y\r\n")), "x,y\r\n");
  EXPECT_EQ(read_csv_text(written("x,y")), "x,y");
}

TEST_F(CsvText, IsRefusedWhenThereIsNothingInIt) {
  for (const char* bytes : {"", "\n \r\n\t", "\xEF\xBB\xBF", "\xEF\xBB\xBF\n"}) {
    EXPECT_THAT(refusal_of(written(bytes)), HasSubstr("is empty"));
  }
}

TEST_F(CsvText, IsRefusedWhenItIsNoText) {
  EXPECT_THAT(refusal_of(written(std::string("x,y\n1,\0\n", 8))), HasSubstr("is no text"));
}

TEST_F(CsvText, AnEndlessDeviceIsRefusedAtOnce) {
  EXPECT_THAT(refusal_of("/dev/zero"), HasSubstr("is no text"));
}

TEST_F(CsvText, IsRefusedWhenItCannotBeRead) {
  EXPECT_THAT(refusal_of(path("missing.csv")),
              AllOf(HasSubstr("cannot be read"), HasSubstr("No such file")));
  EXPECT_THAT(refusal_of(path("")), HasSubstr("is a directory"));
}

TEST_F(CsvText, LargerThan2GiBIsRefusedBeforeItIsRead) {
  const std::string large = written("x,y\n");
  std::filesystem::resize_file(large, (std::uintmax_t{2} << 30) + 1);
  EXPECT_THAT(refusal_of(large), HasSubstr("larger than 2 GiB"));
}

}  // namespace
}  // namespace kurv::app
