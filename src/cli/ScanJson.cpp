#include "cli/ScanJson.h"

#include "core/IsoTime.h"
#include "core/WholeNumber.h"
#include "json/Json.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace brimlet {

namespace {

std::string jsonText(std::string_view bytes) {
    const bool isPlain = std::all_of(bytes.begin(), bytes.end(), [](char byte) {
        return byte >= ' ' && byte < 0x7F && byte != '"' && byte != '\\';
    });
    // Most names need no escaping, and there may be millions of them.
    return isPlain ? '"' + std::string(bytes) + '"' : writeJson(jsonString(bytes));
}

double secondsSince1970(std::chrono::system_clock::time_point time) {
    return std::chrono::duration<double>(time.time_since_epoch()).count();
}

template <typename Category, typename Value>
Json byCaseName(const std::map<Category, Value>& totals) {
    Json object = Json::object();
    for (const auto& [category, value] : totals)
        object[std::string(look(category).caseName)] = value;
    return object;
}

class ScanWriter {
public:
    ScanWriter(std::FILE* output, const ScanResult& result)
        : m_output(output)
        , m_result(result) {}

    void run(const ScanJsonParts& parts) {
        std::string fields = writeJson(resultFields());
        fields.pop_back(); // the closing brace: more members follow
        m_text = fields + ",\n\"root\":";
        if (parts.tree)
            addTree();
        else
            addNode(*m_result.root);
        if (parts.files)
            addFiles();
        m_text += "}\n";
        flush(0);
    }

private:
    Json resultFields() const {
        return {{"rootPath", jsonString(m_result.rootPath)},
                {"totalFiles", m_result.totalFiles},
                {"totalDirectories", m_result.totalDirectories},
                {"unreadableDirectories", m_result.unreadableDirectories},
                {"hardLinksSkipped", m_result.hardLinksSkipped},
                {"duration", m_result.duration},
                {"finishedAt", isoTime(secondsSince1970(m_result.finishedAt))},
                {"bucketTotals", byCaseName(m_result.bucketTotals)},
                {"kindTotals", byCaseName(m_result.kindTotals)},
                {"kindCounts", byCaseName(m_result.kindCounts)}};
    }

    void addField(std::string_view name, std::int64_t value) {
        m_text.append(",\"").append(name).append("\":").append(std::to_string(value));
    }
    void addField(std::string_view name, std::string_view value) {
        m_text.append(",\"").append(name).append("\":\"").append(value).append("\"");
    }
    void addField(std::string_view name, bool value) {
        m_text.append(",\"").append(name).append(value ? "\":true" : "\":false");
    }

    /// The node's own fields; the object stays open.
    void beginNode(const FileNode& node) {
        m_text += "{\"name\":" + jsonText(node.name);
        addField("size", node.size);
        addField("logicalSize", node.logicalSize);
        addField("fileCount", node.fileCount);
        addField("smallFilesSize", node.smallFilesSize);
        addField("smallFilesCount", std::int64_t{node.smallFilesCount});
        addField("modified", wholeNumber<std::int64_t>(node.modified));
        addField("accessed", wholeNumber<std::int64_t>(node.accessed));
        addField("bucket", look(node.bucket).caseName);
        addField("kind", look(node.kind).caseName);
        addField("isDirectory", bool{node.isDirectory});
        addField("isPackage", bool{node.isPackage});
        addField("unreadable", bool{node.unreadable});
        flush(blockBytes);
    }

    void addNode(const FileNode& node) {
        beginNode(node);
        m_text += '}';
    }

    void addTree() {
        struct Level {
            const FileNode* node;
            std::size_t next;
        };
        std::vector<Level> levels;
        const auto enter = [&](const FileNode& node) {
            beginNode(node);
            m_text += ",\"children\":[";
            levels.push_back({&node, 0});
        };
        enter(*m_result.root);
        while (!levels.empty()) {
            Level& level = levels.back();
            if (level.next == level.node->children.size()) {
                m_text += "]}";
                levels.pop_back();
                continue;
            }
            m_text += level.next == 0 ? "\n" : ",\n";
            const FileNode& child = *level.node->children[level.next++];
            if (child.isDirectory)
                enter(child);
            else
                addNode(child);
        }
    }

    void addFiles() {
        m_text += ",\n\"files\":[";
        std::string_view separator = "\n";
        for (const FileNode* file : m_result.files) {
            m_text += separator;
            separator = ",\n";
            beginNode(*file);
            m_text += ",\"path\":" + jsonText(file->path()) + "}";
        }
        m_text += "]";
    }

    void flush(std::size_t limit) {
        if (m_text.size() <= limit)
            return;
        std::fwrite(m_text.data(), 1, m_text.size(), m_output);
        m_text.clear();
    }

    static constexpr std::size_t blockBytes = std::size_t{64} * 1024;
    std::FILE* m_output;
    const ScanResult& m_result;
    std::string m_text;
};

} // namespace

void writeScanJson(std::FILE* output, const ScanResult& result, const ScanJsonParts& parts) {
    ScanWriter(output, result).run(parts);
}

} // namespace brimlet
