#include <KurvGraph/indicator_style.h>

#include <QApplication>
#include <QFontMetrics>
#include <QProxyStyle>
#include <algorithm>

namespace kurv {

namespace {

class IndicatorStyle final : public QProxyStyle {
 public:
  using QProxyStyle::QProxyStyle;

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
    const bool is_indicator = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight;
    // Never smaller than the style makes it.
    return is_indicator && widget ? std::max(pixels, widget->fontMetrics().ascent()) : pixels;
  }
};

}  // namespace

void scale_indicators(QWidget& widget) {
  // A proxy owns the style below it, so it needs one of its own.
  auto* const style = new IndicatorStyle(QApplication::style()->name());
  style->setParent(&widget);
  widget.setStyle(style);
}

}  // namespace kurv
