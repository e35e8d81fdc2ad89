#include "control/graph_file_commands.h"

#include <KurvGraph/headless.h>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

using test::fault_of;
using test::sample_with;

struct GraphFileCommandsTest : test::GraphFileTest {
  GraphFileCommandsTest() {
    host.container.height = 4800;
    host.container.width = 7200;
  }
  std::string write_sample(const std::string& name) {
    return write(name, test::joined(test::sample_lines()));
  }
  void open(const std::string& chosen) {
    host.shell.files.push_back({chosen, 1});
    host.control.ChartOptions("open");
  }
  void answer_save(const std::string& name, int filter = 1) {
    host.shell.files.push_back({path(name), filter});
  }

  test::TestHost host;
};

struct FileLoad : GraphFileCommandsTest {};
struct SaveGraph : GraphFileCommandsTest {};
struct SaveDialogTest : GraphFileCommandsTest {};
struct OpenCommand : GraphFileCommandsTest {};

TEST_F(FileLoad, TakesOverDataViewAndFileName) {
  host.control.file_load(write_sample("a.gdf"));
  const GraphDocument& document = host.document();
  EXPECT_TRUE(document.GraphValid);
  EXPECT_TRUE(document.DataFromHost);
  EXPECT_EQ(document.NumData, 3);
  EXPECT_EQ(document.xyArr(2, 3), 9);
  EXPECT_EQ(document.yVarName(2), "y");
  EXPECT_EQ(document.y_func(1).expression, "x^2");
  EXPECT_EQ(document.Connected, Boolean(true));
  EXPECT_EQ(document.DrawMarkers, Boolean(true));
  EXPECT_EQ(document.Y_grid, Boolean(true));
  EXPECT_EQ(document.X_grid, Boolean(false));
  EXPECT_EQ(document.ymin, 0.5);
  EXPECT_EQ(document.ymax, 10);
  EXPECT_EQ(document.xmin, -1);
  EXPECT_EQ(document.xmax, 3.25);
  EXPECT_EQ(host.layout().imgTitle.top, 120);
  EXPECT_EQ(host.layout().imgTitle.left, 2400);
  EXPECT_EQ(host.layout().imgSubTitle.top, 420);
  EXPECT_EQ(host.layout().imgSubTitle.left, 2401);
  EXPECT_EQ(host.layout().picLegend.top, 610);
  EXPECT_EQ(host.layout().picLegend.left, 5200);
  EXPECT_EQ(host.container.height, 4800);
  EXPECT_EQ(host.container.width, 7200);
  EXPECT_EQ(host.control.FileName(), path("a.gdf"));
  EXPECT_EQ(document.SavedTitle, "Demo");
  EXPECT_TRUE(host.control.GraphSaved().is_exactly_true());
  EXPECT_NE(host.surface.log().find("\"Demo\""), std::string::npos) << "drawn";
  host.control.build_the_graph();
  EXPECT_FALSE(host.control.GraphSaved());
}

TEST_F(FileLoad, HeightIsSetBeforeWidthAndAResizeInBetweenDoesNoHarm) {
  struct Resizing final : HeadlessContainer {
    using HeadlessContainer::HeadlessContainer;
    void set_Height(Single twips) override { resized("height", twips); }
    void set_Width(Single twips) override { resized("width", twips); }
    void resized(const char* side, Single twips) {
      log += side + std::string(" ") + std::to_string(static_cast<int>(twips)) + "\n";
      control->resize();
    }
    Control* control = nullptr;
    std::string log;
  };
  RecordingSurface surface(7200, 4800);
  Resizing container(surface);
  HeadlessShell shell;
  Control control(container, shell, surface);
  container.control = &control;
  control.file_load(write_sample("a.gdf"));
  EXPECT_EQ(container.log, "height 4800\nwidth 7200\n");
  EXPECT_TRUE(control.GraphSaved());
}

