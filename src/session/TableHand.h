// The player's hand over the table: what a click, a key or a menu entry does with the chips between rolls,
// one step of undo for each. Nothing of it happens while the dice roll.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "engine/state/Game.h"

namespace rollwick {

// What the next click on a bet means.
enum class ClickMode : int { Bet, CallOn, CallOff, Buy, Remove };

struct CarriedChips {
  BetId from = 0;
  Money amount;
};

class TableHand {
 public:
  explicit TableHand(Game& g) : g_(g) {}

  ClickMode Mode() const { return mode_; }
  // The mode that is on already is left again.
  void ChooseMode(ClickMode mode);
  void LeaveMode() { mode_ = ClickMode::Bet; }

  // A left click on a bet or Chip-Stack: the mode's action, else the selected chip is bet.
  void Click(BetId spot);

  // All chips of the spot come into the hand; the table holds them until they are put down. False when there
  // are none, or the dice roll.
  bool TakeUp(BetId spot);
  const std::optional<CarriedChips>& Carried() const { return carried_; }
  // Where they are put: the source is changed first, then the target; what the target refuses goes back.
  void PutDown(BetId target);
  void PutBack() { carried_.reset(); }

  // The amount that is to stand on the spot. False when something was said about it.
  bool EnterAmount(BetId spot, Money amount);
  // + - * / on a bet (a FormulaOperator).
  void Step(BetId bet, int formulaOperator);

  void Remove(BetId spot);
  void Buy(BetId bet);
  void Call(BetId bet, bool on);
  void CallAll(bool on);
  void RemoveAll();
  void FullOdds(BetId bet);
  void TakeAllOdds();
  void LayAllOdds();
  // Puts up what stood at the come-out throw of the last hand, as far as the table takes it now, without
  // notices.
  void SameBetsAsLastHand();
  bool HasLastHand() const;
  // Whether all of them stand.
  bool LastHandStands() const;

  bool CanUndo() const;
  bool CanRedo() const;
  void Undo();
  void Redo();

  // To be called before each throw: what was done before it cannot be undone any more, and the bets of a
  // come-out throw are remembered.
  void DiceAreOut();
  // After another game, or a new one: nothing is in the hand and there is nothing to undo.
  void Forget();

 private:
  // What one action did to a slot.
  struct SlotChange {
    BetId slot = 0;
    Money before, after;
    std::int32_t workingBefore = 0, workingAfter = 0;  // of bets
  };
  using Action = std::vector<SlotChange>;

  // The table as an action found or left it. When it is another one meanwhile (a transaction at the ATM, a
  // new rule, a script, a throw), the steps before do not fit it any more.
  struct Stand {
    std::array<Money, kSlotCount> amounts{};
    std::array<std::int32_t, kBetCount + 1> working{};
    Money totalBets;
    TableRules rules;  // without the switches of the notices
    std::int32_t point = 0;
    std::int32_t rolls = 0;
    bool operator==(const Stand&) const = default;
  };

  Stand StandNow() const;
  bool IsBusy() const;
  void ForgetSteps();
  void Act(const std::function<void()>& change);
  void AddStep(const Stand& before);
  void WriteBack(const SlotChange& change, bool isUndo);
  void MoveChips(BetId from, BetId to);

  Game& g_;
  ClickMode mode_ = ClickMode::Bet;
  std::optional<CarriedChips> carried_;

  std::vector<Action> steps_;
  std::size_t done_ = 0;  // steps before it can be undone, from it on done again
  Stand left_;            // as the last of them left it
  bool isActing_ = false;

  std::array<Money, kBetCount + 1> lastBets_{};  // at the first throw of a hand that had any
  std::int32_t lastBetsHand_ = -1;               // hands completed before that one
};

}  // namespace rollwick
