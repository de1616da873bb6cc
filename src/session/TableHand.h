// The player's hand over the table: what a click, a key or a menu entry does with the chips between rolls,
// one step of undo for each. Nothing of it happens while the dice roll.
#pragma once

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
  // Puts up what stood at the come-out throw of the last hand, as far as the table takes it now.
  void SameBetsAsLastHand();
  bool HasLastHand() const;

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
  Game& g_;
  ClickMode mode_ = ClickMode::Bet;
  std::optional<CarriedChips> carried_;
};

}  // namespace rollwick
