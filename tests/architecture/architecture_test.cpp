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
#include <utility>
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
    {"control", "pixels"},
    {"dialogs", "fonts", "png", "qt/surface"},
    {"bindings/c", "qt/widget"},
    {"bindings/widget"},
    {"app/base", "examples/headless", "examples/late_binding", "examples/live", "examples/minimal",
     "examples/own_container", "examples/own_evaluator", "examples/own_menus", "examples/own_shell",
     "examples/without_qt_picture", "qt/designer"},
    {"app/sources"},
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
  const std::string top = path.begin()->string();
  if (top == "include" || top == "KurvGraph") return implementer_of(path);
  return path.parent_path().string();
}

bool is_top_folder(const std::string& name) {
  for (const auto& layer : kLayers) {
    for (const std::string& module : layer) {
      if (fs::path(module).begin()->string() == name) return true;
    }
  }
  return false;
}

// Whether a header is the project's own, however it is quoted: the root is on the include path.
bool is_own(const std::string& include) {
  const std::string top = fs::path(include.substr(1)).begin()->string();
  return include[0] == '"' || top == "KurvGraph" || is_top_folder(top);
}
bool is_private(const std::string& include) {
  return is_own(include) && !include.substr(1).starts_with("KurvGraph/");
}

bool may_include(const std::string& module, const std::string& included_module) {
  return module == included_module || layer_of(included_module) < layer_of(module);
}

// `include` as it is written, with its opening quotation mark or angle bracket.
bool is_allowed(const std::string& module, const std::string& include) {
  return !is_own(include) || may_include(module, module_of(include.substr(1)));
}

// The sources of the product. Tests, benchmarks and fuzzers may include anything, and the sources
// in a build folder are generated.
std::vector<Source> sources() {
  const std::set<std::string> left_out = {"bench", "build", "docs", "fuzz", "out", "tests"};
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
  return source.module == "dialogs" || source.module == "bindings/widget" ||
         source.module.starts_with("qt/") || is_host(source);
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
      EXPECT_TRUE(is_allowed(source.module, include))
          << source.path << " includes " << include.substr(1);
    }
  }
}

TEST(Architecture, UpwardAndSidewaysIncludesAreFound) {
  const std::vector<std::pair<const char*, const char*>> wrong = {
      {"model", "\"control/redraw.h"},          {"model", "<KurvGraph/control.h"},
      {"control", "<dialogs/client.h"},         {"render", "\"io/text_file.h"},
      {"raster", "<KurvGraph/picture.h"},       {"qt/surface", "<qt/widget/plot_view.h"},
      {"dialogs", "<KurvGraph/KurvGraph.h"},    {"app/csv", "<app/window/main_window.h"},
      {"app/host", "\"app/window/main_menu.h"}, {"control", "\"redraw.h"},
  };
  for (const auto& [module, include] : wrong) {
    EXPECT_FALSE(is_allowed(module, include)) << module << " " << include;
  }
  EXPECT_TRUE(is_allowed("control", "\"render/axes.h"));
  EXPECT_TRUE(is_allowed("app/csv", "<KurvGraph/KurvGraph.h"));
  EXPECT_TRUE(is_allowed("qt/widget", "<QWidget"));
}

TEST(Architecture, NoTwoModulesMayIncludeEachOther) {
  std::vector<std::string> modules;
  for (const auto& layer : kLayers) modules.insert(modules.end(), layer.begin(), layer.end());
  for (const std::string& one : modules) {
    for (const std::string& other : modules) {
      if (one == other) continue;
      EXPECT_FALSE(may_include(one, other) && may_include(other, one)) << one << " and " << other;
    }
  }
}

TEST(Architecture, PublicHeadersIncludeNoPrivateOnes) {
  for (const Source& source : sources()) {
    if (!source.path.starts_with("include/")) continue;
    for (const std::string& include : includes(source)) {
      EXPECT_FALSE(is_private(include)) << source.path << " includes " << include.substr(1);
    }
  }
}

TEST(Architecture, HostsSeeThePublicHeadersAlone) {
  for (const Source& source : sources()) {
    if (!is_host(source)) continue;
    for (const std::string& include : includes(source)) {
      EXPECT_TRUE(!is_private(include) || include.substr(1).starts_with("app/"))
          << source.path << " includes " << include.substr(1);
    }
  }
}

// One target a folder, named like it, so that the linker checks the layers as well.
TEST(Architecture, EveryModuleIsATargetThatLinksDownwards) {
  std::map<std::string, std::string> modules = {{"KurvGraph::Core", "bindings/c"},
                                                {"KurvGraph::KurvGraph", "qt/widget"}};
  for (const auto& layer : kLayers) {
    for (const std::string& module : layer) {
      modules["kurv_" + std::regex_replace(module, std::regex("/"), "_")] = module;
    }
  }
  static const std::regex kComment("#[^\n]*");
  static const std::regex kTarget("kurv_[a-z_]+|KurvGraph::[A-Za-z]+");
  for (const auto& [target, module] : modules) {
    std::ifstream file(kRoot / module / "CMakeLists.txt");
    const std::string text =
        std::regex_replace(std::string{std::istreambuf_iterator<char>(file), {}}, kComment, "");
    const bool is_program = text.find("add_executable(") != std::string::npos;
    EXPECT_TRUE(is_program || text.find("kurv_module(") != std::string::npos) << module;
    for (std::sregex_iterator it(text.begin(), text.end(), kTarget), end; it != end; ++it) {
      const auto linked = modules.find(it->str());
      if (linked == modules.end()) continue;  // a function of CMake
      EXPECT_TRUE(may_include(module, linked->second)) << module << " links to " << it->str();
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

// Each of the two modules that a bare core is built without knows its own libraries, and the
// headers for C include those of C.
TEST(Architecture, CoreUsesTheStandardLibraryAlone) {
  const std::regex foreign(R"(<[^>]*(/|\.h).*)");
  const std::map<std::string, std::set<std::string>> known = {
      {"bindings/c", {"<stddef.h", "<stdint.h"}},
      {"fonts", {"<fontconfig/fontconfig.h", "<ft2build.h", "<hb-ot.h", "<hb.h"}},
      {"png", {"<png.h"}},
  };
  for (const Source& source : sources()) {
    if (may_know_the_toolkit(source)) continue;
    for (const std::string& include : includes(source)) {
      const auto libraries = known.find(source.module);
      if (is_own(include) || (libraries != known.end() && libraries->second.contains(include))) {
        continue;
      }
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
// pass them to: in a destructor, and in the widget, the plugin for the form designer, the program
// and the functions for C, which are called by the toolkit's event loop, by the designer, by the
// user and by other languages.
TEST(Architecture, OnlyTheOuterEdgesCatch) {
  const std::set<std::string> edges = {"bindings/c", "qt/designer", "qt/widget"};
  for (const Source& source : sources()) {
    if (is_host(source) || edges.contains(source.module)) continue;
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
