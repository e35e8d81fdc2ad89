#include <QFormLayout>
#include <QHBoxLayout>
#include <QPointer>

#include "dialogs/propert_pages.h"

namespace kurv {

namespace {

QLineEdit* title_box(PropertPage& page, const char* name, const char* description, const char* step,
                     String (Control::*get)() const, void (Control::*set)(const String&)) {
  QLineEdit* const box = page.text_box(name, description, [get](Control& control) {
    return QString::fromStdString((control.*get)());
  });
  page.undo_by_keys(*box, *box, [] { return true; });
  QObject::connect(box, &QLineEdit::textChanged, &page, [=, &page] {
    page.edit(typing(name, step), [=](Control& control) {
      box->setModified(false);
      store_and_draw(set)(control, text_of(*box));
    });
  });
  return box;
}

QPushButton* font_button(PropertPage& page, const char* name, const char* caption,
                         const char* description, PromptedSetting font) {
  QPushButton* const button = page.button(name, caption);
  button->setAccessibleName(QString::fromUtf8(description));
  QObject::connect(button, &QPushButton::clicked, &page, [&page, font] {
    page.window()->setCursor(Qt::WaitCursor);
    const QPointer<QWidget> window(page.window());
    page.handle([font](Control& control) { control.prompt(font); });
    // The window may be gone. The cursor is restored also where the prompt has failed.
    if (window) window->unsetCursor();
  });
  return button;
}

QGroupBox* fonts(PropertPage& page) {
  QGroupBox* const frame = page.frame("Frame2", "Fonts");
  auto* const row = new QHBoxLayout(frame);
  row->addWidget(font_button(page, "cmdFonts_0", "Axe&s and Legend…",
                             "Font of the axes and the legend", PromptedSetting::kAxisFont));
  row->addWidget(
      font_button(page, "cmdFonts_1", "Titl&e…", "Font of the title", PromptedSetting::kTitleFont));
  row->addWidget(font_button(page, "cmdFonts_2", "Su&btitle…", "Font of the subtitle",
                             PromptedSetting::kSubtitleFont));
  return frame;
}

}  // namespace

void build_titles_page(PropertPage& page) {
  auto* const form = new QFormLayout(&page);
  QLineEdit* const title =
      title_box(page, "txtTitle", "Title", "Change Title", &Control::Title, &Control::set_Title);
  form->addRow(page.label("Label10", "T&itle:", title), title);
  QLineEdit* const subtitle = title_box(page, "txtSubTitle", "Subtitle", "Change Subtitle",
                                        &Control::SubTitle, &Control::set_SubTitle);
  form->addRow(page.label("Label11", "S&ubtitle:", subtitle), subtitle);
  form->addRow(fonts(page));
  page.setFocusProxy(title);
}

}  // namespace kurv
