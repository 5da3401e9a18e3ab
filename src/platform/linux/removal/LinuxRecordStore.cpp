#include "platform/linux/removal/LinuxRecordStore.h"

#include "platform/linux/removal/ExclusiveRename.h"
#include "platform/linux/removal/FolderListing.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {

namespace {

constexpr mode_t ownerOnly = S_IRUSR | S_IWUSR;
constexpr const char* lockName = "history.lock";
constexpr const char* reserveName = "reserve";
// A whole history and the journal of some thousand items. A scan shows it as any other file, for it takes its
// room from the disk and is the user's to see.
constexpr std::int64_t reserveBytes = 4 << 20;

Failure failureOf(int result) {
    return result < 0 ? Failure(errorFromErrno(-result)) : std::nullopt;
}

int writeAll(FileSystemCalls& calls, int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = calls.write(file, bytes.data(), bytes.size());
        if (written < 0)
            return static_cast<int>(written);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// Takes a step, and once more where the disk was full and something could be given back.
template <class Step>
int withRoom(RecordStore& store, Step step) {
    const int result = step();
    const bool isFull = result == -ENOSPC || result == -EDQUOT;
    return isFull && store.makeRoom() ? step() : result;
}

Result<std::string> readAll(FileSystemCalls& calls, int file) {
    std::string bytes;
    std::array<char, 65536> block{};
    for (;;) {
        const ssize_t got =
            calls.read(file, block.data(), block.size(), static_cast<std::int64_t>(bytes.size()));
        if (got < 0)
            return errorFromErrno(static_cast<int>(-got));
        if (got == 0)
            return bytes;
        bytes.append(block.data(), static_cast<std::size_t>(got));
    }
}

class LinuxRecordLog : public RecordLog {
public:
    LinuxRecordLog(LinuxRecordStore& store, FileSystemCalls& calls, Descriptor file)
        : m_store(store)
        , m_calls(calls)
        , m_file(std::move(file)) {}

    Failure append(std::string_view bytes, Durability durability) override {
        return failureOf(withRoom(m_store, [&] {
            const int result = writeAll(m_calls, m_file.number(), bytes);
            return result == 0 && durability == Durability::survivesPowerCut
                       ? m_calls.syncData(m_file.number())
                       : result;
        }));
    }
    Result<std::string> content() override { return readAll(m_calls, m_file.number()); }

private:
    LinuxRecordStore& m_store;
    FileSystemCalls& m_calls;
    Descriptor m_file;
};

class LinuxRecordLock : public RecordLock {
public:
    explicit LinuxRecordLock(Descriptor file)
        : m_file(std::move(file)) {}

private:
    Descriptor m_file; // closing it unlocks
};

} // namespace

LinuxRecordStore::LinuxRecordStore(std::string folder, FileSystemCalls& calls, MissingFolders missing)
    : m_folder(std::move(folder))
    , m_calls(calls) {
    if (missing == MissingFolders::make)
        (void)openFolder(missing);
}

Result<Descriptor> LinuxRecordStore::openFolder(MissingFolders missing) {
    Result<WalkedFolder> walked = walkToFolder(m_calls, m_folder, missing);
    if (const PlatformError* error = errorIn(walked))
        return *error;
    return openForListing(m_calls, std::get_if<WalkedFolder>(&walked)->folder.number());
}

Result<std::unique_ptr<RecordLock>> LinuxRecordStore::lock() {
    Result<Descriptor> folder = openFolder(MissingFolders::make);
    if (const PlatformError* error = errorIn(folder))
        return *error;
    const int in = std::get_if<Descriptor>(&folder)->number();
    Descriptor file(m_calls, withRoom(*this, [&] {
                        return m_calls.open(in, lockName, O_RDWR | O_CREAT | O_NOFOLLOW, ownerOnly);
                    }));
    if (!file.isOpen())
        return errorFromErrno(-file.number());
    if (const int result = m_calls.lock(file.number(), LOCK_EX); result < 0)
        return errorFromErrno(-result);
    return std::make_unique<LinuxRecordLock>(std::move(file));
}

Result<std::optional<std::string>> LinuxRecordStore::read(std::string_view name) {
    Result<Descriptor> folder = openFolder();
    if (const PlatformError* error = errorIn(folder)) {
        if (*error == errorFromErrno(ENOENT))
            return std::nullopt;
        return *error;
    }
    const Descriptor file(m_calls, m_calls.open(std::get_if<Descriptor>(&folder)->number(),
                                                std::string(name).c_str(), O_RDONLY | O_NONBLOCK));
    if (file.number() == -ENOENT)
        return std::nullopt;
    if (!file.isOpen())
        return errorFromErrno(-file.number());
    Result<std::string> bytes = readAll(m_calls, file.number());
    if (const PlatformError* error = errorIn(bytes))
        return *error;
    return valueOf(std::move(bytes));
}

Failure LinuxRecordStore::replace(std::string_view name, std::string_view bytes) {
    Result<Descriptor> opened = openFolder(MissingFolders::make);
    if (const PlatformError* error = errorIn(opened))
        return *error;
    const int folder = std::get_if<Descriptor>(&opened)->number();
    const std::string temporary = std::string(name) + ".new";
    const auto write = [&] {
        constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW;
        const Descriptor file(m_calls, m_calls.open(folder, temporary.c_str(), flags, ownerOnly));
        if (!file.isOpen())
            return file.number();
        const int written = writeAll(m_calls, file.number(), bytes);
        return written < 0 ? written : m_calls.sync(file.number());
    };
    int result = withRoom(*this, write);
    if (result == 0)
        result = m_calls.rename(folder, temporary.c_str(), folder, std::string(name).c_str(), 0);
    if (result < 0) {
        m_calls.unlink(folder, temporary.c_str(), 0);
        return errorFromErrno(-result);
    }
    return failureOf(m_calls.sync(folder));
}

Failure LinuxRecordStore::rename(std::string_view name, std::string_view newName) {
    Result<Descriptor> opened = openFolder();
    if (const PlatformError* error = errorIn(opened))
        return *error;
    const int folder = std::get_if<Descriptor>(&opened)->number();
    return failureOf(renameExclusively(m_calls, folder, std::string(name), folder, std::string(newName)));
}

Failure LinuxRecordStore::remove(std::string_view name) {
    Result<Descriptor> folder = openFolder();
    if (const PlatformError* error = errorIn(folder))
        return *error;
    const int result =
        m_calls.unlink(std::get_if<Descriptor>(&folder)->number(), std::string(name).c_str(), 0);
    return result == -ENOENT ? std::nullopt : failureOf(result);
}

Result<std::vector<std::string>> LinuxRecordStore::names() {
    Result<Descriptor> folder = openFolder();
    if (const PlatformError* error = errorIn(folder))
        return *error;
    std::vector<std::string> names;
    FolderListing listing(m_calls);
    int count = 0;
    while ((count = listing.readOn(std::get_if<Descriptor>(&folder)->number())) > 0) {
        for (const ListedEntry& entry : listing.batch())
            names.emplace_back(entry.name);
    }
    if (count < 0)
        return errorFromErrno(-count);
    return names;
}

Result<std::unique_ptr<RecordLog>> LinuxRecordStore::createLog(std::string_view name) {
    Result<Descriptor> opened = openFolder(MissingFolders::make);
    if (const PlatformError* error = errorIn(opened))
        return *error;
    const int folder = std::get_if<Descriptor>(&opened)->number();
    const std::string fileName(name);
    keepReserve();
    Descriptor file(m_calls, withRoom(*this, [&] {
                        constexpr int flags = O_RDWR | O_CREAT | O_EXCL | O_APPEND | O_NOFOLLOW;
                        return m_calls.open(folder, fileName.c_str(), flags, ownerOnly);
                    }));
    if (!file.isOpen())
        return errorFromErrno(-file.number());
    int result = m_calls.lock(file.number(), LOCK_EX | LOCK_NB);
    if (result == 0)
        result = m_calls.sync(folder);
    if (result == 0)
        return std::make_unique<LinuxRecordLog>(*this, m_calls, std::move(file));
    m_calls.unlink(folder, fileName.c_str(), 0);
    return errorFromErrno(-result);
}

Result<std::unique_ptr<RecordLog>> LinuxRecordStore::adoptLog(std::string_view name) {
    Result<Descriptor> folder = openFolder();
    if (const PlatformError* error = errorIn(folder))
        return *error;
    Descriptor file(m_calls, m_calls.open(std::get_if<Descriptor>(&folder)->number(),
                                          std::string(name).c_str(), O_RDWR | O_APPEND | O_NOFOLLOW));
    if (!file.isOpen())
        return errorFromErrno(-file.number());
    const int result = m_calls.lock(file.number(), LOCK_EX | LOCK_NB);
    if (result == -EWOULDBLOCK)
        return std::unique_ptr<RecordLog>();
    if (result < 0)
        return errorFromErrno(-result);
    return std::make_unique<LinuxRecordLog>(*this, m_calls, std::move(file));
}

bool LinuxRecordStore::makeRoom() {
    const Result<Descriptor> folder = openFolder();
    const auto* opened = std::get_if<Descriptor>(&folder);
    return opened != nullptr && m_calls.unlink(opened->number(), reserveName, 0) == 0;
}

void LinuxRecordStore::keepReserve() {
    const Result<Descriptor> folder = openFolder();
    const auto* opened = std::get_if<Descriptor>(&folder);
    FileStatus status;
    if (opened == nullptr || m_calls.status(opened->number(), "", status) < 0 || status.owner != geteuid() ||
        m_calls.status(opened->number(), reserveName, status) != -ENOENT)
        return;
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW;
    const Descriptor file(m_calls, m_calls.open(opened->number(), reserveName, flags, ownerOnly));
    if (file.isOpen() && m_calls.allocate(file.number(), reserveBytes) < 0)
        m_calls.unlink(opened->number(), reserveName, 0);
}

} // namespace brimlet
