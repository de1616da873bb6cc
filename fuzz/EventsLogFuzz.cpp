// An Events Log of any text beside an index of any bytes: a line is added, the index fits, and what was there
// stays.
#include <algorithm>

#include "FuzzTable.h"
#include "base/Record.h"
#include "stats/logs/EventsLog.h"
#include "stats/logs/EventsLogReader.h"

namespace rollwick {
namespace {

std::string IndexOf(std::string_view text) {
  std::string index;
  for (std::size_t start = 0; start < text.size();
       start = std::min(text.find('\n', start), text.size() - 1) + 1) {
    std::string offset(4, '\0');
    RecordWriter(offset).Int32(static_cast<std::int32_t>(start + 1));
    index += offset;
  }
  return index;
}

// Every line there is, whatever the index says.
void ReadLines(EventsLogReader& reader) {
  const std::int64_t count = std::min<std::int64_t>(reader.LineCount(), 200);
  for (std::int64_t number = 0; number <= count + 1; ++number) {
    const std::optional<EventsLogLine> line = reader.Line(number);
    Demand(!line || (number >= 1 && line->text.size() <= 4 * EventsLogReader::kLongestShown),
           "a line that can be shown");
  }
  Demand(std::ssize(reader.Screenful(1, 10)) <= 10, "no more lines than the screen has");
  const std::optional<std::int64_t> found = reader.Find("roll", 1, reader.LineCount());
  Demand(!found || (*found >= 1 && *found <= reader.LineCount()), "a found line that is there");
}

void TryReader(const std::filesystem::path& path, std::string_view text, std::string_view index) {
  EventsLogReader reader;
  if (!reader.Open(path).empty()) return;
  if (index.empty()) {
    Demand(reader.LineCount() * 4 == std::ssize(IndexOf(text.substr(0, text.rfind('\n') + 1))),
           "every whole line of a text without an index");
  }
  ReadLines(reader);
  Demand(FileBytes(path) == text, "a text that reading leaves alone");
  PutFile(path, text.substr(0, text.size() / 2));
  if (reader.Refresh().empty()) ReadLines(reader);
}

void Try(const std::filesystem::path& folder, std::string_view text) {
  FuzzTable table(folder);
  const std::filesystem::path path = folder / "input.txt";
  EventsLog log(path);
  const std::vector<std::string> lastLines = log.LastLines(3);
  Demand(lastLines.size() <= 3, "no more lines than asked for");
  std::string expected(text);
  if (!text.empty() && !text.ends_with('\n')) expected += '\n';
  for (const std::string_view added : {" Roll #1:  7 (4.3) from RNG #1\n", "one\n\ntwo\n"}) {
    Demand(log.Append(table.g, added).empty(), "a log that takes a line");
    expected += added;
    Demand(FileBytes(path) == expected, "the text that was there and the line behind it");
    Demand(FileBytes(folder / "input.ref") == IndexOf(expected), "an index that fits the text");
  }
  Demand(log.LastLines(3) == std::vector<std::string>({"one", "", "two"}), "the last lines");
}

}  // namespace
}  // namespace rollwick

// The first byte says how much of the input is the index, in 255ths.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace rollwick;
  static const TemporaryFolder folder;
  const std::string_view input = InputText(data, size).substr(std::min<std::size_t>(size, 1));
  const std::size_t indexSize = size == 0 ? 0 : input.size() * data[0] / 255;
  PutFile(folder / "input.ref", input.substr(0, indexSize));
  PutFile(folder / "input.txt", input.substr(indexSize));
  TryReader(folder / "input.txt", input.substr(indexSize), input.substr(0, indexSize));
  PutFile(folder / "input.ref", input.substr(0, indexSize));
  PutFile(folder / "input.txt", input.substr(indexSize));
  Try(folder.Path(), input.substr(indexSize));
  return 0;
}
