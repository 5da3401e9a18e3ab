// Dates for documents that programs read.
#pragma once

#include <string>

namespace brimlet {

/// "2024-03-01T09:30:00Z", fractions of a second dropped; empty where no calendar has the moment.
std::string isoTime(double secondsSince1970);

} // namespace brimlet