TEST_F(FileLoad, IntakeMayChooseOtherLabelFormatsThanTheFileHolds) {
  std::vector<std::string> lines = test::sample_lines();
  lines[26] = "0.000000";
  lines[27] = "0.000000";
  lines[48] = "0,200,20000";
  host.control.file_load(write("a.gdf", test::joined(lines)));
  EXPECT_EQ(host.control.AxisLabelFormatX(), "0.000000") << "the span of x suits any format";
  EXPECT_EQ(host.control.AxisLabelFormatY(), "0.00E+0");
}

TEST_F(FileLoad, ViewIsRestoredAlsoWhenValidationRefusedTheData) {
  std::vector<std::string> lines = test::sample_lines();
  lines[40] = "True";
  lines[47] = "5,5,5";
  host.control.file_load(write("a.gdf", test::joined(lines)));
  ASSERT_EQ(host.shell.messages.size(), 1U);
  EXPECT_EQ(host.shell.messages[0].text, "Graph cannot be plotted when all x values are the same.");
  EXPECT_FALSE(host.document().GraphValid);
  EXPECT_TRUE(host.document().DataFromHost);
  EXPECT_EQ(host.container.height, 4800);
  EXPECT_EQ(host.layout().imgTitle.left, 2400);
  EXPECT_EQ(host.document().ymin, 0.5);
  EXPECT_EQ(host.control.FileName(), path("a.gdf"));
  EXPECT_TRUE(host.control.GraphSaved());
  EXPECT_EQ(host.surface.log(), "") << "nothing is drawn";
}

TEST_F(FileLoad, MoreThan149CurvesAreCut) {
  std::vector<std::string> lines = test::sample_lines();
  lines[3] = "200";
  std::string names = "x";
  std::string flags = "True";
  for (int k = 1; k <= 200; ++k) names += ",y";
  for (int k = 2; k <= 200; ++k) flags += ",True";
  lines.erase(lines.begin() + 48, lines.begin() + 51);
  lines.insert(lines.begin() + 48, 200, "1,4,9");
  lines.insert(lines.begin() + 248, {names, flags});
  host.control.file_load(write("a.gdf", test::joined(lines)));
  EXPECT_EQ(host.document().NumY, 149);
  EXPECT_EQ(host.document().xyArr(150, 3), 9);
}

TEST_F(SaveGraph, WritesAnUnsavedGraphToItsFile) {
  host.control.file_load(write_sample("a.gdf"));
  host.control.set_Title("Changed");
  host.control.build_the_graph();
  host.control.Save_graph();
  EXPECT_EQ(read_lines("a.gdf")[5], "Changed");
  EXPECT_TRUE(host.control.GraphSaved());
  EXPECT_EQ(host.document().SavedTitle, "Changed");
  EXPECT_TRUE(host.shell.save_dialogs.empty());
  EXPECT_FALSE(exists("a.gdf~"));
}

TEST_F(SaveGraph, SavingTwiceWithoutAChangeWritesNothingTheSecondTime) {
  host.load({1, 2}, {3, 4});
  answer_save("a.gdf");
  host.control.Save_graph();
  std::filesystem::remove(path("a.gdf"));
  host.control.set_Title("Not drawn, so not a change");
  host.control.Save_graph();
  host.control.ChartOptions("save");
  EXPECT_FALSE(exists("a.gdf"));
  EXPECT_EQ(host.shell.save_dialogs.size(), 1U);
}

TEST_F(SaveGraph, AsksForAFileOnlyWhileThereIsNone) {
  host.load({1, 2}, {3, 4});
  host.control.Save_graph();
  ASSERT_EQ(host.shell.save_dialogs.size(), 1U);
  EXPECT_FALSE(host.control.GraphSaved()) << "cancelled";
  EXPECT_EQ(host.control.FileName(), "");
  answer_save("a.gdf");
  host.control.Save_graph();
  EXPECT_EQ(host.control.FileName(), path("a.gdf"));
  host.control.build_the_graph();
  host.control.Save_graph();
  EXPECT_EQ(host.shell.save_dialogs.size(), 2U);
  EXPECT_TRUE(host.control.GraphSaved());
}

