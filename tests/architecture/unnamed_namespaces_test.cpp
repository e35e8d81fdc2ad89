// Reads the sources of each module and checks that they can be compiled as one, as the preset
// release does: a name in the unnamed namespace of one source is in that of no other.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kRoot = KURV_SOURCE_DIR;

std::string contents(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The folders of the modules, and their sources.
std::map<std::string, std::vector<fs::path>> modules() {
  std::map<std::string, std::vector<fs::path>> found;
  for (const auto& top : fs::directory_iterator(kRoot)) {
    if (!fs::exists(top.path() / "CMakeLists.txt")) continue;
    for (const auto& entry : fs::recursive_directory_iterator(top)) {
      const fs::path folder = entry.path().parent_path();
      if (entry.path().extension() != ".cpp") continue;
      if (contents(folder / "CMakeLists.txt").find("kurv_module(") == std::string::npos) continue;
      found[fs::relative(folder, kRoot).string()].push_back(entry.path());
    }
  }
  return found;
}

std::string without_raw_strings(std::string text) {
  for (std::size_t begin; (begin = text.find("R\"")) != std::string::npos;) {
    const std::size_t open = text.find('(', begin);
    if (open == std::string::npos) break;
    const std::string close = ')' + text.substr(begin + 2, open - begin - 2) + '"';
    const std::size_t end = text.find(close, open);
    if (end == std::string::npos) break;
    text.replace(begin, end + close.size() - begin, "\"\"");
  }
  return text;
}

// The arguments of templates may contain brackets, and other names.
std::string without_template_arguments(std::string text) {
  static const std::regex kInnermost("<[^<>]*>");
  for (std::string before; before != text;) {
    before = text;
    text = std::regex_replace(before, kInnermost, "");
  }
  return text;
}

// The name that a declaration introduces; nothing where it is not yet complete. Empty for what may
// be in several sources: operators, aliases, and members of classes.
std::optional<std::string> declared_name(const std::string& declaration) {
  static const std::regex kType(R"((?:class|struct|union|enum|enum class) (\w+)[^=(;]*)");
  static const std::regex kOther(R"([^(\[={;]*?([\w:~]+) ?[(\[={;][^]*)");
  static const std::regex kNoName("(using|namespace|static_assert)\\b[^]*");
  if (std::regex_match(declaration, kNoName)) return "";
  std::smatch match;
  if (std::regex_match(declaration, match, kType)) return match.str(1);
  const std::string text = without_template_arguments(declaration);
  if (!std::regex_match(text, match, kOther)) return std::nullopt;
  const std::string name = match.str(1);
  const bool is_no_name = name.find(':') != std::string::npos || name.starts_with("operator");
  return is_no_name ? "" : name;
}

bool starts_declaration(const std::string& line) {
  return !line.empty() && std::isalpha(static_cast<unsigned char>(line[0])) != 0 &&
         !line.starts_with("template");
}

// The names that the unnamed namespaces of a source introduce. They are not indented, so a
// declaration begins at the beginning of a line.
std::set<std::string> unnamed_namespace_names(const std::string& text) {
  std::set<std::string> names;
  std::istringstream lines(without_raw_strings(text));
  bool is_inside = false;
  std::string declaration;
  for (std::string line; std::getline(lines, line);) {
    if (line == "namespace {") is_inside = true;
    if (line == "}  // namespace") is_inside = false;
    if (!is_inside || (declaration.empty() && !starts_declaration(line))) continue;
    declaration += line + '\n';
    const std::optional<std::string> name = declared_name(declaration);
    if (!name) continue;
    if (!name->empty()) names.insert(*name);
    declaration.clear();
  }
  return names;
}

TEST(UnnamedNamespaces, NamesAreFound) {
  const std::string text = R"--(
int outside(int value) {
  return value;
}

namespace {

constexpr double kRatio = (1 + 2) / 3.0;
constexpr const char* kTexts[] = {
    "int in_a_text() {"};
constexpr const char* kRaw = R"(
int in_a_raw_text() {
)";
using Alias = std::vector<int>;

// int in_a_comment() {
struct Item {
  int member = 0;
};
enum class Kind { kOne };

template <class Value>
std::optional<std::pair<Value, int>> found(const std::function<int(Value)>& function,
                                           int limit) {
  int local = limit;
  return std::pair{function(local), limit};
}

std::map<std::string, std::vector<std::pair<std::string, std::string>>>
long_type() {
  return {};
}

bool operator==(const Item&, const Item&) {
  return true;
}
int Item::method() {
  return 0;
}

}  // namespace

int after() {
  return 0;
}
)--";
  const std::set<std::string> expected = {"kRatio", "kTexts", "kRaw",     "Item",
                                          "Kind",   "found",  "long_type"};
  EXPECT_EQ(unnamed_namespace_names(text), expected);
}

TEST(UnnamedNamespaces, NoTwoSourcesOfAModuleShareAName) {
  std::size_t found = 0;
  for (const auto& [module, sources] : modules()) {
    std::map<std::string, std::string> owners;
    for (const fs::path& source : sources) {
      for (const std::string& name : unnamed_namespace_names(contents(source))) {
        const auto [owner, is_new] = owners.emplace(name, source.filename().string());
        EXPECT_TRUE(is_new) << name << " is in " << module << '/' << owner->second << " and in "
                            << source.filename() << "; rename one, or share it in a header";
        ++found;
      }
    }
  }
  EXPECT_GT(found, 500u);  // the modules have been found
}

}  // namespace
