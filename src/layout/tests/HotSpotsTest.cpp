// Every pixel of the picture against the golden geometry in tests/data/layout.txt, and every spot's points.
#include "layout/HotSpots.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <sstream>

namespace rollwick {
namespace {

// Pixels, and sums over them of x, of y and of x * y: no shape of the same size but at another place has all.
using Area = std::array<std::int64_t, 4>;

void AddPixel(Area& area, int x, int y) {
  area = {area[0] + 1, area[1] + x, area[2] + y, area[3] + x * y};
}

// The lines of the golden file that begin with `kind`, without it.
std::vector<std::istringstream> GoldenLines(const std::string& kind) {
  std::ifstream file(std::string(ROLLWICK_TEST_DATA) + "/layout.txt");
  std::vector<std::istringstream> lines;
  for (std::string text; std::getline(file, text);)
    if (text.starts_with(kind + " ")) lines.emplace_back(text.substr(kind.size() + 1));
  return lines;
}

Key KeyOf(char letter) {
  if (letter == '.') return Key::Neutral;
  if (letter == 'R') return Key::Rail;
  return letter == 'T' ? Key::Tools : static_cast<Key>(letter - 'A' + 1);
}

std::map<int, Area> GoldenAreas(const std::string& kind, std::map<int, Key>* keys = nullptr) {
  std::map<int, Area> areas;
  for (auto& line : GoldenLines(kind)) {
    int spot = 0;
    char key = 0;
    Area area{};
    line >> spot >> key >> area[0] >> area[1] >> area[2] >> area[3];
    areas[spot] = area;
    if (keys) (*keys)[spot] = KeyOf(key);
  }
  return areas;
}

struct Table {
  GameTables g{};
  KeyPicture keys = DrawKeyPicture();

