// What the platform refuses: folders, permissions, full disks.
#include <KurvGraph/file_fault.h>

#include <cstdlib>

#include "tests/support/graph_files.h"
#include "tests/support/refusing_platform.h"

namespace kurv {
namespace {

using test::fault_of;
using test::FullDisk;
using test::Unprivileged;

struct GraphFileAccess : test::GraphFileTest {
  GraphFileAccess() { host.load({1, 2, 3}, {1, 4, 9}); }

  int save_to(const std::string& where) {
    host.control.build_the_graph();
    host.shell.files = {{where, 1}};
    return fault_of([&] { host.control.ChartOptions("saveas"); });
  }
  int load(const std::string& where) {
    return fault_of([&] { host.control.file_load(where); });
  }

  test::TestHost host;
};

TEST_F(GraphFileAccess, LoadingWhatCannotBeReadIsTypedAndChangesNothing) {
  write("file", "x");
  EXPECT_EQ(load(path("missing.gdf")), 53);
  EXPECT_EQ(load(path("nowhere/missing.gdf")), 76);
  EXPECT_EQ(load(path("file/below.gdf")), 76);
  EXPECT_EQ(load(folder.string()), 75);
  EXPECT_EQ(host.control.Title(), "Title");
  EXPECT_EQ(host.control.FileName(), "");
}

TEST_F(GraphFileAccess, SavingWhereNothingCanBeWrittenIsTyped) {
  write("file", "x");
  EXPECT_EQ(save_to(path("nowhere/a.gdf")), 76);
  EXPECT_EQ(save_to(path("file/a.gdf")), 76);
  EXPECT_EQ(save_to(folder.string()), 75);
  EXPECT_FALSE(host.control.GraphSaved());
  EXPECT_EQ(host.control.FileName(), "");
}

TEST_F(GraphFileAccess, WithoutPermissionNothingIsReadOrWritten) {
  using std::filesystem::perms;
  write("secret.gdf", "secret");
  std::filesystem::permissions(path("secret.gdf"), perms::none);
  write("protected.gdf", "protected");
  std::filesystem::permissions(path("protected.gdf"), perms::owner_read | perms::others_read);
  std::filesystem::create_directory(path("closed"));
  std::filesystem::permissions(path("closed"), perms::owner_read | perms::owner_exec |
                                                   perms::others_read | perms::others_exec);
  {
    const Unprivileged user;
    EXPECT_EQ(load(path("secret.gdf")), 70);
    EXPECT_EQ(save_to(path("secret.gdf")), 70);
    EXPECT_EQ(save_to(path("protected.gdf")), 70);
    EXPECT_EQ(save_to(path("closed/a.gdf")), 70);
    EXPECT_EQ(save_to(path("open.gdf")), 0);
  }
  EXPECT_EQ(read("protected.gdf"), "protected");
  EXPECT_FALSE(exists("protected.gdf~"));
  EXPECT_TRUE(exists("open.gdf"));
}

TEST_F(GraphFileAccess, AFullDeviceIsADiskThatIsFull) {
  EXPECT_EQ(save_to("/dev/full"), 61);
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/full")) << "a device is never moved away";
  EXPECT_FALSE(host.control.GraphSaved());
}

TEST_F(GraphFileAccess, AFullDiskLeavesThePartAndTheOlderGraph) {
  ASSERT_EQ(save_to(path("a.gdf")), 0);
  const std::string older = read("a.gdf");
  host.control.set_Title("Newer");
  {
    const FullDisk disk(100);
    EXPECT_EQ(save_to(path("a.gdf")), 61);
  }
  EXPECT_EQ(read("a.gdf").size(), 100U);
  EXPECT_EQ(read("a.gdf~"), older);
  EXPECT_EQ(host.document().SavedTitle, "Title");
  EXPECT_FALSE(host.control.GraphSaved());
}

TEST_F(GraphFileAccess, SavingAgainOnAFullDiskNeverCostsTheOlderGraph) {
  ASSERT_EQ(save_to(path("a.gdf")), 0);
  const std::string older = read("a.gdf");
  for (rlim_t size = 0; size < older.size(); size += 7) {
    const FullDisk disk(size);
    EXPECT_EQ(save_to(path("a.gdf")), 61);
    EXPECT_EQ(read("a.gdf~"), older) << size;
  }
  // Cut in its last line, it has all its lines and is truncated all the same.
  write("a.gdf", older.substr(0, older.size() - 1));
  {
    const FullDisk disk(10);
    EXPECT_EQ(save_to(path("a.gdf")), 61);
  }
  EXPECT_EQ(read("a.gdf~"), older);
  EXPECT_EQ(save_to(path("a.gdf")), 0);
  EXPECT_EQ(read("a.gdf"), older);
  EXPECT_FALSE(exists("a.gdf~"));
}

TEST_F(GraphFileAccess, AFileThatIsWholeTakesThePlaceOfTheOneKeptEarlier) {
  ASSERT_EQ(save_to(path("a.gdf")), 0);
  const std::string whole = read("a.gdf");
  for (const std::string& content : {whole, std::string("no graph at all"), whole}) {
    write("a.gdf", content);
    const FullDisk disk(10);
    EXPECT_EQ(save_to(path("a.gdf")), 61);
    EXPECT_EQ(read("a.gdf~"), content);
    EXPECT_FALSE(exists("a.gdf~2"));
  }
}

TEST_F(GraphFileAccess, AnothersFileOfTheKeptNameIsNeverDestroyed) {
  const std::string kept = "another's";
  ASSERT_EQ(save_to(path("a.gdf")), 0);
  const std::string older = read("a.gdf");
  for (const std::string& content : {older, older.substr(0, 200)}) {
    write("a.gdf", content);
    write("a.gdf~", kept);
    EXPECT_EQ(save_to(path("a.gdf")), 0);
    EXPECT_EQ(read("a.gdf~"), kept);
    EXPECT_FALSE(exists("a.gdf~2"));
  }
  {
    const FullDisk disk(10);
    EXPECT_EQ(save_to(path("a.gdf")), 61);
    EXPECT_EQ(save_to(path("a.gdf")), 61);
  }
  EXPECT_EQ(read("a.gdf~"), kept);
  EXPECT_EQ(read("a.gdf~2"), older);
}

// A folder in which the files may be written and nothing else.
struct ClosedFolder : GraphFileAccess {
  ClosedFolder() {
    using std::filesystem::perms;
    std::filesystem::create_directory(path("tmp"));
    std::filesystem::permissions(path("tmp"), perms::all);
    setenv("TMPDIR", path("tmp").c_str(), 1);
    std::filesystem::create_directory(path("closed"));
    write_shared("old graph");
    std::filesystem::permissions(path("closed"), perms(0555));
  }
  ~ClosedFolder() override {
    unsetenv("TMPDIR");
    std::filesystem::permissions(path("closed"), std::filesystem::perms::all);
  }

