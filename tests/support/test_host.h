// A control on a recording surface, with a host that records what it is asked for.
#pragma once

#include <KurvGraph/control.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <KurvGraph/recording_surface.h>
#include "control/control_state.h"

namespace kurv::test {

struct PlainContainer final : Container {
  bool run_mode() const override { return running; }
  void set_MousePointer(Integer pointer) override { pointers.push_back(pointer); }
  Single Height() const override { return height; }
  Single Width() const override { return width; }
  void set_Height(Single twips) override { height = twips; }
  void set_Width(Single twips) override { width = twips; }
  void MouseUp(Integer, Integer, Single, Single) override { ++mouse_ups; }

  bool running = true;
  std::vector<Integer> pointers;
  Single height = 0;
  Single width = 0;
  int mouse_ups = 0;
};

// Records what was shown and answers from lists. Without an answer left, a dialog is cancelled and
// a question is answered No.
struct ScriptedShell : Shell {
  struct Message {
    std::string text;
    int flags;
    std::string title;
  };
  struct Prompt {
    std::string text;
    std::string title;
    std::string default_text;
  };

  Answer message_box(std::string_view text, int flags, std::string_view title) override {
    messages.push_back({std::string(text), flags, std::string(title)});
    if (while_message_box) while_message_box();
    return flags == kYesNoQuestion ? next(answers, Answer::kNo) : Answer::kOk;
  }
  String input_prompt(std::string_view text, std::string_view title,
                      std::string_view default_text) override {
    prompts.push_back({std::string(text), std::string(title), std::string(default_text)});
    if (while_prompting) while_prompting();
    return next(inputs, String());
  }
  void beep() override { ++beeps; }
  FileChoice open_file(const OpenDialog& dialog) override {
    open_dialogs.push_back(dialog);
    return next(files, FileChoice());
  }
  FileChoice save_file(const SaveDialog& dialog) override {
    save_dialogs.push_back(dialog);
    return next(files, FileChoice());
  }
  std::optional<Font> choose_font(const Font& preset) override {
    font_presets.push_back(preset);
    return next(fonts, std::optional<Font>());
  }

  void copy_picture(std::string_view bitmap) override { copied.emplace_back(bitmap); }
  void load_windows() override { windows.emplace_back("load"); }
  void show_window(Window window, Integer page) override {
    const char* const names[] = {"frmCurves", "frmTable", "frmPropert"};
    windows.push_back(names[static_cast<int>(window)] + (" " + std::to_string(page)));
  }
  void unload_windows() override { windows.emplace_back("unload"); }
  void release_windows() override { windows.emplace_back("release"); }

  template <class T>
  static T next(std::deque<T>& queue, T otherwise) {
    if (queue.empty()) return otherwise;
    T first = queue.front();
    queue.pop_front();
    return first;
  }

  std::deque<Answer> answers;
  std::deque<String> inputs;
  std::deque<FileChoice> files;
  std::deque<std::optional<Font>> fonts;
  std::vector<Message> messages;
  std::vector<Prompt> prompts;
  std::vector<OpenDialog> open_dialogs;
  std::vector<SaveDialog> save_dialogs;
  std::vector<Font> font_presets;
  std::vector<std::string> copied;
  std::vector<std::string> windows;  // the calls, such as "frmPropert 2"
  int beeps = 0;
  std::function<void()> while_prompting;    // called while a prompt is open
  std::function<void()> while_message_box;  // called while a message box is open
};

inline List<Double> points(std::vector<Double> values) {
  return {1, std::move(values)};
}
inline List<String> names(std::vector<String> values) {
  return {1, std::move(values)};
}
inline List<Boolean> flags(std::vector<Boolean> values) {
  return {1, std::move(values)};
}

// Each inner list is one column; both indices count from 1.
inline Matrix<Double> columns(const std::vector<std::vector<Double>>& values) {
  const int count = static_cast<int>(values.size());
  const int length = count == 0 ? 0 : static_cast<int>(values.front().size());
  Matrix<Double> matrix(1, count, 1, length);
  for (int c = 1; c <= count; ++c) {
    for (int i = 1; i <= length; ++i) {
      matrix(c, i) = values[static_cast<std::size_t>(c - 1)][static_cast<std::size_t>(i - 1)];
    }
  }
  return matrix;
}

// A control of 12000 x 9000 twips unless said otherwise, placed and shown.
struct TestHost {
  explicit TestHost(Double width = 12000, Double height = 9000, bool run_mode = true)
      : surface(width, height) {
    container.running = run_mode;
    control.first_placement();
    control.show();
    surface.clear_log();
  }

  GraphDocument& document() { return control.state().document; }
  Layout& layout() { return control.state().layout; }

  // One curve "y" over "x".
  void load(std::vector<Double> x, std::vector<Double> y, bool connected = true,
            bool markers = false) {
    const auto count = static_cast<Integer>(x.size());
    control.scatter_graph(columns({std::move(y)}), points(std::move(x)), count, 1, String("Title"),
                          "x", names({"y"}), 0, {}, Boolean(connected), Boolean(markers));
  }

  std::string redrawn() {
    surface.clear_log();
    control.build_the_graph();
    return surface.log();
  }

  PlainContainer container;
  ScriptedShell shell;
  RecordingSurface surface;
  Services services = make_services();
  Control control{container, shell, surface, services};
};

}  // namespace kurv::test
