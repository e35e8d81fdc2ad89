#include "io/text_file.h"

#include <sys/stat.h>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

using test::fault_of;

bool never_truncated(const String&) {
  return false;
}
bool always_truncated(const String&) {
  return true;
}

struct InputFileTest : test::GraphFileTest {
  std::vector<std::string> lines_of(std::string_view bytes) {
    InputFile file(write("in", bytes));
    std::vector<std::string> lines;
    while (const std::optional<std::string_view> line = file.next_line()) lines.emplace_back(*line);
    return lines;
  }
};
using OutputFileTest = test::GraphFileTest;

using Lines = std::vector<std::string>;

TEST_F(InputFileTest, LinesEndInCrLfOrLfOrNotAtAll) {
  EXPECT_EQ(lines_of("a\r\nb\nc"), (Lines{"a", "b", "c"}));
  EXPECT_EQ(lines_of("a\r\n\r\n\n"), (Lines{"a", "", ""}));
  EXPECT_EQ(lines_of(""), Lines{});
  EXPECT_EQ(lines_of("\n"), Lines{""});
  EXPECT_EQ(lines_of("a\rb\r\r\n"), Lines{"a\rb\r"}) << "a CR alone ends no line";
  EXPECT_EQ(lines_of(std::string_view("a\0b\n", 4)), Lines{std::string("a\0b", 3)});
}

