// Recording rolls to a Dice Roll File, and playing them back.
#include "dice/DiceFile.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "base/AtomicFile.h"

namespace rollwick {

namespace {

constexpr std::int64_t kTestedRecords = 100;
constexpr const char* kErrorTitle = "Dice Roll File Error";

Message Refusal(std::string text) {
  return {std::move(text), "Unable to Open Dice Roll File", MessagePlain | MessageWarning};
}

// Whether the first records leave bits 0 and 1 clear, as no other file is likely to.
bool LooksLikeDice(ByteFile& file) {
  for (std::int64_t place = 0; place < std::min(file.Length(), kTestedRecords); ++place) {
    const std::optional<unsigned char> byte = file.Read(place);
    if (!byte) break;
    if ((*byte & 3) != 0) return false;
  }
  return true;
}

void Advance(Game& g) {
  g.DiceLastRecord = g.DiceFileRecord++;
}

// Ends recording or playback for good. In Hyper-Drive no notice may open: the run stops, and tells at its
// end.
void StopWithNotice(Game& g, const std::string& text) {
  g.DiceFileMode = DiceFileOff;
  if (g.HyperDriveActive) {
    g.KeepRolling = false;
    g.StopMessage = text;
  } else {
    ShowMessage(g, text, kErrorTitle, MessagePlain | MessageWarning);
  }
}

std::int32_t RecordBehindLast(const Game& g) {
  return static_cast<std::int32_t>(std::min<std::int64_t>(g.DiceFile.Length() + 1, kDiceRecordLimit));
}

void StopRecording(Game& g, const std::string& failure) {
  if (g.DiceFileRecord > RecordBehindLast(g)) {
    g.DiceFileRecord = RecordBehindLast(g);
    g.DiceLastRecord = g.DiceFileRecord - 1;
  }
  StopWithNotice(g,
                 "The Dice Roll File could not be written and recording has been turned off.\r\r" + failure);
}

bool AbandonRoll(Game& g, std::string_view reason) {
  g.KeepRolling = false;
  g.StopMessage = reason;
  return false;
}

}  // namespace

std::optional<Message> OpenDiceFile(Game& g, const std::filesystem::path& path, bool create) {
  FlushDiceFile(g);  // it may be the same file
  ByteFile file;
  if (std::string failure = file.Open(path, create); !failure.empty()) return Refusal(std::move(failure));
  const bool isDice = LooksLikeDice(file);
  if (!file.Failure().empty()) return Refusal(file.Failure());
  if (!isDice) {
    return Refusal(path.filename().string() +
                   "\ris either from an earlier version, has been corrupted, or is not a true Rollwick dice "
                   "roll file.");
  }
  CloseDiceFile(g);
  g.DiceFile.Swap(file);
  g.DiceFileName = path.string();
  return {};
}

void CloseDiceFile(Game& g) {
  if (const std::string failure = g.DiceFile.Close(); !failure.empty()) StopRecording(g, failure);
  g.DiceFileName.clear();
  g.DiceFileMode = DiceFileOff;
  g.DiceFileRecord = 1;
  g.DiceLastRecord = 0;
}

void RecordDiceRoll(Game& g) {
  g.DiceFileRecord = std::clamp(g.DiceFileRecord, 1, RecordBehindLast(g));
  const std::string failure = g.DiceFileRecord == kDiceRecordLimit
                                  ? SystemErrorText(EFBIG)
                                  : g.DiceFile.Write(g.DiceFileRecord - 1, DiceByte(g.Die1, g.Die2));
  if (!failure.empty()) return StopRecording(g, failure);
  Advance(g);
}

bool PlayBackDiceRoll(Game& g) {
  const std::optional<unsigned char> byte = g.DiceFileRecord == kDiceRecordLimit
                                                ? std::nullopt
                                                : g.DiceFile.Read(std::int64_t{g.DiceFileRecord} - 1);
  if (!byte && !g.DiceFile.Failure().empty()) {
    const std::string text = "The Dice Roll File could not be read.\r\r" + g.DiceFile.Failure();
    StopWithNotice(g, text);
    return AbandonRoll(g, text);
  }
  if (!byte) return AbandonRoll(g, kDiceFileEnded);
  const DiceFaces faces = FacesOfByte(*byte);
  const auto isFace = [](std::int32_t die) { return die >= 1 && die <= 6; };
  if (!isFace(faces.die1) || !isFace(faces.die2)) {
    StopWithNotice(g,
                   "A dice roll value has been found to be out of limits. \r\rPlayback of this Dice Roll "
                   "File has ceased so that you can check the file or continue without it.");
    return AbandonRoll(g, "Stopped due to Dice Roll File value out of limits.");
  }
  g.Die1 = faces.die1;
  g.Die2 = faces.die2;
  Advance(g);
  return true;
}

void FlushDiceFile(Game& g) {
  if (const std::string failure = g.DiceFile.Flush(); !failure.empty()) StopRecording(g, failure);
}

void RewindDicePrompt(Game& g, std::int32_t stoppedMode) {
  const std::string what = stoppedMode == DiceFileRecording ? "Recording" : "Playback";
  const Answer answer = ShowMessage(g, what + " stopped.\rRewind for playback?", "Dice Roll File",
                                    MessageYes | MessageNo | MessageCancel | MessageQuestion);
  if (answer == Answer::Yes) {
    g.DiceFileRecord = 1;
    g.DiceFileMode = DiceFilePlayback;
  } else if (answer == Answer::No) {
    g.DiceFileMode = DiceFileOff;
    g.TheHost->TableChanged(g);
  }
}

}  // namespace rollwick
