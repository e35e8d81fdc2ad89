// The desktop and the container of a control on a pipe: everything shown is kept for the answer to
// the request, and everything asked is answered from what was queued before.
#pragma once

#include <KurvGraph/container.h>
#include <KurvGraph/shell.h>

#include <QJsonArray>
#include <QJsonObject>
#include <functional>
#include <utility>

namespace kurv::app {

class HostShell final : public Shell {
 public:
  // Appends to what later questions are answered with.
  void queue(const QJsonArray& answers);
  // What was shown since the last call of this.
  QJsonArray take_shown();
  // Returns the file that was chosen last, and forgets it; empty where the last dialog was
  // cancelled.
  String take_chosen_file() { return std::exchange(m_chosen_file, {}); }

  // A question takes the next entry, "yes" or anything else for No; a box with OK alone takes none.
  Answer message_box(std::string_view text, int flags, std::string_view title) override;
  // Text; anything else cancels, and so does an empty queue.
  String input_prompt(std::string_view text, std::string_view title,
                      std::string_view default_text) override;
  void beep() override;
  // {"path": ..., "filter": ...}; anything else cancels.
  FileChoice open_file(const OpenDialog& dialog) override;
  FileChoice save_file(const SaveDialog& dialog) override;
  // {"name": ..., "size": ..., "bold": ..., "italic": ...}, where what is left out keeps its
  // preset.
  std::optional<Font> choose_font(const Font& preset) override;
  // There is no clipboard; only the request is recorded.
  void copy_picture(std::string_view bitmap) override;
  void show_window(Window window, Integer page) override;

 private:
  QJsonValue next_answer();
  FileChoice next_file();

  QJsonArray m_answers;
  QJsonArray m_shown;
  String m_chosen_file;
};

class HostContainer final : public Container {
 public:
  HostContainer(Single width, Single height, bool run_mode)
      : m_width(width), m_height(height), m_run_mode(run_mode) {}

  Integer pointer() const { return m_pointer; }
  // What was raised since the last call of this.
  QJsonArray take_events();
  // Called when the control has given itself another size, as a loaded graph does.
  void on_resize(std::function<void()> resized) { m_resized = std::move(resized); }

  // Called when the graph was loaded from its file or written to it.
  void on_filed(std::function<void()> filed) { m_filed = std::move(filed); }

  // Stores the size that the host gives it. Returns whether it differs from the one before.
  bool store_size(Single width, Single height) {
    const bool other = width != m_width || height != m_height;
    m_width = width;
    m_height = height;
    return other;
  }

  bool run_mode() const override { return m_run_mode; }
  void set_MousePointer(Integer pointer) override { m_pointer = pointer; }
  Single Height() const override { return m_height; }
  Single Width() const override { return m_width; }
  void set_Height(Single twips) override { set_side(m_height, twips); }
  void set_Width(Single twips) override { set_side(m_width, twips); }
  void filed() override { m_filed(); }
  void MouseUp(Integer Button, Integer Shift, Single x, Single Y) override;

 private:
  void set_side(Single& side, Single twips);

  Single m_width;
  Single m_height;
  bool m_run_mode;
  std::function<void()> m_resized;
  std::function<void()> m_filed = [] {};
  Integer m_pointer = kDefaultPointer;
  QJsonArray m_events;
};

}  // namespace kurv::app
