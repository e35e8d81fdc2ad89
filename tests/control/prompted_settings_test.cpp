#include "control/prompted_settings.h"

#include <gmock/gmock.h>

#include "tests/support/test_host.h"

namespace kurv {
namespace {

using test::TestHost;
using testing::IsEmpty;

class PromptedSettings : public testing::Test {
 protected:
  PromptedSettings() { host.load({1, 2}, {3, 4}); }

  void ask(PromptedSetting setting, const char* answer) {
    host.surface.clear_log();
    host.shell.prompts.clear();
    host.shell.inputs = {answer};
    host.control.prompt(setting);
  }
  bool redrawn() const { return host.surface.log().find("cls\n") != std::string::npos; }

  void expect_prompt(const char* text, const char* title, const char* default_text) {
    ASSERT_EQ(host.shell.prompts.size(), 1u);
    EXPECT_EQ(host.shell.prompts[0].text, text);
    EXPECT_EQ(host.shell.prompts[0].title, title);
    EXPECT_EQ(host.shell.prompts[0].default_text, default_text);
  }
  void expect_message(const char* text, int flags, const char* title, int beeps) {
    ASSERT_EQ(host.shell.messages.size(), 1u);
    EXPECT_EQ(host.shell.messages[0].text, text);
    EXPECT_EQ(host.shell.messages[0].flags, flags);
    EXPECT_EQ(host.shell.messages[0].title, title);
    EXPECT_EQ(host.shell.beeps, beeps);
    EXPECT_FALSE(redrawn());
    host.shell.messages.clear();
    host.shell.beeps = 0;
  }
  void expect_silence() {
    EXPECT_THAT(host.shell.messages, IsEmpty());
    EXPECT_EQ(host.shell.beeps, 0);
  }
  bool takes(PromptedSetting setting, const char* answer) {
    host.shell.messages.clear();
    ask(setting, answer);
    EXPECT_EQ(redrawn(), host.shell.messages.empty()) << answer;
    return redrawn();
  }

