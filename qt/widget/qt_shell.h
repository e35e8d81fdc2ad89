// The desktop by the toolkit's dialogs.
#pragma once

#include <KurvGraph/shell.h>

#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <string_view>

#include "dialogs/client.h"

namespace kurv {

// UTF-8 whose lines end in CR LF, CR or LF as the toolkit's text.
QString shown_text(std::string_view text);

// "A (*.gdf)|*.gdf|B|*.*" as the toolkit's list: "A (*.gdf)", "B (*)".
QStringList name_filters(std::string_view filter);

// What a name without an extension gets under one of these filters: that of its first pattern, or
// `otherwise` where it has none.
QString extension_of(const QString& name_filter, const QString& otherwise);

// Where a dialog of something in `owner` belongs: before the dialog of the same window that the
// user has in front, else before the window itself. Null where there is no owner.
QWidget* front_of(const QWidget* owner);

// Dialogs stand before the window that `owner` is in, or before the dialog of that window in which
// the user is. When that one goes away under an open dialog, or the application has ended already,
// the answer is No or nothing.
class QtShell final : public Shell {
 public:
  // The windows show `client`; without one they are none of this shell's business.
  explicit QtShell(QWidget& owner, Client* client = nullptr) : m_owner(&owner), m_client(client) {}

  // Later dialogs stand alone.
  void leave_window() { m_owner.clear(); }

  Answer message_box(std::string_view text, int flags, std::string_view title) override;
  String input_prompt(std::string_view text, std::string_view title,
                      std::string_view default_text) override;
  void beep() override;
  FileChoice open_file(const OpenDialog& dialog) override;
  FileChoice save_file(const SaveDialog& dialog) override;
  std::optional<Font> choose_font(const Font& preset) override;
  void copy_picture(std::string_view bitmap) override;
  void load_windows() override;
  void show_window(Window window, Integer page) override;
  void unload_windows() override;
  void release_windows() override;

 private:
  QPointer<QWidget> m_owner;
  Client* m_client;
};

}  // namespace kurv
