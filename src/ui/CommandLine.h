// The words behind `rollwick-table`.
#pragma once

#include <string>
#include <vector>

#include "ui/frmCrapTable.h"

namespace rollwick {

struct TableCommand {
  TableOptions options;
  std::optional<int> exitCode;  // set: no table is opened
  std::string output;           // for the standard output
  std::string error;            // for the standard error
};

// Proves the words (without the program's name).
TableCommand ReadTableCommand(const std::vector<std::string>& words);

}  // namespace rollwick
