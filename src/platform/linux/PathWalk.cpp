#include "platform/linux/PathWalk.h"

#include "core/Localized.h"
#include "core/Paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <vector>

namespace brimlet {

namespace {

constexpr int folderFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW;
constexpr int mostLinks = 40; // as many as the kernel itself follows in one path

PlatformError refusal(std::string_view sentence) {
    return {ErrorDomain::posix, EINVAL, std::nullopt, localized(sentence)};
}

/// One walk from the root; holds the folder reached so far.
class Walk {
public:
    Walk(FileSystemCalls& calls, MissingFolders missing)
        : m_calls(calls)
        , m_missing(missing) {}

    /// 0 or a negative errno.
    int to(std::string_view path) {
        addPending(path);
        if (isReachedAtOnce(path))
            return 0;
        int result = restart();
        while (result == 0 && !m_pending.empty()) {
            const std::string component = std::move(m_pending.back());
            m_pending.pop_back();
            result = step(component);
        }
        return result;
    }

    WalkedFolder reached() && {
        std::string path;
        for (const std::string& name : m_names)
            path += "/" + name;
        return {std::move(m_folder), path.empty() ? "/" : std::move(path), m_made};
    }

private:
    /// Tries the whole path in one call, which finds most; whatever is in its way, the walk tells.
    bool isReachedAtOnce(std::string_view path) {
        const int opened = m_calls.openWithoutLinks(std::string(path).c_str(), folderFlags);
        if (opened < 0)
            return false;
        m_names.assign(m_pending.rbegin(), m_pending.rend());
        return keep(opened) == 0;
    }

    void addPending(std::string_view path) {
        const auto components = pathComponents(path);
        m_pending.insert(m_pending.end(), components.rbegin(), components.rend());
    }

    /// Opens the folder that m_names spell, none of which was a link when it was added.
    int restart() {
        int opened = m_calls.open(AT_FDCWD, "/", folderFlags);
        for (auto name = m_names.begin(); opened >= 0 && name != m_names.end(); ++name) {
            const Descriptor above(m_calls, opened);
            opened = m_calls.open(above.number(), name->c_str(), folderFlags);
        }
        return keep(opened);
    }

    int step(const std::string& component) {
        if (component == ".")
            return 0;
        if (component == "..") {
            if (!m_names.empty())
                m_names.pop_back();
            return restart();
        }
        int opened = m_calls.open(m_folder.number(), component.c_str(), folderFlags);
        if (opened == -ENOENT && m_missing == MissingFolders::make) {
            const int made = m_calls.makeFolder(m_folder.number(), component.c_str(), 0777);
            if (made < 0 && made != -EEXIST)
                return made;
            ++m_made;
            opened = m_calls.open(m_folder.number(), component.c_str(), folderFlags);
        }
        if (opened == -ENOTDIR || opened == -ELOOP)
            return follow(component, opened);
        if (opened >= 0)
            m_names.push_back(component);
        return keep(opened);
    }

    int follow(const std::string& component, int why) {
        std::array<char, PATH_MAX> target{};
        const ssize_t length =
            m_calls.readLink(m_folder.number(), component.c_str(), target.data(), target.size());
        if (length < 0)
            return length == -EINVAL ? why : static_cast<int>(length);
        if (++m_links > mostLinks)
            return -ELOOP;
        const std::string_view path(target.data(), static_cast<std::size_t>(length));
        addPending(path);
        if (!path.starts_with('/'))
            return 0;
        m_names.clear();
        return restart();
    }

    int keep(int opened) {
        if (opened < 0)
            return opened;
        m_folder = Descriptor(m_calls, opened);
        return 0;
    }

    FileSystemCalls& m_calls;
    MissingFolders m_missing;
    std::vector<std::string> m_names;   // what m_folder is called, from the root
    std::vector<std::string> m_pending; // what is still to be walked, the next one last
    Descriptor m_folder;
    int m_links = 0;
    int m_made = 0;
};

} // namespace

Failure refusalOfForm(std::string_view path) {
    if (!path.starts_with('/'))
        return refusal("The path is not absolute.");
    if (path.find('\0') != std::string_view::npos)
        return refusal("The path has a NUL byte in it.");
    const auto components = pathComponents(path);
    const auto isDots = [](std::string_view name) { return name == "." || name == ".."; };
    if (std::any_of(components.begin(), components.end(), isDots))
        return refusal("The path has “.” or “..” in it.");
    return std::nullopt;
}

Result<WalkedFolder> walkToFolder(FileSystemCalls& calls, std::string_view path, MissingFolders missing) {
    if (auto refused = refusalOfForm(path))
        return std::move(*refused);
    Walk walk(calls, missing);
    if (const int result = walk.to(path); result < 0)
        return errorFromErrno(-result);
    return std::move(walk).reached();
}

Result<WalkedEntry> walkToEntry(FileSystemCalls& calls, std::string_view path, MissingFolders missing) {
    if (auto refused = refusalOfForm(path))
        return std::move(*refused);
    const auto components = pathComponents(path);
    if (components.empty())
        return errorFromErrno(EBUSY);
    const std::string_view name = components.back();
    Result<WalkedFolder> parent =
        walkToFolder(calls, path.substr(0, static_cast<std::size_t>(name.data() - path.data())), missing);
    if (const PlatformError* error = errorIn(parent))
        return *error;
    return WalkedEntry{valueOf(std::move(parent)), std::string(name)};
}

Result<Descriptor> openForListing(FileSystemCalls& calls, int folder, const char* name) {
    const int opened = calls.open(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK);
    if (opened < 0)
        return errorFromErrno(-opened);
    return Descriptor(calls, opened);
}

} // namespace brimlet
