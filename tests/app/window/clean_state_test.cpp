// What counts as saved, and which files are recent.
#include <gmock/gmock.h>

#include <KurvGraph/fault.h>

#include <QFile>
#include <QTemporaryDir>

#include "app/window/clean_state.h"
#include "app/window/recent_files.h"

namespace kurv::app {
namespace {

using testing::ElementsAre;

QByteArray of(std::vector<std::string_view> pieces) {
  return fingerprint([&](const auto& sink) {
    for (const std::string_view piece : pieces) sink(piece);
  });
}

QByteArray of_nothing() {
  return fingerprint([](const auto&) { throw Fault(FaultKind::kSubscriptOutOfRange); });
}

TEST(CleanState, BeforeTheFirstMarkThereIsNothingToLose) {
  EXPECT_TRUE(CleanState().is_clean(of({"a"})));
}

TEST(CleanState, JudgesByTheTextAndNotByItsPieces) {
  CleanState state;
  state.set_clean(of({"ab", "c"}));
  EXPECT_TRUE(state.is_clean(of({"a", "bc"})));
  EXPECT_FALSE(state.is_clean(of({"abd"})));
}

TEST(CleanState, ATextThatCannotBeHadIsNeverSaved) {
  CleanState state;
  state.set_clean(of({"a"}));
  EXPECT_FALSE(state.is_clean(of_nothing()));
  state.set_clean(of_nothing());
  EXPECT_FALSE(state.is_clean(of_nothing()));
  EXPECT_FALSE(state.is_clean(of({"a"})));
}

struct RecentFilesTest : testing::Test {
  QTemporaryDir folder;
  RecentFiles files{folder.filePath("sub/kurv.ini")};
};

TEST_F(RecentFilesTest, NewestFirstAndEachOnce) {
  files.add("/a");
  files.add("/b");
  files.add("/a");
  EXPECT_THAT(files.paths(), ElementsAre("/a", "/b"));
}

TEST_F(RecentFilesTest, TenAtMost) {
  for (int i = 0; i < 12; ++i) files.add('/' + std::to_string(i));
  EXPECT_EQ(files.paths().size(), 10u);
  EXPECT_EQ(files.paths().front(), "/11");
  EXPECT_EQ(files.paths().back(), "/2");
}

TEST_F(RecentFilesTest, PathsAreAbsolute) {
  files.add("a/../b.csv");
  EXPECT_THAT(files.paths(),
              ElementsAre(testing::AllOf(testing::StartsWith("/"), testing::EndsWith("/b.csv"),
                                         testing::Not(testing::HasSubstr("..")))));
}

TEST_F(RecentFilesTest, KeepsEveryByteOfAName) {
  const std::string special = "/a b,c\n\"\\%20&\xff\xc3\xa4";
  files.add(special);
  EXPECT_THAT(files.paths(), ElementsAre(special));
}

TEST_F(RecentFilesTest, ForgetsWhatIsRemoved) {
  files.add("/a");
  files.add("/b");
  files.remove("/a");
  EXPECT_THAT(files.paths(), ElementsAre("/b"));
  files.clear();
  EXPECT_THAT(files.paths(), ElementsAre());
}

TEST_F(RecentFilesTest, ADamagedListIsAnEmptyOne) {
  const QString place = folder.filePath("bad.ini");
  QFile file(place);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("[recent\nfiles=@Invalid(\nrelative, ,%zz\n\0\xff");
  file.close();
  EXPECT_THAT(RecentFiles(place).paths(), ElementsAre());
}

TEST(RecentFiles, APlaceThatCannotBeWrittenIsNoError) {
  RecentFiles files("/proc/no/such/place.ini");
  files.add("/a");
  EXPECT_THAT(files.paths(), ElementsAre());
}

}  // namespace
}  // namespace kurv::app
