// The example that saves a picture without Qt.
#include <png.h>

#include <array>
#include <cstdlib>
#include <set>

#include "tests/support/graph_files.h"

namespace kurv {
namespace {

class WithoutQtPictureExample : public test::GraphFileTest {
 protected:
  static int run(const std::string& arguments) {
    return std::system((KURV_WITHOUT_QT_PICTURE " " + arguments + " 2>/dev/null").c_str());
  }
};

TEST_F(WithoutQtPictureExample, SavesAGraphWithItsTexts) {
  ASSERT_EQ(run(path("squares.png")), 0);
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  ASSERT_NE(png_image_begin_read_from_file(&image, path("squares.png").c_str()), 0);
  EXPECT_EQ(image.width, 800U);
  EXPECT_EQ(image.height, 600U);
  image.format = PNG_FORMAT_RGB;
  std::vector<png_byte> pixels(std::size_t{image.width} * image.height * 3);
  ASSERT_NE(png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr), 0);
  // The letters and the curve have many shades, frame and ticks a few.
  std::set<std::array<png_byte, 3>> colours;
  for (std::size_t i = 0; i < pixels.size(); i += 3) {
    colours.insert({pixels[i], pixels[i + 1], pixels[i + 2]});
  }
  EXPECT_GT(colours.size(), 100U);
}

TEST_F(WithoutQtPictureExample, FailsWithoutAFileOrAFont) {
  EXPECT_NE(run(""), 0);
  EXPECT_NE(run(path("none/squares.png")), 0);
  EXPECT_NE(run(path("squares.png") + " " + write("font.ttf", "no font")), 0);
  EXPECT_FALSE(exists("squares.png"));
}

}  // namespace
}  // namespace kurv
