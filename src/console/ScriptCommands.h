// `rollwick script`: scripts as texts and as files, without a table.
#pragma once

#include <span>
#include <string>

#include "console/Console.h"
#include "console/Report.h"
#include "session/Scripts.h"

namespace rollwick {

// All give the exit code.
int RunScriptShow(const std::string& file, bool isPlain, bool isJson, const Terminal& terminal);
int RunScriptBuild(const std::string& file, const std::string& output, const Terminal& terminal);
int RunScriptCheck(const std::string& file, const Terminal& terminal);
int RunScriptStatements(const Terminal& terminal);

// A line a script line, with its number.
std::string ScriptForPeople(std::span<const ScriptLine> lines);

// line, kind, op, name, amount, left, right, text.
Json ScriptLineJson(const ScriptLine& line, int number);

// "FILE:LINE: title: text" of a fault of the structure; "FILE:LINE:COLUMN: text" lines of errors of a text,
// or why the file is refused. Both end in a line end and are empty when nothing is wrong.
std::string FaultText(const std::string& file, const ScriptSource& source);
std::string ErrorsText(const std::string& file, const ScriptSource& source);

}  // namespace rollwick
