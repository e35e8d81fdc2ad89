// The desktop by the toolkit's dialogs.
#pragma once

#include <KurvGraph/shell.h>

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <string_view>
#include <utility>

#include "control/titled_font_dialog.h"
#include "dialogs/client.h"

namespace kurv {

// UTF-8 whose lines end in CR LF, CR or LF as the toolkit's text.
QString shown_text(std::string_view text);

// "A (*.gdf)|*.gdf|B|*.*" as the toolkit's list: "A (*.gdf)", "B (*)".
QStringList name_filters(std::string_view filter);

// What a name without an extension gets under one of these filters: that of its first pattern, or
// `otherwise` where it has none.
QString extension_of(const QString& name_filter, const QString& otherwise);

// The parent for a dialog that concerns `owner`: the active dialog of the owner's window, else that
// window. Null without an owner.
QWidget* dialog_parent(const QWidget* owner);

// The desktop of a widget. Dialogs open in front of dialog_parent(owner). When that is destroyed
// under an open dialog, or the application has ended already, the answer is No or nothing.
class QtShell final : public Shell, public TitledFontDialog {
 public:
  // The shared windows serve `client`; without one this shell shows none.
  explicit QtShell(QWidget& owner, Client* client = nullptr) : m_owner(&owner), m_client(client) {}

  // Later dialogs have no parent.
  void leave_window() { m_owner.clear(); }
  // Returns the file that was chosen last in a dialog, and replaces it.
  String exchange_chosen_file(String file) { return std::exchange(m_chosen_file, std::move(file)); }

  // What save_file() proposes for a graph that has no file.
  void set_proposed_file(String file) { m_proposed_file = std::move(file); }

  Answer message_box(std::string_view text, int flags, std::string_view title) override;
  String input_prompt(std::string_view text, std::string_view title,
                      std::string_view default_text) override;
  void beep() override;
  FileChoice open_file(const OpenDialog& dialog) override;
  FileChoice save_file(const SaveDialog& dialog) override;
  std::optional<Font> choose_font(const Font& preset) override;
  std::optional<Font> choose_font(const Font& preset, std::string_view title) override;
  void copy_picture(std::string_view bitmap) override;
  void load_windows() override;
  void show_window(Window window, Integer page) override;
  void unload_windows() override;
  void release_windows() override;

 private:
  QPointer<QWidget> m_owner;
  Client* m_client;
  String m_chosen_file;  // empty where the last dialog was cancelled
  String m_proposed_file;
};

}  // namespace kurv
