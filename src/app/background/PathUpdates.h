// Brings all that lists paths up to date after a removal or a restore. Main thread.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace brimlet {

/// Node paths.
using SharedPaths = std::shared_ptr<const std::unordered_set<std::string>>;

/// A list, or a tree, of what is on the disk.
class PathList {
public:
    virtual ~PathList() = default;

    /// Leaves out what is gone. Called after every removal, also where nothing went.
    /// then  called once that is done, at the earliest before the return
    virtual void forget(const SharedPaths& gone, std::function<void()> then) = 0;

    /// Says that what was gone is back in its place.
    virtual void takeBack(const SharedPaths& back, std::function<void()> then) = 0;
};

class PathUpdates {
public:
    /// `list` outlives this object.
    void add(PathList& list) { m_lists.push_back(&list); }

    /// then  called when all lists are right
    void forget(const SharedPaths& gone, const std::function<void()>& then) {
        tellAll(&PathList::forget, gone, then);
    }
    void takeBack(const SharedPaths& back, const std::function<void()>& then) {
        tellAll(&PathList::takeBack, back, then);
    }

private:
    using Update = void (PathList::*)(const SharedPaths&, std::function<void()>);

    void tellAll(Update update, const SharedPaths& paths, const std::function<void()>& then) {
        const auto left = std::make_shared<std::size_t>(m_lists.size());
        for (PathList* list : m_lists) {
            (list->*update)(paths, [left, then] {
                if (--*left == 0)
                    then();
            });
        }
    }

    std::vector<PathList*> m_lists;
};

} // namespace brimlet
