// Preferences in one JSON file, read once at creation and replaced as a whole on every write.
//
// A file that can't be understood is kept aside as "….damaged" when the first write replaces it, and counts
// as empty until then. One that may not be read is left alone: changes last until the program ends.
#pragma once

#include "platform/PreferencesStore.h"
#include "json/Json.h"

namespace brimlet {

class FilePreferencesStore final : public PreferencesStore {
public:
    /// file  absolute; its folder and the one above are made on the first write
    explicit FilePreferencesStore(std::string file);

    std::optional<PreferenceValue> value(std::string_view key) const override;
    void setValue(std::string_view key, const PreferenceValue& value) override;
    void removeValue(std::string_view key) override;

private:
    void save();

    std::string m_file;
    Json m_values = Json::object();
    enum class FileState {
        ours,
        damaged, ///< doesn't decode
        unknown, ///< can't be read, so nothing is written over it
    };
    FileState m_fileState = FileState::ours;
};

} // namespace brimlet
