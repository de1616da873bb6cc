// What the logic asks of the world outside. The window, the console and the tests each implement it.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Money.h"
#include "engine/state/Bets.h"

namespace rollwick {

struct Game;

// Bits of Message::flags. A message without an answer bit is a pure notice with one OK button.
enum MessageFlag : int {
  MessagePlain = 1,
  MessageYes = 2,
  MessageNo = 4,
  MessageCancel = 8,
  MessageHelp = 16,
  MessageInformation = 256,
  MessageQuestion = 512,
  MessageWarning = 1024,
  MessageClassNotAllowed = 0x10000,
  MessageClassLimits = 0x20000,
  MessageClassCharges = 0x40000,
};

enum class Answer : int { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

struct Message {
  std::string text;  // lines end in a carriage return
  std::string title;
  int flags = MessagePlain;
};

enum class PromptKind { Seed, Money, Text };

struct Prompt {
  PromptKind kind = PromptKind::Text;
  std::string text;
  std::string title;
  std::string preset;
  int maxLength = 100;
};

// One settled bet, as the Settle Bet dialog accounts for it.
struct SettleRow {
  std::string label;
  std::string amount;
  bool bold = false;
};

inline constexpr int kSettleChoices = 7;

struct SettleQuestion {
  BetId bet = 0;
  bool won = true;            // which column of choices applies
  bool mustComeDown = false;  // only choice 0 is live
  int remembered = 0;         // the choice selected at opening, and taken when the dialog is just closed
  std::string caption;
  std::vector<SettleRow> rows;
  std::array<std::string, kSettleChoices> choices;
};

struct SettleFormula {
  std::int32_t formulaOperator = 0;
  Money amount;
  std::int32_t unit = 0;
};

struct SettleAnswer {
  int choice = 0;  // 0..6
  // What the two formula rows ("Same Bet:", "Bet:") hold; nothing leaves them as they were.
  std::optional<std::array<SettleFormula, 2>> formulas;
};

// What a script wants with a file it names.
enum class FileUse { Read, Write };

// Where that file is, or why the script may not have it.
struct FileGrant {
  std::filesystem::path path;
  std::string refusal;
};

// One step of a script run, as the step screen shows it. Line number and step are empty between lines.
struct StepTrace {
  std::string lineNumber;
  std::string step;
  std::string status;
};

enum class Sound { Chips, Win, BrokeTheBank, NumberCall, ComingOut, Pass, Miss, BarPush };

class Host {
 public:
  virtual ~Host() = default;

  // A millisecond clock that wraps, as seeds and delays read it.
  virtual std::uint32_t Milliseconds(Game& g) = 0;
  // Lets what waits outside happen; may clear KeepRolling.
  virtual void PumpEvents(Game&) {}
  // Hyper-Drive and long scripts ask every so often whether it is time for PumpEvents.
  virtual bool EventsAreDue() { return true; }
  // Serves events for so long, or until KeepRolling is cleared; at least once.
  virtual void Wait(Game& g, std::uint32_t /*milliseconds*/) { PumpEvents(g); }

  virtual Answer Show(Game& g, const Message& message) = 0;
  // The text entered; nothing when the prompt was closed for good.
  virtual std::optional<std::string> Ask(Game& g, const Prompt& prompt) = 0;
  virtual SettleAnswer Settle(Game& g, const SettleQuestion& question) = 0;
  // Nothing is shown while the table is minimised: notices are dropped, questions stop the run.
  virtual bool IsMinimized() const { return false; }
  // Commits an amount being typed; false when that reported a problem and no dice may roll.
  virtual bool CommitTypedBet(Game&) { return true; }

  // A script may name any file; which ones it gets is the world's to say. Relative names start in the data
  // folder.
  virtual FileGrant GrantFile(Game&, std::string_view name, FileUse) {
    return {{}, std::string(name) + " is out of reach of the script."};
  }
  // Before a script resets the table: the game as it stands goes where the next start looks for it. Empty on
  // success, else the system's words.
  virtual std::string SaveWorkingGame(Game&) { return {}; }

  // For eyes and ears; never called in Hyper-Drive.
  virtual void Play(Game&, Sound) {}
  virtual void AnimateDice(Game&) {}
  virtual void ReturnDice(Game&) {}
  virtual void ChipsChanged(Game&, BetId) {}
  virtual void TableChanged(Game&) {}
  virtual void PlayFile(Game&, const std::filesystem::path&) {}
  // The word in the status bar while a script acts: "Auto-Betting", "Hot-Key".
  virtual void ShowStatus(Game&, std::string_view) {}
  // Holds the run until the player steps on.
  virtual void ShowStep(Game&, const StepTrace&) {}
  // The least pause between two rolls with a script, reckoned from a time of the clock.
  virtual void WaitForEyes(Game&, std::uint32_t /*since*/, std::uint32_t /*milliseconds*/) {}
};

// Where the Events Log goes.
class EventsLogSink {
 public:
  virtual ~EventsLogSink() = default;
  // Appends whole lines, each ending in LF. Empty on success, else what went wrong, in the system's words.
  virtual std::string Append(Game& g, std::string_view lines) = 0;
  virtual bool IsEmpty() = 0;
  virtual void Clear(Game& g) = 0;
};

// Shows a notice or a question and gives the answer. Notices are dropped and questions stop the run while the
// table is minimised (the answer is then Cancel).
Answer ShowMessage(Game& g, std::string_view text, std::string_view title, int flags = MessagePlain);

// Yes or No.
bool AskYesNo(Game& g, std::string_view text, std::string_view title);

// Whether a notice of this class (a bit of NotifyFlags) is to be shown now: wanted by the player, and nobody
// is in Hyper-Drive. The text of a notice is only made after this said yes.
bool MayNotify(const Game& g, std::int32_t notifyBit);

// A notice with the check box of its class. The caller has asked MayNotify.
void ShowNotice(Game& g, std::int32_t notifyBit, std::string_view text, std::string_view title);

}  // namespace rollwick
