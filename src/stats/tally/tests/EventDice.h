// The dice of every roll event as the game names them, for tests that count again.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "engine/state/StatisticsTables.h"

namespace rollwick {

// The dice of every event: totals ("4") or one order of two dice ("1-3").
struct EventDice {
  RollEvent event;
  std::string_view dice;
};
inline constexpr EventDice kEvents[] = {
    {2, "1-1"},        {3, "3"},         {4, "4"},        {5, "5"},
    {6, "6"},          {7, "7"},         {8, "8"},        {9, "9"},
    {10, "10"},        {11, "11"},       {12, "6-6"},     {13, "2-2"},
    {14, "3-3"},       {15, "4-4"},      {16, "5-5"},     {17, "4 5 6 8 9 10"},
    {18, "5 6 8 9"},   {19, "4 5 9 10"}, {20, "2 3 12"},  {21, "2 3 4 9 10 11 12"},
    {22, "1-2"},       {23, "2-1"},      {24, "1-3"},     {25, "3-1"},
    {26, "1-3 3-1"},   {27, "1-4"},      {28, "4-1"},     {29, "2-3"},
    {30, "3-2"},       {31, "1-4 4-1"},  {32, "2-3 3-2"}, {33, "1-5"},
    {34, "5-1"},       {35, "2-4"},      {36, "4-2"},     {37, "1-5 5-1"},
    {38, "2-4 4-2"},   {39, "1-6"},      {40, "6-1"},     {41, "2-5"},
    {42, "5-2"},       {43, "3-4"},      {44, "4-3"},     {45, "1-6 6-1"},
    {46, "2-5 5-2"},   {47, "3-4 4-3"},  {48, "2-6"},     {49, "6-2"},
    {50, "3-5"},       {51, "5-3"},      {52, "2-6 6-2"}, {53, "3-5 5-3"},
    {54, "3-6"},       {55, "6-3"},      {56, "4-5"},     {57, "5-4"},
    {58, "3-6 6-3"},   {59, "4-5 5-4"},  {60, "4-6"},     {61, "6-4"},
    {62, "4-6 6-4"},   {63, "5-6"},      {64, "6-5"},     {65, "2 3 7 11 12"},
    {66, "2 3 11 12"}, {67, "4 5 6"},    {68, "8 9 10"},  {69, "2 12"},
    {70, "3 11"},      {71, "4 10"},     {72, "5 9"},     {73, "6 8"},
    {74, "2 3"},       {75, "3 12"},     {76, "7 11"},    {77, "11 12"},
    {78, "1-*"},       {79, "2-*"},      {80, "3-*"},     {81, "4-*"},
    {82, "5-*"},       {83, "6-*"},      {84, "*-1"},     {85, "*-2"},
    {86, "*-3"},       {87, "*-4"},      {88, "*-5"},     {89, "*-6"},
};

inline bool Happens(std::string_view dice, int die1, int die2) {
  while (!dice.empty()) {
    const std::string_view one = dice.substr(0, dice.find(' '));
    dice.remove_prefix(std::min(dice.size(), one.size() + 1));
    if (one.find('-') == one.npos) {
      if (one == std::to_string(die1 + die2)) return true;
    } else if ((one[0] == '*' || one[0] == '0' + die1) && (one[2] == '*' || one[2] == '0' + die2)) {
      return true;
    }
  }
  return false;
}

}  // namespace rollwick
