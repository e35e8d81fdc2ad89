#include "app/csv/csv_text.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "app/base/user_error.h"

namespace kurv::app {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

DecodedText text_of(const std::string& path, std::optional<Encoding> encoding = {}) {
  return decode_csv_text(read_table_bytes(path, encoding), encoding, path);
}

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
      text_of(path);
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
  EXPECT_EQ(text_of(written("\xEF\xBB\xBFx,y\r\n")).text, "x,y\r\n");
  EXPECT_EQ(text_of(written("x,y")).text, "x,y");
}

TEST_F(CsvText, IsRefusedWhenThereIsNothingInIt) {
  for (const char* bytes : {"", "\n \r\n\t", "\xEF\xBB\xBF", "\xEF\xBB\xBF\n"}) {
    EXPECT_THAT(refusal_of(written(bytes)), HasSubstr("is empty"));
  }
}

TEST_F(CsvText, IsRefusedWhenItIsNoText) {
  EXPECT_THAT(refusal_of(written(std::string("x,y\n1,\0\n", 8))), HasSubstr("is no text"));
}

TEST_F(CsvText, OfOtherKindsIsRefusedByWhatItIs) {
  EXPECT_THAT(refusal_of(written("%PDF-1.7\n1 0 obj")), HasSubstr("is a PDF document"));
  EXPECT_THAT(refusal_of(written(std::string("PAR1\0\1", 6))), HasSubstr("is a Parquet file"));
  for (const char* bytes : {"<!DOCTYPE html>\n<html>", "\xEF\xBB\xBF\n<HTML lang=en>", "<table>"}) {
    EXPECT_THAT(refusal_of(written(bytes)), HasSubstr("is a web page (HTML)")) << bytes;
  }
}

// The text in units of this many bytes.
std::string in_units(std::string_view text, std::size_t size, bool big_endian) {
  std::string bytes;
  for (const char c : text) {
    std::string unit(size, '\0');
    (big_endian ? unit.back() : unit.front()) = c;
    bytes += unit;
  }
  return bytes;
}

TEST_F(CsvText, IsReadInEachEncodingWithAndWithoutItsMark) {
  const std::string text = "time;value\n1;2,5\n";
  const auto expect = [&](const std::string& bytes, Encoding encoding) {
    const DecodedText decoded = text_of(written(bytes));
    EXPECT_EQ(decoded.text, text) << encoding_name(encoding);
    EXPECT_EQ(decoded.encoding, encoding) << encoding_name(encoding);
  };
  using namespace std::string_literals;
  expect(in_units(text, 2, false), Encoding::kUtf16Le);
  expect("\xFF\xFE" + in_units(text, 2, false), Encoding::kUtf16Le);
  expect(in_units(text, 2, true), Encoding::kUtf16Be);
  expect("\xFE\xFF" + in_units(text, 2, true), Encoding::kUtf16Be);
  expect(in_units(text, 4, false), Encoding::kUtf32Le);
  expect("\xFF\xFE\0\0"s + in_units(text, 4, false), Encoding::kUtf32Le);
  expect(in_units(text, 4, true), Encoding::kUtf32Be);
  expect("\0\0\xFE\xFF"s + in_units(text, 4, true), Encoding::kUtf32Be);
}

TEST_F(CsvText, CharactersOfTwoUnitsAreOneAndHalfOnesAreReplaced) {
  using namespace std::string_literals;
  EXPECT_EQ(decode("\x3D\xD8\x00\xDE,\0"s, Encoding::kUtf16Le).text, "\U0001F600,");
  EXPECT_EQ(decode("\x3D\xD8,\0"s, Encoding::kUtf16Le).text, "\uFFFD,");
  EXPECT_EQ(decode("\0\0\x11\0"s, Encoding::kUtf32Le).text, "\uFFFD");
}

TEST_F(CsvText, ThatIsNotUtf8IsCodePage1252) {
  const DecodedText decoded = text_of(written("t,W\xE4rme in \x80\n1,2\n"));
  EXPECT_EQ(decoded.text, "t,W\u00E4rme in \u20AC\n1,2\n");
  EXPECT_EQ(decoded.encoding, Encoding::kCp1252);
  EXPECT_EQ(decoded.first_foreign_line, 0u);
  EXPECT_EQ(text_of(written("\x80"), Encoding::kLatin1).text, "\u0080");
}

TEST_F(CsvText, OfTwoEncodingsIsReadLineByLine) {
  const DecodedText decoded = text_of(written("\u00E4\n1\n\xE4\n"));
  EXPECT_EQ(decoded.text, "\u00E4\n1\n\u00E4\n");
  EXPECT_EQ(decoded.encoding, Encoding::kUtf8);
  EXPECT_EQ(decoded.first_foreign_line, 3u);
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
