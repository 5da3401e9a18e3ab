#include "core/IsoTime.h"

#include "core/WholeNumber.h"

#include <array>
#include <cmath>
#include <ctime>

namespace brimlet {

std::string isoTime(double secondsSince1970) {
    if (std::isnan(secondsSince1970))
        return {};
    const auto seconds = wholeNumber<std::time_t>(std::floor(secondsSince1970));
    std::tm moment{};
    std::array<char, 64> text{};
    if (gmtime_r(&seconds, &moment) == nullptr)
        return {};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &moment);
    return {text.data(), length};
}

} // namespace brimlet
