// Scripts out of everything the editor offers, run by the thousand: whatever they do, the books hold, and the
// same script gives the same game, taken from memory, from its text and from its file.
#include <gtest/gtest.h>

#include <fstream>
#include <random>

#include "autobet/files/ScriptFile.h"
#include "autobet/model/Catalogue.h"
#include "autobet/model/CheckStructure.h"
#include "autobet/model/ScriptText.h"
#include "autobet/run/tests/ScriptTable.h"
#include "dice/Draw.h"
#include "engine/bets/Bankroll.h"
#include "engine/cycle/RollDice.h"
#include "engine/game/NewGame.h"

namespace rollwick {
namespace {

#if defined(__SANITIZE_ADDRESS__) || !defined(NDEBUG)
constexpr int kScripts = 500, kRolls = 400;
#else
constexpr int kScripts = 2000, kRolls = 1000;
#endif
constexpr int kCompared = 10;  // one script in so many is played four times
constexpr int kComparedRuns = 8, kRollsInRun = 40;

using Random = std::mt19937;

int Pick(Random& random, int low, int high) {
  return low + static_cast<int>(random() % static_cast<std::uint32_t>(high - low + 1));
}
template <class List>
const auto& OneOf(Random& random, const List& list) {
  return list[static_cast<std::size_t>(Pick(random, 0, static_cast<int>(std::size(list)) - 1))];
}

// A script that Check Bets finds no fault with.
class RandomScript {
 public:
  explicit RandomScript(std::uint32_t seed) : random_(seed) {}

  Script Write() {
    const int groups = Pick(random_, 1, 6);
    for (int group = 0; group < groups; ++group) {
      if (Flip(5)) Add(Comment()).Name.clear();
      if (Flip(3)) {
        Part(KindDoThis, 5, &RandomScript::Action);
        continue;
      }
      Part(Pick(random_, KindWhen, KindWhile), 3, &RandomScript::Condition);
      while (Flip(3)) Part(Pick(random_, KindAndWhen, KindXorWhile), 2, &RandomScript::Condition);
      Part(KindThen, 5, &RandomScript::Action);
      if (Flip(3)) Part(KindElse, 3, &RandomScript::Action);
    }
    for (const char* label : kLabels) {
      Add(Label(label));
      Part(KindDoThis, 2, &RandomScript::Action);
    }
    for (ScriptLine& line : lines_) line.Text = line.Kind == KindComment ? "' a word" : LineText(line);
    return lines_;
  }

 private:
  static constexpr const char* kLabels[] = {"north", "South"};
  static constexpr const char* kNames[] = {"A", "B", "Long name"};
  static constexpr const char* kWords[] = {"out.txt", "none/out.txt", "true.prb", "Well then ;", "A word"};

