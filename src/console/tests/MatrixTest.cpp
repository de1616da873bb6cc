// Crooked dice from the command line.
#include <gtest/gtest.h>

#include "console/tests/Rollwick.h"
#include "dice/MatrixEdit.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

class MatrixCommands : public testing::Test {
 protected:
  TemporaryFolder folder;
  const std::string file = (folder / "mine.prb").string();

  Result Play(const std::string& input, std::vector<std::string> options = {}) const {
    std::vector<std::string> words = {"play", "--seed", "7", "--data", folder.Path().string()};
    words.insert(words.end(), options.begin(), options.end());
    return Rollwick(words, input);
  }
  std::vector<nlohmann::ordered_json> PlayJson(const std::string& input,
                                               std::vector<std::string> options = {}) const {
    options.emplace_back("--json");
    return Lines(Play(input, options).out);
  }
};

TEST_F(MatrixCommands, WhatIsUnderstoodAndWhatIsWrong) {
  const struct Row {
    const char* name;
    std::string line;
    std::string error;  // part of it; empty: done
  } rows[] = {
      {"on", "matrix on", ""},
      {"a pair", "matrix cell 2 1 12.5", ""},
      {"with a sign", "matrix cell 1 6 +.5", ""},
      {"below zero", "matrix cell 2 1 -.5", ""},
      {"about an axis", "matrix axis 2 34 100", ""},
      {"no word", "matrix", "a word is missing"},
      {"another word", "matrix sel 1 2 3", "matrix load FILE"},
      {"too much", "matrix on off", "matrix load FILE"},
      {"no file", "matrix load", "name of a file"},
      {"no file there", "matrix load /nowhere.prb", "/nowhere.prb: No such file or directory, Error #2"},
      {"a folder to save", "matrix save /", "/: Is a directory, Error #21"},
      {"no value", "matrix cell 2 1", "ROW COLUMN VALUE"},
      {"no cell", "matrix cell 7 1 5", "rows 2 to 7"},
      {"a cell far off", "matrix cell 2 99999999999 5", "rows 2 to 7"},
      {"words for a value", "matrix cell 2 1 much", "\"much\" is no number"},
      {"infinite", "matrix cell 2 1 inf", "no number"},
      {"two signs", "matrix cell 2 1 +-1", "no number"},
      {"beyond all numbers", "matrix cell 2 1 1" + std::string(400, '0'), "no number"},
      {"no die", "matrix axis 3 16 50", "1 and 2"},
      {"no axis", "matrix axis 1 61 50", "16, 25 and 34"},
      {"no percent", "matrix axis 1 16 -1", "from 0 to 100"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const auto lines = PlayJson(row.line + "\nshow matrix\n");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0]["ok"], row.error.empty());
    EXPECT_NE(lines[0].value("error", "").find(row.error), std::string::npos) << lines[0];
    if (!row.error.empty()) {
      EXPECT_EQ(lines[1]["matrix"]["ProbabilityMatrix"], nlohmann::ordered_json(DefaultProbabilityMatrix()));
    }
  }
}

TEST_F(MatrixCommands, SavedLoadedAndShown) {
  const auto saved =
      PlayJson("matrix cell 2 1 12.5\nshow matrix\nmatrix save \"" + file + "\"\nshow matrix\n");
  EXPECT_EQ(saved[1]["matrix"]["ProbabilityDirty"], true);
  EXPECT_EQ(saved[3]["matrix"]["ProbabilityDirty"], false);
  const auto lines = PlayJson("matrix load \"" + file + "\"\nshow matrix\nmatrix on\nshow matrix\n");
  const auto& matrix = lines[1]["matrix"];
  EXPECT_EQ(matrix["UseProbabilityMatrix"], false);
  EXPECT_EQ(lines[3]["matrix"]["UseProbabilityMatrix"], true);
  EXPECT_EQ(matrix["ProbabilityDisplayMode"], 0);
  EXPECT_EQ(matrix["ProbabilityRollsOutOf"], "36");
  EXPECT_EQ(matrix["ProbabilityName"], "mine.prb");
  EXPECT_EQ(matrix["ProbabilityKindLabel"], "Free Form Dice");
  EXPECT_EQ(matrix["ProbabilityMatrix"][0][2][1], 128);
  EXPECT_EQ(matrix["ProbabilityMatrix"][1][2][1], 12'500);
  EXPECT_EQ(matrix["ProbabilityMatrix"], saved[3]["matrix"]["ProbabilityMatrix"]);

  const std::string text = Play("matrix axis 1 16 100\nshow matrix\n").out;
  EXPECT_NE(text.find("Percentage Dice, untitled, not saved, not in force; percent"), std::string::npos)
      << text;
  EXPECT_NE(text.find("\nrow 2   0.000    0.000 "), std::string::npos) << text;
  EXPECT_NE(text.find(" 25.000 "), std::string::npos) << text;
}

TEST_F(MatrixCommands, DiceFallByTheFile) {
  Play("matrix cell 7 6 70\nmatrix cell 2 1 30\nmatrix save \"" + file + "\"\n");
  const Result drawn = Rollwick({"dice", "draw", "--rolls", "2000", "--seed", "7", "--matrix", file});
  EXPECT_EQ(drawn.exitCode, 0);
  int sixes = 0, aces = 0;
  std::istringstream dice(drawn.out);
  std::string twenty;
  for (std::string line; std::getline(dice, line);) {
    sixes += line == "6 1" ? 1 : 0;
    aces += line == "1 1" ? 1 : 0;
    if (sixes + aces <= 20) twenty += line + "\n";
  }
  EXPECT_EQ(sixes + aces, 2000);
  EXPECT_NEAR(aces, 600, 103);  // five standard deviations

  std::string played, input;
  for (int roll = 0; roll < 20; ++roll) input += "roll\n";
  for (const auto& line : PlayJson(input, {"--matrix", file})) {
    played += line["dice"][0].dump() + " " + line["dice"][1].dump() + "\n";
  }
  EXPECT_EQ(played, twenty);
}

TEST_F(MatrixCommands, OptionsThatAreRefused) {
  std::ofstream(folder / "bad.prb") << "no matrix";
  std::ofstream(folder / "script.txt") << "    Do this . . .\n          Bet $ 10 on Pass Line\n";
  const std::string bad = (folder / "bad.prb").string(), script = (folder / "script.txt").string();
  const std::string refusal =
      "rollwick: bad.prb is either from an older version, has been corrupted, or is not "
      "a true Rollwick Probability File.\n";
  const struct Row {
    const char* name;
    std::vector<std::string> words;
    int exitCode;
    std::string error;
  } rows[] = {
      {"play", {"play", "--matrix", bad}, 1, refusal},
      {"run", {"run", script, "--rolls", "5", "--matrix", bad}, 1, refusal},
      {"draw", {"dice", "draw", "--rolls", "5", "--matrix", bad}, 1, refusal},
      {"nowhere",
       {"play", "--matrix", "/no.prb"},
       1,
       "rollwick: /no.prb: No such file or directory, Error #2\n"},
      {"a command without dice",
       {"script", "statements", "--matrix", bad},
       2,
       "rollwick: --matrix is for play, run, advantage and dice draw.\n"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const Result result = Rollwick(row.words);
    EXPECT_EQ(result.exitCode, row.exitCode);
    EXPECT_EQ(result.error, row.error);
    EXPECT_EQ(result.out, "");
  }
}

}  // namespace
}  // namespace rollwick