  int At(PicturePoint point) const { return LocateHotSpot(g, keys, point.x, point.y); }
  std::map<int, Area> AllPixels() const {
    std::map<int, Area> areas;
    for (int y = 0; y < kPictureHeight; ++y)
      for (int x = 0; x < kPictureWidth; ++x) AddPixel(areas[At({x, y})], x, y);
    areas.erase(SpotNone);
    return areas;
  }
  // "-", or letters of what is up: a, f, d, and b with a Buy bet.
  void SetUp(const std::string& state) {
    g.DisplayHopBets = state.find('a') != std::string::npos;
    g.DiceFileMode = state.find('f') != std::string::npos ? DiceFilePlayback : DiceFileOff;
    if (state.find('d') != std::string::npos) PutDontPassWithPoint();
    const auto buy = state.find('b');
    if (buy != std::string::npos) g.BetAmount[std::stoi(state.substr(buy + 1))] = Dollars(5);
  }
  void PutDontPassWithPoint() {
    g.BetAmount[Bet::DontPass] = Dollars(10);
    g.Point = 6;
  }
};

TEST(LocateHotSpot, GoldenPoints) {
  auto lines = GoldenLines("point");
  EXPECT_EQ(lines.size(), 70u);
  for (auto& line : lines) {
    SCOPED_TRACE(line.str());
    Table table;
    PicturePoint at;
    std::string state;
    int spot = 0;
    line >> at.x >> at.y >> state >> spot;
    table.SetUp(state);
    EXPECT_EQ(table.At(at), spot);
  }
}

// What stands where in each state follows from the areas: a box answers as another bet, a panel is exchanged.
TEST(LocateHotSpot, EveryPixelInEveryState) {
  std::map<int, Key> keys;
  const auto golden = GoldenAreas("area", &keys);
  const auto alternate = GoldenAreas("alternate");
  ASSERT_EQ(golden.size(), 68u);
  ASSERT_EQ(alternate.size(), 20u);
  for (const char* state : {"-", "a", "f", "d", "b37", "afdb42"}) {
    SCOPED_TRACE(state);
    Table table;
    table.SetUp(state);
    auto expected = golden;
    if (table.g.DiceFileMode == DiceFileOff) expected.erase(SpotDiceFile);
    if (table.g.DisplayHopBets) {
      std::erase_if(expected, [](const auto& area) {
        return area.first >= Bet::Hard4 && area.first <= Bet::World && area.first != Bet::CAndE;
      });
      expected.insert(alternate.begin(), alternate.end());
    }
    const auto answers = [&](int spot, int instead) {
      expected[instead] = expected[spot];
      expected.erase(spot);
    };
    if (table.g.Point != 0) answers(Bet::DontPass, Bet::DontPassOdds);
    for (BetId buy = Bet::Buy4; buy <= Bet::Buy10; ++buy)
      if (table.g.BetAmount[buy] != Money()) answers(buy - 6, buy);

    const auto found = table.AllPixels();
    EXPECT_EQ(found.size(), expected.size());
    for (const auto& [spot, area] : expected)
      EXPECT_TRUE(found.contains(spot) && found.at(spot) == area) << "spot " << spot;
  }
}

TEST(LocateHotSpot, RulesThatThePointsHangOn) {
  Table table;
  table.g.BetAmount[Bet::DontPass] = Dollars(10);
  EXPECT_EQ(table.At({96, 53}), Bet::DontPass) << "no point, no odds";
  table.g.BetAmount[Bet::DontPass] = Money();
  table.g.Point = 6;
  EXPECT_EQ(table.At({96, 53}), Bet::DontPass) << "nothing up to lay odds on";
  table.g.DiceFileMode = DiceFileRecording;
  EXPECT_EQ(table.At({501, 390}), SpotDiceFile) << "before the panel area";

  table.g.VisibleChipStack = {99, 0, 7, 50};
  EXPECT_EQ(table.At({16, 217}), SlotLastChipStack);
  EXPECT_EQ(table.At({16, 166}), SlotChipStack);
  EXPECT_EQ(table.At({16, 115}), SlotChipStack + 7);
  EXPECT_EQ(table.At({16, 64}), SlotChipStack + 50);

  // In the panel area a colour never names a bet of the main table, whatever the panel.
  for (const bool alternate : {false, true}) {
    table.g.DisplayHopBets = alternate;
    KeyPicture full;
    for (int key = 1; key <= 12; ++key) {
      full.Paint({SpotNone, static_cast<Key>(key), {0, 0, kPictureWidth, kPictureHeight}});
      const int spot = LocateHotSpot(table.g, full, 638, 390);
      EXPECT_TRUE(alternate ? spot == SpotNone : spot >= Bet::Hard4 && spot <= Bet::World) << spot;
    }
  }
}

TEST(LocateHotSpot, EdgesOfThePanelArea) {
  GameTables g{};
  KeyPicture full;  // this colour is Seven in the panel, the Pass Line outside of it
  full.Paint({SpotNone, Key::A, {0, 0, kPictureWidth, kPictureHeight}});
  for (const PicturePoint in : {PicturePoint{501, 101}, {501, 403}, {767, 250}})
    EXPECT_EQ(LocateHotSpot(g, full, in.x, in.y), Bet::Seven) << in.x << ", " << in.y;
  for (const PicturePoint out : {PicturePoint{500, 250}, {501, 100}, {501, 404}})
    EXPECT_EQ(LocateHotSpot(g, full, out.x, out.y), Bet::PassLine) << out.x << ", " << out.y;
}

TEST(LocateHotSpot, AnyPointAnywhereIsASpotOnView) {
  Table table;
  std::mt19937 random(7);
  std::uniform_int_distribution<int> coordinate(-600, 1400);
  for (int n = 0; n < 100'000; ++n) {
    table.g.DisplayHopBets = n % 2 == 0;
    table.g.DiceFileMode = n % 3;
    const PicturePoint at = {coordinate(random), coordinate(random)};
    const int spot = table.At(at);
    const bool isOther = spot == SpotNone || (spot > SpotDiceFile && spot <= SpotPanelSwitch) ||
                         (spot == SpotDiceFile && table.g.DiceFileMode != DiceFileOff);
    ASSERT_TRUE(isOther || IsOnView(table.g, spot)) << at.x << ", " << at.y << ": " << spot;
    const bool isOutside = at.x < 0 || at.y < 0 || at.x >= kPictureWidth || at.y >= kPictureHeight;
    if (isOutside) {
      ASSERT_EQ(spot, SpotNone) << at.x << ", " << at.y;
    }
  }
  for (const int x : {std::numeric_limits<int>::min(), 300, std::numeric_limits<int>::max()})
    for (const int y : {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
      EXPECT_EQ(table.At({x, y}), SpotNone);
}

TEST(Anchors, AsTheGoldenOnes) {
  const Table table;
  auto lines = GoldenLines("anchor");
  EXPECT_EQ(lines.size(), 87u);
  for (auto& line : lines) {
    SCOPED_TRACE(line.str());
    int spot = 0;
    PicturePoint anchor, hot;
    line >> spot >> anchor.x >> anchor.y >> hot.x >> hot.y;
    EXPECT_EQ(AnchorOf(table.g, spot), anchor);
    EXPECT_EQ(HotPointOf(table.g, spot), hot);
  }
  for (auto& line : GoldenLines("puck")) {
    int point = 0;
    PicturePoint at;
    line >> point >> at.x >> at.y;
    EXPECT_EQ(PuckAnchor(point), at) << point;
  }
  EXPECT_EQ(AnchorOf(table.g, SlotRail), (PicturePoint{330, 422}));
  EXPECT_EQ(AnchorOf(table.g, SlotChipStack + 5), std::nullopt) << "a stack that is not on the table";
}

// In all states: panel, dice file, Don't Pass with a point, and each set of Buy bets.
TEST(Anchors, HotPointsAnswerToTheirOwnName) {
  Table table;
  for (int state = 0; state < 512; ++state) {
    SCOPED_TRACE(state);
    const bool isOddsUp = (state & 4) != 0;
    table.g.DisplayHopBets = (state & 1) != 0;
    table.g.DiceFileMode = (state & 2) != 0 ? DiceFileRecording : DiceFileOff;
    table.g.BetAmount[Bet::DontPass] = Dollars(isOddsUp ? 1 : 0);
    table.g.Point = isOddsUp ? 4 : 0;
    for (int box = 0; box < 6; ++box)
      table.g.BetAmount[Bet::Buy4 + box] = Dollars((state & (8 << box)) != 0 ? 5 : 0);
    for (const BetId spot : SpotsOnView(table.g)) {
      const bool isLine = spot == Bet::DontPass || spot == Bet::DontPassOdds;
      const BetId own = isLine ? Bet::DontPass + isOddsUp : BoxAnswer(table.g, spot);
      ASSERT_EQ(table.At(*HotPointOf(table.g, spot)), own) << BetName(spot);
      if (IsDontComeNumber(spot))
        ASSERT_EQ(table.At(*AnchorOf(table.g, spot)), spot + 6) << "chips on the edge";
      else
        ASSERT_EQ(AnchorOf(table.g, spot), HotPointOf(table.g, spot));
    }
  }
  table.g.DisplayHopBets = true;
  EXPECT_EQ(table.At(*AnchorOf(table.g, Bet::Horn)), Bet::World);
}

TEST(KeyPicture, ColoursStandAndNameTwoSpots) {
  const Table table;
  EXPECT_TRUE(ColourKeysStand(table.keys));
  std::set<Key> different;
  auto lines = GoldenLines("key");
  for (auto& line : lines) {
    SCOPED_TRACE(line.str());
    char letter = 0;
    PicturePoint at;
    int inPanel = 0, onTable = 0;
    line >> letter >> at.x >> at.y >> inPanel >> onTable;
    const Key key = KeyOf(letter);
    different.insert(key);
    EXPECT_EQ(table.keys.At(at.x, at.y), key);
    EXPECT_EQ(table.At(at), inPanel != 0 ? inPanel : onTable);
    KeyPicture wrong = table.keys;
    wrong.Paint({SpotNone, Key::Neutral, {at.x, at.y, 1, 1}});
    EXPECT_FALSE(ColourKeysStand(wrong)) << "a picture that lost a key";
    KeyPicture point;
    point.Paint({SpotNone, key, {460, 20, 1, 1}});
    EXPECT_EQ(LocateHotSpot(table.g, point, 460, 20), onTable);
  }
  EXPECT_EQ(different.size(), static_cast<std::size_t>(kKeyCount));

  // The areas of the colours, and neutral everywhere else.
  std::map<int, Key> keys;
  std::map<Key, Area> golden, found;
  for (const auto& [spot, area] : GoldenAreas("area", &keys))
    for (std::size_t i = 0; keys[spot] != Key::Neutral && i < area.size(); ++i)
      golden[keys[spot]][i] += area[i];
  for (int y = 0; y < kPictureHeight; ++y)
    for (int x = 0; x < kPictureWidth; ++x)
      if (table.keys.At(x, y) != Key::Neutral) AddPixel(found[table.keys.At(x, y)], x, y);
  EXPECT_EQ(found, golden);
}

TEST(ToolAt, RectanglesInsideTheStrip) {
  const Table table;
  auto lines = GoldenLines("tool");
  ASSERT_EQ(lines.size(), kTools.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    SCOPED_TRACE(lines[i].str());
    std::string name;
    PictureRect rect;
    lines[i] >> name >> rect.x >> rect.y >> rect.width >> rect.height;
    const PicturePoint last = {rect.x + rect.width - 1, rect.y + rect.height - 1};
    EXPECT_EQ(ToolAt(rect.x, rect.y), static_cast<Tool>(i + 1));
    EXPECT_EQ(ToolAt(last.x, last.y), static_cast<Tool>(i + 1));
    EXPECT_NE(ToolAt(rect.x - 1, rect.y), static_cast<Tool>(i + 1));
    EXPECT_NE(ToolAt(last.x, last.y + 1), static_cast<Tool>(i + 1));
    EXPECT_EQ(table.At({rect.x, rect.y}), SpotTools);
    EXPECT_EQ(table.At(last), SpotTools);
  }
}

TEST(MovePointer, TakesASpotWhenThereIsSomethingNew) {
  Table table;
  Pointer pointer;
  const auto moveTo = [&](int x, int y) { return MovePointer(table.g, table.keys, pointer, x, y); };
  EXPECT_TRUE(moveTo(354, 360));
  EXPECT_EQ(pointer.HotSpot, Bet::PassLine);
  EXPECT_FALSE(moveTo(355, 360)) << "the same spot with the same amount";
  table.g.BetAmount[Bet::PassLine] = Dollars(5);
  EXPECT_TRUE(moveTo(355, 360)) << "the amount changed";
  EXPECT_TRUE(moveTo(620, 400));
  EXPECT_TRUE(moveTo(621, 400)) << "the tool corner follows at once";
  EXPECT_TRUE(moveTo(700, 375)) << "from y 375 on";
  EXPECT_FALSE(moveTo(700, 374));
  table.g.HyperDriveActive = true;
  EXPECT_FALSE(moveTo(354, 360));
  EXPECT_EQ(pointer.HotSpot, SpotTools);
  EXPECT_EQ(BetUnder(SpotTools), SpotNone);
  EXPECT_EQ(BetUnder(SlotChipStack), SlotChipStack);
}

TEST(SpotToTakeDown, DontPassWhileItHasNoOdds) {
  Table table;
  EXPECT_EQ(SpotToTakeDown(table.g, Bet::DontPassOdds), Bet::DontPass);
  table.g.BetAmount[Bet::DontPassOdds] = Dollars(6);
  EXPECT_EQ(SpotToTakeDown(table.g, Bet::DontPassOdds), Bet::DontPassOdds);
  EXPECT_EQ(SpotToTakeDown(table.g, SlotRail), SpotNone);
}

TEST(PictureFrame, KeepsProportionsAndFindsEveryPixelAgain) {
  const struct Row {
    const char* name;
    double width, height, left, top, scale;
  } rows[] = {
      {"as drawn", 768, 440, 0, 0, 1},
      {"twice, wider than needed", 1600, 880, 32, 0, 2},
      {"one and a half, higher than needed", 1152, 800, 0, 70, 1.5},
      {"as large as it gets", 4000, 2000, 464, 120, 4},
      {"as small as it gets", 400, 300, -88, -15, 0.75},
      {"no widget yet", 0, 0, -288, -165, 0.75},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    const PictureFrame frame = FitPicture(row.width, row.height);
    EXPECT_EQ(frame.left, row.left);
    EXPECT_EQ(frame.top, row.top);
    EXPECT_EQ(frame.scale, row.scale);
    for (int n = 0; n < kPictureWidth; ++n) {
      const PicturePoint point = {n, n % kPictureHeight};
      const WidgetPoint at = ToWidget(frame, point);
      ASSERT_EQ(ToPicture(frame, at.x, at.y), point);
    }
    EXPECT_EQ(ToPicture(frame, row.left, row.top), (PicturePoint{0, 0}));
    EXPECT_EQ(ToPicture(frame, row.left - 0.25, row.top - 0.25), (PicturePoint{-1, -1}));
    EXPECT_EQ(ToPicture(frame, 1e300, 1e300), (PicturePoint{kPictureWidth, kPictureHeight}));
    EXPECT_EQ(ToPicture(frame, -1e300, -1e300), (PicturePoint{-1, -1}));
  }
}

}  // namespace
}  // namespace rollwick
