// The player's script steps aside for a run.
#include "session/HotKeyRun.h"

#include <optional>
#include <utility>
#include <vector>

#include "autobet/files/ScriptFile.h"
#include "autobet/run/RunAutoBet.h"
#include "files/Companions.h"
#include "session/ActiveScript.h"

namespace rollwick {

namespace {

constexpr const char* kTitle = "Hot-Key";

// Puts the player's script back, whatever became of the run.
class ScriptAside {
 public:
  explicit ScriptAside(Game& g)
      : g_(g),
        lines_(g.ScriptLines),
        flags_(g.ScriptFlags),
        insertLine_(g.ScriptInsertLine),
        rolls_(g.RollCount()) {
    g_.HotKeyRunning = true;
  }
  ~ScriptAside() {
    g_.ScriptLines = std::move(lines_);
    g_.ScriptFlags = std::move(flags_);
    if (g_.RollCount() < rolls_) {  // a new game was begun, where all flags are false
      for (FlagEntry& flag : g_.ScriptFlags) flag.Value = flag.PrevValue = 0;
    }
    g_.ScriptInsertLine = insertLine_;
    g_.ScriptIsDecoded = false;
    g_.HotKeyRunning = false;
  }
  ScriptAside(const ScriptAside&) = delete;
  ScriptAside& operator=(const ScriptAside&) = delete;

 private:
  Game& g_;
  std::vector<ScriptLine> lines_;
  std::vector<FlagEntry> flags_;
  std::int32_t insertLine_;
  std::int32_t rolls_;
};

void TellMissing(Game& g, const std::string& path) {
  ShowMessage(g,
              "Unable to find the Auto-Bet file:\r\r" + ShownPath(path) +
                  "\r\rin the specified location.\r\rPlease check the filename and/or location and make "
                  "corrections on the Hot-Key screen.",
              kTitle, MessagePlain | MessageWarning);
}

}  // namespace

bool RunHotKey(Game& g, const HotKey& hotKey, const std::filesystem::path& dataFolder) {
  if (g.RollInProgress || g.AutoBetRunning || g.HotKeyRunning) return false;
  const std::optional<std::filesystem::path> path = FindCompanion(hotKey.path, dataFolder);
  if (!path) {
    TellMissing(g, hotKey.path);
    return false;
  }
  if (const std::string failure = SaveActiveScript(g, dataFolder); !failure.empty()) {
    ShowMessage(g, failure, kTitle, MessagePlain | MessageWarning);
    return false;
  }
  const ScriptAside aside(g);
  if (!ReadScript(g, *path, false)) return false;
  g.LastErrorText.clear();
  RunAutoBet(g);
  return true;
}

}  // namespace rollwick
