#include <KurvGraph/png_file.h>

#include <gtest/gtest.h>
#include <png.h>

#include <KurvGraph/file_fault.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "tests/support/graph_files.h"
#include "tests/support/refusing_platform.h"

namespace kurv {
namespace {

namespace fs = std::filesystem;

struct Sample {
  Sample(int width, int height) : view{nullptr, width, height, width + 3, 3780} {
    for (int i = 0; i < (width + 3) * height; ++i) {
      pixels.push_back(0xFF000000 | static_cast<std::uint32_t>(i) * 2654435761U >> 8);
    }
    view.pixels = pixels.data();
  }
  std::vector<std::uint32_t> pixels;
  PixelView view;
};

// As the library reads it, 0xFFRRGGBB.
std::vector<std::uint32_t> decoded(const String& bytes, int width, int height) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  EXPECT_NE(png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()), 0);
  EXPECT_EQ(image.width, static_cast<png_uint_32>(width));
  EXPECT_EQ(image.height, static_cast<png_uint_32>(height));
  image.format = PNG_FORMAT_BGRA;
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(image.width) * image.height);
  EXPECT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0);
  return pixels;
}

std::vector<std::uint32_t> rows_of(const PixelView& view) {
  std::vector<std::uint32_t> pixels;
  for (int y = 0; y < view.height; ++y) {
    pixels.insert(pixels.end(), view.row(y), view.row(y) + view.width);
  }
  return pixels;
}

class PngFile : public test::GraphFileTest {
 protected:
  static FaultKind fault_of_saving(const PixelView& view, const String& path) {
    try {
      save_png(view, path);
    } catch (const FileFault& fault) {
      EXPECT_EQ(fault.path(), path);
      return fault.kind();
    }
    return {};
  }
  static String content(const String& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::ptrdiff_t files() const {
    return std::distance(fs::directory_iterator(path("")), fs::directory_iterator());
  }
};

TEST_F(PngFile, HoldsEveryPixel) {
  for (const auto& [width, height] : {std::pair{1, 1}, {3, 2}, {257, 33}, {1, 500}}) {
    const Sample sample(width, height);
    EXPECT_EQ(decoded(png_bytes(sample.view), width, height), rows_of(sample.view));
  }
}

TEST_F(PngFile, HoldsTheResolutionWhereItIsKnown) {
  Sample sample(3, 2);
  const String bytes = png_bytes(sample.view);
  const std::size_t chunk = bytes.find("pHYs");
  ASSERT_NE(chunk, bytes.npos);
  EXPECT_EQ(bytes.substr(chunk + 4, 9), String("\0\0\x0E\xC4\0\0\x0E\xC4\x01", 9));
  sample.view.pixels_per_metre = 0;
  EXPECT_EQ(png_bytes(sample.view).find("pHYs"), bytes.npos);
}

TEST_F(PngFile, ThereHasToBeAPixel) {
  const Sample sample(3, 2);
  for (const PixelView& view :
       {PixelView{}, PixelView{sample.pixels.data(), 0, 5, 0}, PixelView{nullptr, 3, 2, 3}}) {
    EXPECT_THROW(png_bytes(view), Fault);
  }
}

TEST_F(PngFile, IsMadeAndReplaced) {
  const Sample small(3, 2), large(40, 20);
  save_png(large.view, path("a.png"));
  EXPECT_EQ(content(path("a.png")), png_bytes(large.view));
  fs::permissions(path("a.png"), fs::perms::owner_read | fs::perms::owner_write);
  save_png(small.view, path("a.png"));
  EXPECT_EQ(content(path("a.png")), png_bytes(small.view));
  EXPECT_EQ(fs::status(path("a.png")).permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_EQ(files(), 1);
}

TEST_F(PngFile, FollowsALink) {
  const Sample sample(3, 2);
  write("real.png", "older");
  fs::create_symlink("real.png", path("link.png"));
  save_png(sample.view, path("link.png"));
  EXPECT_TRUE(fs::is_symlink(path("link.png")));
  EXPECT_EQ(content(path("real.png")), png_bytes(sample.view));
}

TEST_F(PngFile, AFullDiskKeepsTheOlderFile) {
  const Sample sample(100, 100);
  write("a.png", "older");
  {
    const test::FullDisk disk(1000);
    EXPECT_EQ(fault_of_saving(sample.view, path("a.png")), FaultKind::kDiskFull);
  }
  EXPECT_EQ(content(path("a.png")), "older");
  EXPECT_EQ(files(), 1);
}

TEST_F(PngFile, NamesAPathThatCannotBeWritten) {
  const Sample sample(3, 2);
  EXPECT_EQ(fault_of_saving(sample.view, path("none/a.png")), FaultKind::kPathNotFound);
  EXPECT_EQ(fault_of_saving(sample.view, path("")), FaultKind::kPathFileAccessError);
  EXPECT_EQ(fault_of_saving(sample.view, ""), FaultKind::kFileNotFound);
  EXPECT_EQ(fault_of_saving(sample.view, "/dev/null"), FaultKind::kPathFileAccessError);
  EXPECT_EQ(fault_of_saving(sample.view, String("a\0b", 3)), FaultKind::kPathFileAccessError);
  write("file", "");
  EXPECT_EQ(fault_of_saving(sample.view, path("file/a.png")), FaultKind::kPathNotFound);
}

TEST_F(PngFile, AFolderThatMayNotBeWrittenIsLeftAlone) {
  const Sample sample(3, 2);
  const test::Unprivileged nobody;
  EXPECT_EQ(fault_of_saving(sample.view, "/usr/a.png"), FaultKind::kPermissionDenied);
}

}  // namespace
}  // namespace kurv