TEST_F(SaveGraph, AfterAResetOlderFilesAreNotOverwritten) {
  const std::string text = test::joined(test::sample_lines());
  host.control.file_load(write("a.gdf", text));
  host.control.reset_file();
  EXPECT_EQ(host.document().SavedTitle, "");
  host.control.build_the_graph();
  host.control.Save_graph();
  EXPECT_EQ(host.shell.save_dialogs.size(), 1U);
  EXPECT_EQ(read("a.gdf"), text);
}

TEST_F(SaveGraph, SortedOrderIsWhatIsWrittenWhileSortXYIsOn) {
  host.load({3, 1, 2}, {30, 10, 20});
  host.control.set_SortXY(true);
  host.control.build_the_graph();
  answer_save("a.gdf");
  host.control.Save_graph();
  EXPECT_EQ(read_lines("a.gdf")[47], "1,2,3");
  EXPECT_EQ(read_lines("a.gdf")[48], "10,20,30");
}

TEST_F(SaveGraph, MarkerSizeAutoscaleAndFunctionVisibilityAreNotInTheFile) {
  host.control.file_load(write_sample("a.gdf"));
  host.control.build_the_graph();
  host.control.Save_graph();
  const std::string before = read("a.gdf");
  host.control.set_MarkerSize(77);
  host.control.set_Autoscale(false);
  host.document().y_func(1).visible = false;
  host.control.build_the_graph();
  host.control.Save_graph();
  EXPECT_EQ(read("a.gdf"), before);
  host.control.file_load(path("a.gdf"));
  EXPECT_EQ(host.control.MarkerSize(), 77);
  EXPECT_FALSE(host.control.Autoscale());
  EXPECT_EQ(host.document().y_func(1).visible, Boolean(true));
}

TEST_F(SaveDialogTest, ProposesTheGraphsFile) {
  host.control.file_load(write_sample("a.gdf"));
  host.control.ChartOptions("saveas");
  ASSERT_EQ(host.shell.save_dialogs.size(), 1U);
  const SaveDialog& dialog = host.shell.save_dialogs[0];
  EXPECT_EQ(dialog.title, "");
  EXPECT_EQ(dialog.filter,
            "KURV graph (*.gdf)|*.gdf|Bitmap file (*.bmp)|*.bmp|All files (*.*)|*.*");
  EXPECT_EQ(dialog.default_extension, "gdf");
  EXPECT_EQ(dialog.file_name, path("a.gdf"));
  EXPECT_EQ(dialog.flags, 2);
}

TEST_F(SaveDialogTest, CancellingChangesNothing) {
  host.control.file_load(write_sample("a.gdf"));
  host.control.build_the_graph();
  host.control.ChartOptions("saveas");
  EXPECT_EQ(host.control.FileName(), path("a.gdf"));
  EXPECT_FALSE(host.control.GraphSaved());
  EXPECT_EQ(host.container.pointers.back(), kDefaultPointer);
}

TEST_F(SaveDialogTest, SaveAsWritesASavedGraphToANewFile) {
  host.control.file_load(write_sample("a.gdf"));
  answer_save("b.gdf");
  host.control.ChartOptions("saveas");
  EXPECT_EQ(host.control.FileName(), path("b.gdf"));
  EXPECT_EQ(read("b.gdf"), read("a.gdf"));
}

TEST_F(SaveDialogTest, AllFilesWritesAGraphWhateverItsName) {
  host.load({1, 2}, {3, 4});
  answer_save("picture.bmp", 3);
  host.control.ChartOptions("saveas");
  EXPECT_TRUE(read("picture.bmp").starts_with("QXPLOT/V500//"));
  EXPECT_EQ(host.control.FileName(), path("picture.bmp"));
}

