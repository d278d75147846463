#include "host/command_line.h"

#include <gtest/gtest.h>

#include "base/error.h"

namespace tillora::host {
namespace {

TEST(CommandLineTest, NothingGivenShowsTheWindow) {
  const CommandLine line = parseCommandLine({});
  EXPECT_FALSE(line.opensDialog());
  EXPECT_FALSE(line.dump);
  EXPECT_EQ(line.database, std::nullopt);
}

TEST(CommandLineTest, OptionsTakesATabOrNone) {
  EXPECT_EQ(parseCommandLine({u"--options"}).optionsTab, 0);
  EXPECT_EQ(parseCommandLine({u"--options", u"12"}).optionsTab, 12);
  const CommandLine line = parseCommandLine({u"--options", u"--log", u"x.log"});
  EXPECT_EQ(line.optionsTab, 0);
  EXPECT_EQ(line.log, u"x.log");
  EXPECT_TRUE(line.opensDialog());
  EXPECT_TRUE(parseCommandLine({u"--first-use"}).opensDialog());
}

TEST(CommandLineTest, DumpGoesToTheOutputOrAFile) {
  EXPECT_TRUE(parseCommandLine({u"--dump"}).dump);
  EXPECT_EQ(parseCommandLine({u"--dump"}).dumpFile, std::nullopt);
  EXPECT_EQ(parseCommandLine({u"--dump", u"a.txt"}).dumpFile, u"a.txt");
  EXPECT_EQ(parseCommandLine({u"--dump", u"--out", u"b.txt"}).dumpFile, u"b.txt");
}

TEST(CommandLineTest, ValuesMayLookLikeSwitches) {
  const CommandLine line =
      parseCommandLine({u"--database", u"C:\\shop.db", u"--items", u"100000", u"--set-option",
                        u"CompanyName", u"--x", u"--set-option", u"CompanyFax", u""});
  EXPECT_EQ(line.database, u"C:\\shop.db");
  EXPECT_EQ(line.items, 100000);
  const std::vector<std::pair<Text, Text>> expected = {{u"CompanyName", u"--x"},
                                                       {u"CompanyFax", u""}};
  EXPECT_EQ(line.optionsToSet, expected);
}

TEST(CommandLineTest, WhatCannotBeUnderstoodIsRefused) {
  const std::vector<std::vector<Text>> lines = {
      {u"--database"},
      {u"--items"},
      {u"--items", u"-1"},
      {u"--items", u"many"},
      {u"--items", u""},
      {u"--items", u"1000000000"},
      {u"--options", u"one"},
      {u"--options", u"40000"},
      {u"--set-option", u"CompanyName"},
      {u"--log"},
      {u"--nonsense"},
      {u"shop.db"},
  };
  for (const auto& line : lines) EXPECT_THROW(parseCommandLine(line), Error) << toUtf8(line.back());
}

}  // namespace
}  // namespace tillora::host
