// A container without a window and a shell without a user, for programs that draw pictures or write
// graph files and show nothing. A host of its own kind derives from them and overrides what it
// needs.
#pragma once

#include <optional>
#include <string_view>

#include <KurvGraph/container.h>
#include <KurvGraph/plot_surface.h>
#include <KurvGraph/shell.h>

namespace kurv {

// The control is as large as its surface. It stays so when a graph file asks for another size.
class KURV_EXPORT HeadlessContainer : public Container {
 public:
  explicit HeadlessContainer(const PlotSurface& surface)
      : m_height(to_single(surface.ScaleHeight())), m_width(to_single(surface.ScaleWidth())) {}

  bool run_mode() const override { return true; }
  void set_MousePointer(Integer) override {}
  Single Height() const override { return m_height; }
  Single Width() const override { return m_width; }
  void set_Height(Single) override {}
  void set_Width(Single) override {}
  void MouseUp(Integer, Integer, Single, Single) override {}

 private:
  Single m_height;
  Single m_width;
};

// Answers questions with No, and cancels prompts and dialogs. Message boxes are lost: they say why
// data cannot be plotted, so a host that has to know overrides message_box().
class KURV_EXPORT HeadlessShell : public Shell {
 public:
  Answer message_box(std::string_view, int flags, std::string_view) override {
    return flags == kYesNoQuestion ? Answer::kNo : Answer::kOk;
  }
  String input_prompt(std::string_view, std::string_view, std::string_view) override { return {}; }
  void beep() override {}
  FileChoice open_file(const OpenDialog&) override { return {}; }
  FileChoice save_file(const SaveDialog&) override { return {}; }
  std::optional<Font> choose_font(const Font&) override { return {}; }
  void copy_picture(std::string_view) override {}
};

}  // namespace kurv
