#include "autobet/model/Catalogue.h"

#include <algorithm>
#include <string>

#include "autobet/model/Codes.h"

namespace rollwick {

namespace {

using List = OperatorList;

constexpr CatalogueEntry kStartLines[] = {
    {KindWhen, "When . . ."},          {KindWhile, "While . . ."},        {KindAndWhen, "and when . . ."},
    {KindAndWhile, "and while . . ."}, {KindOrWhen, "or when . . ."},     {KindOrWhile, "or while . . ."},
    {KindXorWhen, "xor when . . ."},   {KindXorWhile, "xor while . . ."}, {KindThen, "then . . ."},
    {KindElse, "else . . ."},          {KindDoThis, "Do this . . ."},
};

// 2034 has its double bracket in every list of the language. Meant: the text is stored and compared.
constexpr LeftItem kLeftItems[] = {
    {9999, "Initializing Auto-Bet", List::Alone},
    {1300, "On each roll", List::Alone},
    {1311, "The # of rolls in the game", List::Are},
    {1312, "The # of rolls for this shooter", List::Are},
    {1323, "The # of rolls for the last shooter", List::Are},
    {1301, "Next roll is a come-out roll", List::Alone},
    {1309, "Next roll is NOT a come-out roll", List::Alone},
    {1302, "Last roll was a come-out roll", List::Alone},
    {1310, "Last roll was NOT a come-out roll", List::Alone},
    {1303, "A point is established on", List::Numbers},
    {1306, "A point is NOT established on", List::Numbers},
    {1322, "A point is decided \"for\" or \"against\"", List::Numbers},
    {1304, "A point is decided \"for\"", List::Numbers},
    {1305, "A point is decided \"against\"", List::Numbers},
    {1313, "On each pass", List::Alone},
    {1314, "The # of passes in the game", List::Are},
    {1315, "The # of passes for this shooter", List::Are},
    {1324, "The # of passes for the last shooter", List::Are},
    {1316, "On each miss", List::Alone},
    {1317, "The # of misses in the game", List::Are},
    {1318, "The # of misses for this shooter", List::Are},
    {1325, "The # of misses for the last shooter", List::Are},
    {1400, "Bankroll", List::Is},
    {1401, "Average bankroll", List::Is},
    {1410, "Available bankroll", List::Is},
    {1405, "Simulated hours", List::Are},
    {1307, "Last answer was \"Yes\"", List::Alone},
    {1308, "Last answer was \"No\"", List::Alone},
    {1500, "Flag", List::FlagTruth},
    {1501, "Any flag", List::IsTruth},
    {1502, "All flags", List::AreTruth},
    {1503, "Total # of true flags", List::Count},
    {1504, "Total # of false flags", List::Count},
    {1600, "Chip-Stack #", List::Is},
    {1601, "Chip-Stack ref #", List::Is},
    {1020, "Any Chip-Stack", List::Is},
    {1120, "All Chip-Stacks", List::Are},
    {1220, "Total Chip-Stacks", List::Are},
    {1001, "Any bet", List::HasIs},
    {1101, "All bets", List::HaveAre},
    {1201, "Total bets", List::HaveAreCount},
    {1002, "Any Lay bet", List::HasIs},
    {1102, "All Lay bets", List::HaveAre},
    {1202, "Total Lay bets", List::HaveAreCount},
    {1003, "Any Don't Come bet", List::HasIs},
    {1103, "All Don't Come bets", List::HaveAre},
    {1203, "Total Don't Come bets", List::HaveAreCount},
    {1004, "Any Don't Come Odds bet", List::HasIs},
    {1104, "All Don't Come Odds bets", List::HaveAre},
    {1204, "Total Don't Come Odds bets", List::HaveAreCount},
    {1005, "Any Come bet", List::HasIs},
    {1105, "All Come bets", List::HaveAre},
    {1205, "Total Come bets", List::HaveAreCount},
    {1006, "Any Come Odds bet", List::HasIs},
    {1106, "All Come Odds bets", List::HaveAre},
    {1206, "Total Come Odds bets", List::HaveAreCount},
    {1007, "Any Place bet", List::HasIs},
    {1107, "All Place bets", List::HaveAre},
    {1207, "Total Place bets", List::HaveAreCount},
    {1008, "Any Buy bet", List::HasIs},
    {1108, "All Buy bets", List::HaveAre},
    {1208, "Total Buy bets", List::HaveAreCount},
    {1800, "Lay (shooter's point)", List::HasIs},
    {1803, "Come (shooter's point)", List::HasIs},
    {1804, "Come Odds (shooter's point)", List::HasIs},
    {1805, "Place (shooter's point)", List::HasIs},
    {1806, "Buy (shooter's point)", List::HasIs},
    {2002, "Number 2 (1-1)", List::Rolled},
    {2022, "Number 3 (1-2)", List::Rolled},
    {2023, "Number 3 (2-1)", List::Rolled},
    {2003, "Number 3 (1-2) or (2-1)", List::Rolled},
    {2024, "Number 4 (1-3)", List::Rolled},
    {2025, "Number 4 (3-1)", List::Rolled},
    {2013, "Hard 4 (2-2)", List::Rolled},
    {2026, "Number 4 (1-3) or (3-1)", List::Rolled},
    {2004, "Any 4", List::Rolled},
    {2027, "Number 5 (1-4)", List::Rolled},
    {2028, "Number 5 (4-1)", List::Rolled},
    {2029, "Number 5 (2-3)", List::Rolled},
    {2030, "Number 5 (3-2)", List::Rolled},
    {2031, "Number 5 (1-4) or (4-1)", List::Rolled},
    {2032, "Number 5 (2-3) or (3-2)", List::Rolled},
    {2005, "Any 5", List::Rolled},
    {2033, "Number 6 (1-5)", List::Rolled},
    {2034, "Number 6 ((5-1)", List::Rolled},
    {2035, "Number 6 (2-4)", List::Rolled},
    {2036, "Number 6 (4-2)", List::Rolled},
    {2014, "Hard 6 (3-3)", List::Rolled},
    {2037, "Number 6 (1-5) or (5-1)", List::Rolled},
    {2038, "Number 6 (2-4) or (4-2)", List::Rolled},
    {2006, "Any 6", List::Rolled},
    {2039, "Number 7 (1-6)", List::Rolled},
    {2040, "Number 7 (6-1)", List::Rolled},
    {2041, "Number 7 (2-5)", List::Rolled},
    {2042, "Number 7 (5-2)", List::Rolled},
    {2043, "Number 7 (3-4)", List::Rolled},
    {2044, "Number 7 (4-3)", List::Rolled},
    {2045, "Number 7 (1-6) or (6-1)", List::Rolled},
    {2046, "Number 7 (2-5) or (5-2)", List::Rolled},
    {2047, "Number 7 (3-4) or (4-3)", List::Rolled},
    {2007, "Any 7", List::Rolled},
    {2048, "Number 8 (2-6)", List::Rolled},
    {2049, "Number 8 (6-2)", List::Rolled},
    {2050, "Number 8 (3-5)", List::Rolled},
    {2051, "Number 8 (5-3)", List::Rolled},
    {2015, "Hard 8 (4-4)", List::Rolled},
    {2052, "Number 8 (2-6) or (6-2)", List::Rolled},
    {2053, "Number 8 (3-5) or (5-3)", List::Rolled},
    {2008, "Any 8", List::Rolled},
    {2054, "Number 9 (3-6)", List::Rolled},
    {2055, "Number 9 (6-3)", List::Rolled},
    {2056, "Number 9 (4-5)", List::Rolled},
    {2057, "Number 9 (5-4)", List::Rolled},
    {2058, "Number 9 (3-6) or (6-3)", List::Rolled},
    {2059, "Number 9 (4-5) or (5-4)", List::Rolled},
    {2009, "Any 9", List::Rolled},
    {2060, "Number 10 (4-6)", List::Rolled},
    {2061, "Number 10 (6-4)", List::Rolled},
    {2016, "Hard 10 (5-5)", List::Rolled},
    {2062, "Number 10 (4-6) or (6-4)", List::Rolled},
    {2010, "Any 10", List::Rolled},
    {2063, "Number 11 (5-6)", List::Rolled},
    {2064, "Number 11 (6-5)", List::Rolled},
    {2011, "Number 11 (5-6) or (6-5)", List::Rolled},
    {2012, "Number 12 (6-6)", List::Rolled},
    {2021, "Number 2,3,4,9,10,11,or 12", List::Rolled},
    {2017, "Number 4,5,6,8,9,or 10", List::Rolled},
    {2065, "Number 2,3,7,11,or 12", List::Rolled},
    {2066, "Number 2,3,11,or 12", List::Rolled},
    {2018, "Number 5,6,8,or 9", List::Rolled},
    {2019, "Number 4,5,9,or 10", List::Rolled},
    {2020, "Number 2,3,or 12", List::Rolled},
    {2067, "Number 4,5,or 6", List::Rolled},
    {2068, "Number 8,9,or 10", List::Rolled},
    {2069, "Number 2 or 12", List::Rolled},
    {2070, "Number 3 or 11", List::Rolled},
    {2071, "Number 4 or 10", List::Rolled},
    {2072, "Number 5 or 9", List::Rolled},
    {2073, "Number 6 or 8", List::Rolled},
    {2074, "Number 2 or 3", List::Rolled},
    {2075, "Number 3 or 12", List::Rolled},
    {2076, "Number 7 or 11", List::Rolled},
    {2077, "Number 11 or 12", List::Rolled},
    {2078, "Die 1, face 1", List::Rolled},
    {2079, "Die 1, face 2", List::Rolled},
    {2080, "Die 1, face 3", List::Rolled},
    {2081, "Die 1, face 4", List::Rolled},
    {2082, "Die 1, face 5", List::Rolled},
    {2083, "Die 1, face 6", List::Rolled},
    {2084, "Die 2, face 1", List::Rolled},
    {2085, "Die 2, face 2", List::Rolled},
    {2086, "Die 2, face 3", List::Rolled},
    {2087, "Die 2, face 4", List::Rolled},
    {2088, "Die 2, face 5", List::Rolled},
    {2089, "Die 2, face 6", List::Rolled},
};

constexpr CatalogueEntry kRightItems[] = {
    {1400, "bankroll"},
    {1401, "bankroll average"},
    {1410, "bankroll available"},
    {1600, "Chip-Stack #"},
    {1601, "Chip-Stack ref #"},
    {1020, "any Chip-Stack"},
    {1120, "all Chip-Stacks"},
    {1220, "total Chip-Stacks"},
    {1001, "any bet"},
    {1101, "all bets"},
    {1201, "total bets"},
    {1002, "any Lay bet"},
    {1102, "all Lay bets"},
    {1202, "total Lay bets"},
    {1003, "any Don't Come bet"},
    {1103, "all Don't Come bets"},
    {1203, "total Don't Come bets"},
    {1004, "any Don't Come Odds bet"},
    {1104, "all Don't Come Odds bets"},
    {1204, "total Don't Come Odds bets"},
    {1005, "any Come bet"},
    {1105, "all Come bets"},
    {1205, "total Come bets"},
    {1006, "any Come Odds bet"},
    {1106, "all Come Odds bets"},
    {1206, "total Come Odds bets"},
    {1007, "any Place bet"},
    {1107, "all Place bets"},
    {1207, "total Place bets"},
    {1008, "any Buy bet"},
    {1108, "all Buy bets"},
    {1208, "total Buy bets"},
    {1800, "Lay (shooter's point)"},
    {1803, "Come (shooter's point)"},
    {1804, "Come Odds (shooter's point)"},
    {1805, "Place (shooter's point)"},
    {1806, "Buy (shooter's point)"},
};

constexpr Operator kOperators[] = {
    {1, "has won", "have won", Operand::Times},
    {2, "has won more than", "have won more than", Operand::Times},
    {61, "has won less than", "have won less than", Operand::Times},
    {60, "has not won", "have not won", Operand::Times},
    {3, "has lost", "have lost", Operand::Times},
    {4, "has lost more than", "have lost more than", Operand::Times},
    {63, "has lost less than", "have lost less than", Operand::Times},
    {62, "has not lost", "have not lost", Operand::Times},
    {11, "is equal to $", "are equal to $", Operand::Amount},
    {12, "is not equal to $", "are not equal to $", Operand::Amount},
    {13, "is greater than $", "are greater than $", Operand::Amount},
    {14, "is not greater than $", "are not greater than $", Operand::Amount},
    {15, "is less than $", "are less than $", Operand::Amount},
    {16, "is not less than $", "are not less than $", Operand::Amount},
    {17, "is equal to", "are equal to", Operand::Item},
    {18, "is not equal to", "are not equal to", Operand::Item},
    {19, "is greater than", "are greater than", Operand::Item},
    {20, "is not greater than", "are not greater than", Operand::Item},
    {21, "is less than", "are less than", Operand::Item},
    {22, "is not less than", "are not less than", Operand::Item},
    {26, "is named", "are named", Operand::Name},
    {27, "is not named", "are not named", Operand::Name},
    {23, "number", "number", Operand::Amount},
    {24, "number more than", "number more than", Operand::Amount},
    {25, "number less than", "number less than", Operand::Amount},
    {5, "has rolled", "has rolled", Operand::Times},
    {6, "has rolled more than", "has rolled more than", Operand::Times},
    {7, "has not rolled", "has not rolled", Operand::Times},
    {8, "has rolled less than", "has rolled less than", Operand::Times},
    {9, "has rolled in the last", "has rolled in the last", Operand::Rolls},
    {10, "has not rolled in the last", "has not rolled in the last", Operand::Rolls},
};

constexpr CatalogueEntry kNumberList[] = {
    {31, "any number"},
    {34, "the number 4"},
    {35, "the number 5"},
    {36, "the number 6"},
    {38, "the number 8"},
    {39, "the number 9"},
    {40, "the number 10"},
    {41, "the number 5, 6, 8, or 9"},
    {42, "the number 4, 5, 9, or 10"},
    {43, "the number 4, 6, 8, or 10"},
    {44, "the number 4, 5, or 6"},
    {45, "the number 8, 9, or 10"},
    {46, "the number 4 or 10"},
    {47, "the number 5 or 9"},
    {48, "the number 6 or 8"},
};

using Form = std::array<Piece, 5>;
constexpr Form kAlone = {};
constexpr Form kNumber = {Piece::Amount};
constexpr Form kWords = {Piece::Words};
constexpr Form kValue = {Piece::Value};
constexpr Form kTarget = {Piece::Target};
constexpr Form kLabel = {Piece::Label};
constexpr Form kJointTarget = {Piece::Joint, Piece::Target};
constexpr Form kOutcome = {Piece::Joint, Piece::Outcome};
constexpr Form kWinning = {Piece::Joint, Piece::Winning};
constexpr Form kLosing = {Piece::Joint, Piece::Losing};
constexpr Form kTruth = {Piece::Joint, Piece::Truth};
constexpr Form kFlag = {Piece::Flag, Piece::Joint, Piece::Truth};
constexpr Form kAmountTo = {Piece::Amount, Piece::Joint, Piece::Target};
constexpr Form kPercentTo = {Piece::Amount, Piece::Percent, Piece::Value, Piece::Joint, Piece::Target};
constexpr Form kValueTo = {Piece::Value, Piece::Joint, Piece::Target};
constexpr Form kRound = {Piece::Mode, Piece::Amount, Piece::Joint, Piece::Target};
constexpr Form kNameStack = {Piece::StackNumber, Piece::Joint, Piece::StackName};
constexpr Form kAtm = {Piece::Amount, Piece::Joint};
constexpr Form kAtmPercent = {Piece::Amount, Piece::Percent, Piece::Value, Piece::Joint};

constexpr VerbItem kVerbs[] = {
    {10, "Bet $", kAmountTo, "on"},
    {11, "Bet % of", kPercentTo, "on"},
    {12, "Bet % of the last", kPercentTo, "on"},
    {13, "Bet the highest of:", kValueTo, "on"},
    {14, "Bet the highest of the last:", kValueTo, "on"},
    {15, "Bet the lowest of:", kValueTo, "on"},
    {16, "Bet the lowest of the last:", kValueTo, "on"},
    {17, "Bet the average of:", kValueTo, "on"},
    {18, "Bet the average of the last:", kValueTo, "on"},
    {20, "Add $", kAmountTo, "to"},
    {21, "Add % of", kPercentTo, "to"},
    {22, "Add % of the last", kPercentTo, "to"},
    {23, "Add the highest of:", kValueTo, "to"},
    {24, "Add the highest of the last:", kValueTo, "to"},
    {25, "Add the lowest of:", kValueTo, "to"},
    {26, "Add the lowest of the last:", kValueTo, "to"},
    {27, "Add the average of:", kValueTo, "to"},
    {28, "Add the average of the last:", kValueTo, "to"},
    {30, "Subtract $", kAmountTo, "from"},
    {31, "Subtract % of", kPercentTo, "from"},
    {32, "Subtract % of the last", kPercentTo, "from"},
    {33, "Subtract the highest of:", kValueTo, "from"},
    {34, "Subtract the highest of the last:", kValueTo, "from"},
    {35, "Subtract the lowest of:", kValueTo, "from"},
    {36, "Subtract the lowest of the last:", kValueTo, "from"},
    {37, "Subtract the average of:", kValueTo, "from"},
    {38, "Subtract the average of the last:", kValueTo, "from"},
    {40, "Multiply by", kAmountTo, "on"},
    {41, "Multiply by % of", kPercentTo, "on"},
    {42, "Multiply by % of the last", kPercentTo, "on"},
    {43, "Multiply by the highest of:", kValueTo, "on"},
    {44, "Multiply by the highest of the last:", kValueTo, "on"},
    {45, "Multiply by the lowest of:", kValueTo, "on"},
    {46, "Multiply by the lowest of the last:", kValueTo, "on"},
    {47, "Multiply by the average of:", kValueTo, "on"},
    {48, "Multiply by the average of the last:", kValueTo, "on"},
    {50, "Divide by", kAmountTo, "on"},
    {51, "Divide by % of", kPercentTo, "on"},
    {52, "Divide by % of the last", kPercentTo, "on"},
    {53, "Divide by the highest of:", kValueTo, "on"},
    {54, "Divide by the highest of the last:", kValueTo, "on"},
    {55, "Divide by the lowest of:", kValueTo, "on"},
    {56, "Divide by the lowest of the last:", kValueTo, "on"},
    {57, "Divide by the average of:", kValueTo, "on"},
    {58, "Divide by the average of the last:", kValueTo, "on"},
    {82, "Yes/No question:", kWords, ""},
    {85, "Yes/No question: Value of", kValue, ""},
    {79, "Show message:", kWords, ""},
    {84, "Show message: Value of", kValue, ""},
    {83, "Get input and bet it on", kTarget, ""},
    {70, "Buy the Place Bet", kJointTarget, "on"},
    {71, "Call OFF", kTarget, ""},
    {72, "Call ON", kTarget, ""},
    {73, "Reset wins / losses", kJointTarget, "on"},
    {74, "Reset rolls", kOutcome, "on"},
    {75, "Stop Auto-Rolling / Hyper-Drive", kAlone, ""},
    {117, "Go to", kLabel, ""},
    {76, "Gosub", kLabel, ""},
    {86, "Return", kAlone, ""},
    {77, "Set flag", kFlag, "to"},
    {78, "Set all flags", kTruth, "to"},
    {109, "Round", kRound, "on"},
    {87, "Name Chip-Stack #", kNameStack, "as"},
    {89, "Name Chip-Stack ref #", kNameStack, "as"},
    {88, "Clear all Chip-Stack names", kAlone, ""},
    {80, "Play sound:", kWords, ""},
    {97, "Activate Probability File:", kWords, ""},
    {98, "Deactivate Probability File", kAlone, ""},
    {81, "Invoke \"Show Steps\"", kAlone, ""},
    {90, "Set Auto-Handle Winning Bets", kWinning, "to"},
    {110, "Set Auto-Handle Losing Bets", kLosing, "to"},
    {91, "Set Auto-Take Full Odds", kTruth, "to"},
    {92, "Set Auto-Lay Full Odds", kTruth, "to"},
    {93, "ATM - withdraw $", kAtm, "from the ATM"},
    {94, "ATM - withdraw % of", kAtmPercent, "from the ATM"},
    {95, "ATM - deposit $", kAtm, "in the ATM"},
    {96, "ATM - deposit % of", kAtmPercent, "in the ATM"},
    {103, "Select RNG #", kNumber, ""},
    {104, "Select RNG # as value of", kValue, ""},
    {111, "Select RNG # as value of the last", kValue, ""},
    {105, "Seed RNG with date/time", kAlone, ""},
    {106, "Seed RNG with #", kNumber, ""},
    {107, "Seed RNG with value of", kValue, ""},
    {112, "Seed RNG with value of the last", kValue, ""},
    {113, "Open/clear file for output:", kWords, ""},
    {99, "Open/append file for output:", kWords, ""},
    {100, "Output to file. Message:", kWords, ""},
    {101, "Output to file. Value of", kValue, ""},
    {108, "Output to file. Value of the last", kValue, ""},
    {102, "Output to file. New line.", kAlone, ""},
    {114, "Close file", kAlone, ""},
    {999, "Reset table", kAlone, ""},
    {998, "Reset table (preserve Chip-Stacks)", kAlone, ""},
};

constexpr CatalogueEntry kValues[] = {
    {1311, "game rolls"},
    {1312, "shooter rolls"},
    {1314, "game passes"},
    {1315, "shooter passes"},
    {1317, "game misses"},
    {1318, "shooter misses"},
    {1402, "highest bankroll"},
    {1400, "bankroll"},
    {1403, "lowest bankroll"},
    {1401, "average bankroll"},
    {1410, "available bankroll"},
    {1702, "total # of current wagers"},
    {1703, "total $ of current wagers"},
    {1700, "total # of decided wagers"},
    {1701, "total $ of decided wagers"},
    {1000, "total bets"},
    {1001, "total Lay bets"},
    {1002, "total Don't Come bets"},
    {1003, "total Don't Come Odds bets"},
    {1004, "total Come bets"},
    {1005, "total Come Odds bets"},
    {1006, "total Place bets"},
    {1007, "total inside Place bets"},
    {1008, "total outside Place bets"},
    {1009, "total Buy bets"},
    {1602, "total Chip-Stacks"},
    {1600, "Chip-Stack #"},
    {1601, "Chip-Stack ref #"},
    {1800, "Lay (shooter's point)"},
    {1803, "Come (shooter's point)"},
    {1804, "Come Odds (shooter's point)"},
    {1805, "Place (shooter's point)"},
    {1806, "Buy (shooter's point)"},
};

constexpr CatalogueEntry kTargets[] = {
    {1000, "all bets"},
    {1001, "all Lay bets"},
    {1002, "all Don't Come bets"},
    {1003, "all Don't Come Odds bets"},
    {1004, "all Come bets"},
    {1005, "all Come Odds bets"},
    {1006, "all Place bets"},
    {1007, "all inside Place bets"},
    {1008, "all outside Place bets"},
    {1009, "all Buy bets"},
    {1602, "all Chip-Stacks"},
    {1600, "Chip-Stack #"},
    {1601, "Chip-Stack ref #"},
    {1800, "Lay (shooter's point)"},
    {1803, "Come (shooter's point)"},
    {1804, "Come Odds (shooter's point)"},
    {1805, "Place (shooter's point)"},
    {1806, "Buy (shooter's point)"},
};

constexpr CatalogueEntry kRoundModes[] = {
    {Value::RoundUp, "up to the nearest $"},
    {Value::RoundNearest, "to the nearest $"},
    {Value::RoundDown, "down to the nearest $"},
};

constexpr CatalogueEntry kWinningSettings[] = {
    {0, "Manual"},       {1, "Take Bet and Winnings"}, {2, "Same Bet - Take Winnings"},
    {3, "Press 1 Unit"}, {4, "Press Double"},          {5, "Parlay"},
};

constexpr CatalogueEntry kLosingSettings[] = {
    {0, "Manual"},   {1, "No Bet/Take Remainder (if any)"}, {2, "Bet Remainder (if any)"},
    {3, "Same Bet"}, {4, "Same Bet plus 1 Unit"},           {5, "Double Bet"},
};

constexpr bool IsPlural(List list) {
  return list == List::Are || list == List::HaveAre || list == List::HaveAreCount;
}
constexpr bool IsOfWins(std::int32_t op) {
  return (op >= Compare::HasWon && op <= Compare::HasLostMore) ||
         (op >= Compare::HasNotWon && op <= Compare::HasLostLess);
}
constexpr bool IsOfRolls(std::int32_t op) {
  return op >= Compare::HasRolled && op <= Compare::NotRolledInLast;
}
constexpr bool IsOfCount(std::int32_t op) {
  return op >= Compare::CountIs && op <= Compare::CountLess;
}

bool Offers(List list, std::int32_t op) {
  if (IsOfRolls(op)) return list == List::Rolled;
  if (IsOfCount(op)) return list == List::Count || list == List::HaveAreCount;
  if (!IsOfWins(op)) return list == List::Is || list == List::HasIs || IsPlural(list);
  if (list == List::HasIs) return true;
  return (list == List::HaveAre || list == List::HaveAreCount) && op <= Compare::HasLostMore;
}

template <typename Row>
const Row* Find(std::span<const Row> rows, std::int32_t code) {
  const auto found = std::ranges::find(rows, code, &Row::code);
  return found == rows.end() ? nullptr : &*found;
}

std::string CaptionOrBet(std::span<const CatalogueEntry> list, std::int32_t code) {
  return IsBet(code) ? BetName(code) : std::string(FindCaption(list, code));
}

// "number 2,3,or 12" as "number group 2,3,12", " or " as " and ".
std::string AsTarget(std::string_view caption) {
  std::string text(caption);
  text[0] = static_cast<char>(text[0] - 'A' + 'a');
  if (const auto lastOfGroup = text.find(",or "); lastOfGroup != text.npos) {
    text.replace(lastOfGroup, 4, ",");
    text.insert(text.find(' '), " group");
  }
  if (const auto both = text.find(" or "); both != text.npos) text.replace(both, 4, " and ");
  return text;
}

}  // namespace

IndexForm IndexFormOf(std::int32_t code) {
  if (code == Item::Stack || code == Item::StackRef) return IndexForm::Stack;
  return code == Item::AverageBankroll ? IndexForm::Average : IndexForm::None;
}

std::span<const CatalogueEntry> StartLines() {
  return kStartLines;
}
std::span<const LeftItem> LeftItems() {
  return kLeftItems;
}
std::span<const CatalogueEntry> RightItems() {
  return kRightItems;
}
std::span<const Operator> Operators() {
  return kOperators;
}
std::span<const CatalogueEntry> NumberList() {
  return kNumberList;
}
std::span<const VerbItem> VerbItems() {
  return kVerbs;
}
std::span<const CatalogueEntry> ValueItems() {
  return kValues;
}
std::span<const CatalogueEntry> TargetItems() {
  return kTargets;
}
std::span<const CatalogueEntry> RoundModes() {
  return kRoundModes;
}
std::span<const CatalogueEntry> WinningSettings() {
  return kWinningSettings;
}
std::span<const CatalogueEntry> LosingSettings() {
  return kLosingSettings;
}

std::vector<Operator> OperatorsOf(OperatorList list) {
  std::vector<Operator> offered;
  for (const Operator& op : kOperators) {
    if (Offers(list, op.code)) offered.push_back(op);
  }
  return offered;
}

std::string_view OperatorCaption(const Operator& op, OperatorList list) {
  const bool plural = IsPlural(list) && !(IsOfWins(op.code) && list == List::Are);
  return plural ? op.plural : op.singular;
}

std::string_view VerbHead(const VerbItem& verb) {
  const auto percent = verb.caption.find(" %");
  return verb.caption.substr(0, percent);
}

std::string_view VerbTail(const VerbItem& verb) {
  const auto percent = verb.caption.find('%');
  return percent == verb.caption.npos ? std::string_view() : verb.caption.substr(percent);
}

std::vector<std::int32_t> ResetRollTargets() {
  std::vector<std::int32_t> codes = {Item::AllNumbers};
  for (const LeftItem& item : kLeftItems) {
    if (item.operators == List::Rolled) codes.push_back(item.code);
  }
  return codes;
}

std::string ResetRollCaption(std::int32_t code) {
  if (code == Item::AllNumbers) return "all the numbers";
  const LeftItem* const item = FindLeftItem(code);
  return item && item->operators == List::Rolled ? AsTarget(item->caption) : std::string();
}

const LeftItem* FindLeftItem(std::int32_t code) {
  return Find<LeftItem>(kLeftItems, code);
}
const Operator* FindOperator(std::int32_t code) {
  return Find<Operator>(kOperators, code);
}
const VerbItem* FindVerb(std::int32_t code) {
  return Find<VerbItem>(kVerbs, code);
}

std::string_view FindCaption(std::span<const CatalogueEntry> list, std::int32_t code) {
  const CatalogueEntry* const entry = Find(list, code);
  return entry ? entry->caption : std::string_view();
}
std::string ValueCaption(std::int32_t code) {
  return CaptionOrBet(kValues, code);
}
std::string TargetCaption(std::int32_t code) {
  return CaptionOrBet(kTargets, code);
}

}  // namespace rollwick
