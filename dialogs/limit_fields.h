// The four fields of the axis limits, on the page of the axes.
//
// A limit is stored as soon as the texts of its axis make a pair, the minimum below the maximum. A
// limit that was refused before is stored together with the one that makes it valid. A text that is
// not stored is red. It stays while the user moves between the four fields or works in another
// window. When another field of this window gets the focus, the stored limit is shown again.
//
// A limit that the user has typed is kept: in the same step, the limits stop following the data. A
// line below the two fields says so, and why a text is refused. An axis that is computed as the
// exact range stays one, because "Restore Limits and Margins" computes the limits by that; the line
// says that it has another range now.
#pragma once

#include <KurvGraph/control.h>

#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QWidget>
#include <functional>
#include <set>
#include <vector>

#include "dialogs/propert_page.h"

namespace kurv {

// The field of a limit, and the property that it shows and sets.
struct Limit {
  const char* name;
  const char* caption;
  const char* description;
  Double (Control::*get)() const;
  void (Control::*set)(Double);
};

class LimitFields final : public QObject {
 public:
  // A child of the page.
  explicit LimitFields(PropertPage& page);

  struct Axis {
    QLineEdit* min;
    QLineEdit* max;
    QLabel* note;
    std::function<bool(Control&)> has_lost_exact_range;
  };
  // The limits must outlive the page. `step` is what a change of them is called.
  // `has_lost_exact_range` is asked while the limits do not follow the data.
  Axis add_axis(const char* step, const Limit& min, const Limit& max, const char* note,
                std::function<bool(Control&)> has_lost_exact_range);

 private:
  struct Field {
    QLineEdit* box;
    const Limit* limit;
    const char* step;
  };

  Field new_field(const char* step, const Limit& limit);
  void store_when_changed(const Field& changed, const Field& other, const Axis& axis);
  void show_stored(const Field& field, const Control& control) const;
  void mark(const Field& field, const Control& control);
  void update_note(const Axis& axis, Control& control) const;
  // A field of this window has got the focus.
  void on_focus(const QWidget& widget);
  bool contains(const QWidget* widget) const;

  PropertPage& m_page;
  std::vector<QLineEdit*> m_boxes;
  std::set<QLineEdit*> m_refused;  // whose texts are not stored
};

}  // namespace kurv
