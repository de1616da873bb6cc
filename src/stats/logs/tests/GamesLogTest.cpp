// The Games Log on disk: its bytes, what accidents leave of it, and games added, merged and taken out.
#include "stats/logs/GamesLog.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <random>

#include "base/Record.h"
#include "support/DamagedFile.h"
#include "support/TemporaryFolder.h"

namespace rollwick {
namespace {

namespace fs = std::filesystem;
using Games = std::vector<GameRecord>;

std::string Bytes(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}
void Write(const fs::path& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

// Games first to last, no two with a field in common.
Games Numbered(int first, int last) {
  Games games;
  for (int game = first; game <= last; ++game) {
    games.emplace_back();
    for (std::size_t field = 0; field < kGameFieldCount; ++field)
      games.back()[field] = Money::FromUnits(game * 1'000'003 + static_cast<int>(field) * 257);
  }
  return games;
}

struct LogOnDisk {
  TemporaryFolder folder;
  fs::path path = folder / "test.glg";

  explicit LogOnDisk(int games = 0) { EXPECT_EQ(Add(path, 1, games), ""); }
  static std::string Text(const std::optional<Message>& refusal) { return refusal ? refusal->text : ""; }
  static std::string Add(const fs::path& log, int first, int last) {
    return Text(AppendGames(log, Numbered(first, last)));
  }
  std::string Read(Games& games) const {
    return Text(ReadGames(path, [&](const GameRecord& game) { games.push_back(game); }));
  }
  Games Read() const {
    Games games;
    EXPECT_EQ(Read(games), "");
    return games;
  }
};

TEST(GamesLog, BytesOfTheFile) {
  LogOnDisk disk;
  Games games = Numbered(1, 1);
  games[0][GameRolls] = Dollars(258);
  games[0][GameNet] = Money::FromUnits(-2);
  games[0][31] = Money::FromUnits(0x0102030405060708);
  ASSERT_FALSE(AppendGames(disk.path, games));
  const std::string bytes = Bytes(disk.path);
  ASSERT_EQ(bytes.size(), 512U);
  std::string header = "Rollwick Games File, Data Format 5.0";
  header.resize(92, ' ');
  header += std::string("\1\0\0\0\0\0\0\0", 8) + std::string(100, ' ') + std::string(8, '\0');
  header += std::string(40, ' ') + std::string(8, '\0');
  EXPECT_EQ(bytes.substr(0, 256), header);
  EXPECT_EQ(bytes.substr(256, 8), std::string("\x20\x5E\x27\0\0\0\0\0", 8)) << "258 times 10,000";
  EXPECT_EQ(bytes.substr(256 + 64, 8), "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
  EXPECT_EQ(bytes.substr(256 + 248, 8), "\x08\x07\x06\x05\x04\x03\x02\x01");
  EXPECT_EQ(disk.Read(), games);
}

// Whoever fails the test of the signature is never written to, whatever is asked.
TEST(GamesLog, SignaturesThatPassAndFail) {
  const std::string good = "Rollwick Games File, Data Format 5.0";
  struct Row {
    const char* name;
    std::string text;  // the 92 bytes, filled up with `fill`
    char fill;
    bool passes;
  };
  const Row rows[] = {
      {"as written", good, ' ', true},
      {"filled with NULs", good, '\0', true},
      {"blanks before it", "   " + good, ' ', true},
      {"another version", "Rollwick Games File, Data Format 5.1", ' ', false},
      {"a longer version", good + "0", ' ', false},
      {"a word behind it", good + " x", ' ', false},
      {"lower case", "rollwick Games File, Data Format 5.0", ' ', false},
      {"another file of the house", "Rollwick Probability File, Data Format 4.6", ' ', false},
      {"blank", "", ' ', false},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    LogOnDisk disk(2);
    const LogOnDisk other(1);
    std::string bytes = Bytes(disk.path);
    std::string text = row.text;
    text.resize(92, row.fill);
    Write(disk.path, bytes.replace(0, 92, text));
    if (row.passes) {
      EXPECT_EQ(disk.Read(), Numbered(1, 2));
      continue;
    }
    const std::string refusal =
        "test.glg\ris either from an older version, has been corrupted, or is not a true Rollwick Games "
        "File.";
    Games games;
    int count = 0;
    EXPECT_EQ(disk.Read(games), refusal);
    EXPECT_EQ(disk.Text(CountGames(disk.path, count)), refusal);
    EXPECT_EQ(disk.Add(disk.path, 3, 3), refusal);
    EXPECT_EQ(disk.Text(MergeGames(disk.path, other.path)), refusal);
    EXPECT_EQ(disk.Text(MergeGames(other.path, disk.path)), refusal);
    EXPECT_EQ(disk.Text(DeleteGames(disk.path, {1, 1})), refusal);
    EXPECT_EQ(AppendGames(disk.path, games)->title, "Unable to Open Rollwick Games File");
    EXPECT_EQ(Bytes(disk.path), bytes);
    EXPECT_EQ(other.Read(), Numbered(1, 1));
  }
}

// Wherever a file is cut, the whole games before the cut are there, and a new one goes behind them.
TEST(GamesLog, EveryTruncation) {
  LogOnDisk disk(2);
  ForEachLength(Bytes(disk.path), [&](const std::string& bytes) {
    Write(disk.path, bytes);
    Games games;
    const bool isRead = disk.Read(games).empty();
    EXPECT_EQ(isRead, bytes.size() >= 92);
    EXPECT_EQ(disk.Add(disk.path, 9, 9).empty(), isRead);
    if (!isRead) {
      EXPECT_EQ(Bytes(disk.path), bytes);
      return;
    }
    Games expected = Numbered(1, bytes.size() < 256 ? 0 : static_cast<int>(bytes.size() / 256) - 1);
    EXPECT_EQ(games, expected);
    expected.push_back(Numbered(9, 9)[0]);
    EXPECT_EQ(disk.Read(), expected);
  });
}

TEST(GamesLog, EveryChangedByte) {
  LogOnDisk disk(2);
  const std::string whole = Bytes(disk.path);
  const RewrittenFile file(disk.path);
  ForEachChange(whole, [&](const std::string& bytes, std::size_t place) {
    file.Put(bytes);
    Games games;
    // A blank and a NUL are the same.
    const bool isSignature = place < 92 && !(whole[place] == ' ' && bytes[place] == '\0');
    EXPECT_EQ(disk.Read(games).empty(), !isSignature);
    if (isSignature) return;
    RecordReader header(bytes);
    header.Seek(92);
    Games expected = Numbered(1, std::clamp(header.Int32(), 0, 2));
    if (place >= 256) {
      RecordReader field(bytes);
      field.Seek(place - place % 8);
      expected[place / 256 - 1][place % 256 / 8] = field.Amount();
    }
    EXPECT_EQ(games, expected);
  });
}

// A kill comes before the games are whole, or between them and the count.
TEST(GamesLog, AKillWhileGamesAreAdded) {
  LogOnDisk disk(2);
  const std::string before = Bytes(disk.path);
  ASSERT_EQ(disk.Add(disk.path, 3, 3), "");
  const std::string after = Bytes(disk.path);
  for (std::size_t written = 0; written <= 256; ++written) {
    Write(disk.path, before + after.substr(before.size(), written));
    EXPECT_EQ(disk.Read(), Numbered(1, 2));
    ASSERT_EQ(disk.Add(disk.path, 3, 3), "");
    EXPECT_EQ(disk.Read(), Numbered(1, 3));
  }
}

TEST(GamesLog, AFullDisk) {
  LogOnDisk disk(2);
  for (const rlim_t room : {768U, 769U, 1000U, 1023U}) {
    const FileSizeLimit full(room);
    EXPECT_EQ(disk.Add(disk.path, 3, 3), disk.path.string() + ": File too large, Error #27");
    EXPECT_EQ(disk.Read(), Numbered(1, 2));
  }
  EXPECT_EQ(disk.Add(disk.path, 3, 3), "");
  EXPECT_EQ(disk.Read(), Numbered(1, 3));
  const FileSizeLimit full(300);
  EXPECT_NE(disk.Add(disk.folder / "new.glg", 1, 1), "");
  EXPECT_FALSE(fs::exists(disk.folder / "new.glg"));
  EXPECT_TRUE(DeleteGames(disk.path, {1, 1}));
  EXPECT_EQ(disk.Read(), Numbered(1, 3));
}

TEST(GamesLog, WhatIsNoFile) {
  const LogOnDisk disk;
  const fs::path pipe = disk.folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  int count = 0;
  EXPECT_EQ(disk.Text(CountGames(disk.folder / "none", count)),
            (disk.folder / "none").string() + ": No such file or directory, Error #2");
  for (const fs::path& path : {pipe, disk.folder.Path(), disk.folder / "none/x.glg"}) {
    EXPECT_TRUE(CountGames(path, count));
    EXPECT_NE(disk.Add(path, 1, 1).find(", Error #"), std::string::npos);
  }
}

TEST(GamesLog, Merge) {
  struct Row {
    const char* name;
    int into, from;  // games; -1: no file
    bool isDone;
  };
  for (const Row& row : {Row{"two logs", 2, 3, true},
                         {"into a new log", -1, 3, true},
                         {"an empty log", 2, 0, true},
                         {"many games", 300, 600, true},
                         {"from no log", 2, -1, false}}) {
    SCOPED_TRACE(row.name);
    const LogOnDisk disk(std::max(row.into, 0));
    const fs::path from = disk.folder / "from.glg";
    if (row.into < 0) fs::remove(disk.path);
    if (row.from >= 0) {
      ASSERT_EQ(disk.Add(from, row.into + 1, row.into + row.from), "");
    }
    EXPECT_EQ(!MergeGames(disk.path, from), row.isDone);
    Games expected = Numbered(1, row.into);
    const Games added = Numbered(row.into + 1, row.into + row.from);
    expected.insert(expected.end(), added.begin(), added.end());
    EXPECT_EQ(disk.Read(), expected);
  }
  const LogOnDisk disk(2);
  EXPECT_FALSE(MergeGames(disk.path, disk.path));
  EXPECT_EQ(disk.Read().size(), 4U) << "with itself: every game twice";
}

TEST(GamesLog, Delete) {
  struct Row {
    const char* text;
    std::optional<GameRange> range;  // of five games
  };
  const Row rows[] = {{"1", {{1, 1}}},    {"5", {{5, 5}}}, {"2-4", {{2, 4}}}, {" 1 - 5 ", {{1, 5}}},
                      {"3-3", {{3, 3}}},  {"0", {}},       {"6", {}},         {"4-6", {}},
                      {"4-2", {}},        {"", {}},        {"-3", {}},        {"2-", {}},
                      {"2-3-4", {}},      {"2,4", {}},     {"x", {}},         {"2x", {}},
                      {"99999999999", {}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    const auto range = ParseGameRange(row.text, 5);
    ASSERT_EQ(range.has_value(), row.range.has_value());
    if (!range) continue;
    EXPECT_EQ(range->first, row.range->first);
    EXPECT_EQ(range->last, row.range->last);
    const LogOnDisk disk(5);
    EXPECT_FALSE(DeleteGames(disk.path, *range));
    Games expected = Numbered(1, 5);
    expected.erase(expected.begin() + range->first - 1, expected.begin() + range->last);
    EXPECT_EQ(disk.Read(), expected);
    EXPECT_EQ(fs::file_size(disk.path), 256 * (expected.size() + 1));
  }
  const LogOnDisk disk(3);
  EXPECT_FALSE(DeleteGames(disk.path, {3, 2'000'000'000}));
  EXPECT_EQ(disk.Read(), Numbered(1, 2));
}

TEST(GamesLog, TheRecordOfAGame) {
  const auto game = std::make_unique<Game>();
  Game& g = *game;
  std::mt19937 random(7);
  const auto amount = [&] { return Money::FromUnits(static_cast<std::int64_t>(random() % 90'000'000)); };
  GameRecord expected{};
  for (std::size_t bet = 0; bet < kBetRowCount; ++bet) {
    const bool counts = bet >= 1 && bet <= kBetCount;
    for (const auto& [table, field] : {std::pair{&g.BetWagers, GameBetsDecided},
                                       {&g.BetWins, GameBetsWon},
                                       {&g.BetLosses, GameBetsLost}}) {
      (*table)[PhantomWagers][bet].fill(amount());
      BetStatRow& row = (*table)[ActualWagers][bet];
      row[TotalCount] = Dollars(random() % 50);
      row[TotalAmount] = amount();
      if (!counts) continue;
      expected[static_cast<std::size_t>(field)] += row[TotalCount];
      expected[static_cast<std::size_t>(field) + 4] += row[TotalAmount];
    }
  }
  for (Money& slot : g.BetAmount) slot = amount();
  g.RollCount() = 100'000'000;
  g.InvestedBankroll = amount();
  expected[0] = Dollars(100'000'000);
  expected[4] = expected[2] - expected[3];
  expected[8] = expected[6] - expected[7];
  expected[9] = Money::FromDouble(100.0 * expected[8].ToDouble() / expected[5].ToDouble());
  expected[10] = g.InvestedBankroll;
  expected[11] = g.BetAmount[0];
  for (std::size_t stack = 0; stack < 20; ++stack) expected[12 + stack] = g.BetAmount[100 + stack];
  EXPECT_EQ(RecordOfGame(g), expected);
  EXPECT_EQ(RecordOfGame(g), expected) << "the work row begins anew";
}

TEST(GamesLog, PercentageOfTheHandle) {
  struct Row {
    const char* name;
    const char *won, *lost, *handle, *percentage;
  };
  for (const Row& row : {Row{"no handle", "0", "0", "0", "0"},
                         {"a pass line", "99", "101", "200", "-1"},
                         {"four decimals", "1", "0", "3", "33.3333"},
                         {"rounded up", "2", "0", "3", "66.6667"},
                         {"a tie, down to even", "1", "0", "3200", "0.0312"},
                         {"a tie, up to even", "3", "0", "3200", "0.0938"},
                         {"a tie below 0", "0", "3", "3200", "-0.0938"}}) {
    SCOPED_TRACE(row.name);
    const auto game = std::make_unique<Game>();
    game->BetWins[ActualWagers][Bet::PassLine][TotalAmount] = *ParseMoney(row.won);
    game->BetLosses[ActualWagers][Bet::Field][TotalAmount] = *ParseMoney(row.lost);
    game->BetWagers[ActualWagers][Bet::PassLine][TotalAmount] = *ParseMoney(row.handle);
    EXPECT_EQ(PlainText(RecordOfGame(*game)[GameAdvantage]), row.percentage);
  }
}

}  // namespace
}  // namespace rollwick
