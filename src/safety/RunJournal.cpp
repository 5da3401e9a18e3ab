#include "safety/RunJournal.h"

#include "safety/HistoryFormat.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <iterator>
#include <map>
#include <utility>

namespace brimlet {

namespace {

constexpr std::string_view prefix = "run-";
constexpr std::string_view suffix = ".journal";
constexpr const char* recordedKey = "recorded";
constexpr const char* droppedKey = "dropped";
constexpr const char* begunKey = "begun";
constexpr const char* doneKey = "done";
constexpr std::array<std::string_view, 3> kindNames = {"remove", "trash", "restore"};

std::optional<std::string> textMember(const Json& object, const char* key) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_string())
        return std::nullopt;
    return bytesOf(*found);
}

std::optional<Intent> intentFromLine(std::string_view line) {
    const auto object = readJson(line);
    if (!object || !object->is_object() || !object->contains("entry") || !object->contains("scratch"))
        return std::nullopt;
    const auto kind = textMember(*object, "kind");
    const auto known = std::find(kindNames.begin(), kindNames.end(), kind.value_or(std::string()));
    auto entry = historyFromJson(object->at("entry"));
    auto destination = textMember(*object, "destination");
    auto identity = textMember(*object, "identity");
    auto setAside = textMember(*object, "setAside");
    const Json& scratch = object->at("scratch");
    if (known == kindNames.end() || !entry || !destination || !identity || !setAside || !scratch.is_array())
        return std::nullopt;
    Intent intent{static_cast<IntentKind>(known - kindNames.begin()),
                  std::move(*entry),
                  {std::move(*destination), std::move(*identity), {}, std::move(*setAside)}};
    for (const Json& path : scratch) {
        if (!path.is_string())
            return std::nullopt;
        intent.move.scratch.push_back(bytesOf(path));
    }
    intent.isBegun = object->contains(begunKey);
    intent.isDone = object->contains(doneKey);
    return intent;
}

/// The entry that a line says something of by a key.
std::optional<Uuid> entryIn(std::string_view line, const char* key) {
    const auto object = readJson(line);
    const auto text = object && object->is_object() ? textMember(*object, key) : std::nullopt;
    return text ? Uuid::fromText(*text) : std::nullopt;
}

std::string entryText(const char* key, const Uuid& entry) {
    Json object = Json::object();
    object[key] = entry.text();
    return "\n" + writeJson(object) + "\n";
}

} // namespace

bool isJournalName(std::string_view name) {
    return name.starts_with(prefix) && name.ends_with(suffix);
}

std::string intentText(const Intent& intent) {
    std::string text = "\n{\"kind\":";
    addJsonString(text, kindNames[static_cast<std::size_t>(intent.kind)]);
    text += R"(,"entry":)";
    addHistoryText(text, intent.entry);
    for (const auto& [key, bytes] : {std::pair(R"(,"destination":)", &intent.move.destination),
                                     std::pair(R"(,"identity":)", &intent.move.identity),
                                     std::pair(R"(,"setAside":)", &intent.move.setAside)}) {
        text += key;
        addJsonString(text, *bytes);
    }
    text += R"(,"scratch":[)";
    for (const std::string& path : intent.move.scratch) {
        text += &path == &intent.move.scratch.front() ? "" : ",";
        addJsonString(text, path);
    }
    text += ']';
    for (const auto& [key, isSet] :
         {std::pair(begunKey, intent.isBegun), std::pair(doneKey, intent.isDone)}) {
        if (isSet)
            text.append(",\"").append(key).append("\":true");
    }
    return text + "}\n";
}

std::string recordedText(const Uuid& entry) {
    return entryText(recordedKey, entry);
}

std::string droppedText(const Uuid& entry) {
    return entryText(droppedKey, entry);
}

std::vector<Intent> intentsFromText(std::string_view text) {
    std::vector<Intent> intents;
    std::map<Uuid, std::size_t> places;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        auto intent = intentFromLine(line);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (!intent) {
            for (const auto& [key, flag] :
                 {std::pair(recordedKey, &Intent::isRecorded), std::pair(droppedKey, &Intent::isDropped)}) {
                const std::optional<Uuid> entry = entryIn(line, key);
                if (entry && places.contains(*entry))
                    intents[places.at(*entry)].*flag = true;
            }
            continue;
        }
        const auto [place, isNew] = places.emplace(intent->entry.id, intents.size());
        if (isNew) {
            intents.push_back(std::move(*intent));
            continue;
        }
        Intent& earlier = intents[place->second];
        std::move(earlier.move.scratch.begin(), earlier.move.scratch.end(),
                  std::back_inserter(intent->move.scratch));
        earlier = std::move(*intent);
    }
    return intents;
}

RunJournal::RunJournal(RecordStore& store)
    : m_store(store)
    , m_name(std::string(prefix) + Uuid::random().text() + std::string(suffix)) {}

Failure RunJournal::open() {
    if (m_log)
        return std::nullopt;
    const auto lock = m_store.lock();
    if (const PlatformError* error = errorIn(lock))
        return *error;
    Result<std::unique_ptr<RecordLog>> log = m_store.createLog(m_name);
    if (const PlatformError* error = errorIn(log))
        return *error;
    m_log = valueOf(std::move(log));
    return std::nullopt;
}

Failure RunJournal::note(std::span<const Intent> intents) {
    if (auto failure = open())
        return failure;
    std::string text;
    Durability durability = Durability::survivesCrash;
    for (const Intent& intent : intents) {
        for (const std::string& path : intent.move.scratch)
            m_scratch.emplace(intent.entry.id, path);
        if (!intent.move.setAside.empty())
            m_scratch.emplace(intent.entry.id, intent.move.setAside);
        const bool mayOnlyDie =
            intent.kind == IntentKind::remove && intent.move.scratch.empty() && intent.move.setAside.empty();
        if (!mayOnlyDie)
            durability = Durability::survivesPowerCut;
        text += intentText(intent);
    }
    return m_log->append(text, durability);
}

void RunJournal::close(const Uuid& entry) {
    m_scratch.erase(entry);
}

void RunJournal::drop(const Uuid& entry) {
    close(entry);
    if (m_log)
        (void)m_log->append(droppedText(entry), Durability::survivesCrash);
}

void RunJournal::settle(FileRemoval& removal) {
    if (!m_log)
        return;
    const bool clean = std::all_of(m_scratch.begin(), m_scratch.end(), [&](const auto& scratch) {
        const auto identity = removal.identity(scratch.second);
        return errorIn(identity) == nullptr && !*std::get_if<std::optional<FileIdentity>>(&identity);
    });
    if (clean)
        (void)m_store.remove(m_name);
    m_log.reset();
}

} // namespace brimlet
