#include "autobet/run/Output.h"

#include <cerrno>
#include <utility>

#include "autobet/run/Run.h"
#include "base/AtomicFile.h"

namespace rollwick {

namespace {

void FailFile(AutoBetRun& run, int error) {
  if (error != 0) run.error = run.g.OutputFileName + ": " + SystemErrorText(error);
}

// Opens the file of OutputFileName.
void OpenNamedOutput(AutoBetRun& run, bool append) {
  Game& g = run.g;
  const FileGrant grant = g.TheHost->GrantFile(g, g.OutputFileName, FileUse::Write);
  if (!grant.refusal.empty()) return Fail(run, grant.refusal, EACCES);
  FailFile(run, g.ScriptOutput.Open(grant.path, append));
}

}  // namespace

void OpenOutput(AutoBetRun& run, bool append) {
  CloseOutput(run);
  if (!run.error.empty()) return;
  run.g.OutputFileName = TrimBlanks(LineOf(run).Name);
  OpenNamedOutput(run, append);
}

void CloseOutput(AutoBetRun& run) {
  run.g.OutputIsToReopen = false;
  FailFile(run, run.g.ScriptOutput.Close());
}

void WriteOutput(AutoBetRun& run, std::string_view text) {
  if (!run.error.empty()) return;
  if (std::exchange(run.g.OutputIsToReopen, false)) OpenNamedOutput(run, true);
  if (!run.error.empty()) return;
  if (!run.g.ScriptOutput.IsOpen()) {
    return Fail(run, "No file is open for output: open one with \"Open/clear file for output:\" first", 52);
  }
  FailFile(run, run.g.ScriptOutput.Write(text));
}

void FlushScriptOutput(Game& g) {
  const int error = g.ScriptOutput.Flush();
  if (error == 0) return;
  g.ScriptOutput.Close();
  g.KeepRolling = false;
  const std::string text =
      "The output file of the Auto-Bet script could not be written and has been closed:\r\r" +
      g.OutputFileName + ": " + SystemErrorText(error);
  if (g.HyperDriveActive) {
    g.StopMessage = text;
  } else {
    ShowMessage(g, text, "Auto-Bet", MessagePlain | MessageWarning);
  }
}

}  // namespace rollwick
