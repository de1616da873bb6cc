// log show from outside.
#include <gtest/gtest.h>

#include "console/tests/Rollwick.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

struct LogCommands : testing::Test {
  TemporaryFolder folder;
  std::string log = (folder / "my.txt").string();

  Result Show(std::vector<std::string> options = {}) const {
    options.insert(options.begin(), {"log", "show", log});
    return Rollwick(options);
  }
};

TEST_F(LogCommands, WhatAGameRecorded) {
  const std::string input = "log " + log + "\nlog on\nbet 43 10\nroll 3 4\n";
  ASSERT_EQ(Rollwick({"play", "--quiet"}, input).exitCode, 0);
  const auto lines = Lines(Show({"--json"}).out);
  ASSERT_GE(lines.size(), 3U);
  for (std::size_t i = 0; i < lines.size(); ++i) EXPECT_EQ(lines[i]["line"], i + 1);
  EXPECT_EQ(lines[1]["text"], " Roll #1:  7 (3.4) from manual roll pad");
}

TEST_F(LogCommands, LinesByNumberAndText) {
  std::ofstream(log, std::ios::binary) << " Roll #1\n\n Roll\x1B #2\xFF\r\n"
                                       << std::string(5000, 'x') << "\n";
  const std::string cut(4096, 'x');
  struct Row {
    const char* name;
    std::vector<std::string> options;
    std::string out;
  };
  const Row rows[] = {
      {"all",
       {},
       "       1   Roll #1\n       2  \n       3   Roll? #2\xEF\xBF\xBD\n       4  " + cut + "...\n"},
      {"from a line", {"--from", "2", "--count", "1"}, "       2  \n"},
      {"none", {"--count", "0"}, ""},
      {"found", {"--find", "roll"}, "       1   Roll #1\n       3   Roll? #2\xEF\xBF\xBD\n"},
      {"the first found", {"--find", "ROLL", "--count", "1"}, "       1   Roll #1\n"},
      {"found from a line on", {"--find", "#", "--from", "2"}, "       3   Roll? #2\xEF\xBF\xBD\n"},
      {"as objects", {"--json", "--count", "1"}, "{\"line\":1,\"text\":\" Roll #1\"}\n"},
      {"cut", {"--json", "--from", "4"}, "{\"line\":4,\"text\":\"" + cut + "\",\"cut\":true}\n"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = Show(row.options);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.out, row.out);
  }
  EXPECT_EQ(WholeFile((folder / "my.ref").string()).size(), 16U) << "the index it lacked";
}

TEST_F(LogCommands, WhatIsRefused) {
  std::ofstream(log) << "a\nb\n";
  struct Row {
    const char* name;
    std::vector<std::string> words;
    int exitCode;
    const char* error;
  };
  const Row rows[] = {
      {"no command", {"log"}, 2, "log needs one of these words: show."},
      {"no file", {"log", "show"}, 2, "FILE"},
      {"not there", {"log", "show", "/nowhere.txt"}, 1, "/nowhere.txt: No such file or directory, Error #2"},
      {"a folder", {"log", "show", "/"}, 1, "/: Is a directory, Error #21"},
      {"a device", {"log", "show", "/dev/null"}, 1, "/dev/null: Invalid argument, Error #22"},
      {"line 0", {"log", "show", log, "--from", "0"}, 2, "--from takes the number of a line"},
      {"no number", {"log", "show", log, "--from", "x"}, 2, "--from takes the number of a line"},
      {"behind the end", {"log", "show", log, "--from", "3"}, 1, "the log has 2 lines."},
      {"less than none", {"log", "show", log, "--count", "-1"}, 2, "--count takes a number of lines."},
      {"nothing to find", {"log", "show", log, "--find", ""}, 2, "--find takes a text"},
      {"not found", {"log", "show", log, "--find", "c"}, 1, "Text not found."},
      {"not found behind it", {"log", "show", log, "--find", "a", "--from", "2"}, 1, "Text not found."},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = Rollwick(row.words);
    EXPECT_EQ(result.exitCode, row.exitCode);
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.error.find(row.error), std::string::npos) << result.error;
  }
}

}  // namespace
}  // namespace rollwick
