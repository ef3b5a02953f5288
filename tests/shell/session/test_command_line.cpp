#include "shell/session/command_line.h"

namespace ruvo {
namespace {

ProgramArguments parse(std::vector<std::string> arguments) {
  return parseCommandLine(arguments);
}

TEST(CommandLine, OptionsAndTheFile) {
  const ProgramArguments none = parse({});
  EXPECT_FALSE(none.alone() || none.noSplash || none.help);
  EXPECT_EQ(none.file, "");
  const ProgramArguments shot = parse({"--size=1200x800", "--screenshot", "out.png", "a b.png"});
  EXPECT_EQ(shot.error, "");
  EXPECT_EQ(shot.screenshot, "out.png");
  EXPECT_EQ(shot.size, (Size{1200, 800}));
  EXPECT_EQ(shot.file, "a b.png");
  EXPECT_TRUE(shot.alone());
  EXPECT_TRUE(parse({"--exit-when-shown"}).alone());
  EXPECT_TRUE(parse({"x.png", "--no-splash"}).noSplash);
  EXPECT_FALSE(shot.animation);
  const ProgramArguments animation = parse({"--animated-gif", "a.gif"});
  EXPECT_TRUE(animation.animation && animation.file == "a.gif" && animation.error.empty());
  EXPECT_EQ(parse({"--", "--help"}).file, "--help");
  EXPECT_EQ(parse({"-"}).file, "-");
  EXPECT_TRUE(parse({"-h"}).help);
  EXPECT_TRUE(parse({"--version"}).version);
}

TEST(CommandLine, WhatIsNotUnderstoodIsSaid) {
  EXPECT_EQ(parse({"a.png", "b.png"}).error, "only one FILE can be named");
  EXPECT_EQ(parse({"a.png", "--animated-gif=b.gif"}).error, "only one FILE can be named");
  EXPECT_EQ(parse({"--animated-gif"}).error, "--animated-gif needs a value");
  EXPECT_EQ(parse({"--frobnicate"}).error, "unknown option --frobnicate");
  EXPECT_EQ(parse({"--screenshot"}).error, "--screenshot needs a value");
  EXPECT_EQ(parse({"--screenshot="}).error, "--screenshot needs a file name");
  for (const char* size : {"1200", "x800", "1200x", "0x5", "-3x5", "12x8z", "99999x9", "1e3x5"}) {
    EXPECT_NE(parse({"--size", size}).error, "") << size;
  }
}

TEST(CommandLine, TheHelpNamesEveryOption) {
  for (const char* option : {"--no-splash", "--animated-gif", "--screenshot", "--size", "--exit-when-shown",
                             "--version", "FILE", "RUVO_PROGRAM_FOLDER"}) {
    EXPECT_THAT(std::string(helpText()), testing::HasSubstr(option));
  }
}

}  // namespace
}  // namespace ruvo
