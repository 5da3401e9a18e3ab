// Property lists as bytes, sound and rotten, for tests of what reads them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet::test {

/// An XML list whose dictionary holds this identifier.
std::string xmlInfoList(std::string_view identifier);

/// The binary list of a dictionary with this identifier, written by the parsing library.
std::string binaryInfoList(std::string_view identifier);

/// A binary list put together from its objects' bytes, sound or not; references are one byte wide.
std::string binaryListOf(const std::vector<std::string>& objects, std::uint64_t root = 0);

/// An array object of a binary list with one-byte references.
std::string binaryArray(const std::vector<unsigned char>& references);

} // namespace brimlet::test
