// Runs a built program as its users do: without a terminal, and bound by permission bits also for root.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet::test {

struct Outcome {
    int status = -1; ///< exit status; 128 + signal where one ended the program
    std::string output;
    std::string error;
};

/// environment  variables to set besides those there are
/// input        what it reads from standard input
Outcome runProgram(const std::string& program, const std::vector<std::string>& arguments,
                   const std::map<std::string, std::string>& environment = {}, std::string_view input = {});

/// The same, with an interrupt signal once the program's own handler is in place.
Outcome runInterrupted(const std::string& program, const std::vector<std::string>& arguments,
                       const std::map<std::string, std::string>& environment = {});

} // namespace brimlet::test
