#include "views/nodes/NodeLook.h"

#include "app/Formats.h"
#include "app/Texts.h"
#include "core/Paths.h"

#include <QCoreApplication>

namespace brimlet {

QString displayName(const FileNode& node) {
    if (node.parent != nullptr)
        return shownText(node.name);
    const std::string_view name = lastPathComponent(normalisedPath(node.name));
    return name.empty() ? QCoreApplication::translate("Explorer", "Disk") : shownText(name);
}

QString kindText(const FileNode& node) {
    const std::size_t dot = node.name.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot > 0 && dot + 1 < node.name.size();
    return hasExtension ? shownText(node.name.substr(dot + 1)).toUpper()
                        : translatedText(look(node.kind).title);
}

QString relativeTime(double secondsSince1970) {
    constexpr double lastUnknownSecond = 86'400;
    if (!(secondsSince1970 > lastUnknownSecond))
        return QStringLiteral("—");
    return relativeDateText(momentAt(secondsSince1970), QDateTime::currentDateTime());
}

} // namespace brimlet
