// The line below the table in which a user types what to find in it.
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QWidget>

namespace kurv {

class TableFinder final : public QWidget {
  Q_OBJECT

 public:
  explicit TableFinder(QWidget* parent);

  // Shows the line with what was in it, which the next key replaces, or with the beginning of a
  // text.
  void open(const QString& text = {});
  QString text() const { return m_text->text(); }
  // What has been found.
  void set_note(const QString& note);
  void close_line();

 Q_SIGNALS:
  // The user has changed the text.
  void typed();
  // The next place is wanted, or the one before.
  void wanted(bool is_forward);
  void closed();

 protected:
  // Enter finds the next, with Shift the one before; Escape closes the line.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QLineEdit* m_text;
  QLabel* m_note;
};

}  // namespace kurv
