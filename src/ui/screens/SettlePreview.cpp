#include "ui/screens/SettlePreview.h"

#include <memory>

#include "engine/bets/Resolution.h"

namespace rollwick {

namespace {

// A world in which nothing is seen or heard, and the dialog is answered as told.
class QuietWorld : public Host {
 public:
  explicit QuietWorld(const SettleAnswer& answer) : answer_(answer) {}
  std::uint32_t Milliseconds(Game&) override { return 0; }
  Answer Show(Game&, const Message&) override { return Answer::Cancel; }
  std::optional<std::string> Ask(Game&, const Prompt&) override { return {}; }
  SettleAnswer Settle(Game&, const SettleQuestion&) override { return answer_; }

 private:
  const SettleAnswer& answer_;
};

}  // namespace

Money BetAfterAnswer(const Game& g, const SettleQuestion& question, const SettleAnswer& answer) {
  QuietWorld world(answer);
  const auto trial = std::make_unique<Game>();
  static_cast<GameTables&>(*trial) = g;
  trial->TheHost = &world;
  // The vig of the bet was released before the question was asked; a second time there is none to release.
  if (question.won) {
    SettleWonBet(*trial);
  } else {
    SettleLostBet(*trial);
  }
  return trial->BetAmount[trial->CurrentBetId];
}

}  // namespace rollwick
