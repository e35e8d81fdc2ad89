/// @file
/// A container without a window and a shell without a user, for programs that draw pictures or
/// write graph files and show nothing. A host of its own kind derives from them and overrides what
/// it needs.
#pragma once

#include <optional>
#include <string_view>

#include <KurvGraph/container.h>
#include <KurvGraph/plot_surface.h>
#include <KurvGraph/shell.h>

namespace kurv {

/// A container without a window. The control is as large as its surface. It stays so when a graph
/// file asks for another size.
class KURV_EXPORT HeadlessContainer : public Container {
 public:
  /// Takes the size of the surface as it is now, and does not keep the surface.
  explicit HeadlessContainer(const PlotSurface& surface)
      : m_height(to_single(surface.ScaleHeight())), m_width(to_single(surface.ScaleWidth())) {}

  /// True: no form designer shows the control.
  bool run_mode() const override { return true; }
  /// Does nothing: there is no pointer.
  void set_MousePointer(Integer) override {}
  /// The height of the surface in twips.
  Single Height() const override { return m_height; }
  /// The width of the surface in twips.
  Single Width() const override { return m_width; }
  /// Does nothing: the height stays.
  void set_Height(Single) override {}
  /// Does nothing: the width stays.
  void set_Width(Single) override {}
  /// Does nothing.
  void MouseUp(Integer, Integer, Single, Single) override {}

 private:
  Single m_height;
  Single m_width;
};

/// A shell without a user. Answers questions with No, and cancels prompts and dialogs. Message
/// boxes are lost: they say why data cannot be plotted, so a host that has to know overrides
/// message_box().
class KURV_EXPORT HeadlessShell : public Shell {
 public:
  /// No to a question, OK to anything else.
  Answer message_box(std::string_view, int flags, std::string_view) override {
    return flags == kYesNoQuestion ? Answer::kNo : Answer::kOk;
  }
  /// The empty text, which cancels.
  String input_prompt(std::string_view, std::string_view, std::string_view) override { return {}; }
  /// Does nothing.
  void beep() override {}
  /// An empty path, which cancels.
  FileChoice open_file(const OpenDialog&) override { return {}; }
  /// An empty path, which cancels.
  FileChoice save_file(const SaveDialog&) override { return {}; }
  /// Nothing, which cancels.
  std::optional<Font> choose_font(const Font&) override { return {}; }
  /// Does nothing: there is no clipboard.
  void copy_picture(std::string_view) override {}
};

}  // namespace kurv