TEST_F(OpenCommand, ShowsTheOpenDialog) {
  host.control.ChartOptions("open");
  ASSERT_EQ(host.shell.open_dialogs.size(), 1U);
  EXPECT_EQ(host.shell.open_dialogs[0].title, "Open Graph File");
  EXPECT_EQ(host.shell.open_dialogs[0].filter, "Graph files (*.gdf)|*.gdf|All files (*.*)|*.*");
  EXPECT_EQ(host.shell.open_dialogs[0].default_extension, "gdf");
}

TEST_F(OpenCommand, CancelledItDoesNotEvenRedraw) {
  host.load({1, 2}, {3, 4});
  host.surface.clear_log();
  open("");
  open("  ");
  EXPECT_EQ(host.surface.log(), "");
}

TEST_F(OpenCommand, RedrawsAfterLoadingAndSoLeavesTheGraphUnsaved) {
  open(write_sample("a.gdf"));
  EXPECT_EQ(host.control.Title(), "Demo");
  EXPECT_EQ(host.control.FileName(), path("a.gdf"));
  EXPECT_FALSE(host.control.GraphSaved());
}

TEST_F(OpenCommand, ATaggedFileOfAnyNameIsLoaded) {
  open(write_sample("a.txt"));
  EXPECT_EQ(host.control.FileName(), path("a.txt"));
}

TEST_F(OpenCommand, TheExtensionAloneIsEnoughInAnyLetterCase) {
  open(write("a.GDF", sample_with(1, "foreign")));
  EXPECT_EQ(host.control.Title(), "Demo");
}

TEST_F(OpenCommand, AForeignFileWithTheExtensionIsLoadedAndFails) {
  write("a.gdf", "name,value\r\n1,2\r\n");
  EXPECT_EQ(fault_of([&] { open(path("a.gdf")); }), 62);
  EXPECT_EQ(host.container.pointers.back(), kHourglassPointer);
}

TEST_F(OpenCommand, OtherFilesAreNotLoadedButTheGraphIsRedrawn) {
  host.load({1, 2}, {3, 4});
  for (const char* first_line : {"foreign", "qxplot/v500//1E", " QXPLOT/V500//", "QXPLOT/V500/"}) {
    host.surface.clear_log();
    open(write("a.txt", sample_with(1, first_line)));
    EXPECT_EQ(host.control.Title(), "Title") << first_line;
    EXPECT_NE(host.surface.log().find("cls\n"), std::string::npos);
  }
  open(write("empty.txt", ""));
  EXPECT_EQ(host.control.Title(), "Title");
}

TEST_F(OpenCommand, ADotInAFolderNameMakesTheExtensionTestFail) {
  std::filesystem::create_directory(path("a.b"));
  open(write("a.b/c.gdf", sample_with(1, "foreign")));
  EXPECT_EQ(host.control.FileName(), "");
  open(write_sample("a.b/d.gdf"));
  EXPECT_EQ(host.control.FileName(), path("a.b/d.gdf")) << "the first line identifies it";
  std::filesystem::create_directory(path("e.gdf"));
  EXPECT_EQ(fault_of([&] { open(write("e.gdf/data", "foreign")); }), 0)
      << "the second field is the extension with the rest of the path";
}

TEST_F(OpenCommand, AsksTheFieldServiceForTheExtension) {
  struct Fixed final : TextFieldTool {
    String GetField(std::string_view, int, std::string_view) const override { return "gdf"; }
  };
  host.services.text_field = std::make_unique<Fixed>();
  EXPECT_EQ(fault_of([&] { open(write("a.txt", "foreign")); }), 62);
}

TEST_F(OpenCommand, AMissingFileIsNotFound) {
  EXPECT_EQ(fault_of([&] { open(path("missing.gdf")); }), 53);
}

}  // namespace
}  // namespace kurv
