// The window that asks what an exported picture is like.
#include "app/window/export_dialog.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <memory>

#include "app/window/picture_view.h"

namespace kurv::app {
namespace {

class Export : public testing::Test {
 protected:
  Export() {
    m_graph.resize(m_graph.size() + QSize(500, 400) - m_graph.plot_rect().size());
    m_graph.plot({.title = "Growth", .x = {1, 2, 3}, .y = {{"a", {1, 4, 2}}}});
  }

  ExportDialog& dialog(const ExportChoice& choice = {}) {
    m_dialog = std::make_unique<ExportDialog>(m_graph, choice, nullptr);
    m_dialog->show();
    return *m_dialog;
  }
  template <class Widget>
  Widget& field(const char* name) {
    auto* const found = m_dialog->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
  }
  QDoubleSpinBox& width() { return field<QDoubleSpinBox>("spnWidth"); }
  QDoubleSpinBox& height() { return field<QDoubleSpinBox>("spnHeight"); }
  QSpinBox& resolution() { return field<QSpinBox>("spnResolution"); }
  QComboBox& unit() { return field<QComboBox>("cboUnit"); }
  QString note() { return field<QLabel>("lblNote").text(); }
  void take_own_size() { field<QCheckBox>("chkAsInWindow").setChecked(false); }
  static PictureView& view_of(ExportDialog& dialog) {
    return *static_cast<PictureView*>(dialog.findChild<QWidget*>("imgExport"));
  }
  PictureView& view() { return view_of(*m_dialog); }
  QSize preview() {
    EXPECT_TRUE(QTest::qWaitFor([&] { return view().is_current(); }, 5000));
    QApplication::processEvents();
    return view().picture().size();
  }
  QImage in_window() const { return m_graph.image().convertToFormat(QImage::Format_RGB32); }
  QImage shown_picture() { return view().picture().convertToFormat(QImage::Format_RGB32); }

  KurvGraph m_graph;
  std::unique_ptr<ExportDialog> m_dialog;
};

TEST_F(Export, IsAsInTheWindowAtFirst) {
  dialog();
  EXPECT_FALSE(m_dialog->choice().size);
  EXPECT_EQ(m_dialog->choice().format, PictureFormat::kPng);
  EXPECT_EQ(width().value(), 500);
  EXPECT_EQ(height().value(), 400);
  EXPECT_EQ(resolution().value(), 96);
  EXPECT_FALSE(width().isEnabled());
  EXPECT_FALSE(resolution().isEnabled());
}

TEST_F(Export, HasASizeOfItsOwnOnRequest) {
  dialog();
  take_own_size();
  EXPECT_TRUE(width().isEnabled());
  width().setValue(1000);
  resolution().setValue(300);
  ASSERT_TRUE(m_dialog->choice().size);
  EXPECT_EQ(export_pixels(m_dialog->choice()), QSize(1000, 800)) << "in proportion";
  EXPECT_EQ(dots_per_inch(m_dialog->choice()), 300);
  field<QCheckBox>("chkProportions").setChecked(false);
  height().setValue(300);
  EXPECT_EQ(export_pixels(m_dialog->choice()), QSize(1000, 300));
  field<QCheckBox>("chkProportions").setChecked(true);
  height().setValue(600);
  EXPECT_EQ(export_pixels(m_dialog->choice()), QSize(2000, 600)) << "in the new proportion";
}

TEST_F(Export, AnotherUnitKeepsTheSize) {
  dialog();
  take_own_size();
  unit().setCurrentIndex(1);
  EXPECT_EQ(width().value(), 132.3);
  EXPECT_EQ(height().value(), 105.8);
  EXPECT_EQ(note().toStdString(), "500 × 400 pixels");
  unit().setCurrentIndex(0);
  EXPECT_EQ(width().value(), 500);
  EXPECT_EQ(note().toStdString(), "132.3 × 105.8 millimetres");
}

TEST_F(Export, OfLinesAndTextHasNoResolution) {
  dialog();
  take_own_size();
  field<QComboBox>("cboFormat").setCurrentIndex(1);
  EXPECT_EQ(m_dialog->choice().format, PictureFormat::kSvg);
  EXPECT_FALSE(resolution().isEnabled());
  EXPECT_TRUE(width().isEnabled());
}

TEST_F(Export, WhatIsTooLargeIsSaidAndNotExported) {
  dialog();
  take_own_size();
  width().setValue(40000);
  EXPECT_THAT(note().toStdString(), testing::StartsWith("A picture has at most 32767 pixels"));
  EXPECT_FALSE(field<QPushButton>("cmdExport").isEnabled());
  width().setValue(400);
  EXPECT_TRUE(field<QPushButton>("cmdExport").isEnabled());
}

TEST_F(Export, ThePreviewFollows) {
  dialog();
  const QSize before = preview();
  ASSERT_FALSE(before.isEmpty());
  EXPECT_NEAR(before.width() * 4.0, before.height() * 5.0, 10);
  take_own_size();
  field<QCheckBox>("chkProportions").setChecked(false);
  width().setValue(250);
  const QSize narrow = preview();
  EXPECT_NEAR(narrow.width() * 8.0, narrow.height() * 5.0, 10);
}

TEST_F(Export, ThePreviewOfThePictureInTheWindowIsThatPicture) {
  dialog();
  m_dialog->resize(1300, 900);
  m_graph.set_Title("Not drawn yet");
  preview();
  EXPECT_EQ(shown_picture(), in_window());
  take_own_size();
  preview();
  EXPECT_EQ(shown_picture().size(), in_window().size());
  EXPECT_NE(shown_picture(), in_window()) << "drawn anew, with the title";
}

TEST_F(Export, WhatCannotBeDrawnIsSaidInThePreview) {
  m_graph.set_xmax(m_graph.xmin());
  dialog();
  take_own_size();
  preview();
  EXPECT_THAT(view().text().toStdString(),
              testing::StartsWith("This cannot be drawn: an axis has equal limits or no ticks; "));
}

TEST_F(Export, BeginsWithTheLastChoice) {
  dialog({PictureFormat::kBmp, ExportSize{QSizeF(85.5, 60), LengthUnit::kMillimetres, 600}});
  EXPECT_EQ(m_dialog->choice().format, PictureFormat::kBmp);
  ASSERT_TRUE(m_dialog->choice().size);
  EXPECT_EQ(m_dialog->choice().size->size, QSizeF(85.5, 60));
  EXPECT_EQ(m_dialog->choice().size->unit, LengthUnit::kMillimetres);
  EXPECT_EQ(m_dialog->choice().size->dots_per_inch, 600);
}

TEST_F(Export, OutlivesItsGraph) {
  auto graph = std::make_unique<KurvGraph>();
  ExportDialog dialog(*graph, {}, nullptr);
  graph.reset();
  dialog.findChild<QComboBox*>("cboFormat")->setCurrentIndex(1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return view_of(dialog).is_current(); }, 5000));
}

}  // namespace
}  // namespace kurv::app
