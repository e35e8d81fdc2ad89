#include "qt/designer/form_text.h"

#include <KurvGraph/property_list.h>

#include <string_view>

namespace kurv {

namespace {

constexpr const char* kWidget = R"(<ui language="c++" displayname="KurvGraph">
 <widget class="kurv::KurvGraph" name="graph">
  <property name="geometry">
   <rect><x>0</x><y>0</y><width>440</width><height>320</height></rect>
  </property>
 </widget>
 <customwidgets>
  <customwidget>
   <class>kurv::KurvGraph</class>
   <extends>QWidget</extends>
   <header location="global">KurvGraph/KurvGraph.h</header>
   <propertyspecifications>
)";

constexpr const char* kEnd = R"(   </propertyspecifications>
  </customwidget>
 </customwidgets>
</ui>
)";

// Texts that a user reads are translated and may have several lines.
bool is_translated(std::string_view name) {
  return name == "Title" || name == "SubTitle";
}

QString tool_tip(const char* name, std::string_view summary, std::string_view unit) {
  QString text = QString::fromUtf8(summary.data(), qsizetype(summary.size()));
  // "Width of curves." becomes "Width of curves, pixels."
  if (!unit.empty()) {
    text.chop(1);
    text += QStringLiteral(", ") + QString::fromUtf8(unit.data(), qsizetype(unit.size())) + '.';
  }
  return QStringLiteral("    <tooltip name=\"%1\">%2</tooltip>\n")
      .arg(QLatin1String(name), text.toHtmlEscaped());
}

QString text_kind(const char* name) {
  const char* const kind =
      is_translated(name) ? R"(type="multiline")" : R"(type="singleline" notr="true")";
  return QStringLiteral("    <stringpropertyspecification name=\"%1\" %2/>\n")
      .arg(QLatin1String(name), QLatin1String(kind));
}

}  // namespace

QString form_text() {
  QString tool_tips;
  QString texts;
  const auto add = [&](const char* name, std::string_view type, std::string_view unit,
                       std::string_view summary) {
    tool_tips += tool_tip(name, summary, unit);
    if (type == "String") texts += text_kind(name);
  };
#define KURV_ADD(name, dispatch_id, Type, rule, initially, unit, summary) \
  add(#name, #Type, unit, summary);
  KURV_PROPERTIES(KURV_ADD)
#undef KURV_ADD
  tool_tips += tool_tip("toolbar_visible", "Whether the toolbar is shown.", "");
  tool_tips += tool_tip("shortcuts_enabled",
                        "Whether Ctrl+S, Ctrl+O, Ctrl+P, Ctrl+C and F5 are commands.", "");
  tool_tips += tool_tip("zoom_enabled", "Whether the user can zoom and pan.", "");
  return QLatin1String(kWidget) + tool_tips + texts + QLatin1String(kEnd);
}

}  // namespace kurv
