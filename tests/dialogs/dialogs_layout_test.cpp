// The three windows in the letters and colours that people set their desktops to.
#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QScreen>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOption>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/frm_curves.h"
#include "dialogs/frm_propert.h"
#include "dialogs/frm_table.h"
#include "tests/dialogs/test_client.h"

namespace kurv::test {
namespace {

constexpr double kNormal = 1;
constexpr double kDoubled = 2;
const QSize kScreen(1400, 1000);

// What a person reads or uses, and not the parts that it is made of.
bool is_control(const QWidget& widget) {
  const QWidget* const parent = widget.parentWidget();
  const bool is_part =
      qobject_cast<const QComboBox*>(parent) || qobject_cast<const QTabBar*>(parent) ||
      qobject_cast<const QMenuBar*>(parent) || qobject_cast<const QAbstractItemView*>(parent);
  if (is_part || !widget.isVisible()) return false;
  return qobject_cast<const QLabel*>(&widget) || qobject_cast<const QAbstractButton*>(&widget) ||
         qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
         qobject_cast<const QTabBar*>(&widget) || qobject_cast<const QMenuBar*>(&widget) ||
         (qobject_cast<const QAbstractItemView*>(&widget) &&
          !qobject_cast<const QHeaderView*>(&widget));
}

// A list or grid scrolls, so it needs less than all that is in it; a box for text has to show the
// text that is in it.
QSize needed(const QWidget& widget) {
  if (qobject_cast<const QAbstractItemView*>(&widget)) return widget.minimumSizeHint();
  const auto* const box = qobject_cast<const QLineEdit*>(&widget);
  if (!box) return widget.sizeHint();
  return box->minimumSizeHint() + QSize(box->fontMetrics().horizontalAdvance(box->text()), 0);
}

QRect place(const QWidget& widget) {
  return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

std::string name_of(const QWidget& widget) {
  const auto* const label = qobject_cast<const QLabel*>(&widget);
  return widget.objectName().toStdString() + " " + widget.metaObject()->className() + " " +
         (label ? label->text().toStdString() : "");
}

void expect_well_laid_out(const QWidget& window) {
  EXPECT_TRUE(QRect(QPoint(), kScreen).contains(QRect(QPoint(), window.frameSize())))
      << window.width() << " x " << window.height();
  std::vector<const QWidget*> controls;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (is_control(*widget)) controls.push_back(widget);
  }
  ASSERT_GE(controls.size(), 4u);
  for (const QWidget* control : controls) {
    const QSize size = needed(*control);
    EXPECT_GE(control->width(), size.width()) << name_of(*control);
    EXPECT_GE(control->height(), size.height()) << name_of(*control);
    EXPECT_EQ(control->visibleRegion().boundingRect(), control->rect()) << name_of(*control);
    for (const QWidget* other : controls) {
      EXPECT_TRUE(other == control || !place(*control).intersects(place(*other)))
          << name_of(*control) << " and " << name_of(*other);
    }
  }
}

struct Layout : testing::Test {
  Layout() {
    client.control().scatter_graph2(
        "Title", columns({{3, 1, 2}, {30, 10, 20}, {7, 9, 8}}), names({"x", "first", "second"}), 3,
        2, flags({Boolean(true), Boolean(false)}), 2, names({"x", "x*x"}), true, false);
  }
  ~Layout() override {
    window.reset();
    QApplication::setFont(font);
    QApplication::setPalette(palette);
  }

  static void set_letters(double scale) {
    QFont scaled = QApplication::font();
    scaled.setPointSizeF(scaled.pointSizeF() * scale);
    QApplication::setFont(scaled);
  }
  static void set_colours(const QColor& ground) { QApplication::setPalette(QPalette(ground)); }

  template <class Window>
  void open() {
    ASSERT_EQ(QGuiApplication::primaryScreen()->size(), kScreen) << "see the test's environment";
    window = std::make_unique<Window>(nullptr);
    window->set_client(&client);
    window->init(0);
    window->show();
    QApplication::processEvents();
  }
  void expect_all_tabs_well_laid_out() {
    auto* const tabs = window->findChild<QTabWidget*>();
    ASSERT_TRUE(tabs);
    for (int i = 0; i < tabs->count(); ++i) {
      SCOPED_TRACE(tabs->tabText(i).toStdString());
      tabs->setCurrentIndex(i);
      QApplication::processEvents();
      save("tab" + QString::number(i));
      expect_well_laid_out(*window);
    }
  }
  // A picture to look at, where somebody asks for it.
  void save(const QString& name) const {
    const QString folder = qEnvironmentVariable("KURV_PICTURES");
    if (folder.isEmpty()) return;
    EXPECT_TRUE(window->grab().save(folder + u'/' + window->objectName() + u'_' + name +
                                    QString::number(QApplication::font().pointSizeF()) + ".png"));
  }

