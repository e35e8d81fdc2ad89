#include "qt/designer/property_groups.h"

#include <QMap>
#include <QStringList>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

namespace kurv {

namespace {

struct Group {
  const char* heading;
  const char* names;
};

constexpr Group kGroups[] = {
    {"Graph: axes",
     "xmin xmax ymin ymax Autoscale NumTicks X_grid Y_grid AxisLabelFormatX AxisLabelFormatY"},
    {"Graph: curves", "Connected CurvesWidth DrawMarkers MarkerSize SortXY"},
    {"Graph: frame and margins",
     "BorderWidth Left_margine Top_margine Right_margine Bottom_margine"},
    {"Graph: font of labels and legend", "FontName FontSize FontBold FontItalic"},
    {"Graph: title", "Title TitleFontName TitleFontSize TitleFontBold TitleFontItalic"},
    {"Graph: subtitle",
     "SubTitle SubTitleFontName SubTitleFontSize SubTitleFontBold SubTitleFontItalic"},
    {"Graph: toolbar, keys, saving", "QueryForSave shortcuts_enabled toolbar_visible zoom_enabled"},
};

QMap<QString, QString> groups_by_name() {
  QMap<QString, QString> groups;
  for (const Group& group : kGroups) {
    for (const QString& name : QString::fromLatin1(group.names).split(' ')) {
      groups.insert(name, QString::fromLatin1(group.heading));
    }
  }
  return groups;
}

}  // namespace

QString property_group(const QString& name) {
  static const QMap<QString, QString> groups = groups_by_name();
  return groups.value(name);
}

void group_properties(const QDesignerFormEditorInterface& designer, QObject& graph) {
  auto* const sheet =
      qt_extension<QDesignerPropertySheetExtension*>(designer.extensionManager(), &graph);
  if (!sheet) return;
  for (int i = 0; i < sheet->count(); ++i) {
    const QString group = property_group(sheet->propertyName(i));
    if (!group.isEmpty()) sheet->setPropertyGroup(i, group);
  }
}

}  // namespace kurv
