#include "control/picture_export.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

// A surface whose picture is what was drawn on it, as text.
class LogPicture final : public PlotSurface {
 public:
  RecordingSurface log{12000, 9000};

  Double ScaleWidth() const override { return log.ScaleWidth(); }
  Double ScaleHeight() const override { return log.ScaleHeight(); }
  void Cls() override { log.Cls(); }
  void Line(SurfacePoint a, SurfacePoint b, int colour, LineKind kind) override {
    log.Line(a, b, colour, kind);
  }
  void Circle(SurfacePoint at, Single radius, int colour) override {
    log.Circle(at, radius, colour);
  }
  void Arc(SurfacePoint at, Single radius, int colour, Single start, Single end) override {
    log.Arc(at, radius, colour, start, end);
  }
  void PSet(SurfacePoint at, int colour) override { log.PSet(at, colour); }
  void DrawWidth(Integer pixels) override { log.DrawWidth(pixels); }
  void Print(Single x, Single y, std::string_view text) override { log.Print(x, y, text); }
  Double TextWidth(std::string_view text) const override { return log.TextWidth(text); }
  Double TextHeight(std::string_view text) const override { return log.TextHeight(text); }
  String bitmap() const override { return "BM" + log.log(); }
  const Font& font() const override { return log.font(); }
  void set_font(const Font& font) override { log.set_font(font); }
  int ForeColor() const override { return log.ForeColor(); }
  void set_ForeColor(int colour) override { log.set_ForeColor(colour); }
};

