#include "console/GamesShow.h"

#include <algorithm>
#include <ostream>

#include "base/FormatNumber.h"
#include "base/Nearest.h"
#include "console/Columns.h"
#include "console/Report.h"
#include "console/Words.h"
#include "figures/Games.h"

namespace rollwick {
namespace {

constexpr std::array<const char*, kGameClassCount> kClassWords = {"won", "even", "lost"};

int Wrong(const Terminal& terminal, const std::string& wrong, int exitCode) {
  terminal.error << "rollwick: " << CleanUtf8(OneLine(wrong)) << "\n";
  return exitCode;
}

// What is asked of the log, or what is wrong with the words.
struct Question {
  int field = 0;
  BreakPoints points;
  std::array<bool, kGameClassCount> include{};
  std::string error;
};

void ReadView(Question& question, const std::string& view) {
  std::vector<std::string> captions;
  for (int field = 0; field < kGameFieldCount; ++field) {
    captions.push_back(GameFieldCaption(field));
    if (SameWord(captions.back(), view) || std::to_string(field) == view) {
      question.field = field;
      return;
    }
  }
  question.error = "--view takes a column by its number, 0 to 31, or its name." + DidYouMean(view, captions);
}

void ReadInclude(Question& question, const std::string& include) {
  for (std::size_t start = 0; start <= include.size();) {
    const std::size_t end = std::min(include.find(',', start), include.size());
    const auto word = std::ranges::find_if(
        kClassWords, [&](const char* name) { return SameWord(name, include.substr(start, end - start)); });
    if (word == kClassWords.end()) {
      question.error = "--include takes words of won, even, lost, with commas between.";
      return;
    }
    question.include[static_cast<std::size_t>(word - kClassWords.begin())] = true;
    start = end + 1;
  }
}

void ReadBreakPoints(Question& question, const std::string& text) {
  const std::size_t colon = text.find(':');
  const auto low = ParseMoney(text.substr(0, colon));
  const auto high = colon == std::string::npos ? std::nullopt : ParseMoney(text.substr(colon + 1));
  if (!low || !high || *low > *high) {
    question.error = "--break takes two amounts, the lower one first: --break -10:10.";
    return;
  }
  question.points = {*low, *high};
}

Question ReadQuestion(const GamesShowOptions& options) {
  Question question;
  ReadView(question, options.view);
  if (question.error.empty()) ReadInclude(question, options.include);
  if (question.error.empty()) ReadBreakPoints(question, options.breakPoints);
  return question;
}

Json FiguresJson(const Question& question, const GamesFigures& figures, std::size_t games) {
  Json json;
  json["view"] = question.field;
  json["caption"] = GameFieldCaption(question.field);
  json["break"] = {PlainText(question.points.low), PlainText(question.points.high)};
  json["games"] = games;
  for (std::size_t i = 0; i < kClassWords.size(); ++i) json[kClassWords[i]] = figures.count[i];
  json["total"] = figures.Total();
  json["sum"] = PlainText(figures.sum);
  json["mean"] = PlainText(figures.mean);
  json["median"] = PlainText(figures.median);
  json["median_is_between"] = figures.isMedianBetween;
  json["mode"] = PlainText(figures.mode);
  json["high"] = PlainText(figures.high);
  json["mid"] = PlainText(figures.mid);
  json["low"] = PlainText(figures.low);
  json["range"] = PlainText(figures.range);
  json["variance"] = PlainText(figures.variance);
  json["standard_deviation"] = PlainText(figures.deviation);
  json["skew"] = PlainText(figures.skew);
  json["kurtosis"] = PlainText(figures.kurtosis);
  json["histogram"] = Json::array();
  for (const GamesBand& band : GamesHistogram(figures, question.field, BarWidth::Fine)) {
    json["histogram"].push_back(
        {{"low", PlainText(band.low)}, {"high", PlainText(band.high)}, {"games", band.games}});
  }
  return json;
}

std::string Line(const std::string& caption, const std::string& value) {
  return PadRight(caption, 20) + PadLeft(value, 18);
}

std::string ClassesForPeople(const GamesFigures& figures) {
  std::string text;
  for (const GamesClassRow& row : GamesClassRows(figures)) {
    const std::string percent = row.share.text + (row.share.text.ends_with('%') ? "" : "%");
    text += Line(row.games.label, row.games.text) + PadLeft(percent, 10) + "\n";
  }
  return text;
}

// A line a band, with a bar of its share.
std::string HistogramForPeople(const Question& question, const GamesFigures& figures) {
  constexpr std::int64_t kLongestBar = 40;
  const auto bands = GamesHistogram(figures, question.field, BarWidth::Wide);
  std::int64_t most = 1;
  for (const GamesBand& band : bands) most = std::max<std::int64_t>(most, band.games);
  std::string text;
  for (const GamesBand& band : bands) {
    const std::int64_t bar = (band.games * kLongestBar + most - 1) / most;
    const GamesBandTexts texts = TextsOfBand(band, figures.Total());
    text += PadLeft(texts.low, 14) + " to " + PadRight(texts.high, 14) + PadLeft(texts.games, 16) +
            PadLeft(texts.share, 9) + (bar > 0 ? "  " : "") +
            std::string(static_cast<std::size_t>(bar), '#') + "\n";
  }
  return text.empty() ? text : "\n" + text;
}

std::string FiguresForPeople(const Question& question, const GamesFigures& figures, std::size_t games) {
  std::string text = GameFieldCaption(question.field) + ", " +
                     FormatMoney(Dollars(static_cast<std::int64_t>(games))) +
                     (games == 1 ? " game" : " games") + "\n\n" + ClassesForPeople(figures) + "\n";
  for (const Figure& figure : GamesRows(figures))
    text += Line(figure.label.substr(figure.label.find_first_not_of(' ')), figure.text) + "\n";
  return text + HistogramForPeople(question, figures);
}

}  // namespace

int RunGamesShow(const GamesShowOptions& options, bool isJson, const Terminal& terminal) {
  const Question question = ReadQuestion(options);
  if (!question.error.empty()) return Wrong(terminal, question.error, ExitUsage);
  std::vector<GameValue> column;
  if (const auto refusal = ReadGamesColumn(options.file, question.field, column))
    return Wrong(terminal, refusal->text, ExitFailure);
  const GamesFigures figures = AnalyseGames(column, question.points, question.include);
  if (isJson) {
    terminal.out << FiguresJson(question, figures, column.size()).dump() << "\n";
  } else {
    terminal.out << FiguresForPeople(question, figures, column.size());
  }
  terminal.out << std::flush;
  return terminal.out.good() ? ExitSuccess : ExitFailure;
}

}  // namespace rollwick
