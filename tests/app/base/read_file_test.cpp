#include "app/base/read_file.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/base/message_text.h"
#include "app/base/user_error.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class TextFile : public testing::Test {
 protected:
  TextFile() {
    std::string folder = (std::filesystem::temp_directory_path() / "kurv_text_XXXXXX").string();
    m_folder = mkdtemp(folder.data());
  }
  ~TextFile() override { std::filesystem::remove_all(m_folder); }

  std::string path(const std::string& name) const { return (m_folder / name).string(); }

  std::string written(const std::string& bytes) const {
    std::ofstream(path("file"), std::ios::binary) << bytes;
    return path("file");
  }

  static std::string refusal_of(const std::string& path) {
    try {
      read_text_file(path);
    } catch (const UserError& error) {
      EXPECT_THAT(error.what(), StartsWith(path));
      return error.what();
    }
    return "nothing was refused";
  }

 private:
  std::filesystem::path m_folder;
};

TEST_F(TextFile, ComesWithoutItsByteOrderMark) {
  EXPECT_EQ(read_text_file(written("\xEF\xBB\xBFx,y\r\n")), "x,y\r\n");
  EXPECT_EQ(read_text_file(written("x,y")), "x,y");
}

TEST_F(TextFile, IsRefusedWhenThereIsNothingInIt) {
  for (const char* bytes : {"", "\n \r\n\t", "\xEF\xBB\xBF", "\xEF\xBB\xBF\n"}) {
    EXPECT_THAT(refusal_of(written(bytes)), HasSubstr("is empty"));
  }
}

TEST_F(TextFile, IsRefusedWhenItIsNoText) {
  EXPECT_THAT(refusal_of(written(std::string("x,y\n1,\0\n", 8))), HasSubstr("is no text"));
}

TEST_F(TextFile, AnEndlessDeviceIsRefusedAtOnce) {
  EXPECT_THAT(refusal_of("/dev/zero"), HasSubstr("is no text"));
}

TEST_F(TextFile, IsRefusedWhenItCannotBeRead) {
  EXPECT_THAT(refusal_of(path("missing.csv")),
              AllOf(HasSubstr("cannot be read"), HasSubstr("No such file")));
  EXPECT_THAT(refusal_of(path("")), HasSubstr("is a directory"));
}

TEST_F(TextFile, LargerThan2GiBIsRefusedBeforeItIsRead) {
  const std::string large = written("x,y\n");
  std::filesystem::resize_file(large, (std::uintmax_t{2} << 30) + 1);
  EXPECT_THAT(refusal_of(large), HasSubstr("larger than 2 GiB"));
}

TEST(Text, EnumeratesNamesAndCountsTheRest) {
  EXPECT_EQ(enumeration({"a"}, 2), "\"a\"");
  EXPECT_EQ(enumeration({"a", "b"}, 2), "\"a\" and \"b\"");
  EXPECT_EQ(enumeration({"a", "b", "c"}, 2), "\"a\", \"b\" and \"c\"");
  EXPECT_EQ(enumeration({"a", "b", "c", "d"}, 2), "\"a\", \"b\" and 2 more");
}

TEST(Text, AQuotationStaysOnItsLineAndCutsNoCharacterInTwo) {
  EXPECT_EQ(in_quotes("a\r\nb"), "\"a  b\"");
  EXPECT_EQ(in_quotes(std::string(59, 'a') + "\u00E4\u00E4"), '"' + std::string(59, 'a') + "...\"");
  EXPECT_EQ(in_quotes(std::string(100, '\x80')), "\"...\"");
}

}  // namespace
}  // namespace kurv::app
