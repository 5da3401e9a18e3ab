#pragma once

#include "platform/DirectoryLister.h"

#include <functional>
#include <utility>

namespace brimlet::test {

/// Lists real folders and lets a test change what came out, or the disk beneath, before the caller sees it.
/// The hook may be called from several threads at once.
class HookedDirectoryLister final : public DirectoryLister {
public:
    using Hook = std::function<void(const std::string& folder, std::vector<ListedChild>& entries)>;

    HookedDirectoryLister(const DirectoryLister& real, Hook hook)
        : m_real(real)
        , m_hook(std::move(hook)) {}

    std::optional<std::vector<ListedChild>> children(const std::string& folder) const override {
        auto entries = m_real.children(folder);
        if (entries)
            m_hook(folder, *entries);
        return entries;
    }

private:
    const DirectoryLister& m_real;
    Hook m_hook;
};

} // namespace brimlet::test
