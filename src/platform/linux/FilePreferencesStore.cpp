#include "platform/linux/FilePreferencesStore.h"

#include "platform/FileContents.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace brimlet {

namespace {

/// Far more than any list of exclusions needs.
constexpr std::size_t sizeLimit = 16'000'000;

constexpr const char* dateKey = "millisecondsSince1970";

Json jsonOf(const PreferenceValue& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return jsonString(*text);
    if (const auto* date = std::get_if<PreferenceDate>(&value))
        return Json::object({{dateKey, date->time_since_epoch().count()}});
    if (const auto* flag = std::get_if<bool>(&value))
        return *flag;
    return std::get<std::int64_t>(value);
}

std::optional<PreferenceValue> valueOf(const Json& json) {
    if (json.is_string())
        return bytesOf(json);
    if (json.is_boolean())
        return json.get<bool>();
    if (json.is_number_integer())
        return json.get<std::int64_t>();
    if (json.is_object() && json.contains(dateKey) && json[dateKey].is_number_integer())
        return PreferenceDate(std::chrono::milliseconds(json[dateKey].get<std::int64_t>()));
    return std::nullopt;
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

/// Writes beside the file, syncs, and renames over it, so that a crash leaves the old file or the new one.
void replaceFile(const std::string& file, std::string_view bytes) {
    // No more than the two folders that a home folder may lack: a home folder itself is not ours to make.
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    mkdir(folder.parent_path().c_str(), 0700);
    mkdir(folder.c_str(), 0700);
    std::string temporary = file + ".XXXXXX";
    const int descriptor = mkostemp(temporary.data(), O_CLOEXEC);
    if (descriptor < 0)
        return;
    const bool written = writeAll(descriptor, bytes) && fsync(descriptor) == 0;
    close(descriptor);
    if (!written || std::rename(temporary.c_str(), file.c_str()) != 0)
        unlink(temporary.c_str());
}

/// Whether it is a file that could be read if the disk or its permissions allowed it.
bool isReadableKind(const std::string& file) {
    struct stat status {};
    return stat(file.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           static_cast<std::size_t>(status.st_size) <= sizeLimit;
}

/// The first of ".damaged", ".damaged-2", … that is not taken.
std::string nameAside(const std::string& file) {
    std::string name = file + ".damaged";
    for (int number = 2; access(name.c_str(), F_OK) == 0; ++number)
        name = file + ".damaged-" + std::to_string(number);
    return name;
}

} // namespace

FilePreferencesStore::FilePreferencesStore(std::string file)
    : m_file(std::move(file)) {
    const std::optional<std::string> text = fileContents(m_file, sizeLimit);
    auto document = readJson(text.value_or(""));
    const bool understood = document && document->is_object();
    if (understood)
        m_values = std::move(*document);
    else if (!text && isReadableKind(m_file))
        m_fileState = FileState::unknown;
    else if (access(m_file.c_str(), F_OK) == 0)
        m_fileState = FileState::damaged;
}

std::optional<PreferenceValue> FilePreferencesStore::value(std::string_view key) const {
    const auto found = m_values.find(std::string(key));
    return found == m_values.end() ? std::nullopt : valueOf(*found);
}

void FilePreferencesStore::setValue(std::string_view key, const PreferenceValue& value) {
    m_values[std::string(key)] = jsonOf(value);
    save();
}

void FilePreferencesStore::removeValue(std::string_view key) {
    if (m_values.erase(std::string(key)) > 0)
        save();
}

void FilePreferencesStore::save() {
    if (m_fileState == FileState::unknown)
        return;
    if (m_fileState == FileState::damaged)
        std::rename(m_file.c_str(), nameAside(m_file).c_str());
    m_fileState = FileState::ours;
    replaceFile(m_file, writeJson(m_values, JsonLayout::indented) + "\n");
}

} // namespace brimlet