  const QFont font = QApplication::font();
  const QPalette palette = QApplication::palette();
  TestClient client;
  std::unique_ptr<GraphWindow> window;
};

struct LettersTest : Layout, testing::WithParamInterface<double> {};

TEST_P(LettersTest, CurvesAreWellLaidOut) {
  set_letters(GetParam());
  open<frmCurves>();
  expect_all_tabs_well_laid_out();
}

TEST_P(LettersTest, PropertiesAreWellLaidOut) {
  set_letters(GetParam());
  open<frmPropert>();
  expect_all_tabs_well_laid_out();
}

TEST_P(LettersTest, TheTableIsWellLaidOut) {
  set_letters(GetParam());
  open<frmTable>();
  save("table");
  expect_well_laid_out(*window);
  const auto* const grid = window->findChild<QAbstractItemView*>("grdTable");
  EXPECT_GE(grid->visualRect(grid->model()->index(0, 0)).height(),
            QFontMetrics(QApplication::font()).height());
  EXPECT_TRUE(grid->viewport()->rect().contains(grid->visualRect(grid->model()->index(2, 2))))
      << "all of a small table";
}

// How much a box stands out from what is around it, out of 255.
int outline_of_box(const QImage& picture, const QRect& box) {
  const int ground = picture.pixelColor(box.left() - 2, box.center().y()).lightness();
  int most = 0;
  for (int x = box.left() - 1; x < box.center().x(); ++x) {
    most = std::max(most, std::abs(picture.pixelColor(x, box.center().y()).lightness() - ground));
  }
  return most;
}

QRect box_of(const QCheckBox& check) {
  QStyleOptionButton option;
  option.initFrom(&check);
  const QRect box = check.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &check);
  return box.translated(place(check).topLeft());
}

QRect box_of(const QListWidget& list, int row) {
  QStyleOptionViewItem option;
  option.initFrom(&list);
  option.rect = list.visualItemRect(list.item(row));
  option.features = QStyleOptionViewItem::HasCheckIndicator;
  option.widget = &list;
  const QRect box =
      list.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &list);
  return box.translated(place(*list.viewport()).topLeft());
}

// The boxes of all check boxes and of a row of all lists that are visible.
std::vector<QRect> visible_boxes(const QWidget& window) {
  std::vector<QRect> boxes;
  for (const QCheckBox* check : window.findChildren<QCheckBox*>()) {
    if (check->isVisible()) boxes.push_back(box_of(*check));
  }
  for (const QListWidget* list : window.findChildren<QListWidget*>()) {
    const bool has_boxes = list->count() > 0 && list->item(0)->flags() & Qt::ItemIsUserCheckable;
    if (list->isVisible() && has_boxes) boxes.push_back(box_of(*list, 0));
  }
  return boxes;
}

TEST_P(LettersTest, BoxesAreAsLargeAsTheLettersBesideThem) {
  set_letters(GetParam());
  const int style_height = QApplication::style()->pixelMetric(QStyle::PM_IndicatorHeight);
  const int height = std::max(style_height, QFontMetrics(QApplication::font()).ascent());
  const auto expect_boxes = [&](int count) {
    int found = 0;
    auto* const tabs = window->findChild<QTabWidget*>();
    for (int i = 0; i < tabs->count(); ++i) {
      tabs->setCurrentIndex(i);
      QApplication::processEvents();
      for (const QRect& box : visible_boxes(*window)) {
        ++found;
        EXPECT_EQ(box.size(), QSize(height, height)) << tabs->tabText(i).toStdString();
      }
    }
    EXPECT_EQ(found, count);
  };
  open<frmPropert>();
  expect_boxes(8);
  open<frmCurves>();
  expect_boxes(2);
}

TEST_P(LettersTest, BoxesFollowAFontThatChanges) {
  open<frmPropert>();
  set_letters(GetParam());
  QApplication::processEvents();
  const auto* const check = window->findChild<QCheckBox*>("chkSort");
  EXPECT_GE(box_of(*check).height(), QFontMetrics(QApplication::font()).ascent());
}

struct ColoursTest : Layout, testing::WithParamInterface<QColor> {};

