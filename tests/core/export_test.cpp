#include "ui/export.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
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

std::vector<std::string> g_printed;
int g_printers = 0;

class CountingPrinter final : public PicturePrinter {
 public:
  CountingPrinter() { ++g_printers; }
  void PrintPicture(std::string_view bitmap, std::string_view font_name, std::string_view caption,
                    Single font_size) override {
    g_printed.push_back(std::string(bitmap.substr(0, 2)) + '|' + std::string(font_name) + '|' +
                        std::string(caption) + '|' + to_string(Variant(font_size)));
  }
};

TEST(Print, PrinterIsCreatedAtTheFirstPrintOfEachControl) {
  register_class(kPicturePrinterClass, [] { return std::make_unique<CountingPrinter>(); });
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
  register_class(kPicturePrinterClass, nullptr);
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
