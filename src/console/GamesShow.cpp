#include "console/GamesShow.h"

#include <algorithm>
#include <charconv>
#include <ostream>

#include "base/FormatNumber.h"
#include "base/Nearest.h"
#include "console/Report.h"
#include "console/Words.h"
#include "stats/logs/GamesAnalysis.h"

namespace rollwick {
namespace {

constexpr const char* kMoneyFormat = "#,##0.0###;-#,##0.0###;0";
constexpr const char* kDerivedFormat = "#,##0.0#;-#,##0.0#;0";
constexpr const char* kMomentFormat = "0.########;-0.########,0";
constexpr const char* kShareFormat = "#,##0.0# %;-#,##0.0# %;0 %";
constexpr std::array<const char*, kGameClassCount> kClassWords = {"won", "even", "lost"};
constexpr std::array<const char*, kGameClassCount> kClassCaptions = {"Won", "Broke-even", "Lost"};

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

std::string Percentage(int count, int total) {
  return FormatNumber(total == 0 ? 0.0 : 100.0 * count / total, "0.0#;-0.0#;0");
}

std::string PlainNumber(double value) {
  std::array<char, 400> digits;
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed).ptr;
  return {digits.data(), end};
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
  json["mean"] = PlainNumber(figures.mean);
  json["median"] = PlainText(figures.median);
  json["median_is_between"] = figures.isMedianBetween;
  json["mode"] = PlainText(figures.mode);
  json["high"] = PlainText(figures.high);
  json["mid"] = PlainText(figures.mid);
  json["low"] = PlainText(figures.low);
  json["range"] = PlainText(figures.range);
  json["variance"] = PlainNumber(figures.variance);
  json["standard_deviation"] = PlainNumber(figures.deviation);
  json["skew"] = PlainNumber(figures.skew);
  json["kurtosis"] = PlainNumber(figures.kurtosis);
  json["histogram"] = Json::array();
  for (const GamesBand& band : GamesHistogram(figures, question.field, BarWidth::Fine)) {
    json["histogram"].push_back(
        {{"low", PlainText(band.low)}, {"high", PlainText(band.high)}, {"games", band.games}});
  }
  return json;
}

std::string Left(std::string text, std::size_t width) {
  if (text.size() < width) text.append(width - text.size(), ' ');
  return text;
}
std::string Right(const std::string& text, std::size_t width) {
  return std::string(text.size() < width ? width - text.size() : 1, ' ') + text;
}
std::string Line(const std::string& caption, const std::string& value) {
  return Left(caption, 20) + Right(value, 18);
}

std::string ClassesForPeople(const GamesFigures& figures) {
  const int total = figures.Total();
  std::string text;
  for (std::size_t i = 0; i < kClassCaptions.size(); ++i) {
    text += Line(kClassCaptions[i], FormatMoney(Dollars(figures.count[i]))) +
            Right(Percentage(figures.count[i], total) + "%", 10) + "\n";
  }
  return text + Line("Total", FormatMoney(Dollars(total))) + Right(total == 0 ? "0%" : "100%", 10) + "\n";
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
    text += Right(FormatNumber(band.low, kMoneyFormat), 14) + " to " +
            Left(FormatNumber(band.high, kMoneyFormat), 14) + Right(FormatMoney(Dollars(band.games)), 10) +
            (band.games == 1 ? " game " : " games") +
            Right(FormatNumber(static_cast<double>(band.games) / figures.Total(), kShareFormat), 9) +
            (bar > 0 ? "  " : "") + std::string(static_cast<std::size_t>(bar), '#') + "\n";
  }
  return text.empty() ? text : "\n" + text;
}

std::string FiguresForPeople(const Question& question, const GamesFigures& figures, std::size_t games) {
  std::string text = GameFieldCaption(question.field) + ", " +
                     FormatMoney(Dollars(static_cast<std::int64_t>(games))) +
                     (games == 1 ? " game" : " games") + "\n\n" + ClassesForPeople(figures) + "\n";
  const auto add = [&](const char* caption, auto value, const char* format) {
    text += Line(caption, FormatNumber(value, format)) + "\n";
  };
  add("Sum", figures.sum, kMoneyFormat);
  add("Mean", figures.mean, kDerivedFormat);
  add(figures.isMedianBetween ? "Median *" : "Median", figures.median, kMoneyFormat);
  add("Mode", figures.mode, kMoneyFormat);
  add("High", figures.high, kMoneyFormat);
  add("Mid", figures.mid, kMoneyFormat);
  add("Low", figures.low, kMoneyFormat);
  add("Range", figures.range, kMoneyFormat);
  add("Variance", figures.variance, kDerivedFormat);
  add("Standard deviation", figures.deviation, kDerivedFormat);
  add("Skew", figures.skew, kMomentFormat);
  add("Kurtosis", figures.kurtosis, kMomentFormat);
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
