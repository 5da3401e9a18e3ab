// What a platform call gives: its value, or the error that kept it from one.
#pragma once

#include "platform/PlatformError.h"

#include <optional>
#include <utility>
#include <variant>

namespace brimlet {

template <class T>
using Result = std::variant<T, PlatformError>;

/// The error of a call that gives nothing else; empty when it succeeded.
using Failure = std::optional<PlatformError>;

/// The error in a result, or null.
template <class T>
const PlatformError* errorIn(const Result<T>& result) {
    return std::get_if<PlatformError>(&result);
}

/// The value of a result known to hold one, moved out.
template <class T>
T valueOf(Result<T>&& result) {
    return std::move(*std::get_if<T>(&result));
}

} // namespace brimlet
