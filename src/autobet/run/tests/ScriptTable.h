// A table with a script on it, and a folder for the files the script names.
#pragma once

#include <gtest/gtest.h>

#include <map>

#include "autobet/run/RunAutoBet.h"
#include "autobet/run/tests/ScriptBuilder.h"
#include "base/Record.h"
#include "engine/bets/Payoffs.h"
#include "support/ScriptedHost.h"
#include "support/TemporaryFolder.h"

namespace rollwick {

using Slots = std::map<BetId, const char*>;  // amounts as plain text

inline Money Of(const char* text) {
  return ParseMoney(text).value();
}

constexpr BetId StackOf(int number) {
  return SlotChipStack + number;
}

// Grants files of its folder and keeps what it was asked for.
struct FolderHost : ScriptedHost {
  TemporaryFolder folder;
  std::vector<std::string> played;
  std::string saveFailure;
  int saves = 0;

  FileGrant GrantFile(Game&, std::string_view name, FileUse) override {
    if (name.starts_with("/")) return {{}, "No file outside the folder"};
    return {folder / std::string(name), {}};
  }
  void PlayFile(Game&, const std::filesystem::path& path) override { played.push_back(path.filename()); }
  std::string SaveWorkingGame(Game&) override { return ++saves, saveFailure; }
};

// A probability file of true dice.
inline std::string TrueDiceFile() {
  std::string bytes = "Rollwick Probability File, Data Format 4.6";
  bytes.resize(kRecordSize, ' ');
  const MatrixTable matrix = DefaultProbabilityMatrix();
  for (const auto& field : matrix) {
    for (const auto& row : field) bytes.append(reinterpret_cast<const char*>(row.data()), sizeof row);
  }
  bytes.resize(5 * kRecordSize);
  return bytes;
}

struct ScriptTable : TestTable {
  FolderHost files;

  ScriptTable() {
    g.TheHost = &files;
    g.AutoAdjustBetAmounts = AdjustManual;
    g.Rules.NotifyFlags = 0;
  }
  // Chips as they came to lie there earlier, with their vig.
  void Stand(const Slots& slots) {
    for (const auto& [slot, amount] : slots) {
      g.BetAmount[slot] = Of(amount);
      if (!IsBet(slot)) continue;
      g.TotalBets += Of(amount);
      if (slot <= Bet::DontPass) g.BetContract[slot] = Of(amount);
      if (IsBuy(slot)) g.TotalBets += g.BuyVigAmount[slot] = ComputeBuyVig(g, slot, Of(amount));
      if (IsLay(slot)) g.TotalBets += g.LayVigAmount[slot] = ComputeLayVig(g, slot, Of(amount));
    }
  }
  void Run(Script lines) {
    lines.insert(lines.begin(), DoThis());
    SetScript(g, std::move(lines));
    RunAutoBet(g);
  }
  // Every slot is as it was, but for `changed`; sums and vigs follow.
  void ExpectSlots(const std::array<Money, kSlotCount>& before, const Slots& changed) {
    for (BetId slot = 0; slot < kSlotCount; ++slot) {
      const auto change = changed.find(slot);
      const Money expected =
          change == changed.end() ? before[static_cast<std::size_t>(slot)] : Of(change->second);
      EXPECT_EQ(PlainText(g.BetAmount[slot]), PlainText(expected)) << "slot " << slot << " " << BetName(slot);
      const Money vig = IsBuy(slot) ? g.BuyVigAmount[slot] : IsLay(slot) ? g.LayVigAmount[slot] : Money();
      const Money due = ComputeBuyVig(g, slot, expected) + ComputeLayVig(g, slot, expected);
      EXPECT_EQ(PlainText(vig), PlainText(due)) << "vig of " << BetName(slot);
    }
    EXPECT_TRUE(TablesAgree(g)) << "total of all bets: " << PlainText(g.TotalBets);
  }
};

}  // namespace rollwick
