// Sizes of exported pictures, and the last choice.
#include "app/window/export_choice.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "app/window/settings_file.h"

namespace kurv::app {
namespace {

using testing::HasSubstr;

ExportChoice choice_of(PictureFormat format, QSizeF size, LengthUnit unit, double resolution) {
  return {format, ExportSize{size, unit, resolution}};
}

TEST(ExportPixels, AreThePixelsThatAreTypedAtAnyResolution) {
  for (const double resolution : {72.0, 96.0, 300.0}) {
    EXPECT_EQ(
        export_pixels(choice_of(PictureFormat::kPng, {1004, 709}, LengthUnit::kPixels, resolution)),
        QSize(1004, 709));
  }
}

TEST(ExportPixels, OfMillimetresDependOnTheResolution) {
  const QSizeF size(85, 60);
  const auto pixels = [&](PictureFormat format, double resolution) {
    return export_pixels(choice_of(format, size, LengthUnit::kMillimetres, resolution));
  };
  EXPECT_EQ(pixels(PictureFormat::kPng, 300), QSize(1004, 709));
  EXPECT_EQ(pixels(PictureFormat::kBmp, 96), QSize(321, 227));
  EXPECT_EQ(pixels(PictureFormat::kSvg, 300), QSize(321, 227)) << "which has none";
}

TEST(ExportRefusal, SaysWhatIsTooLarge) {
  const auto refusal = [](PictureFormat format, QSizeF size, LengthUnit unit, double resolution) {
    return export_refusal(choice_of(format, size, unit, resolution)).value_or("").toStdString();
  };
  EXPECT_EQ(refusal(PictureFormat::kPng, {15360, 8640}, LengthUnit::kPixels, 96), "");
  EXPECT_EQ(refusal(PictureFormat::kPng, {15361, 8640}, LengthUnit::kPixels, 96),
            "A picture has at most 15360 × 8640 pixels in all. Choose a smaller size or "
            "resolution.");
  EXPECT_EQ(refusal(PictureFormat::kSvg, {40000, 10}, LengthUnit::kPixels, 96),
            "A picture has at most 32767 pixels on a side. Choose a smaller size.");
  EXPECT_THAT(refusal(PictureFormat::kPng, {1000, 1000}, LengthUnit::kMillimetres, 1200),
              HasSubstr("32767"));
  EXPECT_EQ(refusal(PictureFormat::kPdf, {1000, 1000}, LengthUnit::kMillimetres, 1200), "");
  EXPECT_EQ(export_refusal({PictureFormat::kPng, std::nullopt}), std::nullopt);
}

class LastExport : public testing::Test {
 protected:
  LastExport() { qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_folder.path())); }

  static void write_settings(const QByteArray& text) {
    QDir().mkpath(QFileInfo(settings_file()).path());
    QFile file(settings_file());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }

  QTemporaryDir m_folder;
};

TEST_F(LastExport, IsAPngAsInTheWindowAtFirst) {
  EXPECT_EQ(last_export().format, PictureFormat::kPng);
  EXPECT_FALSE(last_export().size);
}

TEST_F(LastExport, ComesBack) {
  remember_export(choice_of(PictureFormat::kBmp, {85.5, 60}, LengthUnit::kMillimetres, 600));
  const ExportChoice last = last_export();
  EXPECT_EQ(last.format, PictureFormat::kBmp);
  ASSERT_TRUE(last.size);
  EXPECT_EQ(last.size->size, QSizeF(85.5, 60));
  EXPECT_EQ(last.size->unit, LengthUnit::kMillimetres);
  EXPECT_EQ(last.size->dots_per_inch, 600);
  remember_export({PictureFormat::kPdf, std::nullopt});
  EXPECT_EQ(last_export().format, PictureFormat::kPdf);
  EXPECT_FALSE(last_export().size);
}

TEST_F(LastExport, ThatMakesNoSenseDoesNotCount) {
  write_settings("[export]\nformat=jpg\nwidth=-3\nheight=5\nunit=px\nresolution=96\n");
  EXPECT_EQ(last_export().format, PictureFormat::kPng);
  EXPECT_FALSE(last_export().size);
  write_settings("[export]\nwidth=30\nheight=50\nresolution=0\n");
  EXPECT_FALSE(last_export().size);
}

}  // namespace
}  // namespace kurv::app