  void write_shared(const std::string& content) {
    write("closed/a.gdf", content);
    std::filesystem::permissions(path("closed/a.gdf"), std::filesystem::perms(0666));
  }
  int save_as_other_user() {
    const Unprivileged user;
    return save_to(path("closed/a.gdf"));
  }
  // The files in the folder for temporary ones.
  std::vector<std::filesystem::path> copies() const {
    return {std::filesystem::directory_iterator(path("tmp")), {}};
  }
};

TEST_F(ClosedFolder, AFileIsOverwrittenInPlace) {
  EXPECT_EQ(save_as_other_user(), 0);
  EXPECT_EQ(read_lines("closed/a.gdf").size(), 52U);
  EXPECT_EQ(copies().size(), 0U);
  EXPECT_FALSE(exists("closed/a.gdf~"));
}

TEST_F(ClosedFolder, TheOlderGraphIsBackInItsPlaceWhereAWriteFails) {
  for (const std::string& older : {std::string("old graph"), std::string(150, 'o')}) {
    write_shared(older);
    {
      const FullDisk disk(200);
      EXPECT_EQ(save_as_other_user(), 61);
      EXPECT_EQ(save_as_other_user(), 61);
    }
    EXPECT_EQ(read("closed/a.gdf"), older);
    EXPECT_EQ(copies().size(), 0U);
  }
  EXPECT_EQ(save_as_other_user(), 0);
  EXPECT_EQ(copies().size(), 0U);
}

TEST_F(ClosedFolder, AShorterGraphLeavesNothingOfALongerOne) {
  write_shared(std::string(100'000, 'o'));
  EXPECT_EQ(save_as_other_user(), 0);
  EXPECT_EQ(read_lines("closed/a.gdf").size(), 52U);
}

TEST_F(ClosedFolder, AFaultOfTheFolderForTemporaryFilesNamesIt) {
  const auto failed_at = [&] {
    try {
      const Unprivileged user;
      host.shell.files = {{path("closed/a.gdf"), 1}};
      host.control.ChartOptions("saveas");
    } catch (const FileFault& fault) {
      return fault.path();
    }
    return std::string("none");
  };
  host.control.build_the_graph();
  using std::filesystem::perms;
  std::filesystem::permissions(path("tmp"), perms(0555));
  EXPECT_EQ(failed_at(), path("tmp"));
  {
    std::filesystem::permissions(path("tmp"), perms::all);
    const FullDisk disk(5);
    EXPECT_EQ(failed_at(), path("tmp"));
  }
  setenv("TMPDIR", path("nowhere").c_str(), 1);
  EXPECT_EQ(failed_at(), path("nowhere"));
  EXPECT_EQ(read("closed/a.gdf"), "old graph");
}

// As many bytes as a name may have.
std::string longest_name() {
  std::string name = "x";
  while (name.size() < 251) name += "\u00e4";
  return name + ".gdf";
}

TEST_F(ClosedFolder, AFileWithTheLongestNameIsOverwrittenToo) {
  std::filesystem::permissions(path("closed"), std::filesystem::perms::all);
  std::filesystem::rename(path("closed/a.gdf"), path("closed/" + longest_name()));
  std::filesystem::permissions(path("closed"), std::filesystem::perms(0555));
  {
    const Unprivileged user;
    EXPECT_EQ(save_to(path("closed/" + longest_name())), 0);
  }
  EXPECT_EQ(read_lines("closed/" + longest_name()).size(), 52U);
  EXPECT_EQ(copies().size(), 0U);
}

TEST_F(GraphFileAccess, AFileWithTheLongestNameIsKeptUnderAShorterOne) {
  const std::string name = longest_name();
  ASSERT_EQ(save_to(path(name)), 0);
  ASSERT_EQ(save_to(path(name)), 0);
  const std::string older = read(name);
  {
    const FullDisk disk(100);
    EXPECT_EQ(save_to(path(name)), 61);
  }
  EXPECT_EQ(read(name).size(), 100U);
  // The name ends in ASCII, so a byte for the tilde is cut off there.
  EXPECT_EQ(read(name.substr(0, 254) + '~'), older);
  // Another's file of that name is left alone.
  write(name.substr(0, 254) + '~', "another's");
  write(name, older);
  {
    const FullDisk disk(100);
    EXPECT_EQ(save_to(path(name)), 61);
  }
  EXPECT_EQ(read(name.substr(0, 254) + '~'), "another's");
  EXPECT_EQ(read(name.substr(0, 253) + "~2"), older);
}

TEST_F(ClosedFolder, WithoutSpaceForTheCopyTheFileIsAsItWas) {
  {
    const FullDisk disk(5);
    EXPECT_EQ(save_as_other_user(), 61);
  }
  EXPECT_EQ(read("closed/a.gdf"), "old graph");
  EXPECT_EQ(copies().size(), 0U);
}

TEST_F(ClosedFolder, AFileThatCanOnlyBeWrittenIsOverwrittenToo) {
  std::filesystem::permissions(path("closed/a.gdf"), std::filesystem::perms(0222));
  EXPECT_EQ(save_as_other_user(), 0);
  EXPECT_EQ(read_lines("closed/a.gdf").size(), 52U);
}

TEST_F(GraphFileAccess, AFileThatCanOnlyBeWrittenIsReplaced) {
  write("a.gdf", "old graph");
  std::filesystem::permissions(path("a.gdf"), std::filesystem::perms(0222));
  {
    const Unprivileged user;
    const FullDisk disk(100);
    EXPECT_EQ(save_to(path("a.gdf")), 61);
  }
  EXPECT_EQ(read("a.gdf~"), "old graph");
  std::filesystem::rename(path("a.gdf~"), path("a.gdf"));
  {
    const Unprivileged user;
    EXPECT_EQ(save_to(path("a.gdf")), 0);
  }
  EXPECT_EQ(read_lines("a.gdf").size(), 52U);
  EXPECT_FALSE(exists("a.gdf~"));
}

TEST_F(GraphFileAccess, ALargeGraphFillsTheDiskToo) {
  std::vector<Double> values(30'000);
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = 1.0 / static_cast<Double>(i + 3);
  host.load(values, values);
  const FullDisk disk(300'000);
  EXPECT_EQ(save_to(path("a.gdf")), 61);
  EXPECT_EQ(std::filesystem::file_size(path("a.gdf")), 300'000U);
}

}  // namespace
}  // namespace kurv