  TestHost host;  // 12000 x 9000 twips; margins top 480, bottom 520, left and right 800
};

// -- Marker size
// -----------------------------------------------------------------------------------

TEST_F(PromptedSettings, MarkerSizeIsAskedForWithTheStoredDoubleAsTheDefault) {
  set_marker_size(host.document(), 12.5);
  ask(PromptedSetting::kMarkerSize, "7");
  expect_prompt("Enter the data point marker size (value should be between 1-300).", "KURV",
                "12.5");
  EXPECT_EQ(host.document().MarkerSize, 7);
  EXPECT_EQ(host.document().MarkerDrawSize, 7.0 * 5 / 6);
  EXPECT_TRUE(redrawn());
  expect_silence();
}

TEST_F(PromptedSettings, MarkerSizesThatAreNotLegalAreRefusedWithABeep) {
  for (const char* answer :
       {"abc", "0", "-5", "301.5", "NaN", "Inf", "1e999", "  ", "40 twips", "0x10", "1,5"}) {
    ask(PromptedSetting::kMarkerSize, answer);
    expect_message("Data input not legal !", kExclamation, "KURV GUIDE", 1);
    EXPECT_EQ(host.shell.prompts.size(), 1u) << "it is not asked again";
    EXPECT_EQ(host.document().MarkerSize, 40) << answer;
  }
}

TEST_F(PromptedSettings, MarkerSizesAboveZeroUpTo301AreAccepted) {
  for (const auto& [answer, size] : std::vector<std::pair<const char*, Double>>{
           {"0.5", 0.5}, {"300", 300}, {"301", 301}, {" 1e1 ", 10}, {"1e-300", 1e-300}}) {
    ask(PromptedSetting::kMarkerSize, answer);
    EXPECT_EQ(host.document().MarkerSize, size);
    EXPECT_EQ(host.document().MarkerDrawSize, size * 5 / 6);
    EXPECT_TRUE(redrawn());
  }
  expect_silence();
}

TEST_F(PromptedSettings, TheSameMarkerSizeAsShownChangesNothingAndDoesNotRedraw) {
  ask(PromptedSetting::kMarkerSize, "40");
  EXPECT_FALSE(redrawn());
  expect_silence();
  ask(PromptedSetting::kMarkerSize, "40.0");
  EXPECT_TRUE(redrawn()) << "another text is another answer";
}

TEST_F(PromptedSettings, AShownMarkerSizeThatIsTooLargeIsRefusedUnchanged) {
  host.control.set_MarkerSize(400);
  ask(PromptedSetting::kMarkerSize, "400");
  expect_message("Data input not legal !", kExclamation, "KURV GUIDE", 1);
}

TEST_F(PromptedSettings, ACommaIsTheSeparatorWhereTheHostHasSetIt) {
  host.control.set_decimal_separator(',');
  set_marker_size(host.document(), 12.5);
  ask(PromptedSetting::kMarkerSize, "12,25");
  EXPECT_EQ(host.shell.prompts[0].default_text, "12,5");
  EXPECT_EQ(host.document().MarkerSize, 12.25);
}

TEST_F(PromptedSettings, NothingHappensWithoutAnAnswer) {
  for (const auto setting : {PromptedSetting::kMarkerSize, PromptedSetting::kLeftMargin,
                             PromptedSetting::kRightMargin, PromptedSetting::kTopMargin,
                             PromptedSetting::kBottomMargin, PromptedSetting::kXAxisTitle}) {
    ask(setting, "");
    EXPECT_FALSE(redrawn());
    expect_silence();
  }
  EXPECT_EQ(host.document().MarkerSize, 40);
  EXPECT_EQ(host.control.Left_margine(), 800);
  EXPECT_EQ(host.document().yVarName(1), "x");
}

// -- Margins
// ---------------------------------------------------------------------------------------

TEST_F(PromptedSettings, EachMarginIsAskedForWithItsValue) {
  host.control.set_Left_margine(801);
  host.control.set_Right_margine(802);
  ask(PromptedSetting::kLeftMargin, "100");
  expect_prompt("Enter Left Margine size.", "KURV Graph", "801");
  EXPECT_EQ(host.control.Left_margine(), 100);
  EXPECT_TRUE(redrawn());
  ask(PromptedSetting::kRightMargin, "200");
  expect_prompt("Enter Right Margine size.", "KURV Graph", "802");
  EXPECT_EQ(host.control.Right_margine(), 200);
  ask(PromptedSetting::kTopMargin, "300");
  expect_prompt("Enter Upper Margine size.", "KURV Graph", "480");
  EXPECT_EQ(host.control.Top_margine(), 300);
  ask(PromptedSetting::kBottomMargin, "400");
  expect_prompt("Enter Bottom Margine size.", "KURV Graph", "520");
  EXPECT_EQ(host.control.Bottom_margine(), 400);
  EXPECT_TRUE(redrawn());
  expect_silence();
}

TEST_F(PromptedSettings, AMarginThatIsNotAcceptedKeepsItsValue) {
  for (const char* answer :
       {"0", "-1", "0.5", "wide", "1e9", "-1e9", "40000", "NaN", "Inf", " ", "12000"}) {
    for (const auto setting : {PromptedSetting::kLeftMargin, PromptedSetting::kRightMargin,
                               PromptedSetting::kTopMargin, PromptedSetting::kBottomMargin}) {
      ask(setting, answer);
      expect_message("Invalid data entry.", kCriticalStop, "KURV Guide", 0);
      EXPECT_EQ(host.shell.prompts.size(), 1u) << "it is not asked again";
    }
  }
  EXPECT_EQ(host.control.Left_margine(), 800);
  EXPECT_EQ(host.control.Right_margine(), 800);
  EXPECT_EQ(host.control.Top_margine(), 480);
  EXPECT_EQ(host.control.Bottom_margine(), 520);
}

TEST_F(PromptedSettings, AMarginLeavesSpaceForTheOppositeOne) {
  EXPECT_FALSE(takes(PromptedSetting::kLeftMargin, "11200"));
  EXPECT_TRUE(takes(PromptedSetting::kLeftMargin, "11199"));
  EXPECT_FALSE(takes(PromptedSetting::kRightMargin, "801"));
  EXPECT_TRUE(takes(PromptedSetting::kRightMargin, "800"));
  EXPECT_FALSE(takes(PromptedSetting::kTopMargin, "8480"));
  EXPECT_TRUE(takes(PromptedSetting::kTopMargin, "8479"));
  EXPECT_FALSE(takes(PromptedSetting::kBottomMargin, "521"));
  EXPECT_TRUE(takes(PromptedSetting::kBottomMargin, "520"));
}

TEST_F(PromptedSettings, TheLimitsAreThoseOfTheSurfaceAsItIs) {
  host.surface.set_size(6000, 4000);
  EXPECT_FALSE(takes(PromptedSetting::kLeftMargin, "5200"));
  EXPECT_TRUE(takes(PromptedSetting::kLeftMargin, "5199"));
}

TEST(Margins, TheBottomOneIsComparedWithTheWidthToo) {
  TestHost host(3000, 9000);
  host.load({1, 2}, {3, 4});
  const ControlState& state = host.control.state();
  EXPECT_FALSE(accepts_margin(state, Margin::kBottom, 3000)) << "although it is below the height";
  EXPECT_TRUE(accepts_margin(state, Margin::kBottom, 2999));
  EXPECT_TRUE(accepts_margin(state, Margin::kTop, 3000)) << "the top is not";
}

TEST(Margins, LeftAndRightAreBelowTheWidthWhateverTheOppositeOne) {
  TestHost host;
  host.control.set_Left_margine(-500);
  host.control.set_Right_margine(-500);
  host.control.set_Top_margine(-500);
  const ControlState& state = host.control.state();
  for (const Margin margin : {Margin::kLeft, Margin::kRight}) {
    EXPECT_FALSE(accepts_margin(state, margin, 12000));
    EXPECT_TRUE(accepts_margin(state, margin, 11999));
  }
  EXPECT_TRUE(accepts_margin(state, Margin::kBottom, 9499));
  EXPECT_FALSE(accepts_margin(state, Margin::kBottom, 9500));
}

TEST(Margins, SettingOneSaysWhetherItWasAcceptedAndDoesNotRedraw) {
  TestHost host;
  host.load({1, 2}, {3, 4});
  host.surface.clear_log();
  EXPECT_TRUE(set_margin(host.control.state(), Margin::kTop, 1000));
  EXPECT_EQ(host.control.Top_margine(), 1000);
  EXPECT_FALSE(set_margin(host.control.state(), Margin::kTop, 0));
  EXPECT_EQ(host.control.Top_margine(), 1000);
  EXPECT_EQ(host.shell.messages.size(), 1u);
  EXPECT_EQ(host.surface.log(), "");
}

TEST_F(PromptedSettings, AMarginIsRoundedToWholeTwipsTiesToEven) {
  ask(PromptedSetting::kTopMargin, "600.5");
  EXPECT_EQ(host.control.Top_margine(), 600);
  ask(PromptedSetting::kTopMargin, "601.5");
  EXPECT_EQ(host.control.Top_margine(), 602);
}

// -- Texts and fonts
// -------------------------------------------------------------------------------

TEST_F(PromptedSettings, TheTitleOfTheXAxisIsTheNameOfX) {
  ask(PromptedSetting::kXAxisTitle, "time [s]");
  expect_prompt("Enter x axis title.", "KURV", "x");
  EXPECT_EQ(host.document().yVarName(1), "time [s]");
  EXPECT_NE(host.surface.log().find("\"time [s]\""), std::string::npos);
}

TEST_F(PromptedSettings, EachFontDialogIsPresetAndItsAnswerStoredAndDrawn) {
  const Font axis{"Axis", 9, false, true};
  const Font title{"Big", 20, true, false};
  const Font subtitle{"Small", 6.5, true, true};
  const Font before = axis_font(host.document());
  host.shell.fonts = {axis, title, subtitle};
  host.surface.clear_log();
  host.control.prompt(PromptedSetting::kAxisFont);
  EXPECT_EQ(axis_font(host.document()), axis);
  EXPECT_TRUE(redrawn());
  host.control.prompt(PromptedSetting::kTitleFont);
  EXPECT_EQ(title_font(host.document()), title);
  host.control.prompt(PromptedSetting::kSubtitleFont);
  EXPECT_EQ(subtitle_font(host.document()), subtitle);
  EXPECT_EQ(axis_font(host.document()), axis) << "the others stay";
  ASSERT_EQ(host.shell.font_presets.size(), 3u);
  EXPECT_EQ(host.shell.font_presets[0], before);
  EXPECT_EQ(host.shell.font_presets[1].FontSize, before.FontSize + 3);
  EXPECT_TRUE(host.shell.font_presets[1].FontBold);
  EXPECT_EQ(host.shell.font_presets[2], before);
  EXPECT_TRUE(host.document().TitleFontBold.is_exactly_true());
}

TEST_F(PromptedSettings, TheFontsHaveTheNumbersFiveToSeven) {
  const Font chosen{"Chosen", 9, false, true};
  host.shell.fonts = {chosen, chosen, chosen};
  host.control.prompt(PromptedSetting{5});
  EXPECT_EQ(axis_font(host.document()), chosen);
  EXPECT_NE(title_font(host.document()), chosen);
  host.control.prompt(PromptedSetting{6});
  EXPECT_EQ(title_font(host.document()), chosen);
  EXPECT_NE(subtitle_font(host.document()), chosen);
  host.control.prompt(PromptedSetting{7});
  EXPECT_EQ(subtitle_font(host.document()), chosen);
}

TEST_F(PromptedSettings, ACancelledFontDialogChangesNothing) {
  const Font before = title_font(host.document());
  host.surface.clear_log();
  host.control.prompt(PromptedSetting::kTitleFont);
  EXPECT_EQ(title_font(host.document()), before);
  EXPECT_FALSE(redrawn());
  expect_silence();
}

}  // namespace
}  // namespace kurv