  bool Flip(int oneIn) { return Pick(random_, 1, oneIn) == 1; }
  ScriptLine& Add(ScriptLine line) { return lines_.emplace_back(std::move(line)); }
  void Part(std::int32_t kind, int mostLines, ScriptLine (RandomScript::*write)()) {
    Add(Start(kind));
    for (int count = Pick(random_, 1, mostLines); count > 0; --count) {
      // A run of adjacent lines on one target, now and then.
      ScriptLine line = (this->*write)();
      const bool goesOn = IsBetFamily(line.Op) && lines_.back().Op == line.Op && line.Kind == KindAction;
      if (goesOn) line.RightCode = lines_.back().RightCode, line.RightIndex = lines_.back().RightIndex;
      Add(std::move(line));
    }
  }
  Money Amount() {
    switch (Pick(random_, 0, 9)) {
      case 0:
        return Money::FromUnits(Pick(random_, -500'000, 3'000'000));
      case 1:
        return Dollars(Pick(random_, 0, 100'000'000));
      case 2:
        return Money();
      default:
        return Dollars(Pick(random_, 1, 120));
    }
  }
  std::int32_t Index(std::int32_t code) {
    const IndexForm form = IndexFormOf(code);
    if (form == IndexForm::None) return 0;
    return Pick(random_, 0, Flip(4) ? (form == IndexForm::Stack ? kMostStackIndex : kMostAverageIndex) : 4);
  }
  std::int32_t ItemOrBet(std::span<const CatalogueEntry> list) {
    return Flip(2) ? OneOf(random_, list).code : Pick(random_, 1, kBetCount);
  }
  ScriptLine Condition();
  ScriptLine Action();
  void Fill(ScriptLine& line, Piece piece);

  Random random_;
  Script lines_;
};

ScriptLine RandomScript::Condition() {
  const LeftItem& left = OneOf(random_, LeftItems());
  ScriptLine line = If(left.code, 0, {}, Index(left.code));
  const bool isTruth = left.operators == OperatorList::FlagTruth || left.operators == OperatorList::IsTruth ||
                       left.operators == OperatorList::AreTruth;
  if (isTruth) line.Amount = Dollars(Pick(random_, 0, 1));
  if (left.operators == OperatorList::FlagTruth) line.Name = OneOf(random_, kNames);
  if (left.operators == OperatorList::Numbers) line.Op = OneOf(random_, NumberList()).code;
  const std::vector<Operator> operators = OperatorsOf(left.operators);
  if (isTruth || operators.empty() || left.operators == OperatorList::Numbers) return line;
  const Operator& op = OneOf(random_, operators);
  line.Op = op.code;
  if (op.operand == Operand::Times || op.operand == Operand::Rolls)
    line.Amount = Dollars(Pick(random_, 0, 12));
  if (op.operand == Operand::Amount) line.Amount = Amount();
  if (op.operand == Operand::Name) line.Name = OneOf(random_, kNames);
  if (op.operand == Operand::Item) {
    line.RightCode = OneOf(random_, RightItems()).code;
    line.RightIndex = Index(line.RightCode);
  }
  return line;
}

ScriptLine RandomScript::Action() {
  const VerbItem& verb = OneOf(random_, VerbItems());
  const bool endsMuch = verb.code >= Verb::ResetKeepingStacks || verb.code == Verb::StopRolling;
  if (endsMuch && !Flip(8)) return Action();
  if (!IsBetFamily(verb.code) && Flip(2)) return Action();
  ScriptLine line = Do(verb.code);
  for (const Piece piece : verb.pieces) Fill(line, piece);
  return line;
}

void RandomScript::Fill(ScriptLine& line, Piece piece) {
  switch (piece) {
    case Piece::Amount:
    case Piece::Percent:
      line.Amount = Amount();
      return;
    case Piece::Value:
      line.LeftCode = ItemOrBet(ValueItems());
      line.LeftIndex = Index(line.LeftCode);
      return;
    case Piece::Target:
      line.RightCode = ItemOrBet(TargetItems());
      line.RightIndex = Index(line.RightCode);
      return;
    case Piece::Outcome:
      line.RightCode = OneOf(random_, ResetRollTargets());
      return;
    case Piece::Winning:
      line.RightCode = OneOf(random_, WinningSettings()).code;
      return;
    case Piece::Losing:
      line.RightCode = OneOf(random_, LosingSettings()).code;
      return;
    case Piece::Words:
      line.Name = OneOf(random_, kWords);
      return;
    case Piece::Label:
      line.Name = OneOf(random_, kLabels);
      return;
    case Piece::Flag:
    case Piece::StackName:
      line.Name = OneOf(random_, kNames);
      return;
    case Piece::StackNumber:
      line.LeftIndex = Pick(random_, 0, 5);
      return;
    case Piece::Mode:
      line.LeftCode = OneOf(random_, RoundModes()).code;
      return;
    case Piece::Truth:
      line.Amount = Dollars(Pick(random_, 0, 1));
      return;
    default:
      return;
  }
}

// Answers by lot, and loses patience with a script that goes round and round.
struct LotHost : FolderHost {
  Random random;
  std::string shown;

  bool forgets = false;

  void PumpEvents(Game& g) override {
    if (forgets && !g.AutoBetRunning) Forget(g);
    g.AutoBetRunning = false;
  }
  // As if the next roll were the first: no way through the script and no request is known from before.
  static void Forget(Game& g) {
    g.ScriptIsDecoded = false;
    ++g.TheLedger.RulesNumber;
  }
  Answer Show(Game& g, const Message& message) override {
    shown += message.title + ": " + message.text + "\n";
    if ((message.flags & MessageYes) == 0) return Answer::Ok;
    return message.title == "Auto-Bet" && g.AutoBetRunning && Pick(random, 0, 1) == 0 ? Answer::Yes
                                                                                      : Answer::No;
  }
  std::optional<std::string> Ask(Game&, const Prompt& prompt) override {
    static constexpr const char* kEntries[] = {"", "ten", "-4", "2.5", "10", "30", "1000000"};
    shown += prompt.text + "\n";
    if (Pick(random, 0, 9) == 0) return {};
    return OneOf(random, kEntries);
  }
  SettleAnswer Settle(Game&, const SettleQuestion& question) override {
    return {question.mustComeDown ? 0 : Pick(random, 0, kSettleChoices - 1), {}};
  }
};

// One game under a script, and the clerk who reads the log.
class ScriptGame {
 public:
  ScriptGame(Script lines, std::uint32_t seed) {
    Random lot(seed);
    host_.random.seed(seed);
    t_.g.TheHost = &host_;
    Game& g = t_.g;
    g.RecordEventsActive = true;
    g.AutoAdjustBetAmounts = Pick(lot, AdjustManual, AdjustColor);
    g.Rules.AllowPutBets = Pick(lot, 0, 3) == 0;
    g.Rules.AllowNegBankroll = Pick(lot, 0, 3) == 0;
    g.Rules.BankrollInitAmount = Dollars(Pick(lot, 100, 20'000));
    isWatched_ = Pick(lot, 0, 3) == 0;
    g.Rules.NotifyFlags = isWatched_ ? 31 : Pick(lot, 0, 1) * NotifyAutoBetHyper;
    g.HandleWinningBets = Pick(lot, WinManual, WinParlay);
    g.HandleLosingBets = Pick(lot, LossManual, LossDoubleBet);
    NewGame(g, false);
    g.SeedRequest = Dollars(1 + seed % 999'999);
    SeedGenerator(g, true);
    std::ofstream(host_.folder / "true.prb") << TrueDiceFile();
    SetScript(g, std::move(lines));
  }

  int Decisions() const { return decisions_; }
  // The world is let in after every roll, and makes the table forget.
  void ForgetBeforeEachRoll() {
    host_.forgets = true;
    t_.g.HyperThrottle = 1;
  }
  void Roll(int rolls) {
    for (int roll = 0; roll < rolls && !::testing::Test::HasFailure(); ++roll) {
      Run(1);
      Check();
    }
  }
  void RollInRuns(int runs) {
    for (int run = 0; run < runs && !::testing::Test::HasFailure(); ++run) {
      Run(kRollsInRun);
      Check();
    }
  }
  // Everything that one game could do and another not.
  std::string Report();

 private:
  void Run(int rolls);
  void Check();
  void ReadLog();

  TestTable t_;
  LotHost host_;
  bool isWatched_ = false;
  int decisions_ = 0;
  Money results_;  // won less lost, since the game began
};

void ScriptGame::Run(int rolls) {
  Game& g = t_.g;
  if (IsBeyondBankLimit(g) || g.BetAmount[SlotBankroll] < Dollars(20)) NewGame(g, true);
  if (isWatched_) return RollDice(g);
  g.RollsInRunSet = rolls;  // through all games that the script begins
  ToggleHyperDrive(g);
}

void ScriptGame::ReadLog() {
  constexpr std::string_view kBegins = " New game started";
  for (const std::string_view line : t_.log.lines) {
    if (line == kBegins) results_ = Money();
    for (const std::string_view word : {" bet won $", " bet lost $"}) {
      const std::size_t end = line.find(word);
      if (end == line.npos) continue;
      const Money amount = ParseMoney(line.substr(end + word.size())).value();
      ++decisions_;
      results_ += word == " bet won $" ? amount : -amount;
    }
  }
  t_.log.lines.clear();
}

void ScriptGame::Check() {
  const Game& g = t_.g;
  ReadLog();
  EXPECT_EQ(g.BetAmount[SlotBankroll] - g.InvestedBankroll, results_)
      << "results and the ATM move the bankroll";
  EXPECT_TRUE(TablesAgree(g));
  EXPECT_FALSE(g.RollInProgress || g.AutoBetRunning || g.KeepRolling);
  for (BetId bet = 1; bet <= kBetCount; ++bet) {
    const Money amount = g.BetAmount[bet];
    EXPECT_GE(amount, Money()) << BetName(bet);
    EXPECT_TRUE(IsMultipleOf(amount, LowestChip(g))) << BetName(bet) << " " << PlainText(amount);
    if (bet < Bet::Hard4 && !IsOdds(bet)) {
      EXPECT_LE(amount, g.Rules.MaxPlacardBet) << BetName(bet);
    }
    const Money vig = IsBuy(bet) ? g.BuyVigAmount[bet] : IsLay(bet) ? g.LayVigAmount[bet] : Money();
    EXPECT_EQ(vig, ComputeBuyVig(g, bet, amount) + ComputeLayVig(g, bet, amount)) << BetName(bet);
  }
  for (BetId slot = kBetCount + 1; slot < SlotChipDenom; ++slot)
    EXPECT_EQ(g.BetAmount[slot], Money()) << slot;
  for (int chip = 0; chip < kChipCount; ++chip) {
    const auto slot = static_cast<std::size_t>(SlotChipDenom + chip);
    EXPECT_GT(g.BetAmount[slot], Money()) << slot;
  }
  for (BetId slot = SlotChipStack; slot <= SlotBehindStacks; ++slot) {
    EXPECT_LE(Abs(g.BetAmount[slot]), kMaxChipStack) << slot;
  }
}

std::string ScriptGame::Report() {
  Game& g = t_.g;
  g.ScriptOutput.Close();
  std::string report = host_.shown + g.LastErrorText + g.LastStopMessage;
  const auto add = [&report](auto number) { report += " " + std::to_string(number); };
  for (const auto* amounts : {&g.BetAmount, &g.BetAtThrow, &g.BetAfterSettle}) {
    for (const Money amount : *amounts) add(amount.Units());
  }
  for (const Money amount : g.BetContract) add(amount.Units());
  for (const std::int32_t working : g.BetWorking) add(working);
  for (const std::int32_t count : g.RollEventCount) add(count);
  for (const std::int32_t count : g.TrackedEventCount) add(count);
  for (const std::int32_t count : g.HandStats) add(count);
  for (const auto& streak : g.BetStreak) add(streak[0]), add(streak[1]);
  for (const auto* table : {&g.BetWagers, &g.BetWins, &g.BetLosses}) {
    for (const BetStatRow& row : (*table)[ActualWagers]) {
      for (const Money value : row) add(value.Units());
    }
  }
  for (const Money point : g.BankrollHistory) add(point.Units());
  for (const std::uint32_t word : g.Mersenne.words) add(word);
  for (const FlagEntry& flag : g.ScriptFlags) report += " " + flag.Name, add(flag.Value), add(flag.PrevValue);
  for (const std::string& name : g.ChipStackName) report += " " + name;
  for (const std::int64_t number :
       {g.TotalBets.Units(), g.InvestedBankroll.Units(), std::int64_t{g.Point}, std::int64_t{g.Die1},
        std::int64_t{g.Die2}, std::int64_t{g.RngChoice}, std::int64_t{g.CurrentSeed},
        std::int64_t{g.HandleWinningBets}, std::int64_t{g.HandleLosingBets}, std::int64_t{g.LastAnswer}}) {
    add(number);
  }
  std::ifstream output(host_.folder / "out.txt", std::ios::binary);
  report.append(std::istreambuf_iterator<char>(output), {});
  return report;
}

std::string Play(const Script& lines, std::uint32_t seed, bool forgets = false) {
  ScriptGame game(lines, seed);
  if (forgets) game.ForgetBeforeEachRoll();
  game.RollInRuns(kComparedRuns);
  return game.Report();
}

std::string TextOf(const Script& lines) {
  std::string text;
  for (const ScriptLine& line : lines) text += line.Text + "\n";
  return text;
}

TEST(RandomScripts, TheBooksHoldAfterEveryRoll) {
  int decisions = 0;
  for (std::uint32_t seed = 1; seed <= kScripts; ++seed) {
    const Script lines = RandomScript(seed).Write();
    const auto fault = CheckStructure(lines);
    EXPECT_FALSE(fault) << "line " << fault->line << ": " << fault->text;
    ScriptGame game(lines, seed);
    game.Roll(kRolls);
    decisions += game.Decisions();
    if (HasFailure()) {
      FAIL() << "script " << seed << ":\n" << TextOf(lines);
    }
  }
  EXPECT_GT(decisions, kScripts * kRolls / 4) << "hardly a bet was made";
}

TEST(RandomScripts, WhatARunRemembersChangesNothing) {
  for (std::uint32_t seed = 1; seed <= kScripts && !HasFailure(); ++seed) {
    const Script lines = RandomScript(seed).Write();
    EXPECT_EQ(Play(lines, seed, true), Play(lines, seed)) << "script " << seed << ":\n" << TextOf(lines);
  }
}

TEST(RandomScripts, TheSameGameFromMemoryTextAndFile) {
  const TemporaryFolder folder;
  for (std::uint32_t seed = 1; seed <= kScripts; seed += kCompared) {
    const Script lines = RandomScript(seed).Write();
    SCOPED_TRACE(TextOf(lines));
    const std::string report = Play(lines, seed);
    EXPECT_EQ(Play(lines, seed), report) << "once more";

    const ParsedScript parsed = ParseScriptText(TextOf(lines));
    ASSERT_TRUE(parsed.errors.empty()) << parsed.errors[0].line << ": " << parsed.errors[0].message;
    EXPECT_EQ(Play(parsed.lines, seed), report) << "from its text";

    std::ofstream(folder / "a.bet", std::ios::binary) << ScriptFileBytes(lines);
    const ScriptFileContent content = ReadScriptFile(folder / "a.bet");
    ASSERT_FALSE(content.refusal) << content.refusal->text;
    EXPECT_EQ(Play(content.lines, seed), report) << "from its file";
    if (HasFailure()) {
      FAIL() << "script " << seed;
    }
  }
}

}  // namespace
}  // namespace rollwick