// Of 1 to 21, as the accessibility guidelines for the web define it.
double contrast(const QColor& a, const QColor& b) {
  const auto luminance = [](const QColor& colour) {
    const auto linear = [](double part) {
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
  };
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

constexpr double kLegible = 3;

void expect_legible_when_disabled(GraphWindow& window) {
  window.findChild<QTabWidget*>("tabCurves")->setCurrentIndex(3);
  QApplication::processEvents();
  auto* const label = window.findChild<QLabel*>("lblMarkerSize");
  ASSERT_FALSE(label->isEnabled());
  const QImage picture = window.grab(place(*label)).toImage();
  const QColor background = picture.pixelColor(0, 0);
  double most = 1;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      most = std::max(most, contrast(picture.pixelColor(x, y), background));
    }
  }
  EXPECT_GE(most, kLegible);
  const QPalette colours = label->palette();
  EXPECT_GE(contrast(colours.color(QPalette::Disabled, QPalette::WindowText), background),
            kLegible);
  EXPECT_NE(colours.color(QPalette::Disabled, QPalette::WindowText),
            colours.color(QPalette::Active, QPalette::WindowText));
  EXPECT_EQ(colours.color(QPalette::Active, QPalette::WindowText),
            QApplication::palette().color(QPalette::Active, QPalette::WindowText));
}

TEST_P(ColoursTest, TheDisabledLabelOfTheMarkerSizeIsLegible) {
  set_colours(GetParam());
  open<frmPropert>();
  expect_legible_when_disabled(*window);
}

TEST_P(ColoursTest, TheDisabledLabelStaysLegibleWhenTheColoursChange) {
  open<frmPropert>();
  set_colours(GetParam());
  expect_legible_when_disabled(*window);
}

// A tab is lighter than the window where the buttons are.
TEST_F(Layout, TheDisabledLabelIsLegibleWhereWindowAndButtonsDiffer) {
  QPalette dark(QColor(55, 59, 64), QColor(42, 45, 49));
  dark.setColor(QPalette::WindowText, QColor(235, 235, 235));
  QApplication::setPalette(dark);
  open<frmPropert>();
  expect_legible_when_disabled(*window);
}

TEST_F(Layout, TheDisabledLabelIsLegibleInTheColoursOfTheStyle) {
  QApplication::setPalette(QApplication::style()->standardPalette());
  open<frmPropert>();
  expect_legible_when_disabled(*window);
}

constexpr int kSeen = 50;

TEST_P(ColoursTest, EmptyBoxesOfThePropertiesAreSeen) {
  set_colours(GetParam());
  open<frmPropert>();
  auto* const tabs = window->findChild<QTabWidget*>("tabCurves");
  int boxes = 0;
  for (int i = 0; i < tabs->count(); ++i) {
    tabs->setCurrentIndex(i);
    QApplication::processEvents();
    save("tab" + QString::number(i) + "on" + GetParam().name());
    for (QCheckBox* check : window->findChildren<QCheckBox*>()) {
      if (!check->isVisible()) continue;
      ++boxes;
      const QSignalBlocker untouched(check);
      check->setChecked(false);
      EXPECT_GT(outline_of_box(window->grab().toImage(), box_of(*check)), kSeen) << name_of(*check);
    }
  }
  EXPECT_EQ(boxes, 8);
}

TEST_P(ColoursTest, EmptyBoxesOfTheCurvesAreSeen) {
  set_colours(GetParam());
  open<frmCurves>();
  save("on" + GetParam().name());
  const auto* const list = window->findChild<QListWidget*>("lstScatters");
  ASSERT_EQ(list->item(1)->checkState(), Qt::Unchecked);
  EXPECT_GT(outline_of_box(window->grab().toImage(), box_of(*list, 1)), kSeen);
}

TEST_P(ColoursTest, OnlyTheOutlinesKeepAColourOfTheirOwn) {
  open<frmPropert>();
  set_colours(GetParam());
  QApplication::processEvents();
  const QPalette colours = window->findChild<QCheckBox*>("chkSort")->palette();
  EXPECT_EQ(colours.color(QPalette::WindowText),
            QApplication::palette().color(QPalette::WindowText));
  EXPECT_EQ(colours.color(QPalette::Base), QApplication::palette().color(QPalette::Base));
}

INSTANTIATE_TEST_SUITE_P(Desktops, ColoursTest,
                         testing::Values(QColor(30, 30, 30), QColor(49, 54, 59), Qt::black,
                                         QColor(239, 239, 239)));

INSTANTIATE_TEST_SUITE_P(Sizes, LettersTest, testing::Values(kNormal, kDoubled));

}  // namespace
}  // namespace kurv::test
