// Reads the sources and keeps the picture in docs/architecture.md true.
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
  std::string path;  // from the root
  std::string room;
  std::string text;
};

// core/ has two floors: the model below the painting, the control above it.
const std::set<std::string> kModel = {"built_in_services", "decimal",          "fault",
                                      "graph_document",    "number_text",      "values",
                                      "plain_number",      "vector_registers", "words"};
// And what draws or asks stands above the painting, although it is about expressions.
const std::set<std::string> kExpressionCommands = {"derived_curve_wizard", "derived_curves",
                                                   "function_curve_commands", "function_curves"};

std::string room_of(const fs::path& path) {
  const std::string first = path.begin()->string();
  if (first == "core") return kModel.contains(path.stem().string()) ? "model" : "control";
  if (first == "expr" && kExpressionCommands.contains(path.stem().string())) return "control";
  if (first == "ui") return "control";
  return first == "include" ? "public" : first;
}

// Every folder but those that are read by nobody who ships.
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
          {path.string(), room_of(path), std::string{std::istreambuf_iterator<char>(file), {}}});
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

bool may_know_the_toolkit(const Source& source) {
  return source.room == "qt" || source.room == "dialogs" || source.room == "app" ||
         source.room == "examples" || source.path == "include/KurvGraph/picture.h" ||
         source.path == "include/KurvGraph/vector_picture.h" ||
         source.path == "include/KurvGraph/KurvGraph.h";
}

TEST(Architecture, SourcesAreFound) {
  std::set<std::string> rooms;
  for (const Source& source : sources()) rooms.insert(source.room);
  for (const char* room :
       {"public", "model", "control", "render", "raster", "io", "expr", "dialogs", "qt", "app"}) {
    EXPECT_TRUE(rooms.contains(room)) << room;
  }
}

TEST(Architecture, NothingIncludesUpwards) {
  const std::map<std::string, std::set<std::string>> allowed = {
      {"public", {}},
      {"model", {"model"}},
      {"raster", {"raster"}},
      {"render", {"render", "model"}},
      {"io", {"io", "render", "model"}},
      {"expr", {"expr", "model"}},
      {"control", {"control", "io", "expr", "render", "model"}},
      {"dialogs", {"dialogs", "io", "render", "control", "model"}},
      {"qt", {"qt", "dialogs", "raster", "io", "render", "control", "model"}},
      {"app", {"app"}},
      {"examples", {}},
  };
  for (const Source& source : sources()) {
    for (const std::string& include : includes(source)) {
      if (include[0] != '"') continue;
      const std::string room = room_of(include.substr(1));
      ASSERT_TRUE(allowed.contains(source.room)) << source.path << " is in an unknown room";
      EXPECT_TRUE(allowed.at(source.room).contains(room))
          << source.path << " includes " << include.substr(1);
    }
  }
}

TEST(Architecture, ToolkitStaysInItsRooms) {
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
    if (source.room == "app" || source.room == "qt" || source.room == "dialogs") continue;
    for (const char* header : {"<iostream", "<sstream", "<locale", "<iomanip", "<cstdio"}) {
      // Files of bytes are the other thing that <cstdio> is for.
      if (source.path.starts_with("io/text_file.")) continue;
      for (const std::string& include : includes(source)) {
        EXPECT_NE(include, header) << source.path;
      }
    }
  }
}

TEST(Architecture, OnlyTheOuterEdgesCatch) {
  for (const Source& source : sources()) {
    // The widget stands between the control and the event loop, which no exception may cross, and
    // the control's destructor has nobody to throw to.
    if (source.room == "app" || source.path == "qt/kurv_graph.cpp") continue;
    if (source.path == "core/control.cpp") continue;
    EXPECT_FALSE(matches(source, R"(\bcatch\s*\()")) << source.path;
  }
}

TEST(Architecture, EveryHeaderIsIncludedOnce) {
  for (const Source& source : sources()) {
    if (!source.path.ends_with(".h")) continue;
    EXPECT_NE(source.text.find("#pragma once"), std::string::npos) << source.path;
  }
}

TEST(Architecture, FilesStayShort) {
  for (const Source& source : sources()) {
    const auto lines = std::count(source.text.begin(), source.text.end(), '\n');
    EXPECT_LE(lines, 400) << source.path;
  }
}

}  // namespace
