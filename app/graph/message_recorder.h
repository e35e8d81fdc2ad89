// A shell without a user that keeps what it was to show.
#pragma once

#include <KurvGraph/headless.h>

#include <string>
#include <string_view>
#include <utility>

#include "app/base/message_text.h"

namespace kurv::app {

// Records the message boxes, whose texts become the program's error message.
class MessageRecorder final : public HeadlessShell {
 public:
  // A dialog that asks where to save is answered with this path.
  explicit MessageRecorder(std::string save_path = {}) : m_save_path(std::move(save_path)) {}

  Answer message_box(std::string_view text, int, std::string_view) override {
    if (!m_messages.empty()) m_messages += ' ';
    m_messages += text;
    return Answer::kNo;
  }
  FileChoice save_file(const SaveDialog&) override { return {m_save_path, 1}; }

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
