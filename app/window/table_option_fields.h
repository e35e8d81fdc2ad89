// The fields of the import window that say how a table is written.
#pragma once

#include <QGroupBox>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/csv/table_options.h"
#include "app/window/table_reader.h"

class QGridLayout;
class QLabel;
class QPushButton;
class QSpinBox;

namespace kurv::app {

class OptionBox;

// Controls by name: cboEncoding, cboSeparator, spnSkip, cboComment, cboHeader, cboDecimal,
// cboThousands, cboMissing, cboDates, cboSheet, lblRemark, cmdAutomatic. Each is automatic until
// the user chooses something else.
class TableOptionFields final : public QGroupBox {
 public:
  explicit TableOptionFields(QWidget* parent = nullptr);

  // Called when the user changes a field, and when all become automatic by the button.
  void on_change(std::function<void()> changed) { m_changed = std::move(changed); }

  // What is not automatic. Throws UserError for a text that is no value of its field.
  TableOptions options() const;
  void set_options(const TableOptions& options);
  void set_automatic() { set_options(TableOptions()); }
  bool are_automatic() const;
  std::optional<Encoding> encoding() const;

  // Shows in each field what automatic means for the table; nullptr where none can be read. Offers
  // the sheets, and disables the fields that do not matter for this kind of file.
  void show_meaning(const TableReader& reader, ReadTable* read);
  void set_remark(const QString& remark);

 private:
  QGridLayout* make_grid();
  void fill_lists();
  void connect_fields();
  void field_changed();
  void show_sheets(const TableReader& reader);
  void enable_fields(const TableReader& reader, const ReadTable* read);
  std::optional<char> chosen_separator() const;
  std::optional<std::vector<std::string>> chosen_missing() const;

  std::function<void()> m_changed;
  bool m_is_filling = false;

  OptionBox* m_encoding;
  OptionBox* m_separator;
  QSpinBox* m_skip;
  OptionBox* m_comment;
  OptionBox* m_header;
  OptionBox* m_decimal;
  OptionBox* m_thousands;
  OptionBox* m_missing;
  OptionBox* m_dates;
  OptionBox* m_sheet;
  QLabel* m_sheet_label;
  QLabel* m_remark;
  QPushButton* m_automatic;
};

}  // namespace kurv::app