TEST_F(InputFileTest, LinesOfAnyLengthCrossItsBlocks) {
  for (const std::size_t length : {65534U, 65535U, 65536U, 65537U, 200'000U}) {
    const std::string first(length, 'a');
    const std::string second(length, 'b');
    EXPECT_EQ(lines_of(first + "\r\n" + second + "\n\n" + first), (Lines{first, second, "", first}))
        << length;
  }
}

TEST_F(InputFileTest, KnowsWhetherTheLastLineHadAnEnd) {
  InputFile file(write("in", "a\nb"));
  file.line();
  EXPECT_TRUE(file.line_was_ended());
  file.line();
  EXPECT_FALSE(file.line_was_ended());
  EXPECT_EQ(file.next_line(), std::nullopt);
  EXPECT_FALSE(file.line_was_ended());
  EXPECT_EQ(fault_of([&] { file.line(); }), 62);
}

TEST_F(InputFileTest, AnEndlessLineIsRefused) {
  InputFile file("/dev/zero");
  EXPECT_EQ(fault_of([&] { file.next_line(); }), 7);
}

TEST_F(InputFileTest, EveryRefusalOfThePlatformIsTyped) {
  write("file", "x");
  const auto number_of = [](const std::string& path) { return fault_of([&] { InputFile{path}; }); };
  EXPECT_EQ(number_of(path("missing")), 53);
  EXPECT_EQ(number_of("missing"), 53);
  EXPECT_EQ(number_of(""), 53);
  EXPECT_EQ(number_of(path("nowhere/missing")), 76);
  EXPECT_EQ(number_of(path("file/below")), 76);
  EXPECT_EQ(number_of(folder.string()), 75);
  EXPECT_EQ(number_of(path("file") + std::string("\0.gdf", 5)), 75);
  EXPECT_EQ(number_of(path(std::string(300, 'n'))), 75);
}

TEST_F(InputFileTest, AFaultyDeviceIsTypedToo) {
  // Reading its own memory from address zero on is refused with an input/output error.
  InputFile file("/proc/self/mem");
  EXPECT_EQ(fault_of([&] { file.next_line(); }), 57);
}

TEST(FileFaults, CarryTheClassicNumbersAndTexts) {
  const std::pair<int, const char*> kTable[] = {
      {53, "File not found"},
      {57, "Device I/O error"},
      {61, "Disk full"},
      {62, "Input past end of file"},
      {70, "Permission denied"},
      {75, "Path/File access error"},
      {76, "Path not found"},
      {449, "Argument not optional"},
      {450, "Wrong number of arguments or invalid property assignment"},
  };
  for (const auto& [number, text] : kTable) {
    EXPECT_STREQ(Fault(static_cast<FaultKind>(number)).what(), text);
  }
}

TEST_F(OutputFileTest, TheOlderFileIsKeptUntilTheNewOneIsComplete) {
  write("out", "old");
  OutputFile file(path("out"), never_truncated);
  file.write("new");
  EXPECT_EQ(read("out~"), "old");
  file.close();
  EXPECT_EQ(read("out"), "new");
  EXPECT_FALSE(exists("out~"));
}

TEST_F(OutputFileTest, WithoutCloseThePartAndTheOlderFileStay) {
  write("out", "old");
  {
    OutputFile file(path("out"), never_truncated);
    file.write("par");
  }
  EXPECT_EQ(read("out"), "par");
  EXPECT_EQ(read("out~"), "old");
}

TEST_F(OutputFileTest, ATruncatedFileDoesNotReplaceTheCompleteOne) {
  write("out", "good");
  { OutputFile file(path("out"), never_truncated); }
  { OutputFile file(path("out"), always_truncated); }
  EXPECT_EQ(read("out~"), "good");
  OutputFile file(path("out"), always_truncated);
  file.close();
  EXPECT_FALSE(exists("out~"));
}

TEST_F(OutputFileTest, AnothersFileOfTheNameIsNeverTouched) {
  for (const auto is_truncated : {never_truncated, always_truncated}) {
    write("out", "old");
    write("out~", "another's");
    write("out~2", "another's");
    {
      OutputFile file(path("out"), is_truncated);
      file.write("part");
    }
    EXPECT_EQ(read("out~3"), "old");
    OutputFile file(path("out"), is_truncated);
    file.write("new");
    file.close();
    EXPECT_EQ(read("out"), "new");
    EXPECT_EQ(read("out~"), "another's");
    EXPECT_EQ(read("out~2"), "another's");
    EXPECT_FALSE(exists("out~3"));
  }
}

TEST_F(OutputFileTest, AKeptFileThatAnotherHasReplacedIsNotTouchedEither) {
  write("out", "old");
  { OutputFile file(path("out"), never_truncated); }
  write("out~", "another's");
  OutputFile file(path("out"), always_truncated);
  file.close();
  EXPECT_EQ(read("out~"), "another's");
  EXPECT_FALSE(exists("out~2"));
}

TEST_F(OutputFileTest, ALinkOfTheNameIsNotTouchedAlsoWhereItLeadsNowhere) {
  write("out", "old");
  std::filesystem::create_symlink("nowhere", path("out~"));
  OutputFile file(path("out"), never_truncated);
  EXPECT_EQ(read("out~2"), "old");
  file.close();
  EXPECT_TRUE(std::filesystem::is_symlink(path("out~")));
}

TEST_F(OutputFileTest, LinksKeepPointingWhereTheyPoint) {
  write("real", "old");
  std::filesystem::create_symlink("real", path("link"));
  OutputFile file(path("link"), never_truncated);
  file.write("new");
  file.close();
  EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
  EXPECT_EQ(read("real"), "new");
}

TEST_F(OutputFileTest, WhoCouldNotReadTheOlderFileCannotReadTheNewOne) {
  write("out", "old");
  const auto mine = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
  std::filesystem::permissions(path("out"), mine);
  OutputFile file(path("out"), never_truncated);
  file.close();
  EXPECT_EQ(std::filesystem::status(path("out")).permissions(), mine);
}

TEST_F(OutputFileTest, AFolderOfTheNameStays) {
  write("out", "old");
  std::filesystem::create_directory(path("out~"));
  OutputFile file(path("out"), never_truncated);
  EXPECT_EQ(read("out~2"), "old");
  file.close();
  EXPECT_TRUE(std::filesystem::is_directory(path("out~")));
  EXPECT_FALSE(exists("out~2"));
}

TEST_F(InputFileTest, PipeIsRefusedBecauseOpeningItMayWaitForever) {
  const std::string pipe = path("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(fault_of([&] { InputFile file(pipe); }), 75);
  EXPECT_EQ(fault_of([&] { OutputFile file(pipe, never_truncated); }), 75);
}

}  // namespace
}  // namespace kurv
