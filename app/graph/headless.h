// A container without a window, and a shell without a user.
#pragma once

#include <KurvGraph/container.h>
#include <KurvGraph/shell.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "app/base/message_text.h"

namespace kurv::app {

class HeadlessContainer final : public Container {
 public:
  HeadlessContainer(Double width, Double height)
      : m_width(to_single(width)), m_height(to_single(height)) {}

  bool run_mode() const override { return true; }
  void set_MousePointer(Integer) override {}
  Single Height() const override { return m_height; }
  Single Width() const override { return m_width; }
  // A picture keeps the size that it was asked for.
  void set_Height(Single) override {}
  void set_Width(Single) override {}
  void MouseUp(Integer, Integer, Single, Single) override {}

 private:
  Single m_width;
  Single m_height;
};

// Records the message boxes, whose texts become the program's error message.
class MessageRecorder final : public Shell {
 public:
  // A dialog that asks where to save is answered with this path.
  explicit MessageRecorder(std::string save_path = {}) : m_save_path(std::move(save_path)) {}

  Answer message_box(std::string_view text, int, std::string_view) override {
    if (!m_messages.empty()) m_messages += ' ';
    m_messages += text;
    return Answer::kNo;
  }
  // Without a user, every prompt is cancelled.
  String input_prompt(std::string_view, std::string_view, std::string_view) override { return {}; }
  void beep() override {}
  FileChoice open_file(const OpenDialog&) override { return {}; }
  FileChoice save_file(const SaveDialog&) override { return {m_save_path, 1}; }
  std::optional<Font> choose_font(const Font&) override { return {}; }
  void copy_picture(std::string_view) override {}

  // All boxes as part of one sentence, without its end.
  std::string sentence() const {
    std::string result;
    for (const char c : on_one_line(m_messages)) {
      if (c == ' ' && result.ends_with(' ')) continue;
      if (c == ' ' && result.ends_with('.')) result.back() = ';';
      result += c;
    }
    while (result.ends_with(' ') || result.ends_with('.') || result.ends_with(';')) {
      result.pop_back();
    }
    return result;
  }

  bool empty() const { return m_messages.empty(); }

 private:
  std::string m_save_path;
  std::string m_messages;
};

}  // namespace kurv::app
