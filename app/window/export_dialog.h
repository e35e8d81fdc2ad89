// The window that asks what an exported picture is like: its format, its size and its resolution.
#pragma once

#include <KurvGraph/KurvGraph.h>

#include <QDialog>
#include <QPointer>

#include "app/window/export_choice.h"

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace kurv::app {

class PictureView;

// Shows the picture as it would be drawn, a little after the last change. It begins with a choice,
// and while the picture is as in the window, the fields say what that is.
class ExportDialog final : public QDialog {
 public:
  ExportDialog(KurvGraph& graph, const ExportChoice& choice, QWidget* parent);

  ExportChoice choice() const;

 private:
  QWidget* make_fields();
  void connect_fields();
  void show_size(const ExportSize& size);
  void set_unit(LengthUnit unit);
  void keep_proportions(double from, QDoubleSpinBox& other, double ratio);
  void follow_window(bool on);
  void update_fields();
  QImage drawn_preview() const;
  ExportSize window_size() const;
  ExportSize shown_size() const;
  LengthUnit unit() const;

  QPointer<KurvGraph> m_graph;
  QComboBox* m_format;
  QCheckBox* m_as_in_window;
  QDoubleSpinBox* m_width;
  QDoubleSpinBox* m_height;
  QComboBox* m_unit;
  QCheckBox* m_proportions;
  QLabel* m_resolution_label;
  QSpinBox* m_resolution;
  QLabel* m_note;
  PictureView* m_preview;
  QPushButton* m_export = nullptr;
  LengthUnit m_shown_unit = LengthUnit::kPixels;
  double m_ratio = 1;  // of width to height, that is kept
  bool m_is_changing = false;
};

// The choice of the user, which is remembered. Nothing where the user cancels or the window is
// deleted meanwhile.
std::optional<ExportChoice> ask_for_export(KurvGraph& graph, QWidget* window);

}  // namespace kurv::app
