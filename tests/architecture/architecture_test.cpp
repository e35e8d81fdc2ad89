// Reads the sources and checks that they follow docs/architecture.md.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = KURV_SOURCE_DIR;

struct Source {
  std::string path;    // from the root
  std::string module;  // its folder; of a public header, the folder that implements it
  std::string text;
};

// Bottom to top. A source may include headers of its own module and of the layers below, never of a
// module beside or above it; so there are no cyclic includes either.
const std::vector<std::vector<std::string>> kLayers = {
    {"model"},
    {"expr", "io", "raster", "render"},
    {"control"},
    {"dialogs", "qt/surface"},
    {"qt/widget"},
    {"app/base", "examples/minimal"},
    {"app/csv"},
    {"app/graph"},
    {"app/host", "app/window"},
    {"app/command_line"},
    {"app"},
};

constexpr std::size_t kNoLayer = 99;

std::size_t layer_of(const std::string& module) {
  for (std::size_t layer = 0; layer < kLayers.size(); ++layer) {
    if (std::count(kLayers[layer].begin(), kLayers[layer].end(), module) > 0) return layer;
  }
  return kNoLayer;
}

// "KurvGraph.h" is implemented by kurv_graph.cpp.
std::string key_of(const fs::path& path) {
  std::string key;
  for (const char c : path.stem().string()) {
    if (c != '_') key += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  }
  return key;
}

// The folder with the source of that name; a header that needs none is the model's.
std::string implementer_of(const fs::path& public_header) {
  static const std::map<std::string, std::string> folders = [] {
    std::map<std::string, std::string> found;
    for (const auto& layer : kLayers) {
      for (const std::string& module : layer) {
        for (const auto& entry : fs::directory_iterator(kRoot / module)) {
          if (entry.path().extension() == ".cpp") found.emplace(key_of(entry.path()), module);
        }
      }
    }
    return found;
  }();
  const auto found = folders.find(key_of(public_header));
  return found == folders.end() ? "model" : found->second;
}

std::string module_of(const fs::path& path) {
  if (path.begin()->string() == "include") return implementer_of(path);
  return path.parent_path().string();
}

// Every folder except those that are not part of the product.
std::vector<Source> sources() {
  const std::set<std::string> left_out = {"bench", "build", "docs", "fuzz", "tests"};
  std::vector<Source> found;
  for (const auto& top : fs::directory_iterator(kRoot)) {
    const std::string name = top.path().filename().string();
    if (!top.is_directory() || name.starts_with('.') || left_out.contains(name)) continue;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
      const std::string extension = entry.path().extension().string();
      if (extension != ".h" && extension != ".cpp") continue;
      std::ifstream file(entry.path(), std::ios::binary);
      const fs::path path = fs::relative(entry.path(), kRoot);
      found.push_back(
          {path.string(), module_of(path), std::string{std::istreambuf_iterator<char>(file), {}}});
    }
  }
  return found;
}

std::vector<std::string> includes(const Source& source) {
  static const std::regex kInclude(R"((^|\n)\s*#\s*include\s*([<"][^>"]+)[>"])");
  std::vector<std::string> found;
  for (std::sregex_iterator it(source.text.begin(), source.text.end(), kInclude), end; it != end;
       ++it) {
    found.push_back((*it)[2]);
  }
  return found;
}

bool matches(const Source& source, const char* pattern) {
  return std::regex_search(source.text, std::regex(pattern));
}

bool is_host(const Source& source) {
  return source.module.starts_with("app") || source.module.starts_with("examples");
}

bool may_know_the_toolkit(const Source& source) {
  return source.module == "dialogs" || source.module.starts_with("qt/") || is_host(source);
}

TEST(Architecture, EverySourceIsInAModule) {
  std::set<std::string> modules;
  for (const Source& source : sources()) {
    modules.insert(source.module);
    EXPECT_NE(layer_of(source.module), kNoLayer) << source.path << " is in an unknown module";
  }
  for (const auto& layer : kLayers) {
    for (const std::string& module : layer) {
      EXPECT_TRUE(modules.contains(module)) << module << " holds no source";
    }
  }
}

TEST(Architecture, NothingIncludesUpwardsOrSideways) {
  for (const Source& source : sources()) {
    for (const std::string& include : includes(source)) {
      const bool is_public = include.starts_with("<KurvGraph/");
      if (!is_public && include[0] != '"') continue;
      const std::string module =
          is_public ? implementer_of(include.substr(1)) : module_of(include.substr(1));
      EXPECT_TRUE(module == source.module || layer_of(module) < layer_of(source.module))
          << source.path << " includes " << include.substr(1) << " of " << module;
    }
  }
}

TEST(Architecture, PublicHeadersIncludeNoPrivateOnes) {
  for (const Source& source : sources()) {
    if (!source.path.starts_with("include/")) continue;
    for (const std::string& include : includes(source)) {
      EXPECT_NE(include[0], '"') << source.path << " includes " << include.substr(1);
    }
  }
}

