// The pages of the examples: each folder has one, the list names all of them, and the pictures that
// they show exist.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kExamples = fs::path(KURV_SOURCE_DIR) / "examples";

std::string read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> folders() {
  std::vector<fs::path> found;
  for (const auto& entry : fs::directory_iterator(kExamples)) {
    if (entry.is_directory()) found.push_back(entry.path());
  }
  return found;
}

// Where the links of a page lead to, without those into the web.
std::vector<std::string> links(const std::string& page) {
  static const std::regex kLink(R"(\]\(([^)#:]+)\))");
  std::vector<std::string> found;
  for (std::sregex_iterator it(page.begin(), page.end(), kLink), end; it != end; ++it) {
    found.push_back((*it)[1]);
  }
  return found;
}

TEST(ExamplePages, EachFolderHasOneThatTheListNames) {
  const std::string list = read(kExamples / "README.md");
  EXPECT_GE(folders().size(), 12U);
  for (const fs::path& folder : folders()) {
    const std::string name = folder.filename();
    EXPECT_GT(read(folder / "README.md").size(), 100U) << name;
    EXPECT_NE(list.find("[" + name + "](" + name + "/README.md)"), std::string::npos) << name;
  }
}

TEST(ExamplePages, LinksAndPicturesExist) {
  std::vector<fs::path> pages = {kExamples / "README.md"};
  for (const fs::path& folder : folders()) pages.push_back(folder / "README.md");
  for (const fs::path& page : pages) {
    for (const std::string& link : links(read(page))) {
      EXPECT_TRUE(fs::exists(page.parent_path() / link)) << page << " links to " << link;
    }
  }
}

TEST(ExamplePages, EachPictureIsShownAndSmall) {
  int pictures = 0;
  for (const fs::path& folder : folders()) {
    const std::string page = read(folder / "README.md");
    for (const auto& entry : fs::directory_iterator(folder)) {
      if (entry.path().extension() != ".png") continue;
      ++pictures;
      const std::string name = entry.path().filename();
      EXPECT_NE(page.find("](" + name + ")"), std::string::npos) << entry.path() << " is not shown";
      EXPECT_TRUE(read(entry.path()).starts_with("\x89PNG")) << entry.path();
      EXPECT_LT(entry.file_size(), 60000U) << entry.path();
    }
  }
  EXPECT_GE(pictures, 7);
}

}  // namespace
