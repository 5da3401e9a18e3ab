// Values of half a million parts, whose mere destruction would hold up a frame.
#pragma once

#include <memory>
#include <QThreadPool>
#include <utility>

namespace brimlet {

/// A shared value that is freed in the background, wherever its last owner lets go of it.
template <typename Value>
std::shared_ptr<const Value> largeValue(Value value) {
    return {new Value(std::move(value)),
            [](const Value* last) { QThreadPool::globalInstance()->start([last] { delete last; }); }};
}

} // namespace brimlet
