#include "views/files/CsvExport.h"

#include "core/IsoTime.h"
#include "core/Localized.h"
#include "core/Paths.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <unistd.h>

namespace brimlet {

namespace {

constexpr std::string_view header = "Path,Name,Bytes on disk,Bytes,Kind,Category,Modified\n";

void appendField(std::string& text, std::string_view field, char end) {
    text += '"';
    for (const char c : field) {
        if (c == '"')
            text += '"';
        text += c;
    }
    text += '"';
    text += end;
}

void appendRow(std::string& text, const FileNode& node) {
    appendField(text, normalisedPath(node.path()), ',');
    appendField(text, node.name, ',');
    appendField(text, std::to_string(node.size), ',');
    appendField(text, std::to_string(node.logicalSize), ',');
    appendField(text, localized(look(node.kind).title), ',');
    appendField(text, localized(look(node.bucket).title), ',');
    appendField(text, isoTime(node.modified), '\n');
}

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// A new file beside another, with the permissions that any new file gets.
struct NewFile {
    std::string path;
    int descriptor;
};

std::optional<NewFile> newFileBeside(const std::string& path) {
    constexpr int attempts = 100;
    for (int i = 0; i < attempts; ++i) {
        std::string name = path + "." + std::to_string(getpid()) + "-" + std::to_string(i);
        const int descriptor = open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (descriptor >= 0)
            return NewFile{std::move(name), descriptor};
        if (errno != EEXIST)
            return {};
    }
    return {};
}

} // namespace

std::string csvText(std::span<FileNode* const> files) {
    std::string text(header);
    for (const FileNode* node : files)
        appendRow(text, *node);
    return text;
}

bool writeAtomically(const std::string& path, std::string_view bytes) {
    const std::optional<NewFile> file = newFileBeside(path);
    if (!file)
        return false;
    const bool written = writeAll(file->descriptor, bytes) && fsync(file->descriptor) == 0;
    const bool closed = close(file->descriptor) == 0;
    if (written && closed && std::rename(file->path.c_str(), path.c_str()) == 0)
        return true;
    unlink(file->path.c_str());
    return false;
}

} // namespace brimlet
