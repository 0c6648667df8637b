// SPDX-License-Identifier: MIT
// Prints lines in the console's format.
#include "console/program.h"

#include <ostream>

#include "model/settings.h"
#include "platform/text.h"

namespace requite {

std::string ConsoleProgram::Line(const std::vector<std::string>& fields) const {
  std::string line;
  for (const std::string& field : fields) {
    if (&field != &fields.front()) line += '\t';
    line += Outside(field);
  }
  return line + '\n';
}

void ConsoleProgram::PrintLine(const std::vector<std::string>& fields) { Out << Line(fields) << std::flush; }

void ConsoleProgram::PrintLine(std::string_view text) { Out << Outside(text) << '\n' << std::flush; }

void ConsoleProgram::Complain(std::string_view utf8) {
  Err << "requite-console: " << VisibleUtf8(utf8) << std::endl;
}

std::string SettingValue(const TextCodec& codec, std::string_view key, std::string_view utf8) {
  return Equals(key, setting::LastProject.Name, Compare::Text) ? std::string(utf8) : codec.FromUtf8(utf8);
}

std::vector<std::string> RowFields(const ListView& list, std::size_t row) {
  std::vector<std::string> fields;
  for (std::size_t column = 0; column < list.ColumnCount(); ++column) {
    fields.push_back(list.FieldAt(row, column));
  }
  return fields;
}

}  // namespace requite
