#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brimlet::test {

/// What a program left behind.
struct ProgramRun {
    int status = -1; ///< exit status; -1 where it ended otherwise
    std::string output;
    std::string errors;
};

/// Runs a program to its end, without a terminal.
/// arguments  the program's absolute path first
/// input      what it reads from standard input
/// home       its HOME
ProgramRun runProgram(const std::vector<std::string>& arguments, std::string_view home,
                      std::string_view input = {});

} // namespace brimlet::test