TEST(Architecture, HostsSeeThePublicHeadersAlone) {
  for (const Source& source : sources()) {
    if (!is_host(source)) continue;
    for (const std::string& include : includes(source)) {
      if (include[0] != '"') continue;
      EXPECT_TRUE(include.starts_with("\"app/"))
          << source.path << " includes " << include.substr(1);
    }
  }
}

// One target a folder, named like it, so that the linker checks the layers as well.
TEST(Architecture, EveryModuleIsATargetThatLinksDownwards) {
  static const std::regex kLinks(R"(LINKS ([^)]*)\))");
  static const std::regex kTarget(R"(kurv_[a-z_]+)");
  std::map<std::string, std::string> modules;
  for (const auto& layer : kLayers) {
    for (const std::string& module : layer) {
      modules["kurv_" + std::regex_replace(module, std::regex("/"), "_")] = module;
    }
  }
  for (const auto& [target, module] : modules) {
    if (module == "app" || module == "examples/minimal") continue;  // programs
    std::ifstream file(kRoot / module / "CMakeLists.txt");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(text.find("kurv_module("), std::string::npos) << module;
    std::smatch links;
    if (!std::regex_search(text, links, kLinks)) continue;
    const std::string list = links[1];
    for (std::sregex_iterator it(list.begin(), list.end(), kTarget), end; it != end; ++it) {
      ASSERT_TRUE(modules.contains(it->str())) << module << " links to " << it->str();
      EXPECT_LT(layer_of(modules.at(it->str())), layer_of(module))
          << module << " links to " << it->str();
    }
  }
}

TEST(Architecture, ToolkitStaysInItsModules) {
  for (const Source& source : sources()) {
    if (may_know_the_toolkit(source)) continue;
    for (const std::string& include : includes(source)) {
      EXPECT_FALSE(include.starts_with("<Q") || include.starts_with("<Qt"))
          << source.path << " includes " << include;
    }
  }
}

TEST(Architecture, CoreUsesTheStandardLibraryAlone) {
  const std::regex foreign(R"(<[^>]*(/|\.h).*)");
  for (const Source& source : sources()) {
    if (may_know_the_toolkit(source)) continue;
    for (const std::string& include : includes(source)) {
      if (include[0] != '<' || include.starts_with("<KurvGraph/")) continue;
      EXPECT_FALSE(std::regex_match(include, foreign)) << source.path << " includes " << include;
    }
  }
}

TEST(Architecture, NumbersAndTextsDependOnNoLocale) {
  const char* locale_bound =
      R"(\b(strtod|strtof|strtold|atof|stod|stof|stold|setlocale|isalpha|isdigit|isspace|tolower|toupper|printf|sprintf|snprintf|scanf|sscanf)\s*\()";
  for (const Source& source : sources()) {
    EXPECT_FALSE(matches(source, locale_bound)) << source.path;
    if (may_know_the_toolkit(source)) continue;
    for (const char* header : {"<iostream", "<sstream", "<locale", "<iomanip"}) {
      for (const std::string& include : includes(source)) {
        EXPECT_NE(include, header) << source.path;
      }
    }
  }
}

// Faults pass through the library to its caller. They are caught only where there is no caller to
// pass them to: in a destructor, and in the widget and the program, which are called by the
// toolkit's event loop and by the user.
TEST(Architecture, OnlyTheOuterEdgesCatch) {
  for (const Source& source : sources()) {
    if (is_host(source) || source.module == "qt/widget") continue;
    std::string text = source.text;
    static const std::regex kDestructor(R"(\w+::~\w+\(\) \{[\s\S]*?\n\})");
    text = std::regex_replace(text, kDestructor, "");
    EXPECT_FALSE(std::regex_search(text, std::regex(R"(\bcatch\s*\()"))) << source.path;
  }
}

TEST(Architecture, EveryHeaderIsIncludedOnce) {
  for (const Source& source : sources()) {
    if (!source.path.ends_with(".h")) continue;
    EXPECT_NE(source.text.find("#pragma once"), std::string::npos) << source.path;
  }
}

// Below the heading of its module, so that a newcomer finds each file described once.
TEST(Architecture, ThePageNamesEveryFile) {
  std::ifstream file(kRoot / "docs" / "architecture.md");
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  for (const Source& source : sources()) {
    const fs::path path = source.path;
    if (path.begin()->string() == "examples") continue;
    const std::string heading = "\n### " + path.parent_path().string() + "/\n";
    const std::size_t begin = page.find(heading);
    ASSERT_NE(begin, std::string::npos) << "no heading for " << source.path;
    const std::string section = page.substr(begin, page.find("\n### ", begin + 1) - begin);
    EXPECT_NE(section.find('`' + path.stem().string() + '`'), std::string::npos) << source.path;
  }
}

TEST(Architecture, FilesStayShort) {
  for (const Source& source : sources()) {
    const auto lines = std::count(source.text.begin(), source.text.end(), '\n');
    EXPECT_LE(lines, 400) << source.path;
  }
}

}  // namespace