struct ExportHost {
  ExportHost() {
    control.first_placement();
    control.show();
    surface.log.clear_log();
  }
  void load() {
    control.scatter_graph(test::columns({{4, 5}}), test::points({1, 2}), 2, 1, String("T"), "x",
                          test::names({"y"}), 0, {}, Boolean(true));
    surface.log.clear_log();
  }
  std::string written() const {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  std::string path = (std::filesystem::temp_directory_path() / "kurv_export_test.bmp").string();
  test::PlainContainer container;
  test::ScriptedShell shell;
  LogPicture surface;
  Control control{container, shell, surface};
};

TEST(SaveDialog, BitmapIsThePictureWithItsCurvesDrawnOnceMore) {
  ExportHost host;
  std::filesystem::remove(host.path);
  host.load();
  host.shell.files.push_back({host.path, 2});
  host.control.ChartOptions("saveas");
  EXPECT_EQ(host.written(), "BMwidth 1\nsegment 800 8480 11200 480 1\nwidth 1\n");
  EXPECT_EQ(host.control.FileName(), "") << "a bitmap is not the graph's file";
  EXPECT_FALSE(host.control.GraphSaved());
  std::filesystem::remove(host.path);
}

TEST(SaveDialog, BitmapOfAnEmptyGraphIsTheSurfaceAsItIs) {
  ExportHost host;
  std::filesystem::remove(host.path);
  host.shell.files.push_back({host.path, 2});
  host.control.ChartOptions("saveas");
  EXPECT_EQ(host.written(), "BM");
  std::filesystem::remove(host.path);
}

TEST(SaveDialog, BitmapThatCannotBeWrittenIsATypedError) {
  ExportHost host;
  host.load();
  host.shell.files.push_back({"/nosuch/folder/a.bmp", 2});
  EXPECT_THROW(host.control.ChartOptions("saveas"), Fault);
}

TEST(SaveDialog, AllFilesWritesAGraphWhateverTheName) {
  ExportHost host;
  host.load();
  host.shell.files.push_back({host.path, 3});
  host.control.ChartOptions("saveas");
  EXPECT_TRUE(host.written().starts_with("QXPLOT/V500//"));
  EXPECT_EQ(host.control.FileName(), host.path);
  std::filesystem::remove(host.path);
}

TEST(SaveDialog, BitmapLeavesASavedGraphSavedInItsOwnFile) {
  ExportHost host;
  host.load();
  const std::string graph = host.path + ".gdf";
  host.shell.files = {{graph, 1}, {host.path, 2}};
  host.control.ChartOptions("saveas");
  host.control.ChartOptions("saveas");
  EXPECT_TRUE(host.written().starts_with("BM"));
  EXPECT_EQ(host.control.FileName(), graph);
  EXPECT_TRUE(host.control.GraphSaved().is_exactly_true());
  std::filesystem::remove(host.path);
  std::filesystem::remove(graph);
}

TEST(SaveDialog, FiltersThatItDoesNotHaveWriteAGraph) {
  for (const int filter : {0, -1, 4}) {
    ExportHost host;
    host.load();
    host.shell.files.push_back({host.path, filter});
    host.control.ChartOptions("saveas");
    EXPECT_TRUE(host.written().starts_with("QXPLOT/V500//")) << filter;
  }
  std::filesystem::remove(ExportHost().path);
}

TEST(SaveDialog, CancellingWritesNothingWhateverTheFilter) {
  ExportHost host;
  std::filesystem::remove(host.path);
  host.load();
  host.shell.files.push_back({"", 2});
  host.control.ChartOptions("saveas");
  EXPECT_EQ(host.shell.save_dialogs.size(), 1U);
  EXPECT_EQ(host.surface.log.log(), "") << "the curves are not drawn again either";
  EXPECT_EQ(host.control.FileName(), "");
  EXPECT_FALSE(host.control.GraphSaved());
}

TEST(SaveDialog, BitmapReplacesAnOlderFile) {
  ExportHost host;
  std::ofstream(host.path) << std::string(5000, 'x');
  host.shell.files.push_back({host.path, 2});
  host.control.ChartOptions("saveas");
  EXPECT_EQ(host.written(), "BM");
  EXPECT_FALSE(std::filesystem::exists(host.path + '~'));
  std::filesystem::remove(host.path);
}

TEST(Copy, HandsOverThePictureAsItIs) {
  ExportHost host;
  host.load();
  host.control.build_the_graph();
  const std::string drawn = host.surface.log.log();
  host.control.ChartOptions("copy");
  EXPECT_EQ(host.shell.copied, std::vector<std::string>{"BM" + drawn});
  EXPECT_EQ(host.surface.log.log(), drawn) << "nothing is drawn for it";
}

TEST(Copy, OfAnEmptyGraphHandsOverTheBlankSurface) {
  ExportHost host;
  host.control.ChartOptions("copy");
  EXPECT_EQ(host.shell.copied, std::vector<std::string>{"BM"});
}

std::vector<std::string> g_printed;
int g_printers = 0;
std::function<void()> g_meanwhile = [] {};

class CountingPrinter final : public PicturePrinter {
 public:
  CountingPrinter() { ++g_printers; }
  void PrintPicture(std::string_view bitmap, std::string_view font_name, std::string_view caption,
                    Single font_size) override {
    g_meanwhile();
    g_printed.push_back(std::string(bitmap.substr(0, 2)) + '|' + std::string(font_name) + '|' +
                        std::string(caption) + '|' + to_string(Variant(font_size)));
  }
};

// While it lives, printing goes to printers that count.
struct Printers {
  Printers() {
    register_class(kPicturePrinterClass, [] { return std::make_unique<CountingPrinter>(); });
  }
  ~Printers() {
    register_class(kPicturePrinterClass, nullptr);
    g_printed.clear();
    g_printers = 0;
    g_meanwhile = [] {};
  }
  Printers(const Printers&) = delete;
  Printers& operator=(const Printers&) = delete;
};

TEST(Print, PrinterIsCreatedAtTheFirstPrintOfEachControl) {
  const Printers printers;
  ExportHost first;
  EXPECT_EQ(g_printers, 0);
  first.load();
  first.control.ChartOptions("print");
  first.control.ChartOptions("print");
  EXPECT_EQ(g_printers, 1);
  ExportHost second;
  second.control.ChartOptions("print");
  EXPECT_EQ(g_printers, 2);
  EXPECT_EQ(g_printed, (std::vector<std::string>(3, "BM|Liberation Sans||8")));
}

TEST(Print, PassesTheFontThatTheSurfaceHasNow) {
  const Printers printers;
  ExportHost host;
  host.load();
  host.control.set_FontName("Some Font");
  host.control.set_FontSize(9.5F);
  host.control.ChartOptions("print");
  host.control.build_the_graph();
  host.control.ChartOptions("print");
  EXPECT_EQ(g_printed, (std::vector<std::string>{"BM|Liberation Sans||8", "BM|Some Font||9.5"}));
}

TEST(Print, ARedrawWhileItsDialogIsOpenChangesNothing) {
  const Printers printers;
  ExportHost host;
  host.load();
  g_meanwhile = [&] {
    host.control.set_FontName("A font whose name needs more space than the one before it had");
    host.control.build_the_graph();
  };
  host.control.ChartOptions("print");
  EXPECT_EQ(g_printed, std::vector<std::string>{"BM|Liberation Sans||8"});
}

TEST(Print, ThatFailsReachesTheCallerAndThePrinterIsKept) {
  const Printers printers;
  ExportHost host;
  g_meanwhile = [] { throw Fault(FaultKind::kDeviceIoError); };
  EXPECT_THROW(host.control.ChartOptions("print"), Fault);
  EXPECT_EQ(host.container.pointers.back(), 11);
  g_meanwhile = [] {};
  host.control.ChartOptions("print");
  EXPECT_EQ(g_printers, 1);
}

TEST(Print, WithoutAClassForItIsATypedError) {
  ExportHost host;
  try {
    host.control.ChartOptions("print");
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.kind(), FaultKind::kCannotCreateObject);
  }
}

}  // namespace
}  // namespace kurv
