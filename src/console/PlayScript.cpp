// script, record, playback, dicefile: who bets, and where the dice come from and go.
#include "autobet/model/Script.h"
#include "base/Nearest.h"
#include "console/PlayCommands.h"
#include "console/ScriptCommands.h"
#include "console/Words.h"
#include "dice/DiceFile.h"
#include "session/Scripts.h"

namespace rollwick {
namespace {

Reply Told(std::string text) {
  Reply reply;
  reply.text = std::move(text);
  return reply;
}

// Without the line end.
std::string Line(std::string text) {
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

Reply LoadInto(Table& table, const std::string& file) {
  const LoadedScript loaded = LoadScript(table.g, file);
  if (!loaded.isLoaded) {
    const ScriptSource& source = loaded.source;
    if (source.refusal) return Failure(CleanUtf8(OneLine(source.refusal->text)));
    if (!source.errors.empty()) return Failure(Line(ErrorsText(file, source)));
    return Failure("the script \"" + Echo(file) + "\" was not loaded.");  // a notice has told why
  }
  Reply reply = Told(Echo(file) + ": " + std::to_string(table.g.ScriptLines.size()) + " lines");
  // It is loaded all the same, as in the editor.
  if (const std::string fault = Line(FaultText(file, loaded.source)); !fault.empty()) {
    reply.text += "\n" + fault;
    reply.extra["fault"] = fault;
  }
  return reply;
}

Reply RunOnce(Table& table) {
  if (table.g.ScriptLines.empty()) return Failure("no script is loaded.");
  const std::string error = RunInitializingScript(table.g);
  if (!error.empty()) return Failure("the script was aborted: " + OneLine(error));
  Reply reply = Told(TableLine(table.g));
  reply.showsTable = true;
  return reply;
}

}  // namespace

Reply RunScript(Table& table, Arguments arguments) {
  const std::string& word = arguments[0];
  if (SameWord(word, "load")) {
    return arguments.size() == 2 ? LoadInto(table, arguments[1]) : Failure("script load needs a file.");
  }
  if (arguments.size() == 2) return Failure("script " + Echo(word) + " takes no further words.");
  if (SameWord(word, "run")) return RunOnce(table);
  if (SameWord(word, "clear")) {
    ClearScript(table.g);
    return Told("The script is cleared.");
  }
  const bool isOn = SameWord(word, "on");
  if (!isOn && !SameWord(word, "off")) return Failure("script load FILE, or script on, off, run or clear.");
  ActivateScript(table.g, isOn);
  return Told(std::string("The script is ") + (isOn ? "on." : "off."));
}

Reply RunRecord(Table& table, Arguments arguments) {
  if (const std::string wrong = RecordInto(table.g, arguments[0]); !wrong.empty())
    return Failure(CleanUtf8(OneLine(wrong)));
  return Told("Rolls are recorded from roll " + std::to_string(table.g.DiceFileRecord) + " of the file on.");
}

Reply RunPlayback(Table& table, Arguments arguments) {
  if (const std::string wrong = PlayBackFrom(table.g, arguments[0]); !wrong.empty())
    return Failure(CleanUtf8(OneLine(wrong)));
  return Told("The file holds " + std::to_string(table.g.DiceFile.Length()) +
              " rolls, which are played now.");
}

Reply RunDiceFile(Table& table, Arguments arguments) {
  Game& g = table.g;
  const bool isRewind = SameWord(arguments[0], "rewind");
  if (!isRewind && !SameWord(arguments[0], "close")) return Failure("dicefile close, or dicefile rewind.");
  if (g.DiceFileName.empty()) return Failure("no Dice Roll File is open.");
  if (!isRewind) {
    CloseDiceFile(g);
    return Told("The Dice Roll File is closed.");
  }
  g.DiceFileRecord = 1;
  g.DiceLastRecord = 0;
  g.DiceFileMode = DiceFilePlayback;
  return Told("The Dice Roll File is played from its start.");
}

}  // namespace rollwick
