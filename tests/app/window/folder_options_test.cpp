// What is remembered of the tables of a folder.
#include "app/window/folder_options.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>

namespace kurv::app {
namespace {

struct Folders {
  FolderOptions options() const { return FolderOptions(place()); }
  QString place() const { return folder.filePath("kurv.ini"); }
  QTemporaryDir folder;
};

TEST(FolderOptions, EveryOptionComesBack) {
  const Folders folders;
  TableOptions all;
  all.sheet = "Sheet 1 & 2";
  all.encoding = Encoding::kUtf16Be;
  all.separator = '\t';
  all.skip = 7;
  all.comment = "";
  all.header = HeaderChoice::kNamesAndUnits;
  all.decimal = ',';
  all.thousands = '\0';
  all.missing = std::vector<std::string>{"-999", "a,b", "=&?"};
  all.dates = DateOrder::kMonthFirst;
  folders.options().remember("/data/\xFF folder/a.csv", all);
  const TableOptions found = folders.options().options_for("/data/\xFF folder/b.csv");
  EXPECT_EQ(found.sheet, all.sheet);
  EXPECT_EQ(found.encoding, all.encoding);
  EXPECT_EQ(found.separator, all.separator);
  EXPECT_EQ(found.skip, all.skip);
  EXPECT_EQ(found.comment, all.comment);
  EXPECT_EQ(found.header, all.header);
  EXPECT_EQ(found.decimal, all.decimal);
  EXPECT_EQ(found.thousands, all.thousands);
  EXPECT_EQ(found.missing, all.missing);
  EXPECT_EQ(found.dates, all.dates);
}

TEST(FolderOptions, WhatIsAutomaticIsNotKept) {
  const Folders folders;
  TableOptions some;
  some.separator = ';';
  some.missing = std::vector<std::string>{};
  folders.options().remember("/data/a.csv", some);
  const TableOptions found = folders.options().options_for("/data/a.csv");
  EXPECT_EQ(found.separator, ';');
  EXPECT_EQ(found.missing, some.missing);
  EXPECT_FALSE(found.decimal);
  EXPECT_FALSE(found.skip);
  folders.options().remember("/data/a.csv", {});
  EXPECT_FALSE(folders.options().options_for("/data/a.csv").separator);
}

TEST(FolderOptions, ATableFromTheClipboardIsInNoFolder) {
  const Folders folders;
  TableOptions some;
  some.separator = ';';
  folders.options().remember("clipboard", some);
  EXPECT_FALSE(folders.options().options_for("clipboard").separator);
  folders.options().remember(QDir::current().filePath("a.csv").toStdString(), some);
  EXPECT_FALSE(folders.options().options_for("clipboard").separator);
}

TEST(FolderOptions, FoldersAreApart) {
  const Folders folders;
  TableOptions some;
  some.separator = ';';
  folders.options().remember("/data/a.csv", some);
  for (const char* other : {"/a.csv", "/data/sub/a.csv", "/data2/a.csv", "/dat/a.csv"}) {
    EXPECT_FALSE(folders.options().options_for(other).separator) << other;
  }
}

TEST(FolderOptions, TheOldestOfMoreThanAHundredGoes) {
  const Folders folders;
  TableOptions some;
  some.separator = ';';
  const auto path = [](int i) { return "/f" + std::to_string(i) + "/a.csv"; };
  for (int i = 0; i < 100; ++i) folders.options().remember(path(i), some);
  EXPECT_TRUE(folders.options().options_for(path(0)).separator);
  folders.options().remember(path(0), some);
  folders.options().remember(path(100), some);
  EXPECT_TRUE(folders.options().options_for(path(0)).separator) << "used again, so not the oldest";
  EXPECT_FALSE(folders.options().options_for(path(1)).separator);
  EXPECT_TRUE(folders.options().options_for(path(100)).separator);
}

TEST(FolderOptions, EditedSettingsDoNoHarm) {
  const Folders folders;
  {
    QSettings settings(folders.place(), QSettings::IniFormat);
    settings.setValue("tables/folders",
                      QStringList{"/data?separator=5&decimal=x&skip=-3&header=9&dates=77&encoding=z"
                                  "&thousands=&unknown=1&=&?",
                                  "", "?", "/data?decimal=,"});
  }
  const TableOptions found = folders.options().options_for("/data/a.csv");
  EXPECT_FALSE(found.separator || found.decimal || found.skip || found.header || found.dates ||
               found.encoding || found.thousands);
}

}  // namespace
}  // namespace kurv::app
