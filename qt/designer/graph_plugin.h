// The plugin through which the form designer and QUiLoader create the widget.
#pragma once

#include <QObject>
#include <QPointer>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace kurv {

class GraphPlugin : public QObject, public QDesignerCustomWidgetInterface {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID QDesignerCustomWidgetInterface_iid)
  Q_INTERFACES(QDesignerCustomWidgetInterface)

 public:
  QString name() const override;
  QString group() const override;
  QString toolTip() const override;
  QString whatsThis() const override;
  QString includeFile() const override;
  QIcon icon() const override;
  bool isContainer() const override;
  QString domXml() const override;

  // Only the designer calls initialize(). So a graph that is created after it is a DesignedGraph,
  // and one that QUiLoader creates for a program is an ordinary KurvGraph.
  void initialize(QDesignerFormEditorInterface* designer) override;
  bool isInitialized() const override;
  QWidget* createWidget(QWidget* parent) override;

 private:
  QPointer<QDesignerFormEditorInterface> m_designer;
};

}  // namespace kurv
