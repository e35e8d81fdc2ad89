// The examples that need no window: what they print and write, and that the pages show their code.
#include <KurvGraph/headless.h>

#include <algorithm>

#include "tests/examples/example_run.h"
#include "tests/support/golden.h"
#include "tests/support/graph_files.h"

namespace kurv {
namespace {

using test::Ended;
using test::run;

std::string read(const std::string& path) {
  std::ifstream file(KURV_SOURCE_DIR "/" + path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// What is between the braces of main().
std::string body_of_main(const std::string& path) {
  const std::string code = read(path);
  const std::size_t begin = code.find('\n', code.find("\nint main(") + 1) + 1;
  return code.substr(begin, code.rfind('}') - begin);
}

std::string without_indent(const std::string& code) {
  std::string result = '\n' + code;
  for (std::size_t at = result.find("\n  "); at != std::string::npos;) {
    result.erase(at + 1, 2);
    at = result.find("\n  ", at + 1);
  }
  return result.substr(1);
}

TEST(HeadlessExample, PrintsTheCallsOfOneDrawing) {
  const Ended ended = run(KURV_HEADLESS);
  EXPECT_EQ(ended.status, 0);
  test::expect_golden("headless_example.txt", ended.output);
}

TEST(HeadlessExample, ThePageShowsTheLinesThatAreCompiled) {
  const std::string lines = without_indent(body_of_main("examples/headless/main.cpp"));
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 10) << lines;
  EXPECT_NE(read("docs/control.md").find("```cpp\n" + lines + "```"), std::string::npos);
}

TEST(MinimalExample, TheFirstPageShowsTheWholeProgram) {
  const std::string code = read("examples/minimal/main.cpp");
  const std::string program = code.substr(code.find("#include"));
  EXPECT_NE(read("README.md").find("```cpp\n" + program + "```"), std::string::npos);
}

class OwnShellExample : public test::GraphFileTest {
 protected:
  Ended save(const std::string& pairs) {
    return run("printf '" + pairs + "' | " KURV_OWN_SHELL " " + path("pairs.gdf"));
  }
};

TEST_F(OwnShellExample, SavesAGraphThatLoads) {
  const Ended ended = save("1 2\\n3 4.5\\n");
  EXPECT_EQ(ended.output, "");
  EXPECT_EQ(ended.status, 0);
  test::TestHost host;
  host.control.file_load(path("pairs.gdf"));
  EXPECT_EQ(host.document().NumData, 2);
  EXPECT_EQ(host.document().xyArr(2, 2), 4.5);
  EXPECT_EQ(host.container.width, 12000) << "as wide as its surface";
  EXPECT_EQ(host.container.height, 9000);
}

TEST_F(OwnShellExample, PrintsTheMessageAboutDataThatCannotBePlotted) {
  const Ended ended = save("1 2\\n");
  EXPECT_TRUE(ended.output.starts_with("KURV Guide: ")) << ended.output;
  EXPECT_EQ(ended.status, 1);
  EXPECT_FALSE(std::filesystem::exists(path("pairs.gdf")));
}

TEST_F(OwnShellExample, FailsWhereTheFileCannotBeWritten) {
  std::filesystem::create_directory(path("pairs.gdf"));
  EXPECT_EQ(save("1 2\\n3 4\\n").status, 1);
}

class OwnContainerExample : public test::GraphFileTest {};

TEST_F(OwnContainerExample, TakesTheSizeOfTheFileAndPrintsWhatItIsTold) {
  std::vector<std::string> lines = test::sample_lines();
  lines.at(20) = " 6000 ";
  lines.at(21) = " 8000 ";
  const Ended ended = run(KURV_OWN_CONTAINER " " + write("a.gdf", test::joined(lines)));
  EXPECT_EQ(ended.output,
            "drawn, 12000 x 9000 twips\n"
            "drawn, 12000 x 6000 twips\n"
            "drawn, 8000 x 6000 twips\n"
            "drawn, 8000 x 6000 twips\n"
            "button 1 released at 6000, 4500\n");
  EXPECT_EQ(ended.status, 0);
}

TEST_F(OwnContainerExample, NamesAFileThatDoesNotLoad) {
  const std::string file = write("b.gdf", "nothing");
  const Ended ended = run(KURV_OWN_CONTAINER " " + file);
  EXPECT_TRUE(ended.output.starts_with(file + ": ")) << ended.output;
  EXPECT_EQ(ended.status, 1);
}

TEST(LateBindingExample, SetsPropertiesByNameAndHearsTheEvent) {
  const Ended ended =
      run(KURV_LATE_BINDING " numticks=5 Left_margine=900.4 Title='a b' X_grid=true");
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.output,
            "NumTicks = 5, initially 10\n"
            "Left_margine = 900 twips, initially 800\n"
            "Title = a b, initially `Scatter Points Graph`\n"
            "X_grid = True, initially False\n"
            "MouseUp Button=1 Shift=0 x=6000 Y=4500\n");
}

TEST(LateBindingExample, NamesWhatCannotBeSet) {
  EXPECT_EQ(run(KURV_LATE_BINDING " NumTicks=many").output, "NumTicks=many: Type mismatch\n");
  EXPECT_EQ(run(KURV_LATE_BINDING " nothing=1").status, 1);
}

// A program that only prints has no picture; its page shows what it prints.
class PrintingExamples : public test::GraphFileTest {
 protected:
  static void expect_shown(const std::string& example, const std::string& command) {
    const Ended ended = run(command);
    const std::string shown = "\n" + ended.output + "```\n";
    EXPECT_GT(shown.size(), 40U) << example;
    EXPECT_NE(kurv::read("examples/" + example + "/README.md").find(shown), std::string::npos)
        << example << " prints:" << shown;
  }
};

TEST_F(PrintingExamples, ThePagesShowWhatTheyPrint) {
  const std::string squares = path("squares.gdf");
  run("seq 1 9 | awk '{ print $1, $1 * $1 }' | " KURV_OWN_SHELL " " + squares);
  expect_shown("headless", KURV_HEADLESS " | head");
  expect_shown("late_binding", KURV_LATE_BINDING " NumTicks=5 Title=Growth");
  expect_shown("own_container", KURV_OWN_CONTAINER " " + squares);
}

// What headless.h says of a host without a window and a user.
TEST(Headless, ContainerHasTheSizeOfTheSurfaceAndKeepsIt) {
  const RecordingSurface surface(12000, 9000);
  HeadlessContainer container(surface);
  container.set_Width(1);
  container.set_Height(2);
  EXPECT_EQ(container.Width(), 12000);
  EXPECT_EQ(container.Height(), 9000);
  EXPECT_TRUE(container.run_mode());
}

TEST(Headless, ShellAnswersNoAndCancels) {
  HeadlessShell shell;
  EXPECT_EQ(shell.message_box("", kYesNoQuestion, ""), Answer::kNo);
  EXPECT_EQ(shell.message_box("", kCriticalStop, ""), Answer::kOk);
  EXPECT_EQ(shell.input_prompt("", "", "default"), "");
  EXPECT_EQ(shell.open_file({}).path, "");
  EXPECT_EQ(shell.save_file({}).path, "");
  EXPECT_FALSE(shell.choose_font({}));
}

}  // namespace
}  // namespace kurv
