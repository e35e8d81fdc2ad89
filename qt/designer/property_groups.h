// The headings below which the designer's property editor shows the widget's properties.
#pragma once

#include <QString>

class QDesignerFormEditorInterface;
class QObject;

namespace kurv {

// Of a property of the widget; empty for one of QWidget.
QString property_group(const QString& name);

// Puts the properties of this graph below their headings.
void group_properties(const QDesignerFormEditorInterface& designer, QObject& graph);

}  // namespace kurv
